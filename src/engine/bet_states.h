#pragma once

#include "game/game.h"

namespace feltmaster {

// A bet placed anew works, or on the come-out follows WorkOnComeOut. Slots above 88 are left alone.
void ResetBetState(Game& game, int bet);
// After a roll that moved the point: a point just set wakes the idle bets, the come-out puts every
// bet that was not called under its rule.
void UpdateBetStates(Game& game);
// All bets work on the come-out but Come Odds, Place, Buy, Pass Line Odds and Come.
BetSet WorkingByDefault();
void DefaultWorkOnComeOut(Game& game);

}  // namespace feltmaster
