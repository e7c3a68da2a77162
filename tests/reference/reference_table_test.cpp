// The reference table against cases worked by hand, before anything is held against it.
#include "reference/reference_table.h"

#include <gtest/gtest.h>

#include <utility>

namespace reference {
namespace {

constexpr Raw Dollars(double amount) {
  return static_cast<Raw>(amount * kOne + (amount < 0 ? -0.5 : 0.5));
}

ReferenceTable TableWith(double bankroll) {
  ReferenceTable table;
  table.bet_amount[0] = Dollars(bankroll);
  table.RestartGraph();
  return table;
}

TEST(ReferenceTable, LineAndOddsThroughAPoint) {
  ReferenceTable table = TableWith(1000);
  table.handle_winning_bets = 2;
  table.PlaceChips(51, Dollars(10));
  table.Roll(4, 2);
  EXPECT_EQ(table.point, 6);
  table.PlaceChips(52, Dollars(500));
  EXPECT_EQ(table.bet_amount[52], Dollars(25));
  table.PlaceChips(51, Dollars(5));
  EXPECT_EQ(table.bet_amount[51], Dollars(10));
  table.RemoveAllBets();
  EXPECT_EQ(table.bet_amount[51], Dollars(10));
  EXPECT_EQ(table.bet_amount[52], 0);
  table.PlaceChips(52, Dollars(25));
  table.Roll(3, 3);
  EXPECT_EQ(table.bet_amount[0], Dollars(1040));
  EXPECT_EQ(table.bet_amount[51], Dollars(10));
  EXPECT_EQ(table.bet_amount[52], 0);
  table.Roll(3, 4);
  EXPECT_EQ(table.bet_amount[0], Dollars(1050));
  EXPECT_EQ(table.game_counters[8], 1);
  EXPECT_EQ(table.game_counters[9], 1);
  table.Roll(1, 1);
  table.Roll(3, 4);
  EXPECT_EQ(table.bet_amount[0], Dollars(1040));
  EXPECT_EQ(table.game_counters[3], 5);
  EXPECT_EQ(table.bet_streak[51][1], -1);
  EXPECT_EQ(table.bet_streak[51][0], 2);
}

TEST(ReferenceTable, VigUpFrontOnALay) {
  ReferenceTable table = TableWith(100);
  table.PlaceChips(3, Dollars(40));
  EXPECT_EQ(table.total_on_table, Dollars(41));
  table.Roll(3, 4);
  EXPECT_EQ(table.bet_amount[0], Dollars(119));
  EXPECT_EQ(table.total_on_table, 0);
  table.PlaceChips(3, Dollars(40));
  table.Roll(2, 2);
  EXPECT_EQ(table.bet_amount[0], Dollars(78));
  EXPECT_EQ(table.results.wagers[1][3][2], Dollars(82));
  EXPECT_EQ(table.results.wins[0][3][2], Dollars(0.475));
  EXPECT_EQ(table.results.losses[0][3][2], Dollars(1.025));
}

TEST(ReferenceTable, AmountsMoveToWhatPaysCleanly) {
  const auto placed = [](int bias, double request, double unit = 1) {
    ReferenceTable table = TableWith(1000);
    table.bet_amount[95] = Dollars(unit);
    table.place_bias = bias;
    table.PlaceChips(35, Dollars(request));
    return std::pair(table.bet_amount[35], table.bet_change);
  };
  EXPECT_EQ(placed(1, 10).first, Dollars(12));
  EXPECT_EQ(placed(2, 10).first, Dollars(6));
  EXPECT_EQ(placed(1, 60).first, Dollars(60));
  EXPECT_EQ(placed(1, 100).first, Dollars(120));  // in units of six $5 chips
  EXPECT_EQ(placed(1, 0.1, 0.25).first, Dollars(1.5));
}

TEST(ReferenceTable, SplitBetsAndPushes) {
  ReferenceTable table = TableWith(100);
  table.handle_losing_bets = 2;
  table.auto_adjust = 0;
  table.pay_table[63].numerator = 3 * kOne;
  table.PlaceChips(69, Dollars(5));
  table.Roll(3, 4);
  EXPECT_EQ(table.bet_amount[69], Dollars(4));
  EXPECT_EQ(table.bet_amount[0], Dollars(99));
  table.PlaceChips(67, Dollars(2));
  table.Roll(5, 6);
  EXPECT_EQ(table.bet_amount[0], Dollars(99 + 14 + 8));  // World: 15 fifths less 4 fifths of 4
  table.PlaceChips(68, Dollars(4));
  table.Roll(6, 6);
  EXPECT_EQ(table.bet_amount[0], Dollars(121 + 27));
}

TEST(ReferenceTable, ComeBetsTravelAndOddsRest) {
  ReferenceTable table = TableWith(1000);
  table.auto_take_full_odds = true;
  table.PlaceChips(51, Dollars(10));
  table.Roll(2, 2);
  EXPECT_EQ(table.bet_amount[52], Dollars(20));
  table.PlaceChips(53, Dollars(10));
  table.Roll(4, 5);
  EXPECT_EQ(table.bet_amount[53], 0);
  EXPECT_EQ(table.bet_amount[17], Dollars(10));
  EXPECT_EQ(table.bet_amount[27], Dollars(20));
  table.Roll(3, 1);
  EXPECT_EQ(table.bet_amount[0], Dollars(1050));
  table.Roll(5, 2);  // a come-out seven: the odds rest and come back, the flat bet is lost
  EXPECT_EQ(table.bet_amount[0], Dollars(1040));
  EXPECT_EQ(table.bet_amount[27], 0);
  EXPECT_EQ(table.total_on_table, 0);
}

TEST(ReferenceTable, GapsAndPages) {
  ReferenceTable table = TableWith(0);
  for (int i = 0; i < 200; ++i) table.Roll(1, 3);
  table.Roll(6, 6);
  EXPECT_EQ(table.roll_gap_table[12][200], 1);
  EXPECT_EQ(table.roll_gap_table[12][0], 201);
  EXPECT_EQ(table.roll_gap_table[24][1], 200);
  for (int i = 201; i < 525; ++i) {
    table.Withdraw(Dollars(1));
    table.Roll(1, 3);
  }
  EXPECT_EQ(table.bankroll_history_count, 525);
  EXPECT_EQ(table.bankroll_averages[525], Dollars(324 - 59.5));
  table.Withdraw(Dollars(1));
  table.Roll(1, 3);
  EXPECT_EQ(table.bankroll_history_count, 1);
  EXPECT_EQ(table.bankroll_history[0], Dollars(526));
  EXPECT_EQ(table.bankroll_history[1050], Dollars(324));
  EXPECT_EQ(table.bankroll_averages[1], Dollars(325 - 59.5));
  EXPECT_EQ(table.graph_top, Dollars(450));
}

}  // namespace
}  // namespace reference
