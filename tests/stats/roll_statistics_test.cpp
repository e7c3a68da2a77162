#include "stats/roll_statistics.h"

#include <gtest/gtest.h>

#include <set>

namespace feltmaster {
namespace {

void Count(Game& game, int die1, int die2) {
  BeginRollStatistics(game);
  game.PrevPoint = game.Point;
  game.Die1 = die1;
  game.Die2 = die2;
  game.DiceTotal = die1 + die2;
  RecordRollStatistics(game);
}

std::set<int> EventsHit(int die1, int die2) {
  Game game;
  Count(game, die1, die2);
  std::set<int> events;
  for (int category = 1; category < kRollCategories; ++category) {
    if (RollCounts(game, category) != 0) events.insert(category);
  }
  return events;
}

TEST(RollEvents, OfSomePairs) {
  EXPECT_EQ(EventsHit(5, 5), (std::set<int>{82, 88, 16, 10, 21, 17, 19, 68, 71}));
  EXPECT_EQ(EventsHit(1, 1), (std::set<int>{78, 84, 2, 21, 65, 66, 20, 69, 74}));
  EXPECT_EQ(EventsHit(2, 1), (std::set<int>{79, 84, 23, 3, 21, 65, 66, 20, 70, 74, 75}));
  EXPECT_EQ(EventsHit(3, 4), (std::set<int>{80, 87, 43, 7, 47, 65, 76}));
  EXPECT_EQ(EventsHit(6, 5), (std::set<int>{83, 88, 64, 11, 21, 65, 66, 70, 76, 77}));
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

TEST(Hands, EndWithASevenOut) {
  Game game;
  Count(game, 1, 1);  // a come-out 2 is a point
  EXPECT_EQ(game.Point, 2);
  EXPECT_EQ(game.GameCounters[kPointsEstablished], 1);
  EXPECT_EQ(game.GameCounters[kComeOutRolls], 1);
  EXPECT_EQ(game.GameCounters[kTotalPasses], 0);
  Count(game, 1, 1);
  HandPassed(game);
  EXPECT_EQ(game.GameCounters[kPassesOnPoint], 1);
  Count(game, 3, 4);
  HandPassed(game);
  EXPECT_EQ(game.GameCounters[kPassesOnComeOut], 1);
  Count(game, 4, 4);
  Count(game, 6, 1);
  HandMissed(game);
  EXPECT_EQ(game.GameCounters[kHandsCompleted], 1);
  EXPECT_EQ(game.GameCounters[kLastHandRolls], 5);
  EXPECT_EQ(game.GameCounters[kLastHandPasses], 2);
  EXPECT_EQ(game.GameCounters[kLastHandMisses], 1);
  EXPECT_EQ(game.GameCounters[kRollsThisHand], 0);
  EXPECT_EQ(game.GameCounters[kMissesThisHand], 0);
  EXPECT_EQ(game.GameCounters[kLongestHandRolls], 5);
}

}  // namespace
}  // namespace feltmaster
