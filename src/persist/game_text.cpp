#include "persist/game_text.h"

#include <charconv>
#include <climits>
#include <vector>

#include "core/new_game_data.h"

#include "core/new_game_data.h"

namespace varkesh {

namespace {

constexpr const char* kLineEnd = "\r\n";
constexpr const char* kTrue = "#TRUE#";
constexpr const char* kFalse = "#FALSE#";
constexpr int kLastCoordinate = kBoardSide - 1;

class LineWriter {
 public:
  LineWriter& Number(int value) { return Field(std::to_string(value)); }
  LineWriter& Boolean(bool value) { return Field(value ? kTrue : kFalse); }
  LineWriter& Text(const std::string& value) { return Field('"' + value + '"'); }
  void EndLine() {
    text_ += kLineEnd;
    fieldsInLine_ = 0;
  }
  std::string Take() { return std::move(text_); }

 private:
  LineWriter& Field(const std::string& field) {
    if (fieldsInLine_++ > 0) text_ += ',';
    text_ += field;
    return *this;
  }

  std::string text_;
  int fieldsInLine_ = 0;
};

// The text form has no escape: a double quote or a line break in the name
// would break line 1, and control codes would break the NetPlay message.
std::string StorableName(const std::string& name) {
  std::string kept;
  for (char c : name)
    if (c != '"' && static_cast<unsigned char>(c) >= 0x20) kept += c;
  return kept;
}

struct TextError {
  std::string message;
};

struct Range {
  const char* what;
  int low;
  int high;
};

constexpr Range kGameTypeRange{"game type", kAlliedNeighbors, kAnarchy};
constexpr Range kRuleRange{"king capture rule", kKingdomGained, kKingdomFrozen};
constexpr Range kRoundRange{"round number", 1, kHighestRound};
constexpr Range kCurrentTeamRange{"current team", kWhite, kRed};
constexpr Range kPlayerKindRange{"player kind", kHuman, kDefensive};
constexpr Range kTeamRange{"team", kNoTeam, kRed};
constexpr Range kCoordinateRange{"coordinate", 0, kLastCoordinate};
constexpr Range kPieceRange{"piece", -kKing, kKing};
constexpr Range kMarkRange{"mark", 0, 2};  // none, a moveable piece, a destination
constexpr Range kTerrainRange{"terrain", kOffBoard, kKeep};
constexpr Range kRealmRange{"realm", kNoTeam, kRed};
constexpr Range kPrisonerCountRange{"prisoner count", 0, INT_MAX};

std::vector<std::string_view> SplitLines(std::string_view text) {
  std::vector<std::string_view> lines;
  while (!text.empty()) {
    std::size_t end = text.find('\n');
    std::string_view line = text.substr(0, end);
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    lines.push_back(line);
    if (end == std::string_view::npos) break;
    text.remove_prefix(end + 1);
  }
  return lines;
}

class LineReader {
 public:
  explicit LineReader(std::string_view text) : lines_(SplitLines(text)) {}

  int LinesLeft() const { return static_cast<int>(lines_.size()) - next_; }
  int LinesTaken() const { return next_; }

  std::string_view NextLine() {
    if (LinesLeft() <= 0) Fail("missing; the text ends after line " + std::to_string(next_), 1);
    return lines_[static_cast<std::size_t>(next_++)];
  }

  // The next line, split at its commas into exactly count fields.
  void NextFields(int count) {
    std::string_view line = NextLine();
    fields_.clear();
    for (std::size_t start = 0;;) {
      std::size_t comma = line.find(',', start);
      fields_.push_back(line.substr(start, comma - start));
      if (comma == std::string_view::npos) break;
      start = comma + 1;
    }
    if (static_cast<int>(fields_.size()) != count)
      Fail("expected " + std::to_string(count) + " fields, found " +
           std::to_string(fields_.size()));
  }

  int Number(int index, const Range& range) {
    std::string_view field = Field(index);
    long long value = 0;
    auto [end, error] = std::from_chars(field.data(), field.data() + field.size(), value);
    bool whole = !field.empty() && end == field.data() + field.size();
    if (error == std::errc::invalid_argument || (error == std::errc() && !whole))
      Fail("field " + std::to_string(index + 1) + " ('" + std::string(field) +
           "') is not a number");
    if (error != std::errc() || value < range.low || value > range.high)
      Fail(std::string(range.what) + " " + std::string(field) + " is out of range (" +
           std::to_string(range.low) + " to " + std::to_string(range.high) + ")");
    return static_cast<int>(value);
  }

  bool Boolean(int index) {
    std::string_view field = Field(index);
    if (field == kTrue) return true;
    if (field == kFalse) return false;
    Fail("field " + std::to_string(index + 1) + " ('" + std::string(field) + "') is not " + kTrue +
         " or " + kFalse);
  }

  [[noreturn]] void Fail(const std::string& problem, int lineOffset = 0) const {
    throw TextError{"line " + std::to_string(next_ + lineOffset) + ": " + problem};
  }

 private:
  std::string_view Field(int index) const { return fields_[static_cast<std::size_t>(index)]; }

  std::vector<std::string_view> lines_;
  std::vector<std::string_view> fields_;
  int next_ = 0;  // lines taken so far, which is the number of the last one taken
};

// An older writer let quotes into the name: everything between the first and
// the last quote of the line is the name.
std::string ReadName(LineReader& reader) {
  std::string_view line = reader.NextLine();
  if (line.size() < 2 || line.front() != '"' || line.back() != '"')
    reader.Fail("the game name must stand between double quotes");
  return std::string(line.substr(1, line.size() - 2));
}

struct StoredGame {
  Position position;
  Setup setup;
  SquareMarks marks{};
};

// The board holds what play can lead to and nothing else: terrain as the
// game lays it out, pieces only on the diamond, a team exactly where a piece
// stands, and no more pieces than a dungeon can hold.
void CheckBoard(const StoredGame& game, int lastLine) {
  constexpr int kFirstSquareLine = 11;
  Board laidOut;
  LayOutTerrain(laidOut);
  int pieces = 0;
  for (int i = 0; i < kSquareCount; ++i) {
    const Square& square = game.position.board.squares[static_cast<std::size_t>(i)];
    const auto fail = [&](const std::string& problem) {
      throw TextError{"line " + std::to_string(kFirstSquareLine + i) + ": square (" +
                      std::to_string(i % kBoardSide) + ", " + std::to_string(i / kBoardSide) +
                      ") " + problem};
    };
    if (square.terrain != laidOut.squares[static_cast<std::size_t>(i)].terrain)
      fail("has a terrain the board does not have there");
    if (square.terrain == kOffBoard && (square.realm != kNoTeam || square.piece != kNoPiece))
      fail("lies off the board and holds something");
    if ((square.team == kNoTeam) != (square.piece == kNoPiece))
      fail("has a team without a piece or a piece without a team");
    if (square.piece != kNoPiece) ++pieces;
  }
  for (const Dungeon& dungeon : game.position.dungeons) pieces += dungeon.PrisonerCount();
  if (pieces > kMaxPrisoners)
    throw TextError{"line " + std::to_string(lastLine) + ": the game holds " +
                    std::to_string(pieces) + " pieces, more than " + std::to_string(kMaxPrisoners)};
}

std::int8_t Small(int value) {
  return static_cast<std::int8_t>(value);
}

StoredGame ReadStoredFields(std::string_view text) {
  LineReader reader(text);
  StoredGame stored;
  Position& game = stored.position;
  stored.setup.gameName = ReadName(reader);

  reader.NextFields(2);
  game.gameType = reader.Number(0, kGameTypeRange);
  game.kingCaptureRule = reader.Number(1, kRuleRange);

  reader.NextFields(2);
  game.roundNumber = reader.Number(0, kRoundRange);
  game.currentTeam = reader.Number(1, kCurrentTeamRange);

  for (int t = 0; t < kTeamCount; ++t) {
    reader.NextFields(3);
    stored.setup.playerKinds[t] = reader.Number(0, kPlayerKindRange);
    game.castleRight[t] = reader.Boolean(1);
    game.kingdomFallen[t] = reader.Boolean(2);
  }

  for (HistoryMove& move : game.history) {
    reader.NextFields(6);
    move.team = reader.Number(0, kTeamRange);
    move.fromX = reader.Number(1, kCoordinateRange);
    move.fromY = reader.Number(2, kCoordinateRange);
    move.toX = reader.Number(3, kCoordinateRange);
    move.toY = reader.Number(4, kCoordinateRange);
    move.wasCapture = reader.Boolean(5);
  }

  for (std::size_t i = 0; i < game.board.squares.size(); ++i) {
    Square& square = game.board.squares[i];
    reader.NextFields(5);
    square.team = Small(reader.Number(0, kTeamRange));
    square.piece = Small(reader.Number(1, kPieceRange));
    stored.marks[i] = Small(reader.Number(2, kMarkRange));
    square.terrain = Small(reader.Number(3, kTerrainRange));
    square.realm = Small(reader.Number(4, kRealmRange));
  }

  for (Dungeon& dungeon : game.dungeons) {
    reader.NextFields(1);
    int count = reader.Number(0, kPrisonerCountRange);
    if (count > reader.LinesLeft())
      reader.Fail("prisoner count " + std::to_string(count) + " exceeds the " +
                  std::to_string(reader.LinesLeft()) + " lines that follow");
    if (count > kMaxPrisoners)
      reader.Fail("prisoner count " + std::to_string(count) + " is more than a dungeon holds");
    dungeon.prisoners.Clear();
    for (int i = 0; i < count; ++i) {
      reader.NextFields(2);
      dungeon.prisoners.Add(
          {Small(reader.Number(0, kTeamRange)), Small(reader.Number(1, kPieceRange))});
    }
  }

  if (reader.LinesLeft() > 0) reader.Fail("extra line after the last dungeon", 1);
  CheckBoard(stored, reader.LinesTaken());
  game.Refresh();
  return stored;
}

}  // namespace

std::string WriteGameText(const Position& game, const Setup& setup, const SquareMarks* marks) {
  LineWriter out;
  out.Text(StorableName(setup.gameName)).EndLine();
  out.Number(game.gameType).Number(game.kingCaptureRule).EndLine();
  out.Number(game.roundNumber).Number(game.currentTeam).EndLine();
  for (std::size_t t = 0; t < kTeamCount; ++t) {
    out.Number(setup.playerKinds[t]).Boolean(game.castleRight[t]).Boolean(game.kingdomFallen[t]);
    out.EndLine();
  }
  for (const HistoryMove& move : game.history) {
    out.Number(move.team).Number(move.fromX).Number(move.fromY).Number(move.toX).Number(move.toY);
    out.Boolean(move.wasCapture).EndLine();
  }
  for (std::size_t i = 0; i < game.board.squares.size(); ++i) {
    const Square& square = game.board.squares[i];
    out.Number(square.team).Number(square.piece).Number(marks ? (*marks)[i] : 0);
    out.Number(square.terrain).Number(square.realm).EndLine();
  }
  for (const Dungeon& dungeon : game.dungeons) {
    out.Number(dungeon.PrisonerCount()).EndLine();
    for (const DungeonPiece& prisoner : dungeon.prisoners)
      out.Number(prisoner.team).Number(prisoner.piece).EndLine();
  }
  return out.Take();
}

std::optional<std::string> ReadGameText(std::string_view text, Position& position, Setup& setup,
                                        SquareMarks* marks) {
  try {
    StoredGame read = ReadStoredFields(text);
    position = read.position;
    setup = std::move(read.setup);
    if (marks) *marks = read.marks;
  } catch (const TextError& error) {
    return error.message;
  }
  return std::nullopt;
}

}  // namespace varkesh
