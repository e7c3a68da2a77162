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

// The buttons of a list of bets that stand on Yes or No, for the lines selected.
enum class BetMark { kYes, kNo, kDefault, kToggle };
constexpr BetSet Marked(const BetSet& marked, const BetSet& selected, BetMark mark,
                        const BetSet& by_default) {
  const BetSet others = marked.Without(selected);
  switch (mark) {
    case BetMark::kYes:
      return others | selected;
    case BetMark::kDefault:
      return others | (selected & by_default);
    case BetMark::kToggle:
      return others | selected.Without(marked);
    default:
      return others;
  }
}

}  // namespace feltmaster
