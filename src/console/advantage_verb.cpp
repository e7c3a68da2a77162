#include <algorithm>
#include <cmath>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>
#include <numeric>

#include "base/number_format.h"
#include "config/advantage.h"
#include "config/payoffs.h"
#include "console/house_settings.h"
#include "console/result_file.h"
#include "console/svg_chart.h"
#include "console/text_table.h"
#include "console/verbs.h"
#include "view/rules_rows.h"

namespace feltmaster {

namespace {

struct AdvantageOptions {
  std::vector<std::string> settings;
  bool best_first = false;
  bool json = false;
  std::string chart;
};

struct BetWorth {
  int bet;
  Advantage worth;
};

std::vector<BetWorth> WorthOfAllBets(const Game& game, bool best_first) {
  std::vector<BetWorth> bets;
  for (int bet = 1; bet <= kBetCount; ++bet) bets.push_back({bet, FigureAdvantage(game, bet)});
  if (best_first) {
    std::stable_sort(bets.begin(), bets.end(), [](const BetWorth& a, const BetWorth& b) {
      return a.worth.ev_per_roll > b.worth.ev_per_roll;
    });
  }
  return bets;
}

std::string PercentText(double fraction) {
  return FormatNumber(fraction * 100, "0.00;-0.00;0.00");
}

// The figures of the Advantage screen, and a bar for what a bet costs each roll.
std::string AdvantageText(const Game& game, const std::vector<BetWorth>& bets) {
  constexpr int kBarWidth = 24;
  double most = 0;
  for (const BetWorth& one : bets) most = std::max(most, std::fabs(one.worth.ev_per_roll));
  const Rows screen = AdvantageRows(game);
  Rows rows = {screen.front()};
  rows.front().push_back("EV/Roll: # lost, + won");
  for (const BetWorth& one : bets) {
    Row row = screen[static_cast<std::size_t>(one.bet)];
    const double value = one.worth.ev_per_roll;
    std::string bar = most > 0 ? TextBar(std::fabs(value) / most, kBarWidth) : "";
    if (value > 0) std::replace(bar.begin(), bar.end(), '#', '+');
    row.push_back(bar);
    rows.push_back(row);
  }
  return TextTable(rows, true);
}

std::string AdvantageJson(const Game& game, const std::vector<BetWorth>& bets) {
  using Json = nlohmann::ordered_json;
  const double rate = game.RollsPerHour.ToDouble();
  Json list = Json::array();
  for (const auto& [bet, worth] : bets) {
    list.push_back({{"bet", bet},
                    {"name", PayoffLabel(bet)},
                    {"ev_per_roll", worth.ev_per_roll},
                    {"standard_deviation_per_roll", worth.deviation_per_roll},
                    {"ev_per_decision", worth.ev_per_decision},
                    {"standard_deviation_per_decision", worth.deviation_per_decision},
                    {"ev_per_hour", worth.ev_per_roll * rate},
                    {"rolls_per_decision", worth.rolls_per_decision}});
  }
  return Json({{"rolls_per_hour", rate},
               {"zero_outcomes_are_decisions", game.IncludeZeroOutcomes},
               {"bets", list}})
             .dump(2) +
         '\n';
}

std::string AdvantageSvg(const std::vector<BetWorth>& bets) {
  constexpr double kWidth = 760;
  constexpr double kBarHeight = 16;
  constexpr double kBelow = 30;
  const SvgChart::Frame frame = {150, 100, 580, kBarHeight * static_cast<double>(bets.size())};
  std::vector<SvgChart::NamedBar> bars;
  for (const BetWorth& one : bets) {
    bars.push_back({PayoffLabel(one.bet), one.worth.ev_per_roll * 100,
                    PercentText(one.worth.ev_per_roll) + " %"});
  }
  SvgChart chart(kWidth, frame.top + frame.height + kBelow);
  chart.Title("What each bet is worth", "by the payoffs, the vig and the dice in force");
  chart.NamedBars(frame, "Expected value for each roll, in percent of the bet", bars);
  return chart.Document();
}

// Gives the complaint, or an empty text.
std::string RunAdvantage(const AdvantageOptions& options) {
  const auto game = std::make_unique<Game>();
  if (std::string fault = OpenHouse(*game, options.settings); !fault.empty()) return fault;
  const std::vector<BetWorth> bets = WorthOfAllBets(*game, options.best_first);
  if (!options.chart.empty()) {
    ResultFile file;
    std::string fault = file.Open(options.chart);
    if (fault.empty()) {
      file.Stream() << AdvantageSvg(bets);
      fault = file.Finish();
    }
    if (fault.empty()) fault = file.PutInPlace();
    if (!fault.empty()) return "--chart: " + fault;
    if (options.chart == "-") return {};
  }
  std::cout << (options.json ? AdvantageJson(*game, bets) : AdvantageText(*game, bets))
            << std::flush;
  return std::cout ? "" : "cannot write standard output.";
}

constexpr const char* kExamples =
    R"(For a wager of one unit: the expected value (EV) and its standard deviation, for each roll that the
bet stands and for each time it is decided, and what it brings in an hour of bets.

Examples:
  feltmaster advantage
  feltmaster advantage --best-first --chart advantage.svg
  feltmaster advantage --set LayVigAllBets=false --set "PayTable(35,1)=8"
  feltmaster advantage --set ShowMiscData=true --set RollsPerHour=100
  feltmaster advantage --json

ShowMiscData shows how often each bet is decided instead; IncludeZeroOutcomes=true counts every roll
as a decision.
)";

}  // namespace

void AddAdvantageVerb(Verb program) {
  const Verb verb =
      program.Sub("advantage", "Tells what each bet is worth under the rules of the house");
  verb.Footer(kExamples);
  const auto options = std::make_shared<AdvantageOptions>();
  verb.Add("--set", options->settings,
           "A house rule or setting, such as BuyVigPct=4; may be repeated")
      .Takes("NAME=VALUE");
  verb.Flag("--best-first", options->best_first, "The bets that cost least come first");
  verb.Flag("--json", options->json, "Prints the figures as JSON, as fractions of the bet");
  verb.Add("--chart", options->chart, "Draws the expected values; - is standard output")
      .Takes("FILE.svg");
  verb.RunsOrComplains([options] { return RunAdvantage(*options); });
}

}  // namespace feltmaster
