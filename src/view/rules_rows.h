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

// Every setting by its name; of a table a row for each element.
Rows SettingRows(Game& game);
// The settings of SettingRows in which a game differs from another, with the values of both.
Rows ChangedSettingRows(Game& game, Game& other);

}  // namespace feltmaster
