#pragma once

#include <cstdint>

#include "game/game.h"

namespace feltmaster {

// MT19937 (Matsumoto and Nishimura, 1998). InitGenrand is the initialisation of 2002; a state that
// was never seeded takes the published default seed at its first draw.
void InitGenrand(MersenneTwister& twister, std::uint32_t seed);
// The initialisation of 1999, two steps of x -> 69069 x + 1 a word, for the stream of RNG #2.
void SeedRandomMt(MersenneTwister& twister, std::uint32_t seed);
// Makes the next block of 624 words.
void Regenerate(MersenneTwister& twister);

// The next 32 bits.
inline std::uint32_t NextWord(MersenneTwister& twister) {
  if (twister.index >= static_cast<std::int32_t>(twister.word.size())) Regenerate(twister);
  std::uint32_t y = twister.word[static_cast<std::size_t>(twister.index++)];
  y ^= y >> 11;
  y ^= (y << 7) & 0x9D2C5680u;
  y ^= (y << 15) & 0xEFC60000u;
  return y ^ (y >> 18);
}
// 0 up to but not 1.
inline double NextReal(MersenneTwister& twister) {
  return NextWord(twister) * 0x1.0p-32;
}
// floor(NextReal * n) for n up to 2^21: word * n is exact in 53 bits, so nothing is lost by
// computing it in integers.
inline std::int32_t NextBelow(MersenneTwister& twister, std::uint32_t n) {
  return static_cast<std::int32_t>((std::uint64_t{NextWord(twister)} * n) >> 32);
}

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
// RAN1 and RAN2 of Numerical Recipes (1986). A negative idum seeds. Ran1 gives 0 to 1 and, since
// it rounds to single precision, now and then 1 itself; Ran2 stays below 1.
float Ran1(Game& game, std::int32_t& idum);
float Ran2(Game& game, std::int32_t& idum);

}  // namespace feltmaster
