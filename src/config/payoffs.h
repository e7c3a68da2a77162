#pragma once

#include <string>

#include "game/game.h"

namespace feltmaster {

// Restores PayTable and FieldPayTable to the house's own; refreshes row 52 when a point is on.
void DefaultPayoffs(Game& game);
// Row 52 (Pass Line Odds) takes the row of the Come odds of the point. Needs a point.
void CopyPointOddsRow(Game& game);

// The row of FieldPayTable of a pair of dice, 1 to 21, in either order.
int FieldRowOfDice(int die1, int die2);

enum class FieldPreset {
  kField,
  kPassLine,
  kDontPass,
  kPlace6,
  kPlaceLose8,
  kBuy10,
  kLay4,
  kHard8,
  kHorn,
  kWorld,
  kHop13,
  kCraplessPassLine,
};
void SetFieldPayoffs(Game& game, FieldPreset preset);

// The first row on which a loss exceeds the stake, as the title of the complaint; empty when none.
std::string FindPayoffFault(const Game& game);

// Row 54 takes the denominator that all deciding rows of the Field share, 1 if they differ.
void SetFieldCommonDenominator(Game& game);

// The number shown and entered for a row: the numerator, plus the denominator of a "for" ratio.
MoneyAmount ShownNumerator(const PayRow& row);

}  // namespace feltmaster
