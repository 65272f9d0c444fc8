#include "ai/search/search.h"

#include <array>
#include <chrono>
#include <memory>

#include "ai/search/evaluation.h"
#include "ai/search/king_danger.h"
#include "ai/search/move_order.h"
#include "ai/search/sides.h"
#include "ai/search/zobrist.h"
#include "core/apply_move.h"
#include "core/pawn_options.h"
#include "core/piece_moves.h"
#include "core/rules.h"

namespace varkesh::search {

namespace {

constexpr int kMaxPly = 128;
constexpr int kQuiescencePlies = 8;
constexpr int kInfinity = kWinScore + 1;
constexpr std::uint64_t kClockEvery = 255;
constexpr int kFutilityMargin = 150;

using Clock = std::chrono::steady_clock;

// One ply's moves, their order and movers, and the undo of the one played.
struct Frame {
  MoveList moves;
  MoveList scratch;
  std::array<int, kMaxMoves> order;
  std::array<std::int8_t, kMaxMoves> movers;
  int savedTeam = kNoTeam;
  Undo undo;
};

// Thrown when a limit is reached. It unwinds the whole run to Go, which
// reads nothing of the position afterwards, so no ply takes its move back.
struct Aborted {};

class Run {
 public:
  Run(const Position& position, const SearchSettings& settings, TranspositionTable& table,
      const std::atomic<bool>* stop)
      : pos_(position),
        settings_(settings),
        weights_(WeightsOf(settings.personality)),
        sides_{position.gameType, position.currentTeam},
        table_(table),
        stop_(stop),
        frames_(std::make_unique<Frame[]>(kMaxPly + 1)),
        start_(Clock::now()) {}

  SearchResult Go(const InfoCallback& onInfo);

 private:
  int SideToMove() const { return sides_.Of(pos_.currentTeam); }
  bool Pooled() const { return sides_.PoolsReplies() && SideToMove() == 1; }
  int StaticEval() const {
    const int score = Evaluate(pos_, sides_, weights_);
    return SideToMove() == 0 ? score : -score;
  }
  double Seconds() const { return std::chrono::duration<double>(Clock::now() - start_).count(); }

  void CountNode();
  bool Terminal(int ply, int& score) const;
  void Generate(Frame& frame, bool tacticalOnly);
  void AddTactical(Frame& frame, int team);
  void Order(Frame& frame, int ply, const Move& tableMove);
  void PickNext(Frame& frame, int i);
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

  Position pos_;
  SearchSettings settings_;
  EvalWeights weights_;
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
  // The root's best of the depth being searched, once one move has a score.
  bool iterationHasBest_ = false;
  Move iterationBest_;
  int iterationScore_ = 0;
};

void Run::CountNode() {
  ++nodes_;
  const SearchLimits& limits = settings_.limits;
  if (limits.nodes > 0 && nodes_ > limits.nodes) throw Aborted{};
  if ((nodes_ & kClockEvery) != 0) return;
  if (stop_ && stop_->load(std::memory_order_relaxed)) throw Aborted{};
  if (limits.movetimeMs > 0 && Seconds() * 1000.0 >= limits.movetimeMs) throw Aborted{};
}

bool Run::Terminal(int ply, int& score) const {
  const int mine = SideToMove();
  if (pos_.Finished()) {
    score = sides_.Of(pos_.winner) == mine ? kWinScore - ply : -(kWinScore - ply);
    return true;
  }
  // In Anarchy the lone team is out of the game once its King falls.
  if (sides_.PoolsReplies() && TeamEntry(pos_.kingdomFallen, sides_.rootTeam)) {
    score = mine == 0 ? -(kWinScore - ply) : kWinScore - ply;
    return true;
  }
  return false;
}

// The moves of the team on turn; in a pooled layer, those of every standing
// team of the other side, each with its mover.
void Run::Generate(Frame& frame, bool tacticalOnly) {
  frame.moves.Clear();
  const int saved = pos_.currentTeam;
  const bool pooled = Pooled();
  for (int team = kWhite; team <= kRed; ++team) {
    if (pooled ? sides_.Of(team) != 1 || TeamEntry(pos_.kingdomFallen, team) : team != saved)
      continue;
    pos_.currentTeam = team;
    const int first = frame.moves.Count();
    if (tacticalOnly) {
      AddTactical(frame, team);
    } else {
      ListBranches(pos_, frame.scratch);
      for (const Move& move : frame.scratch) frame.moves.Add(move);
    }
    for (int i = first; i < frame.moves.Count(); ++i)
      frame.movers[static_cast<std::size_t>(i)] = static_cast<std::int8_t>(team);
  }
  pos_.currentTeam = saved;
}

// Captures of hostile pieces, and every line of the options of a pawn that
// enters a keep.
void Run::AddTactical(Frame& frame, int team) {
  const auto& squares = pos_.board.squares;
  pos_.pieces[static_cast<std::size_t>(team - 1)].ForEach([&](int from) {
    const Square& source = squares[static_cast<std::size_t>(from)];
    ForEachDestination(pos_, from, [&](int to) {
      const Square& target = squares[static_cast<std::size_t>(to)];
      const bool capture = target.piece > 0 && target.team != team;
      const bool entersKeep =
          (source.piece == kPawn || source.piece == kCastlePawn) && target.terrain == kKeep;
      const Move plain = Move::Of(SquareX(from), SquareY(from), SquareX(to), SquareY(to));
      if (!entersKeep) {
        if (capture) frame.moves.Add(plain);
        return;
      }
      const MoveOptions options =
          PawnOptionsOfMove(pos_, plain.fromX, plain.fromY, plain.toX, plain.toY);
      const int lines = static_cast<int>(options.options.size());
      if (lines == 0) {
        if (capture) frame.moves.Add(plain);
        return;
      }
      for (int line = 0; line < lines; ++line)
        frame.moves.Add(Move::Of(plain.fromX, plain.fromY, plain.toX, plain.toY, line));
    });
  });
}

void Run::Order(Frame& frame, int ply, const Move& tableMove) {
  const Killers& killers = killers_[static_cast<std::size_t>(ply)];
  for (int i = 0; i < frame.moves.Count(); ++i) {
    const Move& move = frame.moves[i];
    int score = TacticalOrder(pos_, move, settings_.personality);
    if (move == tableMove)
      score = kOrderTableMove;
    else if (score == 0)
      score = killers.Has(move) ? kOrderKiller : history_.Score(move);
    frame.order[static_cast<std::size_t>(i)] = score;
  }
}

void Run::PickNext(Frame& frame, int i) {
  int best = i;
  for (int k = i + 1; k < frame.moves.Count(); ++k)
    if (frame.order[static_cast<std::size_t>(k)] > frame.order[static_cast<std::size_t>(best)])
      best = k;
  if (best == i) return;
  std::swap(frame.moves[i], frame.moves[best]);
  std::swap(frame.order[static_cast<std::size_t>(i)], frame.order[static_cast<std::size_t>(best)]);
  std::swap(frame.movers[static_cast<std::size_t>(i)],
            frame.movers[static_cast<std::size_t>(best)]);
}

void Run::Play(Frame& frame, int i) {
  const bool pooled = Pooled();
  frame.savedTeam = pos_.currentTeam;
  pos_.currentTeam = frame.movers[static_cast<std::size_t>(i)];
  ApplyMove(pos_, frame.moves[i], &frame.undo);
  // After the best reply the lone team moves again.
  if (pooled && !pos_.Finished()) pos_.currentTeam = sides_.rootTeam;
}

void Run::Unplay(Frame& frame, int i) {
  UndoMove(pos_, frame.moves[i], frame.undo);
  pos_.currentTeam = frame.savedTeam;
}

// The child's score seen by the side that moved into it: the same side on
// turn again keeps the window, the other side's score is negated.
int Run::Child(int depth, int ply, int alpha, int beta, bool pv, int mySide) {
  afterAlly_ = SideToMove() == mySide;
  if (afterAlly_) return Search(depth, ply + 1, alpha, beta, pv, true);
  return -Search(depth, ply + 1, -beta, -alpha, pv, true);
}

int Run::QuiescentChild(int ply, int alpha, int beta, int qply, int mySide) {
  afterAlly_ = SideToMove() == mySide;
  if (afterAlly_) return Quiesce(ply + 1, alpha, beta, qply + 1);
  return -Quiesce(ply + 1, -beta, -alpha, qply + 1);
}

void Run::UpdatePv(int ply, const Move& move) {
  auto& line = pv_[static_cast<std::size_t>(ply)];
  line[static_cast<std::size_t>(ply)] = move;
  const int childLength = pvLength_[static_cast<std::size_t>(ply + 1)];
  for (int k = ply + 1; k < childLength; ++k)
    line[static_cast<std::size_t>(k)] =
        pv_[static_cast<std::size_t>(ply + 1)][static_cast<std::size_t>(k)];
  pvLength_[static_cast<std::size_t>(ply)] = childLength > ply + 1 ? childLength : ply + 1;
}

bool Run::SideKingAttacked(int side) const {
  for (int team = kWhite; team <= kRed; ++team)
    if (sides_.Of(team) == side && !TeamEntry(pos_.kingdomFallen, team) && KingAttacked(pos_, team))
      return true;
  return false;
}

// Passing the turn: if the other side still cannot bring the score under
// beta, a real move would not either.
bool Run::TryNullMove(int depth, int ply, int beta, int& score) {
  const int mySide = SideToMove();
  if (StaticEval() < beta) return false;
  const int savedTeam = pos_.currentTeam, savedRound = pos_.roundNumber;
  PassTurn(pos_);
  bool cut = false;
  if (SideToMove() != mySide) {
    const int reduction = depth >= 6 ? 3 : 2;
    afterAlly_ = false;
    score = -Search(depth - 1 - reduction, ply + 1, -beta, -beta + 1, false, false);
    cut = score >= beta;
    if (score > kWinBound) score = beta;
  }
  pos_.currentTeam = savedTeam;
  pos_.roundNumber = savedRound;
  return cut;
}

int Run::Search(int depth, int ply, int alpha, int beta, bool pv, bool allowNull) {
  if (depth <= 0) return Quiesce(ply, alpha, beta, 0);
  CountNode();
  pvLength_[static_cast<std::size_t>(ply)] = ply;
  int score = 0;
  if (ply > 0 && Terminal(ply, score)) return score;
  if (ply >= kMaxPly - 1) return StaticEval();

  const std::uint64_t key = PositionKey(pos_);
  Move tableMove;
  if (const TableEntry* entry = table_.Probe(key)) {
    tableMove = entry->move;
    const int stored = ScoreFromTable(entry->score, ply);
    if (!pv && ply > 0 && entry->depth >= depth &&
        (entry->bound == Bound::Exact || (entry->bound == Bound::Lower && stored >= beta) ||
         (entry->bound == Bound::Upper && stored <= alpha)))
      return stored;
  }

  const int mySide = SideToMove();
  // A King in reach of a hostile piece: no passing, no pruning by the score.
  const bool threatened = SideKingAttacked(mySide);
  if (!pv && allowNull && !threatened && settings_.nullMove && depth >= 3 && !Pooled() &&
      TryNullMove(depth, ply, beta, score))
    return score;

  Frame& frame = frames_[static_cast<std::size_t>(ply)];
  Generate(frame, false);
  // A team with no move resigns: as bad as a fallen kingdom.
  if (frame.moves.Empty()) return StaticEval() - kFallenKingdom;
  Order(frame, ply, tableMove);

  const int originalAlpha = alpha;
  int best = -kInfinity;
  Move bestMove;
  Killers& killers = killers_[static_cast<std::size_t>(ply)];
  // Near the horizon a quiet move cannot lift a score this far below alpha.
  const bool futile = !pv && !threatened && depth <= 2 && alpha > -kWinBound &&
                      StaticEval() + kFutilityMargin * depth <= alpha;
  for (int i = 0; i < frame.moves.Count(); ++i) {
    PickNext(frame, i);
    const Move move = frame.moves[i];
    const bool quiet = !IsTactical(pos_, move);
    const bool reducible = quiet && frame.order[static_cast<std::size_t>(i)] < kOrderKiller;
    if (futile && reducible && i > 0) continue;
    Play(frame, i);
    int value;
    if (i == 0) {
      value = Child(depth - 1, ply, alpha, beta, pv, mySide);
    } else {
      int reduction = 0;
      if (settings_.reductions && depth >= 3 && i >= 3 && reducible)
        reduction = 1 + (i >= 8 && depth >= 4 ? 1 : 0) + (i >= 20 && depth >= 6 ? 1 : 0);
      value = Child(depth - 1 - reduction, ply, alpha, alpha + 1, false, mySide);
      if (value > alpha && reduction > 0)
        value = Child(depth - 1, ply, alpha, alpha + 1, false, mySide);
      if (value > alpha && value < beta && pv)
        value = Child(depth - 1, ply, alpha, beta, true, mySide);
    }
    Unplay(frame, i);
    if (value <= best) continue;
    best = value;
    bestMove = move;
    if (value <= alpha) continue;
    alpha = value;
    UpdatePv(ply, move);
    if (ply == 0) {
      iterationHasBest_ = true;
      iterationBest_ = move;
      iterationScore_ = value;
    }
    if (alpha >= beta) {
      if (quiet) {
        killers.Add(move);
        history_.Reward(move, depth);
      }
      break;
    }
  }
  const Bound bound = best >= beta           ? Bound::Lower
                      : best > originalAlpha ? Bound::Exact
                                             : Bound::Upper;
  table_.Store(key, bound == Bound::Upper ? Move{} : bestMove, ScoreToTable(best, ply), depth,
               bound);
  return best;
}

// An ally's quiet turn is no end of the line: the other side still gets to
// take what hangs. Standing pat for the ally means passing to it.
int Run::PassToTheOtherSide(int ply, int alpha, int beta, int qply) {
  const int mySide = SideToMove();
  const int savedTeam = pos_.currentTeam, savedRound = pos_.roundNumber;
  PassTurn(pos_);
  int value = 0;
  if (SideToMove() == mySide) {
    value = StaticEval();
  } else {
    afterAlly_ = false;
    value = -Quiesce(ply + 1, -beta, -alpha, qply + 1);
  }
  pos_.currentTeam = savedTeam;
  pos_.roundNumber = savedRound;
  return value;
}

int Run::Quiesce(int ply, int alpha, int beta, int qply) {
  const bool afterAlly = afterAlly_;
  afterAlly_ = false;
  CountNode();
  pvLength_[static_cast<std::size_t>(ply)] = ply;
  int score = 0;
  if (Terminal(ply, score)) return score;
  const int mySide = SideToMove();
  Frame& frame = frames_[static_cast<std::size_t>(ply)];
  int standing = StaticEval();
  if (afterAlly && !Pooled() && qply < kQuiescencePlies && ply < kMaxPly - 2)
    standing = PassToTheOtherSide(ply, alpha, beta, qply);
  if (standing >= beta || ply >= kMaxPly - 1 || qply >= kQuiescencePlies) return standing;
  if (standing > alpha) alpha = standing;
  Generate(frame, true);
  Order(frame, ply, Move{});
  int best = standing;
  for (int i = 0; i < frame.moves.Count(); ++i) {
    PickNext(frame, i);
    Play(frame, i);
    const int value = QuiescentChild(ply, alpha, beta, qply, mySide);
    Unplay(frame, i);
    if (value <= best) continue;
    best = value;
    if (value <= alpha) continue;
    alpha = value;
    if (alpha >= beta) break;
  }
  return best;
}

SearchResult Run::Go(const InfoCallback& onInfo) {
  SearchResult result;
  Frame& root = frames_[0];
  Generate(root, false);
  if (root.moves.Empty()) return result;
  // Should the first depth not finish, the likeliest capture stands.
  Order(root, 0, Move{});
  PickNext(root, 0);
  result.found = true;
  result.best = root.moves[0];

  table_.NewSearch();
  const SearchLimits& limits = settings_.limits;
  const int maxDepth = limits.depth > 0 && limits.depth < kMaxDepth ? limits.depth : kMaxDepth;
  for (int depth = 1; depth <= maxDepth; ++depth) {
    iterationHasBest_ = false;
    bool finished = true;
    try {
      afterAlly_ = false;
      Search(depth, 0, -kInfinity, kInfinity, true, false);
    } catch (const Aborted&) {
      finished = false;
    }
    if (iterationHasBest_) {
      result.best = iterationBest_;
      result.score = iterationScore_;
    }
    if (!finished) break;
    result.depth = depth;
    if (onInfo) {
      SearchInfo info;
      info.depth = depth;
      info.score = result.score;
      info.nodes = nodes_;
      info.seconds = Seconds();
      for (int k = 0; k < pvLength_[0]; ++k) info.pv.push_back(pv_[0][static_cast<std::size_t>(k)]);
      onInfo(info);
    }
    if (result.score > kWinBound || result.score < -kWinBound) break;
    // A deeper search that cannot finish in the time left is not begun.
    if (limits.movetimeMs > 0 && Seconds() * 1000.0 * 2.5 > limits.movetimeMs) break;
  }
  result.nodes = nodes_;
  result.seconds = Seconds();
  return result;
}

}  // namespace

SearchResult Searcher::Think(const Position& position, const SearchSettings& settings,
                             const InfoCallback& onInfo, const std::atomic<bool>* stop) {
  auto run = std::make_unique<Run>(position, settings, table_, stop);
  return run->Go(onInfo);
}

}  // namespace varkesh::search
