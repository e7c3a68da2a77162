#pragma once

#include "game/game.h"

namespace feltmaster {

// The value a code of the "of" list names, now and as of the last roll.
MoneyAmount ValueOf(Game& game, std::int32_t code, std::int32_t stack);
MoneyAmount LastValueOf(Game& game, std::int32_t code, std::int32_t stack);

}  // namespace feltmaster
