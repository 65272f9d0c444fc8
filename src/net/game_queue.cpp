#include "net/game_queue.h"

#include "core/pawn_options.h"
#include "flow/accept_move.h"
#include "flow/error_handler.h"
#include "flow/mode_steps.h"
#include "flow/resign.h"
#include "flow/save_load.h"
#include "flow/takeback.h"
#include "flow/turn.h"
#include "net/authority.h"
#include "net/extension.h"
#include "net/move_message.h"
#include "net/seats.h"
#include "net/sending.h"
#include "net/takeback_request.h"
#include "net/text.h"

namespace varkesh::net {

namespace {

constexpr int kQueueGrowth = 10;

bool OnBoardOrZero(int coordinate) {
  return coordinate >= 0 && coordinate < kBoardSide;
}

bool UpdatePieceMove(Game& game, std::string_view payload) {
  std::vector<std::string_view> fields = SplitFields(payload);
  if (fields.size() != 4) return false;
  int numbers[4];
  for (std::size_t i = 0; i < 4; ++i) {
    numbers[i] = FieldNumber(fields[i]);
    if (!OnBoardOrZero(numbers[i])) return false;
  }
  game.turn.moveFromX = numbers[0];
  game.turn.moveFromY = numbers[1];
  game.turn.moveToX = numbers[2];
  game.turn.moveToY = numbers[3];
  return true;
}

// The selection that the sender's new mode stands for, so that a watching
// node shows what the node of the seat shows.
void FollowMode(Game& game, Outside& outside) {
  switch (game.turn.gameMode) {
    case ModeChoosePiece:
      Relist(game, true);
      break;
    case ModeChooseDestination:
    case ModeConfirmMove: {
      const TurnState& turn = game.turn;
      const bool confirm = turn.gameMode == ModeConfirmMove;
      ShowPiece(game, outside, turn.moveFromX, turn.moveFromY, confirm ? turn.moveToX : 0,
                confirm ? turn.moveToY : 0);
      Relist(game, false);
      MarkDestinations(game, turn.moveFromX, turn.moveFromY);
      break;
    }
    default:
      return;
  }
  game.turn.turnClock = outside.Now();
}

bool UpdateGameState(NetNode& node, std::string_view payload) {
  const int mode = FieldNumber(payload);
  if (mode < ModeNoGame || mode > ModeComputerMoves) return false;
  node.game.turn.gameMode = mode;
  FollowMode(node.game, node.outside);
  return true;
}

bool AcceptNetMove(NetNode& node, std::string_view payload) {
  std::vector<std::string_view> fields = SplitFields(payload);
  if (fields.size() != 3) return false;
  const std::optional<Move> move = MoveOfMessage(node.game, FieldNumber(fields[0]),
                                                 FieldNumber(fields[1]), FieldNumber(fields[2]));
  if (!move) return false;
  NetAcceptMove(node.game, node.outside, move->option);
  return true;
}

bool AcceptNetResign(NetNode& node, std::string_view payload) {
  // Below 0 would ask this machine's player, as for the local Resign command.
  const int team = FieldNumber(payload);
  if (team < 0) return false;
  Guarded(node.outside, "frmMain", "DoResign", [&] { DoResign(node.game, node.outside, team); });
  return true;
}

bool LoadSentGame(NetNode& node, std::string_view payload) {
  const Record before = node.game.match.record;
  if (auto problem = LoadGameText(node.game, node.outside, std::string(payload))) {
    ReportNetError(node, "LoadGame", 4,
                   "The game sent by the host cannot be read: " + ShowableText(*problem));
    return true;
  }
  // A game taken back, or sent again, is still the game played here.
  KeepRecordThrough(node.game.match, before);
  ComputerSeatsToHost(node.game);
  UpdatePlayerNames(node);
  NoteLoadEvent(node);
  return true;
}

// A move message whose pawn enters a keep with nothing to offer: it is lost.
bool LosesPawn(const Game& game, std::string_view message) {
  if (SplitMessage(message).verb != "GAMV") return false;
  const TurnState& turn = game.turn;
  return PawnOptionsOfMove(game.match.position, turn.moveFromX, turn.moveFromY, turn.moveToX,
                           turn.moveToY)
             .effects.pawn == PawnOutcome::Lost;
}

bool ApplyGameMessage(NetNode& node, std::string_view message) {
  const Message parts = SplitMessage(message);
  if (parts.verb == "GLGF") return LoadSentGame(node, parts.payload);
  if (parts.verb == kSyncVerb) return TakeSync(node, parts.payload);
  if (parts.verb == "GUPM") return UpdatePieceMove(node.game, parts.payload);
  if (parts.verb == "GUGS") return UpdateGameState(node, parts.payload);
  if (parts.verb == "GAMV") return AcceptNetMove(node, parts.payload);
  if (parts.verb == "GRES") return AcceptNetResign(node, parts.payload);
  if (parts.verb == "GCNC") return BreakDownNodeControl(node, parts.payload);
  if (parts.verb == kTakebackRefusedVerb) return TakeTakebackRefusal(node, parts.payload);
  return false;
}

}  // namespace

bool AddToGameQ(NetSession& session, std::string message, int from) {
  if (session.gameQueue.size() >= kMaxQueuedMessages) return false;
  if (static_cast<int>(session.gameQueue.size()) >= session.gameQueueSize)
    session.gameQueueSize += kQueueGrowth;
  session.gameQueue.push_back({std::move(message), from});
  return true;
}

namespace {

// Host: checksums at the head of the queue are compared at once; they change
// nothing, and many watchers send one for every move.
void CompareWaitingChecksums(NetNode& node) {
  std::deque<QueuedMessage>& queue = node.session.gameQueue;
  while (!queue.empty() && SplitMessage(queue.front().text).verb == kChecksumVerb) {
    const QueuedMessage entry = std::move(queue.front());
    queue.pop_front();
    CompareChecksum(node, entry.from, SplitMessage(entry.text).payload);
  }
}

}  // namespace

void ProcessGameQ(NetNode& node) {
  const bool host = node.game.net.netRole == kNetHosting;
  if (host) CompareWaitingChecksums(node);
  if (node.session.gameQueue.empty()) return;
  const QueuedMessage entry = std::move(node.session.gameQueue.front());
  node.session.gameQueue.pop_front();
  const std::string& message = entry.text;
  if (host && SplitMessage(message).verb == kTakebackAskVerb) {
    AnswerTakebackAsk(node, entry.from, SplitMessage(message).payload);
    return;
  }
  if (host) {
    const std::string refusal = RefusalOf(node.game, entry.from, message);
    if (!refusal.empty()) {
      ReportNetError(node, "ProcessGameQ", 2,
                     "A '" + ShowableText(SplitMessage(message).verb.substr(0, 4)) +
                         "' message of node " + std::to_string(entry.from) +
                         " was refused: " + refusal);
      ScheduleCatchUp(node, entry.from);
      return;
    }
    SendToAllNodes(node, message, entry.from);
    if (LosesPawn(node.game, message)) node.session.lostPawnMover = entry.from;
  }
  if (!ApplyGameMessage(node, message))
    ReportNetError(node, "ProcessGameQ", 1,
                   "A game message was dropped: '" +
                       ShowableText(SplitMessage(message).verb.substr(0, 4)) +
                       "' with a payload that does not fit it");
}

namespace {

// A selection (a piece or a destination chosen, or dropped) changes no game:
// the messages of one go through in one pass, and the move that follows them
// reaches everyone without waiting a pass for each.
bool IsSelection(std::string_view message) {
  const Message parts = SplitMessage(message);
  if (parts.verb == "GUPM") return true;
  const int mode = FieldNumber(parts.payload);
  return parts.verb == "GUGS" && mode >= ModeChoosePiece && mode <= ModeConfirmMove;
}

}  // namespace

void ServeGameQueue(NetNode& node) {
  while (node.game.net.netRole != kNetNone && !node.session.gameQueue.empty()) {
    const bool selection = IsSelection(node.session.gameQueue.front().text);
    ProcessGameQ(node);
    if (!selection) return;
  }
}

void CatchUpClient(NetNode& node, int clientNode) {
  Game& game = node.game;
  SendToNode(node, clientNode, ControlMessage(game));
  const int mode = game.turn.gameMode;
  // A computer move under way (mode 9) is carried out by the joiner too.
  if (mode != ModeChoosePiece && mode != ModeChooseDestination && mode != ModeConfirmMove &&
      mode != ModeComputerThinks && mode != ModeComputerMoves)
    return;
  AddSyncFor(node, clientNode);
  SendToNode(node, clientNode, "GLGF}" + GameImage(game));
  SendToNode(node, clientNode,
             NumberMessage("GUPM", {game.turn.moveFromX, game.turn.moveFromY, game.turn.moveToX,
                                    game.turn.moveToY}));
  // A computer move that goes out as a player's shows as a chosen
  // destination until its move message comes.
  const bool toldAsPlayers = mode == ModeComputerMoves && game.turn.ComputerMoveToldAsPlayers();
  SendToNode(node, clientNode, NumberMessage("GUGS", {toldAsPlayers ? ModeConfirmMove : mode}));
}

void SendGameToAll(NetNode& node, const std::string& notice) {
  // Every machine gives the computer's seats to the host on taking a game,
  // so that the checksums of the event agree.
  ComputerSeatsToHost(node.game);
  SendNotice(node, notice);
  // A game for everyone is an event of its own.
  AnnounceSentGame(node);
  SendToAllNodes(node, "GLGF}" + GameImage(node.game), 0);
  UpdatePlayerNames(node);
}

}  // namespace varkesh::net
