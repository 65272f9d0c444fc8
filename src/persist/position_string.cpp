#include "persist/position_string.h"

#include <charconv>
#include <vector>

#include "core/new_game_data.h"

namespace varkesh {

namespace {

constexpr std::string_view kTeamLetters = "-wukr";
constexpr std::string_view kPieceLetters = "-PCBRNQK";

Board Layout() {
  Board board;
  LayOutTerrain(board);
  return board;
}

std::string PieceCode(int team, int piece) {
  std::string code(1, TeamLetter(team));
  const char letter = PieceLetter(piece < 0 ? -piece : piece);
  code += piece < 0 ? static_cast<char>(letter - 'A' + 'a') : letter;
  return code;
}

// Reads "wQ" (live) or "wq" (frozen) at the front of text.
bool ReadPieceCode(std::string_view& text, int& team, int& piece) {
  if (text.size() < 2) return false;
  team = TeamOfRecordLetter(text[0]);
  const char letter = text[1];
  const bool frozen = letter >= 'a' && letter <= 'z';
  const int kind = PieceOfRecordLetter(frozen ? static_cast<char>(letter - 'a' + 'A') : letter);
  if (team <= kNoTeam || kind == kNoPiece) return false;
  piece = frozen ? -kind : kind;
  text.remove_prefix(2);
  return true;
}

bool ReadNumber(std::string_view& text, int& value) {
  auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end == text.data()) return false;
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  return true;
}

std::vector<std::string_view> Split(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  while (true) {
    const std::size_t end = text.find(separator);
    parts.push_back(text.substr(0, end));
    if (end == std::string_view::npos) return parts;
    text.remove_prefix(end + 1);
  }
}

std::string TeamSet(const PerTeam<bool>& flags) {
  std::string text;
  for (int team = kWhite; team <= kRed; ++team)
    if (TeamEntry(flags, team)) text += TeamLetter(team);
  return text.empty() ? "-" : text;
}

bool ReadTeamSet(std::string_view text, PerTeam<bool>& flags) {
  flags = {};
  if (text == "-") return true;
  if (text.empty()) return false;
  for (char letter : text) {
    const int i = TeamIndex(TeamOfRecordLetter(letter));
    if (i < 0 || flags[static_cast<std::size_t>(i)]) return false;
    flags[static_cast<std::size_t>(i)] = true;
  }
  return true;
}

std::string BoardText(const Board& board) {
  std::string text;
  for (int y = 0; y < kBoardSide; ++y) {
    if (y > 0) text += '/';
    int empty = 0;
    for (int x = 0; x < kBoardSide; ++x) {
      const Square& square = board.at(x, y);
      if (square.piece == kNoPiece) {
        ++empty;
        continue;
      }
      if (empty > 0) text += std::to_string(empty);
      empty = 0;
      text += PieceCode(square.team, square.piece);
    }
    if (empty > 0) text += std::to_string(empty);
  }
  return text;
}

std::optional<std::string> ReadBoard(std::string_view text, Board& board, int& pieceCount) {
  const std::vector<std::string_view> ranks = Split(text, '/');
  if (ranks.size() != kBoardSide)
    return "the board has " + std::to_string(ranks.size()) + " ranks, not 17";
  for (int y = 0; y < kBoardSide; ++y) {
    std::string_view rank = ranks[static_cast<std::size_t>(y)];
    const std::string rankName = "rank " + std::to_string(kBoardSide - y);
    int x = 0;
    while (!rank.empty()) {
      int empty = 0;
      if (rank[0] >= '0' && rank[0] <= '9') {
        if (!ReadNumber(rank, empty) || empty < 1 || x + empty > kBoardSide)
          return rankName + " has a wrong count of empty squares";
        x += empty;
        continue;
      }
      int team = kNoTeam, piece = kNoPiece;
      if (x >= kBoardSide || !ReadPieceCode(rank, team, piece))
        return rankName + " holds something that is not a piece";
      Square& square = board.at(x, y);
      if (square.terrain == kOffBoard) return rankName + " has a piece off the board";
      square.team = static_cast<std::int8_t>(team);
      square.piece = static_cast<std::int8_t>(piece);
      ++pieceCount;
      ++x;
    }
    if (x != kBoardSide) return rankName + " does not have 17 squares";
  }
  return std::nullopt;
}

std::string HistoryText(const HistoryMove& entry) {
  std::string text(1, TeamLetter(entry.team));
  text += SquareName(entry.fromX, entry.fromY);
  text += entry.wasCapture ? 'x' : '-';
  return text + SquareName(entry.toX, entry.toY);
}

bool ReadHistory(std::string_view text, HistoryMove& entry) {
  if (text.empty()) return false;
  HistoryMove read;
  read.team = TeamOfRecordLetter(text[0]);
  if (read.team < kNoTeam) return false;
  text.remove_prefix(1);
  if (!ReadSquareName(text, read.fromX, read.fromY) || text.empty()) return false;
  if (text[0] != '-' && text[0] != 'x') return false;
  read.wasCapture = text[0] == 'x';
  text.remove_prefix(1);
  if (!ReadSquareName(text, read.toX, read.toY) || !text.empty()) return false;
  entry = read;
  return true;
}

// The owner of each kingdom's keep and moat, by the kingdom it was laid out
// for; nothing when some square strays from its kingdom.
std::optional<PerTeam<int>> RealmOwners(const Board& board) {
  const Board layout = Layout();
  PerTeam<int> owners{-1, -1, -1, -1};
  for (std::size_t i = 0; i < board.squares.size(); ++i) {
    const Square& square = board.squares[i];
    const Square& laid = layout.squares[i];
    if (square.terrain != laid.terrain) return std::nullopt;
    if (square.piece != kNoPiece && square.terrain == kOffBoard) return std::nullopt;
    const int kingdom = TeamIndex(laid.realm);
    if (kingdom < 0) {
      if (square.realm != kNoTeam) return std::nullopt;
      continue;
    }
    int& owner = owners[static_cast<std::size_t>(kingdom)];
    if (owner >= 0 && owner != square.realm) return std::nullopt;
    owner = square.realm;
  }
  return owners;
}

bool TeamFits(int team) {
  return team >= kNoTeam && team <= kRed;
}

bool PieceFits(int piece) {
  return piece != kNoPiece && piece >= -kKing && piece <= kKing;
}

}  // namespace

char TeamLetter(int team) {
  return TeamFits(team) ? kTeamLetters[static_cast<std::size_t>(team)] : '?';
}

int TeamOfRecordLetter(char letter) {
  const std::size_t at = kTeamLetters.find(letter);
  return at == std::string_view::npos ? -1 : static_cast<int>(at);
}

char PieceLetter(int kind) {
  return kind >= kPawn && kind <= kKing ? kPieceLetters[static_cast<std::size_t>(kind)] : '?';
}

int PieceOfRecordLetter(char letter) {
  const std::size_t at = kPieceLetters.find(letter);
  return at == std::string_view::npos || at == 0 ? kNoPiece : static_cast<int>(at);
}

std::string SquareName(int x, int y) {
  if (!Board::InBounds(x, y)) return "?";
  return static_cast<char>('a' + x) + std::to_string(kBoardSide - y);
}

bool ReadSquareName(std::string_view& text, int& x, int& y) {
  if (text.size() < 2 || text[0] < 'a' || text[0] >= 'a' + kBoardSide) return false;
  std::string_view rest = text.substr(1);
  int rank = 0;
  if (rest[0] < '1' || rest[0] > '9' || !ReadNumber(rest, rank) || rank < 1 || rank > kBoardSide)
    return false;
  x = text[0] - 'a';
  y = kBoardSide - rank;
  text = rest;
  return true;
}

std::optional<std::string> WritePositionString(const Position& position) {
  const std::optional<PerTeam<int>> owners = RealmOwners(position.board);
  if (!owners || !TeamFits(position.currentTeam) || position.currentTeam == kNoTeam)
    return std::nullopt;
  for (const Square& square : position.board.squares)
    if (square.piece != kNoPiece && (!PieceFits(square.piece) || TeamIndex(square.team) < 0))
      return std::nullopt;
  std::string text = BoardText(position.board);
  text += ' ';
  text += TeamLetter(position.currentTeam);
  text += ' ' + std::to_string(position.roundNumber);
  text += ' ' + TeamSet(position.castleRight) + ' ' + TeamSet(position.kingdomFallen) + ' ';
  for (int owner : *owners) text += TeamLetter(owner < 0 ? kNoTeam : owner);
  text += ' ';
  for (int captor = kWhite; captor <= kRed; ++captor) {
    if (captor > kWhite) text += ',';
    const Dungeon& dungeon = position.dungeons[static_cast<std::size_t>(captor - 1)];
    if (dungeon.prisoners.Empty()) text += '-';
    for (const DungeonPiece& prisoner : dungeon.prisoners) {
      if (TeamIndex(prisoner.team) < 0 || !PieceFits(prisoner.piece)) return std::nullopt;
      text += PieceCode(prisoner.team, prisoner.piece);
    }
  }
  text += ' ';
  for (std::size_t i = 0; i < position.history.size(); ++i) {
    const HistoryMove& entry = position.history[i];
    if (!TeamFits(entry.team) || !Board::InBounds(entry.fromX, entry.fromY) ||
        !Board::InBounds(entry.toX, entry.toY))
      return std::nullopt;
    if (i > 0) text += ',';
    text += HistoryText(entry);
  }
  return text;
}

std::optional<std::string> ReadPositionString(std::string_view text, Position& position) {
  const std::vector<std::string_view> fields = Split(text, ' ');
  if (fields.size() != 8)
    return "a start position has 8 fields, this one " + std::to_string(fields.size());
  Position read;
  read.gameType = position.gameType;
  read.kingCaptureRule = position.kingCaptureRule;
  read.board = Layout();
  int pieceCount = 0;
  if (auto problem = ReadBoard(fields[0], read.board, pieceCount)) return problem;

  if (fields[1].size() != 1 || TeamOfRecordLetter(fields[1][0]) <= kNoTeam)
    return std::string("the team on turn is not one of w, u, k, r");
  read.currentTeam = TeamOfRecordLetter(fields[1][0]);
  std::string_view round = fields[2];
  if (!ReadNumber(round, read.roundNumber) || !round.empty() || read.roundNumber < 1 ||
      read.roundNumber > kHighestRound)
    return std::string("the round is not a number from 1");
  if (!ReadTeamSet(fields[3], read.castleRight))
    return std::string("the castle rights do not read");
  if (!ReadTeamSet(fields[4], read.kingdomFallen))
    return std::string("the fallen kingdoms do not read");

  if (fields[5].size() != kTeamCount) return std::string("the realms are not four letters");
  PerTeam<int> owners{};
  for (std::size_t i = 0; i < owners.size(); ++i) {
    owners[i] = TeamOfRecordLetter(fields[5][i]);
    if (owners[i] < kNoTeam) return std::string("a realm's owner is not a team");
  }
  const Board layout = read.board;
  for (std::size_t i = 0; i < read.board.squares.size(); ++i) {
    const int kingdom = TeamIndex(layout.squares[i].realm);
    if (kingdom >= 0)
      read.board.squares[i].realm =
          static_cast<std::int8_t>(owners[static_cast<std::size_t>(kingdom)]);
  }

  const std::vector<std::string_view> dungeons = Split(fields[6], ',');
  if (dungeons.size() != kTeamCount) return std::string("there are not four dungeons");
  for (std::size_t i = 0; i < dungeons.size(); ++i) {
    std::string_view rest = dungeons[i];
    if (rest == "-") continue;
    while (!rest.empty()) {
      int team = kNoTeam, piece = kNoPiece;
      if (!ReadPieceCode(rest, team, piece))
        return "the dungeon of " + std::string(TeamName(static_cast<int>(i) + 1)) +
               " holds something that is not a piece";
      if (++pieceCount > kMaxPrisoners) return std::string("there are too many pieces");
      read.dungeons[i].prisoners.Add(
          {static_cast<std::int8_t>(team), static_cast<std::int8_t>(piece)});
    }
    if (read.dungeons[i].prisoners.Empty()) return std::string("a dungeon is empty, not -");
  }
  if (pieceCount > kMaxPrisoners) return std::string("there are too many pieces");

  const std::vector<std::string_view> history = Split(fields[7], ',');
  if (history.size() != read.history.size()) return std::string("the history is not three moves");
  for (std::size_t i = 0; i < history.size(); ++i)
    if (!ReadHistory(history[i], read.history[i]))
      return "history move " + std::to_string(i + 1) + " does not read";

  read.Refresh();
  position = read;
  return std::nullopt;
}

}  // namespace varkesh
