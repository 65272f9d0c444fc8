#include "node_commands.h"

#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <filesystem>

#include "cli.h"
#include "core/resign.h"
#include "core/rules.h"
#include "event_line.h"
#include "flow/new_game.h"
#include "flow/resign.h"
#include "flow/save_load.h"
#include "persist/command_line.h"
#include "persist/file_coder.h"
#include "persist/game_text.h"

namespace varkesh::cli {

namespace {

// A command that cannot be done: it prints "error TEXT" and changes nothing.
struct Refusal {
  std::string text;
};

constexpr const char* kNewUsage = "new [--type T] [--rule R] [--players a,b,c,d] [--name NAME]";

// What follows the first count words and the blanks after them, as typed.
std::string RestAfterWords(const std::string& line, int count) {
  std::size_t at = 0;
  for (int i = 0; i < count; ++i) {
    at = line.find_first_not_of(" \t", at);
    if (at == std::string::npos) return "";
    at = line.find_first_of(" \t", at);
    if (at == std::string::npos) return "";
  }
  at = line.find_first_not_of(" \t", at);
  return at == std::string::npos ? "" : line.substr(at);
}

std::string Trimmed(const std::string& text) {
  std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string::npos) return "";
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

int Number(const std::string& word, int low, int high) {
  int value = 0;
  try {
    value = ParseInt(word, "");
  } catch (const CliError&) {
    throw Refusal{"bad number '" + word + "'"};
  }
  if (value < low || value > high)
    throw Refusal{"'" + word + "' is not from " + std::to_string(low) + " to " +
                  std::to_string(high)};
  return value;
}

std::string Square(int x, int y) {
  return "(" + std::to_string(x) + ", " + std::to_string(y) + ")";
}

bool HumanTurn(const Game& game) {
  return game.turn.gameMode == ModeChoosePiece || game.turn.gameMode == ModeChooseDestination ||
         game.turn.gameMode == ModeConfirmMove;
}

}  // namespace

NodeCommands::NodeCommands(net::NetNode& node, ToolOutside& outside, HeadlessNetView& view)
    : node_(node), game_(node.game), outside_(outside), view_(view) {}

void NodeCommands::Queue(std::string line) {
  lines_.push_back(std::move(line));
}

bool NodeCommands::RunDue() {
  while (clicks_.empty() && !lines_.empty() && !quit_) {
    std::string line = std::move(lines_.front());
    lines_.pop_front();
    try {
      Run(line);
    } catch (const Refusal& refusal) {
      PrintEventLine("error " + refusal.text);
    }
  }
  if (quit_) return false;
  if (!clicks_.empty()) {
    const Click click = clicks_.front();
    clicks_.pop_front();
    game_.view.clickPending = true;
    game_.view.clickX = click.x;
    game_.view.clickY = click.y;
    game_.view.clickLeft = click.left;
    game_.view.clickRight = !click.left;
  }
  return true;
}

void NodeCommands::AfterPass() {
  if (!clicks_.empty() || !moveOption_) return;
  const int option = *moveOption_;
  moveOption_.reset();
  outside_.pawnOptionPicks.clear();
  if (option >= 0 && !outside_.pawnOptionDialogs.empty() &&
      option >= static_cast<int>(outside_.pawnOptionDialogs.back().size()))
    PrintEventLine("error the pawn has no option " + std::to_string(option) +
                   "; the dialog closed without a choice");
}

void NodeCommands::Run(const std::string& line) {
  const std::vector<std::string> words = SplitWords(line);
  if (words.empty()) return;
  const std::string& command = words[0];
  if (command == "click") {
    if (words.size() < 3 || words.size() > 4 || (words.size() == 4 && words[3] != "right"))
      throw Refusal{"usage: click X Y [right]"};
    clicks_.push_back({Number(words[1], 0, kBoardSide - 1), Number(words[2], 0, kBoardSide - 1),
                       words.size() == 3});
  } else if (command == "move") {
    Move(words);
  } else if (command == "resign") {
    Resign(words);
  } else if (command == "new") {
    NewGame(words);
  } else if (command == "load") {
    Load(words);
  } else if (command == "assign") {
    Assign(words);
  } else if (command == "computer") {
    Computer(words);
  } else if (command == "boot") {
    Boot(line);
  } else if (command == "chat") {
    Chat(line);
  } else if (command == "save") {
    Save(words);
  } else if (command == "show") {
    Show();
  } else if (command == "nodes") {
    Nodes();
  } else if (command == "seats") {
    Seats();
  } else if (command == "quit") {
    quit_ = true;
  } else {
    throw Refusal{"unknown command '" + command + "'"};
  }
}

bool NodeCommands::SeatIsHere() const {
  if (TeamEntry(game_.match.setup.playerKinds, game_.match.position.currentTeam, -1) != kHuman)
    return false;
  return game_.net.netRole == kNetNone ||
         TeamEntry(game_.net.seatNode, game_.match.position.currentTeam, -1) == game_.net.myNodeId;
}

void NodeCommands::Move(const std::vector<std::string>& words) {
  if (words.size() != 5 && words.size() != 6) throw Refusal{"usage: move FX FY TX TY [K]"};
  const int fromX = Number(words[1], 0, kBoardSide - 1);
  const int fromY = Number(words[2], 0, kBoardSide - 1);
  const int toX = Number(words[3], 0, kBoardSide - 1);
  const int toY = Number(words[4], 0, kBoardSide - 1);
  const int option = words.size() == 6 ? Number(words[5], 0, 99) : -1;
  if (!HumanTurn(game_)) throw Refusal{"no move is awaited now"};
  if (!SeatIsHere())
    throw Refusal{std::string("this node does not hold the seat of ") +
                  TeamName(game_.match.position.currentTeam)};
  if (!IsListedMove(game_.match.position, fromX, fromY, toX, toY))
    throw Refusal{std::string(TeamName(game_.match.position.currentTeam)) + " has no move from " +
                  Square(fromX, fromY) + " to " + Square(toX, toY)};
  clicks_ = {{fromX, fromY, true}, {toX, toY, true}, {toX, toY, false}};
  moveOption_ = option;
  outside_.pawnOptionDialogs.clear();
  outside_.pawnOptionPicks.clear();
  if (option >= 0) outside_.pawnOptionPicks.push_back(option);
}

void NodeCommands::Resign(const std::vector<std::string>& words) {
  if (words.size() > 2) throw Refusal{"usage: resign [TEAM|no]"};
  if (!HumanTurn(game_) || !SeatIsHere() || !outside_.IsMenuEnabled(Menu::Resign))
    throw Refusal{"this node cannot resign now"};
  const bool no = words.size() == 2 && words[1] == "no";
  const bool gained = game_.match.position.kingCaptureRule == kKingdomGained;
  if (words.size() == 2 && !no) {
    if (!gained) throw Refusal{"a team is conceded to only under Kingdom Gained"};
    const int team = Number(words[1], kWhite, kRed);
    std::vector<int> offers = ConcedeOffers(game_.match.position);
    if (std::find(offers.begin(), offers.end(), team) == offers.end())
      throw Refusal{std::string(TeamName(game_.match.position.currentTeam)) +
                    " cannot concede to team " + words[1]};
    outside_.concedePicks = {team};
  } else if (no && gained) {
    outside_.concedePicks = {kNoTeam};
  }
  outside_.yesNoAnswers = {!no};
  DoResign(game_, outside_, -1);
  outside_.concedePicks.clear();
  outside_.yesNoAnswers.clear();
}

void NodeCommands::RequireHost(const std::string& command) const {
  if (game_.net.netRole != kNetHosting) throw Refusal{"only the host can " + command};
}

void NodeCommands::RequireMenus(std::initializer_list<Menu> menus, const std::string& what) const {
  for (Menu menu : menus)
    if (!outside_.IsMenuEnabled(menu)) throw Refusal{what + " is not available now"};
}

void NodeCommands::NewGame(const std::vector<std::string>& words) {
  RequireHost("start a new game");
  RequireMenus({Menu::Game, Menu::GameNew}, "the New Game command");
  NewGameChoice choice;
  try {
    Options options = ParseOptions(Args(words.begin() + 1, words.end()),
                                   {"type", "rule", "players", "name"}, {}, kNewUsage);
    if (!options.positional.empty()) Usage(kNewUsage);
    choice.accepted = true;
    choice.gameType =
        ParseBetween(options.Value("type", "1"), kAlliedNeighbors, kAnarchy, kNewUsage);
    choice.kingCaptureRule =
        ParseBetween(options.Value("rule", "1"), kKingdomGained, kKingdomFrozen, kNewUsage);
    choice.players = ParsePlayers(options.Value("players", "0,0,0,0"), kHuman, kNewUsage);
    choice.name = Trimmed(options.Value("name", "Varkesh Game"));
    if (choice.name.empty()) Usage(kNewUsage);
  } catch (const CliError&) {
    throw Refusal{std::string("usage: ") + kNewUsage};
  }
  outside_.newGameChoices = {choice};
  NewGameCommand(game_, outside_);
  outside_.newGameChoices.clear();
  outside_.yesNoAnswers.clear();
}

void NodeCommands::Load(const std::vector<std::string>& words) {
  RequireHost("load a game");
  RequireMenus({Menu::Game, Menu::GameLoad}, "the Load Game command");
  if (words.size() != 2) throw Refusal{"usage: load FILE"};
  const std::string& path = words[1];
  std::string bytes;
  try {
    ReadGameFile(path);  // refuses what is not a game before anything changes
    bytes = ReadFileBytes(path);
  } catch (const CliError& error) {
    std::string text = error.what();
    const std::string tool = "varkesh-cli: ";
    if (text.rfind(tool, 0) == 0) text.erase(0, tool.size());
    throw Refusal{text};
  } catch (const std::exception& error) {
    throw Refusal{path + ": " + error.what()};
  }
  // The Load Game command reads coded files; a plain text goes through a
  // coded copy, and the game keeps no file name to save to.
  std::filesystem::path coded;
  if (!LooksCoded(bytes)) {
    coded = std::filesystem::temp_directory_path() /
            ("varkesh-cli-load-" + std::to_string(getpid()) + ".vsh");
    EncodeFile(path, coded.string());
  }
  outside_.loadPaths = {coded.empty() ? path : coded.string()};
  LoadGameCommand(game_, outside_);
  outside_.loadPaths.clear();
  outside_.yesNoAnswers.clear();
  if (!coded.empty()) {
    if (game_.turn.saveFilePath == coded.string()) game_.turn.saveFilePath.clear();
    std::error_code ignored;
    std::filesystem::remove(coded, ignored);
  }
}

void NodeCommands::Assign(const std::vector<std::string>& words) {
  RequireHost("assign seats");
  if (words.size() != 3) throw Refusal{"usage: assign TEAM NODE"};
  const int team = Number(words[1], kWhite, kRed);
  const int toNode = Number(words[2], 0, 1 << 30);
  if (!view_.hostControlsEnabled) throw Refusal{"the seats cannot change once the port has closed"};
  if (!view_.ListsNode(toNode)) throw Refusal{"node " + words[2] + " is not here"};
  net::AssignSeat(node_, team, toNode);
}

void NodeCommands::Computer(const std::vector<std::string>& words) {
  RequireHost("give seats to the computer");
  if (words.size() != 3) throw Refusal{"usage: computer TEAM P"};
  const int team = Number(words[1], kWhite, kRed);
  const int personality = Number(words[2], kAggressive, kDefensive);
  if (!view_.hostControlsEnabled) throw Refusal{"the seats cannot change once the port has closed"};
  net::GiveSeatToComputer(node_, team, personality);
}

void NodeCommands::Boot(const std::string& line) {
  RequireHost("boot");
  const std::vector<std::string> words = SplitWords(line);
  if (words.size() < 2) throw Refusal{"usage: boot NODE REASON"};
  const int bootNode = Number(words[1], 0, 1 << 30);
  if (!view_.hostControlsEnabled) throw Refusal{"nobody can be booted once the port has closed"};
  if (net::BootQuestion(node_, bootNode).empty())
    throw Refusal{"node " + words[1] + " cannot be booted"};
  const std::string reason = RestAfterWords(line, 2);
  if (Trimmed(reason).empty()) throw Refusal{"a boot needs a reason"};
  net::BootNode(node_, bootNode, reason);
}

void NodeCommands::Chat(const std::string& line) {
  if (!view_.chatEnabled) throw Refusal{"the chat is not open"};
  if (!net::SendChat(node_, RestAfterWords(line, 1))) throw Refusal{"nothing to send"};
}

void NodeCommands::Save(const std::vector<std::string>& words) {
  if (words.size() != 2) throw Refusal{"usage: save FILE"};
  if (game_.turn.gameMode == ModeTitle || game_.turn.gameMode == ModeNoGame)
    throw Refusal{"there is no game to save"};
  // The Save Game command with FILE chosen in its dialog.
  const std::string kept = game_.turn.saveFilePath;
  game_.turn.saveFilePath.clear();
  outside_.savePaths = {words[1]};
  SaveGameCommand(game_, outside_);
  outside_.savePaths.clear();
  if (game_.turn.saveFilePath != words[1]) {
    game_.turn.saveFilePath = kept;
    throw Refusal{"could not save '" + words[1] + "'"};
  }
}

void NodeCommands::Show() const {
  const std::string text = GameImage(game_);
  std::vector<std::string> lines;
  std::size_t start = 0;
  while (start < text.size()) {
    std::size_t end = text.find('\n', start);
    if (end == std::string::npos) end = text.size();
    std::string line = text.substr(start, end - start);
    if (!line.empty() && line.back() == '\r') line.pop_back();
    lines.push_back(std::move(line));
    start = end + 1;
  }
  PrintEventLine("game " + std::to_string(lines.size()));
  for (const std::string& line : lines) PrintEventLine(line);
}

void NodeCommands::Nodes() const {
  PrintEventLine("nodes " + std::to_string(view_.nodeLines.size()));
  for (const net::NodeLine& line : view_.nodeLines) PrintEventLine(line.text);
}

void NodeCommands::Seats() const {
  for (int team = kWhite; team <= kRed; ++team) {
    PrintEventLine("seat " + std::to_string(team) + " " +
                   std::to_string(TeamEntry(game_.match.setup.playerKinds, team)) + " " +
                   std::to_string(TeamEntry(game_.net.seatNode, team)) + " " +
                   TeamEntry(view_.seatCaptions, team));
  }
}

}  // namespace varkesh::cli
