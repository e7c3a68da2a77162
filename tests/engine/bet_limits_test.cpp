#include "engine/bet_limits.h"

#include "engine/bet_fixture.h"

namespace feltmaster {
namespace {

// What random tables do not come to; all else is held against the reference table.
class BetLimits : public BetTable {
 protected:
  MoneyAmount Max(int bet) {
    ComputeMaxBet(game, bet);
    return game.MaxBetHere;
  }
  // The odds over a flat Come bet, by one method and multiple for all numbers.
  MoneyAmount Odds(OddsMethod method, MoneyAmount multiple, int number, MoneyAmount flat) {
    game.OddsCalcMethod = method;
    game.OddsAllowed.fill(multiple);
    Stand(BetOnNumber(kComePoint, number), flat);
    return Max(BetOnNumber(kComeOdds, number));
  }
};

TEST_F(BetLimits, ARowThatWinsNothingLeavesTheTableMaximum) {
  SetRow(kHard4, 0_usd, 1_usd);
  EXPECT_EQ(Max(kHard4), 1000_usd);
  SetRow(kHard4, -1_usd, 1_usd);
  EXPECT_EQ(Max(kHard4), 1000_usd);
  SetRow(kHard4, 1_usd, 0_usd);
  EXPECT_THROW(Max(kHard4), MoneyDivisionByZero);
}

TEST_F(BetLimits, AVigIsForBuyAndLayBetsAlone) {
  EXPECT_EQ(VigOf(game, kField, 400_usd), 0_usd);
  EXPECT_EQ(VigOf(game, BetOnNumber(kLay, 4), 400_usd), 10_usd);
  ComputeBuyVig(game, BetOnNumber(kLay, 4), 400_usd);
  EXPECT_EQ(game.BuyVigAmount, 0_usd);
}

TEST_F(BetLimits, AColorPushEndsForEverySetting) {
  // Half a dollar over a whole one is never paid in whole dollars at 1:1.
  SetRow(BetOnNumber(kComeOdds, 6), 1_usd, 1_usd);
  EXPECT_EQ(Odds(kFlatColorPush, 2.5_usd, 6, 5_usd), 12_usd);
  game.MaxOddsBet = game.MaxPlacardBet = 900'000'000'000_usd;
  SetRow(BetOnNumber(kComeOdds, 6), 0.0001_usd, 99'999'999'999_usd);
  EXPECT_EQ(Odds(kFlatColorPush, 2_usd, 6, 300'000'000'001_usd), 600'000'000'002_usd);
  SetRow(BetOnNumber(kComeOdds, 6), 0_usd, 7_usd);
  EXPECT_EQ(Odds(kFlatColorPush, 2_usd, 6, 10_usd), 20_usd);
}

}  // namespace
}  // namespace feltmaster
