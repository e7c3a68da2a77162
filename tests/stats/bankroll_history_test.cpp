#include "stats/bankroll_history.h"

#include <gtest/gtest.h>

namespace feltmaster {
namespace {

MoneyAmount Dollars(std::int64_t whole) {
  return MoneyAmount::FromWhole(whole);
}

void Track(Game& game, MoneyAmount bankroll) {
  game.BetAmount.Set(kBankroll, bankroll);
  ++game.EventCounts[0];
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

// Two games with the same bankrolls: the averages of one are read after each roll, those of the
// other once, in the middle of a page.
TEST(BankrollHistory, AveragesOfAPageThatNobodyReadAreThere) {
  for (const std::int32_t window : {0, 1, 120, 525}) {
    for (const int rolls : {524, 525, 526, 1049, 1051, 1580, 2103}) {
      Game read;
      Game unread;
      for (Game* game : {&read, &unread}) {
        RestartGraph(*game);
        game->GraphAverageRolls = window;
      }
      for (int roll = 1; roll <= rolls; ++roll) {
        const MoneyAmount bankroll = Dollars(roll * 7919 % 1000);
        Track(read, bankroll);
        SettleAverages(read);
        Track(unread, bankroll);
      }
      for (int position = 1; position <= kGraphRolls; ++position) {
        ASSERT_EQ(BankrollAverage(unread, position), BankrollAverage(read, position))
            << "position " << position << " after " << rolls << " rolls, window " << window;
      }
    }
  }
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
