#pragma once

#include <array>
#include <string>
#include <vector>

#include "game/game.h"

namespace feltmaster {

// The house rules as they are printed on the layout, so that it always shows the table in play.

// A ratio in the small print of the layout: "7t6" for 7 to 6, "31f1" for 31 for 1.
std::string RatioMark(const PayRow& row);

// A number of the Field and what its pairs of dice pay, each ratio once. Numbers on which the Field
// only loses its bet, or on which nothing is decided, are not printed.
struct FieldNumber {
  int total = 0;
  std::vector<std::string> marks;
  bool pays_more = false;  // than even money, which deserves a ring round the number

  bool operator==(const FieldNumber&) const = default;
};

struct PrintedRules {
  std::array<std::string, kBetCount + 1> ratio;  // by bet; empty where no row of its own pays it
  std::vector<FieldNumber> field;
  // The placard of the house: the limits of a bet, those of odds, the vig of Lay and Buy bets.
  std::string limits;
  std::string odds_limit;
  std::string lay_vig;
  std::string buy_vig;

  bool operator==(const PrintedRules&) const = default;
};
PrintedRules PrintRules(const Game& game);

}  // namespace feltmaster
