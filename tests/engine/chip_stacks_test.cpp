#include "engine/chip_stacks.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

#include "autobet/flags.h"
#include "support/recording_surface.h"
#include "view/table_rows.h"

namespace feltmaster {
namespace {

using namespace money_literals;
using ::testing::ElementsAre;

class ChipStacks : public testing::Test {
 protected:
  ChipStacks() { game_->surface = &surface_; }
  MoneyAmount Stack(int stack) const { return game_->BetAmount[kFirstStack + stack]; }

  RecordingSurface surface_;
  std::unique_ptr<Game> game_ = std::make_unique<Game>();
};

TEST_F(ChipStacks, AreEnteredWithoutLimits) {
  EnterStackCell(*game_, {0, false}, "99999999999999.5");
  EnterStackCell(*game_, {99, false}, "-1,250.25");
  EnterStackCell(*game_, {7, false}, "words");
  EXPECT_EQ(Stack(0), MoneyAmount::FromRaw(999'999'999'999'995'000));
  EXPECT_EQ(Stack(99), -1250.25_usd);
  EXPECT_EQ(Stack(7), 0_usd);
  EXPECT_TRUE(game_->GameChanged);
  EXPECT_EQ(game_->BetAmount[200], 0_usd);

  EnterStackCell(*game_, {99, true}, std::string(79, 'n') + "\xC3\xA4");
  EXPECT_EQ(game_->ChipStackName[99], std::string(79, 'n'));

  const Rows rows = ChipStackRows(*game_);
  ASSERT_EQ(rows.size(), 100U);
  EXPECT_EQ(rows[99], (Row{"99", "-1,250.25", std::string(79, 'n')}));
  EXPECT_EQ(rows[7], (Row{"7", "", ""}));
  EXPECT_EQ(StackCellText(*game_, {7, false}), "");
  EXPECT_EQ(StackCellText(*game_, {99, false}), "-1250.25");
  SetStackDisplayZero(*game_, true);
  EXPECT_EQ(ChipStackRows(*game_)[7], (Row{"7", "0", ""}));
  EXPECT_EQ(StackCellText(*game_, {7, false}), "0");
}

TEST_F(ChipStacks, BulkCommandsAskFirst) {
  const auto fill = [&] {
    for (int stack = 0; stack < 100; ++stack) {
      EnterStackCell(*game_, {stack, false}, "5");
      EnterStackCell(*game_, {stack, true}, "five");
    }
  };
  fill();
  EXPECT_FALSE((surface_.Answer(kAnswerNo), ClearStacks(*game_, StackClearing::kValuesAndNames)));
  EXPECT_EQ(Stack(50), 5_usd);
  EXPECT_TRUE((surface_.Answer(kAnswerYes), ClearStacks(*game_, StackClearing::kAllValues)));
  EXPECT_EQ(Stack(0) + Stack(99), 0_usd);
  EXPECT_EQ(game_->ChipStackName[99], "five");
  fill();
  EXPECT_TRUE((surface_.Answer(kAnswerYes), ClearStacks(*game_, StackClearing::kAllNames)));
  EXPECT_EQ(Stack(99), 5_usd);
  EXPECT_EQ(game_->ChipStackName[0] + game_->ChipStackName[99], "");
  fill();
  EXPECT_TRUE((surface_.Answer(kAnswerYes), ClearStacks(*game_, StackClearing::kValuesAndNames)));
  EXPECT_EQ(Stack(99), 0_usd);
  EXPECT_EQ(game_->ChipStackName[99], "");

  using Message = RecordingSurface::Message;
  const Message all = {
      "Delete All Values and Names",
      "Are you sure you want to set all Chip-Stack values to zero and delete all names?",
      2 + 4 + 1024 + 8192};
  EXPECT_THAT(
      surface_.messages,
      ElementsAre(all,
                  Message{"Delete All Values",
                          "Are you sure you want to set all Chip-Stack values to zero?", 9222},
                  Message{"Delete All Names",
                          "Are you sure you want to delete all Chip-Stack names?", 9222},
                  all));
}

TEST_F(ChipStacks, FourOfThemLieOnTheTable) {
  game_->ChipList = {{101, 1, 0, 0}, {kField, 2, 0, 0}, {104, 1, 0, 0}, {120, 3, 0, 0}};
  EXPECT_EQ(SetVisibleStacks(*game_, {5, 6, 7, 6}), 4);
  EXPECT_EQ(SetVisibleStacks(*game_, {9, 9, 7, 7}), 2);
  EXPECT_EQ(game_->StackSlots[1], 101);
  ASSERT_EQ(surface_.messages.size(), 2U);
  EXPECT_EQ(surface_.messages[0],
            (RecordingSurface::Message{"Set Visible Chip-Stacks",
                                       "Each Chip-Stack entry should be a different number.", 1}));

  EXPECT_EQ(SetVisibleStacks(*game_, {99, 0, 1, 57}), 0);
  EXPECT_THAT(game_->StackSlots, ElementsAre(0, 199, 100, 101, 157));
  EXPECT_EQ(game_->StackPileName[4], "Chip-Stack #57");
  EXPECT_TRUE(game_->RedrawTable);
  ASSERT_EQ(game_->ChipList.size(), 2U);
  EXPECT_EQ(game_->ChipList[0].bet, kField);
  EnterStackCell(*game_, {57, false}, "5");
  ASSERT_EQ(game_->ChipList.size(), 3U) << "the top pile shows what was entered";
  EXPECT_EQ(game_->ChipList[2].bet, 157);
  EXPECT_EQ(game_->ChipList[2].y, 64);
}

TEST_F(ChipStacks, KeysMoveTheEntryBox) {
  StackCell cell;
  const auto press = [&](StackKey key) { return cell = MoveStackCell(*game_, cell, key, 20); };
  EXPECT_EQ(press(StackKey::kRight), (StackCell{0, true}));
  EXPECT_EQ(press(StackKey::kUp), (StackCell{0, true}));
  EXPECT_EQ(press(StackKey::kPageDown), (StackCell{20, true}));
  EXPECT_EQ(game_->StackListScroll, 1);
  for (int i = 0; i < 9; ++i) press(StackKey::kPageDown);
  EXPECT_EQ(cell, (StackCell{99, true}));
  EXPECT_EQ(game_->StackListScroll, 80);
  EXPECT_EQ(press(StackKey::kLeft), (StackCell{99, false}));
  press(StackKey::kPageUp);
  EXPECT_EQ(game_->StackListScroll, 79);
}

TEST_F(ChipStacks, FlagsSetByHandAreNoNews) {
  game_->ScriptFlags = {{"a", true}, {"b", false}, {"c", false, true}};
  const std::vector<std::size_t> rows = {0, 2};
  PressFlagButton(*game_, rows, FlagButton::kReverse);
  EXPECT_THAT(FlagRows(*game_), ElementsAre(Row{"a - False"}, Row{"b - False"}, Row{"c - True"}));
  PressFlagButton(*game_, rows, FlagButton::kTrue);
  EXPECT_TRUE(game_->ScriptFlags[0].FlagValue);
  EXPECT_FALSE(game_->ScriptFlags[0].FlagChanged);
  EXPECT_TRUE(game_->ScriptFlags[2].FlagChanged);
  EXPECT_FALSE(game_->ScriptFlags[1].FlagValue);
  EXPECT_TRUE(game_->GameChanged);
}

}  // namespace
}  // namespace feltmaster
