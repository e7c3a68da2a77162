#include "engine/payoff.h"

#include "config/payoffs.h"
#include "engine/roll_table.h"
#include "stats/roll_events.h"

namespace feltmaster {
namespace {

constexpr PayRow kLossRow = {MoneyAmount(-1), true, MoneyAmount(1)};

const PayRow& Row(const HouseRules& rules, int bet) {
  return rules.PayTable[static_cast<std::size_t>(bet)];
}

MoneyAmount PaidBy(const PayRow& row, MoneyAmount amount) {
  const MoneyAmount product = Product(amount, row.PayNumerator);
  return row.PayDenominator == MoneyAmount(1) ? product : Quotient(product, row.PayDenominator);
}

// A bet split in equal parts: one part is paid, the others are lost.
MoneyAmount PaidOnePart(const PayRow& row, MoneyAmount amount, int parts) {
  const MoneyAmount part = Quotient(amount, MoneyAmount(parts));
  const MoneyAmount lost = Quotient(amount.Times(parts - 1), MoneyAmount(parts));
  return PaidBy(row, part) - lost;
}

// The one-roll bet whose row pays a part of Horn or World.
int PartOfTotal(int total) {
  switch (total) {
    case 2:
      return kTwo;
    case 3:
      return kThree;
    case 7:
      return kSeven;
    case 11:
      return kEleven;
    default:
      return kTwelve;
  }
}

// The payoff before vig.
Payoff PlainPayoff(const HouseRules& rules, Judgement roll, int bet, int mode, MoneyAmount amount) {
  if (bet == kField) {
    const PayRow& row = rules.FieldPayTable[static_cast<std::size_t>(
        FieldRowOfDice(FirstDie(roll.pair), SecondDie(roll.pair)))];
    return {row, PaidBy(row, amount)};
  }
  if (mode <= 0) {
    PayRow row = kLossRow;
    row.PayIsTo = Row(rules, bet).PayIsTo;
    return {row, -amount};
  }
  const int total = TotalOf(roll.pair);
  const auto by_row = [&](int row_bet) {
    const PayRow& row = Row(rules, row_bet);
    return Payoff{row, PaidBy(row, amount)};
  };
  const auto by_part = [&](int row_bet, int parts) {
    const PayRow& row = Row(rules, row_bet);
    return Payoff{row, PaidOnePart(row, amount, parts)};
  };
  switch (bet) {
    case kPassLine:
      return by_row(roll.prev_point == 0 ? kComeBox : BetOnNumber(kComePoint, roll.prev_point));
    case kPassOdds:
      return by_row(BetOnNumber(kComeOdds, roll.prev_point));
    case kCAndE:
      return by_part(total == 11 ? kEleven : kCraps, 2);
    case kHorn:
      return by_part(PartOfTotal(total), 4);
    case kWorld:
      return by_part(PartOfTotal(total), 5);
    default:
      return by_row(bet);
  }
}

bool ChargesVig(const HouseRules& rules, int bet, MoneyAmount result) {
  if (!HasVig(bet)) return false;
  return result.Raw() > 0 || (IsLay(bet) ? rules.LayVigAllBets : rules.BuyVigAllBets);
}

// amount + sign * a * b / c with one rounding.
MoneyAmount PlusRatio(MoneyAmount amount, int sign, MoneyAmount a, MoneyAmount b, MoneyAmount c) {
  if (c.Raw() == 0) throw MoneyDivisionByZero();
  const __int128 divisor = c.Raw();
  const __int128 wide = static_cast<__int128>(amount.Raw()) * divisor +
                        static_cast<__int128>(sign) * a.Raw() * b.Raw();
  __int128 quotient = wide / divisor;
  const __int128 rest = wide % divisor;
  const auto magnitude = [](__int128 value) { return value < 0 ? -value : value; };
  const __int128 twice = 2 * magnitude(rest);
  if (twice > magnitude(divisor) || (twice == magnitude(divisor) && (quotient & 1) != 0)) {
    quotient += (wide < 0) == (divisor < 0) ? 1 : -1;
  }
  if (quotient != static_cast<std::int64_t>(quotient)) throw MoneyOverflow();
  return MoneyAmount::FromRaw(static_cast<std::int64_t>(quotient));
}

// amount plus or less the vig of the phantom dollar: on the winnings for Lay, on the bet for Buy.
MoneyAmount PlusPhantomVig(const HouseRules& rules, int bet, MoneyAmount amount, int sign) {
  if (IsBuy(bet)) return sign > 0 ? amount + rules.BuyVigPct : amount - rules.BuyVigPct;
  const PayRow& row = Row(rules, bet);
  return PlusRatio(amount, sign, row.PayNumerator, rules.LayVigPct, row.PayDenominator);
}

}  // namespace

Payoff ActualPayoff(const HouseRules& rules, Judgement roll, int bet, int mode, MoneyAmount amount,
                    MoneyAmount vig) {
  Payoff payoff = PlainPayoff(rules, roll, bet, mode, amount);
  if (ChargesVig(rules, bet, payoff.exact)) payoff.exact -= vig;
  return payoff;
}

Payoff PhantomPayoff(const HouseRules& rules, Judgement roll, int bet, int mode) {
  Payoff payoff = PlainPayoff(rules, roll, bet, mode, MoneyAmount(1));
  if (ChargesVig(rules, bet, payoff.exact)) {
    payoff.exact = PlusPhantomVig(rules, bet, payoff.exact, -1);
  }
  return payoff;
}

MoneyAmount PhantomWagerWithVig(const HouseRules& rules, int bet, MoneyAmount result) {
  const MoneyAmount dollar(1);
  return ChargesVig(rules, bet, result) ? PlusPhantomVig(rules, bet, dollar, 1) : dollar;
}

MoneyAmount NetPayoff(MoneyAmount exact, MoneyAmount unit) {
  return FloorToUnit(exact, unit);
}

}  // namespace feltmaster
