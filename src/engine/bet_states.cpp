#include "engine/bet_states.h"

namespace feltmaster {

void ResetBetState(Game& game, int bet) {
  if (!IsLayoutBet(bet)) return;
  const bool works = game.Point != 0 || game.WorkOnComeOut.Has(bet);
  game.BetState.Set(bet, works ? kWorking : kNotWorking);
}

void UpdateBetStates(Game& game) {
  if (game.Point == game.DiceTotal) game.BetState.PointSet(kLayoutBets);
  if (game.Point == 0) game.BetState.ComeOut(kLayoutBets, game.WorkOnComeOut);
}

BetSet WorkingByDefault() {
  BetSet idle;
  idle.AddRange(kComeOdds, kBuy + kSlotCount - 1);
  idle.Add(kPassOdds);
  idle.Add(kComeBox);
  return kLayoutBets.Without(idle);
}

void DefaultWorkOnComeOut(Game& game) {
  game.WorkOnComeOut = WorkingByDefault();
  UpdateBetStates(game);
}

}  // namespace feltmaster
