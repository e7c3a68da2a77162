#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "base/money.h"
#include "base/record_file.h"

namespace feltmaster {

inline constexpr int kGameValues = 32;         // of a logged game
inline constexpr int kHistogramColumns = 525;  // divided evenly by every width of a bar
inline constexpr std::array<std::int32_t, 4> kGamesBarWidths = {1, 5, 25, 105};

// The Games Log in use, and what its screen holds beside the analysis. The games themselves stay on
// the disk.
struct GamesLogState {
  std::string GamesLogFile;  // full path
  // Where finished games wait to be written by somebody else; null when they go to the file.
  std::vector<Record>* GamesToLog = nullptr;
  bool GamesLogUnflushed =
      false;  // games of a Hyper-Drive run that are not on the disk for certain

  std::int32_t GamesCount = 0;          // of the last analysis
  std::int32_t GamesIncludedCount = 0;  // of them those that pass the outcome filter
  MoneyAmount GamesBreakLow;
  MoneyAmount GamesBreakHigh;
  std::int32_t GamesBarWidth = 5;  // columns, one of kGamesBarWidths
  std::int32_t GamesTopLine = 1;   // game at the top of the data list
  // The two ends of the range, as typed: an amount, and standard deviations from the mean.
  std::array<std::string, 2> GamesValueBox;
  std::array<std::string, 2> GamesDeviationBox;
  std::string GamesFindText;              // looked for last, as typed
  std::array<double, 2> GamesPointers{};  // columns of the histogram
  std::int32_t GamesPointerHeld = 0;      // the pointer moved last
  std::int32_t GamesMeanColumn = 0;
};

}  // namespace feltmaster
