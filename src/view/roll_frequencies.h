#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "game/game.h"
#include "view/figure.h"

namespace feltmaster {

// An entry of the list of the Roll Frequencies screen.
struct FrequencyEntry {
  std::string_view caption;
  std::uint8_t event;  // RollCategory
};
inline constexpr int kFrequencyEntries = 88;
extern const std::array<FrequencyEntry, kFrequencyEntries> kFrequencyEntry;

// The figures of one event. The probable percentage is the skewed one only when that is asked for
// and skewed dice are in force; its caption says which.
Figures FrequencyFigures(Game& game, int event, bool skewed);

// The entry's name and its figures.
Rows FrequencyRows(Game& game, const FrequencyEntry& entry, bool skewed);

// Rolls from one appearance to the next, on average over all gaps; 0 while there was none.
double AverageGap(Game& game, int event);

// The gaps from 1 to 200, a row for each: its number, the last as "200+", and how many there were,
// blank for none. The screen shows them in columns of 25.
inline constexpr int kGapRowsShown = 25;
Rows GapRows(Game& game, int event);

}  // namespace feltmaster
