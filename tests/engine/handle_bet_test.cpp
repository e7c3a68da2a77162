#include "engine/handle_bet.h"

#include <gmock/gmock.h>

#include <string>
#include <utility>
#include <vector>

#include "engine/bet_fixture.h"
#include "engine/resolve.h"

namespace feltmaster {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class HandleBetTest : public BetTable {
 protected:
  // The dice decide one bet, as the roll does.
  void Resolve(int bet, int die1, int die2, int mode) {
    BeginRoll();
    game.PrevPoint = game.Point;
    game.Die1 = die1;
    game.Die2 = die2;
    game.DiceTotal = die1 + die2;
    surface.messages.clear();
    ResolveBet(game, mode, bet);
  }
  void Quiet() { game.NotifyFlags = kNoticeActions | kNoticeLimits; }

  // The rows of the settle dialog that came up, as "label|amount", bold ones with a star.
  std::vector<std::string> Rows(std::size_t dialog = 0) {
    std::vector<std::string> rows;
    if (dialog >= surface.settles.size()) return rows;
    for (const auto& row : surface.settles[dialog].rows) {
      rows.push_back((row.bold ? "*" : "") + row.label + "|" + row.amount);
    }
    return rows;
  }
  std::string Title() { return surface.settle_titles.empty() ? "" : surface.settle_titles[0]; }
  void ExpectReport(const std::string& title, const std::string& text) {
    const RecordingSurface::Message message = TakeMessage();
    EXPECT_EQ(message.title, title);
    EXPECT_EQ(message.text, text);
    EXPECT_EQ(message.options, kButtonOk | kHideCharges);
  }

  static constexpr int kPlace6 = kPlace + 4;
  static constexpr int kLay4 = kLay + 2;
  static constexpr int kBuy4 = kBuy + 2;
};

TEST_F(HandleBetTest, TheBiasesComeBackAfterAParlayThatFails) {
  game.CurrentBet = kPlace6;
  game.PayoffNet = 7_usd;
  Stand(kPlace6, 6_usd);
  SetRow(kPlace6, 7_usd, 0_usd);
  EXPECT_THROW(ParlayBet(game), MoneyDivisionByZero);
  EXPECT_EQ(game.PlaceBias, kIncrease);
}

TEST_F(HandleBetTest, ReportsCompareWithTheStartOfTheRoll) {
  game.AutoAdjustBetAmounts = kMinorCorrection;
  const auto win = [&](std::int32_t rule) {
    Stand(kPlace6, 12_usd);
    game.BetState.Set(kPlace6, kWorking);
    game.HandleWinningBets = rule;
    Resolve(kPlace6, 5, 1, kWins);
  };
  win(3);
  ExpectReport("Press 1 Unit Place 6", "Bet increased by: $6");
  win(4);
  ExpectReport("Press Double Place 6", "Bet increased by: $12");
  win(5);
  ExpectReport("Parlay Place 6", "Bet increased by: $12");
  win(6);  // "+" of nothing
  ExpectReport("Place 6", "No change in bet amount.");
  win(7);
  ExpectReport("Place 6", "Bet decreased by: $12");
  win(2);
  EXPECT_EQ(TakeMessage().text, "") << "the same bet is no news";
  game.MaxPlacardBet = 6_usd;
  win(2);
  ASSERT_EQ(surface.messages.size(), 2u);
  EXPECT_EQ(surface.messages[1].title, "Place 6");
  EXPECT_EQ(surface.messages[1].text, "Bet decreased by: $6");
  win(1);
  EXPECT_EQ(TakeMessage().text, "");
  game.HyperDriveActive = true;
  win(4);
  EXPECT_EQ(TakeMessage().text, "");
}

TEST_F(HandleBetTest, OptionsThatAreTooLargeOrMeanNothing) {
  Quiet();
  game.AutoAdjustBetAmounts = kAdjustManually;
  game.CurrentBet = kPlace6;
  const auto apply = [&](std::int32_t option, std::int32_t math, MoneyAmount amount, int units) {
    const auto cell = static_cast<std::size_t>(option - kFirstHandleOption);
    game.HandleChoiceTag[cell] = math;
    game.HandleAmount[cell] = amount;
    game.HandleUnits[cell] = MoneyAmount(units);
    Stand(kPlace6, 40_usd);
    BeginRoll();
    option == kAutoLostBet ? SetBetAmount(game, option) : ModifySameBet(game, option);
    EXPECT_EQ(game.TotalOnTable, BetsAndVig());
    return game.BetAmount[kPlace6];
  };
  const MoneyAmount most = MoneyAmount::FromRaw(INT64_MAX);
  EXPECT_EQ(apply(kAutoWonSame, 0, most, 6), 1000_usd) << "up to the limit";
  EXPECT_EQ(apply(kAutoWonSame, 1, most, 6), 0_usd);
  EXPECT_EQ(apply(kAutoWonSame, 2, most, 0), 1000_usd);
  EXPECT_EQ(apply(kAutoWonSame, 3, 0_usd, 0), 40_usd);
  EXPECT_EQ(apply(kAutoLostBet, 0, most, 4), 1000_usd);
  EXPECT_EQ(apply(kAutoLostBet, 0, 3_usd, 1), 0_usd) << "a percentage means nothing here";
}

TEST_F(HandleBetTest, HyperDriveTakesDownWhatWouldBeAsked) {
  game.HyperDriveActive = true;
  game.HandleLosingBets = kHandleManually;
  Stand(kField, 20_usd);
  Resolve(kField, 3, 4, kWins);
  EXPECT_EQ(game.BetAmount[kField], 0_usd);
  Stand(kField, 20_usd);
  Resolve(kField, 6, 6, kWins);
  EXPECT_EQ(game.BetAmount[kField], 0_usd);
  EXPECT_THAT(surface.settles, IsEmpty());
  EXPECT_THAT(surface.messages, IsEmpty());
  EXPECT_EQ(surface.change_calls, 0);
  game.HandleWinningBets = 9;  // no rule at all
  Stand(kField, 20_usd);
  Resolve(kField, 6, 6, kWins);
  EXPECT_EQ(game.BetAmount[kField], 0_usd);
}

TEST_F(HandleBetTest, WonBetsAskWithTheirRows) {
  Stand(kPlace6, 13_usd);
  game.BetState.Set(kPlace6, kWorking);
  game.LastWinChoice = 1;
  game.HandleAmount[kDialogWonSame - kFirstHandleOption] = 3_usd;
  game.HandleUnits[kDialogWonBet - kFirstHandleOption] = 4_usd;
  Resolve(kPlace6, 5, 1, kWins);
  ASSERT_EQ(surface.settles.size(), 1u);
  const SettleRequest& request = surface.settles[0];
  EXPECT_EQ(Title(), "* * * Winner * * *");
  EXPECT_THAT(Rows(), ElementsAre("Place 6 bet:|$13", "Payoff at 7 to 6:|$15.1667",
                                  "*Net payoff (rounded): |$15"));
  EXPECT_THAT(request.captions,
              ElementsAre("&Take Bet and Winnings", "&Same Bet - Take Winnings",
                          "Press 1 &Unit - Add $6 to Bet", "Press - Add Winnings to &Double Bet",
                          "Parlay - Add &All Winnings to Bet", "Sa&me Bet:", "&Bet:"));
  EXPECT_EQ(request.help, 500);
  EXPECT_TRUE(request.won);
  EXPECT_FALSE(request.only_take_down);
  EXPECT_EQ(request.default_button, 1);
  EXPECT_EQ(request.options[0].amount, 3_usd);
  EXPECT_EQ(request.options[1].units, 4);
  EXPECT_FALSE(game.Settle.filled);
  EXPECT_EQ(game.BetAmount[kPlace6], 18_usd) << "the same bet, put right";
}

TEST_F(HandleBetTest, AnAnswerIsRememberedWithItsOptions) {
  Quiet();
  SettleReply reply;
  reply.button = 5;
  reply.options[0] = {2, 3_usd, 0};
  reply.options[1] = {1, 7_usd, 2};
  reply.stop_rolling = true;
  surface.settle_replies = {reply, reply};
  game.KeepRolling = true;
  Stand(kField, 10_usd);
  Resolve(kField, 1, 3, kWins);
  EXPECT_EQ(game.BetAmount[kField], 30_usd);
  EXPECT_EQ(game.LastWinChoice, 5);
  EXPECT_EQ(game.HandleChoiceTag[kDialogWonSame - kFirstHandleOption], 2);
  EXPECT_EQ(game.HandleAmount[kDialogWonBet - kFirstHandleOption], 7_usd);
  EXPECT_EQ(game.HandleUnits[kDialogWonBet - kFirstHandleOption], 2_usd);
  EXPECT_TRUE(game.KeepRolling) << "only Auto-Roll is stopped from the dialog";

  game.HandleLosingBets = kHandleManually;
  game.AutoRollDice = true;
  Resolve(kField, 3, 4, kWins);
  EXPECT_FALSE(game.KeepRolling);
  EXPECT_EQ(game.BetAmount[kField], 90_usd);
  EXPECT_EQ(game.LastLossChoice, 5);
  EXPECT_EQ(game.HandleChoiceTag[kDialogLostSame - kFirstHandleOption], 2);
  EXPECT_THAT(surface.settles[1].captions,
              ElementsAre("No Bet/Take Remainder", "Bet Remainder", "Same Bet",
                          "Press 1 &Unit - Add $5 to Bet", "Double Bet", "Sa&me Bet:", "&Bet:"));
  EXPECT_FALSE(surface.settles[1].won);
  EXPECT_EQ(surface.settles[1].help, 501);
}

TEST_F(HandleBetTest, ABetThatMustComeDownLeavesOneButton) {
  SetPoint(4);
  const int come6 = kComePoint + 4;
  game.LastWinChoice = 4;
  Stand(come6, 10_usd);
  SettleReply reply;
  reply.button = 4;  // a surface that does not keep to it
  surface.settle_replies = {reply};
  Resolve(come6, 3, 3, kWins);
  EXPECT_TRUE(surface.settles[0].only_take_down);
  EXPECT_EQ(surface.settles[0].default_button, 0);
  EXPECT_EQ(game.BetAmount[come6], 0_usd);
  EXPECT_EQ(game.LastWinChoice, 0);
}

TEST_F(HandleBetTest, RowsOfSplitBets) {
  Stand(kCAndE, 10_usd);
  Resolve(kCAndE, 5, 6, kWins);
  EXPECT_THAT(Rows(0), ElementsAre("C and E bet:|$10", "1/2 of bet:|$5", "Payoff at 15 to 1:|$75",
                                   "Less 1/2 of bet:|$-5", "*Net payoff: |$70"));
  Stand(kHorn, 5_usd);
  Resolve(kHorn, 6, 6, kWins);
  EXPECT_THAT(Rows(1), ElementsAre("Horn bet:|$5", "1/4 of bet:|$1.25", "Payoff at 30 to 1:|$37.50",
                                   "Less 3/4 of bet:|$-3.75", "*Net payoff (rounded): |$33"));
  SetRow(kSeven, 6_usd, 1_usd, false);
  Stand(kWorld, 5_usd);
  Resolve(kWorld, 3, 4, kWins);
  EXPECT_THAT(Rows(2), ElementsAre("World bet:|$5", "1/5 of bet:|$1", "Payoff at 7 for 1:|$6",
                                   "Less 4/5 of bet:|$-4", "*Net payoff: |$2"));
}

TEST_F(HandleBetTest, AWinTooSmallForTheUnitIsAPush) {
  SetChips(5_usd, 10_usd, 25_usd, 100_usd, 500_usd);
  Stand(kLay + 0, 10_usd);
  game.LayVigAllBets = false;
  Resolve(kLay + 0, 3, 4, kWins);
  EXPECT_EQ(Title(), "Push");
  EXPECT_EQ(game.BetAmount[kBankroll], 1000_usd);
  EXPECT_EQ(game.BetStreak.Now(kLay), 0);
}

TEST_F(HandleBetTest, AWonLayBetAndItsVig) {
  Bet(kLay4, 40_usd);
  EXPECT_EQ(game.TotalOnTable, 41_usd);
  surface.settle_replies.resize(1);
  surface.settle_replies[0].button = 4;  // parlay
  Resolve(kLay4, 3, 4, kWins);
  EXPECT_THAT(Rows(), ElementsAre("Lay 4 bet:|$40", "Payoff at 1 to 2:|$20", "-5% vig:|$-1",
                                  "*Net payoff: |$19"));
  EXPECT_EQ(game.BetAmount[kBankroll], 1019_usd);
  EXPECT_EQ(game.PayoffNet, 20_usd) << "handling works with the winnings before vig";
  EXPECT_EQ(game.BetAmount[kLay4], 60_usd);
  EXPECT_EQ(game.LayVigPaid[2], 1_usd) << "of 30, 1.50, rounded down: charged anew";
  EXPECT_EQ(game.TotalOnTable, 61_usd);
}

TEST_F(HandleBetTest, AWonBuyBetShowsItsRate) {
  game.BuyVigPct = 0.0525_usd;
  game.BuyVigAllBets = false;
  Bet(kBuy4, 20_usd);
  game.BetState.Set(kBuy4, kWorking);
  Resolve(kBuy4, 1, 3, kWins);
  EXPECT_THAT(Rows(), ElementsAre("Buy 4 bet:|$20", "Payoff at 2 to 1:|$40", "-5.25% vig:|$-1",
                                  "*Net payoff: |$39"));
  EXPECT_EQ(game.BetAmount[kBuy4], 0_usd);
  EXPECT_EQ(game.TotalOnTable, 0_usd);
  EXPECT_EQ(game.BuyVigPaid[2], 0_usd);
}

TEST_F(HandleBetTest, LostBetsShowWhatRemains) {
  game.HandleLosingBets = kHandleManually;
  Bet(kLay4, 40_usd);
  Resolve(kLay4, 1, 3, kLoses);
  EXPECT_EQ(Title(), "Bet Lost");
  EXPECT_THAT(Rows(0), ElementsAre("Lay 4 bet:|$40", "Loss at -1 to 1:|$-40", "-5% vig:|$-1",
                                   "*Net loss: |$-41", "*Remainder: |$0"));
  EXPECT_EQ(game.BetAmount[kBankroll], 959_usd);
  EXPECT_EQ(game.TotalOnTable, 0_usd);

  game.LayVigAllBets = false;
  Bet(kLay4, 40_usd);
  Resolve(kLay4, 1, 3, kLoses);
  EXPECT_THAT(Rows(1), ElementsAre("Lay 4 bet:|$40", "Loss at -1 to 1:|$-40", "*Remainder: |$0"));

  // A part of a World bet is left when its Seven pays less than the other parts cost.
  SetRow(kSeven, 3_usd, 1_usd);
  Stand(kWorld, 5_usd);
  surface.settle_replies.resize(1);
  surface.settle_replies[0].button = 1;  // bet the remainder
  game.AutoAdjustBetAmounts = kAdjustManually;
  Resolve(kWorld, 3, 4, kWins);
  EXPECT_THAT(Rows(2), ElementsAre("World bet:|$5", "Payoff at 3 to 1:|$-1", "*Remainder: |$4"));
  EXPECT_EQ(game.BetAmount[kWorld], 4_usd);
}

TEST_F(HandleBetTest, ALossThatIsRoundedSaysSo) {
  game.HandleLosingBets = kHandleManually;
  SetRow(kSeven, 3_usd, 1_usd);
  Stand(kWorld, 4_usd);
  Resolve(kWorld, 3, 4, kWins);  // 2.40 - 3.20
  EXPECT_THAT(Rows(), ElementsAre("World bet:|$4", "Payoff at 3 to 1:|$-.80",
                                  "*Net loss (rounded): |$-1", "*Remainder: |$3"));
}

TEST_F(HandleBetTest, OddsThatDoNotWorkComeBack) {
  const int come6 = kComePoint + 4;
  game.AllowPutBets = true;
  Stand(come6, 10_usd);
  Stand(come6 + 10, 25_usd);
  Resolve(come6 + 10, 3, 4, kOddsLose);
  EXPECT_EQ(Title(), "Odds Bet Returned");
  EXPECT_THAT(Rows(), ElementsAre("Come 6 Odds bet:|$25", "wasn't working!|"));
  EXPECT_EQ(surface.settles[0].help, 500);
  EXPECT_FALSE(surface.settles[0].only_take_down);
  EXPECT_EQ(game.BetAmount[come6 + 10], 0_usd);
  EXPECT_EQ(game.BetAmount[kBankroll], 1000_usd);
}

TEST_F(HandleBetTest, DecisionsStopAutoRollAndReturnTheDice) {
  game.HandleWinningBets = 1;
  game.DiceAction = kDiceReturnOnDecision;
  game.DiceReturned = false;
  game.KeepRolling = true;
  game.AutoStopOn[kStopOnWin] = game.AutoStopOn[kStopOnLoss] = true;
  const auto roll = [&](bool won) {
    Stand(kField, 5_usd);
    Resolve(kField, won ? 6 : 3, won ? 6 : 4, kWins);
  };
  roll(true);
  EXPECT_TRUE(game.KeepRolling) << "Auto-Roll is off";
  EXPECT_TRUE(game.DiceReturned);
  EXPECT_TRUE(surface.changed & kChangedDice);
  for (const bool won : {true, false}) {
    game.AutoRollDice = game.KeepRolling = true;
    roll(won);
    EXPECT_FALSE(game.KeepRolling);
    game.KeepRolling = game.HyperDriveActive = true;
    roll(won);
    EXPECT_TRUE(game.KeepRolling) << "Hyper-Drive does not stop";
    game.HyperDriveActive = false;
  }
}

TEST_F(HandleBetTest, AWinIsHeard) {
  game.WinSoundList = {"bell.win", "cheer.win"};
  game.WinSoundChoice = 2;
  const auto win = [&](std::int32_t rule) {
    game.HandleWinningBets = rule;
    Stand(kField, 5_usd);
    Resolve(kField, 6, 6, kWins);
  };
  win(kHandleManually);
  win(1);
  game.AllSoundOff = true;
  win(1);
  game.AllSoundOff = false;
  game.HyperDriveActive = true;
  win(1);
  EXPECT_THAT(surface.sounds, ElementsAre(RecordingSurface::Sound{"cheer.win", false},
                                          RecordingSurface::Sound{"cheer.win", true}));
}

}  // namespace
}  // namespace feltmaster
