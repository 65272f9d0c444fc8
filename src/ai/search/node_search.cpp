#include "ai/search/node_search.h"

#include <algorithm>
#include <cmath>

#include "ai/search/king_danger.h"
#include "ai/search/old_ground.h"
#include "ai/search/zobrist.h"
#include "core/apply_move.h"
#include "core/rules.h"

namespace varkesh::search {

namespace {

constexpr int kQuiescencePlies = 5;
constexpr std::uint64_t kClockEvery = 255;
constexpr int kFutilityMargin = 150;
constexpr int kStaticCutDepth = 3;
constexpr int kLateMoveDepth = 3;
constexpr int kQuietsKept = 64;
// What a root move that takes back the team's own last move is charged.
constexpr int kReversalCost = 30;
// The first and second moves are searched in full, the later quiet ones shallower.
constexpr int kFirstReducedMove = 2;
constexpr double kReductionBase = 0.75;
constexpr double kReductionDivisor = 2.0;

// Late quiet moves are searched shallower, the more so the deeper the
// search and the later the move; the table is built once.
struct ReductionTable {
  std::array<std::array<std::int8_t, kMaxMoves>, kMaxDepth + 1> plies{};
  ReductionTable() {
    for (int depth = 1; depth <= kMaxDepth; ++depth)
      for (int i = 1; i < kMaxMoves; ++i) {
        const int r = static_cast<int>(kReductionBase +
                                       std::log(depth) * std::log(i + 1) / kReductionDivisor);
        plies[static_cast<std::size_t>(depth)][static_cast<std::size_t>(i)] =
            static_cast<std::int8_t>(std::clamp(r, 1, std::max(1, depth - 2)));
      }
  }
};

int Reduction(int depth, int i) {
  static const ReductionTable table;
  return table.plies[static_cast<std::size_t>(std::clamp(depth, 0, kMaxDepth))]
                    [static_cast<std::size_t>(std::clamp(i, 0, kMaxMoves - 1))];
}

}  // namespace

NodeSearch::NodeSearch(const Position& position, const SearchSettings& settings,
                       TranspositionTable& table, const std::atomic<bool>* stop)
    : pos_(position),
      settings_(settings),
      weights_(WeightsOf(settings.personality, position.gameType, position.roundNumber)),
      oldGroundCost_(OldGroundCost(position.roundNumber)),
      sides_{position.gameType, position.currentTeam},
      table_(table),
      stop_(stop),
      frames_(std::make_unique<Frame[]>(kMaxPly + 1)),
      start_(Clock::now()) {
  // A line that comes back to a position the game has already stood in
  // ends there, judged as it stands less the charge to the root's side.
  if (!ChargesOldGround(position, sides_, settings.personality)) settings_.seenKeys.clear();
  std::sort(settings_.seenKeys.begin(), settings_.seenKeys.end());
}

double NodeSearch::Seconds() const {
  return std::chrono::duration<double>(Clock::now() - start_).count();
}

bool NodeSearch::FirstGuess(Move& move) {
  Frame& root = frames_[0];
  Generate(root, false);
  if (root.moves.Empty()) return false;
  Order(root, 0, Move{});
  PickNext(root, 0);
  move = root.moves[0];
  return true;
}

void NodeSearch::SearchRoot(int depth) {
  if (rootHasBest_) previousBest_ = rootBest_;
  rootHasBest_ = false;
  afterAlly_ = false;
  Search(depth, 0, -kInfinity, kInfinity, true, false);
}

std::vector<Move> NodeSearch::PrincipalVariation() const {
  std::vector<Move> line;
  for (int k = 0; k < pvLength_[0]; ++k) line.push_back(pv_[0][static_cast<std::size_t>(k)]);
  return line;
}

void NodeSearch::CountNode() {
  ++nodes_;
  const SearchLimits& limits = settings_.limits;
  if (limits.nodes > 0 && nodes_ > limits.nodes) throw SearchAborted{};
  if ((nodes_ & kClockEvery) != 0) return;
  if (stop_ && stop_->load(std::memory_order_relaxed)) throw SearchAborted{};
  if (limits.movetimeMs > 0 && Seconds() * 1000.0 >= limits.movetimeMs) throw SearchAborted{};
}

bool NodeSearch::Terminal(int ply, int& score) const {
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

void NodeSearch::Order(Frame& frame, int ply, const Move& tableMove) {
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

void NodeSearch::Play(Frame& frame, int i) {
  const bool pooled = Pooled();
  frame.savedTeam = pos_.currentTeam;
  pos_.currentTeam = frame.movers[static_cast<std::size_t>(i)];
  ApplyMove(pos_, frame.moves[i], &frame.undo);
  // After the best reply the lone team moves again.
  if (pooled && !pos_.Finished()) pos_.currentTeam = sides_.rootTeam;
}

void NodeSearch::Unplay(Frame& frame, int i) {
  UndoMove(pos_, frame.moves[i], frame.undo);
  pos_.currentTeam = frame.savedTeam;
}

// The child's score seen by the side that moved into it: the same side on
// turn again keeps the window, the other side's score is negated.
int NodeSearch::Child(int depth, int ply, int alpha, int beta, bool pv, int mySide) {
  afterAlly_ = SideToMove() == mySide;
  if (afterAlly_) return Search(depth, ply + 1, alpha, beta, pv, true);
  return -Search(depth, ply + 1, -beta, -alpha, pv, true);
}

int NodeSearch::QuiescentChild(int ply, int alpha, int beta, int qply, int mySide) {
  afterAlly_ = SideToMove() == mySide;
  if (afterAlly_) return Quiesce(ply + 1, alpha, beta, qply + 1);
  return -Quiesce(ply + 1, -beta, -alpha, qply + 1);
}

void NodeSearch::UpdatePv(int ply, const Move& move) {
  auto& line = pv_[static_cast<std::size_t>(ply)];
  line[static_cast<std::size_t>(ply)] = move;
  const int childLength = pvLength_[static_cast<std::size_t>(ply + 1)];
  for (int k = ply + 1; k < childLength; ++k)
    line[static_cast<std::size_t>(k)] =
        pv_[static_cast<std::size_t>(ply + 1)][static_cast<std::size_t>(k)];
  pvLength_[static_cast<std::size_t>(ply)] = childLength > ply + 1 ? childLength : ply + 1;
}

bool NodeSearch::SideKingAttacked(int side) const {
  for (int team = kWhite; team <= kRed; ++team)
    if (sides_.Of(team) == side && !TeamEntry(pos_.kingdomFallen, team) &&
        KingMayBeAttacked(pos_, team) && KingAttacked(pos_, team))
      return true;
  return false;
}

int NodeSearch::ReversalCost(const Move& move, int team) const {
  for (const HistoryMove& last : pos_.history)
    if (!last.Empty() && last.team == team && !last.wasCapture && last.fromX == move.toX &&
        last.fromY == move.toY && last.toX == move.fromX && last.toY == move.fromY)
      return kReversalCost;
  return 0;
}

bool NodeSearch::SeenInGame(std::uint64_t key) const {
  const std::vector<std::uint64_t>& seen = settings_.seenKeys;  // sorted
  return std::binary_search(seen.begin(), seen.end(), key);
}

int NodeSearch::ScoreSeenAgain() const {
  return StaticEval() + (SideToMove() == 0 ? -oldGroundCost_ : oldGroundCost_);
}

// Passing the turn: if the other side still cannot bring the score under
// beta, a real move would not either. An ally next in turn passes too, or
// the pass would only hand the move to the same side.
bool NodeSearch::TryNullMove(int depth, int ply, int beta, int& score) {
  const int mySide = SideToMove();
  const int savedTeam = pos_.currentTeam, savedRound = pos_.roundNumber;
  PassTurn(pos_);
  for (int passes = 1; passes < kTeamCount && SideToMove() == mySide; ++passes) PassTurn(pos_);
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

int NodeSearch::Search(int depth, int ply, int alpha, int beta, bool pv, bool allowNull) {
  if (depth <= 0) return Quiesce(ply, alpha, beta, 0);
  CountNode();
  pvLength_[static_cast<std::size_t>(ply)] = ply;
  int score = 0;
  if (ply > 0 && Terminal(ply, score)) return score;
  if (ply >= kMaxPly - 1) return StaticEval();

  const std::uint64_t key = PositionKey(pos_);
  if (ply > 0 && SeenInGame(key)) return ScoreSeenAgain();
  Move tableMove;
  if (const TableEntry* entry = table_.Probe(key)) {
    tableMove = entry->move;
    const int stored = ScoreFromTable(entry->score, ply);
    if (!pv && ply > 0 && entry->depth >= depth &&
        (entry->bound == Bound::Exact || (entry->bound == Bound::Lower && stored >= beta) ||
         (entry->bound == Bound::Upper && stored <= alpha)))
      return stored;
  }
  // The root tries the last depth's best first, whatever the table kept.
  if (ply == 0 && !(previousBest_ == Move{})) tableMove = previousBest_;

  const int mySide = SideToMove();
  // A King in reach of a hostile piece: no passing, no pruning by the score.
  const bool threatened = SideKingAttacked(mySide);
  const bool prunable = !pv && !threatened;
  const int staticEval = prunable ? StaticEval() : 0;
  // Far enough above beta near the horizon, no reply will bring it down.
  if (prunable && depth <= kStaticCutDepth && beta > -kWinBound && beta < kWinBound &&
      staticEval - kFutilityMargin * depth >= beta)
    return staticEval;
  if (prunable && allowNull && settings_.nullMove && depth >= 3 && !Pooled() &&
      staticEval >= beta && TryNullMove(depth, ply, beta, score))
    return score;
  // With no move from the table the order is a guess: a shallower look first.
  if (depth >= 4 && tableMove == Move{}) --depth;

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
  const bool futile =
      prunable && depth <= 2 && alpha > -kWinBound && staticEval + kFutilityMargin * depth <= alpha;
  // Near the horizon the late quiet moves of a well-ordered list rarely matter.
  const int lateMoves = prunable && depth <= kLateMoveDepth ? 5 + 2 * depth * depth : kMaxMoves;
  std::array<Move, kQuietsKept> quiets;
  int quietCount = 0;
  for (int i = 0; i < frame.moves.Count(); ++i) {
    PickNext(frame, i);
    const Move move = frame.moves[i];
    const bool quiet = !IsTactical(pos_, move);
    const bool reducible = quiet && frame.order[static_cast<std::size_t>(i)] < kOrderKiller;
    if (reducible && i > 0 && (futile || i >= lateMoves)) continue;
    // A root move that takes back the team's own last move is charged, so
    // that a side with nothing better to do tries something new.
    const int cost = ply == 0 ? ReversalCost(move, frame.movers[static_cast<std::size_t>(i)]) : 0;
    const int low = alpha + cost, high = beta + cost;
    Play(frame, i);
    int value;
    if (i == 0) {
      value = Child(depth - 1, ply, low, high, pv, mySide);
    } else {
      const int reduction =
          settings_.reductions && depth >= 3 && i >= kFirstReducedMove && reducible
              ? Reduction(depth, i)
              : 0;
      value = Child(depth - 1 - reduction, ply, low, low + 1, false, mySide);
      if (value > low && reduction > 0) value = Child(depth - 1, ply, low, low + 1, false, mySide);
      if (value > low && value < high && pv) value = Child(depth - 1, ply, low, high, true, mySide);
    }
    value -= cost;
    Unplay(frame, i);
    if (quiet && quietCount < kQuietsKept && value < beta)
      quiets[static_cast<std::size_t>(quietCount++)] = move;
    if (value <= best) continue;
    best = value;
    bestMove = move;
    if (value <= alpha) continue;
    alpha = value;
    UpdatePv(ply, move);
    if (ply == 0) {
      rootHasBest_ = true;
      rootBest_ = move;
      rootScore_ = value;
    }
    if (alpha >= beta) {
      if (quiet) {
        killers.Add(move);
        history_.Reward(move, depth);
        for (int k = 0; k < quietCount; ++k)
          history_.Punish(quiets[static_cast<std::size_t>(k)], depth);
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
int NodeSearch::PassToTheOtherSide(int ply, int alpha, int beta, int qply) {
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

int NodeSearch::Quiesce(int ply, int alpha, int beta, int qply) {
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

}  // namespace varkesh::search
