#include "stats/roll_statistics.h"

#include <gtest/gtest.h>

namespace feltmaster {
namespace {

void Count(Game& game, int die1, int die2) {
  BeginRollStatistics(game);
  game.PrevPoint = game.Point;
  game.Die1 = die1;
  game.Die2 = die2;
  game.DiceTotal = die1 + die2;
  RecordRollStatistics(game, PairOfDice(die1, die2));
}

TEST(RollEvents, ProbablePercentFollowsTheWays) {
  Game game;
  EXPECT_FLOAT_EQ(ProbablePercent(game, 2, false), 2.78f);
  EXPECT_FLOAT_EQ(ProbablePercent(game, 7, false), 16.67f);
  EXPECT_FLOAT_EQ(ProbablePercent(game, 26, false), 5.56f);
  EXPECT_FLOAT_EQ(ProbablePercent(game, 17, false), 66.67f);
  EXPECT_FLOAT_EQ(ProbablePercent(game, 89, false), 16.67f);
  EXPECT_EQ(ProbablePercent(game, 0, false), 0);
  EXPECT_EQ(ProbablePercent(game, 1, false), 0);
  EXPECT_EQ(ProbablePercent(game, 90, false), 0);

  game.DiceProbability[1][1][5] = 16'000;   // the total 6
  game.DiceProbability[1][1][7] = 14'500;   // the total 8
  game.DiceProbability[1][3][3] = 1'250;    // 2-2
  game.DiceProbability[1][7][12] = 20'000;  // first die 6
  EXPECT_FLOAT_EQ(ProbablePercent(game, 73, true), 30.5f);
  EXPECT_FLOAT_EQ(ProbablePercent(game, 13, true), 1.25f);
  EXPECT_FLOAT_EQ(ProbablePercent(game, 83, true), 20.0f);
}

TEST(RollStatistics, CellsCanBeWrittenAsTheyAre) {
  Game game;
  for (int i = 0; i < 5; ++i) Count(game, 1, 3);
  SetRollsSinceLast(game, 7, 2'000'000'000);
  SetScriptRollsSince(game, 24, -3);
  SetScriptRollCountsSeen(game, 24, 77);
  EXPECT_EQ(RollsSinceLast(game, 7), 2'000'000'000);
  EXPECT_EQ(ScriptRollsSince(game, 24), -3);
  EXPECT_EQ(ScriptRollCountsSeen(game, 24), 77);
  Count(game, 2, 2);
  EXPECT_EQ(ScriptRollsSinceSeen(game, 24), -3);
  EXPECT_EQ(ScriptRollCountsSeen(game, 24), 5);
}

TEST(RollStatistics, AFullCounterFromAFileDoesNoHarm) {
  Game game;
  constexpr std::int32_t kFull = 2'147'483'647;
  for (int i = 0; i < kRollCategories; ++i) SetRollCounts(game, i, kFull);
  game.GameCounters.fill(kFull);
  SetRollsSinceLast(game, 7, kFull);
  GapCell(game, 7, 0) = kFull;
  Count(game, 3, 4);
  HandMissed(game);
  EXPECT_EQ(RollsSinceLast(game, 7), 0);
  EXPECT_EQ(GapsOf(game, 7)[200], 1);
}

}  // namespace
}  // namespace feltmaster
