#include "console/simulation.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <initializer_list>
#include <limits>
#include <memory>
#include <mutex>
#include <string_view>
#include <thread>

#include "autobet/check_bets.h"
#include "autobet/codes.h"
#include "autobet/compiled_script.h"
#include "autobet/run_script.h"
#include "autobet/script_file.h"
#include "automation/hyper_drive.h"
#include "base/hash.h"
#include "base/text.h"
#include "config/advantage.h"
#include "console/batch_log.h"
#include "console/batch_surface.h"
#include "dice/rng.h"
#include "engine/new_game.h"
#include "engine/place_bet.h"
#include "engine/start_up.h"
#include "files/games_log.h"

namespace feltmaster {

namespace {

// --- Seeds -----------------------------------------------------------------------------------

// A permutation of 0 to size - 1, another one for each key: a Feistel network over the smallest
// even number of bits that holds size, walked until it falls below size.
std::uint64_t Permute(std::uint64_t index, std::uint64_t size, std::uint64_t key) {
  constexpr int kRounds = 6;
  unsigned half = 1;
  while ((std::uint64_t{1} << (2 * half)) < size) ++half;
  const std::uint64_t mask = (std::uint64_t{1} << half) - 1;
  do {
    std::uint64_t left = index >> half;
    std::uint64_t right = index & mask;
    for (std::uint64_t round = 0; round < kRounds; ++round) {
      const std::uint64_t next = left ^ (MixBits(key ^ MixBits(right + (round << 32))) & mask);
      left = right;
      right = next;
    }
    index = left << half | right;
  } while (index >= size);
  return index;
}

// --- The table -------------------------------------------------------------------------------

// An option and the settings that say the same in another way.
std::string FindContradiction(const Experiment& experiment) {
  const auto is_set = [&](std::string_view setting) {
    return std::any_of(experiment.settings.begin(), experiment.settings.end(),
                       [&](const auto& entry) { return EqualIgnoringCase(entry.first, setting); });
  };
  if (experiment.rng && is_set("RngSelected")) return "--rng contradicts --set RngSelected.";
  for (const char* setting : {"BankrollInitAmount", "BankrollInitType"}) {
    if (experiment.bankroll && is_set(setting)) {
      return std::string("--bankroll contradicts --set ") + setting + ".";
    }
  }
  return {};
}

bool HasAction(const Game& table, std::initializer_list<std::int32_t> codes) {
  return std::any_of(table.ScriptLines.begin(), table.ScriptLines.end(), [&](const auto& line) {
    return line.LineKind == kActionLine &&
           std::find(codes.begin(), codes.end(), line.LineCode) != codes.end();
  });
}

bool WritesFiles(const Game& table) {
  return HasAction(table, {kActionOpenAppend, kActionOpenClear});
}

bool SelectsGenerators(const Game& table) {
  return HasAction(table, {kActionSelectRng, kActionSelectRngValue, kActionSelectRngLastValue});
}

// --- One game --------------------------------------------------------------------------------

// What each bet is worth for a decision, in millionths, by the dice that the game ended with.
class ExpectedValues {
 public:
  // The game's display settings are taken over for the purpose, so it must have ended.
  void Follow(Game& game) {
    if (known_ && game.UseSkewedProbability == skewed_ &&
        (!skewed_ || game.DiceProbability[1] == weights_)) {
      return;
    }
    known_ = true;
    skewed_ = game.UseSkewedProbability;
    weights_ = game.DiceProbability[1];
    // A push is no decision: the tables of results do not count it.
    game.IncludeZeroOutcomes = false;
    for (int bet = 1; bet <= kBetCount; ++bet) {
      millionths_[static_cast<std::size_t>(bet)] =
          std::llround(FigureAdvantage(game, bet).ev_per_decision * 1e6);
    }
  }
  std::int64_t Of(int bet) const { return millionths_[static_cast<std::size_t>(bet)]; }

 private:
  bool known_ = false;
  bool skewed_ = false;
  ProbabilityState::Layer weights_{};
  std::array<std::int64_t, kBetCount + 1> millionths_{};
};

// One player, who plays one game after another on a table of his own.
class Worker {
 public:
  Worker(const Experiment& experiment, const Game& table, const SessionLimits& limits,
         SimulationResults& results, SimulationProgress& progress, BatchLog* log)
      : experiment_(experiment),
        table_(table),
        limits_(limits),
        results_(results),
        progress_(progress),
        selects_generators_(SelectsGenerators(table)),
        log_(log),
        game_(std::make_unique<Game>(table)) {
    if (!game_->ScriptLines.empty()) {
      CompileScript(*game_);
      script_ = game_->Compiled;
    }
  }

  // The index counts from 0, the number of the game from first_game.
  void Play(std::int64_t index) {
    const std::int64_t number = experiment_.first_game + index;
    Game& game = *game_;
    // Everything is as it was, whatever the last game did to the settings.
    game = table_;
    game.Compiled = script_;
    finished_.clear();
    if (log_ != nullptr) game.GamesToLog = &finished_;
    const std::int32_t seed = SeedOfGame(experiment_, table_, number);
    const bool follow = index < static_cast<std::int64_t>(results_.paths.size());
    BatchSurface surface(game, limits_, seed,
                         follow ? &results_.paths[static_cast<std::size_t>(index)] : nullptr,
                         progress_);
    game.surface = &surface;
    Seed(seed);

    if (!game.ScriptLines.empty()) RunInitialisationCycle(game);
    surface.BeginSession();
    if (game.LastErrorText.empty() && surface.ScriptFaultText().empty()) ToggleHyperDrive(game);
    const GameEnd end = surface.EndSession();
    if (end == GameEnd::kAborted) NoteFault(number, surface.ScriptFaultText());
    if (log_ != nullptr) Log(index, end);
    results_.games[static_cast<std::size_t>(index)] = Result(surface.Rolls(), end);
    progress_.games.fetch_add(1, std::memory_order_relaxed);
  }

  const std::array<BetTotals, kBetCount + 1>& Bets() const { return bets_; }
  const std::optional<ScriptFault>& Fault() const { return fault_; }

 private:
  // All generators as a new table has them. The seeding of all five takes as long as a hundred
  // rolls, so those that the game cannot draw from are left alone.
  void Seed(std::int32_t seed) {
    Game& game = *game_;
    if (selects_generators_) {
      SeedGenerators(game, seed);
      game.RngSelected = table_.RngSelected;
      return;
    }
    constexpr std::int32_t kSeedGiven = -1;
    game.BetRequest = MoneyAmount::FromWhole(seed);
    SeedRng(game, kSeedGiven);
    game.SeedValue = seed;  // the last of the five leaves it so
  }

  // A game that was cut short is not logged.
  void Log(std::int64_t index, GameEnd end) {
    if (end != GameEnd::kInterrupted) LogFinishedGame(*game_);
    std::string records;
    for (const Record& record : finished_) records += record.Bytes();
    log_->Take(index, std::move(records));
  }

  void NoteFault(std::int64_t number, std::string_view reason) {
    if (fault_ && fault_->game < number) return;
    fault_ = ScriptFault{number, game_->CurrentLine,
                         std::string(reason.substr(0, reason.find(" occurred, at:")))};
  }

  GameResult Result(std::int32_t rolls, GameEnd end) {
    Game& game = *game_;
    GameResult result;
    result.net = NetOf(game);
    result.highest = game.BankrollHigh.Raw();
    result.lowest = game.BankrollLow.Raw();
    result.rolls = rolls;
    result.hands = game.GameCounters[kHandsCompleted];
    result.passes = game.GameCounters[kTotalPasses];
    result.end = end;

    expected_values_.Follow(game);
    WideMoney handle = 0;
    WideMoney expected = 0;
    for (std::size_t bet = 1; bet <= kBetCount; ++bet) {
      const auto& wagers = game.BetWagers[kActual][bet];
      if (wagers[kResultCount].Raw() == 0) continue;
      const WideMoney wagered = wagers[kResultTotal].Raw();
      const WideMoney worth = wagered * expected_values_.Of(static_cast<int>(bet));
      handle += wagered;
      expected += worth;
      BetTotals& totals = bets_[bet];
      totals.decisions += wagers[kResultCount].RoundWhole();
      totals.wagered += wagered;
      totals.won += game.BetWins[kActual][bet][kResultTotal].Raw();
      totals.lost += game.BetLosses[kActual][bet][kResultTotal].Raw();
      totals.expected += worth;
    }
    constexpr WideMoney kMost = std::numeric_limits<std::int64_t>::max();
    result.handle = static_cast<std::int64_t>(std::min(handle, kMost));
    result.expected = static_cast<double>(expected) * 1e-10;
    return result;
  }

  const Experiment& experiment_;
  const Game& table_;
  const SessionLimits& limits_;
  SimulationResults& results_;
  SimulationProgress& progress_;
  const bool selects_generators_;
  BatchLog* log_;
  std::unique_ptr<Game> game_;
  std::vector<Record> finished_;  // games that the script ended, and then the one played
  std::shared_ptr<const CompiledScript> script_;  // its own: all count their uses of it each roll
  ExpectedValues expected_values_;
  std::array<BetTotals, kBetCount + 1> bets_{};
  std::optional<ScriptFault> fault_;
};

SessionLimits LimitsOf(const Experiment& experiment, const Game& table) {
  SessionLimits limits;
  limits.rolls = RollLimitOf(experiment, table);
  if (experiment.hours && limits.rolls != experiment.rolls) limits.rolls_end = GameEnd::kHours;
  if (experiment.shooters) limits.shooters = *experiment.shooters;
  if (experiment.stop_win) limits.win = experiment.stop_win->Raw();
  if (experiment.stop_loss) limits.loss = -experiment.stop_loss->Raw();
  return limits;
}

void Join(SimulationResults& results, const Worker& worker) {
  for (std::size_t bet = 0; bet < results.bets.size(); ++bet) {
    const BetTotals& part = worker.Bets()[bet];
    BetTotals& whole = results.bets[bet];
    whole.decisions += part.decisions;
    whole.wagered += part.wagered;
    whole.won += part.won;
    whole.lost += part.lost;
    whole.expected += part.expected;
  }
  const auto& fault = worker.Fault();
  if (fault && (!results.fault || fault->game < results.fault->game)) results.fault = fault;
}

}  // namespace

const GameEndName& NameOf(GameEnd end) {
  return kGameEnds[static_cast<std::size_t>(end)];
}

void SetUpPassLineWithOdds(Game& game) {
  constexpr std::int32_t kKeepBetTakeWinnings = 2;
  constexpr std::int32_t kSameBetAgain = 3;
  game.AutoTakeFullOdds = true;
  game.HandleWinningBets = kKeepBetTakeWinnings;
  game.HandleLosingBets = kSameBetAgain;
}

void BetPassLine(Game& game) {
  // The least bet whose odds are paid in full by whole dollars.
  constexpr MoneyAmount kBet = MoneyAmount(10);
  game.BetRequest = std::max(kBet, game.MinPlacardBet);
  PlaceBet(game, kPassLine);
}

std::string PrepareTable(const Experiment& experiment, Game& table) {
  if (std::string fault = FindContradiction(experiment); !fault.empty()) return fault;
  SetUpSurface surface;
  table.surface = &surface;
  StartUp(table, {.data_dir = "", .seed = 1});
  if (experiment.rng) table.RngSelected = *experiment.rng - 1;

  if (experiment.script.empty()) {
    SetUpPassLineWithOdds(table);
  } else {
    if (const auto fault = LoadScriptOrText(table, experiment.script)) return *fault;
    if (table.ScriptLines.empty()) return experiment.script + ": the script has no lines.";
    if (const int line = CheckBets(table); line > 0) {
      return experiment.script + ", line " + std::to_string(line) + ": " +
             SetUpSurface::OneLine(table.MsgText);
    }
    table.ScriptActive = 1;
  }

  if (experiment.bankroll) table.AllowNegBankroll = false;
  std::string refused = ApplyHouseSettings(table, surface, experiment.settings);
  if (!refused.empty()) return refused;

  if (experiment.bankroll) {
    table.BankrollInitType = kStartBankrollWith;
    table.BankrollInitAmount = *experiment.bankroll;
  }
  ResetGame(table, ResetMode::kAll);
  if (experiment.script.empty()) BetPassLine(table);
  table.LastErrorText.clear();
  table.surface = nullptr;
  return {};
}

std::int32_t RollLimitOf(const Experiment& experiment, const Game& table) {
  std::int32_t limit = kRollLimit;
  if (experiment.rolls) limit = std::min(limit, *experiment.rolls);
  if (experiment.hours) {
    // The roll that completes the time is played; both factors have four decimal places.
    constexpr WideMoney kUnit = WideMoney{MoneyAmount::kScale} * MoneyAmount::kScale;
    const WideMoney exact = WideMoney{experiment.hours->Raw()} * table.RollsPerHour.Raw();
    const WideMoney rolls = std::max<WideMoney>((exact + kUnit - 1) / kUnit, 1);
    limit = static_cast<std::int32_t>(std::min<WideMoney>(limit, rolls));
  }
  if (!experiment.rolls && !experiment.hours && !experiment.shooters) limit = kDefaultRolls;
  return limit;
}

std::int32_t SeedOfGame(const Experiment& experiment, const Game& table, std::int64_t number) {
  const auto seeds = static_cast<std::uint64_t>(MaxSeed(table));
  const std::uint64_t index = static_cast<std::uint64_t>(number) % seeds;
  return static_cast<std::int32_t>(1 + Permute(index, seeds, MixBits(experiment.seed)));
}

int WorkersOf(const Experiment& experiment, const Game& table, int jobs) {
  if (WritesFiles(table)) return 1;
  return static_cast<int>(std::clamp<std::int64_t>(jobs, 1, experiment.games));
}

SimulationResults Simulate(const Experiment& experiment, const Game& table, int jobs,
                           SimulationProgress& progress, BatchLog* log) {
  SimulationResults results;
  results.games.resize(static_cast<std::size_t>(experiment.games));
  results.paths.resize(std::min<std::size_t>(results.games.size(), kPaths));
  const SessionLimits limits = LimitsOf(experiment, table);

  std::atomic<std::int64_t> next = 0;
  std::mutex mutex;  // of what the workers do once, at their end
  std::exception_ptr failure;
  const auto work = [&] {
    try {
      Worker worker(experiment, table, limits, results, progress, log);
      while (!progress.stop.load(std::memory_order_relaxed)) {
        const std::int64_t index = next.fetch_add(1, std::memory_order_relaxed);
        if (index >= experiment.games) break;
        worker.Play(index);
      }
      const std::lock_guard lock(mutex);
      Join(results, worker);
    } catch (...) {
      const std::lock_guard lock(mutex);
      failure = std::current_exception();
      progress.stop = true;
      if (log != nullptr) log->GiveUp();
    }
  };
  std::vector<std::jthread> threads;
  for (int i = 1; i < WorkersOf(experiment, table, jobs); ++i) threads.emplace_back(work);
  work();
  threads.clear();
  if (failure) std::rethrow_exception(failure);

  results.complete = std::none_of(results.games.begin(), results.games.end(), [](const auto& game) {
    return game.end == GameEnd::kNotPlayed || game.end == GameEnd::kInterrupted;
  });
  return results;
}

}  // namespace feltmaster
