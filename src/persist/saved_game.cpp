#include "persist/saved_game.h"

#include <charconv>
#include <stdexcept>
#include <vector>

#include "persist/file_coder.h"
#include "persist/game_text.h"

namespace varkesh {

namespace {

constexpr const char* kLineEnd = "\r\n";

std::string EventLines(const Record& record) {
  std::string text;
  for (const RecordEvent& event : record.events) {
    if (event.kind == RecordEvent::Kind::Resign) {
      text += "R " + std::to_string(event.concedeTeam);
    } else {
      const Move& m = event.move;
      text += "M " + std::to_string(m.fromX) + " " + std::to_string(m.fromY) + " " +
              std::to_string(m.toX) + " " + std::to_string(m.toY) + " " + std::to_string(m.option);
    }
    text += kLineEnd;
  }
  return text;
}

// The whole numbers of a line, separated by single blanks.
bool ReadNumbers(std::string_view line, int* numbers, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t end = line.find(' ');
    const std::string_view field = line.substr(0, end);
    auto [at, error] = std::from_chars(field.data(), field.data() + field.size(), numbers[i]);
    if (field.empty() || error != std::errc() || at != field.data() + field.size()) return false;
    if ((end == std::string_view::npos) != (i + 1 == count)) return false;
    if (end != std::string_view::npos) line.remove_prefix(end + 1);
  }
  return true;
}

std::optional<RecordEvent> ReadEvent(std::string_view line) {
  if (line.size() < 2 || line[1] != ' ') return std::nullopt;
  const std::string_view fields = line.substr(2);
  if (line[0] == 'R') {
    int team = 0;
    if (!ReadNumbers(fields, &team, 1) || team < kNoTeam || team > kRed) return std::nullopt;
    return RecordEvent::Resignation(team);
  }
  int n[5];
  if (line[0] != 'M' || !ReadNumbers(fields, n, 5)) return std::nullopt;
  for (int i = 0; i < 4; ++i)
    if (n[i] < 0 || n[i] >= kBoardSide) return std::nullopt;
  if (n[4] < kOptionComputer || n[4] >= kMaxMoves) return std::nullopt;
  return RecordEvent::Of(Move::Of(n[0], n[1], n[2], n[3], n[4]));
}

bool SamePlace(Position a, Position b) {
  // A saved game keeps no winner: the game goes on at its team's turn.
  a.winner = a.coWinner = b.winner = b.coWinner = kNoTeam;
  return a == b;
}

// The record beside the game text: the start position as a game text, and
// one line an event. The problem, or nothing when it reads.
std::optional<std::string> ReadSavedRecord(std::string_view startText, std::string_view events,
                                           Record& record) {
  Record read;
  Setup ignored;
  if (auto problem = ReadGameText(startText, read.start, ignored))
    return "the start position, " + *problem;
  int lineNumber = 0;
  while (!events.empty()) {
    ++lineNumber;
    const std::size_t end = events.find('\n');
    std::string_view line = events.substr(0, end);
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    const std::optional<RecordEvent> event = ReadEvent(line);
    if (!event) return "event " + std::to_string(lineNumber) + " cannot be read";
    read.events.push_back(*event);
    if (end == std::string_view::npos) break;
    events.remove_prefix(end + 1);
  }
  record = std::move(read);
  return std::nullopt;
}

// The level of each seat: "L a b c d". A file without the line, or with one
// that does not read, keeps no levels: every seat plays as Classic.
std::string LevelsLine(const Setup& setup) {
  std::string text = "L";
  for (int level : setup.levels) text += " " + std::to_string(level);
  return text + kLineEnd;
}

PerTeam<int> ReadLevels(std::string_view text) {
  PerTeam<int> levels = Setup{}.levels;
  if (text.substr(0, 2) != "L ") return levels;
  text.remove_prefix(2);
  while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) text.remove_suffix(1);
  int read[kTeamCount];
  if (!ReadNumbers(text, read, kTeamCount)) return levels;
  for (std::size_t t = 0; t < levels.size(); ++t)
    if (read[t] > 0 && read[t] <= kLevelMaster) levels[t] = read[t];
  return levels;
}

}  // namespace

std::string EncodeSavedGame(const Match& match, const SquareMarks* marks) {
  const std::string start = WriteGameText(match.record.start, match.setup);
  return EncodeTexts({WriteGameText(match.position, match.setup, marks), start,
                      EventLines(match.record), LevelsLine(match.setup)});
}

void DecodeSavedGame(std::string_view coded, Match& match, SquareMarks* marks) {
  const std::vector<std::string> parts = DecodeTexts(coded);
  Match read;
  SquareMarks readMarks{};
  if (auto problem = ReadGameText(parts.front(), read.position, read.setup, &readMarks))
    throw std::runtime_error(*problem);
  read.setup.levels =
      ReadLevels(parts.size() >= 4 ? std::string_view(parts[3]) : std::string_view());
  read.BeginRecord();
  // The record is kept only when it leads exactly to the saved position.
  Record record;
  Position replayed;
  if (parts.size() >= 3 && !ReadSavedRecord(parts[1], parts[2], record) &&
      Replay(record, static_cast<int>(record.events.size()), replayed) ==
          static_cast<int>(record.events.size()) &&
      SamePlace(replayed, read.position))
    read.record = std::move(record);
  match = std::move(read);
  if (marks) *marks = readMarks;
}

}  // namespace varkesh
