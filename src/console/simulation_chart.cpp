#include <algorithm>
#include <array>
#include <string_view>

#include "base/number_format.h"
#include "console/simulation_report.h"
#include "console/svg_chart.h"

namespace feltmaster {

namespace {

constexpr double kWidth = 960;
constexpr SvgChart::Frame kUpperFrame = {100, 110, 820, 320};
constexpr SvgChart::Frame kLowerFrame = {100, 540, 820, 340};
constexpr double kBelowFrame = 80;  // for the ticks and the label

constexpr std::array<std::string_view, 8> kPathColors = {
    "#2f8f5b", "#c0483f", "#2b6cb0", "#b7791f", "#6b46c1", "#0f766e", "#be185d", "#4b5563"};

struct Range {
  double low = 0;
  double high = 0;

  void Take(double value) {
    low = std::min(low, value);
    high = std::max(high, value);
  }
  // With some air above and below, and never empty.
  Range Widened() const {
    constexpr double kAir = 0.05;
    const double air = high > low ? kAir * (high - low) : 1;
    return {low < 0 ? low - air : low, high > 0 || high == low ? high + air : high};
  }
};

void DrawHistogram(const SessionStatistics& statistics, SvgChart& chart) {
  const Histogram& histogram = statistics.histogram;
  std::vector<SvgChart::Bar> bars;
  double most = 0;
  for (std::size_t bin = 0; bin < histogram.counts.size(); ++bin) {
    const auto count = static_cast<double>(histogram.counts[bin]);
    bars.push_back({Dollars(histogram.Edge(bin)), Dollars(histogram.Edge(bin + 1)), count});
    most = std::max(most, count);
  }
  constexpr double kAir = 1.08;
  chart.Panel(kUpperFrame, "Net per game",
              {bars.front().from, bars.back().to, "net of a game", true},
              {0, most * kAir, "games", false});
  chart.Bars(bars);
  chart.MarkY(0);
  chart.MarkX(statistics.net_mean,
              "mean " + FormatNumber(statistics.net_mean, "$#,##0.00;-$#,##0.00"));
}

void DrawPaths(const SimulationResults& results, const SvgChart::Frame& frame, SvgChart& chart) {
  Range net;
  double longest = 1;
  std::int64_t shown = 0;
  for (const BankrollPath& path : results.paths) {
    for (const auto& place : path.places) {
      net.Take(Dollars(place.net));
      longest = std::max(longest, static_cast<double>(place.roll));
    }
    shown += !path.places.empty();
  }
  const Range range = net.Widened();
  chart.Panel(frame,
              shown == 1 ? "Net of the first game, roll by roll"
                         : "Net of the first " + FormatNumber(shown, "0") + " games, roll by roll",
              {0, longest, "rolls", false}, {range.low, range.high, "net", true});
  chart.MarkY(0);
  const double opacity = shown == 1 ? 1.0 : 0.7;
  for (std::size_t i = 0; i < results.paths.size(); ++i) {
    std::vector<SvgChart::Point> points;
    for (const auto& place : results.paths[i].places) {
      points.push_back({static_cast<double>(place.roll), Dollars(place.net)});
    }
    chart.Line(points, kPathColors[i % kPathColors.size()], opacity);
  }
}

}  // namespace

std::string ChartSvg(const SimulationReport& report) {
  const SessionStatistics& statistics = report.statistics;
  // A single game has no distribution.
  const bool single = statistics.games < 2;
  const SvgChart::Frame& paths = single ? kUpperFrame : kLowerFrame;
  SvgChart chart(kWidth, paths.top + paths.height + kBelowFrame);
  chart.Title(
      NameOfStrategy(report.experiment),
      FormatNumber(statistics.games, "#,##0") + (statistics.games == 1 ? " game, " : " games, ") +
          FormatNumber(statistics.rolls, "#,##0") + " rolls, seed " +
          std::to_string(report.experiment.seed) + (report.results.complete ? "" : ", INCOMPLETE"));
  if (!single) DrawHistogram(statistics, chart);
  if (statistics.games > 0) DrawPaths(report.results, paths, chart);
  return chart.Document();
}

}  // namespace feltmaster
