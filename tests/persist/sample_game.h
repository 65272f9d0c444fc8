// A game in the middle of play, with what a saved game must carry: prisoners,
// a frozen kingdom, history and every kind of seat.
#pragma once

#include "flow/game.h"
#include "core/new_game_data.h"

namespace varkesh::testing {

// White has fallen under Kingdom Frozen; Black, a human, is on turn.
inline Game SampleGame() {
  Game game;
  LoadNewGameDataFile(game, VARKESH_PACK_DIR "/newgamedata.txt");
  game.match.setup.gameName = "Friday";
  game.match.position.gameType = kAnarchy;
  game.match.position.kingCaptureRule = kKingdomFrozen;
  game.match.position.roundNumber = 7;
  game.match.position.currentTeam = kBlack;
  game.match.setup.playerKinds = {kHuman, kAggressive, kHuman, kDefensive};
  game.match.position.castleRight = {false, true, true, false};
  game.match.position.kingdomFallen = {true, false, false, false};
  for (Square& square : game.match.position.board.squares) {
    if (square.team == kWhite && square.piece == kKing)
      square = {kNoTeam, kNoPiece, kUnmarked, square.terrain, kNoTeam};
    if (square.team == kWhite) square.piece = -square.piece;
    if (square.realm == kWhite) square.realm = kNoTeam;
  }
  game.match.position.dungeons[kBlack - 1].prisoners.Add({kWhite, kKing});
  game.match.position.dungeons[kBlack - 1].prisoners.Add({kBlue, kQueen});
  game.match.position.dungeons[kRed - 1].prisoners.Add({kBlack, kRook});
  game.match.position.history[0] = {8, 3, 8, 5, kBlack, true};
  game.match.position.history[1] = {3, 8, 5, 8, kBlue, false};
  return game;
}

// The fields that a saved game stores, compared as a whole.
inline bool SameStoredGame(const Game& a, const Game& b) {
  return a.board == b.board && a.dungeons == b.dungeons && a.history == b.history &&
         a.gameType == b.gameType && a.kingCaptureRule == b.kingCaptureRule &&
         a.gameName == b.gameName && a.playerKinds == b.playerKinds &&
         a.roundNumber == b.roundNumber && a.currentTeam == b.currentTeam &&
         a.castleRight == b.castleRight && a.kingdomFallen == b.kingdomFallen;
}

}  // namespace varkesh::testing
