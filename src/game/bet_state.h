#pragma once

#include <cstdint>

#include "game/bet_sets.h"

namespace feltmaster {

inline constexpr int kCalledOff = -1;
inline constexpr int kNotWorking = 0;
inline constexpr int kWorking = 1;
inline constexpr int kCalledOn = 2;

// The working state of every bet, 0 to 100, kept as sets so that a change of the point is a few
// operations for the whole table.
class BetStates {
 public:
  int operator[](int bet) const {
    if (called_off_.Has(bet)) return kCalledOff;
    if (called_on_.Has(bet)) return kCalledOn;
    return working_.Has(bet) ? kWorking : kNotWorking;
  }
  // state is one of the four values above.
  void Set(int bet, int state) {
    called_off_.Put(bet, state == kCalledOff);
    called_on_.Put(bet, state == kCalledOn);
    working_.Put(bet, state == kWorking || state == kCalledOn);
  }
  bool Works(int bet) const { return working_.Has(bet); }

  // Called ON included, called OFF not.
  const BetSet& Working() const { return working_; }

  // A point has been set: every layout bet that stood idle works.
  void PointSet(const BetSet& layout) { working_ = working_ | layout.Without(called_off_); }
  // The table has gone to the come-out: every layout bet that was not called takes its rule.
  void ComeOut(const BetSet& layout, const BetSet& works_on_come_out) {
    const BetSet ruled = layout.Without(called_off_ | called_on_);
    working_ = working_.Without(ruled) | (works_on_come_out & ruled);
  }

 private:
  BetSet working_;
  BetSet called_on_;
  BetSet called_off_;
};

}  // namespace feltmaster
