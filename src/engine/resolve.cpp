#include "engine/resolve.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "engine/amounts.h"
#include "engine/handle_bet.h"
#include "engine/payoff.h"
#include "engine/place_bet.h"
#include "engine/settle_display.h"
#include "stats/bet_results.h"

namespace feltmaster {
namespace {

bool AsksForWonBets(const Game& game) {
  return !game.HyperDriveActive && game.HandleWinningBets == kHandleManually;
}

bool FlatBetIsGone(const Game& game, int odds_bet) {
  return game.BetAmount[odds_bet - kComeOdds + kComePoint].Raw() == 0;
}

// Odds that do not work come back to the player.
void ReturnOdds(Game& game, int bet) {
  game.PayoffNet = MoneyAmount();
  if (AsksForWonBets(game)) FillOddsReturnedDisplay(game);
  game.MustComeDown = bet == kPassOdds || FlatBetIsGone(game, bet) || !game.AllowPutBets;
  if (!game.MustComeDown) {
    game.PayTable[0].PayDenominator = game.PayTable[static_cast<std::size_t>(bet)].PayDenominator;
    ComputePressUnit(game, bet);
  }
  HandleWonBet(game);
  game.BetState.Set(bet, kWorking);
}

// No game comes near the longest run that a counter holds; a file that does stays there.
void CountStreak(Game& game, int bet) {
  constexpr int kLongestRun = 2'147'483'647;
  const int run = game.BetStreak.Now(bet);
  if (game.PayoffNet.Raw() > 0) {
    game.BetStreak.SetNow(bet, run < 0 ? 1 : std::min(run, kLongestRun - 1) + 1);
  } else if (game.PayoffNet.Raw() < 0) {
    game.BetStreak.SetNow(bet, run > 0 ? -1 : std::max(run, 1 - kLongestRun) - 1);
  }
}

bool MustLeaveTable(const Game& game, int bet) {
  if (bet == kComeBox) return game.DiceTotal == 7;
  if (bet == kPassOdds) return true;
  if (IsComePoint(bet)) return !game.AllowPutBets;
  return IsComeOdds(bet) && FlatBetIsGone(game, bet);
}

void NoteDecision(Game& game, int bet, MoneyAmount amount) {
  RollDecisions& decisions = game.Decisions;
  if (decisions.count == static_cast<std::int32_t>(decisions.list.size())) return;
  decisions.list[static_cast<std::size_t>(decisions.count++)] = {bet, amount, game.PayoffNet};
}

}  // namespace

void ComputePayoff(Game& game, int is_actual, int bet, int mode, MoneyAmount amount) {
  const Judgement roll = {PairOfDice(game.Die1, game.Die2), game.PrevPoint};
  const bool has_vig = HasVig(bet);
  const Payoff payoff = is_actual != 0
                            ? ActualPayoff(game, roll, bet, mode, amount,
                                           has_vig ? StandingVig(game, bet) : MoneyAmount())
                            : PhantomPayoff(game, roll, bet, mode);
  game.PayTable[0] = payoff.row;
  game.PayoffExact = payoff.exact;
  game.PayoffNet = NetPayoff(payoff.exact, BettingUnit(game));
}

void ResolveBet(Game& game, int mode, int bet) {
  game.CurrentBet = bet;
  const MoneyAmount amount = game.BetAmount[bet];
  if (amount.Raw() == 0) return;
  if (!game.BetState.Works(bet)) {
    if (mode == kOddsWin || mode == kOddsLose) ReturnOdds(game, bet);
    return;
  }
  ComputePayoff(game, 1, bet, mode, amount);
  RecordBetResult(game, bet, amount, game.PayoffNet);
  NoteDecision(game, bet, amount);
  if (game.PayoffExact.Raw() == 0 && game.PayoffNet.Raw() == 0) return;

  game.BetAmount.Set(kBankroll, game.BetAmount[kBankroll] + game.PayoffNet);
  if (bet >= kComePoint && bet <= kPassLine) SetEstablished(game, bet, MoneyAmount());
  game.MustComeDown = MustLeaveTable(game, bet);
  CountStreak(game, bet);
  if (game.PayoffNet.Raw() < 0) {
    HandleLostBet(game);
    return;
  }
  if (AsksForWonBets(game)) FillWonDisplay(game);
  ComputePressUnit(game, bet);
  HandleWonBet(game);
}

void ResolveBets(Game& game, const BetSet& decided, const RollDecisionList& decisions) {
  // The standing bets among them, by their place in the list. Handling a bet can place others (a
  // Come bet travels), but none that this roll still has to decide.
  std::array<std::uint8_t, kBetCount + 1> places;
  std::size_t count = 0;
  decided.ForEach([&](int bet) {
    const std::uint8_t place = decisions.place[static_cast<std::size_t>(bet)];
    std::size_t i = count++;
    for (; i > 0 && places[i - 1] > place; --i) places[i] = places[i - 1];
    places[i] = place;
  });
  for (std::size_t i = 0; i < count; ++i) {
    const Decision& decision = decisions.list[static_cast<std::size_t>(places[i]) - 1];
    if (decision.mode == kTravels) {
      MoveComeBet(game, kComeBox, BetOnNumber(kComePoint, game.DiceTotal));
    } else {
      ResolveBet(game, decision.mode, decision.bet);
    }
  }
}

}  // namespace feltmaster
