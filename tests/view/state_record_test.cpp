#include "view/state_record.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "base/text.h"
#include "support/started_game.h"

namespace feltmaster {
namespace {

class StateRecordTest : public StartedGame<> {
 protected:
  StateRecordTest() {
    game_->ScriptLines.resize(2);
    game_->ScriptFlags.resize(3);
  }
};

TEST_F(StateRecordTest, NamesAreUniqueInAnyCase) {
  std::set<std::string> seen;
  for (const StateName& entry : StateRecord()) {
    EXPECT_TRUE(seen.insert(Lower(entry.name)).second) << entry.name;
    EXPECT_EQ(FindStateName(Lower(entry.name)), &entry);
  }
  EXPECT_EQ(FindStateName("BetAmounts"), nullptr);
}

StateValue Another(const StateValue& value) {
  struct Change {
    StateValue operator()(bool on) const { return !on; }
    StateValue operator()(std::int64_t number) const {
      return number == 0 ? std::int64_t{1} : number - 1;
    }
    StateValue operator()(MoneyAmount amount) const {
      return amount.Raw() == 10'000 ? MoneyAmount(2) : MoneyAmount(1);
    }
    StateValue operator()(double number) const { return number + 0.5; }
    StateValue operator()(const std::string& text) const { return text + "x"; }
    StateValue operator()(const ScriptFlag& flag) const { return flag; }
  };
  return std::visit(Change(), value);
}

std::string TextOf(const StateValue& value) {
  struct Text {
    std::string operator()(bool on) const { return on ? "true" : "false"; }
    std::string operator()(std::int64_t number) const { return std::to_string(number); }
    std::string operator()(MoneyAmount amount) const { return std::to_string(amount.Raw()); }
    std::string operator()(double number) const { return std::to_string(number); }
    std::string operator()(const std::string& text) const { return text; }
    std::string operator()(const ScriptFlag& flag) const { return flag.FlagName; }
  };
  return std::visit(Text(), value);
}

// Every element at the ends of its bounds can be read; one that takes another value gives that very
// value back.
TEST_F(StateRecordTest, WhatIsWrittenIsReadBack) {
  int written = 0;
  for (const StateName& entry : StateRecord()) {
    StateIndex first{};
    StateIndex last{};
    for (int i = 0; i < entry.rank; ++i) {
      const StateBounds bounds = BoundsOf(*game_, entry, i);
      first[static_cast<std::size_t>(i)] = bounds.first;
      last[static_cast<std::size_t>(i)] = bounds.last;
    }
    if (entry.rank > 0 && last[0] < first[0]) continue;
    for (const StateIndex& index : {first, last}) {
      const StateValue before = entry.read(*game_, index);
      EXPECT_EQ(before.index(), static_cast<std::size_t>(entry.type)) << entry.name;
      if (entry.write == nullptr) continue;
      const StateValue other = Another(before);
      if (!entry.write(*game_, index, other)) continue;
      ++written;
      EXPECT_EQ(TextOf(entry.read(*game_, index)), TextOf(other)) << entry.name;
      EXPECT_TRUE(entry.write(*game_, index, before)) << entry.name;
    }
  }
  EXPECT_GT(written, 300);
}

TEST_F(StateRecordTest, NothingThatIndexesATableLeavesIt) {
  const struct {
    std::string_view name;
    std::int64_t value;
  } cases[] = {{"Die1", 0},
               {"Die2", 7},
               {"Point", 7},
               {"PrevPoint", 13},
               {"CurrentBet", 201},
               {"RngSelected", 8},
               {"StackSlots", 200},
               {"StackSlots", 99},
               {"BankrollHistoryCount", 526},
               {"GraphStyle", -1},
               {"HandleChoiceTag", 4},
               {"HandleWinningBets", 8},
               {"BetState", 3},
               {"DiceTotal", 1},
               {"ScriptActive", 2}};
  for (const auto& one : cases) {
    const StateName* entry = FindStateName(one.name);
    ASSERT_NE(entry, nullptr) << one.name;
    StateIndex index{};
    if (entry->rank > 0) index[0] = BoundsOf(*game_, *entry, 0).last;
    const std::string before = TextOf(entry->read(*game_, index));
    EXPECT_FALSE(entry->write(*game_, index, one.value)) << one.name;
    EXPECT_EQ(TextOf(entry->read(*game_, index)), before) << one.name;
  }
}

}  // namespace
}  // namespace feltmaster
