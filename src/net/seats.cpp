#include "net/seats.h"

#include <array>

#include "core/labels.h"
#include "flow/game.h"
#include "net/chat.h"
#include "net/extension.h"
#include "net/node_table.h"
#include "net/sending.h"

namespace varkesh::net {

namespace {

constexpr PerTeam<Rgb> kTeamColours = {Rgb{255, 255, 255}, Rgb{0, 0, 127}, Rgb{0, 0, 0},
                                       Rgb{127, 0, 0}};

std::string Decoration(const Game& game, int seatNode) {
  const bool mine = seatNode == game.net.myNodeId;
  if (mine && seatNode == 0) return "(host/you)";
  if (mine) return "(you)";
  if (seatNode == 0) return "(host)";
  return "";
}

std::string ComputerCaption(int kind) {
  switch (kind) {
    case kAggressive:
      return "Comp (Agr)";
    case kBalanced:
      return "Comp (Bal)";
    case kDefensive:
      return "Comp (Def)";
    default:
      return "** error **";
  }
}

// The seat changed hands: everyone is told who holds what, and by whom.
void AnnounceSeat(NetNode& node, int team, const std::string& holder) {
  TellSeats(node, 0);
  SendNotice(node, std::string("     *** ") + TeamName(team) + " is now controlled by " + holder);
}

}  // namespace

std::string ControlMessage(const Game& game) {
  std::string text = "GCNC}";
  for (int t = 0; t < kTeamCount; ++t) {
    if (t > 0) text += kFieldSeparator;
    text += std::to_string(game.match.setup.playerKinds[static_cast<std::size_t>(t)]) +
            kFieldSeparator + std::to_string(game.net.seatNode[static_cast<std::size_t>(t)]);
  }
  return text;
}

bool BreakDownNodeControl(NetNode& node, std::string_view payload) {
  std::vector<std::string_view> fields = SplitFields(payload);
  if (fields.size() != 2 * kTeamCount) return false;
  PerTeam<int> kinds{}, seats{};
  for (std::size_t t = 0; t < kTeamCount; ++t) {
    kinds[t] = FieldNumber(fields[2 * t]);
    seats[t] = FieldNumber(fields[2 * t + 1]);
    if (kinds[t] < kHuman || kinds[t] > kDefensive || seats[t] < 0 || seats[t] > kMaxNodeNumber)
      return false;
  }
  node.game.match.setup.playerKinds = kinds;
  node.game.net.seatNode = seats;
  UpdatePlayerNames(node);
  return true;
}

void ComputerSeatsToHost(Game& game) {
  for (std::size_t t = 0; t < kTeamCount; ++t)
    if (game.match.setup.playerKinds[t] != kHuman) game.net.seatNode[t] = 0;
}

void UpdatePlayerNames(NetNode& node) {
  node.view.SetSeatCaptions(SeatCaptions(node.game, node.session));
}

void TellSeats(NetNode& node, int skipNode) {
  UpdatePlayerNames(node);
  SendToAllNodes(node, ControlMessage(node.game), skipNode);
  NoteSeatChange(node);
}

PerTeam<std::string> SeatCaptions(const Game& game, const NetSession& session) {
  PerTeam<std::string> captions;
  for (std::size_t t = 0; t < kTeamCount; ++t) {
    const int kind = game.match.setup.playerKinds[t];
    const int seat = game.net.seatNode[t];
    captions[t] =
        kind == kHuman ? NodeName(session, seat) + Decoration(game, seat) : ComputerCaption(kind);
  }
  return captions;
}

Rgb PlayerColor(const Game& game, int node) {
  for (std::size_t t = 0; t < kTeamCount; ++t)
    if (game.net.seatNode[t] == node && game.match.setup.playerKinds[t] == kHuman)
      return kTeamColours[t];
  return kWatcherColour;
}

std::string SeatPlayerName(const Game& game, const NetSession& session, int team) {
  if (TeamEntry(game.match.setup.playerKinds, team, -1) != kHuman) return {};
  return NodeName(session, TeamEntry(game.net.seatNode, team, -1));
}

void AssignSeat(NetNode& node, int team, int toNode) {
  const int i = TeamIndex(team);
  if (node.game.net.netRole != kNetHosting || i < 0 || toNode < 0 ||
      toNode > node.session.nodeCount || !node.session.nodeInUse[static_cast<std::size_t>(toNode)])
    return;
  Game& game = node.game;
  game.match.setup.playerKinds[static_cast<std::size_t>(i)] = kHuman;
  game.net.seatNode[static_cast<std::size_t>(i)] = toNode;
  AnnounceSeat(node, team, NodeName(node.session, toNode));
}

void GiveSeatToComputer(NetNode& node, int team, int personality) {
  static constexpr std::array<const char*, 4> kPersonalities = {"", "Aggressive", "Balanced",
                                                                "Defensive"};
  const int i = TeamIndex(team);
  if (node.game.net.netRole != kNetHosting || i < 0 || personality < kAggressive ||
      personality > kDefensive)
    return;
  Game& game = node.game;
  game.match.setup.playerKinds[static_cast<std::size_t>(i)] = personality;
  game.net.seatNode[static_cast<std::size_t>(i)] = 0;
  AnnounceSeat(
      node, team,
      std::string("the Computer (") + kPersonalities[static_cast<std::size_t>(personality)] + ")");
  // The computer takes over at once, dropping any selection.
  const bool selecting = game.turn.gameMode == ModeChoosePiece ||
                         game.turn.gameMode == ModeChooseDestination ||
                         game.turn.gameMode == ModeConfirmMove;
  if (team == game.match.position.currentTeam && selecting) {
    game.turn.gameMode = ModeComputerThinks;
    SendToAllNodes(node, "GUGS}8", 0);
  }
}

void SetSeatLevel(NetNode& node, int team, int level) {
  const int i = TeamIndex(team);
  if (node.game.net.netRole != kNetHosting || i < 0 || level < kLevelClassic ||
      level > kLevelMaster)
    return;
  node.game.match.setup.levels[static_cast<std::size_t>(i)] = level;
}

}  // namespace varkesh::net
