#include "fuzz/net_fuzz.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "core/rules.h"
#include "flow/accept_move.h"
#include "flow/new_game.h"
#include "flow/save_load.h"
#include "net/move_message.h"

namespace varkesh::fuzz {

namespace {

// No logs, no sounds, no computer's thoughts shown; the start position
// comes straight from the pack folder.
void Quieten(ScriptedOutside& outside) {
  outside.engine.logsOff = true;
  outside.entryPaths["newgamedata"] = VARKESH_PACK_DIR "/newgamedata.txt";
  outside.SetMenuChecked(Menu::OptionsShowComp, false);
  outside.SetMenuChecked(Menu::OptionsSfx, false);
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

void FuzzNode::Tick(double seconds) {
  outside.clock += seconds;
  link.OnTick();
}

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

void ServeQueue(net::FakeNetwork& network, FuzzNode& node, int passes) {
  for (int pass = 0; pass < passes && !node.session.gameQueue.empty(); ++pass) {
    net::ServeGameQueue(node.node);
    network.Pump();
  }
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
    const std::string from =
        std::to_string(move.fromX) + net::kFieldSeparator + std::to_string(move.fromY);
    const std::string to =
        std::to_string(move.toX) + net::kFieldSeparator + std::to_string(move.toY);
    TurnMessages turnTold{game.match.position.currentTeam,
                          {"GUPM}" + from + net::kFieldSeparator + "0" + net::kFieldSeparator + "0",
                           "GUGS}2", "GUPM}" + from + net::kFieldSeparator + to, "GUGS}3"}};
    game.turn.moveFromX = move.fromX;
    game.turn.moveFromY = move.fromY;
    game.turn.moveToX = move.toX;
    game.turn.moveToY = move.toY;
    Position probe = game.match.position;
    turnTold.messages.push_back(net::MoveMessage(ApplyMove(probe, move)));
    AcceptMove(game, outside);
    told.push_back(turnTold);
  }
  return told;
}

std::string GameUnderWayImage() {
  Game game = GameUnderWay();
  ScriptedOutside outside;
  Quieten(outside);
  return GameImage(game);
}

std::string Fields(std::string_view verb, const std::vector<std::string>& fields) {
  std::string message(verb);
  message += '}';
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (i > 0) message += net::kFieldSeparator;
    message += fields[i];
  }
  return message;
}

void Require(bool condition, const char* what) {
  if (condition) return;
  std::fprintf(stderr, "fuzz: %s\n", what);
  std::abort();
}

}  // namespace varkesh::fuzz
