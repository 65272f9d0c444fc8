// A peer written from the protocol alone, on the in-process network: it
// knows none of our own verbs, carries one byte a character, and keeps a
// pawn that enters a keep with nothing to offer (the protocol has no word
// for its loss). It keeps a game of its own, to be compared with ours, and
// plays the computer's moves there by the computer's fixed rule.
#pragma once

#include <string>
#include <vector>

#include "flow/game.h"
#include "net/fake_network.h"
#include "support/scripted_outside.h"

namespace varkesh::testing {

// How many of the messages begin with prefix.
int Count(const std::vector<std::string>& messages, const std::string& prefix);

class PlainPeer : public net::TransportEvents {
 public:
  // name is sent as it is: one byte a character.
  PlainPeer(net::FakeTransport& endpoint, const std::string& folder, std::string name, int port);

  // Whether it answers its greeting with its name.
  bool answersGreeting = true;

  Game game;
  ScriptedOutside outside;
  int myNode = 0;
  // What came, as bytes: every message, the node list's names, chat lines
  // ("node: text"), notices and boots ("node: reason").
  std::vector<std::string> messages;
  std::vector<std::string> nodeNames;
  std::vector<std::string> chat;
  std::vector<std::string> boots;
  bool connected() const { return connection_ != 0; }
  // Its line breaks, as a cable pulled out.
  void Break(net::FakeNetwork& network) { network.Break(transport_, connection_); }

  // Sends one message; bytes as they are.
  void Send(const std::string& message);
  // Its player's move, told as such a peer tells it and played here first;
  // kind 0 unless a pawn option was taken.
  void MoveAs(int fromX, int fromY, int toX, int toY, int kind = 0, int argA = 0, int argB = 0);
  // Its game without the marks of the board.
  std::string Text() const;
  int Count(const std::string& prefix) const { return testing::Count(messages, prefix); }

  void OnAccepted(net::ConnectionId) override {}
  void OnConnected(net::ConnectionId connection) override { connection_ = connection; }
  void OnData(net::ConnectionId, std::string_view bytes) override;
  void OnClosed(net::ConnectionId) override { connection_ = 0; }
  void OnError(net::ConnectionId, int, const std::string&) override {}

 private:
  void Handle(const std::string& message);
  void PlaySelectedMove(int kind, int argA, int argB, bool ownMove);

  net::FakeTransport& transport_;
  net::ConnectionId connection_ = 0;
  std::string buffer_;
  std::string name_;
};

}  // namespace varkesh::testing
