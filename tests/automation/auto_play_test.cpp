#include "automation/auto_play.h"

#include "engine/bet_fixture.h"
#include "stats/roll_statistics.h"

namespace feltmaster {
namespace {

class AutoPlay : public BetTable {
 protected:
  static constexpr std::int32_t kYesNo = kButtonYes | kButtonNo | kPictureQuestion | kDefaultYes;
};

TEST_F(AutoPlay, ANewAdjustmentPutsTheTableRight) {
  game.AutoAdjustBetAmounts = kAdjustManually;
  Bet(kPlace + 4, 20_usd);
  SetAutoAdjust(game, kMinorCorrection);
  EXPECT_EQ(game.BetAmount[kPlace + 4], 24_usd);
  game.AutoAdjustBetAmounts = kAdjustManually;
  Bet(kPlace + 4, 1_usd);
  game.AutoAdjustBetAmounts = kMinorCorrection;
  SetAutoAdjust(game, kMinorCorrection);
  EXPECT_EQ(game.BetAmount[kPlace + 4], 25_usd) << "no change of the setting";
  SetAutoAdjust(game, kAdjustManually);
  EXPECT_EQ(game.BetAmount[kPlace + 4], 25_usd);
  SetAutoAdjust(game, 3);
  EXPECT_EQ(game.AutoAdjustBetAmounts, kAdjustManually);
}

TEST_F(AutoPlay, ButtonsOfAnOptionRow) {
  std::string seen;
  for (int i = 0; i < 5; ++i) {
    seen += HandleOperatorText(game, kAutoLostSame);
    StepHandleOperator(game, kAutoLostSame);
  }
  EXPECT_EQ(seen, "+-x/+");
  EXPECT_EQ(HandleUnitsText(game, kDialogWonBet), "$");
  StepHandleUnits(game, kDialogWonBet);
  EXPECT_EQ(HandleUnitsText(game, kDialogWonBet), "%");
  game.HandleUnits[kDialogWonBet - kFirstHandleOption] = MoneyAmount(6);
  EXPECT_EQ(HandleUnitsText(game, kDialogWonBet), "$500 Units");
  StepHandleUnits(game, kDialogWonBet);
  EXPECT_EQ(HandleUnitsText(game, kDialogWonBet), "$");
}

TEST_F(AutoPlay, FullOddsAreOfferedForTheBetsOnTheTable) {
  Bet(kPassLine, 10_usd);
  SetPoint(6);
  surface.Answer(kAnswerNo);
  SetAutoTakeFullOdds(game, true);
  EXPECT_EQ(game.BetAmount[kPassOdds], 0_usd);
  const RecordingSurface::Message message = TakeMessage();
  EXPECT_EQ(message.title, "Auto-Take Full Odds");
  EXPECT_EQ(message.text,
            "\nAuto-Take Full Odds is now active.\n\nDo you also want to take full odds on any "
            "bets that are already on the table?");
  EXPECT_EQ(message.options, kYesNo);
  surface.Answer(kAnswerYes);
  SetAutoTakeFullOdds(game, true);
  EXPECT_EQ(game.BetAmount[kPassOdds], 25_usd);
  surface.messages.clear();
  SetAutoTakeFullOdds(game, false);
  EXPECT_FALSE(game.AutoTakeFullOdds);
  EXPECT_TRUE(surface.messages.empty());
}

TEST_F(AutoPlay, AnInterruptedCountOfRollsIsResumedOrStartedAnew) {
  SetNumAutoRolls(game, 1200);
  SetAutoRollDice(game, true);
  EXPECT_TRUE(surface.messages.empty());
  game.AutoRollsRemaining = 1077;
  surface.Answer(kAnswerYes);
  SetAutoRollDice(game, true);
  EXPECT_EQ(game.AutoRollsRemaining, 1077);
  const RecordingSurface::Message message = TakeMessage();
  EXPECT_EQ(message.title, "Auto-Roll");
  EXPECT_EQ(message.text,
            "Would you like to resume the current roll count at 1077?\n\nIf not, then the count "
            "will be reset to 1200");
  EXPECT_EQ(message.options, kYesNo);
  surface.Answer(kAnswerNo);
  SetAutoRollDice(game, true);
  EXPECT_EQ(game.AutoRollsRemaining, 1200);
  SetNumAutoRolls(game, 100'000'001);
  EXPECT_EQ(game.NumAutoRolls, 100'000'000);
  EXPECT_EQ(game.AutoRollsRemaining, 100'000'000);
}

TEST_F(AutoPlay, TheRollCommandRollsOrTogglesAutoRoll) {
  game.CallBetMode = 2;
  RollCommand(game);
  EXPECT_EQ(game.CallBetMode, 0);
  EXPECT_EQ(RollCounts(game, 0), 1);
  EXPECT_FALSE(game.KeepRolling);

  game.AutoRollDice = true;
  game.NumAutoRolls = 3;
  RollCommand(game);
  EXPECT_EQ(RollCounts(game, 0), 4) << "the three of the run";
  EXPECT_FALSE(game.KeepRolling);
  EXPECT_EQ(game.AutoRollsRemaining, 3);

  game.KeepRolling = true;
  RollCommand(game);
  EXPECT_FALSE(game.KeepRolling);
  EXPECT_EQ(RollCounts(game, 0), 4) << "a command while rolling only stops";

  game.RollInProgress = true;
  RollCommand(game);
  EXPECT_TRUE(game.KeepRolling);
  EXPECT_EQ(RollCounts(game, 0), 4);
  game.RollInProgress = false;
  game.KeepRolling = false;
  game.AutoRollDice = false;
  game.AutoBetRunning = true;
  RollCommand(game);
  EXPECT_EQ(RollCounts(game, 0), 4);
}

}  // namespace
}  // namespace feltmaster
