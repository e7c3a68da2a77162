#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "game/game.h"
#include "view/rows.h"

namespace feltmaster {

// The grid of the dice as the Probability tab shows it: every cell in use, in one of four ways.
enum ProbabilityDisplays : std::int32_t {
  kShowPercent = 0,
  kShowPercentOff = 1,  // from the true percentage
  kShowRolls = 2,       // out of RollsOutOf
  kShowRollsOff = 3,    // from the true number of them
};
inline constexpr std::array<std::string_view, 4> kProbabilityDisplayCaptions = {
    " Show as percentage", " Show as +/- from true %",
    " Show as # rolls out of:", " Show as +/- from true rolls out of:"};

struct ProbabilityCell {
  int row = 0;
  int column = 0;
  std::string name;  // "7", "3-4", "first 6", "second 6"
  double value = 0;  // what the field stands for, by ProbabilityDisplay
  std::string text;
  bool locked = false;
};
// The totals, the rolls by total, the faces of the first and of the second die.
std::vector<ProbabilityCell> ProbabilityCells(const Game& game);
ProbabilityCell ProbabilityCellAt(const Game& game, int row, int column);

// "Percentage Dice" or "Free Form Dice".
std::string_view DiceKindText(const Game& game);
// lblPrbFileName.
std::string_view ProbabilityFileLabel(const Game& game);

// The rolls by either die, with the faces at the ends of the rows and columns, and below them the
// totals. A cell that is locked ends with an asterisk.
Rows ProbabilityRows(const Game& game);

}  // namespace feltmaster
