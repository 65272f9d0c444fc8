// The commands a headless NetPlay node reads from its standard input, one a
// line. They run between two passes of the main loop, never inside one; a
// click waits for the pass that takes it, so a move takes three passes.
#pragma once

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "headless_net_view.h"
#include "net/node.h"
#include "tool_outside.h"

namespace varkesh::cli {

class NodeCommands {
 public:
  NodeCommands(net::NetNode& node, ToolOutside& outside, HeadlessNetView& view);

  void Queue(std::string line);
  // Before a pass: runs the waiting commands up to the next click, and
  // hands the game that click. Returns false once "quit" has run.
  bool RunDue();
  // After a pass: the checks that close a move.
  void AfterPass();

 private:
  struct Click {
    int x = 0;
    int y = 0;
    bool left = true;
  };

  // Each prints "error TEXT" through a thrown refusal when it cannot be done.
  void Run(const std::string& line);
  void Move(const std::vector<std::string>& words);
  void Resign(const std::vector<std::string>& words);
  void NewGame(const std::vector<std::string>& words);
  void Load(const std::vector<std::string>& words);
  void Assign(const std::vector<std::string>& words);
  void Computer(const std::vector<std::string>& words);
  void Boot(const std::string& line);
  void Chat(const std::string& line);
  void Save(const std::vector<std::string>& words);
  void Show() const;
  void Nodes() const;
  void Seats() const;

  void RequireHost(const std::string& command) const;
  void RequireMenus(std::initializer_list<Menu> menus, const std::string& what) const;
  bool SeatIsHere() const;

  net::NetNode& node_;
  Game& game_;
  ToolOutside& outside_;
  HeadlessNetView& view_;
  std::deque<std::string> lines_;
  std::deque<Click> clicks_;
  // The pawn option line of the move under way; -1 for none.
  std::optional<int> moveOption_;
  bool quit_ = false;
};

}  // namespace varkesh::cli
