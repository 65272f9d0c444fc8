#include <charconv>
#include <map>
#include <vector>

#include "core/new_game_data.h"
#include "core/resign.h"
#include "core/rules.h"
#include "persist/position_string.h"
#include "persist/record_names.h"
#include "persist/record_text.h"

namespace varkesh {

using namespace record_text;

namespace {

struct Line {
  int number = 0;
  std::string_view text;
};

std::vector<Line> Lines(std::string_view text) {
  std::vector<Line> lines;
  int number = 0;
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    std::string_view line = text.substr(0, end);
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    lines.push_back({++number, line});
    if (end == std::string_view::npos) break;
    text.remove_prefix(end + 1);
  }
  return lines;
}

bool Blank(std::string_view line) {
  return line.find_first_not_of(" \t") == std::string_view::npos;
}

// `[Key "value"]`; false when the line is not one.
bool ReadTag(std::string_view line, std::string& key, std::string& value) {
  if (line.size() < 5 || line.front() != '[' || line.back() != ']') return false;
  line = line.substr(1, line.size() - 2);
  const std::size_t space = line.find(' ');
  if (space == std::string_view::npos || space == 0) return false;
  key = std::string(line.substr(0, space));
  std::string_view rest = line.substr(space + 1);
  if (rest.size() < 2 || rest.front() != '"' || rest.back() != '"') return false;
  rest = rest.substr(1, rest.size() - 2);
  value.clear();
  for (std::size_t i = 0; i < rest.size(); ++i) {
    char c = rest[i];
    if (c == '\\') {
      if (++i == rest.size()) return false;
      c = rest[i];
    } else if (c == '"') {
      return false;
    }
    value += c;
  }
  return true;
}

// The words of a move line, comments in braces dropped; nothing for an
// unclosed comment.
std::optional<std::vector<std::string_view>> Words(std::string_view line) {
  std::vector<std::string_view> words;
  std::size_t i = 0;
  while (i < line.size()) {
    const char c = line[i];
    if (c == ' ' || c == '\t') {
      ++i;
    } else if (c == '{') {
      const std::size_t close = line.find('}', i);
      if (close == std::string_view::npos) return std::nullopt;
      i = close + 1;
    } else {
      const std::size_t end = line.find_first_of(" \t{", i);
      const std::size_t stop = end == std::string_view::npos ? line.size() : end;
      words.push_back(line.substr(i, stop - i));
      i = stop;
    }
  }
  return words;
}

struct Reader {
  Position position;
  std::vector<RecordEvent> events;

  // The problem with one event of the team named, or nothing once it is played.
  std::optional<std::string> Play(std::string_view teamWord, std::string_view word) {
    if (position.Finished()) return std::string("the game is already over");
    const int team = TeamOfName(teamWord);
    if (team == kNoTeam) return "'" + std::string(teamWord) + "' is not a team";
    if (team != position.currentTeam)
      return std::string(TeamName(position.currentTeam)) + " is on turn, not " + TeamName(team);
    if (word.substr(0, 7) == "resigns") return Resignation(word.substr(7));
    return PlayMove(word);
  }

  std::optional<std::string> Resignation(std::string_view rest) {
    int concede = kNoTeam;
    if (!rest.empty()) {
      if (rest.size() < 3 || rest.front() != '(' || rest.back() != ')')
        return std::string("a resignation is 'resigns' or 'resigns(Team)'");
      concede = TeamOfName(rest.substr(1, rest.size() - 2));
      if (concede == kNoTeam) return std::string("a resignation names no team to receive");
    }
    const ResignEffects effects = Resign(position, concede);
    if (!effects.done) return std::string("nobody may receive the pieces of this resignation");
    if (effects.concedeTeam != concede)
      return std::string("the pieces of this resignation cannot go to ") + TeamName(concede);
    events.push_back(RecordEvent::Resignation(concede));
    return std::nullopt;
  }

  std::optional<std::string> PlayMove(std::string_view word) {
    const std::string move = "'" + std::string(word) + "'";
    if (word.empty()) return std::string("an empty move");
    const int piece = PieceOfRecordLetter(word[0]);
    if (piece == kNoPiece) return move + " does not begin with a piece letter";
    word.remove_prefix(1);
    int fromX = 0, fromY = 0, toX = 0, toY = 0;
    if (!ReadSquareName(word, fromX, fromY) || word.empty() || (word[0] != '-' && word[0] != 'x'))
      return move + " does not read as piece, square, - or x, square";
    const bool capture = word[0] == 'x';
    word.remove_prefix(1);
    if (!ReadSquareName(word, toX, toY)) return move + " has no destination square";
    const bool kingTaken = !word.empty() && word.back() == '#';
    if (kingTaken) word.remove_suffix(1);
    int option = kOptionNone;
    if (!word.empty()) {
      if (word == "=stay") {
        option = kOptionClosed;
      } else if (word == "=auto") {
        option = kOptionComputer;
      } else {
        int line = 0;
        auto [end, error] = std::from_chars(word.data() + 1, word.data() + word.size(), line);
        if (word[0] != '=' || error != std::errc() || end != word.data() + word.size() ||
            line < 1 || line > kMaxMoves)
          return move + " has a pawn option that is not =N, =stay or =auto";
        option = line - 1;
      }
    }
    const Square& from = position.board.at(fromX, fromY);
    if (from.team != position.currentTeam || from.piece != piece)
      return move + ": no " + PieceName(piece) + " of " + TeamName(position.currentTeam) +
             " stands on " + SquareName(fromX, fromY);
    const Move played = Move::Of(fromX, fromY, toX, toY, option);
    if (!IsLegal(position, played)) return move + " is not a legal move here";
    const MoveEffects effects = ApplyMove(position, played);
    if (IsCapture(effects.outcome) != capture)
      return move + (capture ? " captures nothing" : " captures but is written with -");
    if ((effects.outcome == MoveOutcome::KingTaken) != kingTaken)
      return move + (kingTaken ? " is marked # but takes no King" : " takes a King: mark it #");
    events.push_back(RecordEvent::Of(played));
    return std::nullopt;
  }
};

// The tags a record must have; Date, Result and the levels it may.
constexpr std::array<const char*, 8> kRequiredTags = {"Name", "GameType", "Rule", "White",
                                                      "Blue", "Black",    "Red",  "Start"};

}  // namespace

std::optional<RecordProblem> ReadRecordText(std::string_view text, const Board* standardStart,
                                            GameRecord& game) {
  const std::vector<Line> lines = Lines(text);
  std::map<std::string, std::pair<std::string, int>> tags;  // key: value, line
  std::size_t next = 0;
  for (; next < lines.size(); ++next) {
    const Line& line = lines[next];
    if (Blank(line.text)) continue;
    if (line.text.front() != '[') break;
    std::string key, value;
    if (!ReadTag(line.text, key, value))
      return RecordProblem{line.number, "a tag is [Key \"value\"]"};
    if (tags.count(key)) return RecordProblem{line.number, "the tag " + key + " is given twice"};
    tags[key] = {value, line.number};
  }
  const int endOfTags =
      next < lines.size() ? lines[next].number : static_cast<int>(lines.size()) + 1;
  for (const char* key : kRequiredTags)
    if (!tags.count(key))
      return RecordProblem{endOfTags, std::string("the tag ") + key + " is missing"};

  GameRecord read;
  read.setup.gameName = tags["Name"].first;
  // A saved game's text keeps its name between double quotes, with no escape.
  if (read.setup.gameName.find('"') != std::string::npos)
    return RecordProblem{tags["Name"].second, "a game's name cannot hold a double quote"};
  if (tags.count("Date")) read.date = tags["Date"].first;
  Position start;
  start.gameType = IndexIn(kGameTypeNames, tags["GameType"].first) + 1;
  if (start.gameType < 1) return RecordProblem{tags["GameType"].second, "no such game type"};
  start.kingCaptureRule = IndexIn(kRuleNames, tags["Rule"].first) + 1;
  if (start.kingCaptureRule < 1) return RecordProblem{tags["Rule"].second, "no such rule"};
  for (int team = kWhite; team <= kRed; ++team) {
    const auto& [player, line] = tags[TeamName(team)];
    const int kind = IndexIn(kPlayerNames, player);
    if (kind < 0)
      return RecordProblem{line, "a player is Human, Aggressive, Balanced or Defensive"};
    read.setup.playerKinds[static_cast<std::size_t>(team - 1)] = kind;
    const auto level = tags.find(std::string(TeamName(team)) + "Level");
    if (level == tags.end()) continue;
    int named = kLevelClassic;
    while (named <= kLevelMaster && level->second.first != LevelName(named)) ++named;
    if (named > kLevelMaster)
      return RecordProblem{level->second.second, "a level is Classic, Club, Expert or Master"};
    read.setup.levels[static_cast<std::size_t>(team - 1)] = named;
  }
  const auto& [startText, startLine] = tags["Start"];
  if (startText == kStandardStart) {
    if (!standardStart)
      return RecordProblem{startLine, "the standard start is not at hand (no pack)"};
    start = StartPosition(*standardStart, start.gameType, start.kingCaptureRule);
  } else if (auto problem = ReadPositionString(startText, start)) {
    return RecordProblem{startLine, *problem};
  }

  Reader reader{start, {}};
  for (; next < lines.size(); ++next) {
    const Line& line = lines[next];
    if (Blank(line.text)) continue;
    const std::optional<std::vector<std::string_view>> words = Words(line.text);
    if (!words) return RecordProblem{line.number, "a comment is not closed"};
    if (words->empty()) continue;
    std::string_view number = words->front();
    int round = 0;
    auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), round);
    if (error != std::errc() || end + 1 != number.data() + number.size() || *end != '.')
      return RecordProblem{line.number, "a line of moves begins with its round, as 12."};
    if (round != reader.position.roundNumber)
      return RecordProblem{line.number, "the game is in round " +
                                            std::to_string(reader.position.roundNumber) + ", not " +
                                            std::to_string(round)};
    if (words->size() % 2 == 0)
      return RecordProblem{line.number, "each move is the team's name, then the move"};
    for (std::size_t i = 1; i + 1 < words->size(); i += 2)
      if (auto problem = reader.Play((*words)[i], (*words)[i + 1]))
        return RecordProblem{line.number, *problem};
  }
  if (tags.count("Result") && tags["Result"].first != ResultText(reader.position))
    return RecordProblem{tags["Result"].second, "the result is " + ResultText(reader.position) +
                                                    ", not " + tags["Result"].first};
  read.record.start = start;
  read.record.events = std::move(reader.events);
  game = std::move(read);
  return std::nullopt;
}

}  // namespace varkesh
