#include "ui/board_turn.h"

#include <array>
#include <string>

namespace varkesh {
namespace {

constexpr int kLast = kBoardSide - 1;

// One quarter turn clockwise on the screen, y downward.
SquarePoint TurnedOnce(SquarePoint square) {
  return {kLast - square.y, square.x};
}

bool IsHuman(const Game& game, int team) {
  return TeamEntry(game.match.setup.playerKinds, team, -1) == kHuman;
}

bool InGame(const Game& game) {
  const int mode = game.turn.gameMode;
  return mode != ModeNoGame && mode != ModeTitle;
}

}  // namespace

int QuarterTurns(int bottomTeam) {
  // The keeps go round clockwise White, Blue, Black, Red from the bottom;
  // each quarter turn clockwise brings the next one down.
  return bottomTeam >= kWhite && bottomTeam <= kRed ? (kTeamCount - (bottomTeam - 1)) % kTeamCount
                                                    : 0;
}

SquarePoint DrawnSquare(int x, int y, int bottomTeam) {
  SquarePoint square{x, y};
  if (!Board::InBounds(x, y)) return square;
  for (int turn = QuarterTurns(bottomTeam); turn > 0; --turn) square = TurnedOnce(square);
  return square;
}

SquarePoint GameSquare(int drawnX, int drawnY, int bottomTeam) {
  SquarePoint square{drawnX, drawnY};
  if (!Board::InBounds(drawnX, drawnY)) return square;
  for (int turn = (kTeamCount - QuarterTurns(bottomTeam)) % kTeamCount; turn > 0; --turn)
    square = TurnedOnce(square);
  return square;
}

int DrawnSide(int team, int bottomTeam) {
  if (team < kWhite || team > kRed) return team;
  return (team - 1 + QuarterTurns(bottomTeam)) % kTeamCount + 1;
}

TurnChoice EffectiveChoice(const Game& game, TurnChoice chosen) {
  if (chosen != TurnChoice::Unchosen) return chosen;
  return game.net.netRole == kNetNone ? TurnChoice::White : TurnChoice::Mine;
}

int BottomTeamFor(const Game& game, TurnChoice chosen) {
  switch (EffectiveChoice(game, chosen)) {
    case TurnChoice::White:
    case TurnChoice::Unchosen:
      return kWhite;
    case TurnChoice::Blue:
      return kBlue;
    case TurnChoice::Black:
      return kBlack;
    case TurnChoice::Red:
      return kRed;
    case TurnChoice::Mine:
      break;
  }
  if (game.net.netRole != kNetNone) {
    for (int team = kWhite; team <= kRed; ++team)
      if (TeamEntry(game.net.seatNode, team, -1) == game.net.myNodeId && IsHuman(game, team))
        return team;
    return game.view.bottomTeam;
  }
  const int onTurn = game.match.position.currentTeam;
  if (InGame(game) && onTurn >= kWhite && onTurn <= kRed && IsHuman(game, onTurn)) return onTurn;
  return game.view.bottomTeam;
}

const char* TurnChoiceName(TurnChoice choice) {
  switch (choice) {
    case TurnChoice::White:
      return "White";
    case TurnChoice::Blue:
      return "Blue";
    case TurnChoice::Black:
      return "Black";
    case TurnChoice::Red:
      return "Red";
    case TurnChoice::Mine:
      return "Mine";
    case TurnChoice::Unchosen:
      break;
  }
  return "";
}

TurnChoice TurnChoiceNamed(const std::string& name) {
  for (TurnChoice choice :
       {TurnChoice::White, TurnChoice::Blue, TurnChoice::Black, TurnChoice::Red, TurnChoice::Mine})
    if (name == TurnChoiceName(choice)) return choice;
  return TurnChoice::Unchosen;
}

}  // namespace varkesh
