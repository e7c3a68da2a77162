#pragma once

#include "game/game.h"

namespace feltmaster {

// What the betting so far is worth to the house, over the bets that count.
struct Comps {
  MoneyAmount Action;      // all decided wagers
  MoneyAmount Count;       // how many there were
  MoneyAmount Value;       // what the player is expected to have won by them; below 0 as a rule
  double Hours = 0;        // simulated
  MoneyAmount ActionTime;  // the average wager times the hours
  MoneyAmount CompValue;   // what the casino gives back, by BaseComps and CompRate
};

// With CompsUseTrueProbs the dice are taken as true, whatever a Probability File says.
Comps FigureComps(Game& game);

// Whether a bet counts in the comps; bet is 1 to 88.
bool CountsInComps(const Game& game, int bet);
void SetCountsInComps(Game& game, int bet, bool counts);
// What the button "Default" gives a bet: odds bets earn nothing. Not the set of a fresh game.
bool CountsInCompsByDefault(int bet);

}  // namespace feltmaster
