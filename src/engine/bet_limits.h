#pragma once

#include "engine/bet_notes.h"
#include "game/game.h"

namespace feltmaster {

// Pure computations on the table; their results stand in the variables of the same names. A pay row
// with the denominator 0 and a betting unit of 0 throw MoneyDivisionByZero.
void ComputeLimits(Game& game, int bet);  // both of these:
void ComputeMinBet(Game& game, int bet);  // MinBetHere
void ComputeMaxBet(Game& game, int bet);  // MaxBetHere
void ComputeMaxOdds(Game& game, int bet, int flat_bet, MoneyAmount numerator,
                    MoneyAmount denominator);  // MaxBetHere, OddsMultiple
// Moves BetChange so that the bet pays off in whole units, between MinBetHere and MaxBetHere, and
// notes what it did. The two amounts that it chose from stand in OddsChangeUp and OddsChangeDown.
void AutoAdjustBet(Game& game, int bet, BetNotes& notes);
void ComputeBuyVig(Game& game, int bet, MoneyAmount amount);  // BuyVigAmount
void ComputeLayVig(Game& game, int bet, MoneyAmount amount);  // LayVigAmount
// The vig of a Lay or Buy bet of that amount, by the two above; 0 for other bets.
MoneyAmount VigOf(Game& game, int bet, MoneyAmount amount);

}  // namespace feltmaster
