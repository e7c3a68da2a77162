#pragma once

#include "game/game.h"

namespace feltmaster {

// What a decision comes to: the row by which it was paid, and the result before it is rounded to
// the betting unit.
struct Payoff {
  PayRow row;
  MoneyAmount exact;
};

// The dice and the point by which a roll is judged.
struct Judgement {
  int pair = 0;        // PairOfDice
  int prev_point = 0;  // the point when the roll began, 0 on the come-out
};

// Of a bet of the player's own; vig is what stands on it. mode is a ResolveMode. Throws
// MoneyDivisionByZero for a row with the denominator 0.
Payoff ActualPayoff(const HouseRules& rules, Judgement roll, int bet, int mode, MoneyAmount amount,
                    MoneyAmount vig);
// Of the phantom dollar, whose vig is figured from the rates.
Payoff PhantomPayoff(const HouseRules& rules, Judgement roll, int bet, int mode);

// What the phantom dollar adds to the wager for vig when it is charged.
MoneyAmount PhantomWagerWithVig(const HouseRules& rules, int bet, MoneyAmount result);

// Wins are rounded down to the betting unit, losses away from zero.
MoneyAmount NetPayoff(MoneyAmount exact, MoneyAmount unit);

}  // namespace feltmaster
