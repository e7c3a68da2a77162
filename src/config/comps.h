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

// The bets that count in the comps, as kept in CompBetMask.
BetSet CompBets(const Game& game);
// The buttons of their list. By "Default" odds bets earn nothing, which is not the set of a fresh
// game.
void MarkCompBets(Game& game, const BetSet& selected, BetMark mark);

}  // namespace feltmaster
