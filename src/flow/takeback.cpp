#include "flow/takeback.h"

#include "flow/save_load.h"

namespace varkesh {

namespace {

// At a human's turn or over: never while the computer weighs a move against
// the position it started from.
bool ModeAllows(const Game& game) {
  switch (game.turn.gameMode) {
    case ModeChoosePiece:
    case ModeChooseDestination:
    case ModeConfirmMove:
    case ModeGameOver:
    case ModeVictory:
      return true;
    default:
      return false;
  }
}

bool LocalModeAllows(const Game& game) {
  return game.net.netRole == kNetNone && ModeAllows(game);
}

// The event a takeback returns to, with the team that played it.
struct TakebackPoint {
  int target = -1;
  int team = kNoTeam;
};

TakebackPoint FindTakebackPoint(const Game& game) {
  const Record& record = game.match.record;
  Position position = record.start;
  TakebackPoint point;
  int played = 0;
  for (const RecordEvent& event : record.events) {
    const int mover = position.currentTeam;
    if (!PlayEvent(position, event)) break;
    if (TeamEntry(game.match.setup.playerKinds, mover, -1) == kHuman) point = {played, mover};
    ++played;
  }
  // A record that stops fitting somewhere cannot be replayed past that point.
  return played == static_cast<int>(record.events.size()) ? point : TakebackPoint{};
}

// The match at the given record, replayed from its start, and the turn of
// its team begun as after a load.
void GoTo(Game& game, Outside& outside, Record record) {
  Position position;
  Replay(record, static_cast<int>(record.events.size()), position);
  game.match.position = position;
  game.match.record = std::move(record);
  game.turn.gameSaved = false;
  ResumeLoadedGame(game, outside);
  // A record that ends in a win shows the win again.
  if (position.Finished()) game.turn.gameMode = ModeVictorySetUp;
}

Record RecordUpTo(const Record& record, int events) {
  Record back = record;
  back.events.resize(static_cast<std::size_t>(events));
  return back;
}

}  // namespace

int TakebackTarget(const Game& game) {
  return FindTakebackPoint(game).target;
}

int TakebackTeam(const Game& game) {
  return FindTakebackPoint(game).team;
}

int TakebackTeamOf(const Game& game, int node) {
  if (!ModeAllows(game)) return kNoTeam;
  const int team = TakebackTeam(game);
  return team != kNoTeam && TeamEntry(game.net.seatNode, team, -1) == node ? team : kNoTeam;
}

bool CanTakeBack(const Game& game, const NetLink* session) {
  if (game.net.netRole != kNetNone) return session != nullptr && session->CanTakeBackHere(game);
  return LocalModeAllows(game) && TakebackTarget(game) >= 0;
}

bool CanRedo(const Game& game, const TakebackState& state) {
  return LocalModeAllows(game) && !state.redo.empty() && game.match.record == state.after;
}

bool TakeBack(Game& game, Outside& outside, TakebackState& state) {
  if (game.net.netRole != kNetNone) {
    if (!CanTakeBack(game, outside.Link())) return false;
    state.redo.clear();
    outside.Link()->TakeBackHere(game);
    return true;
  }
  if (!LocalModeAllows(game)) return false;
  const int target = TakebackTarget(game);
  if (target < 0) return false;
  if (!(game.match.record == state.after)) state.redo.clear();
  state.redo.push_back(game.match.record);
  Record back = RecordUpTo(game.match.record, target);
  state.after = back;
  GoTo(game, outside, std::move(back));
  return true;
}

bool Redo(Game& game, Outside& outside, TakebackState& state) {
  if (!CanRedo(game, state)) return false;
  Record forward = std::move(state.redo.back());
  state.redo.pop_back();
  state.after = forward;
  GoTo(game, outside, std::move(forward));
  return true;
}

bool TakeBackLastHumanMove(Game& game, Outside& outside) {
  const int target = TakebackTarget(game);
  if (target < 0) return false;
  GoTo(game, outside, RecordUpTo(game.match.record, target));
  return true;
}

bool KeepRecordThrough(Match& match, const Record& before) {
  Position position = before.start;
  int kept = position == match.position ? 0 : -1;
  int played = 0;
  for (const RecordEvent& event : before.events) {
    if (!PlayEvent(position, event)) break;
    ++played;
    if (position == match.position) kept = played;
  }
  if (kept < 0) return false;
  match.record = RecordUpTo(before, kept);
  return true;
}

}  // namespace varkesh
