#include "core/labels.h"

#include <array>

namespace varkesh {

namespace {

constexpr const char* kError = "~~error~~";

std::string OrdinalEnding(int number) {
  if (number >= 11 && number <= 13) return "th";
  switch (number % 10) {
    case 1:
      return "st";
    case 2:
      return "nd";
    case 3:
      return "rd";
    default:
      return "th";
  }
}

std::string PlayerKindText(int kind) {
  static constexpr std::array<const char*, 4> kKinds = {" (Human)", " (Aggressive)", " (Balanced)",
                                                        " (Defensive)"};
  if (kind < 0 || kind >= static_cast<int>(kKinds.size())) return std::string(" (") + kError + ")";
  return kKinds[static_cast<std::size_t>(kind)];
}

std::string GameTypeName(int gameType) {
  switch (gameType) {
    case kAlliedNeighbors:
      return "Allied Neighbors";
    case kCrossroadAllies:
      return "Crossroad Allies";
    case kAnarchy:
      return "Anarchy";
    default:
      return kError;
  }
}

std::string RuleName(int rule) {
  switch (rule) {
    case kKingdomGained:
      return "Kingdom Gained";
    case kKingdomLost:
      return "Kingdom Lost";
    case kKingdomFrozen:
      return "Kingdom Frozen";
    default:
      return kError;
  }
}

// "Black's Queen"; a frozen piece is named by its kind, so the player can
// still tell what stands there.
std::string DescribeSquare(const Square& square, int x, int y) {
  std::string text = TeamPossessive(square.team);
  if (square.piece < 0) return text + " frozen " + PieceTitle(-square.piece, x, y);
  return text + " " + PieceTitle(square.piece, x, y);
}

bool HoldsPiece(const Position& position, int x, int y) {
  return Board::InBounds(x, y) && position.board.at(x, y).piece != kNoPiece;
}

}  // namespace

std::string TeamPossessive(int team) {
  if (TeamIndex(team) < 0) return kError;
  return std::string(TeamName(team)) + "'s";
}

std::string PieceTitle(int kind, int x, int y) {
  if (kind == kBishop) return (x + y) % 2 == 0 ? "Dark Bishop" : "Light Bishop";
  return PieceName(kind);
}

std::string TurnText(const Position& position, const Setup& setup) {
  const int team = position.currentTeam;
  std::string player = TeamIndex(team) < 0 ? kError : std::string(TeamName(team)) + " Player";
  const int kind = TeamEntry(setup.playerKinds, team, -1);
  std::string text = std::to_string(position.roundNumber) + OrdinalEnding(position.roundNumber) +
                     " Round, " + player + PlayerKindText(kind);
  // A searching level follows the personality; Classic goes unsaid.
  const int level = TeamEntry(setup.levels, team);
  if (kind > kHuman && level > kLevelClassic && level <= kLevelMaster)
    text += std::string(" ") + LevelName(level);
  return text;
}

std::string PieceText(const Position& position, int fromX, int fromY, int toX, int toY) {
  if (!HoldsPiece(position, fromX, fromY)) return "";
  std::string text = DescribeSquare(position.board.at(fromX, fromY), fromX, fromY);
  if (HoldsPiece(position, toX, toY))
    text += " \u00bb\u00bb " + DescribeSquare(position.board.at(toX, toY), toX, toY);
  return text;
}

std::string GameDescription(const Position& position, const Setup& setup) {
  return setup.gameName + " (" + GameTypeName(position.gameType) + "/" +
         RuleName(position.kingCaptureRule) + ")";
}

}  // namespace varkesh
