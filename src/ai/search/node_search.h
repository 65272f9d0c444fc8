// The search of one tree: alpha-beta over the two sides of the game (in
// Anarchy the lone team against the best reply of the three others), with
// a transposition table, quiescence over captures, null moves, late move
// reductions, and pruning by the static score and of late quiet moves near
// the horizon. The iterative deepening that drives it lives in search.cpp.
#pragma once

#include <array>
#include <atomic>
#include <chrono>
#include <cstdint>
#include <memory>
#include <vector>

#include "ai/search/evaluation.h"
#include "ai/search/move_order.h"
#include "ai/search/search.h"
#include "ai/search/search_frame.h"
#include "ai/search/sides.h"
#include "ai/search/transposition_table.h"

namespace varkesh::search {

inline constexpr int kMaxPly = 128;
inline constexpr int kInfinity = kWinScore + 1;

// Thrown when a limit is reached. It unwinds the whole tree to the driver,
// which reads nothing of the position afterwards, so no ply takes its move
// back.
struct SearchAborted {};

class NodeSearch {
 public:
  NodeSearch(const Position& position, const SearchSettings& settings, TranspositionTable& table,
             const std::atomic<bool>* stop);

  // The likeliest move by order alone, for when no depth finishes; false
  // when the team on turn has no move.
  bool FirstGuess(Move& move);
  // Searches the root to depth with an open window; throws SearchAborted.
  void SearchRoot(int depth);

  // The root's best of the depth last begun, once one move has a score.
  bool RootHasBest() const { return rootHasBest_; }
  const Move& RootBest() const { return rootBest_; }
  int RootScore() const { return rootScore_; }
  std::vector<Move> PrincipalVariation() const;
  std::uint64_t Nodes() const { return nodes_; }
  double Seconds() const;

 private:
  using Clock = std::chrono::steady_clock;

  int SideToMove() const { return sides_.Of(pos_.currentTeam); }
  bool Pooled() const { return sides_.PoolsReplies() && SideToMove() == 1; }
  int StaticEval() const {
    const int score = Evaluate(pos_, sides_, weights_);
    return SideToMove() == 0 ? score : -score;
  }

  void CountNode();
  bool Terminal(int ply, int& score) const;
  void Generate(Frame& frame, bool tacticalOnly) {
    GenerateMoves(pos_, sides_, Pooled(), tacticalOnly, frame);
  }
  void Order(Frame& frame, int ply, const Move& tableMove);
  void Play(Frame& frame, int i);
  void Unplay(Frame& frame, int i);
  int Child(int depth, int ply, int alpha, int beta, bool pv, int mySide);
  int QuiescentChild(int ply, int alpha, int beta, int qply, int mySide);
  int Search(int depth, int ply, int alpha, int beta, bool pv, bool allowNull);
  int Quiesce(int ply, int alpha, int beta, int qply);
  int PassToTheOtherSide(int ply, int alpha, int beta, int qply);
  bool TryNullMove(int depth, int ply, int beta, int& score);
  bool SideKingAttacked(int side) const;
  void UpdatePv(int ply, const Move& move);
  bool SeenInGame(std::uint64_t key) const;
  int ScoreSeenAgain() const;
  int ReversalCost(const Move& move, int team) const;

  Position pos_;
  SearchSettings settings_;
  EvalWeights weights_;
  int oldGroundCost_;  // what old ground costs the root's side at this round
  Sides sides_;
  TranspositionTable& table_;
  const std::atomic<bool>* stop_;
  std::unique_ptr<Frame[]> frames_;
  Clock::time_point start_;
  std::uint64_t nodes_ = 0;
  MoveHistory history_;
  std::array<Killers, kMaxPly + 1> killers_{};
  std::array<std::array<Move, kMaxPly + 1>, kMaxPly + 1> pv_{};
  std::array<int, kMaxPly + 1> pvLength_{};
  // Whether the node about to be entered follows a move of its own side.
  bool afterAlly_ = false;
  bool rootHasBest_ = false;
  Move rootBest_;
  Move previousBest_;
  int rootScore_ = 0;
};

}  // namespace varkesh::search
