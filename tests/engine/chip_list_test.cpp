#include "engine/chip_list.h"

#include <gmock/gmock.h>

#include "engine/bet_fixture.h"
#include "engine/new_game.h"
#include "engine/place_bet.h"

namespace feltmaster {

static bool operator==(const TableChip& a, const TableChip& b) {
  return a.bet == b.bet && a.chip == b.chip && a.x == b.x && a.y == b.y;
}
static void PrintTo(const TableChip& chip, std::ostream* out) {
  *out << "bet " << chip.bet << " chip " << chip.chip << " at " << chip.x << ',' << chip.y;
}

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ChipListTest : public BetTable {
 protected:
  ChipListTest() {
    game.NotifyFlags = 0;
    game.AutoAdjustBetAmounts = kAdjustManually;
  }

  std::vector<int> Stack(MoneyAmount amount) const {
    const ChipsOfStack chips = ChipsFor(game, amount);
    return {chips.chip.begin(), chips.chip.begin() + chips.count};
  }
  // A press with a chip at a pixel of the table.
  void Put(int bet, MoneyAmount amount, Pixel at) {
    game.BetRequest = amount;
    PlaceChips(game, bet, at);
  }
};

TEST_F(ChipListTest, StacksAreMadeOfTheLargestChips) {
  SetChips(1_usd, 5_usd, 25_usd, 100_usd, 500_usd);
  EXPECT_THAT(Stack(13_usd), ElementsAre(2, 2, 1, 1, 1));
  EXPECT_THAT(Stack(0_usd), IsEmpty());
  EXPECT_THAT(Stack(6000_usd), ElementsAre(5, 5, 5, 5, 5, 5, 5, 5, 5, 5, 5, 5));
  EXPECT_THAT(Stack(6001_usd), ElementsAre(kMarkerChip));
  EXPECT_THAT(Stack(40000_usd), ElementsAre(kMarkerChip));
  EXPECT_THAT(Stack(0.5_usd), ElementsAre(kMarkerChip));
  EXPECT_THAT(Stack(25.0001_usd), ElementsAre(kMarkerChip));
  EXPECT_THAT(Stack(-25_usd), ElementsAre(kMarkerChip));
  SetChips(0.25_usd, 1_usd, 0_usd, 5_usd, 5_usd);
  EXPECT_THAT(Stack(6.5_usd), ElementsAre(5, 2, 1, 1));
}

TEST_F(ChipListTest, ChipsOfTheHandLieWhereTheyWerePutUntilTheStackIsLaidAnew) {
  SetBankroll(1000_usd);
  game.ChipColor = 2;
  Put(kField, 5_usd, {300, 280});
  Put(kPassLine, 5_usd, {200, 361});
  Put(kField, 5_usd, {310, 290});
  EXPECT_THAT(game.ChipList,
              ElementsAre(TableChip{kField, 2, 300, 280}, TableChip{kPassLine, 2, 200, 361},
                          TableChip{kField, 2, 310, 290}));
  // A bet on a number is a stack, and a bet that the house changed is laid anew.
  Put(kPlace, 5_usd, {110, 170});
  EXPECT_THAT(game.ChipList,
              ElementsAre(TableChip{kPlace, 2, 104, 165}, TableChip{kPassLine, 2, 200, 361},
                          TableChip{kField, 2, 300, 280}, TableChip{kField, 2, 310, 290}));
  TakeDownBetQuietly(game, kPlace);
  Put(kField, -5_usd, {1, 1});
  EXPECT_THAT(game.ChipList,
              ElementsAre(TableChip{kPassLine, 2, 200, 361}, TableChip{kField, 2, 354, 297}));
  game.AutoArrangeChips = true;
  Put(kPassLine, 5_usd, {400, 361});
  EXPECT_THAT(game.ChipList,
              ElementsAre(TableChip{kPassLine, 2, 354, 360}, TableChip{kPassLine, 2, 357, 360},
                          TableChip{kField, 2, 354, 297}));
  RemoveAllBets(game);
  EXPECT_THAT(game.ChipList, IsEmpty());
}

TEST_F(ChipListTest, OnlyThePilesOnTheTableShowChips) {
  game.StackSlots[3] = 150;
  for (const int stack : {101, 103, 150}) {
    game.BetRequest = 5_usd;
    PlaceChips(game, stack);
  }
  EXPECT_THAT(game.ChipList, ElementsAre(TableChip{101, 2, 16, 217}, TableChip{150, 2, 16, 115}));
  ResetGame(game, ResetMode::kKeepChipStacks);
  EXPECT_THAT(game.ChipList, ElementsAre(TableChip{101, 2, 16, 217}, TableChip{150, 2, 16, 115}));
  ResetGame(game, ResetMode::kAll);
  EXPECT_THAT(game.ChipList, IsEmpty());
}

TEST_F(ChipListTest, TheListNeverOverflows) {
  SetBankroll(1'000'000_usd);
  game.ChipColor = 1;
  for (int i = 0; i < 901; ++i) {
    EXPECT_FALSE(game.AutoArrangeChips);
    Put(kField, 1_usd, {i % 600, 297});
  }
  EXPECT_TRUE(game.AutoArrangeChips) << "from 901 chips on stacks are laid anew";
  Put(kField, 1_usd, {1, 1});
  EXPECT_EQ(game.ChipList.size(), 7u) << "500, four of 100, two of 1";

  // Stacks of twelve on every bet and pile want more room than there is.
  for (int slot = 1; slot <= kBetCount; ++slot) game.BetAmount.Set(slot, 6000_usd);
  RebuildAllChips(game);
  EXPECT_LE(game.ChipList.size(), kMaxTableChips);
  game.ChipList.assign(kMaxTableChips, TableChip{kField, 1, 300, 300});
  game.BetAmount.Set(kField, 1000_usd);
  game.AutoArrangeChips = false;
  Put(kPassLine, 1_usd, {300, 360});
  EXPECT_LE(game.ChipList.size(), kMaxTableChips);
}

TEST_F(ChipListTest, HyperDriveLeavesTheChipsToItsEnd) {
  Chips(kField, 5_usd);
  game.HyperDriveActive = true;
  Chips(kField, 5_usd);
  EXPECT_EQ(game.ChipList.size(), 1u);
  game.HyperDriveActive = false;
  RebuildAllChips(game);
  EXPECT_EQ(game.ChipList.size(), 2u);
}

}  // namespace
}  // namespace feltmaster
