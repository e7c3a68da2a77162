#include "config/advantage.h"

#include <gtest/gtest.h>

#include "config/payoffs.h"
#include "dice/probability.h"

namespace feltmaster {
namespace {

Game HouseGame() {
  Game game;
  DefaultPayoffs(game);
  DefaultProbabilities(game);
  return game;
}

TEST(Advantage, ZeroOutcomesCountAsDecisionsWhenAsked) {
  Game game = HouseGame();
  game.IncludeZeroOutcomes = true;
  for (const int bet : {kPlace + 4, kHard4, kWorld, kBuy, kLay}) {
    const Advantage figured = FigureAdvantage(game, bet);
    EXPECT_EQ(figured.ev_per_decision, figured.ev_per_roll);
    EXPECT_EQ(figured.deviation_per_decision, figured.deviation_per_roll);
    EXPECT_EQ(figured.rolls_per_decision, 1);
  }
}

TEST(Advantage, SkewedDiceCount) {
  Game game = HouseGame();
  game.UseSkewedProbability = true;
  EXPECT_NEAR(FigureAdvantage(game, kField).ev_per_decision, -1 / 18.0, 1e-4);
  SetProbabilityCell(game, kTotalRow, 6, 100'000, true);
  EXPECT_NEAR(FigureAdvantage(game, kSeven).ev_per_roll, 4, 1e-3);
  EXPECT_EQ(FigureAdvantage(game, kPlace).ev_per_decision, -1);
  EXPECT_NEAR(FigureAdvantage(game, kPassLine).ev_per_decision, 1, 1e-3);
  game.UseSkewedProbability = false;
  EXPECT_EQ(FigureAdvantage(game, kSeven).rolls_per_decision, 1);
}

TEST(Advantage, DiceThatNeverDecideGiveZeros) {
  Game game = HouseGame();
  game.UseSkewedProbability = true;
  for (auto& row : game.DiceProbability[1]) row.fill(0);
  for (PayRow& row : game.FieldPayTable) row.PayDenominator = {};
  for (int bet = 0; bet <= kBetCount + 1; ++bet) {
    const Advantage figured = FigureAdvantage(game, bet);
    EXPECT_EQ(figured.ev_per_roll, 0) << bet;
    EXPECT_EQ(figured.ev_per_decision, 0) << bet;
    EXPECT_EQ(figured.rolls_per_decision, 0) << bet;
    EXPECT_EQ(figured.deviation_per_roll, 0) << bet;
    EXPECT_EQ(figured.deviation_per_decision, 0) << bet;
  }
}

}  // namespace
}  // namespace feltmaster
