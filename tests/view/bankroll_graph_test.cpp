#include "view/bankroll_graph.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

#include "stats/bankroll_history.h"
#include "stats/roll_statistics.h"
#include "support/recording_surface.h"

namespace feltmaster {
namespace {

using namespace money_literals;
using ::testing::ElementsAre;

class BankrollGraphTest : public testing::Test {
 protected:
  BankrollGraphTest() {
    game_->surface = &surface_;
    RestartGraph(*game_);
  }
  void Roll(std::initializer_list<MoneyAmount> bankrolls) {
    for (const MoneyAmount bankroll : bankrolls) {
      SetRollCounts(*game_, 0, RollCounts(*game_, 0) + 1);
      game_->BetAmount.Set(kBankroll, bankroll);
      TrackBankroll(*game_);
    }
  }
  GraphColumn Column(int position) {
    return PaintBankrollGraph(*game_).columns[static_cast<std::size_t>(position - 1)];
  }

  RecordingSurface surface_;
  std::unique_ptr<Game> game_ = std::make_unique<Game>();
};

// Scale 1, top 150: an amount of v lies at the height 150 - v.
TEST_F(BankrollGraphTest, StrokesOfTheThreeStyles) {
  game_->GraphAverageRolls = 2;
  Roll({10_usd, 20.5_usd, -7.5_usd, 400_usd, -400_usd});
  using Fill = std::optional<GraphStroke>;
  // Striped: every even roll. The averages are 10, 15.25, 6.5, 196.25 and 0.
  EXPECT_EQ(Column(1), (GraphColumn{std::nullopt, {0, 140, 0, 140, 0}}));
  EXPECT_EQ(Column(2), (GraphColumn{GraphStroke{1, 135, 1, 130, 9}, {0, 140, 1, 130, 0}}));
  EXPECT_EQ(Column(3), (GraphColumn{std::nullopt, {1, 130, 2, 158, 0}}));
  EXPECT_EQ(Column(4), (GraphColumn{GraphStroke{3, -1, 3, -1, 12}, {2, 158, 3, -1, 0}}));
  EXPECT_EQ(Column(5), (GraphColumn{std::nullopt, {3, -1, 4, 301, 0}}));

  game_->GraphStyle = 2;  // solid, down to what was put in
  game_->GraphShowAverage = false;
  game_->AmountInvested = 5_usd;
  game_->GraphColorScheme = 7;
  EXPECT_EQ(Column(3).fill, (Fill{{2, 145, 2, 158, 0}}));
  EXPECT_EQ(Column(1).fill, (Fill{{0, 145, 0, 140, 3}}));

  game_->GraphStyle = 0;  // a dotted line of baselines, where they lie on the graph
  EXPECT_EQ(Column(3).fill, (Fill{{2, 145, 2, 145, 0}}));
  game_->AmountInvested = 1000_usd;
  EXPECT_EQ(Column(3).fill, Fill());
}

TEST_F(BankrollGraphTest, ScaleLabelsGridAndPages) {
  BankrollGraph graph = PaintBankrollGraph(*game_);
  EXPECT_THAT(graph.scale_labels, ElementsAre("150", "100", "50", "0", "-50", "-100", "-150"));
  EXPECT_EQ(graph.rolls_left + " to " + graph.rolls_right, "1 to 525");
  EXPECT_EQ(graph.pen, 150);
  EXPECT_EQ(graph.average_caption, "120 roll moving average");
  ASSERT_EQ(graph.grid.size(), 5U);
  EXPECT_EQ(graph.grid[4], (GraphStroke{0, 250, 524, 250, 7}));

  for (int i = 0; i < 526; ++i) Roll({1_usd});
  game_->GraphScale = 0.02_usd;
  game_->GraphTop = 1234.5_usd;
  game_->GraphColorScheme = 7;
  game_->GraphAverageRolls = 0;
  graph = PaintBankrollGraph(*game_);
  EXPECT_THAT(graph.scale_labels,
              ElementsAre("1,235", "1,234", "1,233", "1,232", "1,231", "1,230", "1,229"));
  EXPECT_EQ(graph.rolls_left + " to " + graph.rolls_right, "526 to 1050");
  EXPECT_EQ(graph.columns.size(), 1U);
  EXPECT_EQ(graph.grid[0].color, 8);
  EXPECT_EQ(graph.average_caption, "All rolls average");
}

TEST_F(BankrollGraphTest, TheNewestColumnIsPaintedAloneWhileTheScaleHolds) {
  EXPECT_FALSE(ExtendGraph(*game_));
  Roll({180_usd});  // the very first roll, off the scale
  EXPECT_FALSE(ExtendGraph(*game_));
  EXPECT_EQ(game_->GraphTop, 300_usd);
  Roll({190_usd});
  EXPECT_EQ(ExtendGraph(*game_), Column(2));
  Roll({301_usd});
  EXPECT_FALSE(ExtendGraph(*game_));
  EXPECT_EQ(game_->GraphTop, 600_usd);  // and two dollars a point
  game_->GraphAdjustType = 0;
  Roll({-301_usd});
  EXPECT_EQ(ExtendGraph(*game_)->line.y2, 301);
}

TEST_F(BankrollGraphTest, ReferenceLinesTellRollsAndAmounts) {
  game_->GraphRefLines = true;
  game_->GraphAverageRolls = 2;
  Roll({10_usd, 20_usd, 50.25_usd});
  MoveReferenceLine(*game_, 1, 2, false, false);
  MoveReferenceLine(*game_, 2, 900, false, false);
  BankrollGraph graph = PaintBankrollGraph(*game_);
  EXPECT_THAT(graph.reference_lines,
              ElementsAre(GraphStroke{2, 0, 2, 300, 0}, GraphStroke{0, 100, 524, 100, 0},
                          GraphStroke{524, 0, 524, 300, 13}));
  EXPECT_EQ(graph.reference_labels[0].roll + ' ' + graph.reference_labels[0].amount, "3 50.25");
  EXPECT_EQ(graph.reference_labels[1].roll + graph.reference_labels[1].amount, "525");
  EXPECT_EQ(graph.rolls_between + graph.bankroll_between, "Rolls:  522");
  EXPECT_THAT(game_->RefLineLevel, ElementsAre(testing::_, 100, -1));

  MoveReferenceLine(*game_, 2, 1, true, true);  // Ctrl and Shift
  graph = PaintBankrollGraph(*game_);
  EXPECT_FALSE(game_->RefLineOnAverage[1]);
  EXPECT_EQ(graph.reference_labels[0].amount, "20");
  EXPECT_EQ(graph.reference_labels[1].amount, "15");
  EXPECT_EQ(graph.rolls_between + " " + graph.bankroll_between, "Rolls:  0 Bankroll:  5");
}

TEST_F(BankrollGraphTest, ButtonsMoveTheScale) {
  game_->GraphAdjustType = 0;
  StepGraph(*game_, GraphStep::kUp);
  StepGraph(*game_, GraphStep::kUp);
  StepGraph(*game_, GraphStep::kDown);
  EXPECT_EQ(game_->GraphTop, 200_usd);
  game_->GraphScale = 4000_usd;
  StepGraph(*game_, GraphStep::kLarger);
  EXPECT_EQ(game_->GraphScale, 10'000_usd);
  EXPECT_EQ(game_->GraphManualScale, 10'000_usd);
  EXPECT_EQ(game_->GraphTop, 1'500'000_usd);
  for (int i = 0; i < 9; ++i) StepGraph(*game_, GraphStep::kLarger);
  EXPECT_EQ(game_->GraphScale, 100'000_usd);
  for (int i = 0; i < 30; ++i) StepGraph(*game_, GraphStep::kSmaller);
  EXPECT_EQ(game_->GraphScale, 0.02_usd);

  game_->GraphHigh = 90_usd;
  SetGraphAdjustType(*game_, 1);
  EXPECT_EQ(game_->GraphScale, 0.4_usd);
}

TEST_F(BankrollGraphTest, TheScaleGrowsUntilThePageFitsAndComesBackByItsKind) {
  game_->GraphHigh = 900_usd;
  game_->GraphLow = -200_usd;
  DrawGraph(*game_, true);
  EXPECT_EQ(game_->GraphScale, 10_usd);
  EXPECT_EQ(game_->GraphTop, 2000_usd);
  game_->GraphHigh = 4'000'000'000_usd;
  DrawGraph(*game_, true);
  EXPECT_EQ(game_->GraphScale, 100'000_usd);
  game_->GraphHigh = 100_usd;
  game_->GraphLow = 0_usd;
  for (const int kind : {0, 1, 2}) {
    game_->GraphAdjustType = kind;
    game_->GraphScale = 4_usd;
    DrawGraph(*game_, false);
    EXPECT_EQ(game_->GraphScale, kind == 2 ? 1_usd : 4_usd) << kind;
  }
}

TEST_F(BankrollGraphTest, AnAverageWithoutRollsIsZero) {
  EXPECT_EQ(MovingAverage(*game_, true, 0, 0), 0_usd);
  EXPECT_EQ(MovingAverage(*game_, true, 0, 10), 0_usd);
  Roll({5_usd});
  EXPECT_EQ(MovingAverage(*game_, false, 1, 0), 0_usd);
  EXPECT_EQ(MovingAverage(*game_, false, 1, 10), 0_usd);
}

TEST_F(BankrollGraphTest, TheAverageIsAskedFor) {
  Roll({10_usd, 20_usd, 60_usd});
  const auto type = [&](const std::string& text, std::int32_t answer) {
    MessageReply reply;
    reply.answer = answer;
    reply.input1 = text;
    surface_.answers.push_back(reply);
    return AskGraphAverage(*game_);
  };
  EXPECT_TRUE(type("2", kAnswerOk));
  EXPECT_EQ(BankrollAverage(*game_, 3), 40_usd);
  EXPECT_FALSE(type("7", kAnswerCancel));
  EXPECT_EQ(game_->GraphAverageRolls, 2);
  EXPECT_TRUE(type("526", kAnswerOk));
  EXPECT_EQ(game_->GraphAverageRolls, 525);
  EXPECT_TRUE(type("0", kAnswerOk));
  EXPECT_EQ(BankrollAverage(*game_, 3), 30_usd);
  EXPECT_EQ(surface_.messages[0].title, "Set Bankroll Moving Average");
  EXPECT_EQ(surface_.messages[0].options, 137);

  ShowGraphAverage(*game_, false);
  Roll({90_usd});
  ShowGraphAverage(*game_, true);
  EXPECT_EQ(BankrollAverage(*game_, 4), 45_usd);
}

}  // namespace
}  // namespace feltmaster
