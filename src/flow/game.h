// One game as the program plays it: the match itself and the state around
// it, each part a plain value with its own lifetime. Nothing of a game lives
// anywhere else, so several games can share a process.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "core/match.h"
#include "engine/random.h"

namespace varkesh {

// States of the main loop.
enum GameMode : int {
  ModeNoGame = 0,
  ModeChoosePiece = 1,
  ModeChooseDestination = 2,
  ModeConfirmMove = 3,
  ModeGameOver = 4,
  ModeTitle = 5,
  ModeVictorySetUp = 6,
  ModeVictory = 7,
  ModeComputerThinks = 8,
  ModeComputerMoves = 9,
};

// NetPlay roles.
inline constexpr int kNetNone = 0;
inline constexpr int kNetHostDialog = 1;
inline constexpr int kNetHosting = 2;
inline constexpr int kNetConnectDialog = 3;
inline constexpr int kNetClient = 4;

// Square marks: what a click on the square would choose.
inline constexpr int kUnmarked = 0;
inline constexpr int kMarkMoveable = 1;
inline constexpr int kMarkDestination = 2;

// The main loop's walk through a game: the mode, the selection under way,
// the clocks. Lives for the run; a new game or a load resets its parts.
struct TurnState {
  int gameMode = ModeTitle;
  int modeAfterTitle = ModeNoGame;
  bool offerNewGame = true;
  bool titleLoaded = false;
  std::array<double, 2> flagTimers{};  // the victory screen's two waving flags
  std::array<int, 2> flagFrames{};
  int moveFromX = 0, moveFromY = 0, moveToX = 0, moveToY = 0;
  // The pawn option of the computer's chosen move: its fixed rule, or the
  // line a searching level chose.
  int computerOption = kOptionComputer;
  // Every machine of a session carries a computer move out with the
  // computer's fixed rule for a pawn in a keep. A move whose option that
  // rule would not take goes out as a player's move instead, which any peer
  // plays exactly.
  bool ComputerMoveToldAsPlayers() const { return computerOption != kOptionComputer; }
  double turnClock = 0.0;
  double turnElapsed = 0.0;
  bool paused = false;
  bool quitRequested = false;
  // A searching level thinks on its worker while the window runs: commands
  // that change the game wait for the search, or end it with searchAbandoned.
  bool searching = false;
  bool searchAbandoned = false;
  std::string saveFilePath;
  bool gameSaved = true;
};

// What the board shows and what the player did to it: worked out from the
// match, never part of it.
struct ViewState {
  SquareMarks marks{};
  // The squares the strobe runs over.
  OneBasedList<BoardSquare> moveablePieces;
  bool boardChanged = true;
  bool viewChanged = false;
  bool clickPending = false;
  int clickX = 0, clickY = 0;
  bool clickLeft = false, clickRight = false;
  // The army drawn at the bottom of the board; the game itself knows no sides.
  int bottomTeam = kWhite;
  // The keyboard's cursor, on a square of the game; shown once a key moved it.
  bool cursorShown = false;
  int cursorX = 8, cursorY = 16;

  int MarkAt(int x, int y) const {
    return Board::InBounds(x, y) ? marks[static_cast<std::size_t>(Board::Index(x, y))] : kUnmarked;
  }
};

// This machine's place in a NetPlay session: lives as long as the session.
struct NetPlace {
  int netRole = kNetNone;
  std::string localPlayerName;
  int myNodeId = 0;
  PerTeam<int> seatNode{};  // the node that plays each team
};

struct Game {
  Match match;
  TurnState turn;
  ViewState view;
  NetPlace net;
  // The one random generator of this game.
  Random random;
};

}  // namespace varkesh
