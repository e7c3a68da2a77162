#include "desktop/at_the_table.h"
#include "game/bets.h"

namespace feltmaster {

namespace {

using ThePlayer = AtTheTable;

constexpr Pixel kOnPassLine = {354, 360};
constexpr Pixel kFiveChip = {10, 320};

TEST_F(ThePlayer, BetsWithTheMouseAndRolls) {
  game_->AllowNegBankroll = true;
  Press(kFiveChip);
  EXPECT_EQ(game_->ChipColor, 2);
  Press(kOnPassLine);
  EXPECT_EQ(game_->BetAmount[kPassLine], MoneyAmount::FromWhole(5));
  Roll(2, 4);
  EXPECT_EQ(game_->Point, 6);
  Roll(3, 3);
  EXPECT_EQ(game_->Point, 0);
  NothingExpected();
}

}  // namespace

}  // namespace feltmaster
