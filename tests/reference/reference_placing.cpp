#include <algorithm>

#include "reference/reference_arithmetic.h"

namespace reference {
namespace {

constexpr Raw kBankLimit = 9'999'999 * kOne;

}  // namespace

void ReferenceTable::PlaceBet(int bet, Raw request) {
  bet_request = request;
  PlaceRequested(bet);
}

void ReferenceTable::PlaceChips(int bet, Raw request) {
  bet_request = request;
  PlaceChipsRequested(bet);
}

void ReferenceTable::PlaceRequested(int bet) {
  Raw& amount = bet_amount[static_cast<std::size_t>(bet)];
  const Raw unit = Unit();
  const bool chip_stack = bet > 99;

  bet_change = bet_request;
  if (bet <= kLastBet && bet_change % unit != 0) {
    bet_change = bet_change > 0 ? FloorTo(bet_change, unit) + unit : FloorTo(bet_change, unit);
  }
  if (bet < 100 && bet_change < -amount) bet_change = -amount;

  if (chip_stack) {
    constexpr Raw kStackLimit = 1'000'000'000'000'000'000 - 1;
    if (amount + bet_change > kStackLimit) bet_change = kStackLimit - amount;
    if (amount + bet_change < -kStackLimit) bet_change = -kStackLimit - amount;
    amount += bet_change;
    return;
  }

  // Increases.
  if (bet_change > 0) {
    const bool refused = (bet == kComeBox && point == 0) ||
                         (bet == kPassOdds && !(bet_amount[kPassLine] > 0 && point != 0)) ||
                         (IsComeOdds(bet) && bet_amount[static_cast<std::size_t>(bet - 10)] == 0) ||
                         (!allow_put_bets && !put_bet_allowed_now &&
                          ((bet == kPassLine && point != 0) || IsCome(bet)));
    if (refused) {
      bet_change = 0;
      return;
    }
  }
  // Decreases.
  if (bet_change < 0 && ((bet == kPassLine && point != 0) || IsCome(bet))) {
    const Raw floor = established[static_cast<std::size_t>(bet)];
    if (amount <= floor) {
      bet_change = 0;
      return;
    }
    bet_change = std::max(bet_change, floor - amount);
  }

  // The limits judge the request, not what the steps above made of it.
  ComputeMinBet(bet);
  const Raw wanted = amount + bet_request;
  if (wanted > 0 && wanted < min_bet_here) {
    if (bet_change > 0) {
      bet_change = min_bet_here - amount;
    } else if (bet_change < 0) {
      bet_change = -amount;
    }
  }
  ComputeMaxBet(bet);
  if (wanted > max_bet_here) bet_change = max_bet_here - amount;
  if (auto_adjust > 0) AutoAdjustBet(bet);

  // The bankroll.
  if (!allow_neg_bankroll) {
    const auto needed = [&] {
      Raw sum = total_on_table + bet_change;
      if (ChargesVigOnAll(bet)) sum += NewVig(bet, amount + bet_change) - VigPaid(bet);
      return sum;
    };
    bool cut = false;
    while (needed() > Bankroll() && bet_change > -amount) {
      bet_change = std::max(bet_change - unit, -amount);
      cut = true;
    }
    if (cut) {
      max_bet_here = amount + bet_change;
      if (auto_adjust > 0) AutoAdjustBet(bet);
      if (amount + bet_change > 0 && amount + bet_change < min_bet_here) bet_change = -amount;
    }
  }

  amount += bet_change;
  total_on_table += bet_change;
  if (amount == 0) ResetBetState(bet);

  if (IsLay(bet) || IsBuy(bet)) {
    const Raw vig = NewVig(bet, amount);
    if (ChargesVigOnAll(bet)) total_on_table += vig - VigPaid(bet);
    VigPaid(bet) = vig;
  }
}

void ReferenceTable::PlaceChipsRequested(int bet) {
  PlaceRequested(bet);
  if (bet_change == 0) return;
  int odds = 0;
  if (bet == kPassLine && point != 0) odds = kPassOdds;
  if (IsCome(bet)) odds = bet + 10;
  if (odds == 0) return;
  // What is told of the command is the change of the flat bet.
  const Raw flat_change = bet_change;
  ComputeMaxBet(odds);
  if (bet_amount[static_cast<std::size_t>(odds)] > max_bet_here || auto_take_full_odds) {
    TakeFullOdds(odds);
  }
  bet_change = flat_change;
}

void ReferenceTable::TakeFullOdds(int bet) {
  PlaceBet(bet, -bet_amount[static_cast<std::size_t>(bet)]);
  PlaceBet(bet, 9'999'999 * kOne);
}

void ReferenceTable::TakeAllFullOdds() {
  if (bet_amount[kPassLine] > 0 && point != 0) TakeFullOdds(kPassOdds);
  for (int odds = 21; odds <= 30; ++odds) {
    if (bet_amount[static_cast<std::size_t>(odds - 10)] != 0) TakeFullOdds(odds);
  }
}

void ReferenceTable::TakeDownBetQuietly(int bet) {
  PlaceChips(bet, -bet_amount[static_cast<std::size_t>(bet)]);
}

void ReferenceTable::MoveComeBet(int from, int to) {
  const Raw amount = bet_amount[static_cast<std::size_t>(from)];
  if (amount <= 0) return;
  PlaceBet(from, -amount);
  put_bet_allowed_now = true;
  PlaceChips(to, amount);
  put_bet_allowed_now = false;
  established[static_cast<std::size_t>(to)] = amount;
  if (IsCome(to) && auto_remove_place_bets) {
    TakeDownBetQuietly(to - kCome + kPlace);
    TakeDownBetQuietly(to - kCome + kBuy);
  }
}

void ReferenceTable::BuyPlaceBet(int bet) {
  const Raw amount = bet_amount[static_cast<std::size_t>(bet)];
  if (amount == 0 || !IsPlace(bet)) return;
  const auto place = static_cast<std::size_t>(bet);
  const auto buy = place + 10;
  if (bet_state[place] == 2 || bet_state[place] == -1) bet_state[buy] = bet_state[place];
  PlaceBet(bet, -amount);
  PlaceChips(bet + 10, amount - bet_amount[buy]);
}

void ReferenceTable::CallBet(int bet, bool on) {
  if (bet > kLastBet) return;
  const auto b = static_cast<std::size_t>(bet);
  if (bet_amount[b] == 0) return;
  if (bet == kPassLine || (bet >= 13 && bet <= 18)) return;
  const int opposite = on ? -1 : 2;
  if (bet_state[b] == opposite) {
    ResetBetState(bet);
  } else {
    bet_state[b] = on ? 2 : -1;
  }
}

void ReferenceTable::CallAllBets(bool on) {
  for (int bet = 1; bet <= kLastBet; ++bet) {
    if (bet != kPassLine && !IsCome(bet)) CallBet(bet, on);
  }
}

void ReferenceTable::RemoveAllBets() {
  for (int bet = 1; bet <= kLastBet; ++bet) {
    PlaceBet(bet, -bet_amount[static_cast<std::size_t>(bet)]);
  }
}

void ReferenceTable::AdjustAllBets() {
  for (int bet = 1; bet <= kLastBet; ++bet) {
    if (bet_amount[static_cast<std::size_t>(bet)] != 0) PlaceBet(bet, 0);
  }
}

void ReferenceTable::KeyInBet(int bet, Raw entered) {
  Raw& amount = bet_amount[static_cast<std::size_t>(bet)];
  if (entered == amount) return;
  if (bet == kPassLine || IsCome(bet)) {
    PlaceChips(bet, entered - amount);
    return;
  }
  if (bet <= kLastBet) {
    total_on_table -= amount;
    if (IsLay(bet) || IsBuy(bet)) {
      if (ChargesVigOnAll(bet)) total_on_table -= VigPaid(bet);
      VigPaid(bet) = 0;
    }
  }
  amount = 0;
  PlaceChips(bet, entered);
}

void ReferenceTable::Withdraw(Raw amount) {
  amount = std::min(amount, kBankLimit - Bankroll());
  amount_invested += amount;
  Bankroll() += amount;
}

void ReferenceTable::Deposit(Raw amount) {
  if (!allow_neg_bankroll) {
    amount = std::min(amount, Bankroll() - total_on_table);
  } else {
    amount = std::min(amount, Bankroll() + kBankLimit);
  }
  amount_invested -= amount;
  Bankroll() -= amount;
}

void ReferenceTable::RecomputeTotalOnTable() {
  total_on_table = 0;
  for (int bet = 1; bet <= kLastBet; ++bet) {
    total_on_table += bet_amount[static_cast<std::size_t>(bet)];
    if (ChargesVigOnAll(bet)) total_on_table += VigPaid(bet);
  }
}

void ReferenceTable::RecomputeVigs(bool lay) {
  const int first = lay ? kLay : kBuy;
  for (int bet = first; bet < first + 10; ++bet) {
    VigPaid(bet) = NewVig(bet, bet_amount[static_cast<std::size_t>(bet)]);
  }
}

void ReferenceTable::ChangeVig(Vig setting, int value) {
  const auto write = [&](int new_value) {
    int old = 0;
    switch (setting) {
      case Vig::kBuyRounding:
        old = buy_vig_rounding;
        buy_vig_rounding = new_value;
        if (buy_vig_all_bets) RecomputeVigs(false);
        break;
      case Vig::kLayRounding:
        old = lay_vig_rounding;
        lay_vig_rounding = new_value;
        if (lay_vig_all_bets) RecomputeVigs(true);
        break;
      case Vig::kBuyAllBets:
        old = buy_vig_all_bets;
        buy_vig_all_bets = new_value != 0;
        break;
      case Vig::kLayAllBets:
        old = lay_vig_all_bets;
        lay_vig_all_bets = new_value != 0;
        break;
    }
    RecomputeTotalOnTable();
    return old;
  };
  const int old = write(value);
  if (Bankroll() - total_on_table < 0 && !allow_neg_bankroll) write(old);
}

void ReferenceTable::ResetBetState(int bet) {
  if (bet > kLastBet) return;
  const auto b = static_cast<std::size_t>(bet);
  bet_state[b] = point == 0 ? work_on_come_out[b] : 1;
}

void ReferenceTable::UpdateBetStates() {
  for (std::size_t bet = 1; bet <= kLastBet; ++bet) {
    if (point == dice_total && bet_state[bet] == 0) bet_state[bet] = 1;
    if (point == 0 && bet_state[bet] != 2 && bet_state[bet] != -1) {
      bet_state[bet] = work_on_come_out[bet];
    }
  }
}

void ReferenceTable::SetWorkOnComeOut(int bet, bool works) {
  work_on_come_out[static_cast<std::size_t>(bet)] = works ? 1 : 0;
  UpdateBetStates();
}

}  // namespace reference
