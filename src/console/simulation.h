#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/money.h"
#include "console/house_settings.h"
#include "game/game.h"

namespace feltmaster {

// Sums over many games, in ten-thousandths; exact.
using WideMoney = __int128;

// The lengths of a game that nobody asked to be another.
inline constexpr std::int32_t kDefaultRolls = 1'000'000;
inline constexpr std::int64_t kMaxGames = 10'000'000;  // of one run; the results are kept in memory

// What is played: the strategy, the house, and how long. Two machines that are given the same
// experiment play the same games, whatever they have of it.
struct Experiment {
  std::string
      script;  // path of a .bet file or of a script as text; empty for the built-in strategy
  HouseSettings settings;
  std::optional<std::int32_t> rng;  // 1 to 8; as the settings say
  std::uint64_t seed = 0;

  std::int64_t first_game = 1;
  std::int64_t games = 1;

  // A game ends with the roll that fulfils the first of these.
  std::optional<std::int32_t> rolls;
  std::optional<MoneyAmount> hours;  // simulated, by RollsPerHour
  std::optional<std::int32_t> shooters;
  std::optional<MoneyAmount> stop_win;   // net won, above 0
  std::optional<MoneyAmount> stop_loss;  // net lost, above 0

  // What the player has with him; the table gives no credit then. Without it the bankroll starts as
  // the settings say (at 0, and may go below).
  std::optional<MoneyAmount> bankroll;
};

enum class GameEnd : std::uint8_t {
  kNotPlayed,
  kRolls,
  kHours,
  kShooters,
  kStopWin,
  kStopLoss,
  kBroke,
  kStrategy,    // the script stopped the rolling
  kQuestion,    // the script asked for an answer or stopped to show a message
  kHouseLimit,  // the bankroll passed the limit of the bank
  kRollCount,   // the roll count of Auto-Play
  kAborted,     // the script failed
  kInterrupted,
};
struct GameEndName {
  GameEnd end;
  const char* key;    // in files
  const char* label;  // for the reader
};
inline constexpr std::array<GameEndName, 13> kGameEnds = {{
    {GameEnd::kNotPlayed, "not_played", "not played"},
    {GameEnd::kRolls, "rolls", "played all rolls"},
    {GameEnd::kHours, "hours", "played all hours"},
    {GameEnd::kShooters, "shooters", "played all shooters"},
    {GameEnd::kStopWin, "stop_win", "stopped by win"},
    {GameEnd::kStopLoss, "stop_loss", "stopped by loss"},
    {GameEnd::kBroke, "broke", "broke"},
    {GameEnd::kStrategy, "strategy", "stopped by the strategy"},
    {GameEnd::kQuestion, "question", "stopped at a question or message"},
    {GameEnd::kHouseLimit, "bank_limit", "bank limit reached"},
    {GameEnd::kRollCount, "roll_count", "Auto-Play's roll count"},
    {GameEnd::kAborted, "aborted", "aborted by an error"},
    {GameEnd::kInterrupted, "interrupted", "interrupted"},
}};
const GameEndName& NameOf(GameEnd end);

// One game in short. Money is in ten-thousandths. A million of these are kept at once.
struct GameResult {
  std::int64_t net = 0;      // bankroll less the money invested; bets that stand count as kept
  std::int64_t handle = 0;   // all decided wagers, with the vig paid on them
  double expected = 0;       // dollars: what the rules give for those wagers on average
  std::int64_t highest = 0;  // bankroll
  std::int64_t lowest = 0;
  std::int32_t rolls = 0;
  std::int32_t hands = 0;  // ended by a seven-out
  std::int32_t passes = 0;
  GameEnd end = GameEnd::kNotPlayed;
};
static_assert(sizeof(GameResult) <= 56);

// All decisions of one bet.
struct BetTotals {
  std::int64_t decisions = 0;
  WideMoney wagered = 0;
  WideMoney won = 0;
  WideMoney lost = 0;
  WideMoney expected = 0;  // in 10^-10 dollars: wagers times the expected value in millionths
};

// The net of one game after every `stride` rolls, and at its end.
struct BankrollPath {
  struct Place {
    std::int32_t roll = 0;
    std::int64_t net = 0;
  };
  std::vector<Place> places;
};
inline constexpr int kPaths = 25;         // of the first games
inline constexpr int kPathPlaces = 1024;  // at most, of one path

// The first script that failed.
struct ScriptFault {
  std::int64_t game = 0;
  std::int32_t line = 0;
  std::string reason;
};

struct SimulationResults {
  std::vector<GameResult> games;              // by number, from first_game
  std::vector<BankrollPath> paths;            // of the first games, by number
  std::array<BetTotals, kBetCount + 1> bets;  // 1 to 88
  std::optional<ScriptFault> fault;
  bool complete = true;  // false when the run was interrupted
};

// What a run tells while it goes on. Written by the workers, read by anyone.
struct SimulationProgress {
  std::atomic<std::uint64_t> rolls = 0;  // of all games, a little behind
  std::atomic<std::int64_t> games = 0;   // ended
  std::atomic<bool> stop = false;        // set from outside: end after the rolls in progress
};

// The strategy that is played when no script is given: $10, or the table minimum if that is more,
// on the Pass Line with full odds, kept up by Auto-Play alone. The settings, and the bet itself.
void SetUpPassLineWithOdds(Game& game);
void BetPassLine(Game& game);

// Makes the table on which every game of the experiment begins, the dice not yet seeded. Gives one
// sentence that names what is wrong, or an empty text.
std::string PrepareTable(const Experiment& experiment, Game& table);

// How many rolls a game of the experiment has at most.
std::int32_t RollLimitOf(const Experiment& experiment, const Game& table);

// The seed of a game: from 1 to the largest seed of the selected generator; two games of an
// experiment have different ones until all have been used.
std::int32_t SeedOfGame(const Experiment& experiment, const Game& table, std::int64_t number);

// How many threads play: not more than games, and only one when the script writes files, whose
// lines then stand in the order of the games.
int WorkersOf(const Experiment& experiment, const Game& table, int jobs);

// Plays the games on so many threads. The results depend on nothing but the experiment. The log, if
// there is one, takes every game that ends.
class BatchLog;
SimulationResults Simulate(const Experiment& experiment, const Game& table, int jobs,
                           SimulationProgress& progress, BatchLog* log = nullptr);

}  // namespace feltmaster
