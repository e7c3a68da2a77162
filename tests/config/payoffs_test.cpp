#include "config/payoffs.h"

#include <gtest/gtest.h>

#include <set>

#include "config/advantage.h"

namespace feltmaster {
namespace {

using namespace money_literals;

PayRow Row(MoneyAmount numerator, bool is_to, MoneyAmount denominator) {
  return {numerator, is_to, denominator};
}

Game HouseGame() {
  Game game;
  DefaultPayoffs(game);
  return game;
}

// A preset is worth a roll what the bet is worth that it stands for.
TEST(Payoffs, PresetsPlayTheirBets) {
  Game game = HouseGame();
  const auto field = [&game](FieldPreset preset) {
    SetFieldPayoffs(game, preset);
    return FigureAdvantage(game, kField);
  };
  const auto bet = [&game](int number) { return FigureAdvantage(game, number).ev_per_roll; };
  EXPECT_NEAR(field(FieldPreset::kAsPassLine).ev_per_roll, -7 / 495.0, 1e-6);
  EXPECT_NEAR(field(FieldPreset::kAsDontPass).ev_per_roll, -3 / 220.0, 1e-6);
  EXPECT_NEAR(field(FieldPreset::kAsPlaceLose8).ev_per_roll, (6 * 4 / 5.0 - 5) / 36, 1e-6);
  EXPECT_NEAR(field(FieldPreset::kAsCraplessPassLine).ev_per_roll,
              FigureAdvantage(game, kPassLine).ev_per_decision, 1e-6);
  EXPECT_NEAR(field(FieldPreset::kAsPlace6).ev_per_roll, bet(kPlace + 4), 1e-6);
  EXPECT_NEAR(field(FieldPreset::kAsBuy10).ev_per_roll, bet(kBuy + 7), 1e-6);
  EXPECT_NEAR(field(FieldPreset::kAsHard8).ev_per_roll, bet(kHard8), 1e-6);
  EXPECT_NEAR(field(FieldPreset::kAsHorn).ev_per_roll, bet(kHorn), 1e-6);
  EXPECT_NEAR(field(FieldPreset::kAsWorld).ev_per_roll, bet(kWorld), 1e-6);
  EXPECT_NEAR(field(FieldPreset::kAsHop13).ev_per_roll, bet(kHop13), 1e-6);
  game.LayVigAllBets = false;
  EXPECT_NEAR(field(FieldPreset::kAsLay4).ev_per_roll, bet(kLay + 2), 1e-6);
  EXPECT_NEAR(field(FieldPreset::kAsField).ev_per_roll, -1 / 18.0, 1e-6);

  SetFieldPayoffs(game, FieldPreset::kAsHorn);
  EXPECT_EQ(game.FieldPayTable[1], Row(27_usd, false, 4_usd));
  EXPECT_EQ(ShownNumerator(game.FieldPayTable[1]), 31_usd);
  EXPECT_TRUE(FindPayoffFault(game).title.empty());
}

TEST(Payoffs, GridLeavesOutWhatHasNoPayoffOfItsOwn) {
  std::set<int> bets(kPayoffGrid.begin(), kPayoffGrid.end());
  EXPECT_EQ(bets.size(), 82u);
  for (const int bet : {51, 52, 54, 67, 68, 69}) EXPECT_FALSE(bets.contains(bet));
  EXPECT_EQ(kPayoffGrid[50], kComeBox);
  EXPECT_EQ(kPayoffGrid[63], kOver7);
  EXPECT_EQ(PayoffLabel(kComePoint), "Pass/Come 2");
  EXPECT_EQ(PayoffLabel(kComeOdds + 9), "Pass/Come 12 Odds");
  EXPECT_EQ(PayoffLabel(kLay + 9), "Lay 12");
}

TEST(Payoffs, ALossAboveTheStakeIsAFault) {
  const struct {
    int bet;
    PayRow row;
    const char* title;
  } kCases[] = {
      {kHard6, Row(MoneyAmount(-2), true, 1_usd), "Payoff ratio error on Hard 6"},
      {kHard6, Row(MoneyAmount(-1), true, 1_usd), ""},
      {kHard6, Row(MoneyAmount(-1), false, 1_usd), ""},  // 0 for 1
      {kHard6, Row(MoneyAmount::FromRaw(-10'001), true, 1_usd), "Payoff ratio error on Hard 6"},
      {kComeBox, Row(MoneyAmount(-2), true, 1_usd), "Payoff ratio error on Passline/Come (c.o.)"},
      {kComePoint, Row(MoneyAmount(-2), true, 1_usd), "Payoff ratio error on Pass/Come 2"},
      {kComePoint + 9, Row(MoneyAmount(-2), true, 1_usd), "Payoff ratio error on Pass/Come 12"},
      {kComeOdds + 2, Row(MoneyAmount(-2), true, 1_usd), "Payoff ratio error on Come 4 Odds"},
      {kPassLine, Row(MoneyAmount(-2), true, 1_usd), ""},  // not in the grid
      {kHop55, Row(MoneyAmount::FromRaw(std::numeric_limits<std::int64_t>::min()), true, 1_usd),
       "Payoff ratio error on Hop 5-5"},
  };
  for (const auto& c : kCases) {
    Game game = HouseGame();
    game.PayTable[static_cast<std::size_t>(c.bet)] = c.row;
    EXPECT_EQ(FindPayoffFault(game).title, c.title);
  }
  // The bets come before the Field, and the first row is told.
  Game game = HouseGame();
  game.FieldPayTable[21] = Row(MoneyAmount(-2), true, 1_usd);
  EXPECT_EQ(FindPayoffFault(game).title, "Payoff ratio error on Field");
  EXPECT_EQ(FindPayoffFault(game).grid_row, 21);
  game.PayTable[kHop55] = Row(MoneyAmount(-2), true, 1_usd);
  EXPECT_EQ(FindPayoffFault(game).grid_row, 82);
  EXPECT_FALSE(FindPayoffFault(game).of_field);
}

}  // namespace
}  // namespace feltmaster
