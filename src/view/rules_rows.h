#pragma once

#include "game/game.h"
#include "view/rows.h"

namespace feltmaster {

// Both grids of payoffs, the bets before the Field: label, number shown, "to" or "for",
// denominator.
Rows PayoffRows(const Game& game);

// What every bet is worth under the rules in force: under a heading, label and five figures, those
// that the screen is set to show. Row n is bet n.
Rows AdvantageRows(const Game& game);

}  // namespace feltmaster
