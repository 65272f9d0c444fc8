// All state of one game and of the loop that plays it, in one plain record.
// Nothing of the game lives anywhere else, so several games can share a process.
#pragma once

#include <string>

#include "core/types.h"
#include "engine/random.h"

namespace varkesh {

// The last round a game counts to: a saved game may hold it, and play never
// passes it, so the count cannot overflow.
inline constexpr int kHighestRound = 999'999'999;

struct Game {
  // The game itself; what a saved game stores.
  Board board;
  PerTeam<Dungeon> dungeons;             // by captor
  std::array<HistoryMove, 3> history{};  // index 0 the newest
  int gameType = kAlliedNeighbors;
  int kingCaptureRule = kKingdomGained;
  std::string gameName;
  PerTeam<int> playerKinds{};
  int roundNumber = 1;
  int currentTeam = kWhite;
  PerTeam<bool> castleRight{true, true, true, true};
  PerTeam<bool> kingdomFallen{};

  // Working lists of the rules and the computer opponent.
  Board scratchBoard;
  OneBasedList<MoveRec> moveList;
  OneBasedList<BoardSquare> moveablePieces;
  OneBasedList<BoardSquare> computerPieces;

  // The main loop.
  int gameMode = ModeTitle;
  int modeAfterTitle = ModeNoGame;
  bool offerNewGame = true;
  bool titleLoaded = false;
  std::array<double, 2> flagTimers{};  // the victory screen's two waving flags
  std::array<int, 2> flagFrames{};
  int moveFromX = 0, moveFromY = 0, moveToX = 0, moveToY = 0;
  int winner = kNoTeam;
  int coWinner = kNoTeam;
  bool clickPending = false;
  int clickX = 0, clickY = 0;
  bool clickLeft = false, clickRight = false;
  bool boardChanged = true;
  bool viewChanged = false;
  double turnClock = 0.0;
  double turnElapsed = 0.0;
  bool paused = false;
  bool quitRequested = false;
  std::string saveFilePath;
  bool gameSaved = true;

  // NetPlay.
  int netRole = kNetNone;
  std::string localPlayerName;
  int myNodeId = 0;
  PerTeam<int> seatNode{};
  std::string pendingMoveMessage;
  int netMoveKind = 0, netMoveArg1 = 0, netMoveArg2 = 0;

  // The one random generator of this game.
  Random random;
};

// Character with code 1 between the fields of a NetPlay message.
inline constexpr char kFieldSeparator = '\x01';

// Helpers that work straight on the state.
void ClearMarks(Game& game);
void ClearMoveablePieces(Game& game);
void AddToMoveablePieces(Game& game, int x, int y);
void AddToHistory(Game& game, int fromX, int fromY, int toX, int toY, int team, bool wasCapture);
bool LackOfMaterial(const Game& game, int team);
int KingColumn(const Game& game, int team);
int KingRow(const Game& game, int team);
const char* TeamName(int team);   // "White" ... or "~~error~~"
const char* PieceName(int kind);  // "Pawn" ... or "~~error~~"

// Per-team entries read safely: a value that names no team reads as the default.
template <class T>
T TeamEntry(const PerTeam<T>& values, int team, T fallback = T{}) {
  int i = TeamIndex(team);
  return i < 0 ? fallback : values[static_cast<std::size_t>(i)];
}

}  // namespace varkesh
