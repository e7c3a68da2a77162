#include "dice/rng.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <string>

#include "autobet/message.h"
#include "base/number_format.h"
#include "dice/probability.h"
#include "stats/roll_statistics.h"
#include "surface/surface.h"

namespace feltmaster {

namespace {

constexpr std::uint32_t kDefaultGenrandSeed = 5489;
constexpr std::uint32_t kDefaultRandomMtSeed = 4357;

constexpr int kWords = 624;
constexpr int kMiddle = 397;

// word[k] for k from `first` on, each from itself, the word behind it and the one `reach` away.
// The count is a constant so that the compiler can do several words at once.
template <int kCount>
void Twist(std::uint32_t* word, int reach) {
  for (int k = 0; k < kCount; ++k) {
    const std::uint32_t y = (word[k] & 0x80000000u) | (word[k + 1] & 0x7FFFFFFFu);
    word[k] = word[k + reach] ^ (y >> 1) ^ ((std::uint32_t{0} - (word[k + 1] & 1)) & 0x9908B0DFu);
  }
}

// a * x + c mod m, for values that need not fit 32 bits on the way.
constexpr std::int32_t Congruent(std::int64_t x, std::int64_t a, std::int64_t c, std::int64_t m) {
  return static_cast<std::int32_t>((a * x + c) % m);
}

constexpr std::int64_t kRan2Modulus = 714025;
constexpr std::int64_t kRan2Multiplier = 1366;
constexpr std::int64_t kRan2Increment = 150889;

std::int32_t Ran2Step(std::int64_t x) {
  return Congruent(x, kRan2Multiplier, kRan2Increment, kRan2Modulus);
}

constexpr std::int64_t kRan1Modulus = 259200;
constexpr std::int64_t kRan1Multiplier = 7141;
constexpr std::int64_t kRan1Increment = 54773;
constexpr std::int64_t kRan1Modulus2 = 134456;
constexpr std::int64_t kRan1Modulus3 = 243000;

// The state words of Ran1 are whole and below 2^24, so single precision holds them exactly.
void StepIx1(Ran1Generator& state) {
  state.Ix1 = static_cast<float>(Congruent(static_cast<std::int64_t>(state.Ix1), kRan1Multiplier,
                                           kRan1Increment, kRan1Modulus));
}
void StepIx2(Ran1Generator& state) {
  state.Ix2 = static_cast<float>(
      Congruent(static_cast<std::int64_t>(state.Ix2), 8121, 28411, kRan1Modulus2));
}
void StepIx3(Ran1Generator& state) {
  state.Ix3 = static_cast<float>(
      Congruent(static_cast<std::int64_t>(state.Ix3), 4561, 51349, kRan1Modulus3));
}
float Ran1Cell(const Ran1Generator& state) {
  return static_cast<float>((double{state.Ix1} + double{state.Ix2} * 7.4373773e-6) * 3.8580247e-6);
}

constexpr std::int32_t kShuffleCells = 97;

// The generators that the eight selections are made of.
enum class Base { kGenrand, kRandomMt, kQuickLcg, kRan2, kRan1 };

struct Selection {
  Base odd_roll;
  Base even_roll;
  bool one_call;  // one draw makes both dice
};
constexpr std::array<Selection, kRngCount> kSelections = {{
    {Base::kGenrand, Base::kGenrand, false},
    {Base::kRandomMt, Base::kRandomMt, false},
    {Base::kQuickLcg, Base::kQuickLcg, false},
    {Base::kRan2, Base::kRan2, false},
    {Base::kRan1, Base::kRan1, false},
    {Base::kGenrand, Base::kRan1, false},
    {Base::kRandomMt, Base::kRan2, false},
    {Base::kGenrand, Base::kGenrand, true},
}};
constexpr std::size_t kRng3 = 2;

std::size_t Selected(const Game& game) {
  const auto selected = static_cast<std::size_t>(game.RngSelected);
  return selected < kSelections.size() ? selected : 0;
}

MersenneTwister& SeededRandomMt(Game& game) {
  if (game.RandomMt.index > kWords) SeedRandomMt(game.RandomMt, kDefaultRandomMtSeed);
  return game.RandomMt;
}

float NextRan1(Game& game) {
  std::int32_t idum = 1;
  return Ran1(game, idum);
}

constexpr std::int32_t kFaces = 6;

// A result of exactly 1 counts as the last number below it.
std::int32_t DieOf(float r) {
  return std::min(static_cast<std::int32_t>(double{r} * 6.0) + 1, kFaces);
}

std::int32_t DrawDie(Game& game, Base base) {
  switch (base) {
    case Base::kGenrand:
      return NextBelow(game.Genrand, kFaces) + 1;
    case Base::kRandomMt:
      return NextBelow(SeededRandomMt(game), kFaces) + 1;
    case Base::kQuickLcg:
      return QuickLcg(game, kFaces);
    case Base::kRan2:
      return DieOf(Ran2(game, game.Ran2Idum));
    case Base::kRan1:
      return DieOf(NextRan1(game));
  }
  return 1;
}

constexpr std::int32_t kParts = 100'000;  // the grid of Probability Files

std::int32_t PartOf(float r) {
  return static_cast<std::int32_t>(std::nearbyint(double{r} * 100'000.0)) + 1;
}

std::int32_t DrawPart(Game& game, Base base) {
  switch (base) {
    case Base::kGenrand:
      return NextBelow(game.Genrand, kParts) + 1;
    case Base::kRandomMt:
      return NextBelow(SeededRandomMt(game), kParts) + 1;
    case Base::kQuickLcg:
      return QuickLcg(game, kParts);
    case Base::kRan2:
      return PartOf(Ran2(game, game.Ran2Idum));
    case Base::kRan1:
      return PartOf(NextRan1(game));
  }
  return 1;
}

bool IsSeed(const Game& game, MoneyAmount value) {
  return value >= MoneyAmount(1) && value <= MoneyAmount::FromWhole(MaxSeed(game));
}

// The place of the millisecond clock in a seed: RNG #3 takes tenths of seconds, with the rest
// behind the decimal point.
MoneyAmount ClockSeed(Game& game) {
  const std::int64_t clock = game.surface->MillisecondClock();
  return Selected(game) == kRng3 ? MoneyAmount::FromRaw(clock * (MoneyAmount::kScale / 100))
                                 : MoneyAmount::FromWhole(clock);
}

// Nobody mistypes a seed so often; a table without a player answers the same for ever.
constexpr int kSeedQuestions = 10;

// The seed that the player types lands in BetRequest.
void AskSeed(Game& game) {
  const std::string question = "Please enter a value between 1 and " +
                               FormatNumber(std::int64_t{MaxSeed(game)}, "#,#") +
                               " to seed the random number generator:\n";
  game.BetRequest = {};
  for (int asked = 0; asked < kSeedQuestions && !IsSeed(game, game.BetRequest); ++asked) {
    game.MsgInputDefault = std::to_string(game.LastSeed);
    game.MsgInputLength = Selected(game) == kRng3 ? 6 : 10;
    Tell(game, "RNG Seed", (asked == 0 ? "" : "Your seed value is out of limits.\n\n") + question,
         kButtonOk | kOneInput);
  }
}

}  // namespace

void InitGenrand(MersenneTwister& twister, std::uint32_t seed) {
  std::uint32_t word = seed;
  twister.word[0] = word;
  for (std::uint32_t i = 1; i < kWords; ++i) {
    word = 1812433253u * (word ^ (word >> 30)) + i;
    twister.word[i] = word;
  }
  twister.index = kWords;
}

void SeedRandomMt(MersenneTwister& twister, std::uint32_t seed) {
  for (std::uint32_t& word : twister.word) {
    word = seed & 0xFFFF0000u;
    seed = 69069u * seed + 1;
    word |= seed >> 16;
    seed = 69069u * seed + 1;
  }
  twister.index = kWords;
}

void Regenerate(MersenneTwister& twister) {
  if (twister.index > kWords) InitGenrand(twister, kDefaultGenrandSeed);
  std::uint32_t* word = twister.word.data();
  constexpr int kNear = kWords - kMiddle;
  Twist<kNear>(word, kMiddle);
  Twist<kWords - kNear - 1>(word + kNear, -kNear);
  const std::uint32_t y = (word[kWords - 1] & 0x80000000u) | (word[0] & 0x7FFFFFFFu);
  word[kWords - 1] = word[kMiddle - 1] ^ (y >> 1) ^ ((std::uint32_t{0} - (y & 1)) & 0x9908B0DFu);
  twister.index = 0;
}

std::int32_t QuickLcg(Game& game, std::int32_t n) {
  // The seed of another generator may stand here, of any size.
  const std::int32_t step = Ran2Step(game.SeedValue);
  game.SeedValue = step < 0 ? step + static_cast<std::int32_t>(kRan2Modulus) : step;
  return 1 + static_cast<std::int32_t>(
                 std::floor(n * (game.SeedValue / static_cast<double>(kRan2Modulus))));
}

float Ran2(Game& game, std::int32_t& idum) {
  Ran2Generator& state = game.Ran2State;
  if (idum < 0 || !state.Ran2Ready) {
    state.Ran2Ready = true;
    idum = static_cast<std::int32_t>((kRan2Increment - idum) % kRan2Modulus);
    for (std::size_t cell = 1; cell <= kShuffleCells; ++cell) {
      state.Ir[cell] = idum = Ran2Step(idum);
    }
    state.Iy = idum = Ran2Step(idum);
  }
  state.J = 1 + static_cast<std::int32_t>(std::floor(kShuffleCells * static_cast<double>(state.Iy) /
                                                     static_cast<double>(kRan2Modulus)));
  if (state.J > kShuffleCells || state.J < 1) {
    game.LastErrorText = "\nAn error occurred in function Ran2";
    return 0;
  }
  std::int32_t& cell = state.Ir[static_cast<std::size_t>(state.J)];
  state.Iy = cell;
  idum = Ran2Step(idum);
  cell = idum;
  return static_cast<float>(state.Iy * 1.4005112e-6);
}

float Ran1(Game& game, std::int32_t& idum) {
  Ran1Generator& state = game.Ran1State;
  if (idum < 0 || !state.Ran1Ready) {
    state.Ran1Ready = true;
    state.Ix1 = static_cast<float>((kRan1Increment - idum) % kRan1Modulus);
    StepIx1(state);
    state.Ix2 = static_cast<float>(static_cast<std::int64_t>(state.Ix1) % kRan1Modulus2);
    StepIx1(state);
    state.Ix3 = static_cast<float>(static_cast<std::int64_t>(state.Ix1) % kRan1Modulus3);
    for (std::size_t cell = 1; cell <= kShuffleCells; ++cell) {
      StepIx1(state);
      StepIx2(state);
      state.R[cell] = Ran1Cell(state);
    }
    idum = 1;
  }
  StepIx1(state);
  StepIx2(state);
  StepIx3(state);
  state.J = 1 + static_cast<std::int32_t>(std::floor(static_cast<double>(state.Ix3) *
                                                     kShuffleCells / double{kRan1Modulus3}));
  if (state.J > kShuffleCells || state.J < 1) {
    game.LastErrorText = "\nAn error occurred in function Ran1";
    return 0;
  }
  float& cell = state.R[static_cast<std::size_t>(state.J)];
  const float result = cell;
  cell = Ran1Cell(state);
  return result;
}

std::int32_t MaxSeed(const Game& game) {
  return Selected(game) == kRng3 ? 999'999 : std::numeric_limits<std::int32_t>::max();
}

void SeedRng(Game& game, std::int32_t ask) {
  if (ask != -1) {
    if (game.UserSeedMode) {
      AskSeed(game);
    } else {
      game.BetRequest = ClockSeed(game);
    }
  }
  if (!IsSeed(game, game.BetRequest)) return;

  const auto seed = static_cast<std::int32_t>(game.BetRequest.RoundWhole());
  const auto word = static_cast<std::uint32_t>(seed);
  game.SeedValue = seed;
  game.LastSeed = seed;
  const Selection& selection = kSelections[Selected(game)];
  for (const Base base : {selection.odd_roll, selection.even_roll}) {
    std::int32_t idum = -seed;
    switch (base) {
      case Base::kGenrand:
        InitGenrand(game.Genrand, word);
        break;
      case Base::kRandomMt:
        SeedRandomMt(game.RandomMt, word);
        break;
      case Base::kQuickLcg:
        QuickLcg(game, kFaces);
        break;
      case Base::kRan2:
        Ran2(game, idum);
        break;
      case Base::kRan1:
        Ran1(game, idum);
        break;
    }
    if (selection.odd_roll == selection.even_roll) break;
  }
}

void DrawDice(Game& game) {
  if (game.RngSelected == 0 && !game.UseSkewedProbability) {  // the hot road
    game.Die1 = NextBelow(game.Genrand, kFaces) + 1;
    game.Die2 = NextBelow(game.Genrand, kFaces) + 1;
    return;
  }
  const Selection& selection = kSelections[Selected(game)];
  const bool odd = RollsMade(game) % 2 != 0;
  const Base base = odd ? selection.odd_roll : selection.even_roll;
  if (game.UseSkewedProbability) {
    MapSkewedDraw(game, DrawPart(game, base));
  } else if (selection.one_call) {
    const std::int32_t both = NextBelow(game.Genrand, kFaces * kFaces);
    game.Die1 = both % kFaces + 1;
    game.Die2 = both / kFaces + 1;
  } else {
    game.Die1 = DrawDie(game, base);
    game.Die2 = DrawDie(game, base);
  }
}

}  // namespace feltmaster
