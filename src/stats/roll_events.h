#pragma once

#include <array>
#include <bit>
#include <cstdint>

#include "game/statistics.h"

namespace feltmaster {

// The ordered pairs of dice, 0 to 35: 6 * (first die - 1) + second die - 1.
inline constexpr int kDicePairs = 36;
constexpr int PairOfDice(int die1, int die2) {
  return 6 * (die1 - 1) + die2 - 1;
}
constexpr int FirstDie(int pair) {
  return pair / 6 + 1;
}
constexpr int SecondDie(int pair) {
  return pair % 6 + 1;
}
constexpr int TotalOf(int pair) {
  return FirstDie(pair) + SecondDie(pair);
}

// Roll events (RollCategory) that are built from others by rule.
inline constexpr int kDie1Events = 77;  // plus the face
inline constexpr int kDie2Events = 83;  // plus the face

// The event of each ordered pair, by first and second die.
inline constexpr std::array<std::array<std::uint8_t, 6>, 6> kPairEvent = {{
    {2, 22, 24, 27, 33, 39},
    {23, 13, 29, 35, 41, 48},
    {25, 30, 14, 43, 50, 54},
    {28, 36, 44, 15, 56, 60},
    {34, 42, 51, 57, 16, 63},
    {40, 49, 55, 61, 64, 12},
}};

// The event of an unordered pair, "1-3 or 3-1"; 0 where there is none: doubles, and the pairs of 3
// and 11, for which the number itself stands.
inline constexpr std::array<std::array<std::uint8_t, 6>, 6> kEitherWayEvent = {{
    {0, 0, 26, 31, 37, 45},
    {0, 0, 32, 38, 46, 52},
    {26, 32, 0, 47, 53, 58},
    {31, 38, 47, 0, 59, 62},
    {37, 46, 53, 59, 0, 0},
    {45, 52, 58, 62, 0, 0},
}};

struct NumberGroup {
  std::uint8_t event;
  std::uint16_t totals;  // bit n for the total n
};
namespace roll_events_internal {
template <typename... Totals>
constexpr std::uint16_t Set(Totals... totals) {
  return static_cast<std::uint16_t>(((1u << totals) | ...));
}
}  // namespace roll_events_internal

// In the order in which a roll files them.
inline constexpr std::array<NumberGroup, 18> kNumberGroups = [] {
  using roll_events_internal::Set;
  return std::array<NumberGroup, 18>{{
      {21, Set(2, 3, 4, 9, 10, 11, 12)},
      {17, Set(4, 5, 6, 8, 9, 10)},
      {65, Set(2, 3, 7, 11, 12)},
      {66, Set(2, 3, 11, 12)},
      {18, Set(5, 6, 8, 9)},
      {19, Set(4, 5, 9, 10)},
      {20, Set(2, 3, 12)},
      {67, Set(4, 5, 6)},
      {68, Set(8, 9, 10)},
      {69, Set(2, 12)},
      {70, Set(3, 11)},
      {71, Set(4, 10)},
      {72, Set(5, 9)},
      {73, Set(6, 8)},
      {74, Set(2, 3)},
      {75, Set(3, 12)},
      {76, Set(7, 11)},
      {77, Set(11, 12)},
  }};
}();

// The events of one pair of dice, in the order in which a roll files them, and kNoEvent behind
// them.
struct PairEvents {
  std::uint8_t count = 0;
  std::array<std::uint8_t, kMostEvents> event = [] {
    std::array<std::uint8_t, kMostEvents> none{};
    none.fill(kNoEvent);
    return none;
  }();

  constexpr void Add(int category) { event[count++] = static_cast<std::uint8_t>(category); }
};

inline constexpr std::array<PairEvents, kDicePairs> kPairEvents = [] {
  std::array<PairEvents, kDicePairs> table{};
  for (int pair = 0; pair < kDicePairs; ++pair) {
    PairEvents& events = table[static_cast<std::size_t>(pair)];
    const int die1 = FirstDie(pair);
    const int die2 = SecondDie(pair);
    const int total = TotalOf(pair);
    const auto row = static_cast<std::size_t>(die1 - 1);
    const auto column = static_cast<std::size_t>(die2 - 1);
    events.Add(kDie1Events + die1);
    events.Add(kDie2Events + die2);
    events.Add(kPairEvent[row][column]);
    if (total >= 3 && total <= 11) events.Add(total);
    if (kEitherWayEvent[row][column] != 0) events.Add(kEitherWayEvent[row][column]);
    for (const NumberGroup& group : kNumberGroups) {
      if ((group.totals >> total & 1) != 0) events.Add(group.event);
    }
  }
  return table;
}();

// The pairs that make each event, a bit a pair; none for 0, 1 and 90, which are no events of dice.
inline constexpr std::array<std::uint64_t, kFiledRows> kPairsOfEvent = [] {
  std::array<std::uint64_t, kFiledRows> pairs{};
  for (std::size_t pair = 0; pair < kDicePairs; ++pair) {
    const PairEvents& events = kPairEvents[pair];
    for (std::size_t i = 0; i < events.count; ++i) {
      pairs[events.event[i]] |= std::uint64_t{1} << pair;
    }
  }
  return pairs;
}();

// How many of the 36 pairs make an event; 0 for 0, 1 and 90.
inline constexpr std::array<std::uint8_t, kRollCategories> kEventWays = [] {
  std::array<std::uint8_t, kRollCategories> ways{};
  for (std::size_t event = 0; event < ways.size(); ++event) {
    ways[event] = static_cast<std::uint8_t>(std::popcount(kPairsOfEvent[event]));
  }
  return ways;
}();
static_assert([] {
  for (std::size_t i = 2; i < 90; ++i) {
    if (kEventWays[i] == 0) return false;
  }
  return kEventWays[7] == 6 && kEventWays[17] == 24 && kEventWays[0] == 0 && kEventWays[90] == 0;
}());

}  // namespace feltmaster
