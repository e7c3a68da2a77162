#include "config/comps.h"

#include <array>

#include "config/advantage.h"
#include "stats/bet_results.h"
#include "stats/roll_statistics.h"

namespace feltmaster {

namespace {

constexpr int kBetsAWord = 31;  // the sign bit of each word is not used

std::size_t WordOf(int bet) {
  return static_cast<std::size_t>((bet - 1) / kBetsAWord + 1);
}
std::uint32_t BitOf(int bet) {
  return 1u << ((bet - 1) % kBetsAWord);
}

// Takes the dice as true for as long as it lives.
class TrueDice {
 public:
  TrueDice(Game& game, bool wanted) : game_(game), before_(game.UseSkewedProbability) {
    if (wanted) game_.UseSkewedProbability = false;
  }
  ~TrueDice() { game_.UseSkewedProbability = before_; }
  TrueDice(const TrueDice&) = delete;
  TrueDice& operator=(const TrueDice&) = delete;

 private:
  Game& game_;
  bool before_;
};

MoneyAmount Share(MoneyAmount amount, MoneyAmount percent) {
  return Ratio(amount, percent, MoneyAmount(100));
}

MoneyAmount CompValueOf(const Comps& comps, const Game& game) {
  switch (game.BaseComps) {
    case 1:
      return Share(comps.Action, game.CompRate);
    case 2:
      return Share(comps.ActionTime, game.CompRate);
    default:
      return Share(-comps.Value, game.CompRate);
  }
}

}  // namespace

Comps FigureComps(Game& game) {
  const TrueDice true_dice(game, game.CompsUseTrueProbs);
  Comps comps;
  CompBets(game).ForEach([&](int bet) {
    const MoneyAmount total = ResultCell(game, ResultKind::kWagers, kActual, bet, kResultTotal);
    comps.Action += total;
    comps.Count += ResultCell(game, ResultKind::kWagers, kActual, bet, kResultCount);
    if (total.Raw() == 0) return;
    const double worth = FigureAdvantage(game, bet).ev_per_decision;
    comps.Value = MoneyAmount::FromDouble(comps.Value.ToDouble() + total.ToDouble() * worth);
  });
  if (game.RollsPerHour.Raw() > 0) comps.Hours = RollCounts(game, 0) / game.RollsPerHour.ToDouble();
  if (comps.Count.Raw() > 0) {
    comps.ActionTime =
        MoneyAmount::FromDouble(comps.Action.ToDouble() * comps.Hours / comps.Count.ToDouble());
  }
  comps.CompValue = CompValueOf(comps, game);
  return comps;
}

BetSet CompBets(const Game& game) {
  BetSet bets;
  for (int bet = 1; bet <= kBetCount; ++bet) {
    bets.Put(bet, (static_cast<std::uint32_t>(game.CompBetMask[WordOf(bet)]) & BitOf(bet)) != 0);
  }
  return bets;
}

void MarkCompBets(Game& game, const BetSet& selected, BetMark mark) {
  BetSet odds;
  odds.AddRange(kComeOdds, kComeOdds + kSlotCount - 1);
  odds.Add(kPassOdds);
  std::array<std::uint32_t, 4> words{};
  Marked(CompBets(game), selected & kLayoutBets, mark, kLayoutBets.Without(odds))
      .ForEach([&](int bet) { words[WordOf(bet)] |= BitOf(bet); });
  for (std::size_t word = 1; word < words.size(); ++word) {
    game.CompBetMask[word] = static_cast<std::int32_t>(words[word]);
  }
}

}  // namespace feltmaster
