#pragma once

#include <cstdint>
#include <string_view>

#include "game/game.h"

namespace feltmaster {

// Commands that act on one bet: chosen from the menu they take the bet of the entry box, or wait
// for the next press on a bet. The values of CallBetMode.
enum class BetCall : std::int32_t { kNone, kTurnOn, kTurnOff, kBuyIt, kRemove };

// Chosen a second time, a waiting command is cancelled.
void ChooseCall(Game& game, BetCall call);
void CancelCall(Game& game);
// The waiting command finds its bet.
void CarryOutCall(Game& game, int slot);

// The prompt on the table while a command waits, or empty.
std::string_view CallPrompt(const Game& game);

}  // namespace feltmaster
