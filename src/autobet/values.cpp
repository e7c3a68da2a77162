#include "autobet/values.h"

#include <algorithm>

#include "autobet/codes.h"
#include "autobet/compiled_script.h"
#include "stats/bankroll_history.h"
#include "stats/roll_statistics.h"

namespace feltmaster {
namespace {

// Amounts as they are, or as they were when the roll began.
template <bool kLast>
MoneyAmount AmountOf(const Game& game, int slot) {
  if constexpr (kLast) {
    return game.BetAmountAtRollStart[static_cast<std::size_t>(slot)];
  } else {
    return game.BetAmount[slot];
  }
}

template <bool kLast>
MoneyAmount SumOf(const Game& game, const SlotRange& range) {
  MoneyAmount sum;
  if constexpr (kLast) {
    range.ForEach([&](int slot) { sum += AmountOf<kLast>(game, slot); });
  } else {
    game.BetAmount.Standing().ForEach([&](int slot) {
      if (range.Has(slot)) sum += game.BetAmount[slot];
    });
  }
  return sum;
}

template <bool kLast>
MoneyAmount ReferredAmount(const Game& game, std::int32_t stack) {
  const int referred = ReferredStack(AmountOf<kLast>(game, kFirstStack + stack));
  return referred < 0 ? MoneyAmount() : AmountOf<kLast>(game, kFirstStack + referred);
}

MoneyAmount DecidedWagers(const Game& game, ResultRow row) {
  MoneyAmount sum;
  for (std::size_t bet = 1; bet <= kBetCount; ++bet)
    sum += game.BetWagers[kActual][bet][static_cast<std::size_t>(row)];
  return sum;
}

int StandingWagers(const Game& game) {
  int count = 0;
  (game.BetAmount.Standing() & kLayoutBets).ForEach([&](int bet) {
    count += game.BetAmount[bet] > MoneyAmount() ? 1 : 0;
  });
  return count;
}

MoneyAmount Counter(const Game& game, GameCounter counter) {
  return MoneyAmount::FromWhole(game.GameCounters[static_cast<std::size_t>(counter)]);
}

template <bool kLast>
MoneyAmount Value(Game& game, std::int32_t code, std::int32_t stack) {
  if (IsLayoutBet(code)) return AmountOf<kLast>(game, code);
  switch (code) {
    case kBankrollSubject:
      return AmountOf<kLast>(game, kBankroll);
    case kGameRolls:
      return MoneyAmount::FromWhole(RollsMade(game));
    case kShooterRolls:
      return Counter(game, kLast ? kLastHandRolls : kRollsThisHand);
    case kGamePasses:
      return Counter(game, kTotalPasses);
    case kShooterPasses:
      return Counter(game, kLast ? kLastHandPasses : kPassesThisHand);
    case kGameMisses:
      return Counter(game, kTotalMisses);
    case kShooterMisses:
      return Counter(game, kLast ? kLastHandMisses : kMissesThisHand);
    case kAverageBankroll:
      return AverageBankroll(game, !kLast, stack);
    case kHighestBankroll:
      return kLast ? game.BankrollHigh : std::max(game.BetAmount[kBankroll], game.BankrollHigh);
    case kLowestBankroll:
      return kLast ? game.BankrollLow : std::min(game.BetAmount[kBankroll], game.BankrollLow);
    case kAvailableBankroll:
      return game.BetAmount[kBankroll] - game.TotalOnTable;
    case kStackSubject:
    case kStackReference:
      if (stack < 0 || stack >= kStackCount) return {};
      return code == kStackSubject ? AmountOf<kLast>(game, kFirstStack + stack)
                                   : ReferredAmount<kLast>(game, stack);
    case kDecidedWagersCount:
      return DecidedWagers(game, kResultCount);
    case kDecidedWagersAmount:
      return DecidedWagers(game, kResultTotal);
    case kCurrentWagersCount:
      return MoneyAmount(StandingWagers(game));
    case kCurrentWagersAmount:
      return game.TotalOnTable;
    default:
      break;
  }
  if (const int family = FamilyOnPoint(code); family != 0) {
    const int slot = SlotOnPoint(family, kLast ? game.PrevPoint : game.Point);
    return slot < 0 ? MoneyAmount() : AmountOf<kLast>(game, slot);
  }
  return SumOf<kLast>(game, RangeOfList(code));
}

MoneyAmount Percent(MoneyAmount percent, MoneyAmount value) {
  return MoneyAmount::FromDouble(Product(percent, value).ToDouble() / 100);
}

}  // namespace

MoneyAmount ValueOf(Game& game, std::int32_t code, std::int32_t stack) {
  return Value<false>(game, code, stack);
}

MoneyAmount LastValueOf(Game& game, std::int32_t code, std::int32_t stack) {
  return Value<true>(game, code, stack);
}

MoneyAmount PercentOf(Game& game, std::int32_t code, std::int32_t stack, MoneyAmount percent) {
  return Percent(percent, ValueOf(game, code, stack));
}

MoneyAmount PercentOfLast(Game& game, std::int32_t code, std::int32_t stack, MoneyAmount percent) {
  return Percent(percent, LastValueOf(game, code, stack));
}

MoneyAmount AverageBankroll(const Game& game, bool include_current, std::int32_t rolls) {
  return MovingAverage(game, include_current, game.BankrollHistoryCount, std::max(rolls, 0));
}

}  // namespace feltmaster
