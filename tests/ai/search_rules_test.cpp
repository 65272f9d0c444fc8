// The search against the rules: every move it returns is legal, in every
// game type and for every level; fixed limits give the same answer each
// time; and the keys of the table tell positions apart.
#include <gtest/gtest.h>

#include "ai/search/levels.h"
#include "ai/search/option_line.h"
#include "ai/search/search.h"
#include "ai/search/zobrist.h"
#include "core/alliances.h"
#include "core/apply_move.h"
#include "core/fate.h"
#include "core/match.h"
#include "core/new_game_data.h"
#include "core/rules.h"
#include "engine/random.h"

namespace varkesh {
namespace {

Position StartPosition(int gameType) {
  return varkesh::StartPosition(LoadNewGameDataFile(VARKESH_PACK_DIR "/newgamedata.txt"), gameType);
}

search::SearchResult Think(const Position& position, int level, search::SearchLimits limits,
                           int personality = kBalanced) {
  search::Searcher searcher(1);
  return searcher.Think(position, LevelSettings(level, personality, limits));
}

// Random games from the start, every few plies asking each searching level.
TEST(SearchRulesTest, ReturnsOnlyLegalMovesInEveryGameType) {
  search::SearchLimits limits;
  limits.nodes = 3000;
  for (int gameType = kAlliedNeighbors; gameType <= kAnarchy; ++gameType) {
    Position position = StartPosition(gameType);
    Random random(static_cast<std::uint64_t>(gameType));
    MoveList moves;
    for (int ply = 0; ply < 120 && !position.Finished(); ++ply) {
      if (ply % 6 == 0) {
        const int level = kLevelClub + ply / 6 % 3;
        const search::SearchResult result = Think(position, level, limits, 1 + ply % 3);
        ListBranches(position, moves);
        ASSERT_EQ(result.found, !moves.Empty());
        if (result.found) {
          ASSERT_TRUE(IsLegal(position, result.best))
              << "type " << gameType << " ply " << ply << " level " << level;
        }
      }
      ListBranches(position, moves);
      if (moves.Empty()) break;
      ApplyMove(position, moves[random.Below(moves.Count())]);
    }
  }
}

TEST(SearchRulesTest, FixedLimitsGiveTheSameMoveEveryTime) {
  struct Case {
    int gameType;
    search::SearchLimits limits;
  };
  const Case cases[] = {
      {kAlliedNeighbors, {0, 20000, 0}}, {kCrossroadAllies, {3, 0, 0}}, {kAnarchy, {0, 15000, 0}}};
  for (const Case& c : cases) {
    const Position position = StartPosition(c.gameType);
    const search::SearchResult first = Think(position, kLevelMaster, c.limits);
    const search::SearchResult second = Think(position, kLevelMaster, c.limits);
    EXPECT_TRUE(first.found);
    EXPECT_EQ(first.best, second.best) << "type " << c.gameType;
    EXPECT_EQ(first.score, second.score) << "type " << c.gameType;
    EXPECT_EQ(first.nodes, second.nodes) << "type " << c.gameType;
    EXPECT_EQ(first.depth, second.depth) << "type " << c.gameType;
  }
}

TEST(SearchRulesTest, NodeLimitHolds) {
  const Position position = StartPosition(kAlliedNeighbors);
  search::SearchLimits limits;
  limits.nodes = 5000;
  const search::SearchResult result = Think(position, kLevelMaster, limits);
  EXPECT_LE(result.nodes, 5001u);
  EXPECT_GE(result.depth, 1);
}

// The start of a game with each hostile team's Queen gone.
Position QueensTakenFromOthers(int gameType, int team) {
  Position position = StartPosition(gameType);
  for (Square& square : position.board.squares)
    if (square.piece == kQueen && IsHostile(gameType, team, square.team)) {
      square.piece = kNoPiece;
      square.team = kNoTeam;
    }
  position.Refresh();
  return position;
}

// Anarchy with Blue and Red gone: White and Black fight it out alone.
Position AnarchyDuel() {
  Position position = StartPosition(kAnarchy);
  for (int team : {kBlue, kRed}) {
    ClearBoardOfTeam(position, team);
    position.kingdomFallen[static_cast<std::size_t>(team - 1)] = true;
  }
  return position;
}

// A move back to where the game already stood is charged, so that a side
// with moves of about equal worth tries a new one rather than going round
// in circles. In Anarchy only the strongest team, or one of the last two,
// is charged: the others may wait as long as they like.
TEST(SearchRulesTest, AvoidsAPositionTheGameHasStoodInUnlessWaitingInAnarchy) {
  const struct {
    const char* name;
    Position position;
    bool charged;
  } cases[] = {{"allied neighbours", StartPosition(kAlliedNeighbors), true},
               {"crossroad allies", StartPosition(kCrossroadAllies), true},
               {"anarchy", StartPosition(kAnarchy), false},
               {"anarchy, leading", QueensTakenFromOthers(kAnarchy, kWhite), true},
               {"anarchy, last two", AnarchyDuel(), true}};
  for (const auto& c : cases) {
    search::SearchSettings settings = LevelSettings(kLevelMaster, kBalanced, {4, 0, 0});
    search::Searcher searcher(1);
    const search::SearchResult first = searcher.Think(c.position, settings);
    ASSERT_TRUE(first.found) << c.name;
    Position after = c.position;
    ApplyMove(after, first.best);
    settings.seenKeys = {search::PositionKey(after)};
    searcher.ClearTable();
    const search::SearchResult second = searcher.Think(c.position, settings);
    ASSERT_TRUE(second.found) << c.name;
    EXPECT_EQ(second.best != first.best, c.charged) << c.name;
    EXPECT_GE(second.score, first.score - 50) << c.name;
  }
}

// The longer a game goes on, the more a side gives up to leave old ground:
// a game where nothing happens for long needs someone to take a risk.
TEST(SearchRulesTest, OldGroundCostsMoreLateInAGame) {
  Position position = StartPosition(kAlliedNeighbors);
  search::SearchSettings settings = LevelSettings(kLevelMaster, kBalanced, {2, 0, 0});
  MoveList moves;
  ListBranches(position, moves);
  for (int i = 0; i < moves.Count(); ++i) {
    Position after = position;
    ApplyMove(after, moves[i]);
    settings.seenKeys.push_back(search::PositionKey(after));
  }
  const auto scoreAtRound = [&](int round) {
    position.roundNumber = round;
    search::Searcher searcher(1);
    return searcher.Think(position, settings).score;
  };
  // The evaluation weighs the two rounds alike; only the charge differs.
  EXPECT_GE(scoreAtRound(100) - scoreAtRound(200), 150);
}

TEST(SearchKeysTest, KeysFollowTheParts) {
  const Position start = StartPosition(kAlliedNeighbors);
  const std::uint64_t key = search::PositionKey(start);
  Position turn = start;
  turn.currentTeam = kBlue;
  Position castle = start;
  castle.castleRight[0] = false;
  Position fallen = start;
  fallen.kingdomFallen[2] = true;
  Position dungeon = start;
  dungeon.dungeons[0].prisoners.Add({kBlack, kQueen});
  for (const Position* changed : {&turn, &castle, &fallen, &dungeon})
    EXPECT_NE(search::PositionKey(*changed), key);

  // A move and its undo come back to the same key; two moves part.
  MoveList moves;
  ListBranches(start, moves);
  Position played = start;
  Undo undo;
  ApplyMove(played, moves[0], &undo);
  const std::uint64_t afterFirst = search::PositionKey(played);
  EXPECT_NE(afterFirst, key);
  UndoMove(played, moves[0], undo);
  EXPECT_EQ(search::PositionKey(played), key);
  Position other = start;
  ApplyMove(other, moves[1]);
  EXPECT_NE(search::PositionKey(other), afterFirst);

  // A record's keys run from its start to where the game stands.
  Match game{{}, start, {}};
  game.BeginRecord();
  PlayMove(game, moves[0]);
  ListBranches(game.position, moves);
  PlayMove(game, moves[0]);
  const std::vector<std::uint64_t> keys = search::RecordKeys(game.record);
  ASSERT_EQ(keys.size(), 3u);
  EXPECT_EQ(keys[0], key);
  EXPECT_EQ(keys[1], afterFirst);
  EXPECT_EQ(keys[2], search::PositionKey(game.position));
}

TEST(LevelsTest, NamesAndNumbers) {
  struct Case {
    const char* text;
    int level;
  };
  const Case cases[] = {{"classic", 1}, {"club", 2},   {"expert", 3}, {"master", 4}, {"1", 1},
                        {"4", 4},       {"Master", 0}, {"5", 0},      {"0", 0},      {"", 0}};
  for (const Case& c : cases) EXPECT_EQ(ParseLevel(c.text), c.level) << c.text;
  EXPECT_STREQ(LevelName(SeatLevel(7)), "Classic");
}

TEST(LevelsTest, LowerLevelsTakeAShareOfTheBudget) {
  search::SearchLimits master;
  master.nodes = 16000;
  EXPECT_LT(LevelSettings(kLevelClub, kBalanced, master).limits.nodes,
            LevelSettings(kLevelExpert, kBalanced, master).limits.nodes);
  EXPECT_EQ(LevelSettings(kLevelMaster, kBalanced, master).limits.nodes, 16000u);
  EXPECT_EQ(LevelSettings(kLevelMaster, kBalanced, {}).limits.movetimeMs, kMasterMovetimeMs);
}

}  // namespace
}  // namespace varkesh
