#include "fuzz/net_fuzz.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "core/rules.h"
#include "flow/accept_move.h"
#include "flow/new_game.h"
#include "net/move_message.h"

namespace varkesh::fuzz {

namespace {

constexpr int kMostPasses = 100'000;

// No logs, no sounds, no computer's thoughts shown; the start position
// comes straight from the pack folder.
void Quieten(ScriptedOutside& outside) {
  outside.engine.logsOff = true;
  outside.entryPaths["newgamedata"] = VARKESH_PACK_DIR "/newgamedata.txt";
  outside.SetMenuChecked(Menu::OptionsShowComp, false);
  outside.SetMenuChecked(Menu::OptionsSfx, false);
}

enum class StepKind { kBytes, kTick, kReopen, kClose, kBreak };
struct Step {
  StepKind kind = StepKind::kBytes;
  int lane = 0;
  int passes = 0;
  double seconds = 0.0;
  std::string_view bytes;
};

std::vector<Step> CutInput(std::string_view input) {
  std::vector<Step> steps;
  std::size_t at = 0;
  while (at < input.size()) {
    const auto control = static_cast<unsigned char>(input[at++]);
    Step step;
    step.lane = control & 1;
    if (control >= 0xFC) {
      step.kind = (control & 2) != 0 ? StepKind::kBreak : StepKind::kClose;
    } else if (control >= 0xF8) {
      step.kind = StepKind::kReopen;
    } else if (control >= 0xF0) {
      step.kind = StepKind::kTick;
      step.seconds = kTickSeconds[control & 7];
    } else {
      step.passes = (control >> 4) & 7;
      const std::size_t size = std::min(kChunkSizes[(control >> 1) & 7], input.size() - at);
      step.bytes = input.substr(at, size);
      at += size;
    }
    steps.push_back(step);
  }
  return steps;
}

// Serves the queue one message a pass, with the network pumped after each,
// until the queue is empty or passes have been served.
void ServeQueue(net::FakeNetwork& network, FuzzNode& node, int passes) {
  for (int pass = 0; pass < passes && !node.session.gameQueue.empty(); ++pass) {
    net::ServeGameQueue(node.node);
    network.Pump();
  }
}

}  // namespace

const Game& GameUnderWay() {
  static const Game game = [] {
    Game started;
    started.random = Random::Zero();
    ScriptedOutside outside;
    Quieten(outside);
    outside.newGameChoices.push_back({true, kAnarchy, kKingdomLost, {}, "Fuzz"});
    NewGameCommand(started, outside);
    Require(started.turn.gameMode == ModeChoosePiece, "the game under way did not start");
    return started;
  }();
  return game;
}

FuzzNode::FuzzNode(net::FakeTransport& endpoint, int netRole) : transport(endpoint) {
  Quieten(outside);
  game.net.netRole = netRole;
  game.net.localPlayerName = "Ann";
  session.netPort = kPort;
}

void Play(std::string_view input, net::FakeNetwork& network, FuzzNode& node,
          const std::array<net::WireEnd*, 2>& lanes,
          const std::function<void(net::WireEnd&)>& reopen) {
  for (const Step& step : CutInput(input)) {
    net::WireEnd& peer = *lanes[static_cast<std::size_t>(step.lane)];
    switch (step.kind) {
      case StepKind::kBytes:
        peer.transport.Send(peer.connection, step.bytes);
        break;
      case StepKind::kTick:
        node.outside.clock += step.seconds;
        node.link.OnTick();
        break;
      case StepKind::kReopen:
        if (peer.connection == 0) reopen(peer);
        break;
      case StepKind::kClose:
        if (peer.connection != 0) peer.transport.Close(peer.connection);
        peer.connection = 0;
        break;
      case StepKind::kBreak:
        network.Break(peer.transport, peer.connection);
        break;
    }
    network.Pump();
    ServeQueue(network, node, step.passes);
  }
  ServeQueue(network, node, kMostPasses);
}

InputWriter& InputWriter::Send(int lane, std::string_view message, int largest, int passes) {
  std::string framed(message);
  framed += net::kMessageEnd;
  std::size_t at = 0;
  while (at < framed.size()) {
    int size = largest;
    while (kChunkSizes[size] > framed.size() - at) --size;
    const bool last = at + kChunkSizes[size] == framed.size();
    bytes_ += static_cast<char>(lane | size << 1 | (last ? passes : 0) << 4);
    bytes_.append(framed, at, kChunkSizes[size]);
    at += kChunkSizes[size];
  }
  return *this;
}

InputWriter& InputWriter::Tick(int index) {
  bytes_ += static_cast<char>(0xF0 | index);
  return *this;
}

InputWriter& InputWriter::Reopen(int lane) {
  bytes_ += static_cast<char>(0xF8 | lane);
  return *this;
}

InputWriter& InputWriter::Close(int lane, bool broken) {
  bytes_ += static_cast<char>(0xFC | (broken ? 2 : 0) | lane);
  return *this;
}

std::vector<TurnMessages> LegalTurns(int turns) {
  Game game = GameUnderWay();
  ScriptedOutside outside;
  Quieten(outside);
  std::vector<TurnMessages> told;
  for (int turn = 0; turn < turns && game.turn.gameMode == ModeChoosePiece; ++turn) {
    MoveList moves;
    ListMoves(game.match.position, moves);
    if (moves.Empty()) break;
    // Different pieces on different turns, so that the seeds are not all pawns.
    const varkesh::Move move = moves[(turn * 7) % moves.Count()];
    Position probe = game.match.position;
    told.push_back({game.match.position.currentTeam,
                    {net::NumberMessage("GUPM", {move.fromX, move.fromY, 0, 0}), "GUGS}2",
                     net::NumberMessage("GUPM", {move.fromX, move.fromY, move.toX, move.toY}),
                     "GUGS}3", net::MoveMessage(ApplyMove(probe, move))}});
    game.turn.moveFromX = move.fromX;
    game.turn.moveFromY = move.fromY;
    game.turn.moveToX = move.toX;
    game.turn.moveToY = move.toY;
    AcceptMove(game, outside);
  }
  return told;
}

void Require(bool condition, const char* what) {
  if (condition) return;
  std::fprintf(stderr, "fuzz: %s\n", what);
  std::abort();
}

}  // namespace varkesh::fuzz
