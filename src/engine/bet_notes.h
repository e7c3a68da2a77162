#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "base/money.h"

namespace feltmaster {

// Why a bet came out other than asked for, in the order in which the reasons came up. Scripts place
// bets on every roll, so a reason is put into words only when the player is to read it.
class BetNotes {
 public:
  enum Kind : std::uint8_t {
    kStackMaximum,
    kStackMinimum,
    kMinimumBet,
    kMaximumBet,
    kNoProperOdds,
    kProperMaximum,
    kProperMinimum,
  };

  bool Empty() const { return count_ == 0; }
  void Clear() { count_ = 0; }
  void Add(Kind kind, MoneyAmount amount = MoneyAmount()) {
    if (count_ < notes_.size()) notes_[count_++] = {kind, amount.Raw()};
  }
  void Replace(Kind kind, MoneyAmount amount) {
    Clear();
    Add(kind, amount);
  }

  bool TellMaximum() const { return Has(kMaximumBet) || Has(kProperMaximum) || Has(kStackMaximum); }
  bool TellMinimum() const { return Has(kMinimumBet) || Has(kProperMinimum) || Has(kStackMinimum); }
  bool TellUnable() const { return Has(kNoProperOdds); }

  // The reasons in words, an empty line between them.
  std::string Text() const;

 private:
  // Not initialised: most requests have nothing to note.
  struct Note {
    Kind kind;
    std::int64_t amount;  // ten-thousandths
  };
  bool Has(Kind kind) const {
    for (std::size_t i = 0; i < count_; ++i) {
      if (notes_[i].kind == kind) return true;
    }
    return false;
  }

  // One limit of the table, and of the adjustment at most three failures and two limits.
  std::array<Note, 6> notes_;
  std::size_t count_ = 0;
};

}  // namespace feltmaster
