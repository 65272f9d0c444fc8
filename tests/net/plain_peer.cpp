#include "net/plain_peer.h"

#include <QString>

#include "core/pawn_options.h"
#include "flow/accept_move.h"
#include "flow/resign.h"
#include "flow/save_load.h"
#include "net/wire.h"
#include "persist/game_text.h"

namespace varkesh::testing {

PlainPeer::PlainPeer(net::FakeTransport& endpoint, const std::string& folder, std::string name,
                     int port)
    : transport_(endpoint), name_(std::move(name)) {
  outside.engine.appPath = folder;
  outside.SetMenuChecked(Menu::OptionsSfx, false);
  game.random = Random::Zero();
  game.net.netRole = kNetClient;
  transport_.SetEvents(this);
  transport_.Connect("localhost", port);
}

void PlainPeer::Send(const std::string& message) {
  transport_.Send(connection_, message + std::string(1, net::kMessageEnd));
}

void PlainPeer::OnData(net::ConnectionId, std::string_view bytes) {
  buffer_.append(bytes);
  while (auto message = net::TakeMessage(buffer_)) Handle(*message);
}

std::string PlainPeer::Text() const {
  return WriteGameText(game.match.position, game.match.setup);
}

int Count(const std::vector<std::string>& messages, const std::string& prefix) {
  int count = 0;
  for (const std::string& message : messages) count += message.rfind(prefix, 0) == 0;
  return count;
}

void PlainPeer::Handle(const std::string& message) {
  messages.push_back(message);
  const net::Message parts = net::SplitMessage(message);
  const std::string_view verb = parts.verb;
  const std::vector<std::string_view> fields = net::SplitFields(parts.payload);
  const auto number = [&](std::size_t i) { return net::FieldNumberAt(parts.payload, i); };
  if (verb == "GYNI") {
    myNode = number(0);
    game.net.myNodeId = myNode;
    if (answersGreeting) Send("GMNI}" + name_);
  } else if (verb == "GCNL") {
    nodeNames.assign(fields.begin() + 1, fields.end());
  } else if (verb == "GCNC" && fields.size() == 8) {
    for (std::size_t t = 0; t < kTeamCount; ++t) {
      game.match.setup.playerKinds[t] = number(2 * t);
      game.net.seatNode[t] = number(2 * t + 1);
    }
  } else if (verb == "GLGF") {
    LoadGameText(game, outside, QString::fromLatin1(QByteArrayView(parts.payload)).toStdString());
  } else if (verb == "GUPM" && fields.size() == 4) {
    game.turn.moveFromX = number(0);
    game.turn.moveFromY = number(1);
    game.turn.moveToX = number(2);
    game.turn.moveToY = number(3);
  } else if (verb == "GUGS") {
    game.turn.gameMode = number(0);
    // Every node plays the computer's move itself, with the computer's rule.
    if (game.turn.gameMode == ModeComputerMoves) CarryOutAImove(game, outside);
  } else if (verb == "GAMV" && fields.size() == 3) {
    PlaySelectedMove(number(0), number(1), number(2), false);
  } else if (verb == "GRES") {
    DoResign(game, outside, number(0));
  } else if (verb == "GCHT" || verb == "GBOO") {
    const auto [from, text] = net::SplitFirstField(parts.payload);
    (verb == "GCHT" ? chat : boots).push_back(std::string(from) + ": " + std::string(text));
  }
  // Any other verb means nothing to it.
}

void PlainPeer::PlaySelectedMove(int kind, int argA, int argB, bool ownMove) {
  const TurnState& turn = game.turn;
  Position& position = game.match.position;
  const MoveOptions options =
      PawnOptionsOfMove(position, turn.moveFromX, turn.moveFromY, turn.moveToX, turn.moveToY);
  int option = kOptionClosed;
  if (kind == 1 || kind == 2) {
    for (std::size_t line = 0; line < options.options.size(); ++line) {
      const PawnOption& offered = options.options[line];
      if (offered.onBoard == (kind == 1) && offered.argA == argA &&
          (kind == 2 || offered.argB == argB))
        option = static_cast<int>(line);
    }
  } else if (kind != 0) {
    return;  // a kind it does not know
  }
  const bool lost = options.effects.pawn == PawnOutcome::Lost;
  const Square pawn = position.board.at(turn.moveFromX, turn.moveFromY);
  const int toX = turn.moveToX, toY = turn.moveToY;
  NetAcceptMove(game, outside, lost ? kOptionNone : option);
  // Only the mover's own machine knows the pawn is gone.
  if (lost && !ownMove) {
    position.board.at(toX, toY) = pawn;
    position.Refresh();
  }
}

void PlainPeer::MoveAs(int fromX, int fromY, int toX, int toY, int kind, int argA, int argB) {
  Send(net::NumberMessage("GUPM", {fromX, fromY, 0, 0}));
  Send(net::NumberMessage("GUGS", {ModeChooseDestination}));
  Send(net::NumberMessage("GUPM", {fromX, fromY, toX, toY}));
  Send(net::NumberMessage("GUGS", {ModeConfirmMove}));
  Send(net::NumberMessage("GAMV", {kind, argA, argB}));
  game.turn.moveFromX = fromX;
  game.turn.moveFromY = fromY;
  game.turn.moveToX = toX;
  game.turn.moveToY = toY;
  PlaySelectedMove(kind, argA, argB, true);
}

}  // namespace varkesh::testing
