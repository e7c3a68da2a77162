#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "console/simulation.h"

namespace feltmaster {

// The quantiles that are told, as fractions.
inline constexpr std::array<double, 7> kQuantiles = {0.01, 0.05, 0.25, 0.50, 0.75, 0.95, 0.99};

// The quantile of a sorted, not empty list, between its neighbours by straight line: 0 is the
// least, 1 the greatest, and the median of an even list the mean of its two middle ones.
double QuantileOf(const std::vector<std::int64_t>& sorted, double fraction);

// Bins of equal width that begin at a multiple of it, in ten-thousandths; exact. The width is 1, 2
// or 5 times a power of ten, and at least a cent.
struct Histogram {
  WideMoney first = 0;  // lower edge of the first bin; a bin holds its lower edge
  WideMoney width = 1;
  std::vector<std::int64_t> counts;

  WideMoney Edge(std::size_t bin) const { return first + width * static_cast<WideMoney>(bin); }
};
// At most so many bins and one more; a single one, a dollar wide, when all values are the same.
Histogram HistogramOf(const std::vector<std::int64_t>& sorted, int bins);

// What a set of games shows. Money in dollars.
struct SessionStatistics {
  std::int64_t games = 0;
  std::int64_t rolls = 0;
  std::int64_t hands = 0;
  std::int64_t passes = 0;
  double hours = 0;

  WideMoney net_total = 0;  // ten-thousandths
  double net_mean = 0;
  // Of the games, with games - 1 as the divisor; the interval holds the true mean 95 times in 100,
  // as far as the mean of so many games is normal. Neither exists for a single game.
  std::optional<double> net_deviation;
  std::optional<double> interval_low;
  std::optional<double> interval_high;
  double best = 0;
  double worst = 0;
  std::array<double, kQuantiles.size()> quantiles{};

  WideMoney handle = 0;    // ten-thousandths
  WideMoney expected = 0;  // 10^-10 dollars

  std::int64_t won = 0;
  std::int64_t lost = 0;
  std::int64_t even = 0;
  std::array<std::int64_t, kGameEnds.size()> ends{};

  double average_rolls = 0;
  std::int64_t longest_rolls = 0;

  Histogram histogram;         // of the net, fine enough for a picture
  Histogram coarse_histogram;  // and so that it fits a page of text

  std::int64_t Ended(GameEnd end) const { return ends[static_cast<std::size_t>(end)]; }
};

// rolls_per_hour as the table has it. Games that were not played are passed over.
SessionStatistics StatisticsOf(const SimulationResults& results, MoneyAmount rolls_per_hour);

double Dollars(WideMoney ten_thousandths);

}  // namespace feltmaster
