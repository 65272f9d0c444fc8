// Where the game tells a NetPlay session what happened on this machine. The
// session attaches one to the Outside while it is open, and it alone knows
// the messages on the wire; with none attached nothing is sent.
#pragma once

namespace varkesh {

struct Game;
struct MoveEffects;

class NetLink {
 public:
  virtual ~NetLink() = default;
  // This machine's seat chose a piece or a destination, dropped its choice,
  // or the host's computer chose its move: the others show the same.
  virtual void TellSelection(const Game& game) = 0;
  // This machine's player made the move now selected, with this outcome.
  virtual void TellMove(const Game& game, const MoveEffects& effects) = 0;
  // The team on turn resigned on this machine (concedeTeam: who received
  // the pieces, or what the rule leaves it at).
  virtual void TellResignation(const Game& game, int concedeTeam) = 0;
  // The host started or loaded a game.
  virtual void TellGameStarted(Game& game, bool loaded) = 0;
  // A move or a resignation has been played out on this machine and the
  // turn passed on: the session keeps count and checks that machines agree.
  virtual void OnGameEvent(const Game&) {}
  // Take Back Move in a session is the session's to decide: whether this
  // machine's player may take back now, and doing it. The host takes back
  // by itself and sends everyone the game; a client asks the host.
  virtual bool CanTakeBackHere(const Game&) const { return false; }
  virtual void TakeBackHere(Game&) {}
};

}  // namespace varkesh
