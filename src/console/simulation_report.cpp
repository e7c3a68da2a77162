#include "console/simulation_report.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <nlohmann/json.hpp>
#include <string_view>

#include "base/number_format.h"
#include "game/bets.h"

namespace feltmaster {

namespace {

// --- Words -----------------------------------------------------------------------------------

std::string Count(std::int64_t number) {
  return FormatNumber(number, "#,##0");
}

std::string CountOf(std::int64_t number, std::string_view thing) {
  return Count(number) + " " + std::string(thing) + (number == 1 ? "" : "s");
}

std::string Cash(double dollars) {
  return FormatNumber(dollars, "$#,##0.00;-$#,##0.00");
}

// An amount as somebody typed it.
std::string Amount(MoneyAmount amount) {
  return "$" + FormatMoney(amount);
}

std::string Percent(double fraction, int places) {
  return FormatNumber(fraction, places == 1 ? "0.0%;-0.0%" : "0.000%;-0.000%");
}

std::string Hours(double hours) {
  const double shown = std::round(100 * hours) / 100;
  const char* picture = shown == std::floor(shown) ? "#,##0" : "#,##0.##";
  return FormatNumber(shown, picture) + (shown == 1 ? " hour" : " hours");
}

double Share(double part, double whole) {
  return whole == 0 ? 0 : part / whole;
}

std::string Left(std::string_view text, std::size_t width) {
  std::string padded(text);
  padded.resize(std::max(width, padded.size()), ' ');
  return padded;
}

std::string Right(std::string_view text, std::size_t width) {
  return std::string(width > text.size() ? width - text.size() : 0, ' ') + std::string(text);
}

double HoursOf(const SimulationReport& report, double rolls) {
  return rolls / report.table.RollsPerHour.ToDouble();
}

// --- The summary -----------------------------------------------------------------------------

constexpr std::size_t kLabelWidth = 22;

std::string Fact(std::string_view label, std::string_view value) {
  return Left(label, kLabelWidth) + std::string(value) + "\n";
}

std::string LengthOfGame(const SimulationReport& report) {
  const Experiment& experiment = report.experiment;
  std::vector<std::string> parts;
  if (experiment.shooters) parts.push_back(CountOf(*experiment.shooters, "shooter"));
  if (experiment.hours) parts.push_back(Hours(experiment.hours->ToDouble()));
  const bool by_rolls = experiment.rolls || parts.empty();
  if (by_rolls) parts.push_back(CountOf(RollLimitOf(experiment, report.table), "roll"));
  std::string text = parts[0];
  for (std::size_t i = 1; i < parts.size(); ++i) text += " or " + parts[i];
  return text;
}

std::string ExperimentText(const SimulationReport& report) {
  const Experiment& experiment = report.experiment;
  std::string text;
  std::string strategy = NameOfStrategy(experiment);
  if (!report.table.ScriptLines.empty()) {
    strategy += ", " + CountOf(static_cast<std::int64_t>(report.table.ScriptLines.size()), "line");
  }
  text += Fact("Strategy", strategy);

  std::string games = CountOf(experiment.games, "game") + " of " + LengthOfGame(report);
  if (experiment.first_game > 1) games += ", from game " + Count(experiment.first_game);
  text += Fact("Experiment", games);

  std::string session;
  if (experiment.bankroll) session += ", bankroll " + Amount(*experiment.bankroll);
  if (experiment.stop_win) session += ", stop at a win of " + Amount(*experiment.stop_win);
  if (experiment.stop_loss) session += ", stop at a loss of " + Amount(*experiment.stop_loss);
  if (!session.empty()) text += Fact("Session", session.substr(2));

  std::string house;
  for (const auto& [name, value] : experiment.settings) house += ", " + name + "=" + value;
  if (!house.empty()) text += Fact("House", house.substr(2));

  text += Fact("Dice", "RNG #" + std::to_string(report.table.RngSelected + 1) + ", --seed " +
                           std::to_string(experiment.seed));
  return text;
}

std::string PlayedText(const SimulationReport& report, const RunTime& time) {
  const SessionStatistics& statistics = report.statistics;
  std::string text;
  if (!report.results.complete) {
    text += "INCOMPLETE: interrupted after " + CountOf(statistics.games, "game") + " of " +
            Count(report.experiment.games) + ", of which " +
            Count(statistics.Ended(GameEnd::kInterrupted)) + " cut short\n\n";
  }
  text += Fact("Played", CountOf(statistics.rolls, "roll") + " in " +
                             CountOf(statistics.games, "game") + ", " + Hours(statistics.hours) +
                             " at the table");
  text += Fact("", CountOf(statistics.hands, "hand") + ", " + Count(statistics.passes) +
                       (statistics.passes == 1 ? " pass" : " passes"));
  const double speed = Share(static_cast<double>(statistics.rolls), time.seconds);
  text += Fact("Speed", FormatNumber(std::round(speed), "#,##0") + " rolls per second (" +
                            FormatNumber(time.seconds, "#,##0.00") + " s, " +
                            CountOf(time.jobs, "job") + ")");
  return text;
}

std::string NetText(const SimulationReport& report) {
  const SessionStatistics& statistics = report.statistics;
  if (statistics.games == 1) return "\n" + Fact("Net of the game", Cash(statistics.net_mean));
  std::string text = "\nNet of a game\n";
  text += Fact("  mean", Cash(statistics.net_mean));
  if (statistics.net_deviation) {
    text += Fact("  95% interval", Cash(*statistics.interval_low) + " to " +
                                       Cash(*statistics.interval_high) + " for the mean");
    text += Fact("  standard deviation", Cash(*statistics.net_deviation));
  }
  text += Fact("  best", Cash(statistics.best));
  text += Fact("  worst", Cash(statistics.worst));
  std::string heads;
  std::string values;
  for (std::size_t i = 0; i < kQuantiles.size(); ++i) {
    const std::string value = Cash(statistics.quantiles[i]);
    const std::size_t width = std::max<std::size_t>(value.size(), 4) + (i == 0 ? 0 : 2);
    heads += Right(FormatNumber(kQuantiles[i], "0%"), width);
    values += Right(value, width);
  }
  return text + Fact("  quantiles", heads) + Fact("", values);
}

std::string BetsText(const SimulationReport& report) {
  const SessionStatistics& statistics = report.statistics;
  if (statistics.handle == 0) return "\nNo bet was decided.\n";
  const double handle = Dollars(statistics.handle);
  const double expected = static_cast<double>(statistics.expected) * 1e-10;
  std::string text = "\nMoney bet\n";
  text += Fact("  handle", Cash(handle));
  text += Fact("  net / handle", Percent(Share(Dollars(statistics.net_total), handle), 3));
  text += Fact("  expected", Percent(Share(expected, handle), 3) +
                                 " by the rules for these bets (" + Cash(expected) + ")");
  text += "\n  " + Left("bet", 18) + Right("decided", 14) + Right("handle", 20) + Right("net", 18) +
          Right("net %", 10) + Right("rules %", 10) + "\n";
  for (int bet = 1; bet <= kBetCount; ++bet) {
    const BetTotals& totals = report.results.bets[static_cast<std::size_t>(bet)];
    if (totals.decisions == 0) continue;
    const double wagered = Dollars(totals.wagered);
    const double net = Dollars(totals.won - totals.lost);
    text += "  " + Left(kBetName[static_cast<std::size_t>(bet)], 18) +
            Right(Count(totals.decisions), 14) + Right(Cash(wagered), 20) + Right(Cash(net), 18) +
            Right(FormatNumber(100 * Share(net, wagered), "0.00;-0.00"), 10) +
            Right(FormatNumber(100 * Share(static_cast<double>(totals.expected) * 1e-10, wagered),
                               "0.00;-0.00"),
                  10) +
            "\n";
  }
  return text;
}

std::string ShareLine(std::string_view label, std::int64_t games, std::int64_t all) {
  return "  " + Left(label, 38) + Right(Count(games), 12) +
         Right(Percent(Share(static_cast<double>(games), static_cast<double>(all)), 1), 9) + "\n";
}

std::string EndsText(const SimulationReport& report) {
  const SessionStatistics& statistics = report.statistics;
  if (statistics.games == 1) {
    const auto played = [](const GameResult& game) { return game.end != GameEnd::kNotPlayed; };
    const auto& games = report.results.games;
    return "\n" + Fact("How the game ended",
                       NameOf(std::find_if(games.begin(), games.end(), played)->end).label);
  }
  const double average = HoursOf(report, statistics.average_rolls);
  const double longest = HoursOf(report, static_cast<double>(statistics.longest_rolls));
  std::string text = "\nHow the games ended\n";
  text += ShareLine("won", statistics.won, statistics.games);
  text += ShareLine("lost", statistics.lost, statistics.games);
  text += ShareLine("even", statistics.even, statistics.games);
  text += "\n";
  for (const GameEndName& end : kGameEnds) {
    const std::int64_t games = statistics.Ended(end.end);
    const bool always =
        end.end == GameEnd::kStopWin || end.end == GameEnd::kStopLoss || end.end == GameEnd::kBroke;
    if ((games == 0 && !always) || end.end == GameEnd::kNotPlayed) continue;
    const bool ruin = end.end == GameEnd::kBroke;
    text += ShareLine(ruin ? "broke (risk of ruin)" : end.label, games, statistics.games);
  }
  text += "\n";
  text += Fact("  average session",
               FormatNumber(statistics.average_rolls, "#,##0.0") + " rolls, " + Hours(average));
  text +=
      Fact("  longest session", CountOf(statistics.longest_rolls, "roll") + ", " + Hours(longest));
  return text;
}

std::string HistogramText(const SimulationReport& report) {
  const Histogram& histogram = report.statistics.coarse_histogram;
  if (report.statistics.games < 2 || histogram.counts.size() < 2) return {};
  constexpr double kBarWidth = 48;
  const std::int64_t most = *std::max_element(histogram.counts.begin(), histogram.counts.end());
  const bool cents = histogram.width % MoneyAmount::kScale != 0;
  const auto edge = [&](std::size_t bin) {
    return FormatNumber(Dollars(histogram.Edge(bin)), cents ? "#,##0.00" : "#,##0");
  };
  std::size_t width = 0;
  for (std::size_t bin = 0; bin <= histogram.counts.size(); ++bin) {
    width = std::max(width, edge(bin).size());
  }
  std::string text = "\nNet per game\n";
  for (std::size_t bin = 0; bin < histogram.counts.size(); ++bin) {
    const auto count = static_cast<double>(histogram.counts[bin]);
    auto length =
        static_cast<std::size_t>(std::lround(kBarWidth * count / static_cast<double>(most)));
    if (count > 0) length = std::max<std::size_t>(length, 1);
    text += "  " + Right(edge(bin), width) + "  " + Right(edge(bin + 1), width) + "  |" +
            Left(std::string(length, '#'), static_cast<std::size_t>(kBarWidth)) +
            Right(Percent(count / static_cast<double>(report.statistics.games), 1), 7) + "\n";
  }
  return text;
}

// --- Files -----------------------------------------------------------------------------------

using Json = nlohmann::ordered_json;

Json Number(WideMoney ten_thousandths) {
  constexpr WideMoney kScale = MoneyAmount::kScale;
  constexpr WideMoney kMost = WideMoney{1} << 62;
  const WideMoney whole = ten_thousandths / kScale;
  if (ten_thousandths % kScale == 0 && whole < kMost && -whole < kMost) {
    return static_cast<std::int64_t>(whole);
  }
  return Dollars(ten_thousandths);
}

template <typename Value>
Json OrNull(const std::optional<Value>& value) {
  if (!value) return nullptr;
  if constexpr (std::is_same_v<Value, MoneyAmount>) {
    return Number(value->Raw());
  } else {
    return *value;
  }
}

Json ExperimentJson(const SimulationReport& report) {
  const Experiment& experiment = report.experiment;
  Json settings = Json::array();
  for (const auto& [name, value] : experiment.settings) {
    settings.push_back({{"name", name}, {"value", value}});
  }
  return {
      {"strategy", NameOfStrategy(experiment)},
      {"first_game", experiment.first_game},
      {"games", experiment.games},
      {"rolls", RollLimitOf(experiment, report.table)},
      {"hours", OrNull(experiment.hours)},
      {"shooters", OrNull(experiment.shooters)},
      {"bankroll", OrNull(experiment.bankroll)},
      {"stop_win", OrNull(experiment.stop_win)},
      {"stop_loss", OrNull(experiment.stop_loss)},
      {"rng", report.table.RngSelected + 1},
      {"seed", experiment.seed},
      {"settings", settings},
  };
}

Json NetJson(const SessionStatistics& statistics) {
  Json quantiles = Json::object();
  for (std::size_t i = 0; i < kQuantiles.size(); ++i) {
    quantiles[FormatNumber(100 * kQuantiles[i], "0")] = statistics.quantiles[i];
  }
  Json interval = nullptr;
  if (statistics.interval_low) interval = {*statistics.interval_low, *statistics.interval_high};
  return {
      {"total", Number(statistics.net_total)},
      {"mean", statistics.net_mean},
      {"standard_deviation", OrNull(statistics.net_deviation)},
      {"interval_95", interval},
      {"best", statistics.best},
      {"worst", statistics.worst},
      {"quantiles", quantiles},
  };
}

Json BetsJson(const SimulationReport& report) {
  Json bets = Json::array();
  for (int bet = 1; bet <= kBetCount; ++bet) {
    const BetTotals& totals = report.results.bets[static_cast<std::size_t>(bet)];
    if (totals.decisions == 0) continue;
    bets.push_back({
        {"bet", bet},
        {"name", kBetName[static_cast<std::size_t>(bet)]},
        {"decisions", totals.decisions},
        {"handle", Number(totals.wagered)},
        {"won", Number(totals.won)},
        {"lost", Number(totals.lost)},
        {"expected", static_cast<double>(totals.expected) * 1e-10},
    });
  }
  return bets;
}

}  // namespace

std::string NameOfStrategy(const Experiment& experiment) {
  return experiment.script.empty() ? "Pass Line with full odds (built in)" : experiment.script;
}

std::string SummaryText(const SimulationReport& report, const RunTime& time) {
  std::string text = ExperimentText(report) + "\n" + PlayedText(report, time);
  if (report.statistics.games == 0) return text;
  text += NetText(report);
  text += BetsText(report);
  text += EndsText(report);
  text += HistogramText(report);
  return text;
}

void WriteJson(const SimulationReport& report, std::ostream& out) {
  const SessionStatistics& statistics = report.statistics;
  const double handle = Dollars(statistics.handle);
  const double expected = static_cast<double>(statistics.expected) * 1e-10;
  const auto games = static_cast<double>(statistics.games);

  Json ends = Json::object();
  for (const GameEndName& end : kGameEnds) {
    if (end.end != GameEnd::kNotPlayed) ends[end.key] = statistics.Ended(end.end);
  }
  const auto share = [&](std::int64_t part) { return Share(static_cast<double>(part), games); };
  Json counts = Json::array();
  for (const std::int64_t count : statistics.histogram.counts) counts.push_back(count);

  Json json = {
      {"complete", report.results.complete},
      {"experiment", ExperimentJson(report)},
      {"games", statistics.games},
      {"rolls", statistics.rolls},
      {"hours", statistics.hours},
      {"hands", statistics.hands},
      {"passes", statistics.passes},
      {"net", NetJson(statistics)},
      {"handle", Number(statistics.handle)},
      {"net_per_handle", Share(Dollars(statistics.net_total), handle)},
      {"expected", expected},
      {"expected_per_handle", Share(expected, handle)},
      {"shares",
       {{"won", share(statistics.won)},
        {"lost", share(statistics.lost)},
        {"even", share(statistics.even)},
        {"stop_win", share(statistics.Ended(GameEnd::kStopWin))},
        {"stop_loss", share(statistics.Ended(GameEnd::kStopLoss))},
        {"broke", share(statistics.Ended(GameEnd::kBroke))}}},
      {"ends", ends},
      {"session",
       {{"average_rolls", statistics.average_rolls},
        {"longest_rolls", statistics.longest_rolls},
        {"average_hours", HoursOf(report, statistics.average_rolls)},
        {"longest_hours", HoursOf(report, static_cast<double>(statistics.longest_rolls))}}},
      {"histogram",
       {{"first", Number(statistics.histogram.first)},
        {"width", Number(statistics.histogram.width)},
        {"counts", counts}}},
      {"bets", BetsJson(report)},
  };
  if (report.results.fault) {
    json["fault"] = {{"game", report.results.fault->game},
                     {"line", report.results.fault->line},
                     {"reason", report.results.fault->reason}};
  }
  // Bytes of a file name that are no UTF-8 must not cost the results.
  out << json.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
}

void WriteCsv(const SimulationReport& report, std::ostream& out) {
  out << "game,seed,end,rolls,hours,hands,passes,net,handle,expected,highest,lowest\n";
  std::int64_t number = report.experiment.first_game;
  const auto money = [](std::int64_t raw) { return PlainNumber(MoneyAmount::FromRaw(raw)); };
  for (const GameResult& game : report.results.games) {
    const std::int64_t this_game = number++;
    if (game.end == GameEnd::kNotPlayed) continue;
    const MoneyAmount hours =
        Quotient(MoneyAmount::FromWhole(game.rolls), report.table.RollsPerHour);
    out << this_game << ',' << SeedOfGame(report.experiment, report.table, this_game) << ','
        << NameOf(game.end).key << ',' << game.rolls << ',' << PlainNumber(hours) << ','
        << game.hands << ',' << game.passes << ',' << money(game.net) << ',' << money(game.handle)
        << ',' << PlainNumber(MoneyAmount::FromDouble(game.expected)) << ',' << money(game.highest)
        << ',' << money(game.lowest) << '\n';
  }
}

}  // namespace feltmaster
