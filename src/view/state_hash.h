#pragma once

#include <cstdint>

#include "game/game.h"

namespace feltmaster {

// A signature of everything that play can change: money, bets, counters, all statistics, the
// bankroll's history, the generators, the script's memory and the settings. It is taken from what
// the state means, not from how it is kept: another way of keeping the same game does not change
// it. Statistics that wait to be derived are written into their tables first.
std::uint64_t StateHash(Game& game);

}  // namespace feltmaster
