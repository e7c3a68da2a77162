#include "stats/bankroll_history.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

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

TEST(BankrollHistory, TurnsThePageAfter525Rolls) {
  Game game;
  RestartGraph(game);
  for (int roll = 1; roll <= 525; ++roll) Track(game, Dollars(roll));
  EXPECT_EQ(game.BankrollHistoryCount, 525);
  EXPECT_EQ(game.BankrollHistory[0], Dollars(1));
  Track(game, Dollars(1000));
  EXPECT_EQ(game.BankrollHistoryCount, 1);
  EXPECT_EQ(game.BankrollHistory[0], Dollars(526));
  EXPECT_EQ(game.BankrollHistory[1], Dollars(1000));
  EXPECT_EQ(game.BankrollHistory[526], Dollars(1));
  EXPECT_EQ(game.BankrollHistory[1050], Dollars(525));
  EXPECT_EQ(game.GraphHigh, Dollars(1000));
  EXPECT_EQ(game.GraphLow, Dollars(1000));
  EXPECT_EQ(game.BankrollHigh, Dollars(1000));
}

// The averages are computed when they are read; a ledger that computes each at its roll agrees,
// whenever somebody looks.
TEST(BankrollHistory, AveragesAgreeWithEagerOnes) {
  for (const int window : {0, 1, 120, 525}) {
    Game game;
    game.GraphAverageRolls = window;
    RestartGraph(game);
    std::vector<MoneyAmount> all;
    std::vector<MoneyAmount> eager(kGraphRolls + 1);
    std::mt19937 random(11);
    std::uniform_int_distribution<int> step(-30'000, 30'000);
    MoneyAmount bankroll = Dollars(500);
    for (int roll = 1; roll <= 1700; ++roll) {
      bankroll += MoneyAmount::FromRaw(step(random));
      Track(game, bankroll);
      all.push_back(bankroll);
      const std::size_t in_window =
          window == 0 ? all.size()
                      : std::min<std::size_t>(all.size(), static_cast<std::size_t>(window));
      MoneyAmount sum;
      for (std::size_t i = all.size() - in_window; i < all.size(); ++i) sum += all[i];
      eager[static_cast<std::size_t>(game.BankrollHistoryCount)] =
          Quotient(sum, Dollars(static_cast<std::int64_t>(in_window)));
      EXPECT_EQ(MovingAverage(game, true, game.BankrollHistoryCount, window),
                eager[static_cast<std::size_t>(game.BankrollHistoryCount)]);
      if (roll % 397 == 0 || roll == 1700) {
        for (int position = 1; position <= kGraphRolls; ++position) {
          ASSERT_EQ(BankrollAverage(game, position), eager[static_cast<std::size_t>(position)])
              << "window " << window << ", roll " << roll << ", position " << position;
        }
      }
    }
  }
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
