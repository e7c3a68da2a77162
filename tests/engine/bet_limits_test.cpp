#include "engine/bet_limits.h"

#include "engine/bet_fixture.h"

namespace feltmaster {
namespace {

class BetLimits : public BetTable {
 protected:
  MoneyAmount Max(int bet) {
    ComputeMaxBet(game, bet);
    return game.MaxBetHere;
  }
  MoneyAmount Min(int bet) {
    ComputeMinBet(game, bet);
    return game.MinBetHere;
  }
  // The odds over a flat Come bet, by one method and multiple for all numbers.
  MoneyAmount Odds(OddsMethod method, MoneyAmount multiple, int number, MoneyAmount flat) {
    game.OddsCalcMethod = method;
    game.OddsAllowed.fill(multiple);
    Stand(BetOnNumber(kComePoint, number), flat);
    return Max(BetOnNumber(kComeOdds, number));
  }
  // The change that becomes of one on a standing amount; the limits are those of the bet.
  MoneyAmount Adjusted(int bet, MoneyAmount standing, MoneyAmount change) {
    Stand(bet, standing);
    ComputeMinBet(game, bet);
    ComputeMaxBet(game, bet);
    game.BetChange = change;
    notes.Clear();
    AutoAdjustBet(game, bet, notes);
    return game.BetChange;
  }

  BetNotes notes;
};

TEST_F(BetLimits, TheTableMinimumIsRoundedUpToTheUnitAndDoesNotBindPropBets) {
  game.MinPlacardBet = 5_usd;
  EXPECT_EQ(Min(kField), 5_usd);
  EXPECT_EQ(Min(kBig8), 5_usd);
  EXPECT_EQ(Min(kPassOdds), 5_usd);
  EXPECT_EQ(Min(kHard4), 1_usd);
  EXPECT_EQ(Min(kHop55), 1_usd);
  SetChips(2_usd, 4_usd, 8_usd, 16_usd, 32_usd);
  EXPECT_EQ(Min(kPassLine), 6_usd);
  EXPECT_EQ(Min(kHorn), 2_usd);
}

TEST_F(BetLimits, PropBetsAreLimitedByWhatTheyPay) {
  EXPECT_EQ(Max(kField), 1000_usd);
  EXPECT_EQ(Max(kHard4), 428_usd);  // 3000 / 7
  EXPECT_EQ(Max(kTwo), 100_usd);
  EXPECT_EQ(Max(kSeven), 750_usd);
  EXPECT_EQ(Max(kOver7), 1000_usd);  // 3000 is past the table maximum
  EXPECT_EQ(Max(kCAndE), 400_usd);   // 6000 / 15, the better of Craps and Eleven
  EXPECT_EQ(Max(kHorn), 400_usd);    // 12000 / 30
  EXPECT_EQ(Max(kWorld), 500_usd);   // 15000 / 30
  SetRow(kSeven, 60_usd, 1_usd);
  EXPECT_EQ(Max(kWorld), 250_usd);
  SetRow(kHard6, 20_usd, 3_usd);  // exactly 450, which a ratio of four places would miss
  EXPECT_EQ(Max(kHard6), 450_usd);
  SetChips(5_usd, 10_usd, 25_usd, 100_usd, 500_usd);
  EXPECT_EQ(Max(kHard4), 425_usd);
}

TEST_F(BetLimits, ARowThatWinsNothingLeavesTheTableMaximum) {
  SetRow(kHard4, 0_usd, 1_usd);
  EXPECT_EQ(Max(kHard4), 1000_usd);
  SetRow(kHard4, -1_usd, 1_usd);
  EXPECT_EQ(Max(kHard4), 1000_usd);
  SetRow(kHard4, 1_usd, 0_usd);
  EXPECT_THROW(Max(kHard4), MoneyDivisionByZero);
}

TEST_F(BetLimits, OddsInMultiplesOfTheFlatBet) {
  EXPECT_EQ(Odds(kFlatNoPush, 3_usd, 4, 7_usd), 21_usd);
  EXPECT_EQ(Odds(kFlatNoPush, 4_usd, 5, 7_usd), 28_usd);
  EXPECT_EQ(Odds(kFlatNoPush, 5_usd, 6, 7_usd), 35_usd);
  EXPECT_EQ(Odds(kFlatNoPush, 2.5_usd, 6, 5_usd), 12_usd);
  EXPECT_EQ(Odds(kFlatNoPush, 100_usd, 6, 8_usd), 800_usd);
  game.MaxOddsBet = 600.5_usd;
  EXPECT_EQ(Odds(kFlatNoPush, 100_usd, 6, 8_usd), 600_usd);
  game.MaxOddsBet = 5000_usd;
  EXPECT_EQ(Odds(kFlatNoPush, 100_usd, 6, 50_usd), 1000_usd) << "the table maximum binds odds too";
}

TEST_F(BetLimits, AMinorPushFillsTheProperUnitWhileUnderOneMoreFlatBet) {
  // 6:5 pays on multiples of 5.
  EXPECT_EQ(Odds(kFlatMinorPush, 2_usd, 6, 8_usd), 20_usd);   // 16: 15, pushed to 20 below 24
  EXPECT_EQ(Odds(kFlatMinorPush, 2_usd, 6, 10_usd), 20_usd);  // clean as it is
  EXPECT_EQ(Odds(kFlatMinorPush, 2_usd, 6, 3_usd), 5_usd);    // 6: 10 would reach 9
  EXPECT_EQ(Odds(kFlatMinorPush, 1_usd, 6, 2_usd), 2_usd);    // 2: nothing proper, 5 is past 4
  EXPECT_EQ(Odds(kFlatMinorPush, 1_usd, 6, 4_usd), 5_usd);    // 0 + 5 is below 8
}

TEST_F(BetLimits, AColorPushPaysInWholeChips) {
  EXPECT_EQ(Odds(kFlatColorPush, 2_usd, 6, 10_usd), 25_usd);    // to red chips, below 30
  EXPECT_EQ(Odds(kFlatColorPush, 2_usd, 6, 5_usd), 10_usd);     // one red chip is no stack
  EXPECT_EQ(Odds(kFlatColorPush, 2_usd, 5, 5_usd), 10_usd);     // 3:2 pays 15
  EXPECT_EQ(Odds(kFlatColorPush, 2_usd, 6, 7_usd), 15_usd);     // 14: in ones
  EXPECT_EQ(Odds(kFlatColorPush, 2_usd, 6, 55_usd), 125_usd);   // to green, 55 is whole fives
  EXPECT_EQ(Odds(kFlatColorPush, 2_usd, 6, 225_usd), 500_usd);  // to black, 225 is whole 25s
  // 1,000,000 at 1:1 in purple is clean; so are all colours, and nothing is pushed.
  game.MaxOddsBet = game.MaxPlacardBet = 9'999'999_usd;
  SetRow(BetOnNumber(kComeOdds, 6), 1_usd, 1_usd);
  EXPECT_EQ(Odds(kFlatColorPush, 2_usd, 6, 1'000'000_usd), 2'000'000_usd);
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

// The push in steps of one dollar, as a dealer would count it out.
MoneyAmount CountedPush(MoneyAmount flat, MoneyAmount allowed, const PayRow& row,
                        MoneyAmount chip) {
  if (UnitsIn(flat, chip) <= 1) return allowed;
  MoneyAmount amount = allowed;
  const auto whole = [&] {
    const __int128 paid = static_cast<__int128>(amount.Raw()) * row.PayNumerator.Raw();
    return paid % (static_cast<__int128>(row.PayDenominator.Raw()) * chip.Raw()) == 0;
  };
  for (int step = 0; step < 20'000; ++step) {
    if (whole()) return amount;
    amount += MoneyAmount(1);
  }
  return allowed;
}

TEST_F(BetLimits, AColorPushIsWhatCountingInDollarsFinds) {
  game.MaxOddsBet = game.MaxPlacardBet = 100'000_usd;
  constexpr int kNumber = 6;
  const int odds = BetOnNumber(kComeOdds, kNumber);
  for (const auto& [numerator, denominator] : {std::pair{6_usd, 5_usd},
                                               {3_usd, 2_usd},
                                               {7_usd, 6_usd},
                                               {1.5_usd, 1.25_usd},
                                               {9_usd, 7_usd},
                                               {2_usd, 1_usd},
                                               {5.5_usd, 3_usd}}) {
    SetRow(odds, numerator, denominator);
    for (const MoneyAmount multiple : {1_usd, 2_usd, 2.5_usd, 3_usd, 10_usd}) {
      for (int flat = 1; flat <= 130; ++flat) {
        const MoneyAmount bet(flat);
        const MoneyAmount allowed = Product(multiple, bet);
        const MoneyAmount bound = allowed + bet;
        const PayRow& row = game.PayTable[static_cast<std::size_t>(odds)];
        MoneyAmount expected;
        const MoneyAmount round[] = {0_usd, 0_usd, 5_usd, 25_usd, 100_usd};
        for (int chip = 4; chip > 0 && expected == 0_usd; --chip) {
          if (round[chip] != 0_usd && !IsMultipleOf(bet, round[chip])) continue;
          const MoneyAmount push =
              CountedPush(bet, allowed, row, game.BetAmount[kFirstChip + chip]);
          if (push > allowed && push < bound) expected = push;
        }
        if (expected == 0_usd) expected = CountedPush(bet, allowed, row, 1_usd);
        EXPECT_EQ(Odds(kFlatColorPush, multiple, kNumber, bet), FloorToUnit(expected, 1_usd))
            << flat << " at " << PlainNumber(multiple) << "x, " << PlainNumber(numerator) << ":"
            << PlainNumber(denominator);
      }
    }
  }
}

TEST_F(BetLimits, SingleOddsRoundTheStackUpToWhatPays) {
  // 6:5. By ones 3 becomes 5, by fives it is no chip.
  EXPECT_EQ(Odds(kFlatSingleOdds, 1_usd, 6, 3_usd), 5_usd);
  EXPECT_EQ(Odds(kFlatSingleOdds, 1_usd, 6, 2_usd), 2_usd) << "less than half of 5 is no stack";
  EXPECT_EQ(Odds(kFlatSingleOdds, 1_usd, 6, 10_usd), 10_usd);
  EXPECT_EQ(Odds(kFlatSingleOdds, 1_usd, 6, 15_usd), 25_usd) << "three red chips become five";
  EXPECT_EQ(Odds(kFlatSingleOdds, 2_usd, 5, 25_usd), 50_usd);
  EXPECT_EQ(Odds(kFlatSingleOdds, 1_usd, 5, 75_usd), 100_usd) << "three green chips become four";
  EXPECT_EQ(Odds(kSingleOddsTimes, 3_usd, 6, 3_usd), 15_usd) << "single odds of 5, three times";
  EXPECT_EQ(Odds(kSingleOddsTimes, 3_usd, 6, 15_usd), 75_usd);
  EXPECT_EQ(Odds(kSingleOddsTimes, 3_usd, 6, 2_usd), 6_usd);
}

TEST_F(BetLimits, AutoSelectTakesTheMethodOfTheMultiple) {
  EXPECT_EQ(Odds(kAutoSelect, 1_usd, 6, 3_usd), 5_usd);     // single odds
  EXPECT_EQ(Odds(kAutoSelect, 2_usd, 6, 10_usd), 25_usd);   // color push
  EXPECT_EQ(Odds(kAutoSelect, 3_usd, 6, 3_usd), 15_usd);    // three times single odds
  EXPECT_EQ(Odds(kAutoSelect, 4_usd, 6, 8_usd), 35_usd);    // 32, pushed in ones
  EXPECT_EQ(Odds(kAutoSelect, 2.5_usd, 6, 5_usd), 12_usd);  // 12.5 as it is
  EXPECT_EQ(Odds(kAutoSelect, 3.5_usd, 6, 3_usd), 10_usd);  // 10.5 as it is
  EXPECT_EQ(Odds(kAutoSelect, 0_usd, 6, 10_usd), 0_usd);
}

TEST_F(BetLimits, PassLineOddsGoByThePointAndTheLastMultipleWithoutOne) {
  game.OddsCalcMethod = kFlatNoPush;
  game.OddsAllowed = {1_usd, 2_usd, 3_usd, 4_usd, 5_usd};
  Stand(kPassLine, 10_usd);
  const int points[] = {2, 12, 3, 11, 4, 10, 5, 9, 6, 8};
  for (int i = 0; i < 10; ++i) {
    SetPoint(points[i]);
    EXPECT_EQ(Max(kPassOdds), MoneyAmount(10 * (i / 2 + 1))) << points[i];
  }
  SetPoint(0);
  EXPECT_EQ(Max(kPassOdds), 50_usd);
}

TEST_F(BetLimits, AdjustingFollowsTheBias) {
  const int place6 = BetOnNumber(kPlace, 6);
  game.AutoAdjustBetAmounts = kMinorCorrection;
  EXPECT_EQ(Adjusted(place6, 0_usd, 10_usd), 12_usd);  // increase
  game.PlaceBias = kDecrease;
  EXPECT_EQ(Adjusted(place6, 0_usd, 10_usd), 6_usd);
  EXPECT_EQ(Adjusted(place6, 0_usd, 3_usd), 6_usd) << "never down to nothing";
  EXPECT_EQ(Adjusted(place6, 12_usd, 2_usd), 6_usd) << "down would take nothing off, so up";
  game.PlaceBias = kNearest;
  EXPECT_EQ(Adjusted(place6, 0_usd, 8_usd), 6_usd);
  EXPECT_EQ(Adjusted(place6, 0_usd, 9_usd), 12_usd) << "up on a tie";
  EXPECT_EQ(Adjusted(place6, 0_usd, 10_usd), 12_usd);
  EXPECT_EQ(Adjusted(place6, 12_usd, 1_usd), 6_usd) << "an increase increases";
  EXPECT_EQ(Adjusted(place6, 12_usd, -1_usd), -6_usd) << "and a decrease decreases";
  // A nearest of its own for each group.
  game.PlaceBias = kIncrease;
  EXPECT_EQ(Adjusted(place6, 24_usd, -4_usd), -6_usd) << "a bias to increase takes more off";
  const int lay6 = BetOnNumber(kLay, 6);  // 5:6
  EXPECT_EQ(Adjusted(lay6, 0_usd, 8_usd), 6_usd);
  game.LayBias = kIncrease;
  EXPECT_EQ(Adjusted(lay6, 0_usd, 8_usd), 12_usd);
  game.LayBias = kDecrease;
  EXPECT_EQ(Adjusted(lay6, 0_usd, 11_usd), 6_usd);
}

TEST_F(BetLimits, OddsAdjustByTheirOwnBiasAndPoint) {
  game.AutoAdjustBetAmounts = kMinorCorrection;
  game.OddsAllowed.fill(10_usd);
  Stand(kPassLine, 10_usd);
  SetPoint(5);  // 3:2
  EXPECT_EQ(Adjusted(kPassOdds, 0_usd, 7_usd), 8_usd);
  game.DoBias = kDecrease;
  EXPECT_EQ(Adjusted(kPassOdds, 0_usd, 7_usd), 6_usd);
  SetPoint(6);  // 6:5
  EXPECT_EQ(Adjusted(kPassOdds, 0_usd, 7_usd), 5_usd);
  const int come9 = BetOnNumber(kComePoint, 9);
  Stand(come9, 10_usd);
  game.DoBias = kIncrease;
  EXPECT_EQ(Adjusted(BetOnNumber(kComeOdds, 9), 0_usd, 7_usd), 8_usd);
}

TEST_F(BetLimits, TheNearestChoicePrefersWholeMultiplesOfTheChange) {
  game.AutoAdjustBetAmounts = kMinorCorrection;
  game.PlaceBias = kNearest;
  const int place6 = BetOnNumber(kPlace, 6);
  // 18 + 4 lies nearer to 24 either way; 24 is a whole number of 4s.
  EXPECT_EQ(Adjusted(place6, 18_usd, 4_usd), 6_usd);
  // 0 + 20: 24 is no multiple of 20, 18 neither: the nearer, 18.
  EXPECT_EQ(Adjusted(place6, 0_usd, 20_usd), 18_usd);
  // 18 + 2.5 is nearer to 18, but 24 would be no multiple; an increase must not come to nothing.
  SetChips(0.5_usd, 1_usd, 5_usd, 25_usd, 100_usd);
  EXPECT_EQ(Adjusted(place6, 18_usd, 2.5_usd), 3_usd);
}

TEST_F(BetLimits, ColorCorrectionUsesTheChipsOfTheRequest) {
  game.AutoAdjustBetAmounts = kColorCorrection;
  const int place6 = BetOnNumber(kPlace, 6);
  EXPECT_EQ(Adjusted(place6, 0_usd, 100_usd), 120_usd) << "red chips: multiples of 30";
  EXPECT_EQ(Adjusted(place6, 0_usd, 103_usd), 108_usd) << "in ones: multiples of 6";
  EXPECT_EQ(Adjusted(place6, 0_usd, 10_usd), 12_usd) << "30 would be past the request";
  EXPECT_EQ(Adjusted(place6, 0_usd, 5_usd), 6_usd);
  EXPECT_EQ(Adjusted(place6, 100_usd, 0_usd), 20_usd) << "of a standing bet the chips of the bet";
  game.PlaceBias = kNearest;
  EXPECT_EQ(Adjusted(place6, 0_usd, 100_usd), 90_usd);
  EXPECT_EQ(game.OddsChangeUp, 120_usd);
  EXPECT_EQ(game.OddsChangeDown, 90_usd);
  game.AutoAdjustBetAmounts = kMinorCorrection;
  EXPECT_EQ(Adjusted(place6, 0_usd, 100_usd), 102_usd);
}

TEST_F(BetLimits, ColorCorrectionGivesWayToTheMinorOneBetweenTightLimits) {
  game.AutoAdjustBetAmounts = kColorCorrection;
  game.MinPlacardBet = 98_usd;
  game.MaxPlacardBet = 110_usd;
  EXPECT_EQ(Adjusted(BetOnNumber(kPlace, 6), 0_usd, 100_usd), 102_usd);
  game.MinPlacardBet = 97_usd;
  game.MaxPlacardBet = 101_usd;
  EXPECT_EQ(Adjusted(BetOnNumber(kPlace, 6), 0_usd, 100_usd), 101_usd);
  EXPECT_EQ(notes.Text(), "Unable to auto-adjust bet for proper odds payoff.");
  EXPECT_EQ(Adjusted(BetOnNumber(kPlace, 6), 101_usd, -1_usd), -101_usd);
  EXPECT_TRUE(notes.Empty());
}

TEST_F(BetLimits, OddsAtTheirMaximumAreAdjustedInMinorUnits) {
  game.AutoAdjustBetAmounts = kColorCorrection;
  game.OddsCalcMethod = kFlatNoPush;
  game.OddsAllowed.fill(2_usd);
  const int odds6 = BetOnNumber(kComeOdds, 6);
  Stand(BetOnNumber(kComePoint, 6), 59_usd);
  EXPECT_EQ(Adjusted(odds6, 0_usd, 118_usd), 115_usd);
  EXPECT_EQ(Adjusted(odds6, 0_usd, 110_usd), 110_usd);
}

TEST_F(BetLimits, DenominatorsWithAFraction) {
  game.AutoAdjustBetAmounts = kMinorCorrection;
  const int place6 = BetOnNumber(kPlace, 6);
  SetRow(place6, 1.4_usd, 1.2_usd);
  // A fifth of a dollar divides the unit five times: multiples of 6.
  EXPECT_EQ(Adjusted(place6, 0_usd, 10_usd), 12_usd);
  EXPECT_TRUE(notes.Empty());
  SetChips(0.25_usd, 1_usd, 5_usd, 25_usd, 100_usd);
  EXPECT_EQ(Adjusted(place6, 0_usd, 10_usd), 10_usd);
  EXPECT_EQ(notes.Text(), "Unable to auto-adjust bet for proper odds payoff.");
}

TEST_F(BetLimits, TheVigIsRoundedToTheUnitAndNeverLessThanOne) {
  const int buy4 = BetOnNumber(kBuy, 4);
  const auto vig = [&](MoneyAmount amount) { return VigOf(game, buy4, amount); };
  EXPECT_EQ(vig(20_usd), 1_usd);
  EXPECT_EQ(vig(10_usd), 1_usd) << "half a dollar goes down, but a dollar is the least";
  EXPECT_EQ(vig(30_usd), 1_usd) << "1.50 is rounded down";
  EXPECT_EQ(vig(31_usd), 2_usd);
  EXPECT_EQ(vig(0_usd), 0_usd);
  game.BuyVigRounding = kRoundDown;
  EXPECT_EQ(vig(39_usd), 1_usd);
  game.BuyVigRounding = kRoundUp;
  EXPECT_EQ(vig(40_usd), 2_usd);
  EXPECT_EQ(vig(41_usd), 3_usd);
  game.BuyVigPct = 0_usd;
  EXPECT_EQ(vig(41_usd), 0_usd);
  game.BuyVigPct = 0.05_usd;
  SetChips(0.25_usd, 1_usd, 5_usd, 25_usd, 100_usd);
  EXPECT_EQ(vig(42_usd), 2.25_usd);
}

TEST_F(BetLimits, TheLayVigIsOnTheWinnings) {
  EXPECT_EQ(VigOf(game, BetOnNumber(kLay, 4), 40_usd), 1_usd);
  EXPECT_EQ(VigOf(game, BetOnNumber(kLay, 4), 400_usd), 10_usd);
  EXPECT_EQ(VigOf(game, BetOnNumber(kLay, 6), 120_usd), 5_usd);
  SetRow(BetOnNumber(kLay, 4), -1_usd, 1_usd);
  EXPECT_EQ(VigOf(game, BetOnNumber(kLay, 4), 400_usd), 1_usd) << "no winnings: the least";
  EXPECT_EQ(VigOf(game, kField, 400_usd), 0_usd);
  ComputeBuyVig(game, BetOnNumber(kLay, 4), 400_usd);
  EXPECT_EQ(game.BuyVigAmount, 0_usd);
}

}  // namespace
}  // namespace feltmaster
