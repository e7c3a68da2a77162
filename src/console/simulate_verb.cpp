#include <signal.h>

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <iostream>
#include <memory>
#include <new>
#include <string_view>
#include <thread>

#include "base/number_format.h"
#include "console/batch_log.h"
#include "console/progress_bar.h"
#include "console/result_file.h"
#include "console/session_statistics.h"
#include "console/simulation.h"
#include "console/simulation_report.h"
#include "console/verbs.h"

namespace feltmaster {

namespace {

constexpr int kDone = 0;
constexpr int kScriptFailed = 1;
constexpr int kNotStarted = 2;
constexpr int kInterruptedExit = 130;  // as shells have it for Ctrl-C

constexpr std::int64_t kMaxJobs = 1024;
constexpr std::int64_t kMaxShooters = 100'000'000;
constexpr std::int64_t kMaxNumber = 1'000'000'000'000'000'000;  // of games and seeds

// The options as they were typed.
struct SimulateOptions {
  using Text = std::optional<std::string>;
  Text script;
  Text rolls, hours, shooters, games, first_game;
  Text bankroll, stop_win, stop_loss;
  std::vector<std::string> settings;
  Text rng, seed, jobs;
  Text json, csv, chart, log;
};

// A complaint about the command line, one sentence.
struct BadOption {
  std::string sentence;
};

// --- Values ----------------------------------------------------------------------------------

std::string WithoutCommas(std::string_view text) {
  std::string digits(text);
  digits.erase(std::remove(digits.begin(), digits.end(), ','), digits.end());
  return digits;
}

bool AllDigits(std::string_view text) {
  return !text.empty() &&
         std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

std::int64_t ReadWhole(std::string_view option, const std::string& text, std::int64_t low,
                       std::int64_t high) {
  const std::string digits = WithoutCommas(text);
  std::int64_t value = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (!AllDigits(digits) || error != std::errc() || value < low || value > high) {
    throw BadOption{std::string(option) + " takes a whole number from " +
                    FormatNumber(low, "#,##0") + " to " + FormatNumber(high, "#,##0") + ", not \"" +
                    text + "\"."};
  }
  return value;
}

// Digits with at most four of them behind a point.
MoneyAmount ReadDecimal(std::string_view option, const std::string& text, MoneyAmount low,
                        MoneyAmount high) {
  constexpr std::size_t kPlaces = 4;
  constexpr std::size_t kMostDigits = 12;
  const std::string digits = WithoutCommas(text);
  const std::size_t point = digits.find('.');
  const std::string whole = digits.substr(0, point);
  std::string fraction = point == std::string::npos ? "" : digits.substr(point + 1);
  const bool fits = whole.size() <= kMostDigits && fraction.size() <= kPlaces &&
                    AllDigits(whole.empty() ? "0" : whole) &&
                    AllDigits(fraction.empty() ? "0" : fraction) &&
                    whole.size() + fraction.size() > 0;
  if (fits) {
    fraction.resize(kPlaces, '0');
    const MoneyAmount value = MoneyAmount::FromRaw(std::stoll("0" + whole + fraction));
    if (value >= low && value <= high) return value;
  }
  throw BadOption{std::string(option) + " takes a number from " + PlainNumber(low) + " to " +
                  FormatMoney(high) + " with at most four decimal places, not \"" + text + "\"."};
}

std::uint64_t SeedFromClock() {
  const auto now = std::chrono::system_clock::now().time_since_epoch();
  const auto ticks = std::chrono::duration_cast<std::chrono::microseconds>(now).count();
  // Short enough to be typed again, and another one in each run.
  constexpr std::uint64_t kSeeds = 1'000'000'000;
  return static_cast<std::uint64_t>(ticks) % kSeeds;
}

Experiment ReadExperiment(const SimulateOptions& options) {
  const MoneyAmount least = MoneyAmount::FromRaw(1);
  const MoneyAmount most = MoneyAmount::FromWhole(kBankLimit);
  Experiment experiment;
  if (options.script && options.script->empty()) throw BadOption{"SCRIPT is an empty name."};
  experiment.script = options.script.value_or("");
  if (options.rolls) {
    experiment.rolls =
        static_cast<std::int32_t>(ReadWhole("--rolls", *options.rolls, 1, kRollLimit));
  }
  if (options.hours) {
    experiment.hours =
        ReadDecimal("--hours", *options.hours, least, MoneyAmount::FromWhole(kRollLimit));
  }
  if (options.shooters) {
    experiment.shooters =
        static_cast<std::int32_t>(ReadWhole("--shooters", *options.shooters, 1, kMaxShooters));
  }
  if (options.games) {
    experiment.games = ReadWhole("--games", *options.games, 1, kMaxGames);
  }
  if (options.first_game) {
    experiment.first_game = ReadWhole("--first-game", *options.first_game, 1, kMaxNumber);
  }
  if (options.bankroll) {
    experiment.bankroll = ReadDecimal("--bankroll", *options.bankroll, least, most);
  }
  if (options.stop_win) {
    experiment.stop_win = ReadDecimal("--stop-win", *options.stop_win, least, most);
  }
  if (options.stop_loss) {
    experiment.stop_loss = ReadDecimal("--stop-loss", *options.stop_loss, least, most);
  }
  for (const std::string& setting : options.settings) {
    const std::string fault = ReadHouseSetting(setting, experiment.settings);
    if (!fault.empty()) throw BadOption{fault};
  }
  if (options.rng) {
    experiment.rng = static_cast<std::int32_t>(ReadWhole("--rng", *options.rng, 1, kRngCount));
  }
  experiment.seed =
      options.seed ? static_cast<std::uint64_t>(ReadWhole("--seed", *options.seed, 0, kMaxNumber))
                   : SeedFromClock();
  return experiment;
}

int ReadJobs(const SimulateOptions& options) {
  if (!options.jobs) return std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
  return static_cast<int>(ReadWhole("--jobs", *options.jobs, 1, kMaxJobs));
}

// --- Output ----------------------------------------------------------------------------------

std::string RealPath(const std::string& path) {
  std::error_code error;
  const auto real = std::filesystem::weakly_canonical(path, error);
  return error ? path : real.string();
}

struct Outputs {
  ResultFile json;
  ResultFile csv;
  ResultFile chart;
  std::optional<BatchLog> log;
  bool on_standard_output = false;

  void Open(const SimulateOptions& options) {
    struct Wanted {
      std::string_view option;
      const SimulateOptions::Text& path;
      ResultFile* file;  // none for the log
    };
    const Wanted wanted[] = {{"--json", options.json, &json},
                             {"--csv", options.csv, &csv},
                             {"--chart", options.chart, &chart},
                             {"--log", options.log, nullptr}};
    for (const Wanted& one : wanted) {
      if (!one.path) continue;
      if (options.script && *one.path != "-" && RealPath(*one.path) == RealPath(*options.script)) {
        throw BadOption{std::string(one.option) + " would write over the script " +
                        *options.script + "."};
      }
      for (const Wanted& other : wanted) {
        if (&other == &one || !other.path || RealPath(*one.path) != RealPath(*other.path)) continue;
        throw BadOption{std::string(one.option) + " and " + std::string(other.option) +
                        " name the same file, " + *one.path + "."};
      }
    }
    for (const Wanted& one : wanted) {
      if (!one.path || one.file == nullptr) continue;
      on_standard_output = on_standard_output || *one.path == "-";
      const std::string fault = one.file->Open(*one.path);
      if (!fault.empty()) throw BadOption{std::string(one.option) + ": " + fault};
    }
  }

  void OpenLog(const SimulateOptions& options) {
    if (!options.log) return;
    if (*options.log == "-") throw BadOption{"--log needs the name of a file."};
    const std::string fault = log.emplace().Open(*options.log);
    if (!fault.empty()) throw BadOption{"--log: " + fault};
  }

  static void Check(const std::string& fault) {
    if (!fault.empty()) throw BadOption{fault};
  }

  void Write(const SimulationReport& report) {
    if (json.IsOpen()) WriteJson(report, json.Stream());
    if (csv.IsOpen()) WriteCsv(report, csv.Stream());
    if (chart.IsOpen()) chart.Stream() << ChartSvg(report);
    for (ResultFile* file : {&json, &csv, &chart}) Check(file->IsOpen() ? file->Finish() : "");
    for (ResultFile* file : {&json, &csv, &chart}) Check(file->PutInPlace());
    if (log) Check(log->PutInPlace());
  }
};

// --- Interruption ----------------------------------------------------------------------------

// A signal handler can reach nothing but what is global.
std::atomic<SimulationProgress*> interruptible = nullptr;

extern "C" void EndRun(int) {
  if (SimulationProgress* progress = interruptible.load()) progress->stop.store(true);
}

// While it lives the first Ctrl-C ends the games after the rolls in progress; a second one ends the
// program.
class Interruption {
 public:
  explicit Interruption(SimulationProgress& progress) {
    interruptible = &progress;
    struct sigaction action {};
    action.sa_handler = EndRun;
    action.sa_flags = static_cast<int>(SA_RESETHAND | SA_RESTART);
    sigaction(SIGINT, &action, &old_interrupt_);
    sigaction(SIGTERM, &action, &old_terminate_);
  }
  ~Interruption() {
    sigaction(SIGINT, &old_interrupt_, nullptr);
    sigaction(SIGTERM, &old_terminate_, nullptr);
    interruptible = nullptr;
  }
  Interruption(const Interruption&) = delete;
  Interruption& operator=(const Interruption&) = delete;

 private:
  struct sigaction old_interrupt_ {};
  struct sigaction old_terminate_ {};
};

// --- The run ---------------------------------------------------------------------------------

// The number of rolls that a game has for certain, 0 when its end is open.
std::int32_t CertainRolls(const Experiment& experiment, const Game& table) {
  const bool open =
      experiment.shooters || experiment.bankroll || experiment.stop_win || experiment.stop_loss;
  return open ? 0 : RollLimitOf(experiment, table);
}

void TellFault(const Experiment& experiment, const SimulationResults& results,
               const SessionStatistics& statistics) {
  const ScriptFault& fault = *results.fault;
  std::cerr << "feltmaster simulate: " << NameOfStrategy(experiment);
  if (fault.line > 0) std::cerr << ", line " << fault.line;
  std::cerr << ": " << fault.reason << " (in game " << fault.game;
  const std::int64_t aborted = statistics.Ended(GameEnd::kAborted);
  if (aborted > 1) std::cerr << "; " << aborted << " of " << statistics.games << " games aborted";
  std::cerr << ").\n";
}

int RunSimulation(const SimulateOptions& options) {
  const Experiment experiment = ReadExperiment(options);
  const int jobs = ReadJobs(options);
  const auto table = std::make_unique<Game>();
  const std::string fault = PrepareTable(experiment, *table);
  if (!fault.empty()) throw BadOption{fault};
  Outputs outputs;
  outputs.Open(options);
  outputs.OpenLog(options);

  SimulationProgress progress;
  RunTime time;
  time.jobs = WorkersOf(experiment, *table, jobs);
  SimulationResults results;
  {
    const Interruption interruption(progress);
    const ProgressBar bar(progress, experiment.games, CertainRolls(experiment, *table));
    const auto start = std::chrono::steady_clock::now();
    results = Simulate(experiment, *table, jobs, progress, outputs.log ? &*outputs.log : nullptr);
    time.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  }

  const SessionStatistics statistics = StatisticsOf(results, table->RollsPerHour);
  const SimulationReport report = {experiment, *table, results, statistics};
  if (!outputs.on_standard_output) std::cout << SummaryText(report, time);
  outputs.Write(report);
  std::cout.flush();
  if (!std::cout) throw BadOption{"cannot write standard output."};
  if (results.fault) TellFault(experiment, results, statistics);
  if (!results.complete) {
    if (outputs.on_standard_output) {
      std::cerr << "feltmaster simulate: interrupted; the results are incomplete.\n";
    }
    return kInterruptedExit;
  }
  return results.fault ? kScriptFailed : kDone;
}

int RunTold(const SimulateOptions& options) {
  std::string sentence;
  try {
    return RunSimulation(options);
  } catch (const BadOption& bad) {
    sentence = bad.sentence;
  } catch (const std::bad_alloc&) {
    sentence = "there is not memory enough for so many games.";
  }
  std::cerr << "feltmaster simulate: " << sentence << '\n';
  return kNotStarted;
}

constexpr const char* kExamples =
    R"(A game ends with the roll that fulfils the first of its conditions. It is broke when for a whole
shooter no bet stood and none stands, because the bankroll carries neither the table minimum nor
the smallest stake of the strategy. With --bankroll the table gives no credit; without it the
bankroll begins at 0 and may go below.

Every game has its own seed, made of --seed and its number, so the results are the same for every
number of jobs; a game is played again in the console by the seed that --csv tells. The percentages
called "rules" are the expected value of the bets made, by the payoffs, vig and dice in force.

Examples:
  feltmaster simulate
  feltmaster simulate strategies/iron_cross.txt --games 10000 --hours 4 --bankroll 500
      --stop-win 200 --set MinPlacardBet=5
  feltmaster simulate mine.bet --games 1000 --shooters 10 --csv games.csv --chart games.svg
  feltmaster simulate mine.bet --seed 7 --games 5000 --first-game 5001 --log second_half.glg

The exit code is 0 when all was played, 1 when the script failed, 2 when the run could not start or
a result not be written, 130 when it was interrupted.
)";

}  // namespace

void AddSimulateVerb(Verb program) {
  const Verb verb = program.Sub(
      "simulate", "Plays a betting strategy for millions of rolls and tells what it did");
  verb.Footer(kExamples);
  const auto options = std::make_shared<SimulateOptions>();
  const auto add = [&](const char* name, SimulateOptions::Text& value, const char* type,
                       const char* help, const char* heading) {
    verb.Add(name, value, help).Takes(type).Under(heading);
  };
  verb.Add("SCRIPT", options->script,
           "A script as .bet file or as text; without it the Pass Line with full odds")
      .Takes("");
  add("--rolls", options->rolls, "N", "Rolls of a game (1,000,000 if no length is given)",
      "Length");
  add("--hours", options->hours, "H", "Simulated hours of a game, by RollsPerHour", "Length");
  add("--shooters", options->shooters, "N", "Shooters of a game: hands ended by a seven-out",
      "Length");
  add("--games", options->games, "N", "Number of games (1)", "Length");
  add("--bankroll", options->bankroll, "AMOUNT", "What the player has with him", "Session");
  add("--stop-win", options->stop_win, "AMOUNT", "A game ends when it has won this", "Session");
  add("--stop-loss", options->stop_loss, "AMOUNT", "A game ends when it has lost this", "Session");
  verb.Add("--set", options->settings,
           "A house rule or Auto-Play setting, such as MinPlacardBet=5; may be repeated")
      .Takes("NAME=VALUE")
      .Under("House");
  add("--rng", options->rng, "1..8", "Random number generator (1)", "House");
  add("--seed", options->seed, "N", "Seed of the experiment (from the clock)", "House");
  add("--jobs", options->jobs, "J", "Games played at once (all cores)", "Machine");
  add("--first-game", options->first_game, "K",
      "Number of the first game (1), to share one experiment between machines", "Machine");
  add("--json", options->json, "FILE|-", "Writes the results as JSON; - is standard output",
      "Results");
  add("--csv", options->csv, "FILE|-", "Writes one line for each game", "Results");
  add("--chart", options->chart, "FILE.svg",
      "Draws the net per game and the bankroll paths of the first games", "Results");
  add("--log", options->log, "FILE.glg",
      "Writes a Games Log of the games, in their order; an older one is replaced", "Results");
  verb.Runs([options] { return RunTold(*options); });
}

}  // namespace feltmaster
