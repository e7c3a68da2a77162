#include <algorithm>
#include <initializer_list>
#include <numeric>

#include "reference/reference_arithmetic.h"

namespace reference {
namespace {

struct Ratio {
  Raw numerator;
  Raw denominator;
};

bool Below(Ratio a, Ratio b) {
  return Wide{a.numerator} * b.denominator < Wide{b.numerator} * a.denominator;
}

// How many chips make a clean payoff of n chips at a denominator d (d as an amount).
Raw ChipsToPay(Wide n, Raw d) {
  const Wide n_raw = n * kOne;
  if (n_raw * 2 <= d) return 0;
  if (n_raw % d == 0) return static_cast<Raw>(n_raw);
  return static_cast<Raw>((n_raw / d + 1) * d);
}

}  // namespace

void ReferenceTable::ComputeMinBet(int bet) {
  if (bet >= kHard4) {
    min_bet_here = Unit();
    return;
  }
  min_bet_here = FloorTo(min_placard_bet, Unit());
  if (min_bet_here < min_placard_bet) min_bet_here += Unit();
}

void ReferenceTable::ComputeMaxBet(int bet) {
  const auto ratio_of = [this](int row) {
    const auto& pay = pay_table[static_cast<std::size_t>(row)];
    return Ratio{pay.numerator, pay.denominator};
  };
  const auto largest = [&](std::initializer_list<int> rows) {
    Ratio best = ratio_of(*rows.begin());
    for (const int row : rows) {
      if (Below(best, ratio_of(row))) best = ratio_of(row);
    }
    return best;
  };
  const auto limited_by_win = [this](int factor, Ratio ratio) {
    return Nearest(Wide{max_placard_bet} * factor * ratio.denominator, ratio.numerator);
  };

  if (bet < kHard4) {
    max_bet_here = max_placard_bet;
  } else if (bet == kCAndE) {
    max_bet_here = limited_by_win(6, largest({66, 64}));
  } else if (bet == kHorn) {
    max_bet_here = limited_by_win(12, largest({61, 62, 64, 65}));
  } else if (bet == kWorld) {
    max_bet_here = limited_by_win(15, largest({61, 62, 63, 64, 65}));
  } else {
    max_bet_here = limited_by_win(3, ratio_of(bet));
  }
  max_bet_here = FloorTo(max_bet_here, Unit());
  if (bet == kPassOdds) {
    ComputeMaxOdds(52, 51, pay_table[52].numerator, pay_table[52].denominator);
  } else if (IsComeOdds(bet)) {
    const auto& row = pay_table[static_cast<std::size_t>(bet)];
    ComputeMaxOdds(bet, bet - 10, row.numerator, row.denominator);
  }
  max_bet_here = FloorTo(max_bet_here, Unit());
  const Raw table_maximum = FloorTo(max_placard_bet, Unit());
  if (max_bet_here > table_maximum) max_bet_here = table_maximum;
}

void ReferenceTable::ComputeMaxOdds(int bet, int flat_bet, Raw numerator, Raw denominator) {
  // Group of a total: 2 and 12, 3 and 11, 4 and 10, 5 and 9, 6 and 8.
  static constexpr std::array<int, 13> kGroup = {-1, -1, 0, 1, 2, 3, 4, -1, 4, 3, 2, 1, 0};
  static constexpr std::array<int, 10> kTotals = {2, 3, 4, 5, 6, 8, 9, 10, 11, 12};
  const int total = bet == kPassOdds ? point : kTotals[static_cast<std::size_t>(bet - kComeOdds)];
  if (total != 0) {
    const int group = kGroup[static_cast<std::size_t>(total)];
    odds_multiple = odds_allowed[static_cast<std::size_t>(group)];
  }

  const Raw flat = bet_amount[static_cast<std::size_t>(flat_bet)];
  const Raw times = odds_multiple;
  const Raw plain = Times(times, flat);
  const Raw pay_unit = Times(Unit(), denominator);
  const Raw one_more = Times(times + kOne, flat);
  const Raw limit = FloorTo(max_odds_bet, Unit());

  int method = odds_calc_method;
  if (method == 0) {
    if (times % kOne != 0) {
      method = 1;
    } else if (times == 1 * kOne) {
      method = 4;
    } else if (times == 2 * kOne) {
      method = 3;
    } else if (times == 3 * kOne) {
      method = 5;
    } else if (times > 3 * kOne) {
      method = 3;
    } else {
      method = 1;
    }
  }

  Raw result = plain;
  if (method == 2) {
    Raw a = FloorTo(plain, pay_unit);
    if (a < plain && a + pay_unit < one_more) a += pay_unit;
    if (a == 0) a = plain;
    result = a;
  } else if (method == 3) {
    const auto pushed = [&](int slot) {
      const Raw chip = bet_amount[static_cast<std::size_t>(slot)];
      Raw a = plain;
      if (flat / chip > 1) {
        // Whole dollars are added until the payoff is whole chips. When no number of them does
        // that the odds stay as they were; past both bounds the limit cuts them whatever they are.
        const Raw whole = denominator * chip;
        if (Wide{a} * numerator % std::gcd(kOne * numerator, whole) != 0) return plain;
        while (Wide{a} * numerator % whole != 0 && a <= std::max(one_more, limit)) a += kOne;
      }
      return a;
    };
    const auto fits = [&](Raw a) { return a > plain && a < one_more; };
    if (fits(pushed(99)) && flat % (100 * kOne) == 0) {
      result = pushed(99);
    } else if (fits(pushed(98)) && flat % (25 * kOne) == 0) {
      result = pushed(98);
    } else if (fits(pushed(97)) && flat % (5 * kOne) == 0) {
      result = pushed(97);
    } else if (fits(pushed(96))) {
      result = pushed(96);
    } else {
      result = pushed(95);
    }
  } else if (method == 4 || method == 5) {
    for (int slot = 95; slot <= 99; ++slot) {
      const Raw chip = bet_amount[static_cast<std::size_t>(slot)];
      const Raw staked = method == 4 ? plain : flat;
      Raw v = Times(ChipsToPay(FloorDivide(staked, chip), denominator), chip);
      if (method == 5) v = Times(v, times);
      result = std::max(result, v);
    }
  }

  if (result > limit) result = limit;
  max_bet_here = FloorTo(result, Unit());
}

void ReferenceTable::AutoAdjustBet(int bet) {
  const Raw amount = bet_amount[static_cast<std::size_t>(bet)];
  if (bet_change <= -amount) return;
  int mode = auto_adjust;

  for (;;) {
    // The denominator that must be met.
    int row = bet;
    if (bet == kPassLine) row = point == 0 ? 53 : kCome + Slot(point);
    if (bet == kPassOdds) row = point == 0 ? 52 : kComeOdds + Slot(point);
    const Raw den = pay_table[static_cast<std::size_t>(row)].denominator;
    if ((bet == kPassOdds || IsComeOdds(bet)) && amount + bet_change == max_bet_here) mode = 1;

    // The payoff unit.
    Raw pay_unit = Unit();
    const Raw fraction = den % kOne;
    if (fraction == 0) {
      pay_unit = Unit() * (den / kOne);
    } else if (Unit() % fraction == 0) {
      pay_unit = den * (Unit() / fraction);
    }

    // In how many payoff units the bet stands, to nine decimals, halves away from zero.
    constexpr Wide kNine = 1'000'000'000;
    const auto quotient = [&](Raw unit) {
      return ((amount + bet_change) * kNine * 2 + unit) / (Wide{unit} * 2);
    };
    Wide x = quotient(pay_unit);
    if (x % kNine == 0) return;

    // The clean amounts on either side.
    Raw up = static_cast<Raw>((x / kNine + 1) * pay_unit - amount);
    Raw down = static_cast<Raw>(x / kNine * pay_unit - amount);

    // In chips of one colour.
    if (den > kOne && mode == 2) {
      const Raw a = bet_change == 0 ? amount : std::abs(bet_change);
      for (int slot = 99; slot >= 95; --slot) {
        const Raw chip = bet_amount[static_cast<std::size_t>(slot)];
        if (a % chip == 0 && a / chip > 1 && Times(chip, den) <= a) {
          pay_unit = Times(chip, den);
          break;
        }
      }
      x = quotient(pay_unit);
      if (x % kNine != 0) up = static_cast<Raw>((x / kNine + 1) * pay_unit - amount);
      if ((amount + down) % pay_unit != 0) down = FloorTo(amount + down, pay_unit) - amount;
    }

    // Which of the two.
    int bias = 0;
    if (IsLay(bet)) bias = lay_bias;
    if (IsPlace(bet)) bias = place_bias;
    if (bet == kPassOdds || IsComeOdds(bet)) bias = do_bias;
    bool choose_up = false;
    if (bias == 1) {
      choose_up = bet_change >= 0;
    } else if (bias == 2) {
      choose_up = bet_change != 0 && (down <= 0 || bet_change <= 0) && (up != 0 || bet_change >= 0);
    } else if (bet_change != 0 && up != 0 && (amount + up) % bet_change == 0) {
      choose_up = true;
    } else if (bet_change != 0 && down != 0 && (amount + down) % bet_change == 0) {
      choose_up = false;
    } else if (down <= 0 && bet_change > 0) {
      choose_up = true;
    } else if (up >= 0 && bet_change < 0) {
      choose_up = false;
    } else {
      choose_up = up - bet_change <= bet_change - down;
    }

    // Neither may leave the limits.
    const bool up_too_high = amount + up > max_bet_here;
    const bool down_too_low = amount + down < min_bet_here;
    if (up_too_high && down_too_low) {
      if (bet_change < 0) {
        bet_change = -amount;
        return;
      }
      if (mode == 2) {
        mode = 1;
        continue;
      }
      bet_change = max_bet_here - amount;
      return;
    }

    Raw chosen = choose_up ? up : down;
    if (chosen == down && down_too_low) {
      chosen = !up_too_high && bet_change > 0 ? up : -amount;
    }
    if (amount + chosen > max_bet_here) chosen = down;
    if (amount + chosen < min_bet_here && chosen != -amount) chosen = up;
    bet_change = chosen;
    return;
  }
}

Raw& ReferenceTable::VigPaid(int bet) {
  return IsLay(bet) ? lay_vig_paid[static_cast<std::size_t>(bet - kLay)]
                    : buy_vig_paid[static_cast<std::size_t>(bet - kBuy)];
}

bool ReferenceTable::ChargesVigOnAll(int bet) const {
  return (IsLay(bet) && lay_vig_all_bets) || (IsBuy(bet) && buy_vig_all_bets);
}

Raw ReferenceTable::NewVig(int bet, Raw amount) const {
  if (!IsLay(bet) && !IsBuy(bet)) return 0;
  const Raw rate = IsLay(bet) ? lay_vig_pct : buy_vig_pct;
  const int rounding = IsLay(bet) ? lay_vig_rounding : buy_vig_rounding;
  Raw vig = 0;
  if (IsLay(bet)) {
    const auto& row = pay_table[static_cast<std::size_t>(bet)];
    vig = TimesOver(Times(rate, amount), row.numerator, row.denominator);
    if (vig < 0) vig = 0;
  } else {
    vig = Times(amount, rate);
  }
  const Raw floor = FloorTo(vig, Unit());
  const Raw rest = vig - floor;
  if (rounding == 1) {
    vig = floor;
  } else if (rounding == 2) {
    vig = rest == 0 ? vig : floor + Unit();
  } else {
    vig = rest * 2 <= Unit() ? floor : floor + Unit();
  }
  if (amount > 0 && rate > 0 && vig < Unit()) vig = Unit();
  return vig;
}

}  // namespace reference
