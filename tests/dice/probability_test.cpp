#include "dice/probability.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>

#include "config/answering_surface.h"

namespace feltmaster {
namespace {

struct Grid {
  Grid() {
    game.surface = &surface;
    DefaultProbabilities(game);
  }
  std::int32_t& Weight(int row, int column) {
    return game.DiceProbability[1][static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
  }
  std::int32_t& State(int row, int column) {
    return game.DiceProbability[0][static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
  }
  bool FreeForm() { return State(0, 0) == -1; }
  // The cell of a roll, found by its dice.
  std::int32_t& Roll(int die1, int die2) {
    const int column = die1 + die2 - 1;
    return Weight(column < 7 ? die1 + 1 : 8 - die2, column);
  }
  std::int64_t Sum() {
    std::int64_t sum = 0;
    for (int die1 = 1; die1 <= 6; ++die1) {
      for (int die2 = 1; die2 <= 6; ++die2) sum += Roll(die1, die2);
    }
    return sum;
  }
  int Map(std::int32_t x) {
    game.Die1 = game.Die2 = 0;
    MapSkewedDraw(game, x);
    return game.Die1 * 10 + game.Die2;
  }
  void Clear() {
    for (auto& row : game.DiceProbability[1]) row.fill(0);
  }

  Game game;
  AnsweringSurface surface;
};

TEST(MapSkewedDraw, WalksByRowsOverTheWeights) {
  Grid grid;
  EXPECT_EQ(grid.Map(1), 11);
  EXPECT_EQ(grid.Map(2'778), 11);
  EXPECT_EQ(grid.Map(2'779), 12);
  EXPECT_EQ(grid.Map(5'556), 12);
  // Each of the 36 rolls has a share of its own; the last one loses what is beyond 100,000.
  std::array<int, 67> shares{};
  for (std::int32_t x = 1; x <= 100'000; ++x) ++shares[static_cast<std::size_t>(grid.Map(x))];
  for (int die1 = 1; die1 <= 6; ++die1) {
    for (int die2 = 1; die2 <= 6; ++die2) {
      const int dice = die1 * 10 + die2;
      EXPECT_EQ(shares[static_cast<std::size_t>(dice)], dice == 61 ? 2'770 : 2'778) << dice;
    }
  }
}

TEST(MapSkewedDraw, DrawsAgainWhatNoCellTakes) {
  Grid grid;
  grid.surface.plain = 0.03;
  EXPECT_EQ(grid.Map(100'001), 12);
  grid.surface.plain = 0.999999999;
  EXPECT_EQ(grid.Map(100'001), 61);
  EXPECT_EQ(grid.Map(0), 61);

  // A table that takes little comes back at once, with the rolls it takes in their proportion.
  grid.Clear();
  grid.Roll(2, 5) = 1;
  grid.Roll(6, 6) = 3;
  int sixes = 0;
  for (int i = 0; i < 4; ++i) {
    grid.surface.plain = i / 4.0;
    const int dice = grid.Map(50'000);
    EXPECT_TRUE(dice == 25 || dice == 66) << dice;
    sixes += dice == 66;
  }
  EXPECT_EQ(sixes, 3);
}

TEST(MapSkewedDraw, AnEmptyTableGivesTrueDice) {
  Grid grid;
  grid.Clear();
  grid.surface.plain = 0.5;
  EXPECT_EQ(grid.Map(1), 44);
}

TEST(MapSkewedDraw, EndsWithAnyWeights) {
  std::mt19937 random(23);
  Grid grid;
  for (int i = 0; i < 2000; ++i) {
    for (auto& row : grid.game.DiceProbability[1]) {
      for (std::int32_t& weight : row) weight = static_cast<std::int32_t>(random());
    }
    grid.surface.plain = static_cast<double>(random() % 1000) / 1000;
    const int dice = grid.Map(static_cast<std::int32_t>(random() % 100'002));
    EXPECT_TRUE(dice / 10 >= 1 && dice / 10 <= 6 && dice % 10 >= 1 && dice % 10 <= 6) << dice;
  }
}

TEST(SetProbabilityCell, ATotalTakesItsRollsAndTheOthersShareTheRest) {
  Grid grid;
  SetProbabilityCell(grid.game, kTotalRow, 6, 100'000, true);
  EXPECT_TRUE(grid.FreeForm());
  EXPECT_TRUE(grid.game.ProbabilityChanged);
  for (int die = 1; die <= 6; ++die) EXPECT_EQ(grid.Roll(die, 7 - die), 16'667);
  EXPECT_EQ(grid.Roll(1, 1), 0);
  EXPECT_EQ(grid.Weight(kTotalRow, 6), 100'002);
  EXPECT_EQ(grid.Weight(kTotalRow, 1), 0);
  EXPECT_EQ(grid.Weight(2, kFirstDieColumn), 16'667);
  EXPECT_EQ(grid.State(kTotalRow, 6), kCellLocked);
  EXPECT_EQ(grid.State(3, 6), 0);
}

TEST(SetProbabilityCell, AFaceKeepsPercentageDice) {
  Grid grid;
  SetProbabilityCell(grid.game, 7, kFirstDieColumn, 0, true);
  EXPECT_FALSE(grid.FreeForm());
  for (int face = 1; face <= 5; ++face) {
    EXPECT_EQ(grid.Weight(face + 1, kFirstDieColumn), 20'000);
    EXPECT_EQ(grid.Roll(face, 3), 3'333);
    EXPECT_EQ(grid.Roll(6, face), 0);
  }
  EXPECT_EQ(grid.Weight(4, kSecondDieColumn), 16'667);
  EXPECT_EQ(grid.Weight(kTotalRow, kTotalColumns), 0);
  EXPECT_NEAR(static_cast<double>(grid.Sum()), 100'000, 20);

  // The other faces of the die stay what was set: a second edit leaves the first alone.
  SetProbabilityCell(grid.game, 2, kFirstDieColumn, 40'000, true);
  EXPECT_FALSE(grid.FreeForm());
  EXPECT_EQ(grid.Weight(7, kFirstDieColumn), 0);
  EXPECT_EQ(grid.Weight(3, kFirstDieColumn), 15'000);
}

TEST(SetProbabilityCell, AFaceOfFreeFormDiceIsAGroupOfRolls) {
  Grid grid;
  grid.State(0, 0) = -1;
  SetProbabilityCell(grid.game, 7, kSecondDieColumn, 40'000, true);
  for (int die = 1; die <= 6; ++die) EXPECT_EQ(grid.Roll(die, 6), 6'667);
  EXPECT_EQ(grid.Roll(6, 5), 2'000);
  EXPECT_EQ(grid.Weight(7, kSecondDieColumn), 40'002);
}

TEST(SetProbabilityCell, RespectsLocks) {
  Grid grid;
  for (int row = 2; row <= 7; ++row) grid.State(row, 6) = kCellLocked;
  SetProbabilityCell(grid.game, kTotalRow, 1, 30'000, true);
  EXPECT_EQ(grid.Roll(1, 1), 30'000);
  for (int die = 1; die <= 6; ++die) EXPECT_EQ(grid.Roll(die, 7 - die), 2'778);
  EXPECT_NEAR(static_cast<double>(grid.Sum()), 100'000, 20);

  // More than the locks leave is cut.
  SetProbabilityCell(grid.game, kTotalRow, 11, 99'000, true);
  EXPECT_EQ(grid.Roll(6, 6), 100'000 - 30'000 - 6 * 2'778);
  EXPECT_EQ(grid.Roll(1, 1), 30'000);
  EXPECT_EQ(grid.Roll(3, 3), 0);
}

TEST(SetProbabilityCell, ChangesNothingWhenNothingIsFree) {
  Grid grid;
  for (int column = 1; column <= kTotalColumns; ++column) {
    if (column != 6) grid.State(kTotalRow, column) = kCellLocked;
  }
  const auto before = grid.game.DiceProbability;
  SetProbabilityCell(grid.game, kTotalRow, 6, 50'000, true);
  EXPECT_EQ(grid.game.DiceProbability, before);
  EXPECT_FALSE(grid.game.ProbabilityChanged);

  Grid fresh;
  const auto defaults = fresh.game.DiceProbability;
  const std::array<std::array<int, 2>, 6> kNoCells = {
      {{0, 0}, {1, 0}, {1, 12}, {3, 1}, {8, 12}, {-1, 99}}};
  for (const auto& cell : kNoCells) {
    SetProbabilityCell(fresh.game, cell[0], cell[1], 50'000, true);
  }
  SetProbabilityCell(fresh.game, 1, 6, std::nan(""), true);
  EXPECT_EQ(fresh.game.DiceProbability, defaults);
}

TEST(SetProbabilityCell, ReadsTheFieldByItsDisplay) {
  const struct {
    std::int32_t display;
    double out_of;
    int row;
    int column;
    double typed;
    std::int32_t weight;
  } kCases[] = {
      {0, 36, 2, 1, 5.0, 5'000},      {1, 36, 2, 1, 1.0, 3'778},  // 2,777.8 and 1,000
      {1, 36, 2, 12, -1.0, 15'667},                               // 16,666.7 less 1,000
      {2, 36, 2, 1, 2.0, 5'556},                                  // 2 of 36 rolls
      {2, 1000, 2, 1, 250.0, 25'000}, {3, 36, 2, 1, 1.0, 5'556},  // one roll of 36 more than true
      {1, 36, 2, 1, -50.0, 0},        {0, 36, 2, 1, 1e9, 100'000},
  };
  for (const auto& c : kCases) {
    Grid grid;
    grid.game.ProbabilityDisplay = c.display;
    grid.game.RollsOutOf = c.out_of;
    SetProbabilityCell(grid.game, c.row, c.column, c.typed * 1000, false);
    EXPECT_EQ(grid.Weight(c.row, c.column), c.weight) << c.display << " " << c.typed;
  }
}

TEST(SetProbabilityCell, KeepsTheWholeThroughAnyEdits) {
  std::mt19937 random(29);
  for (int game = 0; game < 50; ++game) {
    Grid grid;
    for (int edit = 0; edit < 8; ++edit) {
      const int row = static_cast<int>(random() % 8);
      const int column = static_cast<int>(random() % 14);
      SetProbabilityCell(grid.game, row, column, static_cast<double>(random() % 20'000), true);
    }
    EXPECT_NEAR(static_cast<double>(grid.Sum()), 100'000, 30);
    std::int64_t totals = 0;
    for (int column = 1; column <= kTotalColumns; ++column) {
      totals += grid.Weight(kTotalRow, column);
    }
    EXPECT_EQ(totals, grid.Sum());
    for (int die1 = 1; die1 <= 6; ++die1) {
      for (int die2 = 1; die2 <= 6; ++die2) EXPECT_GE(grid.Roll(die1, die2), 0);
    }
  }
}

class ProbabilityFile : public testing::Test {
 protected:
  void SetUp() override {
    path_ = (std::filesystem::path(testing::TempDir()) /
             ("feltmaster_probability_test_" + std::to_string(getpid()) + ".prb"))
                .string();
  }
  void TearDown() override { std::filesystem::remove(path_); }

  void Write(const std::string& bytes) { std::ofstream(path_, std::ios::binary) << bytes; }
  static std::string Title(std::string title = "Feltking Probability File, Data Format 4.6") {
    title.resize(92, ' ');
    title.resize(256, '\0');
    return title;
  }
  static void Append(std::string& bytes, std::int32_t number) {
    for (int shift = 0; shift < 32; shift += 8) {
      bytes += static_cast<char>(static_cast<std::uint32_t>(number) >> shift & 0xFF);
    }
  }

  std::string path_;
};

TEST_F(ProbabilityFile, IsReadColumnByColumn) {
  std::string bytes = Title();
  for (std::int32_t n = 0; n < 2 * 8 * 14; ++n) Append(bytes, n);
  bytes.resize(5 * 256, 'x');
  Write(bytes);
  Grid grid;
  grid.game.ProbabilityChanged = true;
  ASSERT_TRUE(LoadProbabilityFile(grid.game, path_));
  EXPECT_EQ(grid.State(0, 1), 1);
  EXPECT_EQ(grid.State(1, 0), 14);
  EXPECT_EQ(grid.Weight(0, 0), 112);
  EXPECT_EQ(grid.Weight(7, 13), 223);
  EXPECT_EQ(grid.game.ProbabilityFileName, path_);
  EXPECT_FALSE(grid.game.ProbabilityChanged);
  EXPECT_EQ(grid.game.FileStatus, 1);
}

TEST_F(ProbabilityFile, SurvivesShortAndWildContent) {
  std::string bytes = Title();
  for (int n = 0; n < 150; ++n) Append(bytes, n % 2 == 0 ? 2147483647 : -2147483647);
  Write(bytes);
  Grid grid;
  ASSERT_TRUE(LoadProbabilityFile(grid.game, path_));
  for (const auto& row : grid.game.DiceProbability[1]) {
    for (const std::int32_t weight : row) EXPECT_TRUE(weight >= 0 && weight <= 100'000);
  }
  EXPECT_EQ(grid.Weight(7, 13), 0);
}

TEST_F(ProbabilityFile, IsRefusedWithoutItsTitle) {
  const auto defaults = Grid().game.DiceProbability;
  for (const std::string& bytes :
       {std::string(), Title("Feltking Probability File, Data Format 4.5"), std::string(5000, '\0'),
        Title().substr(0, 20)}) {
    Write(bytes);
    Grid grid;
    EXPECT_FALSE(LoadProbabilityFile(grid.game, path_));
    EXPECT_EQ(grid.game.DiceProbability, defaults);
    EXPECT_EQ(grid.game.FileStatus, 0);
    EXPECT_NE(grid.game.LastErrorText.find("is not a true Feltmaster Probability File."),
              std::string::npos);
  }
  for (const std::string& path : {path_ + ".missing", testing::TempDir()}) {
    Grid grid;
    EXPECT_FALSE(LoadProbabilityFile(grid.game, path));
    EXPECT_EQ(grid.game.FileStatus, -1);
    EXPECT_NE(grid.game.LastErrorText.find(" occurred, at: Open Probability File"),
              std::string::npos);
    EXPECT_EQ(grid.game.DiceProbability, defaults);
  }
}

}  // namespace
}  // namespace feltmaster
