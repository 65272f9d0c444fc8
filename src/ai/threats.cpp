#include "ai/threats.h"

#include "ai/ai_values.h"
#include "core/alliances.h"

namespace varkesh {
namespace {

// The weak threat is the ordinary one without the keep wall and the King.
enum class Picture { WithKeepWall, Moatless };

struct Ray {
  int dx;
  int dy;
  int kind;  // the slider besides the Queen that strikes along it
};

// The order decides only which attacker the log names, never the result.
constexpr Ray kRays[] = {
    {0, -1, kRook}, {1, -1, kBishop}, {1, 0, kRook},  {1, 1, kBishop},
    {0, 1, kRook},  {-1, 1, kBishop}, {-1, 0, kRook}, {-1, -1, kBishop},
};

struct Jump {
  int dx;
  int dy;
};

// In the order of a scan of the five rows around the target.
constexpr Jump kJumps[] = {{-1, -2}, {1, -2}, {-2, -1}, {2, -1}, {-2, 1}, {2, 1}, {-1, 2}, {1, 2}};

// The Pawn is not here: its diagonal strike has a rule of its own.
bool StrikesFromNextSquare(int piece, bool diagonal, Picture picture) {
  if (piece == kQueen) return true;
  if (piece == kKing) return picture == Picture::WithKeepWall;
  return diagonal ? piece == kBishop || piece == kCastlePawn : piece == kRook;
}

// A pawn cannot strike a piece on a moat of that piece's own side, whatever
// the pawn's own position.
bool OnOwnSideMoat(int gameType, const Square& target) {
  return target.terrain == kMoat &&
         (target.realm == target.team || IsAlly(gameType, target.team, target.realm));
}

bool FindAttacker(const Board& board, int gameType, int x, int y, Picture picture, Attacker* by) {
  if (!Board::InBounds(x, y)) return false;
  const Square& target = board.at(x, y);
  if (target.piece < 1) return false;
  const int team = target.team;
  const unsigned hostile = HostileTeamsOf(gameType, team);
  const auto opposed = [hostile](int other) { return InTeams(hostile, other); };
  const auto found = [&](int ax, int ay) {
    if (by != nullptr) *by = {ax, ay, board.at(ax, ay).team, board.at(ax, ay).piece};
    return true;
  };

  const bool pawnProof = OnOwnSideMoat(gameType, target);
  for (int dy = -1; dy <= 1; ++dy) {
    for (int dx = -1; dx <= 1; ++dx) {
      const int nx = x + dx, ny = y + dy;
      if ((dx == 0 && dy == 0) || !Board::InBounds(nx, ny)) continue;
      const Square& next = board.at(nx, ny);
      if (next.terrain == kOffBoard || next.piece < 1 || !opposed(next.team)) continue;
      const bool diagonal = dx != 0 && dy != 0;
      if (diagonal && next.piece == kPawn) {
        if (!pawnProof) return found(nx, ny);
      } else if (StrikesFromNextSquare(next.piece, diagonal, picture)) {
        return found(nx, ny);
      }
    }
  }

  // Moats and keeps do not stop a Knight.
  for (const Jump& jump : kJumps) {
    const int nx = x + jump.dx, ny = y + jump.dy;
    if (!Board::InBounds(nx, ny)) continue;
    const Square& jumper = board.at(nx, ny);
    if (jumper.terrain != kOffBoard && jumper.piece == kKnight && opposed(jumper.team))
      return found(nx, ny);
  }

  // Nothing on the battlefield reaches into a keep along a line; the wall
  // stands only on that side, so a slider in a keep still strikes outward.
  const bool walled = picture == Picture::WithKeepWall && target.terrain == kKeep;
  for (const Ray& ray : kRays) {
    for (int nx = x + ray.dx, ny = y + ray.dy; Board::InBounds(nx, ny);
         nx += ray.dx, ny += ray.dy) {
      const Square& square = board.at(nx, ny);
      if (square.terrain == kOffBoard || (walled && square.terrain == kBattlefield)) break;
      if (square.piece == kNoPiece) continue;
      // A frozen piece ends the ray as a live one does.
      if ((square.piece == kQueen || square.piece == ray.kind) && square.team != team &&
          opposed(square.team))
        return found(nx, ny);
      break;
    }
  }
  return false;
}

// How far the coordinate lies beside the columns or rows 6 to 10 of a keep's front.
constexpr int Over(int c) {
  return c < 6 ? 6 - c : (c > 10 ? c - 10 : 0);
}

// Steps to the moat line in front of the team's keep; negative inside the keep.
constexpr int DistanceToKeep(int team, int x, int y) {
  switch (team) {
    case kWhite:
      return 13 - y + Over(x);
    case kBlue:
      return x - 3 + Over(y);
    case kBlack:
      return y - 3 + Over(x);
    default:
      return 13 - x + Over(y);
  }
}

}  // namespace

bool TestThreat(const Board& board, int gameType, int x, int y, Attacker* by) {
  return FindAttacker(board, gameType, x, y, Picture::WithKeepWall, by);
}

bool TestMoatlessThreat(const Board& board, int gameType, int x, int y) {
  return FindAttacker(board, gameType, x, y, Picture::Moatless, nullptr);
}

bool AdvancesPawn(const Position& position, int fromX, int fromY, int toX, int toY) {
  const unsigned enemies = EnemyTeams(position.gameType, position.currentTeam);
  for (int enemy = kWhite; enemy <= kRed; ++enemy) {
    if (!IsEnemy(enemies, enemy) || TeamEntry(position.kingdomFallen, enemy)) continue;
    if (DistanceToKeep(enemy, toX, toY) < DistanceToKeep(enemy, fromX, fromY)) return true;
  }
  return false;
}

}  // namespace varkesh
