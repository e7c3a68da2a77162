#include "stats/bankroll_history.h"

#include <gtest/gtest.h>

namespace feltmaster {
namespace {

MoneyAmount Dollars(std::int64_t whole) {
  return MoneyAmount::FromWhole(whole);
}

void Track(Game& game, MoneyAmount bankroll) {
  game.BetAmount.Set(kBankroll, bankroll);
  ++game.Events[0].count;
  TrackBankroll(game);
}

TEST(BankrollHistory, AverageWithoutRollsIsZero) {
  Game game;
  EXPECT_EQ(MovingAverage(game, true, 0, 0), Dollars(0));
  EXPECT_EQ(MovingAverage(game, true, 0, 10), Dollars(0));
  Track(game, Dollars(5));
  EXPECT_EQ(MovingAverage(game, false, 1, 0), Dollars(0));
  EXPECT_EQ(MovingAverage(game, false, 1, 10), Dollars(0));
}

TEST(GraphScale, GrowsUntilThePageFits) {
  Game game;
  RestartGraph(game);
  game.GraphHigh = Dollars(900);
  game.GraphLow = Dollars(-200);
  DrawGraph(game, true);
  EXPECT_EQ(game.GraphScale, Dollars(10));
  EXPECT_EQ(game.GraphTop, Dollars(2000));
  EXPECT_GE(game.GraphLow, game.GraphTop - game.GraphScale.Times(300));
  game.GraphHigh = Dollars(4'000'000'000);
  DrawGraph(game, true);
  EXPECT_EQ(game.GraphScale, Dollars(100'000));
}

TEST(GraphScale, OfTheThreeKinds) {
  for (const int kind : {0, 1, 2}) {
    Game game;
    game.GraphAdjustType = kind;
    game.GraphScale = Dollars(4);
    game.GraphHigh = Dollars(100);
    DrawGraph(game, false);
    EXPECT_EQ(game.GraphScale, kind == 2 ? Dollars(1) : Dollars(4)) << kind;
  }
}

}  // namespace
}  // namespace feltmaster
