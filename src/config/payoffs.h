#pragma once

#include <array>
#include <string>
#include <string_view>

#include "game/game.h"

namespace feltmaster {

// Restores PayTable and FieldPayTable to the house's own; refreshes row 52 when a point is on.
void DefaultPayoffs(Game& game);
// Row 52 (Pass Line Odds) takes the row of the Come odds of the point. Needs a point.
void CopyPointOddsRow(Game& game);

// The row of FieldPayTable of a pair of dice, 1 to 21, in either order.
int FieldRowOfDice(int die1, int die2);

enum class FieldPreset {
  kAsField,
  kAsPassLine,
  kAsDontPass,
  kAsPlace6,
  kAsPlaceLose8,
  kAsBuy10,
  kAsLay4,
  kAsHard8,
  kAsHorn,
  kAsWorld,
  kAsHop13,
  kAsCraplessPassLine,
};
void SetFieldPayoffs(Game& game, FieldPreset preset);

// The entries of the menu of presets, in the order of FieldPreset.
struct FieldPresetEntry {
  std::string_view name;     // of the entry
  std::string_view caption;  // with its access key
};
extern const std::array<FieldPresetEntry, 12> kFieldPresetMenu;

// The bets whose payoffs can be edited, in the order of the grid; row 1 of the grid is element 0.
// The Pass Line takes the rows of Come, its odds those of Come Odds, and the C and E, the Horn and
// the World those of their numbers.
inline constexpr int kPayoffGridRows = 82;
extern const std::array<int, kPayoffGridRows> kPayoffGrid;
// The label of a row of the grid, by its bet: "Pass/Come 4 Odds".
std::string PayoffLabel(int bet);

// The first row on which a loss exceeds the stake, as the title of the complaint; empty when none.
// grid_row is the row of the grid, 1 to 82, or of the Field, 1 to 21.
struct PayoffFault {
  std::string title;
  bool of_field = false;
  int grid_row = 0;
};
PayoffFault FindPayoffFault(const Game& game);

// Row 54 takes the denominator that all deciding rows of the Field share, 1 if they differ.
void SetFieldCommonDenominator(Game& game);

// The number shown and entered for a row: the numerator, plus the denominator of a "for" ratio.
MoneyAmount ShownNumerator(const PayRow& row);

// The edits of a row as it is shown. Changing the word or the denominator leaves the number shown
// as it was; a denominator that is not above 0 is not taken.
void EnterNumerator(PayRow& row, MoneyAmount shown);
void EnterWord(PayRow& row, bool is_to);
void EnterDenominator(PayRow& row, MoneyAmount denominator);

}  // namespace feltmaster
