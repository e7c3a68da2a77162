#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>

namespace feltmaster {

class PlainFile;

inline constexpr std::int32_t kRngCount = 8;

// The Mersenne Twister state of MT19937: 624 words and the place of the next one. index 625 means
// never seeded.
struct MersenneTwister {
  std::array<std::uint32_t, 624> word{};
  std::int32_t index = 625;
};

// Three congruential generators shuffled over 97 cells. The state words are 32-bit floats that hold
// whole numbers.
struct Ran1Generator {
  float Ix1 = 0;
  float Ix2 = 0;
  float Ix3 = 0;
  std::array<float, 98> R{};  // cells 1 to 97
  std::int32_t J = 0;
  bool Ran1Ready = false;
};

// One congruential generator shuffled over 97 cells.
struct Ran2Generator {
  std::array<std::int32_t, 98> Ir{};  // cells 1 to 97
  std::int32_t Iy = 0;
  std::int32_t J = 0;
  bool Ran2Ready = false;
};

struct RngState {
  std::int32_t RngSelected = 0;  // 0 is RNG #1
  bool UserSeedMode = false;
  bool ReSeedNewGames = true;
  std::int32_t SeedValue = 0;  // also the running state of RNG #3
  std::int32_t LastSeed = 0;

  MersenneTwister Genrand;   // RNG #1, #6, #8
  MersenneTwister RandomMt;  // RNG #2, #7
  Ran1Generator Ran1State;
  Ran2Generator Ran2State;
  std::int32_t Ran2Idum = 0;
};

// The probability grid of the dice. Layer 1 holds weights in thousandths of a percent, layer 0 the
// state of each cell (bit 128 locked by the player).
struct ProbabilityState {
  using Layer = std::array<std::array<std::int32_t, 14>, 8>;  // rows 0 to 7, columns 0 to 13
  std::array<Layer, 2> DiceProbability{};
  bool UseSkewedProbability = false;
  std::int32_t ProbabilityDisplay = 0;
  double RollsOutOf = 36;
  std::string ProbabilityFileName;
  bool ProbabilityChanged = false;
};

enum DiceRollMode : std::int32_t { kRecorderOff = 0, kRecording = 1, kPlayback = 2 };

enum InsertMode : std::int32_t { kInsert = 0, kTypeOver = 1 };

struct DiceRollFileState {
  std::int32_t DiceRollFileMode = kRecorderOff;
  std::string DiceRollFileName;
  std::shared_ptr<PlainFile> OpenDiceRolls;  // files/roll_recorder.h keeps it in step with the name
  std::int32_t DiceRollNext = 1;
  std::int32_t DiceRollLast = 0;
  std::int32_t DiceRollSelectEnd = 1;
  std::int32_t DiceRollTopLine = 1;
  std::int32_t DiceRollPageLines = 20;  // lines of the list that can be seen
  std::int32_t InsertRolls = kTypeOver;
  std::int32_t PrintDieNumbers = 1;
  std::int32_t PrintRollNumbers = 1;
  std::int32_t PrintNumbersCalled = 1;
  std::int32_t PrintSelectedRolls = 0;
  std::int32_t RollPrintFontSize = 6;                  // points, 3 to 20
  std::array<std::array<bool, 7>, 7> RollHighlight{};  // by Die2 and Die1
};

}  // namespace feltmaster
