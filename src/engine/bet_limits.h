#pragma once

#include "game/game.h"

namespace feltmaster {

// Pure computations on the table; their results stand in the variables of the same names.
void ComputeMinBet(Game& game, int bet);  // MinBetHere
void ComputeMaxBet(Game& game, int bet);  // MaxBetHere
void ComputeMaxOdds(Game& game, int bet, int flat_bet, MoneyAmount numerator,
                    MoneyAmount denominator);  // MaxBetHere, OddsMultiple
// Moves BetChange so that the bet pays off in whole units, and appends to MsgText what it did.
void AutoAdjustBet(Game& game, int bet);
void ComputeBuyVig(Game& game, int bet, MoneyAmount amount);  // BuyVigAmount
void ComputeLayVig(Game& game, int bet, MoneyAmount amount);  // LayVigAmount

}  // namespace feltmaster
