// The panel on which the player picks the next roll.
#include "dice/roll_panel.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <set>

#include "automation/hyper_drive.h"
#include "engine/start_up.h"
#include "stats/roll_statistics.h"
#include "support/recording_surface.h"

namespace feltmaster {
namespace {

constexpr PanelSize kSizes[] = {
    {640, 200, 630, 180}, {200, 640, 190, 620}, {320, 300, 310, 280}, {90, 60, 7, 3}};

class RollPanelTest : public testing::Test {
 protected:
  void SetUp() override {
    game_->surface = &surface_;
    StartUp(*game_, {.data_dir = {}, .seed = 3});
  }
  // Presses the middle of every cell, and what the cell says is what the dice are.
  std::map<std::string, std::set<int>> PressAll(RollPanel panel, const PanelSize& size) {
    std::map<std::string, std::set<int>> picked;
    const PanelLayout layout = LayOutPanel(panel, size);
    for (const RollCell& cell : RollCells(*game_, panel, layout)) {
      for (int times = 0; times < 60; ++times) {
        if (!PickOnPanel(*game_, panel, layout, cell.Left + 1, cell.Top + 1)) continue;
        picked[cell.Label].insert(game_->Die1 * 10 + game_->Die2);
        bool marked = false;
        for (const RollCell& after : RollCells(*game_, panel, layout)) {
          if (after.Label == cell.Label) marked = after.IsMarked;
        }
        EXPECT_TRUE(marked) << cell.Label;
      }
    }
    return picked;
  }

  RecordingSurface surface_;
  std::unique_ptr<Game> game_ = std::make_unique<Game>();
};

TEST_F(RollPanelTest, EveryCellGivesWhatItShows) {
  for (const PanelSize& size : {kSizes[0], kSizes[1], kSizes[2]}) {
    const auto totals = PressAll({.Display = PanelDisplay::kTotals}, size);
    EXPECT_EQ(totals.size(), 11u);
    for (const auto& [label, dice] : totals) {
      const int total = std::stoi(label);
      EXPECT_EQ(static_cast<int>(dice.size()), 6 - std::abs(7 - total)) << label;
      for (const int pair : dice) EXPECT_EQ(pair / 10 + pair % 10, total);
    }
    for (const PanelDisplay display : {PanelDisplay::kTriangle, PanelDisplay::kBox}) {
      const auto combinations = PressAll({.Display = display, .RollCounter = true}, size);
      EXPECT_EQ(combinations.size(), 36u);
      for (const auto& [label, dice] : combinations) {
        EXPECT_EQ(dice, std::set<int>{(label[0] - '0') * 10 + label[2] - '0'});
      }
    }
  }
}

TEST_F(RollPanelTest, PlacesOnThePanel) {
  // The triangle, wide: a column holds a total, its combinations from the top.
  RollPanel panel = {.Display = PanelDisplay::kTriangle, .HyperDriveButton = true};
  PanelLayout layout = LayOutPanel(panel, {660, 140, 660, 140});
  EXPECT_EQ(layout.RyonCellWidth, 60);
  EXPECT_EQ(layout.RyonCellHeight, 20);
  EXPECT_EQ(layout.HyperDriveTop, 0);
  EXPECT_EQ(layout.RyonTopMargin, 20);
  const auto pick = [&](int x, int y) {
    return PickOnPanel(*game_, panel, layout, x, y) ? game_->Die1 * 10 + game_->Die2 : 0;
  };
  EXPECT_EQ(pick(5 * 60, 20), 61);
  EXPECT_EQ(pick(5 * 60, 20 + 5 * 20), 16);
  EXPECT_EQ(pick(6 * 60, 20), 62);
  EXPECT_EQ(pick(10 * 60, 20), 66);
  EXPECT_EQ(pick(0, 20), 11);
  EXPECT_EQ(pick(0, 40), 0);  // a corner of the triangle
  EXPECT_EQ(pick(0, 19), 0);  // the button
  EXPECT_EQ(pick(659, 139), 0);

  // Totals in a block: 2 to 6, a wide 7, 8 to 12. In a line the strip beside it counts as the line.
  panel = {.Display = PanelDisplay::kTotals};
  layout = LayOutPanel(panel, {300, 300, 299, 299});
  EXPECT_EQ(RollCells(*game_, panel, layout)[5].Width, 5 * 59 - 5);
  pick(3 * 59, 0);
  EXPECT_EQ(game_->Die1 + game_->Die2, 5);
  pick(290, 120);
  EXPECT_EQ(pick(298, 120), 0);
  pick(0, 250);
  EXPECT_EQ(game_->Die1 + game_->Die2, 8);
  EXPECT_EQ(pick(0, 298), 0);
  layout = LayOutPanel(panel, {660, 100, 660, 95});
  EXPECT_EQ(pick(10 * 60, 5000), 66);

  // Nothing on a panel that is too small divides by nothing.
  for (const PanelDisplay display :
       {PanelDisplay::kTotals, PanelDisplay::kTriangle, PanelDisplay::kBox, PanelDisplay::kFaces}) {
    panel = {
        .Display = display, .RollCounter = true, .HyperDriveButton = true, .RandomButton = true};
    layout = LayOutPanel(panel, kSizes[3]);
    EXPECT_GE(layout.RyonCellHeight, 1);
    pick(3, 3);
  }
}

TEST_F(RollPanelTest, OneDieAtATime) {
  RollPanel panel = {.Display = PanelDisplay::kFaces};
  const PanelLayout layout = LayOutPanel(panel, {600, 200, 600, 200});
  const auto press = [&](int die, int face) {
    return PickOnPanel(*game_, panel, layout, (face - 1) * 100 + 50, (die - 1) * 100 + 50);
  };
  EXPECT_FALSE(press(1, 2));
  EXPECT_FALSE(press(1, 5));
  RollPickedDice(*game_);  // another roll leaves the choice pending
  EXPECT_EQ(panel.FirstFaceChosen, 5);
  EXPECT_TRUE(press(2, 6));
  EXPECT_EQ(game_->Die1 * 10 + game_->Die2, 56);
  EXPECT_EQ(panel.FirstFaceChosen + panel.SecondFaceChosen, 0);
  const std::int32_t before = RollCounts(*game_, 0);
  RollPickedDice(*game_);
  EXPECT_EQ(RollCounts(*game_, 0), before + 1);
  EXPECT_EQ(game_->DiceTotal, 11);
  EXPECT_FALSE(game_->DiceAlreadySet);
  PressRandomRoll(*game_);
  EXPECT_EQ(RollCounts(*game_, 0), before + 2);
  EXPECT_EQ(RollCounterText(*game_), "3");
}

TEST_F(RollPanelTest, TheStoredStateComesBack) {
  std::set<std::int32_t> states;
  for (int display = 0; display < 4; ++display) {
    for (int options = 0; options < 8; ++options) {
      RollPanel panel;
      panel.Display = static_cast<PanelDisplay>(display);
      panel.RollCounter = (options & 1) != 0;
      panel.HyperDriveButton = (options & 2) != 0;
      panel.RandomButton = (options & 4) != 0;
      const std::int32_t state = StateOf(panel);
      EXPECT_TRUE(states.insert(state).second);
      const std::int32_t sum = (1 << display) + 8 * (options & 1) + 16 * (options >> 1);
      EXPECT_TRUE(display == 3 || state == sum) << state;
      const RollPanel back = RollPanelOf(state);
      EXPECT_EQ(back.Display, panel.Display);
      EXPECT_EQ(back.RollCounter, panel.RollCounter);
      EXPECT_EQ(back.HyperDriveButton, panel.HyperDriveButton);
      EXPECT_EQ(back.RandomButton, panel.RandomButton);
    }
  }
  for (const std::int32_t none : {0, 16, 48, 1 << 20}) {
    EXPECT_EQ(StateOf(RollPanelOf(none)), 2) << none;  // the triangle, and no option
  }
  EXPECT_EQ(RollPanelOf(7).Display, PanelDisplay::kTotals);
}

TEST_F(RollPanelTest, ColoursByTotalAndByFace) {
  const auto colors = [&](PanelDisplay display, int scheme) {
    RollPanel panel = {.Display = display};
    game_->RyonButtonColor = scheme;
    std::map<std::string, std::set<std::int32_t>> found;
    for (const RollCell& cell : RollCells(*game_, panel, LayOutPanel(panel, kSizes[0]))) {
      found[cell.Label].insert(cell.Color);
    }
    return found;
  };
  using Set = std::set<std::int32_t>;
  auto totals = colors(PanelDisplay::kTotals, 0);
  EXPECT_EQ(totals["2"], Set{0x00FF00});
  EXPECT_EQ(totals["11"], Set{0xFF00FF});
  EXPECT_EQ(totals["4"], Set{0x00FFFF});
  EXPECT_EQ(totals["9"], Set{0xFF4040});
  EXPECT_EQ(totals["8"], Set{0x0000FF});
  EXPECT_EQ(totals["7"], Set{0xFFFF00});
  EXPECT_EQ(colors(PanelDisplay::kTotals, 9), totals);  // an unknown scheme is the first
  EXPECT_EQ(colors(PanelDisplay::kBox, 1)["6-4"], Set{0xFFFF00});
  EXPECT_EQ(colors(PanelDisplay::kBox, 1)["3-4"], Set{0x0000FF});
  EXPECT_EQ(colors(PanelDisplay::kFaces, 0)["5"], Set{0xFFFF00});
  EXPECT_EQ(colors(PanelDisplay::kFaces, 1)["5"], (Set{0xFFFF00, 0x0000FF}));
  EXPECT_EQ(colors(PanelDisplay::kFaces, 2)["5"].size(), 1u);
}

}  // namespace
}  // namespace feltmaster
