#pragma once

#include "game/game.h"

namespace feltmaster {

// What a bet of one unit is worth under the rules in force, as fractions of the bet. Each figure is
// rounded to six places. rolls_per_decision is 0 when the dice can never decide the bet.
struct Advantage {
  double ev_per_roll = 0;
  double ev_per_decision = 0;
  double rolls_per_decision = 0;
  double deviation_per_roll = 0;
  double deviation_per_decision = 0;
};
Advantage FigureAdvantage(const Game& game, int bet);

}  // namespace feltmaster
