#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "engine/place_bet.h"
#include "support/started_game.h"
#include "view/bankroll_graph.h"
#include "view/figure.h"
#include "view/rules_rows.h"
#include "view/status_lines.h"
#include "view/table_rows.h"

namespace feltmaster {
namespace {

using namespace money_literals;
using ::testing::ElementsAre;

class RowsTest : public StartedGame<> {
 protected:
  RowsTest() { game_->NotifyFlags = 0; }
  void Bet(int bet, MoneyAmount amount) {
    game_->BetRequest = amount;
    PlaceChips(*game_, bet);
  }
};

TEST_F(RowsTest, StatusTellsHowThePlayerStandsAndTheBetUnderThePointer) {
  game_->BetAmount.Set(kBankroll, 1240.5_usd);
  game_->AmountInvested = 1500_usd;
  Bet(kLay + 2, 40_usd);  // $20 to be won, $1 of vig up front
  game_->BetState.Set(kLay + 2, kCalledOff);
  EXPECT_THAT(StatusRows(*game_, kLay + 2),
              ElementsAre(Row{"You've lost:  ", "259.50"}, Row{"Bankroll:  ", "1,240.50"},
                          Row{"Lay 4 bet (called OFF):  ", "40  ", "vig: ", "1"},
                          Row{"Total bets:  ", "41", "  Available:  ", "1,199.50"}));
  EXPECT_EQ(StatusRows(*game_, kField).size(), 3u);  // nothing stands there

  game_->BetAmount.Set(kFirstStack + 2, -5_usd);
  game_->ChipStackName[2] = "losses so far";
  EXPECT_THAT(StatusRows(*game_, kFirstStack + 2),
              ElementsAre(Row{"You've lost:  ", "259.50"}, Row{"Bankroll:  ", "1,240.50"},
                          Row{"Chip-Stack # 2:  ", "-5"}, Row{"losses so far"}));
  EXPECT_THAT(BetRows(*game_), ElementsAre(Row{"Lay 4", "(called OFF)", "40", "1"}));
}

TEST_F(RowsTest, BankrollHeaderShowsCentsOnAllAmountsOrNone) {
  game_->BetAmount.Set(kBankroll, 1000_usd);
  game_->BankrollHigh = 12345_usd;
  EXPECT_THAT(RowsOf(BankrollHeader(*game_)),
              ElementsAre(Row{"Total Rolls:", "0"}, Row{"Rolls / hr:", "120"}, Row{"Sim hrs:", "0"},
                          Row{"High:", "12,345"}, Row{"Low:", "0"}, Row{"Current:", "1,000"}));
  game_->BankrollLow = -0.5_usd;
  EXPECT_THAT(RowsOf(BankrollHeader(*game_))[3], ElementsAre("High:", "12,345.00"));
  EXPECT_THAT(RowsOf(BankrollHeader(*game_))[4], ElementsAre("Low:", "-.50"));
}

TEST_F(RowsTest, PayoffsAreShownInTheirOwnWord) {
  PayRow& hard8 = game_->PayTable[kHard8];
  hard8 = {9_usd, false, 1_usd};
  const Rows rows = PayoffRows(*game_);
  ASSERT_EQ(rows.size(), 82u + 21u);
  EXPECT_THAT(rows[0], ElementsAre("Lay 2", "1", "to", "6"));
  EXPECT_THAT(rows[10], ElementsAre("Pass/Come 2", "1", "to", "1"));
  EXPECT_THAT(rows[50], ElementsAre("Passline/Come (c.o.)", "1", "to", "1"));
  EXPECT_THAT(rows[55], ElementsAre("Hard 8", "10", "for", "1"));
  EXPECT_THAT(rows[82], ElementsAre("2 (1-1)", "2", "to", "1"));
  EXPECT_THAT(rows[82 + 9], ElementsAre("7 (1-6)", "-1", "to", "1"));
}

TEST_F(RowsTest, AdvantagesInPercentOrInTime) {
  EXPECT_THAT(AdvantageRows(*game_)[kPlace + 4],
              ElementsAre("Place 6", "-0.46", "59.64", "-1.52", "107.88", "-55.56"));
  game_->ShowMiscData = true;
  // 3.27 rolls at 120 an hour are 98.1 seconds.
  EXPECT_THAT(AdvantageRows(*game_)[kPlace + 4],
              ElementsAre("Place 6", "3.27", "0.31", "36.70", "0.61", "0:01:38.1"));
}

}  // namespace
}  // namespace feltmaster
