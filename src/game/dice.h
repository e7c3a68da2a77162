#pragma once

#include <cstdint>

namespace feltmaster {

// Two dice, in the order in which they were thrown.
struct Dice {
  std::int32_t Die1 = 0;
  std::int32_t Die2 = 0;

  // A byte of a Dice Roll File can hold 0 and 7 as well.
  constexpr bool AreGood() const { return Die1 >= 1 && Die1 <= 6 && Die2 >= 1 && Die2 <= 6; }
  constexpr std::int32_t Total() const { return Die1 + Die2; }
};

}  // namespace feltmaster
