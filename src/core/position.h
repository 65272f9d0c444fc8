// A position: everything the rules read and write. It holds no window, no
// network and no heap memory, so the computer can copy it freely and a
// process can hold as many as it likes.
#pragma once

#include "core/square_set.h"
#include "core/types.h"

namespace varkesh {

// The last round a game counts to: a saved game may hold it, and play never
// passes it, so the count cannot overflow.
inline constexpr int kHighestRound = 999'999'999;

// Room for every piece of a game in one dungeon. Play never adds a piece (a
// capture moves one from the board to a dungeon or out of the game), and a
// saved game with more pieces than this on the board and in the dungeons
// together is refused, so no dungeon ever fills.
inline constexpr int kMaxPrisoners = 255;

// Prisoners held by one captor, in the order of capture.
struct Dungeon {
  FixedOneBasedList<DungeonPiece, kMaxPrisoners> prisoners;
  int PrisonerCount() const { return prisoners.Count(); }
  bool operator==(const Dungeon&) const = default;
};

// One of the last three moves; an entry with fromX and fromY both 0 is empty.
struct HistoryMove {
  int fromX = 0, fromY = 0, toX = 0, toY = 0;
  int team = kNoTeam;
  bool wasCapture = false;
  bool Empty() const { return fromX == 0 && fromY == 0; }
  bool operator==(const HistoryMove&) const = default;
};

struct Position {
  Board board;
  PerTeam<Dungeon> dungeons;             // by captor
  std::array<HistoryMove, 3> history{};  // index 0 the newest
  // The alliances and the fate of a fallen kingdom: fixed for a game, and
  // part of the position because every rule depends on them.
  int gameType = kAlliedNeighbors;
  int kingCaptureRule = kKingdomGained;
  PerTeam<bool> castleRight{true, true, true, true};
  PerTeam<bool> kingdomFallen{};
  int currentTeam = kWhite;
  int roundNumber = 1;
  // The result once a side has won; a position with a winner has no moves.
  int winner = kNoTeam;
  int coWinner = kNoTeam;
  // Where each team's live pieces stand, worked out from the board so that
  // the rules need not look at every square. The rules keep it in step;
  // whoever changes the board otherwise calls Refresh, or Resync for a square.
  PerTeam<SquareSet> pieces;

  bool Finished() const { return winner != kNoTeam; }
  void Refresh();
  void Resync(int index);
  bool operator==(const Position&) const = default;
};

void AddToHistory(Position& position, int fromX, int fromY, int toX, int toY, int team,
                  bool wasCapture);
// A team with less than 5: each live Pawn and Castle Pawn counts 1, each live
// Bishop, Rook, Knight and Queen 2.
bool LackOfMaterial(const Position& position, int team);
int Material(const Position& position, int team);
// What one live piece of that kind adds to its team's material.
constexpr int MaterialWorth(int piece) {
  if (piece == kPawn || piece == kCastlePawn) return 1;
  return piece >= kBishop && piece <= kQueen ? 2 : 0;
}
// The square of the team's live King in scan order; (0, 0) when there is none.
int KingColumn(const Position& position, int team);
int KingRow(const Position& position, int team);
const char* TeamName(int team);   // "White" ... or "~~error~~"
const char* PieceName(int kind);  // "Pawn" ... or "~~error~~"

}  // namespace varkesh
