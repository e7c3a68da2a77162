#pragma once

#include "game/game.h"

namespace feltmaster {

void ApplyWorkStates(Game& game);
void ResetWorkOnComeOut(Game& game);
void SetWorkOnComeOut(Game& game, int bet, bool works);

void SetAutoAdjust(Game& game, std::int32_t option);
void SetAutoTakeFullOdds(Game& game, bool on);  // asks about the bets on the table
void SetAutoRollDice(Game& game, bool on);      // asks whether to resume the count
void SetNumAutoRolls(Game& game, std::int64_t rolls);

// The roll command of the table (right mouse button, "Roll the Dice"): toggles Auto-Roll, or rolls.
void RollCommand(Game& game);

}  // namespace feltmaster
