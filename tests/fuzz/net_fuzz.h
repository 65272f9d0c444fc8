// What the NetPlay fuzz drivers share: a program of the session on the
// in-process network, bare peers at the far end of its connections, and
// the format of an input, which both cuts the bytes into arrivals and
// interleaves passes of the game queue with them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "net/fake_network.h"
#include "net/node.h"
#include "net/wire.h"
#include "support/scripted_outside.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace varkesh::fuzz {

inline constexpr int kPort = 5337;
inline const std::string kSep(1, net::kFieldSeparator);

// Each driver's starting inputs, built from real games and real messages.
std::vector<std::string> Seeds();

// A game under way: four human seats, White to choose a piece (mode 1).
const Game& GameUnderWay();

// Shows nothing; the fuzzers look for faults, not for what is shown.
struct QuietView final : net::NetView {
  void AppendChat(const std::vector<net::ChatRun>&, int) override {}
  void SetNodeList(const std::vector<net::NodeLine>&, int) override {}
  void SetSeatCaptions(const PerTeam<std::string>&) override {}
  void SetChatEnabled(bool) override {}
  void SetHostControlsEnabled(bool) override {}
};

// One program of the session, with the game under way on its screen and
// its logs switched off, so that millions of runs write nothing to disk.
struct FuzzNode {
  Game game = GameUnderWay();
  net::NetSession session;
  ScriptedOutside outside;
  QuietView view;
  net::FakeTransport& transport;
  net::NetNode node{game, session, outside, view, transport};
  net::SessionLink link{node};

  FuzzNode(net::FakeTransport& endpoint, int netRole);
};

// An input is a run of steps, each led by a control byte. Below 0xF0 the
// step brings bytes on a connection: bit 0 names the lane, bits 1-3 the size
// (kChunkSizes), bits 4-6 the passes of the game queue after them. 0xF0 to
// 0xF7 move the node's clock on by kTickSeconds and tick; 0xF8 to 0xFB open
// a lane again whose connection is gone; 0xFC to 0xFF end the lane's
// connection, in order or (bit 1) broken.
inline constexpr std::size_t kChunkSizes[] = {1, 2, 3, 7, 16, 64, 512, 4096};
// The keep-alive, stall, chat, silence and rejoin times lie between them.
inline constexpr double kTickSeconds[] = {0.25, 1, 2, 3, 5, 10, 21, 121};

// Plays an input on node, lane n being lanes[n] (one peer may be both),
// then serves the game queue until it is empty.
void Play(std::string_view input, net::FakeNetwork& network, FuzzNode& node,
          const std::array<net::WireEnd*, 2>& lanes,
          const std::function<void(net::WireEnd&)>& reopen);

// Writes inputs in that format.
class InputWriter {
 public:
  // The message and its end mark on lane, in chunks of at most
  // kChunkSizes[largest], then passes of the game queue.
  InputWriter& Send(int lane, std::string_view message, int largest = 6, int passes = 1);
  // kTickSeconds[index] later, a tick.
  InputWriter& Tick(int index);
  InputWriter& Reopen(int lane);
  InputWriter& Close(int lane, bool broken);
  const std::string& Bytes() const { return bytes_; }

 private:
  std::string bytes_;
};

// Legal moves from GameUnderWay, one a turn, each as the messages its seat
// holder sends: the piece, the destination, the confirmation, the move.
struct TurnMessages {
  int team = kNoTeam;
  std::vector<std::string> messages;
};
std::vector<TurnMessages> LegalTurns(int turns);

// Stops the run with a message when a session broke a rule of its own.
void Require(bool condition, const char* what);

}  // namespace varkesh::fuzz
