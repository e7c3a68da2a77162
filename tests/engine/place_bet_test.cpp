#include "engine/place_bet.h"

#include <gmock/gmock.h>

#include <string>

#include "engine/bet_fixture.h"
#include "engine/entry_box.h"

namespace feltmaster {
namespace {

using testing::EndsWith;
using testing::HasSubstr;

constexpr std::int32_t kActions = kButtonOk | kHideActions;
constexpr std::int32_t kLimits = kButtonOk | kHideLimits;
constexpr std::int32_t kCharges = kButtonOk | kHideCharges;

class PlaceBetTest : public BetTable {
 protected:
  static int Come(int number) { return BetOnNumber(kComePoint, number); }
  static int ComeOdds(int number) { return BetOnNumber(kComeOdds, number); }
  static int Place(int number) { return BetOnNumber(kPlace, number); }
  static int Buy(int number) { return BetOnNumber(kBuy, number); }
  static int Lay(int number) { return BetOnNumber(kLay, number); }

  void ExpectMessage(const std::string& title, const std::string& text, std::int32_t options) {
    const RecordingSurface::Message message = TakeMessage();
    EXPECT_EQ(message.title, title);
    EXPECT_EQ(message.text, text);
    EXPECT_EQ(message.options, options);
  }
  void ExpectSilence() { EXPECT_EQ(TakeMessage(), RecordingSurface::Message()); }
};

TEST_F(PlaceBetTest, IncreasesThatTheTableRefuses) {
  const auto refused = [&](int bet, const std::string& title, const std::string& text) {
    EXPECT_EQ(Bet(bet, 5_usd), 0_usd);
    EXPECT_EQ(game.BetAmount[bet], 0_usd);
    ExpectMessage(title, text, kActions);
  };
  refused(kComeBox, "Come Bet", "You may not make a Come bet until \na point is established.");
  const std::string needs_line =
      "You may not make a Pass Line Odds Bet unless \nyou also have a Pass Line bet and a point is "
      "established.";
  refused(kPassOdds, "Pass Line Odds Bet", needs_line);
  SetPoint(6);
  refused(kPassOdds, "Pass Line Odds Bet", needs_line);
  refused(ComeOdds(12), "Come 12 Odds Bet",
          "You may not make an odds bet here until \nyou have established a Come 12 bet.");
  const std::string no_put =
      "You may not directly make or increase an\nestablished Pass Line or Come bet.\n\n(Unless you "
      "check \"Allow Put Bets\" on\nthe Configuration screen.)";
  refused(kPassLine, "Pass Line Bet", no_put);
  refused(Come(2), "Come 2 Bet", no_put);
  game.AllowPutBets = true;
  EXPECT_EQ(Bet(kPassLine, 5_usd), 5_usd);
  EXPECT_EQ(Bet(Come(2), 5_usd), 5_usd);
  EXPECT_EQ(Bet(kPassOdds, 5_usd), 5_usd);
  EXPECT_EQ(Bet(ComeOdds(2), 5_usd), 5_usd);
  ExpectSilence();
}

TEST_F(PlaceBetTest, ARefusalDoesNotNeedAMessage) {
  game.NotifyFlags = kNoticeLimits | kNoticeCharges;
  EXPECT_EQ(Bet(kComeBox, 5_usd), 0_usd);
  game.NotifyFlags = kNoticeActions;
  game.HyperDriveActive = true;
  EXPECT_EQ(Bet(kComeBox, 5_usd), 0_usd);
  EXPECT_EQ(Chips(kComeBox, 5_usd), 0_usd);
  ExpectSilence();
  EXPECT_EQ(game.MsgText, "");
  EXPECT_EQ(surface.change_calls, 0);
}

TEST_F(PlaceBetTest, EstablishedBetsCannotBeReducedButPutMoneyCan) {
  game.AllowPutBets = true;
  Bet(kPassLine, 5_usd);
  SetPoint(8);
  Stand(Come(4), 10_usd);
  BeginRoll();
  EXPECT_EQ(Bet(kPassLine, -1_usd), 0_usd);
  ExpectMessage("Pass Line Bet",
                "You may not decrease or remove your Pass Line bet \nonce a point has been "
                "established.",
                kActions);
  EXPECT_EQ(Bet(Come(4), -10_usd), 0_usd);
  ExpectMessage("Come 4 Bet",
                "You may not decrease or remove Come bets \nonce their points have been "
                "established.",
                kActions);
  EXPECT_EQ(Bet(kPassLine, 15_usd), 15_usd);
  EXPECT_EQ(Bet(kPassLine, -20_usd), -15_usd);
  EXPECT_EQ(game.BetAmount[kPassLine], 5_usd);
  ExpectSilence();
  SetPoint(0);
  EXPECT_EQ(Bet(kPassLine, -5_usd), -5_usd) << "on the come-out it comes down";
}

TEST_F(PlaceBetTest, TheMinimumBringsSmallBetsUpAndReducedOnesDown) {
  game.MinPlacardBet = 5_usd;
  EXPECT_EQ(Bet(kField, 2_usd), 5_usd);
  ExpectMessage("Field Bet", "Minimum bet here is $5\nwhich is being bet.", kLimits);
  EXPECT_EQ(game.MsgText, "");
  EXPECT_EQ(Bet(kField, -1_usd), -5_usd);
  ExpectSilence();
  EXPECT_EQ(Bet(kHard4, 2_usd), 2_usd);
  // A minimum that the odds of the bet do not fit.
  EXPECT_EQ(Bet(Place(6), 2_usd), 6_usd);
  ExpectMessage("Place 6 Bet",
                "Minimum bet here is $5\n\nMinimum bet for proper odds payoff here is: $6\n"
                "which is being bet.",
                kLimits);
}

TEST_F(PlaceBetTest, TheMaximumCutsTheRequest) {
  EXPECT_EQ(Bet(kField, 1500_usd), 1000_usd);
  ExpectMessage("Field Bet", "Maximum bet here is: $1,000\nwhich is being bet.", kLimits);
  EXPECT_EQ(Bet(kField, 1_usd), 0_usd);
  ExpectMessage("Field Bet", "Maximum bet here is: $1,000\nwhich is already bet.", kLimits);
  game.AutoAdjustBetAmounts = kMinorCorrection;
  EXPECT_EQ(Bet(Place(6), 1500_usd), 996_usd);
  ExpectMessage("Place 6 Bet",
                "Maximum bet here is: $1,000\n\nMaximum bet for proper odds payoff here is: $996\n"
                "which is being bet.",
                kLimits);
  game.AutoAdjustBetAmounts = kColorCorrection;
  EXPECT_EQ(Bet(Place(8), 1500_usd), 600_usd) << "in black chips, of which 1,000 is ten";
  surface.messages.clear();
  // A standing bet above a lowered maximum comes down to it with any request.
  game.MaxPlacardBet = 500_usd;
  EXPECT_EQ(Bet(kField, -5_usd), -500_usd);
  ExpectMessage("Field Bet", "Maximum bet here is: $500\nwhich is being bet.", kLimits);
  // Halves in the amount show two decimals.
  SetChips(0.5_usd, 1_usd, 5_usd, 25_usd, 100_usd);
  game.MaxPlacardBet = 2500.5_usd;
  EXPECT_EQ(Bet(kBig6, 3000_usd), 2500.5_usd);
  ExpectMessage("Big 6 Bet", "Maximum bet here is: $2,500.50\nwhich is being bet.", kLimits);
}

TEST_F(PlaceBetTest, AFieldThatDecidesNothingCanStillBeBet) {
  for (PayRow& row : game.FieldPayTable) row.PayNumerator = MoneyAmount();
  game.PayTable[kField].PayDenominator = MoneyAmount();  // as leaving the Configure screen sets it
  EXPECT_EQ(Bet(kField, 5_usd), 5_usd);
  EXPECT_EQ(Bet(kField, -5_usd), -5_usd);
  ExpectSilence();
}

TEST_F(PlaceBetTest, ABetThatCannotBeProperIsSaidToBeSo) {
  game.MinPlacardBet = 97_usd;
  game.MaxPlacardBet = 101_usd;
  EXPECT_EQ(Bet(Place(6), 100_usd), 101_usd);
  ExpectMessage("Place 6 Bet", "Unable to auto-adjust bet for proper odds payoff.", kLimits);
  EXPECT_EQ(Bet(Place(8), 300_usd), 101_usd);
  ExpectMessage("Place 8 Bet",
                "Maximum bet here is: $101\n\nUnable to auto-adjust bet for proper odds payoff.",
                kLimits);
  // A fifth of a dollar divides the unit five times, but not the quarter.
  game.MinPlacardBet = 1_usd;
  game.MaxPlacardBet = 1000_usd;
  game.AutoAdjustBetAmounts = kMinorCorrection;
  SetRow(Place(5), 1.4_usd, 1.2_usd);
  EXPECT_EQ(Bet(Place(5), 10_usd), 12_usd);
  ExpectSilence();
  SetRow(Place(9), 1.4_usd, 1.2_usd);
  SetChips(0.25_usd, 1_usd, 5_usd, 25_usd, 100_usd);
  EXPECT_EQ(Bet(Place(9), 10_usd), 10_usd);
  ExpectMessage("Place 9 Bet", "Unable to auto-adjust bet for proper odds payoff.", kLimits);
}

TEST_F(PlaceBetTest, TheBankrollBoundsTheBetsWhenItMayNotGoNegative) {
  game.AllowNegBankroll = false;
  SetBankroll(30_usd);
  const std::string head =
      "You don't have enough bankroll remaining to bet the full amount requested.\n\nYour options "
      "are: \n";
  const std::string tail =
      "      - Make a withdrawal from the ATM.\n      - Allow negative bankroll amounts.";
  EXPECT_EQ(Bet(kField, 50_usd), 30_usd);
  ExpectMessage("Field Bet", head + tail, kLimits);
  Bet(kField, -10_usd);
  EXPECT_EQ(Bet(Place(6), 12_usd), 6_usd);
  ExpectMessage("Place 6 Bet",
                "Maximum bet for proper odds payoff here is: $6\n\n" + head +
                    "      - Bet less on other bets.\n" + tail,
                kLimits);
  EXPECT_EQ(game.MsgText, "");
  // What is left over cannot pay for the minimum.
  game.MinPlacardBet = 5_usd;
  EXPECT_EQ(Bet(kBig8, 10_usd), 0_usd);
  ExpectMessage("Big 8 Bet",
                "Minimum bet here is $5\n\n" + head + "      - Bet less on other bets.\n" + tail,
                kLimits);
  EXPECT_EQ(game.TotalOnTable, 26_usd);
}

TEST_F(PlaceBetTest, HugeRequestsAreAnsweredAtOnce) {
  game.AllowNegBankroll = false;
  game.MaxPlacardBet = MoneyAmount::FromWhole(900'000'000'000);
  SetChips(0.01_usd, 1_usd, 5_usd, 25_usd, 100_usd);
  SetBankroll(1_usd);
  EXPECT_EQ(Bet(kField, MoneyAmount::FromWhole(900'000'000'000)), 1_usd);
  EXPECT_EQ(Bet(Buy(4), MoneyAmount::FromRaw(INT64_MAX)), 0_usd);
  EXPECT_EQ(Bet(Lay(4), MoneyAmount::FromRaw(INT64_MIN)), 0_usd);
  EXPECT_EQ(Bet(kFirstStack + 5, MoneyAmount::FromRaw(INT64_MAX)),
            MoneyAmount::FromRaw(999'999'999'999'999'999));
  EXPECT_EQ(game.TotalOnTable, 1_usd);
}

TEST_F(PlaceBetTest, BrokenRulesThrowAndLeaveTheTableAsItWas) {
  Stand(Place(6), 12_usd);
  SetRow(Place(6), 7_usd, 0_usd);
  EXPECT_THROW(Bet(Place(6), 6_usd), MoneyDivisionByZero);
  SetChips(0_usd, 5_usd, 25_usd, 100_usd, 500_usd);
  EXPECT_THROW(Bet(kField, 6_usd), MoneyDivisionByZero);
  SetPoint(6);
  Stand(kPassLine, 5_usd);
  EXPECT_THROW(TakeAllFullOdds(game), MoneyDivisionByZero);
  EXPECT_EQ(game.NotifyFlags, 15) << "notices come back";
  EXPECT_EQ(game.TotalOnTable, BetsAndVig());
  EXPECT_EQ(game.BetAmount[Place(6)], 12_usd);
}

TEST_F(PlaceBetTest, BuyBetsTellTheirVig) {
  EXPECT_EQ(Bet(Buy(4), 20_usd), 20_usd);
  ExpectMessage("Buy 4 Bet", "Total \"Vig\" charge: $1", kCharges);
  EXPECT_EQ(game.BuyVigPaid[2], 1_usd);
  EXPECT_EQ(game.TotalOnTable, 21_usd);
  EXPECT_EQ(Bet(Buy(4), 5_usd), 5_usd);
  ExpectSilence();  // still a dollar
  Bet(Buy(4), 15_usd);
  ExpectMessage("Buy 4 Bet", "\"Vig\" increased by: $1\n\nTotal \"Vig\" charge: $2", kCharges);
  Bet(Buy(4), -15_usd);
  ExpectMessage("Buy 4 Bet", "\"Vig\" decreased by: $1\n\nTotal \"Vig\" charge: $1", kCharges);
  Bet(Buy(4), -25_usd);
  ExpectMessage("Buy 4 Bet", "\"Vig\" charge returned: $1", kCharges);
  EXPECT_EQ(game.TotalOnTable, 0_usd);
  EXPECT_EQ(game.BuyVigPaid[2], 0_usd);
}

TEST_F(PlaceBetTest, LayBetsTellWhatTheirVigWouldBe) {
  game.LayVigAllBets = false;
  Bet(Lay(4), 40_usd);
  ExpectMessage("Lay 4 Bet", "If you win, the \"Vig\" charge will be: $1", kCharges);
  EXPECT_EQ(game.LayVigPaid[2], 1_usd);
  EXPECT_EQ(game.TotalOnTable, 40_usd);
  Bet(Lay(4), 40_usd);
  ExpectMessage("Lay 4 Bet",
                "\"Vig\" increased by: $1\n\nIf you win, the \"Vig\" charge will be: $2", kCharges);
  Bet(Lay(4), -80_usd);
  ExpectSilence();
  game.NotifyFlags = kNoticeActions | kNoticeLimits;
  Bet(Lay(4), 40_usd);
  ExpectSilence();
}

TEST_F(PlaceBetTest, ChipStacksHoldAnyAmountWithinTheirLimit) {
  const int stack = kFirstStack + 57;
  EXPECT_EQ(Bet(stack, -12.3456_usd), -12.3456_usd);
  EXPECT_EQ(game.TotalOnTable, 0_usd);
  ExpectSilence();
  const MoneyAmount limit = MoneyAmount::FromRaw(999'999'999'999'999'999);
  EXPECT_EQ(Bet(stack, limit + 100_usd), limit + 12.3456_usd);
  ExpectMessage("Chip-Stack #57",
                "Maximum Chip-Stack value is: $99,999,999,999,999.9999\nwhich is being stacked.",
                kLimits);
  EXPECT_EQ(Bet(stack, 1_usd), 0_usd);
  ExpectMessage("Chip-Stack #57",
                "Maximum Chip-Stack value is: $99,999,999,999,999.9999\nwhich is already stacked.",
                kLimits);
  EXPECT_EQ(Bet(kFirstStack + 1, -limit - 1_usd), -limit);
  ExpectMessage("Chip-Stack #1",
                "Minimum Chip-Stack value is: $-99,999,999,999,999.9999\nwhich is being stacked.",
                kLimits);
  EXPECT_EQ(game.MsgText, "");
}

TEST_F(PlaceBetTest, ChipsAreHeardAndSeenOutsideHyperDrive) {
  game.ChipSoundList = {"one.chp", "two.chp"};
  game.ChipSoundChoice = 2;
  Chips(kField, 5_usd);
  EXPECT_THAT(surface.sounds, testing::ElementsAre(RecordingSurface::Sound{"two.chp", false}));
  EXPECT_TRUE(surface.changed & kChangedChips);
  EXPECT_TRUE(surface.changed & kChangedAmounts);
  EXPECT_FALSE(game.RefreshBetAmounts);
  game.DisplayBetAmounts = true;
  game.CallBetMode = 3;
  Chips(kField, 0_usd);  // nothing changes
  EXPECT_TRUE(game.RefreshBetAmounts);
  EXPECT_EQ(game.CallBetMode, 0);
  game.AutoBetRunning = true;
  Chips(kField, 5_usd);
  game.AutoBetRunning = false;
  game.ChipSoundChoice = 3;  // no such clip
  Chips(kField, 5_usd);
  game.ChipSoundChoice = 2;
  game.AllSoundOff = true;
  Chips(kField, 5_usd);
  EXPECT_EQ(surface.sounds.size(), 1u);
  game.AllSoundOff = false;
  const int calls = surface.change_calls;
  game.HyperDriveActive = true;
  Chips(kField, 5_usd);
  EXPECT_EQ(surface.sounds.size(), 1u);
  EXPECT_EQ(surface.change_calls, calls);
}

TEST_F(PlaceBetTest, PlaceBetsCanBeBought) {
  Bet(Place(4), 25_usd);
  CallBet(game, Place(4), kCallOff);
  game.KeyInBetAmounts = true;
  MoveEntryBox(game, Place(4));
  BuyPlaceBet(game, Place(4));
  EXPECT_EQ(game.BetAmount[Place(4)], 0_usd);
  EXPECT_EQ(game.BetAmount[Buy(4)], 25_usd);
  EXPECT_EQ(game.BetState[Buy(4)], kCalledOff);
  EXPECT_EQ(game.EntryBoxBet, Buy(4));
  EXPECT_EQ(TextInEntryBox(game), "25");
  ExpectMessage("Buy 4 Bet", "Total \"Vig\" charge: $1", kCharges);

  Bet(Place(4), 50_usd);
  BuyPlaceBet(game, Place(4));
  EXPECT_EQ(game.BetAmount[Buy(4)], 50_usd) << "in place of the old Buy bet, not on top of it";
  surface.messages.clear();

  BuyPlaceBet(game, Place(5));  // empty
  BuyPlaceBet(game, Buy(4));
  ExpectSilence();
  Bet(kField, 5_usd);
  BuyPlaceBet(game, kField);
  ExpectMessage("Field Bet", "You may not buy this bet.", kActions);
  Bet(kFirstStack + 1, 5_usd);
  BuyPlaceBet(game, kFirstStack + 1);
  ExpectMessage("Chip-Stack # 1", "You may not buy Chip-Stacks.", kActions);
}

TEST_F(PlaceBetTest, BetsAreCalledOnAndOff) {
  for (const int bet :
       {int{kPassLine}, Come(2), Come(4), Come(10), Come(11), Place(6), int{kField}}) {
    Stand(bet, 10_usd);
  }
  CallBet(game, kBig6, kCallOn);  // empty
  EXPECT_EQ(game.BetState[kBig6], kWorking);
  for (const int bet : {int{kPassLine}, Come(4), Come(10)}) {
    CallBet(game, bet, kCallOff);
    ExpectMessage(TitleOfBet(game, bet), "You may not call this bet ON or OFF.", kActions);
    EXPECT_EQ(game.BetState[bet], kWorking);
  }
  for (const int bet : {Come(2), Come(11), Place(6)}) {
    CallBet(game, bet, kCallOff);
    EXPECT_EQ(game.BetState[bet], kCalledOff);
    CallBet(game, bet, kCallOff);
    EXPECT_EQ(game.BetState[bet], kCalledOff);
    CallBet(game, bet, kCallOn);
    EXPECT_EQ(game.BetState[bet], IsPlace(bet) ? kNotWorking : kWorking) << "back to its rule";
    CallBet(game, bet, kCallOn);
    EXPECT_EQ(game.BetState[bet], kCalledOn);
  }
  Bet(kFirstStack + 50, 5_usd);
  CallBet(game, kFirstStack + 50, kCallOn);
  ExpectMessage("Chip-Stack #50", "You may not call Chip-Stacks ON or OFF.", kActions);

  CallAllBets(game, kCallOff);
  EXPECT_EQ(game.BetState[Place(6)], kNotWorking);
  EXPECT_EQ(game.BetState[kField], kCalledOff);
  EXPECT_EQ(game.BetState[Come(2)], kCalledOn);
  EXPECT_EQ(game.BetState[kPassLine], kWorking);
  EXPECT_TRUE(game.GameChanged);
  ExpectSilence();
}

TEST_F(PlaceBetTest, KeyedInAmountsReplaceTheBet) {
  const auto enter = [&](int bet, const std::string& text) {
    MoveEntryBox(game, bet);
    EditEntryBox(game, text);
    return CommitEnteredBet(game);
  };
  EXPECT_TRUE(enter(Place(6), "12"));
  EXPECT_EQ(game.BetAmount[Place(6)], 12_usd);
  EXPECT_TRUE(enter(Place(6), "12.00"));
  EXPECT_TRUE(enter(Place(6), "6"));
  EXPECT_EQ(game.BetAmount[Place(6)], 6_usd);
  EXPECT_FALSE(enter(kField, "1,500")) << "cut to the maximum, and said so";
  EXPECT_EQ(TextInEntryBox(game), "1000");
  EXPECT_EQ(game.BetAmount[kField], 1000_usd);
  surface.messages.clear();

  EXPECT_FALSE(enter(Buy(4), "40"));
  ExpectMessage("Buy 4 Bet", "Total \"Vig\" charge: $2", kCharges);
  EXPECT_FALSE(enter(Buy(4), "20"));
  ExpectMessage("Buy 4 Bet", "Total \"Vig\" charge: $1", kCharges);
  EXPECT_TRUE(enter(Buy(4), ""));
  EXPECT_EQ(game.BetAmount[Buy(4)], 0_usd);
  EXPECT_TRUE(enter(kFirstStack + 3, "-5.25"));
  EXPECT_EQ(game.BetAmount[kFirstStack + 3], -5.25_usd);

  // A refusal stops the roll that was to follow, also when nothing is shown.
  Bet(kPassLine, 10_usd);
  SetPoint(6);
  BeginRoll();
  game.NotifyFlags = 0;
  EXPECT_FALSE(enter(kPassLine, "15"));
  EXPECT_EQ(game.BetAmount[kPassLine], 10_usd);
  EXPECT_EQ(TextInEntryBox(game), "10");
  EXPECT_EQ(game.TotalOnTable, BetsAndVig());
}

TEST_F(PlaceBetTest, BetsAndStacksCanBeDragged) {
  const auto drag = [this](int from, int to) {
    LiftForDrag(game, from);
    DropDragged(game, to);
  };
  Bet(Place(6), 12_usd);
  drag(Place(6), Place(8));
  EXPECT_EQ(game.BetAmount[Place(6)], 0_usd);
  EXPECT_EQ(game.BetAmount[Place(8)], 12_usd);
  drag(Place(8), kFirstStack + 2);
  EXPECT_EQ(game.BetAmount[kFirstStack + 2], 12_usd);
  drag(kFirstStack + 2, kRail);
  EXPECT_EQ(game.BetAmount[kFirstStack + 2], 0_usd);
  EXPECT_EQ(game.DragAmount, 0_usd);
  Bet(kPassLine, 10_usd);
  SetPoint(6);
  BeginRoll();
  drag(kPassLine, kField);
  EXPECT_EQ(game.BetAmount[kPassLine], 10_usd);
  EXPECT_EQ(game.BetAmount[kField], 0_usd) << "a contract cannot be dragged";
  EXPECT_THAT(TakeMessage().text, HasSubstr("once a point has been established."));
}

TEST_F(PlaceBetTest, TheAtmMovesMoneyWithinTheLimitsOfTheBank) {
  SetBankroll(9'999'900_usd);
  ATMTransaction(game, Atm::kWithdraw, 50_usd);
  ExpectSilence();
  ATMTransaction(game, Atm::kWithdraw, 500_usd);
  ExpectMessage("ATM Withdrawal",
                "Requested amount:  $500\nAllowed amount:  $49\n\nThe full amount of this "
                "transaction was not allowed since it would have caused the current bankroll to "
                "exceed the bank limit of $9,999,999",
                kActions);
  EXPECT_EQ(game.BetAmount[kBankroll], 9'999'999_usd);
  EXPECT_EQ(game.AmountInvested, 99_usd);
  ATMTransaction(game, Atm::kDeposit, 9'999'999_usd);
  EXPECT_EQ(game.BetAmount[kBankroll], 0_usd);
  EXPECT_EQ(game.AmountInvested, -9'999'900_usd);
  ATMTransaction(game, Atm::kDeposit, 10'000'000_usd);
  ExpectMessage("ATM Deposit",
                "Requested amount:  $10,000,000\nAllowed amount:  $9,999,999\n\nThe full amount of "
                "this transaction was not allowed since it would have caused your current bankroll "
                "to exceed the bank limit of $-9,999,999",
                kActions);
  game.NotifyFlags = 0;
  ATMTransaction(game, Atm::kDeposit, 1_usd);
  ExpectSilence();
  EXPECT_EQ(game.BetAmount[kBankroll], -9'999'999_usd);
  // Past the limit nothing is pushed back in.
  SetBankroll(10'500'000_usd);
  ATMTransaction(game, Atm::kWithdraw, 1_usd);
  EXPECT_EQ(game.BetAmount[kBankroll], 10'500'000_usd);
}

TEST_F(PlaceBetTest, DepositsAreBoundByTheBetsWhenTheBankrollMayNotGoNegative) {
  game.AllowNegBankroll = false;
  const std::string head =
      "\n\nThe full amount of this transaction was not allowed since it would have ";
  const std::string box =
      "\n\nYou can deposit more by checking the box marked, \"Allow negative bankroll amounts\"";
  Bet(kField, 300_usd);
  ATMTransaction(game, Atm::kDeposit, 800_usd);
  ExpectMessage("ATM Deposit",
                "Requested amount:  $800\nAllowed amount:  $700" + head +
                    "caused your current bankroll to drop below the amount of your current bets." +
                    box +
                    " on the Configuration screen, and/or by reducing the amount of your current "
                    "bets.",
                kActions);
  EXPECT_EQ(game.BetAmount[kBankroll], 300_usd);
  EXPECT_EQ(game.AmountInvested, -700_usd);
  RemoveAllBets(game);
  game.NotifyFlags = 0;
  ATMTransaction(game, Atm::kDeposit, 800.5_usd, true);
  ExpectMessage("ATM Deposit",
                "Requested amount:  $800.50\nAllowed amount:  $300" + head +
                    "resulted in a negative current bankroll." + box + ".",
                kButtonOk);
}

}  // namespace
}  // namespace feltmaster
