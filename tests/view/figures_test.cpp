#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "config/comps.h"
#include "stats/bet_results.h"
#include "stats/roll_statistics.h"
#include "support/started_game.h"
#include "view/bet_results_table.h"
#include "view/roll_frequencies.h"
#include "view/roll_totals.h"
#include "view/settings_rows.h"
#include "view/summary.h"

namespace feltmaster {
namespace {

using namespace money_literals;
using ::testing::ElementsAre;

class FiguresTest : public StartedGame<> {
 protected:
  // One decision of the player's own bet.
  void Decide(int bet, MoneyAmount amount, MoneyAmount result) {
    RecordBetResult(*game_, bet, amount, result);
  }
  std::string Shown(const Figures& figures, std::string_view caption) const {
    std::string shown;
    for (const Figure& figure : figures) {
      if (figure.caption == caption) shown += (shown.empty() ? "" : " | ") + figure.text;
    }
    return shown;
  }
};

TEST_F(FiguresTest, SummaryBeforeTheFirstRoll) {
  std::string captions;
  for (const Figure& figure : SummaryFigures(*game_)) {
    captions += figure.caption + '\n';
    const bool heading = figure.caption.starts_with(' ');
    const bool rate = figure.caption == "Rolls / hr:";
    const bool percent = figure.caption.empty();
    EXPECT_EQ(figure.text, heading ? "" : rate ? "120" : percent ? "0%" : "0") << figure.caption;
  }
  EXPECT_EQ(captions,
            "Total rolls:\nRolls / hr:\nSim hrs:\n Hands:\n# of rolls (current hand):\n"
            "# of passes (current hand):\nTotal completed:\nLongest #  of rolls:\nMost passes:\n"
            "Average # of rolls:\nAverage # of passes:\n# of points established:\n"
            "# that passed (rolled point):\n# that passed (7, 11):\nTotal passes:\n"
            "# that missed (seven-out):\nTotal misses:\n# of come-out rolls:\n Bankroll:\n"
            "Current:\nHigh:\nLow:\nAverage:\nTotal comp value:\n Total number of:\n"
            "Bets decided:\nBets won:\nBets lost:\nNet win:\n\n Total $ amount of:\n"
            "Bets decided:\nBets won:\nBets lost:\nNet win:\n\n");
}

TEST_F(FiguresTest, SummaryRoundsEachLineInItsOwnWay) {
  SetRollCounts(*game_, 0, 1003);
  game_->RollsPerHour = 60.5_usd;
  game_->GameCounters[kHandsCompleted] = 8;
  game_->GameCounters[kTotalHandRolls] = 61;   // 7.625
  game_->GameCounters[kTotalHandPasses] = 16;  // 2
  game_->BankrollSum = -1504.5_usd;            // -1.5 a roll
  game_->BetAmount.Set(kBankroll, -2500.5_usd);
  Decide(1, 1000_usd, -1000_usd);  // Lay 2 does not count
  Decide(kField, 10_usd, 20_usd);
  Decide(kField, 10_usd, -10_usd);
  Decide(kPlace, 10_usd, -10.75_usd);
  const Figures figures = SummaryFigures(*game_);
  EXPECT_EQ(Shown(figures, "Rolls / hr:"), "60.5");
  EXPECT_EQ(Shown(figures, "Sim hrs:"), "16.5785");
  EXPECT_EQ(Shown(figures, "Average # of rolls:"), "7.63");
  EXPECT_EQ(Shown(figures, "Average # of passes:"), "2");
  EXPECT_EQ(Shown(figures, "Current:"), "-2,501");
  EXPECT_EQ(Shown(figures, "Average:"), "-2");
  EXPECT_EQ(Shown(figures, "Bets decided:"), "3 | 30");
  EXPECT_EQ(Shown(figures, "Net loss:"), "-1 | -1");  // -0.75
  EXPECT_EQ(Shown(figures, ""), "-33.33% | -2.50%");
}

TEST_F(FiguresTest, CompsByTheThreeRules) {
  SetRollCounts(*game_, 0, 90);  // 0.75 hours
  MarkCompBets(*game_, kLayoutBets, BetMark::kYes);
  Decide(kHard8, 100_usd, -100_usd);
  Decide(kField, 50_usd, 50_usd);
  Decide(kField, 50_usd, -50_usd);
  // 100 * -1/11 (0.090909) and 100 * -1/18 (0.055556)
  EXPECT_THAT(
      RowsOf(CompFigures(*game_)),
      ElementsAre(Row{"Total comp action $", "200"}, Row{"Total # bets", "3"},
                  Row{"Average comp action $", "66.67"}, Row{"Theoretical house vig $", "14.65"},
                  Row{"Avg. comp action x time $", "50"}, Row{"Total comp value $", "4.39"},
                  Row{"Simulated hours", ".75"}));
  EXPECT_EQ(CompFigures(*game_)[3].tone, Tone::kVig);
  EXPECT_EQ(Shown(SummaryFigures(*game_), "Total comp value:"), "$4.39");
  game_->BaseComps = 1;
  EXPECT_EQ(CompFigures(*game_)[5].text, "60.00");
  game_->BaseComps = 2;
  EXPECT_EQ(CompFigures(*game_)[5].text, "15.00");

  // A player who is ahead owes the house nothing.
  game_->BaseComps = 0;
  game_->PayTable[kHard8].PayNumerator = 20_usd;
  EXPECT_EQ(CompFigures(*game_)[3].text, "-85.35");
  EXPECT_EQ(CompFigures(*game_)[3].tone, Tone::kLoss);
  EXPECT_EQ(CompFigures(*game_)[5].text, "0");
  EXPECT_EQ(Shown(SummaryFigures(*game_), "Total comp value:"), "0");
}

TEST_F(FiguresTest, CompBetsAreMarkedInTheirWords) {
  const BetSet fresh = CompBets(*game_);
  EXPECT_EQ(fresh.Count(), 88 - 6 - 6 - 2);
  EXPECT_FALSE(fresh.Has(44) || fresh.Has(47) || fresh.Has(13) || fresh.Has(30));
  MarkCompBets(*game_, kLayoutBets, BetMark::kDefault);
  EXPECT_THAT(game_->CompBetMask, ElementsAre(0, 0x400FFFFF, 0x7FEFFFFF, 0x03FFFFFF));
  MarkCompBets(*game_, kLayoutBets, BetMark::kToggle);
  EXPECT_EQ(CompBets(*game_).Count(), 11);
  EXPECT_EQ(CompBetLines(*game_)[51], "Pass Line Odds - Yes");
  EXPECT_EQ(CompBetLines(*game_)[87], "Hop 5-5 - No");
  MarkCompBets(*game_, kLayoutBets, BetMark::kNo);
  EXPECT_THAT(game_->CompBetMask, ElementsAre(0, 0, 0, 0));
}

TEST_F(FiguresTest, BetResultsOfSeveralBets) {
  SetRollCounts(*game_, 0, 180);  // 1.5 hours
  Decide(kPlace + 4, 12_usd, 14_usd);
  Decide(kPlace + 4, 24.5_usd, -24.5_usd);
  BeginRollResults(*game_);
  Decide(kField, 5_usd, 10_usd);
  game_->BetAmount.Set(kField, 5_usd);
  game_->BetAmountAtRollStart[kField] = 7.5_usd;
  BetResultsChoice choice;
  choice.bets.Add(kField);
  choice.bets.Add(kPlace + 4);
  choice.bets.Add(kHorn);
  const Rows rows = BetResultRows(*game_, choice);
  EXPECT_THAT(
      rows, ElementsAre(Row{"# of bets selected for display:", "3"}, Row{" Current $ wagered", "5"},
                        Row{" $ wagered on last roll", "7.5"}, Row{"Total rolls:", "180"},
                        Row{"Rolls / hr:", "120"}, Row{"Sim hrs:", "1.5"},
                        Row{"", " Wagers", " Wins", " Losses", " Net", " Net %"},
                        Row{"Total #", "3", "2", "1", "1", "33.33 %"},
                        Row{"Total $", "41.5", "24", "24.5", "-.5", "-1.20 %"},
                        Row{"High $", "24.5", "14", "24.5", "-10.5", "-42.86 %"},
                        Row{"Low $", "5", "10", "24.5", "-14.5", "-290.00 %"},
                        Row{"Average $", "13.833", "12", "24.5", "-12.5", "-90.36 %"},
                        Row{"Last $", "29.5", "24", "24.5", "-.5", "-1.69 %"},
                        Row{"Last roll #", "1", "1", "0", "1", "100.00 %"},
                        Row{"Last roll $", "5", "10", "0", "10", "200.00 %"},
                        Row{"Avg. # / hour", "2", "1.333", ".667", ".667", "33.33 %"},
                        Row{"Avg. $ / hour", "27.667", "16", "16.333", "-.333", "-1.20 %"},
                        // 36.5 * -0.015152 - 5 * 0.055556
                        Row{"Expctd value $", "", "", "", "-0.8308", "-2.0 %"}));
  EXPECT_EQ(BetResultsOf(*game_, choice).lines[1].tone, Tone::kLoss);

  const std::string remembered = BetResultsSelectionOf(choice);
  EXPECT_EQ(remembered.size(), 89U);
  EXPECT_EQ(ReadBetResultsSelection(remembered), choice);
  EXPECT_EQ(ReadBetResultsSelection(""), BetResultsChoice());
  EXPECT_EQ(BetResultsOf(*game_, {}).lines[10].net_percent, "0 %");
}

TEST_F(FiguresTest, RollTotalsAndTheirScale) {
  EXPECT_EQ(RollScaleTop(14.6), 20);
  EXPECT_EQ(RollScaleTop(14.4), 15);
  EXPECT_EQ(RollScaleTop(15), 15);
  EXPECT_EQ(RollScaleTop(8), 10);
  EXPECT_EQ(RollScaleTop(7.9), 12);  // rounds to 8 before it is divided
  EXPECT_EQ(RollScaleTop(2.78), 4);
  EXPECT_EQ(RollScaleTop(4), 4);
  EXPECT_EQ(RollScaleTop(0), 0);

  SetRollCounts(*game_, 0, 3000);
  SetRollCounts(*game_, 7, 1);
  SetRollCounts(*game_, 3, 1234);
  SetRollsSinceLast(*game_, 7, 2999);
  const Rows rows = RollTotalRows(*game_);
  ASSERT_EQ(rows.size(), 6U);
  EXPECT_THAT(rows[0], ElementsAre("Total rolls", "3,000"));
  EXPECT_THAT(rows[1],
              ElementsAre("NUMBER", "2", "3", "4", "5", "6", "7", "8", "9", "10", "11", "12"));
  EXPECT_EQ(rows[2][2], "1,234");
  EXPECT_EQ(rows[3][6], "2,999");
  EXPECT_THAT(rows[4], ElementsAre("Prob %", "2.78", "5.56", "8.33", "11.11", "13.89", "16.67",
                                   "13.89", "11.11", "8.33", "5.56", "2.78"));
  EXPECT_EQ(rows[5][6], "0.03");
  EXPECT_EQ(rows[5][2], "41.13");
  const RollTotals totals = RollTotalsOf(*game_);
  EXPECT_THAT(totals.axis, ElementsAre(0, 11.25, 22.5, 33.75, 45));
  EXPECT_NEAR(totals.bars[5].probable_height, 16.67 / 45, 1e-6);

  const std::vector<std::size_t> bars = {11, 21, 36, 12};
  for (std::int32_t display = 0; display < 4; ++display) {
    game_->RollTotalsDisplay = display;
    double sum = 0;
    for (const RollBar& bar : RollTotalsOf(*game_).bars) sum += bar.probable;
    EXPECT_EQ(RollTotalsOf(*game_).bars.size(), bars[static_cast<std::size_t>(display)]);
    EXPECT_NEAR(sum, display == kDiceFaces ? 200 : 100, 0.1);
  }
}

TEST_F(FiguresTest, FrequenciesOfAnEvent) {
  SetRollCounts(*game_, 0, 1500);
  SetRollCounts(*game_, 24, 4);
  SetRollsSinceLast(*game_, 24, 12);
  GapCell(*game_, 24, 1) = 2;
  GapCell(*game_, 24, 199) = 1;
  GapCell(*game_, 24, 200) = 2;  // one of 200 rolls, which no sum holds, and one of 250
  GapCell(*game_, 24, 0) = 250;
  EXPECT_THAT(
      RowsOf(FrequencyFigures(*game_, 24, true)),
      ElementsAre(Row{"Total game rolls:", "1,500"}, Row{"Total rolls this selection:", "4"},
                  Row{"Actual % rolled:", "0.27"}, Row{"# rolls since last rolled:", "12"},
                  Row{"Average # of rolls to achieve:", "90.20"}, Row{"True probable %:", "2.78"}));
  game_->UseSkewedProbability = true;
  EXPECT_EQ(FrequencyFigures(*game_, 24, true).back(), (Figure{"Skewed probable %:", "2.778"}));
  EXPECT_EQ(FrequencyFigures(*game_, 24, false).back(), (Figure{"True probable %:", "2.78"}));
  const Rows rows = GapRows(*game_, 24);
  ASSERT_EQ(rows.size(), 200U);
  EXPECT_EQ(rows[0], (Row{"1", "2"}));
  EXPECT_EQ(rows[1], (Row{"2", ""}));
  EXPECT_EQ(rows[199], (Row{"200+", "2"}));
}

TEST_F(FiguresTest, SettingsOfAllTabs) {
  game_->PayTable[kHard8] = {9_usd, false, 1_usd};
  game_->FieldPayTable[21] = {3_usd, true, 1_usd};
  game_->HandleAmount[kAutoWonSame - kFirstHandleOption] = 2.5_usd;
  game_->HandleUnits[kAutoWonSame - kFirstHandleOption] = 1_usd;
  game_->AutoStopOn[9] = true;
  const Rows rows = SettingRows(*game_);
  std::string tabs;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    ASSERT_EQ(rows[i].size(), 4U);
    if (i == 0 || rows[i][0] != rows[i - 1][0]) tabs += rows[i][0] + '\n';
    EXPECT_NE(rows[i][2], "") << rows[i][1];
  }
  EXPECT_EQ(tabs,
            "Checks/Dice\nSound\nComps\nColors\nMisc.\nBankroll\nBets\nPayoffs\nProbability\n"
            "Advantage\nAuto-Play\n");
  for (const Row& row : std::vector<Row>{
           {"Checks/Dice", "Check Denominations", "25", "BetAmount(97)"},
           {"Checks/Dice", "Sim roll rate:", "120 Rolls / hr", "RollsPerHour"},
           {"Sound", "Win sound", "none", "WinSoundChoice"},
           {"Colors", "Felt", "4A781B", "TableColors(0)"},
           {"Misc.", "Random number generator", "RNG #1", "RngSelected"},
           {"Misc.", "Auto-Bet messages Hyper-Drive", "false", "NotifyFlags"},
           {"Probability", "Rolls out of", "36", "RollsOutOf"},
           {"Bets", "Odds allowed: 6 and 8", "2.5", "OddsAllowed(4)"},
           {"Bets", "Lay vig", "5 %", "LayVigPct"},
           {"Bets", "Buy vig", "Charge all Buy bets", "BuyVigAllBets"},
           {"Payoffs", "Hard 8", "10 for 1", "PayTable(59,1)"},
           {"Payoffs", "Field 12 (6-6)", "3 to 1", "FieldPayTable(21,1)"},
           {"Auto-Play", "Winning bets: Same Bet:", "+ 2.5 %", "HandleAmount(4)"},
           {"Auto-Play", "Auto-Stop Rolling on:", "Any 7", "AutoStopOn"},
           {"Auto-Play", "Losing bets", "No Bet/Take Remainder (if any)", "HandleLosingBets"},
       }) {
    EXPECT_THAT(rows, testing::Contains(row));
  }
}

}  // namespace
}  // namespace feltmaster
