#include "net/authority.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <stdexcept>

#include "core/pawn_options.h"
#include "core/resign.h"
#include "core/rules.h"
#include "net/move_message.h"
#include "net/wire.h"

namespace varkesh::net {

namespace {

bool PlayerTurn(int mode) {
  return mode == ModeChoosePiece || mode == ModeChooseDestination || mode == ModeConfirmMove;
}

bool HoldsTurn(const Game& game, int from) {
  return TeamEntry(game.match.setup.playerKinds, game.match.position.currentTeam, -1) == kHuman &&
         TeamEntry(game.net.seatNode, game.match.position.currentTeam, -1) == from;
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

bool OwnPiece(const Position& position, int x, int y) {
  return Board::InBounds(x, y) && position.board.at(x, y).team == position.currentTeam &&
         position.board.at(x, y).piece >= kPawn;
}

bool SelectedMoveListed(const Game& game) {
  const TurnState& turn = game.turn;
  return IsListedMove(game.match.position, turn.moveFromX, turn.moveFromY, turn.moveToX,
                      turn.moveToY);
}

std::string StateRefusal(const Game& game, std::string_view payload) {
  const int mode = FieldNumber(payload);
  if (mode < ModeChoosePiece || mode > ModeConfirmMove)
    return "mode " + std::to_string(mode) + " is none a player's clicks reach";
  if (mode == ModeChooseDestination &&
      !OwnPiece(game.match.position, game.turn.moveFromX, game.turn.moveFromY))
    return "the chosen square holds no piece of the team to move";
  if (mode == ModeConfirmMove && !SelectedMoveListed(game))
    return "the chosen move is not one the rules list";
  return {};
}

std::string MoveRefusal(const Game& game, std::string_view payload) {
  int numbers[3];
  if (!ReadNumbers(payload, 3, std::numeric_limits<int>::min(), std::numeric_limits<int>::max(),
                   numbers))
    return "a move message that does not fit its verb";
  if (!SelectedMoveListed(game)) return "the move is not one the rules list";
  const std::optional<Move> move = MoveOfMessage(game, numbers[0], numbers[1], numbers[2]);
  if (!move || !IsLegal(game.match.position, *move))
    return "the pawn option is not one the rules offer";
  return {};
}

// Under the other rules the team means nothing: a peer sends whatever it
// last conceded to.
std::string ResignRefusal(const Game& game, std::string_view payload) {
  const int team = FieldNumber(payload);
  if (game.match.position.kingCaptureRule != kKingdomGained) return {};
  const std::vector<int> offers = ConcedeOffers(game.match.position);
  if (std::find(offers.begin(), offers.end(), team) == offers.end())
    return "team " + std::to_string(team) + " may not receive the pieces";
  return {};
}

}  // namespace

bool IsGameVerb(std::string_view verb) {
  return verb == "GUPM" || verb == "GUGS" || verb == "GAMV" || verb == "GRES";
}

std::string RefusalOf(const Game& game, int from, std::string_view message) {
  const Message parts = SplitMessage(message);
  if (!IsGameVerb(parts.verb)) return "only the host sends that";
  if (!PlayerTurn(game.turn.gameMode)) return "no player's turn is under way";
  if (!HoldsTurn(game, from))
    return std::string("the node does not hold the seat of ") +
           TeamName(game.match.position.currentTeam);
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
