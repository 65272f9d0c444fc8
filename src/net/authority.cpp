#include "net/authority.h"

#include <algorithm>
#include <limits>
#include <stdexcept>

#include "core/pawn_options.h"
#include "core/play_move.h"
#include "core/quiet_outside.h"
#include "core/resign.h"
#include "core/rules.h"
#include "net/wire.h"

namespace varkesh::net {

namespace {

bool PlayerTurn(int mode) {
  return mode == ModeChoosePiece || mode == ModeChooseDestination || mode == ModeConfirmMove;
}

bool HoldsTurn(const Game& game, int from) {
  return TeamEntry(game.playerKinds, game.currentTeam, -1) == kHuman &&
         TeamEntry(game.seatNode, game.currentTeam, -1) == from;
}

// Numbers of a payload that must have exactly count fields, each from low to high.
bool ReadNumbers(std::string_view payload, std::size_t count, int low, int high, int* numbers) {
  const std::vector<std::string_view> fields = SplitFields(payload);
  if (fields.size() != count) return false;
  for (std::size_t i = 0; i < count; ++i) {
    numbers[i] = FieldNumber(fields[i]);
    if (numbers[i] < low || numbers[i] > high) return false;
  }
  return true;
}

bool OwnPiece(const Game& game, int x, int y) {
  return Board::InBounds(x, y) && game.board.at(x, y).team == game.currentTeam &&
         game.board.at(x, y).piece >= kPawn;
}

bool SelectedMoveListed(const Game& game) {
  return IsListedMove(game, game.moveFromX, game.moveFromY, game.moveToX, game.moveToY);
}

std::string StateRefusal(const Game& game, std::string_view payload) {
  const int mode = FieldNumber(payload);
  if (mode < ModeChoosePiece || mode > ModeConfirmMove)
    return "mode " + std::to_string(mode) + " is none a player's clicks reach";
  if (mode == ModeChooseDestination && !OwnPiece(game, game.moveFromX, game.moveFromY))
    return "the chosen square holds no piece of the team to move";
  if (mode == ModeConfirmMove && !SelectedMoveListed(game))
    return "the chosen move is not one the rules list";
  return {};
}

// Whether the pawn options dialog would have let the mover pick this: the
// move is played on a copy to see the options it leads to.
bool OfferedPawnOption(const Game& game, int kind, int argA, int argB) {
  Game probe = game;
  QuietOutside quiet;
  try {
    PlayMoveOnBoard(probe, quiet, MaterialNotice::HumanOrNetwork);
  } catch (const std::exception&) {
    return false;
  }
  const bool due = PawnOptionsDue(probe, game.moveToX, game.moveToY);
  const std::vector<PawnOption> options =
      due ? ListPawnOptions(probe, game.moveToX, game.moveToY) : std::vector<PawnOption>{};
  const auto offered = [&](bool onBoard) {
    return std::any_of(options.begin(), options.end(), [&](const PawnOption& option) {
      return option.onBoard == onBoard && option.argA == argA && (!onBoard || option.argB == argB);
    });
  };
  switch (kind) {
    case kMovePlain:  // the dialog closed without a choice, or no dialog
      return !due || !options.empty();
    case kMoveCaptureInKeep:
      return offered(true);
    case kMoveFreePrisoner:
      return offered(false);
    case kMovePawnLost:
      return due && options.empty();
    default:
      return false;
  }
}

std::string MoveRefusal(const Game& game, std::string_view payload) {
  int numbers[3];
  if (!ReadNumbers(payload, 3, std::numeric_limits<int>::min(), std::numeric_limits<int>::max(),
                   numbers))
    return "a move message that does not fit its verb";
  if (!SelectedMoveListed(game)) return "the move is not one the rules list";
  if (!OfferedPawnOption(game, numbers[0], numbers[1], numbers[2]))
    return "the pawn option is not one the rules offer";
  return {};
}

std::string ResignRefusal(const Game& game, std::string_view payload) {
  const int team = FieldNumber(payload);
  if (game.kingCaptureRule == kKingdomGained) {
    const std::vector<int> offers = ConcedeOffers(game);
    if (std::find(offers.begin(), offers.end(), team) == offers.end())
      return "team " + std::to_string(team) + " may not receive the pieces";
  } else if (team != kNoTeam) {
    return "no team receives the pieces under this rule";
  }
  return {};
}

}  // namespace

bool IsGameVerb(std::string_view verb) {
  return verb == "GUPM" || verb == "GUGS" || verb == "GAMV" || verb == "GRES";
}

std::string RefusalOf(const Game& game, int from, std::string_view message) {
  const Message parts = SplitMessage(message);
  if (!IsGameVerb(parts.verb)) return "only the host sends that";
  if (!PlayerTurn(game.gameMode)) return "no player's turn is under way";
  if (!HoldsTurn(game, from))
    return std::string("the node does not hold the seat of ") + TeamName(game.currentTeam);
  if (parts.verb == "GUPM") {
    int squares[4];
    return ReadNumbers(parts.payload, 4, 0, kBoardSide - 1, squares) ? std::string()
                                                                     : "a square off the board";
  }
  if (parts.verb == "GUGS") return StateRefusal(game, parts.payload);
  if (parts.verb == "GAMV") return MoveRefusal(game, parts.payload);
  return ResignRefusal(game, parts.payload);
}

}  // namespace varkesh::net
