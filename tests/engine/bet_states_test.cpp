#include "engine/bet_states.h"

#include "automation/auto_play.h"
#include "engine/bet_fixture.h"

namespace feltmaster {
namespace {

using BetStatesTest = BetTable;

TEST_F(BetStatesTest, ARuleForTheComeOutTakesEffectAtOnce) {
  const auto mark = [&](int bet, BetMark how) {
    BetSet selected;
    selected.Add(bet);
    MarkWorkOnComeOut(game, selected, how);
  };
  mark(kLay, BetMark::kNo);
  mark(kPlace, BetMark::kToggle);
  mark(kRail, BetMark::kYes);
  mark(kPassLine, BetMark::kNo);  // not on the list
  EXPECT_TRUE(game.WorkOnComeOut.Has(kPassLine));
  EXPECT_EQ(game.BetState[kLay], kNotWorking);
  EXPECT_EQ(game.BetState[kPlace], kWorking);
  game.BetState.Set(kLay + 1, kCalledOn);
  mark(kLay + 1, BetMark::kNo);
  EXPECT_EQ(game.BetState[kLay + 1], kCalledOn) << "a call ON stands above the rule";
  SetPoint(5);
  EXPECT_EQ(game.BetState[kLay], kWorking);
  SetPoint(0);
  EXPECT_EQ(game.BetState[kLay], kNotWorking);
  mark(kLay, BetMark::kDefault);
  EXPECT_EQ(game.BetState[kLay], kWorking);
  ResetWorkOnComeOut(game);
  EXPECT_EQ(game.BetState[kLay], kWorking);
  EXPECT_EQ(game.BetState[kPlace], kNotWorking);
  EXPECT_FALSE(game.WorkOnComeOut.Has(kRail));
  ResetBetState(game, kFirstStack);  // no bet
}

}  // namespace
}  // namespace feltmaster
