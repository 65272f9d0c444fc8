// The board turned so that a chosen army stands at the bottom: squares of
// the game and squares as drawn, the sides the armies' keeps face, and
// which army "Mine" puts at the bottom. The game itself knows nothing of it.
#pragma once

#include "flow/game.h"

namespace varkesh {

// The Options menu's choice; Unchosen is the player's silence: White in a
// game on one machine, Mine in a NetPlay session.
enum class TurnChoice { Unchosen, White, Blue, Black, Red, Mine };

struct SquarePoint {
  int x = 0;
  int y = 0;
  bool operator==(const SquarePoint&) const = default;
};

// Quarter turns clockwise that bring bottomTeam's keep to the bottom.
int QuarterTurns(int bottomTeam);
// Where a square of the game is drawn, and the square of the game drawn at a
// place; squares outside the board stay outside it.
SquarePoint DrawnSquare(int x, int y, int bottomTeam);
SquarePoint GameSquare(int drawnX, int drawnY, int bottomTeam);
// The side a team's keep is drawn on: 1 bottom, 2 left, 3 top, 4 right, as
// White, Blue, Black and Red stand unturned.
int DrawnSide(int team, int bottomTeam);

// The choice as it stands for this game.
TurnChoice EffectiveChoice(const Game& game, TurnChoice chosen);
// The army at the bottom: the chosen one, or for Mine the first local human
// seat in NetPlay, the human on turn on one machine, else as last shown.
int BottomTeamFor(const Game& game, TurnChoice chosen);

// The names kept in the settings: "White" ... "Mine", "" when unchosen.
const char* TurnChoiceName(TurnChoice choice);
TurnChoice TurnChoiceNamed(const std::string& name);

}  // namespace varkesh
