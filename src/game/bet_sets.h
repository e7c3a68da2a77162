#pragma once

#include "game/bets.h"
#include "game/bit_set.h"

namespace feltmaster {

using BetSet = BitSet<128>;     // bets 0 to 127
using AmountSet = BitSet<256>;  // slots of BetAmount
using StackSet = BitSet<128>;   // Chip-Stacks 0 to 99

constexpr BetSet LayoutBets() {
  BetSet bets;
  bets.AddRange(1, kBetCount);
  return bets;
}
inline constexpr BetSet kLayoutBets = LayoutBets();

}  // namespace feltmaster
