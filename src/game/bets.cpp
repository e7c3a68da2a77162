#include "game/bets.h"

#include "base/text.h"

namespace feltmaster {

int BetNumberOfName(std::string_view name) {
  for (int bet = 1; bet <= kBetCount; ++bet) {
    if (EqualIgnoringCase(kBetName[static_cast<std::size_t>(bet)], Trim(name))) return bet;
  }
  return 0;
}

}  // namespace feltmaster
