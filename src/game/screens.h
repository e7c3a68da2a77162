#pragma once

#include <array>
#include <cstdint>

namespace feltmaster {

// The screens whose place is kept for the next start, in the order of their entries in the game
// file; the table is kept beside them.
enum Screen : std::uint8_t {
  kBankrollScreen,
  kSummaryScreen,
  kRollTotalsScreen,
  kRollFreqsScreen,
  kBetResultsScreen,
  kBetTrendsScreen,
  kStackValuesScreen,
  kFlagsScreen,
  kGamesScreen,
  kAutoBetScreen,
  kDiceRollFilesScreen,
  kFileScreen,
  kRyonScreen,
};
inline constexpr std::size_t kScreenCount = 13;

// In the units of the platform's screen. A size of 0 has never been set.
struct ScreenPlacement {
  bool open = false;
  std::int32_t top = 0;
  std::int32_t left = 0;
  std::int32_t width = 0;
  std::int32_t height = 0;
};

struct ScreenState {
  std::array<ScreenPlacement, kScreenCount> Placements{};
  ScreenPlacement TablePlacement;
  std::int32_t TableWindowState = 0;  // 0 normal, 1 minimised, 2 maximised

  ScreenPlacement& PlacementOf(Screen screen) {
    return Placements[static_cast<std::size_t>(screen)];
  }
};

}  // namespace feltmaster
