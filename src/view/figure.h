#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "game/game.h"
#include "view/rows.h"

namespace feltmaster {

// How a value is coloured: black, blue for what is won, red for what is lost; dark blue for what
// the house is given.
enum class Tone { kNeutral, kWin, kLoss, kVig };

// A captioned value of a screen. A heading has no text.
struct Figure {
  std::string caption;
  std::string text;
  Tone tone = Tone::kNeutral;

  bool operator==(const Figure&) const = default;
};
using Figures = std::vector<Figure>;

Rows RowsOf(const Figures& figures);

// Blue from 0 on, red below.
Tone ToneOf(MoneyAmount amount);

// Whole numbers with thousands separators, 0 as "0".
inline constexpr std::string_view kCountPicture = "#,#;-#,#;0";
std::string CountText(std::int64_t count);
std::string CountText(MoneyAmount count);
// A rate or a length of time: up to four places, none when it is whole.
std::string RateText(MoneyAmount value);
// Two places with a leading zero and thousands separators.
std::string StandardText(double value);

// The time that the rolls of the game stand for; 0 while no rate is set.
MoneyAmount SimulatedHours(const Game& game);

// Of the 16-colour palette: 12 (bright red) for a loss, 9 (bright blue) for a win, 1 (blue) for the
// house's vig.
int PaletteColor(Tone tone);

}  // namespace feltmaster
