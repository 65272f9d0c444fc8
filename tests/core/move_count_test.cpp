#include <gtest/gtest.h>

#include "core/new_game_data.h"
#include "core/rules.h"

namespace varkesh {
namespace {

int TotalDestinations(Game& game) {
  int total = 0;
  for (int y = 0; y < kBoardSide; ++y)
    for (int x = 0; x < kBoardSide; ++x) total += FindMoves(game, x, y, false, false);
  return total;
}

// A plain move: the castle move exchanges King and Castle Pawn, anything else
// lands on the target. No dungeons, fates or pawn options.
void Play(Game& game, const MoveRec& move) {
  Square& from = game.board.at(move.fromX, move.fromY);
  Square& to = game.board.at(move.toX, move.toY);
  int mover = from.team;
  if (from.piece == kCastlePawn || from.piece == kKing || to.piece == kCastlePawn ||
      to.piece == kKing) {
    game.castleRight[static_cast<std::size_t>(mover - 1)] = false;
  }
  if (from.piece == kKing && to.piece == kCastlePawn && to.team == mover) {
    to.piece = kKing;
    from.piece = kCastlePawn;
    return;
  }
  to.team = from.team;
  to.piece = from.piece;
  from.team = kNoTeam;
  from.piece = kNoPiece;
}

// One random legal move of the team on turn, as the computer lists them.
void PlayRandomMove(Game& game) {
  game.moveList.Clear();
  game.computerPieces.Clear();
  FindMoveablePieces(game, game.currentTeam, false, true);
  for (const BoardSquare& piece : game.computerPieces)
    FindMoves(game, piece.x, piece.y, false, true);
  if (!game.moveList.Empty())
    Play(game, game.moveList[1 + game.random.Below(game.moveList.Count())]);
  game.currentTeam = game.currentTeam % kTeamCount + 1;
}

TEST(MoveCount, SeededGameFromTheStartPosition) {
  Game game;
  game.gameType = kAnarchy;
  game.random.Seed(20240917);
  LoadNewGameDataFile(game, std::string(VARKESH_PACK_DIR) + "/newgamedata.txt");

  struct Checkpoint {
    int ply;
    int destinations;
  };
  // Ply 0 by hand, the same for each team: seven Pawns with a single and a
  // double step each (14), the Knight on (7, 14) to (6, 12) and (8, 12) (2),
  // the King's castle move (1); everything else is walled in. 17 x 4 = 68.
  // Plies 1 and 2 were checked by hand as well: White's pawn (10, 13) to
  // (10, 11) adds 9 (pawn +2, Bishop +4, Rook +2, Knight +1), Blue's double
  // step (3, 9) to (5, 9) adds 8 (pawn +2, Queen +5, Knight +1). The later
  // counts were recorded once from this sequence.
  const Checkpoint checkpoints[] = {{0, 68},  {1, 77},   {2, 85},   {4, 91},
                                    {8, 141}, {16, 158}, {32, 182}, {64, 176}};
  int ply = 0;
  for (const Checkpoint& checkpoint : checkpoints) {
    while (ply < checkpoint.ply) {
      PlayRandomMove(game);
      ++ply;
    }
    EXPECT_EQ(TotalDestinations(game), checkpoint.destinations) << "ply " << ply;
  }
}

}  // namespace
}  // namespace varkesh
