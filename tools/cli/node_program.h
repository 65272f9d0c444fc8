// varkesh-cli host / join: one NetPlay node without a window, driven by
// commands on standard input and telling what happens on standard output.
#pragma once

#include <string>

namespace varkesh::cli {

struct NodeSettings {
  bool host = true;
  int port = 0;
  std::string name;
  std::string address;     // a client's host
  std::string gameFile;    // a host's game to load first; empty for none
  int thinkingTimeMs = 0;  // the Master's time a move on a host; 0 for the default
};

// Runs until "quit", a signal, or the end of a client's input; the exit code.
int RunNode(const NodeSettings& settings);

}  // namespace varkesh::cli
