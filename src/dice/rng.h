#pragma once

#include <cstdint>

#include "game/game.h"

namespace feltmaster {

// MT19937. InitGenrand seeds a state; NextWord gives its next 32 bits; a real is word / 2^32, so it
// lies in 0 up to but not 1.
void InitGenrand(MersenneTwister& twister, std::uint32_t seed);
std::uint32_t NextWord(MersenneTwister& twister);
double NextReal(MersenneTwister& twister);

// The largest seed that the selected generator takes.
std::int32_t MaxSeed(const Game& game);

// Seeds the selected generator. ask -1 takes the seed from BetRequest; any other value takes the
// clock or, in UserSeedMode, asks the player. A seed outside 1 to MaxSeed is dropped in silence.
void SeedRng(Game& game, std::int32_t ask);

// Sets Die1 and Die2 from the selected generator, through the probability table when skewed dice
// are in use. A die is always 1 to 6.
void DrawDice(Game& game);

// RNG #3's step: a number in 1 to n.
std::int32_t QuickLcg(Game& game, std::int32_t n);
float Ran1(Game& game, std::int32_t& idum);
float Ran2(Game& game, std::int32_t& idum);

}  // namespace feltmaster
