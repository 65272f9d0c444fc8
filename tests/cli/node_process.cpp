#include "node_process.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>

#include "core/rules.h"
#include "persist/game_text.h"

namespace varkesh::testing {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t kSeenLineChars = 200;

// What a node says, once a session, when it has written a NetPlay error to
// its log.
constexpr std::string_view kErrorNotice = "chat A NetPlay error has been detected.";

bool AllDigits(const std::string& text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
}

}  // namespace

int FreeLoopbackPort() {
  const int probe = socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  address.sin_port = 0;
  socklen_t length = sizeof address;
  int port = 0;
  if (bind(probe, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0 &&
      getsockname(probe, reinterpret_cast<sockaddr*>(&address), &length) == 0)
    port = ntohs(address.sin_port);
  close(probe);
  return port;
}

long StatusKiB(pid_t pid, const std::string& field) {
  std::ifstream status("/proc/" + std::to_string(pid) + "/status");
  std::string line;
  const std::string key = field + ":";
  while (std::getline(status, line))
    if (line.rfind(key, 0) == 0) return std::atol(line.c_str() + key.size());
  return -1;
}

NodeProcess::NodeProcess(const std::vector<std::string>& words, const std::string& folder) {
  // A node that has died must fail the test, not kill it on the next write.
  std::signal(SIGPIPE, SIG_IGN);
  int toChild[2];
  int fromChild[2];
  // Close-on-exec: a node started later must not hold this one's input open.
  if (pipe2(toChild, O_CLOEXEC) != 0 || pipe2(fromChild, O_CLOEXEC) != 0) return;
  pid_ = fork();
  if (pid_ == 0) {
    dup2(toChild[0], 0);
    dup2(fromChild[1], 1);
    const std::string errors = folder + "/err-" + std::to_string(getpid()) + ".txt";
    const int errorFile = open(errors.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    if (errorFile >= 0) dup2(errorFile, 2);
    for (int fd : {toChild[0], toChild[1], fromChild[0], fromChild[1]}) close(fd);
    if (chdir(folder.c_str()) != 0) _exit(127);
    std::vector<std::string> all{VARKESH_CLI};
    all.insert(all.end(), words.begin(), words.end());
    std::vector<char*> argv;
    for (std::string& word : all) argv.push_back(word.data());
    argv.push_back(nullptr);
    execv(argv[0], argv.data());
    _exit(127);
  }
  close(toChild[0]);
  close(fromChild[1]);
  input_ = toChild[1];
  output_ = fromChild[0];
  fcntl(output_, F_SETFL, fcntl(output_, F_GETFL) | O_NONBLOCK);
}

NodeProcess::~NodeProcess() {
  if (pid_ > 0 && exitCode_ < 0) {
    kill(pid_, SIGKILL);
    waitpid(pid_, nullptr, 0);
  }
  if (input_ >= 0) close(input_);
  if (output_ >= 0) close(output_);
}

void NodeProcess::Send(const std::string& line) {
  if (input_ < 0) return;
  const std::string bytes = line + "\n";
  [[maybe_unused]] ssize_t written = write(input_, bytes.data(), bytes.size());
}

std::optional<std::string> NodeProcess::NextLine(Clock::time_point deadline) {
  for (;;) {
    const std::size_t end = buffer_.find('\n');
    if (end != std::string::npos) {
      std::string line = buffer_.substr(0, end);
      buffer_.erase(0, end + 1);
      // A flood of long lines must not pile up here: the start tells enough.
      seen_.push_back(line.substr(0, kSeenLineChars));
      if (line.starts_with(kErrorNotice)) errorLogged_ = true;
      return line;
    }
    // All the node said before it broke has been read: nothing more is awaited.
    if (output_ < 0) ended_ = true;  // it never started
    if (Broken()) return std::nullopt;
    const auto left =
        std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now()).count();
    if (left <= 0) return std::nullopt;
    pollfd ready{output_, POLLIN, 0};
    if (poll(&ready, 1, static_cast<int>(left)) <= 0) continue;
    char chunk[4096];
    const ssize_t got = read(output_, chunk, sizeof chunk);
    if (got > 0)
      buffer_.append(chunk, static_cast<std::size_t>(got));
    else if (got == 0 || (errno != EAGAIN && errno != EINTR))
      ended_ = true;
  }
}

std::optional<std::string> NodeProcess::WaitFor(const std::string& prefix, double seconds) {
  const auto deadline = After(seconds);
  while (auto line = NextLine(deadline))
    if (line->rfind(prefix, 0) == 0) return line;
  return std::nullopt;
}

std::optional<std::vector<std::string>> NodeProcess::Show() {
  Send("show");
  const auto deadline = After(kNodeWaitSeconds);
  while (auto line = NextLine(deadline)) {
    if (line->rfind("game ", 0) != 0 || !AllDigits(line->substr(5))) continue;
    const int count = std::stoi(line->substr(5));
    std::vector<std::string> lines;
    for (int i = 0; i < count; ++i) {
      auto next = NextLine(deadline);
      if (!next) return std::nullopt;
      lines.push_back(*next);
    }
    return lines;
  }
  return std::nullopt;
}

std::optional<Game> NodeProcess::ShownGame() {
  auto lines = Show();
  if (!lines) return std::nullopt;
  std::string text;
  for (const std::string& line : *lines) text += line + "\r\n";
  Game game;
  if (ReadGameText(text, game.match.position, game.match.setup, &game.view.marks))
    return std::nullopt;
  return game;
}

std::vector<std::string> NodeProcess::Seats() {
  Send("seats");
  std::vector<std::string> seats;
  const auto deadline = After(kNodeWaitSeconds);
  while (seats.size() < 4) {
    auto line = NextLine(deadline);
    if (!line) break;
    if (line->rfind("seat ", 0) == 0) seats.push_back(*line);
  }
  return seats;
}

void NodeProcess::Kill(int signal) {
  if (pid_ > 0) kill(pid_, signal);
}

void NodeProcess::CloseInput() {
  if (input_ >= 0) close(input_);
  input_ = -1;
}

int NodeProcess::WaitForExit(double seconds) {
  if (exitCode_ >= 0 || pid_ <= 0) return exitCode_;
  PollUntil(
      {},
      [&] {
        int status = 0;
        if (waitpid(pid_, &status, WNOHANG) != pid_) return false;
        exitCode_ = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
        return true;
      },
      seconds);
  return exitCode_;
}

std::string NodeProcess::Recent() const {
  std::string text;
  const std::size_t from = seen_.size() > 30 ? seen_.size() - 30 : 0;
  for (std::size_t i = from; i < seen_.size(); ++i) text += seen_[i] + "\n";
  if (ended_) text += "(the node's output has ended)\n";
  return text;
}

int TurnKey(const Game& game) {
  return game.match.position.roundNumber * 10 + game.match.position.currentTeam;
}

bool ReachesTurn(NodeProcess& node, int key) {
  return PollUntil({&node}, [&] {
    auto game = node.ShownGame();
    return game && TurnKey(*game) == key;
  });
}

std::string ShowDifference(NodeProcess& a, NodeProcess& b, double seconds) {
  std::string difference = "no show";
  const bool same = PollUntil(
      {&a, &b},
      [&] {
        auto shownA = a.Show();
        auto shownB = b.Show();
        if (!shownA || !shownB) return false;
        if (*shownA == *shownB) return true;
        difference = "the shows differ in length";
        for (std::size_t i = 0; i < std::min(shownA->size(), shownB->size()); ++i)
          if ((*shownA)[i] != (*shownB)[i]) {
            difference =
                "line " + std::to_string(i + 1) + ": " + (*shownA)[i] + " / " + (*shownB)[i];
            break;
          }
        return false;
      },
      seconds);
  return same ? std::string() : difference;
}

bool PlayTurn(NodeProcess& mover, NodeProcess& host, const std::string& command) {
  auto game = host.ShownGame();
  if (!game) return false;
  const int key = TurnKey(*game);
  if (!ReachesTurn(mover, key)) return false;
  if (command.empty()) {
    auto shown = mover.ShownGame();
    MoveList moves;
    if (shown) ListMoves(shown->match.position, moves);
    if (moves.Empty()) return false;
    const Move& move = moves[0];
    mover.Send("move " + std::to_string(move.fromX) + " " + std::to_string(move.fromY) + " " +
               std::to_string(move.toX) + " " + std::to_string(move.toY));
  } else {
    mover.Send(command);
  }
  return PollUntil({&host}, [&] {
    auto shown = host.ShownGame();
    return shown && TurnKey(*shown) != key;
  });
}

std::unique_ptr<NodeProcess> StartHost(int port, const std::string& name,
                                       const std::string& folder) {
  auto host = std::make_unique<NodeProcess>(
      std::vector<std::string>{"host", "--port", std::to_string(port), "--name", name}, folder);
  if (host->WaitFor("chat Hosting as '" + name + "'")) return host;
  std::fprintf(stderr, "host %s did not start:\n%s", name.c_str(), host->Recent().c_str());
  return nullptr;
}

std::unique_ptr<NodeProcess> StartClient(int port, const std::string& name,
                                         const std::string& folder, bool waitForGame) {
  auto client = std::make_unique<NodeProcess>(
      std::vector<std::string>{"join", "--address", "127.0.0.1", "--port", std::to_string(port),
                               "--name", name},
      folder);
  // The host's game has come off the client's queue: seats given after
  // this are not undone by it.
  if (client->WaitFor("chat You are connected as Node #") &&
      (!waitForGame || client->WaitFor("mode ")))
    return client;
  std::fprintf(stderr, "client %s did not join:\n%s", name.c_str(), client->Recent().c_str());
  return nullptr;
}

}  // namespace varkesh::testing
