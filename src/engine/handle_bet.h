#pragma once

#include <cstdint>

#include "base/money.h"
#include "game/game.h"
#include "surface/surface.h"

namespace feltmaster {

// The handling of the bet in CurrentBet after its decision, by the player's choice or a standing
// rule.
void HandleWonBet(Game& game);
void HandleLostBet(Game& game);

void ComputePressUnit(Game& game, int bet);  // PressUnit

// What can be done with a decided bet.
void TakeDownBet(Game& game);
void KeepSameBet(Game& game);
void BetRemainder(Game& game);
void PressOneUnit(Game& game);
void PressDouble(Game& game);
void ParlayBet(Game& game);
void ModifySameBet(Game& game, int option);  // HandleOption
void SetBetAmount(Game& game, int option);

// The stored setting of a "Same Bet:" or "Bet:" row, a HandleOption, and how its row writes it.
SettleRequest::Option LoadOption(const Game& game, int option);
void StoreOption(Game& game, int option, const SettleRequest::Option& row);

// One unit of the bet in CurrentBet in chips of a colour, by HandleUnits from 2 on: what the
// denominator of its payoff row takes of them. 0 for other units.
MoneyAmount ChipUnit(const Game& game, std::int64_t units);

}  // namespace feltmaster
