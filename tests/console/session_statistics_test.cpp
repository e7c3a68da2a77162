#include "console/session_statistics.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <vector>

namespace feltmaster {
namespace {

constexpr std::int64_t kDollar = MoneyAmount::kScale;

GameResult Played(std::int64_t dollars, std::int32_t rolls, GameEnd end = GameEnd::kRolls) {
  GameResult game;
  game.net = dollars * kDollar;
  game.rolls = rolls;
  game.hands = rolls / 10;
  game.end = end;
  return game;
}

TEST(SessionStatistics, OfASmallKnownList) {
  SimulationResults results;
  results.games = {Played(10, 100, GameEnd::kStopWin),
                   Played(-20, 50, GameEnd::kBroke),
                   GameResult(),  // never played
                   Played(0, 200),
                   Played(30, 150),
                   Played(-5, 100, GameEnd::kStopLoss)};
  const SessionStatistics s = StatisticsOf(results, MoneyAmount(120));
  EXPECT_EQ(s.games, 5);
  EXPECT_EQ(s.rolls, 600);
  EXPECT_EQ(s.hands, 60);
  EXPECT_DOUBLE_EQ(s.hours, 5);
  EXPECT_DOUBLE_EQ(s.net_mean, 3);
  // Squares about the mean: 49 + 529 + 9 + 729 + 64 = 1380, over 4.
  EXPECT_DOUBLE_EQ(*s.net_deviation, std::sqrt(345.0));
  EXPECT_NEAR(*s.interval_high - *s.interval_low, 2 * 1.959964 * std::sqrt(345.0 / 5), 1e-4);
  EXPECT_DOUBLE_EQ(s.best, 30);
  EXPECT_DOUBLE_EQ(s.worst, -20);
  EXPECT_EQ(s.won, 2);
  EXPECT_EQ(s.lost, 2);
  EXPECT_EQ(s.even, 1);
  EXPECT_EQ(s.Ended(GameEnd::kStopWin), 1);
  EXPECT_EQ(s.Ended(GameEnd::kStopLoss), 1);
  EXPECT_EQ(s.Ended(GameEnd::kBroke), 1);
  EXPECT_EQ(s.Ended(GameEnd::kRolls), 2);
  EXPECT_DOUBLE_EQ(s.average_rolls, 120);
  EXPECT_EQ(s.longest_rolls, 200);
  EXPECT_DOUBLE_EQ(s.quantiles[3], 0);      // median of -20 -5 0 10 30
  EXPECT_DOUBLE_EQ(s.quantiles[2], -5);     // 25%
  EXPECT_DOUBLE_EQ(s.quantiles[5], 26);     // 95%: 10 + 0.8 * 20
  EXPECT_DOUBLE_EQ(s.quantiles[0], -19.4);  // 1%: -20 + 0.04 * 15
}

TEST(SessionStatistics, OfOneGameAndOfNone) {
  SimulationResults results;
  results.games = {GameResult()};
  EXPECT_EQ(StatisticsOf(results, MoneyAmount(120)).games, 0);
  results.games = {Played(-7, 30)};
  const SessionStatistics s = StatisticsOf(results, MoneyAmount(120));
  EXPECT_DOUBLE_EQ(s.net_mean, -7);
  EXPECT_FALSE(s.net_deviation || s.interval_low || s.interval_high);
  for (const double quantile : s.quantiles) EXPECT_DOUBLE_EQ(quantile, -7);
}

// Sums of the largest results are beyond 64 bits.
TEST(SessionStatistics, SumsAreExact) {
  SimulationResults results;
  constexpr std::int64_t kMost = 9'000'000'000'000'000'001;
  for (int i = 0; i < 7; ++i) {
    GameResult game = Played(0, 1);
    game.net = kMost;
    results.games.push_back(game);
  }
  EXPECT_TRUE(StatisticsOf(results, MoneyAmount(1)).net_total == WideMoney{kMost} * 7);
}

TEST(Histogram, HasRoundBinsThatHoldEverything) {
  struct Case {
    std::vector<std::int64_t> sorted;  // ten-thousandths
    std::int64_t first, width;
    std::size_t bins;
  };
  const Case cases[] = {
      {{-300 * kDollar, -1, 0, 199 * kDollar}, -300 * kDollar, 50 * kDollar, 10},
      {{0, 10 * kDollar}, 0, 1 * kDollar, 11},
      {{-1, 0}, -100, 100, 2},  // a hair below zero lies below it
      {{5 * kDollar, 5 * kDollar}, 5 * kDollar, 1 * kDollar, 1},
      {{-7 * kDollar - 5}, -8 * kDollar, 1 * kDollar, 1},
  };
  for (const Case& one : cases) {
    const Histogram histogram = HistogramOf(one.sorted, 10);
    EXPECT_TRUE(histogram.first == one.first);
    EXPECT_TRUE(histogram.width == one.width);
    EXPECT_EQ(histogram.counts.size(), one.bins);
    for (std::size_t bin = 0; bin < histogram.counts.size(); ++bin) {
      const auto in_bin =
          std::count_if(one.sorted.begin(), one.sorted.end(), [&](std::int64_t value) {
            return value >= histogram.Edge(bin) && value < histogram.Edge(bin + 1);
          });
      EXPECT_EQ(histogram.counts[bin], in_bin);
    }
    EXPECT_EQ(std::accumulate(histogram.counts.begin(), histogram.counts.end(), std::int64_t{0}),
              static_cast<std::int64_t>(one.sorted.size()));
  }
}

}  // namespace
}  // namespace feltmaster
