#include "core/new_game_data.h"

#include <charconv>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <optional>
#include <stdexcept>

#include "core/terrain.h"

namespace varkesh {

namespace {

struct Field {
  std::string text;
  int line = 0;
};

[[noreturn]] void Malformed(int line, const std::string& what) {
  throw std::runtime_error("newgamedata line " + std::to_string(line) + ": " + what);
}

bool IsBlank(char c) {
  return c == ' ' || c == '\t';
}
bool IsLineEnd(char c) {
  return c == '\n' || c == '\r';
}

// Splits the records into fields at commas and line ends. Blank lines, and an
// empty field just before a line end, are no fields at all.
class FieldReader {
 public:
  explicit FieldReader(std::istream& in)
      : text_(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()) {}

  std::optional<Field> Next() {
    while (true) {
      SkipBlanks();
      if (AtEnd()) return std::nullopt;
      if (IsLineEnd(text_[pos_])) {
        SkipLineEnd();
        continue;
      }
      Field field{"", line_};
      field.text = text_[pos_] == '"' ? ReadQuoted() : ReadBare();
      SkipSeparator();
      return field;
    }
  }

 private:
  bool AtEnd() const { return pos_ >= text_.size(); }

  void SkipBlanks() {
    while (!AtEnd() && IsBlank(text_[pos_])) ++pos_;
  }

  void SkipLineEnd() {
    if (text_[pos_] == '\r' && pos_ + 1 < text_.size() && text_[pos_ + 1] == '\n') ++pos_;
    ++pos_;
    ++line_;
  }

  std::string ReadQuoted() {
    std::size_t start = ++pos_;
    while (!AtEnd() && text_[pos_] != '"' && !IsLineEnd(text_[pos_])) ++pos_;
    if (AtEnd() || text_[pos_] != '"') Malformed(line_, "unclosed quote");
    std::string quoted = text_.substr(start, pos_ - start);
    ++pos_;
    SkipBlanks();
    if (!AtEnd() && text_[pos_] != ',' && !IsLineEnd(text_[pos_])) {
      Malformed(line_, "text after a closing quote");
    }
    return quoted;
  }

  std::string ReadBare() {
    std::size_t start = pos_;
    while (!AtEnd() && text_[pos_] != ',' && !IsLineEnd(text_[pos_])) ++pos_;
    std::size_t end = pos_;
    while (end > start && IsBlank(text_[end - 1])) --end;
    return text_.substr(start, end - start);
  }

  // A comma ends the field here; a line end is left for the next call so
  // that the line count stays right.
  void SkipSeparator() {
    if (!AtEnd() && text_[pos_] == ',') ++pos_;
  }

  std::string text_;
  std::size_t pos_ = 0;
  int line_ = 1;
};

Field RequireField(FieldReader& reader, const char* name, int recordLine) {
  std::optional<Field> field = reader.Next();
  if (!field) Malformed(recordLine, std::string("record ends before its ") + name);
  return *field;
}

int ParseCoordinate(const Field& field, const char* name) {
  const std::string& text = field.text;
  int value = 0;
  auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (text.empty() || error != std::errc() || end != text.data() + text.size()) {
    Malformed(field.line, std::string(name) + " is not a number: '" + text + "'");
  }
  if (!Board::InBounds(value, 0)) {
    Malformed(field.line, std::string(name) + " is outside 0 to 16: " + text);
  }
  return value;
}

int TeamOfLetter(char letter) {
  switch (letter) {
    case 'W':
      return kWhite;
    case 'B':
      return kBlue;
    case 'K':
      return kBlack;
    case 'R':
      return kRed;
    default:
      return kNoTeam;
  }
}

int PieceOfLetter(char letter) {
  switch (letter) {
    case 'P':
      return kPawn;
    case 'C':
      return kCastlePawn;
    case 'B':
      return kBishop;
    case 'R':
      return kRook;
    case 'N':
      return kKnight;
    case 'Q':
      return kQueen;
    case 'K':
      return kKing;
    default:
      return kNoPiece;
  }
}

struct Placement {
  int team = kNoTeam;
  int piece = kNoPiece;
};

// Only the first and the last letter of a code count.
Placement DecodeCode(const std::string& code) {
  if (code.empty()) return {};
  return {TeamOfLetter(code.front()), PieceOfLetter(code.back())};
}

}  // namespace

void LayOutTerrain(Board& board) {
  for (int y = 0; y < kBoardSide; ++y) {
    for (int x = 0; x < kBoardSide; ++x) {
      Square& square = board.at(x, y);
      const Square laid = LaidOutSquare(x, y);
      square.terrain = laid.terrain;
      square.realm = laid.realm;
    }
  }
}

Board LoadNewGameData(std::istream& records) {
  Board board;
  FieldReader reader(records);
  while (std::optional<Field> code = reader.Next()) {
    int x = ParseCoordinate(RequireField(reader, "X", code->line), "X");
    Field yField = RequireField(reader, "Y", code->line);
    int y = ParseCoordinate(yField, "Y");
    if (!OnDiamond(x, y)) {
      std::string square = std::to_string(x) + ", " + std::to_string(y);
      Malformed(yField.line, "(" + square + ") is off the board");
    }
    Placement placement = DecodeCode(code->text);
    board.at(x, y).team = placement.team;
    board.at(x, y).piece = placement.piece;
  }
  LayOutTerrain(board);
  return board;
}

Board LoadNewGameDataFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("cannot open the new game data '" + path + "'");
  return LoadNewGameData(file);
}

Position StartPosition(const Board& board, int gameType, int kingCaptureRule) {
  Position start;
  start.board = board;
  start.gameType = gameType;
  start.kingCaptureRule = kingCaptureRule;
  start.Refresh();
  return start;
}

}  // namespace varkesh
