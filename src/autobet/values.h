#pragma once

#include "game/game.h"

namespace feltmaster {

// The value a code of the "of" list names, now and as of the last roll. A code or Chip-Stack that
// does not exist is worth 0.
MoneyAmount ValueOf(Game& game, std::int32_t code, std::int32_t stack);
MoneyAmount LastValueOf(Game& game, std::int32_t code, std::int32_t stack);

// So many percent of these values.
MoneyAmount PercentOf(Game& game, std::int32_t code, std::int32_t stack, MoneyAmount percent);
MoneyAmount PercentOfLast(Game& game, std::int32_t code, std::int32_t stack, MoneyAmount percent);

// The average bankroll of the last rolls (0 all rolls of the game), with or without the roll just
// made.
MoneyAmount AverageBankroll(const Game& game, bool include_current, std::int32_t rolls);

}  // namespace feltmaster
