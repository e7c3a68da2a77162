#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "game/game.h"

namespace feltmaster {

// How a game of the log ended, by its net amount and the break-points.
enum GameOutcome : int { kGameWon = 0, kGameEven = 1, kGameLost = 2 };
inline constexpr int kGameOutcomes = 3;
GameOutcome OutcomeOf(const GamesLogState& state, MoneyAmount net);
// Whether the outcome filter of the screen lets games of this outcome pass.
bool IsIncluded(const Game& game, GameOutcome outcome);

// One column of the histogram. The amounts are of its games, if it has any.
struct GamesColumn {
  std::int32_t games = 0;
  MoneyAmount lowest;
  MoneyAmount highest;
  int mark = 0;  // palette number of a line through the column, 0 for none

  void Take(MoneyAmount value);
};

// One bar of the histogram: the columns that it spans, taken together.
struct GamesBar {
  int first = 0;
  int width = 0;
  GamesColumn total;
};

// The games of a log by one of their 32 values. With no game included all statistics are 0.
struct GamesAnalysis {
  int value = 0;  // which of the 32
  std::int32_t games = 0;
  std::array<std::int32_t, kGameOutcomes> outcomes{};  // of all games
  std::int32_t included = 0;                           // games that the statistics are about

  MoneyAmount sum, mean, median, high, low, range;
  MoneyAmount deviation, skew, kurtosis;  // of the whole population; kurtosis less 3
  double variance = 0;
  MoneyAmount net, handle, advantage;
  bool median_is_average = false;  // of the two values in the middle
  GamesBar mode;
  std::int32_t in_range = 0;  // games between the two values of the range, or outside them when
                              // they stand the wrong way round
  std::array<GamesColumn, kHistogramColumns> GamesBuckets{};
};

// Told now and then how far a pass over a long log has come, 0 to 1; false gives up.
using GamesProgress = std::function<bool(double share)>;
inline constexpr std::int32_t kLongLog = 1000;  // more games than that show their progress

// Analyses the log in use by one of the 32 values, in passes over the file: nothing but a table of
// columns is held in memory. Fills blank boxes of the range, places the pointers and keeps the
// counts. Nothing when it was given up, or when the log could not be read, which the player has
// been told; the screen's state is as it was then.
std::optional<GamesAnalysis> AnalyzeGames(Game& game, int value,
                                          const GamesProgress& progress = {});

// The bars of the histogram, by the width that the screen has chosen.
int BarWidth(const GamesLogState& state);
GamesBar BarAt(const GamesAnalysis& analysis, int column, int width);

// How many standard deviations a value lies from the mean, as its box shows it.
std::string DeviationText(const GamesAnalysis& analysis, MoneyAmount value);

}  // namespace feltmaster
