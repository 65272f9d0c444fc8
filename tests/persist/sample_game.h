// A game in the middle of play, with what a saved game must carry: prisoners,
// a frozen kingdom, history and every kind of seat.
#pragma once

#include "core/match.h"
#include "core/new_game_data.h"

namespace varkesh::testing {

// White has fallen under Kingdom Frozen; Black, a human, is on turn.
inline Match SampleMatch() {
  Match match;
  Position& position = match.position;
  position.board = LoadNewGameDataFile(VARKESH_PACK_DIR "/newgamedata.txt");
  match.setup.gameName = "Friday";
  match.setup.playerKinds = {kHuman, kAggressive, kHuman, kDefensive};
  position.gameType = kAnarchy;
  position.kingCaptureRule = kKingdomFrozen;
  position.roundNumber = 7;
  position.currentTeam = kBlack;
  position.castleRight = {false, true, true, false};
  position.kingdomFallen = {true, false, false, false};
  for (Square& square : position.board.squares) {
    if (square.team == kWhite && square.piece == kKing)
      square = {kNoTeam, kNoPiece, square.terrain, kNoTeam};
    if (square.team == kWhite) square.piece = static_cast<std::int8_t>(-square.piece);
    if (square.realm == kWhite) square.realm = kNoTeam;
  }
  position.dungeons[kBlack - 1].prisoners.Add({kWhite, kKing});
  position.dungeons[kBlack - 1].prisoners.Add({kBlue, kQueen});
  position.dungeons[kRed - 1].prisoners.Add({kBlack, kRook});
  position.history[0] = {8, 3, 8, 5, kBlack, true};
  position.history[1] = {3, 8, 5, 8, kBlue, false};
  position.Refresh();
  match.BeginRecord();
  return match;
}

}  // namespace varkesh::testing
