// The parts of a roll, each by itself. "feltmaster bench" measures whole games.

#include <benchmark/benchmark.h>

#include <memory>
#include <variant>
#include <vector>

#include "autobet/run_script.h"
#include "autobet/script_file.h"
#include "autobet/script_text.h"
#include "automation/hyper_drive.h"
#include "config/advantage.h"
#include "console/bench_scripts.h"
#include "dice/rng.h"
#include "engine/place_bet.h"
#include "engine/start_up.h"
#include "stats/bet_results.h"
#include "stats/roll_statistics.h"
#include "surface/null_surface.h"
#include "view/state_hash.h"

namespace feltmaster {
namespace {

constexpr std::int32_t kSeed = 7;
constexpr std::int32_t kRollsAtOnce = 10'000;

struct Table {
  NullSurface surface;
  std::unique_ptr<Game> game = std::make_unique<Game>();

  Table() {
    game->surface = &surface;
    StartUp(*game, {.data_dir = "", .seed = kSeed});
  }
  void LoadScript(std::string_view text) {
    SetScript(*game, std::get<std::vector<ScriptLine>>(ComposeScript(text)), "");
    game->ScriptActive = 1;
  }
  void Play(std::int32_t rolls) {
    game->NumAutoRolls = game->AutoRollsRemaining = rolls;
    ToggleHyperDrive(*game);
  }
};

void DrawDiceOf(benchmark::State& state) {
  Table table;
  table.game->RngSelected = static_cast<std::int32_t>(state.range(0)) - 1;
  for (auto _ : state) {
    DrawDice(*table.game);
    benchmark::DoNotOptimize(table.game->Die1);
    benchmark::DoNotOptimize(table.game->Die2);
  }
}
BENCHMARK(DrawDiceOf)->DenseRange(1, kRngCount);

void RollStatisticsOfARoll(benchmark::State& state) {
  Table table;
  Game& game = *table.game;
  for (auto _ : state) {
    BeginRollStatistics(game);
    DrawDice(game);
    game.DiceTotal = game.Die1 + game.Die2;
    RecordRollStatistics(game, PairOfDice(game.Die1, game.Die2));
    FinishRollStatistics(game);
  }
}
BENCHMARK(RollStatisticsOfARoll);

// Whole games; each begins with a copy of the table, so that no bankroll runs out.
void PlayGames(benchmark::State& state, Table& table) {
  const auto start = std::make_unique<Game>(*table.game);
  for (auto _ : state) {
    *table.game = *start;
    table.Play(kRollsAtOnce);
  }
  state.SetItemsProcessed(state.iterations() * kRollsAtOnce);
}

void RollAnEmptyTable(benchmark::State& state) {
  Table table;
  PlayGames(state, table);
}
BENCHMARK(RollAnEmptyTable)->Unit(benchmark::kMicrosecond);

void RollWithScript(benchmark::State& state, std::string_view text) {
  Table table;
  table.LoadScript(text);
  PlayGames(state, table);
}
BENCHMARK_CAPTURE(RollWithScript, ironcross, kIronCrossScript)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(RollWithScript, long, kLongScript)->Unit(benchmark::kMicrosecond);

// One walk over a script on a table that stands still.
void WalkScript(benchmark::State& state, std::string_view text) {
  Table table;
  table.LoadScript(text);
  table.Play(5);
  table.game->HyperDriveActive = true;  // no pacing
  for (auto _ : state) RunScript(*table.game);
}
BENCHMARK_CAPTURE(WalkScript, ironcross, kIronCrossScript);
BENCHMARK_CAPTURE(WalkScript, long, kLongScript);

void PlaceAndTakeDown(benchmark::State& state) {
  Table table;
  table.game->HyperDriveActive = true;
  const int bet = static_cast<int>(state.range(0));
  for (auto _ : state) {
    table.game->BetRequest = MoneyAmount(12);
    PlaceBet(*table.game, bet);
    table.game->BetRequest = -table.game->BetAmount[bet];
    PlaceBet(*table.game, bet);
  }
}
BENCHMARK(PlaceAndTakeDown)->Arg(kPlace + 4)->Arg(kBuy + 2)->Arg(kField)->Arg(kHop35);

void SettlePhantomTables(benchmark::State& state) {
  Table table;
  table.Play(kRollsAtOnce);
  const auto played = std::make_unique<Game>(*table.game);
  for (auto _ : state) {
    state.PauseTiming();
    static_cast<BetResults&>(*table.game) = *played;
    state.ResumeTiming();
    SettlePhantoms(*table.game);
  }
}
BENCHMARK(SettlePhantomTables);

void AdvantageOfAllBets(benchmark::State& state) {
  Table table;
  for (auto _ : state) {
    for (int bet = 1; bet <= kBetCount; ++bet) {
      benchmark::DoNotOptimize(FigureAdvantage(*table.game, bet));
    }
  }
}
BENCHMARK(AdvantageOfAllBets)->Unit(benchmark::kMicrosecond);

// What each game of a simulation begins with.
void CopyATable(benchmark::State& state) {
  Table table;
  table.LoadScript(kLongScript);
  const auto game = std::make_unique<Game>(*table.game);
  for (auto _ : state) {
    *game = *table.game;
    benchmark::ClobberMemory();
  }
}
BENCHMARK(CopyATable)->Unit(benchmark::kMicrosecond);

void HashTheState(benchmark::State& state) {
  Table table;
  table.Play(kRollsAtOnce);
  for (auto _ : state) benchmark::DoNotOptimize(StateHash(*table.game));
}
BENCHMARK(HashTheState)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace feltmaster
