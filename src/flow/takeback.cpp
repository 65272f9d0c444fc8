#include "flow/takeback.h"

#include "flow/save_load.h"

namespace varkesh {

namespace {

// Only a game on one machine, at a human's turn or over: never while the
// computer weighs a move against the position it started from.
bool ModeAllows(const Game& game) {
  if (game.net.netRole != kNetNone) return false;
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

}  // namespace

int TakebackTarget(const Game& game) {
  const Record& record = game.match.record;
  Position position = record.start;
  int target = -1;
  int played = 0;
  for (const RecordEvent& event : record.events) {
    const int mover = position.currentTeam;
    if (!PlayEvent(position, event)) break;
    if (TeamEntry(game.match.setup.playerKinds, mover, -1) == kHuman) target = played;
    ++played;
  }
  // A record that stops fitting somewhere cannot be replayed past that point.
  return played == static_cast<int>(record.events.size()) ? target : -1;
}

bool CanTakeBack(const Game& game) {
  return ModeAllows(game) && TakebackTarget(game) >= 0;
}

bool CanRedo(const Game& game, const TakebackState& state) {
  return ModeAllows(game) && !state.redo.empty() && game.match.record == state.after;
}

bool TakeBack(Game& game, Outside& outside, TakebackState& state) {
  if (!ModeAllows(game)) return false;
  const int target = TakebackTarget(game);
  if (target < 0) return false;
  if (!(game.match.record == state.after)) state.redo.clear();
  state.redo.push_back(game.match.record);
  Record back = game.match.record;
  back.events.resize(static_cast<std::size_t>(target));
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

}  // namespace varkesh
