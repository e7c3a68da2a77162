#pragma once

#include <string>
#include <string_view>

#include "game/game.h"

namespace feltmaster {

void ApplyWorkStates(Game& game);
void ResetWorkOnComeOut(Game& game);

// The list of bets that work on the come-out or do not: all but the Come bets on their numbers, the
// Pass Line, its odds and the Come box.
BetSet WorkList();
void MarkWorkOnComeOut(Game& game, const BetSet& selected, BetMark mark);

// The buttons beside the amount of a "Same Bet:" or "Bet:" row, of a HandleOption: "+", "-", "x" or
// "/", and the unit, "$" or "%" (of the settle dialog also "$25 Units").
std::string_view HandleOperatorText(const Game& game, int option);
void StepHandleOperator(Game& game, int option);
std::string HandleUnitsText(const Game& game, int option);
void StepHandleUnits(Game& game, int option);

void SetAutoAdjust(Game& game, std::int32_t option);
void SetAutoTakeFullOdds(Game& game, bool on);  // asks about the bets on the table
void SetAutoRollDice(Game& game, bool on);      // asks whether to resume the count
void SetNumAutoRolls(Game& game, std::int64_t rolls);

// The roll command of the table (right mouse button, "Roll the Dice"): toggles Auto-Roll, or rolls.
void RollCommand(Game& game);

}  // namespace feltmaster
