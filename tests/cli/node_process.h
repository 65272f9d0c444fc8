// A varkesh-cli NetPlay node run by a test as a player would run it: its
// standard input fed line by line, its standard output read line by line,
// every wait bounded. A node whose output has ended, or that has logged a
// NetPlay error, is waited for no longer: a broken message fails a test at
// once instead of when its time runs out. Then a session of such nodes
// played: turns awaited and games compared by polling the nodes' "show".
#pragma once

#include <sys/types.h>

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "flow/game.h"

namespace varkesh::testing {

// How long a node is given to say what a test waits for. A node answers a
// command within milliseconds; the margin is for a machine busy with builds.
inline constexpr double kNodeWaitSeconds = 5.0;

// The moment that many seconds from now.
inline std::chrono::steady_clock::time_point After(double seconds) {
  return std::chrono::steady_clock::now() +
         std::chrono::duration_cast<std::chrono::steady_clock::duration>(
             std::chrono::duration<double>(seconds));
}

// A TCP port on the loopback that nothing listens on just now.
int FreeLoopbackPort();

// A size line of /proc/PID/status ("VmRSS", "VmHWM") in KiB; -1 when the
// process or the line is not there.
long StatusKiB(pid_t pid, const std::string& field);

class NodeProcess {
 public:
  // Runs VARKESH_CLI with these words in folder; its error output goes to
  // folder/err-<pid>.txt.
  NodeProcess(const std::vector<std::string>& words, const std::string& folder);
  ~NodeProcess();
  NodeProcess(const NodeProcess&) = delete;
  NodeProcess& operator=(const NodeProcess&) = delete;

  void Send(const std::string& line);
  // Reads up to the first line that begins with prefix; nothing when the
  // node says nothing of the kind within the time.
  std::optional<std::string> WaitFor(const std::string& prefix, double seconds = kNodeWaitSeconds);
  // The "show" command: the lines of the plain game text, or none in time.
  std::optional<std::vector<std::string>> Show();
  std::optional<Game> ShownGame();
  // The "seats" command: its four lines.
  std::vector<std::string> Seats();

  void Kill(int signal);
  void CloseInput();
  // The exit code, or -1 when the node has not ended within the time.
  int WaitForExit(double seconds = kNodeWaitSeconds);

  // Whether waiting for more from the node is in vain: its output has ended,
  // or it has logged an error.
  bool Broken() const { return ended_ || errorLogged_; }

  // The last lines read, for the message of a failed check.
  std::string Recent() const;

  pid_t Pid() const { return pid_; }

 private:
  std::optional<std::string> NextLine(std::chrono::steady_clock::time_point deadline);

  pid_t pid_ = -1;
  int input_ = -1;
  int output_ = -1;
  std::string buffer_;
  std::vector<std::string> seen_;
  int exitCode_ = -1;
  bool ended_ = false;
  bool errorLogged_ = false;
};

// Polls until the test holds, the time runs out or one of the nodes is
// broken.
template <class Test>
bool PollUntil(std::initializer_list<const NodeProcess*> nodes, Test test,
               double seconds = kNodeWaitSeconds) {
  const auto deadline = After(seconds);
  while (std::chrono::steady_clock::now() < deadline) {
    if (test()) return true;
    for (const NodeProcess* node : nodes)
      if (node->Broken()) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  return false;
}

// Round and team on turn, as one number.
int TurnKey(const Game& game);
bool ReachesTurn(NodeProcess& node, int key);
// Polls until both show the same game text: empty then, else the first line
// that differs.
std::string ShowDifference(NodeProcess& a, NodeProcess& b, double seconds = kNodeWaitSeconds);

// The mover plays the first move the rules list for its turn, or the command
// given, once its game is there; true when the host has gone on to the next
// turn.
bool PlayTurn(NodeProcess& mover, NodeProcess& host, const std::string& command = "");

// A host on the port, once it says it is hosting; a client once it has the
// host's game (its "mode" line) or, with waitForGame false, once connected.
// None when that does not come in time (what the node said goes to the
// error output).
std::unique_ptr<NodeProcess> StartHost(int port, const std::string& name,
                                       const std::string& folder);
std::unique_ptr<NodeProcess> StartClient(int port, const std::string& name,
                                         const std::string& folder, bool waitForGame = true);

}  // namespace varkesh::testing
