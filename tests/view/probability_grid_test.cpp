#include "view/probability_grid.h"

#include <gtest/gtest.h>

#include <memory>

#include "dice/probability.h"
#include "surface/null_surface.h"

namespace feltmaster {
namespace {

struct Dice {
  Dice() {
    game.surface = &surface;
    DefaultProbabilities(game);
  }
  std::string Text(std::int32_t display, int row, int column) {
    game.ProbabilityDisplay = display;
    return ProbabilityCellAt(game, row, column).text;
  }

  Game game;
  NullSurface surface;
};

TEST(ProbabilityGrid, FourDisplays) {
  Dice dice;
  constexpr int kSeven = 6;
  EXPECT_EQ(dice.Text(kShowPercent, kTotalRow, kSeven), "16.667");
  EXPECT_EQ(dice.Text(kShowPercentOff, kTotalRow, kSeven), "0.000");
  EXPECT_EQ(dice.Text(kShowRolls, kTotalRow, kSeven), "6.000");
  EXPECT_EQ(dice.Text(kShowRollsOff, 2, 1), "0.000");
  SetProbabilityCell(dice.game, kTotalRow, kSeven, 10'000, true);
  EXPECT_EQ(dice.Text(kShowPercent, kTotalRow, kSeven), "10.002");
  EXPECT_EQ(dice.Text(kShowPercentOff, kTotalRow, kSeven), "-6.665");
  EXPECT_EQ(dice.Text(kShowPercentOff, kTotalRow, 1), "+0.222");
  dice.game.RollsOutOf = 36'000;
  EXPECT_EQ(dice.Text(kShowRolls, kTotalRow, kSeven), "3,600.720");
  EXPECT_EQ(dice.Text(kShowRollsOff, kTotalRow, kSeven), "-2,399.280");
  EXPECT_EQ(dice.Text(kShowRollsOff, kTotalRow, 1), "+80.000");
}

TEST(ProbabilityGrid, TypingWhatIsShownChangesNothing) {
  Dice dice;
  SetProbabilityCell(dice.game, kTotalRow, 3, 20'000, true);
  dice.game.RollsOutOf = 360;
  for (const std::int32_t display : {kShowPercent, kShowPercentOff, kShowRolls, kShowRollsOff}) {
    dice.game.ProbabilityDisplay = display;
    for (const ProbabilityCell& cell : ProbabilityCells(dice.game)) {
      const auto one = std::make_unique<Game>(dice.game);
      const std::int32_t before = ProbabilityWeight(*one, cell.row, cell.column);
      if (!SetProbabilityCell(*one, cell.row, cell.column, cell.value * 1000, false)) continue;
      EXPECT_NEAR(ProbabilityWeight(*one, cell.row, cell.column), before, 3) << cell.name;
    }
  }
}

TEST(ProbabilityGrid, EveryCellOnceWithItsName) {
  Dice dice;
  ToggleCellLock(dice.game, RowOfRoll(6, 1), ColumnOfRoll(6, 1));
  const std::vector<ProbabilityCell> cells = ProbabilityCells(dice.game);
  ASSERT_EQ(cells.size(), 11u + 36u + 12u);
  EXPECT_EQ(cells[0].name, "2");
  EXPECT_EQ(cells[11].name, "1-1");
  EXPECT_EQ(cells[11 + 35].name, "6-6");
  EXPECT_EQ(cells.back().name, "second 6");
  int locked = 0;
  for (const ProbabilityCell& cell : cells) {
    EXPECT_TRUE(IsProbabilityCell(cell.row, cell.column));
    if (!cell.locked) continue;
    ++locked;
    EXPECT_EQ(cell.name, "6-1");
  }
  EXPECT_EQ(locked, 1);
  EXPECT_EQ(ProbabilityRows(dice.game)[6][1], "2.778*");
  UnlockAllCells(dice.game);
  EXPECT_EQ(ProbabilityRows(dice.game)[6][1], "2.778");
  EXPECT_EQ(ProbabilityRows(dice.game).back()[1], "2.778");
}

TEST(ProbabilityGrid, AShooterWhoControlsTheDice) {
  Dice dice;
  ComputeAxisDice(dice.game, {0, DieAxis::kOneSix}, {0, DieAxis::kThreeFour});
  for (int face = 1; face <= 6; ++face) {
    EXPECT_NEAR(ProbabilityWeight(dice.game, face + 1, kFirstDieColumn), 16'667, 1);
    EXPECT_NEAR(ProbabilityWeight(dice.game, face + 1, kSecondDieColumn), 16'667, 1);
  }
  UnlockAllCells(dice.game);
  SetProbabilityCell(dice.game, kTotalRow, 1, 50'000, true);
  ASSERT_EQ(DiceKindText(dice.game), "Free Form Dice");
  ComputeAxisDice(dice.game, {250, DieAxis::kThreeFour}, {40, DieAxis::kTwoFive});
  EXPECT_EQ(DiceKindText(dice.game), "Percentage Dice");
  const std::int32_t first[] = {25'000, 25'000, 0, 0, 25'000, 25'000};
  const std::int32_t second[] = {20'000, 10'000, 20'000, 20'000, 10'000, 20'000};
  for (int face = 1; face <= 6; ++face) {
    EXPECT_EQ(ProbabilityWeight(dice.game, face + 1, kFirstDieColumn), first[face - 1]);
    EXPECT_EQ(ProbabilityWeight(dice.game, face + 1, kSecondDieColumn), second[face - 1]);
    EXPECT_EQ(IsCellLocked(dice.game, face + 1, kFirstDieColumn), face == 3 || face == 4);
  }
  EXPECT_FALSE(IsCellLocked(dice.game, kTotalRow, 1));
  EXPECT_EQ(ProbabilityWeight(dice.game, RowOfRoll(1, 2), ColumnOfRoll(1, 2)), 2'500);
  EXPECT_EQ(ProbabilityWeight(dice.game, RowOfRoll(3, 2), ColumnOfRoll(3, 2)), 0);
}

}  // namespace
}  // namespace feltmaster
