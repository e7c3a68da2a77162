#include "console/bench_cases.h"

#include <algorithm>
#include <array>
#include <ctime>
#include <limits>
#include <memory>
#include <stdexcept>

#include "autobet/script_file.h"
#include "autobet/script_text.h"
#include "automation/hyper_drive.h"
#include "base/hash.h"
#include "console/bench_scripts.h"
#include "console/simulation.h"
#include "dice/rng.h"
#include "engine/start_up.h"
#include "stats/roll_statistics.h"
#include "surface/null_surface.h"
#include "view/state_hash.h"

namespace feltmaster {

namespace {

constexpr std::int32_t kBenchSeed = 20'011;
// A shared machine is quiet only now and then: the best of many short runs tells more than that of
// a few.
constexpr int kLeastRuns = 3;
constexpr double kLeastSeconds = 0.6;

void PlayRolls(Game& game, std::int32_t rolls) {
  game.NumAutoRolls = rolls;
  game.AutoRollsRemaining = rolls;
  ToggleHyperDrive(game);
}

// Nothing but the dice. The rolls are counted, as two of the generators go by their count.
void DrawRolls(Game& game, std::int32_t rolls) {
  for (std::int32_t roll = 0; roll < rolls; ++roll) {
    DrawDice(game);
    game.EventCounts[0] = roll + 1;
  }
  ResetScriptCounters(game, 0);  // no script has seen them
}

void DrawFirstGenerator(Game& game, std::int32_t rolls) {
  for (std::int32_t roll = 0; roll < rolls; ++roll) DrawDice(game);
}

void LeaveEmpty(Game&) {}

void BetLine(Game& game) {
  SetUpPassLineWithOdds(game);
  BetPassLine(game);
}

template <const std::string_view& kText>
void RunScriptOf(Game& game) {
  auto script = ComposeScript(kText);
  if (const auto* fault = std::get_if<ScriptTextFault>(&script)) {
    throw std::logic_error("line " + std::to_string(fault->line) + ": " + fault->expected);
  }
  SetScript(game, std::get<std::vector<ScriptLine>>(std::move(script)), "");
  game.ScriptActive = 1;
}

template <int kNumber>
void Select(Game& game) {
  game.RngSelected = kNumber - 1;
}

struct BenchCase {
  std::string_view name;
  std::int32_t rolls;
  void (*set_up)(Game&);
  void (*play)(Game&, std::int32_t rolls);
};
constexpr std::array<BenchCase, 13> kCases = {{
    {"dice", 20'000'000, LeaveEmpty, DrawFirstGenerator},
    {"bare", 2'000'000, LeaveEmpty, PlayRolls},
    {"line", 2'000'000, BetLine, PlayRolls},
    {"ironcross", 1'000'000, RunScriptOf<kIronCrossScript>, PlayRolls},
    {"long", 500'000, RunScriptOf<kLongScript>, PlayRolls},
    {"rng1", 5'000'000, Select<1>, DrawRolls},
    {"rng2", 5'000'000, Select<2>, DrawRolls},
    {"rng3", 5'000'000, Select<3>, DrawRolls},
    {"rng4", 5'000'000, Select<4>, DrawRolls},
    {"rng5", 5'000'000, Select<5>, DrawRolls},
    {"rng6", 5'000'000, Select<6>, DrawRolls},
    {"rng7", 5'000'000, Select<7>, DrawRolls},
    {"rng8", 5'000'000, Select<8>, DrawRolls},
}};

}  // namespace

std::vector<std::string_view> BenchCaseNames() {
  std::vector<std::string_view> names;
  for (const BenchCase& one : kCases) names.push_back(one.name);
  return names;
}

BenchResult RunBenchCase(std::string_view name) {
  const auto found = std::find_if(kCases.begin(), kCases.end(),
                                  [&](const BenchCase& one) { return one.name == name; });
  if (found == kCases.end()) throw std::invalid_argument("no such case");

  NullSurface surface;
  const auto table = std::make_unique<Game>();
  table->surface = &surface;
  StartUp(*table, {.data_dir = "", .seed = kBenchSeed});
  found->set_up(*table);

  BenchResult result;
  result.name = name;
  result.rolls = found->rolls;
  result.seconds = std::numeric_limits<double>::infinity();
  const auto game = std::make_unique<Game>();
  double spent_in_all = 0;
  for (int run = 0; run < kLeastRuns || spent_in_all < kLeastSeconds; ++run) {
    *game = *table;
    // Processor time: what other programs take of the machine does not count.
    const std::clock_t start = std::clock();
    found->play(*game, found->rolls);
    const double spent = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
    spent_in_all += spent;
    result.seconds = std::min(result.seconds, spent);
  }
  result.signature = StateHash(*game);
  return result;
}

std::uint64_t CombinedSignature(const std::vector<BenchResult>& results) {
  RowHash hash;
  for (const BenchResult& result : results) {
    hash.Add(std::string_view(result.name));
    hash.Add(result.signature);
  }
  return hash.Value();
}

}  // namespace feltmaster
