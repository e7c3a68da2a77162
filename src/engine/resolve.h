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

// Settles standing bets that a roll decides.
void ResolveBets(Game& game, const BetSet& decided, const RollDecisionList& decisions);

// The bets that the dice on the table, which make `pair`, decide. Most rolls decide none that
// stands.
inline void ResolveRoll(Game& game, int pair) {
  const PointState state = PointStateOf(game.PrevPoint, game.DiceTotal);
  const auto dice = static_cast<std::size_t>(pair);
  const BetSet decided = game.BetAmount.Standing() & kDecidedBets[state][dice];
  if (!decided.Empty()) ResolveBets(game, decided, kRollTable[state][dice]);
}

}  // namespace feltmaster
