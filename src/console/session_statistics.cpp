#include "console/session_statistics.h"

#include <algorithm>
#include <cmath>

namespace feltmaster {

namespace {

constexpr int kPictureBins = 60;
constexpr int kTextBins = 20;
constexpr double kNormal95 = 1.959963984540054;  // half of a 95% interval in deviations

WideMoney FloorTo(WideMoney value, WideMoney unit) {
  const WideMoney rest = value % unit;
  return value - rest - (rest < 0 ? unit : 0);
}

}  // namespace

double Dollars(WideMoney ten_thousandths) {
  return static_cast<double>(ten_thousandths) / double{MoneyAmount::kScale};
}

double QuantileOf(const std::vector<std::int64_t>& sorted, double fraction) {
  const double place = fraction * static_cast<double>(sorted.size() - 1);
  const auto below = static_cast<std::size_t>(place);
  const std::size_t above = std::min(below + 1, sorted.size() - 1);
  const double low = static_cast<double>(sorted[below]);
  const double high = static_cast<double>(sorted[above]);
  return low + (high - low) * (place - static_cast<double>(below));
}

Histogram HistogramOf(const std::vector<std::int64_t>& sorted, int bins) {
  Histogram histogram;
  if (sorted.empty()) return histogram;
  const WideMoney range = WideMoney{sorted.back()} - sorted.front();
  WideMoney power = range == 0 ? MoneyAmount::kScale : MoneyAmount::kScale / 100;
  int step = 1;
  while (power * step * bins < range) {
    step = step == 1 ? 2 : step == 2 ? 5 : 1;
    if (step == 1) power *= 10;
  }
  histogram.width = power * step;
  histogram.first = FloorTo(sorted.front(), histogram.width);
  const auto bin_of = [&](std::int64_t value) {
    return static_cast<std::size_t>((value - histogram.first) / histogram.width);
  };
  histogram.counts.resize(bin_of(sorted.back()) + 1);
  for (const std::int64_t value : sorted) ++histogram.counts[bin_of(value)];
  return histogram;
}

SessionStatistics StatisticsOf(const SimulationResults& results, MoneyAmount rolls_per_hour) {
  SessionStatistics statistics;
  std::vector<std::int64_t> nets;
  nets.reserve(results.games.size());
  for (const GameResult& game : results.games) {
    ++statistics.ends[static_cast<std::size_t>(game.end)];
    if (game.end == GameEnd::kNotPlayed) continue;
    nets.push_back(game.net);
    statistics.rolls += game.rolls;
    statistics.hands += game.hands;
    statistics.passes += game.passes;
    statistics.net_total += game.net;
    statistics.won += game.net > 0;
    statistics.lost += game.net < 0;
    statistics.even += game.net == 0;
    statistics.longest_rolls = std::max<std::int64_t>(statistics.longest_rolls, game.rolls);
  }
  for (const BetTotals& bet : results.bets) {
    statistics.handle += bet.wagered;
    statistics.expected += bet.expected;
  }
  statistics.games = static_cast<std::int64_t>(nets.size());
  if (nets.empty()) return statistics;

  const auto count = static_cast<double>(nets.size());
  statistics.hours = static_cast<double>(statistics.rolls) / rolls_per_hour.ToDouble();
  statistics.average_rolls = static_cast<double>(statistics.rolls) / count;
  statistics.net_mean = Dollars(statistics.net_total) / count;
  if (nets.size() > 1) {
    double squares = 0;
    for (const std::int64_t net : nets) {
      const double distance = Dollars(net) - statistics.net_mean;
      squares += distance * distance;
    }
    const double deviation = std::sqrt(squares / (count - 1));
    const double half = kNormal95 * deviation / std::sqrt(count);
    statistics.net_deviation = deviation;
    statistics.interval_low = statistics.net_mean - half;
    statistics.interval_high = statistics.net_mean + half;
  }

  std::sort(nets.begin(), nets.end());
  statistics.worst = Dollars(nets.front());
  statistics.best = Dollars(nets.back());
  for (std::size_t i = 0; i < kQuantiles.size(); ++i) {
    statistics.quantiles[i] = QuantileOf(nets, kQuantiles[i]) / double{MoneyAmount::kScale};
  }
  statistics.histogram = HistogramOf(nets, kPictureBins);
  statistics.coarse_histogram = HistogramOf(nets, kTextBins);
  return statistics;
}

}  // namespace feltmaster
