#include "engine/bet_states.h"

#include "automation/auto_play.h"
#include "engine/bet_fixture.h"

namespace feltmaster {
namespace {

using BetStatesTest = BetTable;

TEST_F(BetStatesTest, OnTheComeOutBetsTakeTheirRule) {
  for (int bet = 1; bet <= kBetCount; ++bet) {
    const bool idle = (bet >= kComeOdds && bet < kPassLine) || bet == kPassOdds || bet == kComeBox;
    EXPECT_EQ(game.BetState[bet], idle ? kNotWorking : kWorking) << bet;
  }
}

TEST_F(BetStatesTest, CallsSurviveThePoint) {
  game.BetState.Set(kPlace, kCalledOn);
  game.BetState.Set(kField, kCalledOff);
  for (const int point : {6, 0}) {
    SetPoint(point);
    EXPECT_EQ(game.BetState[kPlace], kCalledOn);
    EXPECT_EQ(game.BetState[kField], kCalledOff);
    EXPECT_EQ(game.BetState[kPlace + 1], point == 0 ? kNotWorking : kWorking);
  }
  ResetBetState(game, kPlace);
  ResetBetState(game, kField);
  ResetBetState(game, kFirstStack);
  EXPECT_EQ(game.BetState[kPlace], kNotWorking);
  EXPECT_EQ(game.BetState[kField], kWorking);
}

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
}

}  // namespace
}  // namespace feltmaster
