#pragma once

#include "engine/roll_table.h"
#include "game/game.h"

namespace feltmaster {

// PayoffExact, PayoffNet and row 0 of PayTable for a bet of that amount, by the dice on the table
// and PrevPoint. is_actual 0 is the phantom dollar.
void ComputePayoff(Game& game, int is_actual, int bet, int mode, MoneyAmount amount);

// Settles one bet that stands on the layout. (The phantom dollar of every decided position is
// counted for the whole roll at once, by RecordPhantomDecisions.)
void ResolveBet(Game& game, int mode, int bet);

// The bets a roll decides.
void ResolveRoll(Game& game);

}  // namespace feltmaster
