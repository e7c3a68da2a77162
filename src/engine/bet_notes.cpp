#include "engine/bet_notes.h"

#include <array>
#include <string_view>

#include "base/number_format.h"

namespace feltmaster {

std::string BetNotes::Text() const {
  static constexpr std::array<std::string_view, kProperMinimum + 1> kWords = {
      "Maximum Chip-Stack value is: $",
      "Minimum Chip-Stack value is: $",
      "Minimum bet here is $",
      "Maximum bet here is: $",
      "Unable to auto-adjust bet for proper odds payoff.",
      "Maximum bet for proper odds payoff here is: $",
      "Minimum bet for proper odds payoff here is: $",
  };
  std::string text;
  for (std::size_t i = 0; i < count_; ++i) {
    if (i > 0) text += "\n\n";
    text += kWords[notes_[i].kind];
    if (notes_[i].kind != kNoProperOdds)
      text += FormatMoney(MoneyAmount::FromRaw(notes_[i].amount));
  }
  return text;
}

}  // namespace feltmaster
