#include <cstdlib>

#include "reference/reference_arithmetic.h"

namespace reference {
namespace {

// Row of the Field for a pair of dice, the smaller one first.
int FieldRow(int die1, int die2) {
  static constexpr int kPairs[21][2] = {{1, 1}, {1, 2}, {1, 3}, {2, 2}, {1, 4}, {2, 3}, {1, 5},
                                        {2, 4}, {3, 3}, {1, 6}, {2, 5}, {3, 4}, {2, 6}, {3, 5},
                                        {4, 4}, {3, 6}, {4, 5}, {4, 6}, {5, 5}, {5, 6}, {6, 6}};
  const int low = die1 < die2 ? die1 : die2;
  const int high = die1 < die2 ? die2 : die1;
  for (int row = 1; row <= 21; ++row) {
    if (kPairs[row - 1][0] == low && kPairs[row - 1][1] == high) return row;
  }
  std::abort();
}

int Hop(int low, int high) {
  static constexpr int kPairs[17][2] = {{1, 3}, {1, 4}, {1, 5}, {1, 6}, {2, 2}, {2, 3},
                                        {2, 4}, {2, 5}, {2, 6}, {3, 3}, {3, 4}, {3, 5},
                                        {3, 6}, {4, 4}, {4, 5}, {4, 6}, {5, 5}};
  for (int i = 0; i < 17; ++i) {
    if (kPairs[i][0] == low && kPairs[i][1] == high) return kFirstHop + i;
  }
  std::abort();
}

}  // namespace

ReferenceTable::ReferenceTable() {
  const Raw chips[5] = {1, 5, 25, 100, 500};
  for (std::size_t i = 0; i < 5; ++i) bet_amount[95 + i] = chips[i] * kOne;
  for (int bet = 1; bet <= kLastBet; ++bet) {
    const bool rests = (bet >= 21 && bet <= 50) || bet == kPassOdds || bet == kComeBox;
    work_on_come_out[static_cast<std::size_t>(bet)] = rests ? 0 : 1;
  }
  UpdateBetStates();
  DefaultPayoffs();
  RestartGraph();
}

bool ReferenceTable::Roll(int first, int second) {
  if (std::abs(Bankroll()) > 9'999'999 * kOne) return false;
  decisions.clear();

  at_roll_start = bet_amount;
  BeginRollResults();
  script_roll_counts_seen = script_roll_counts;
  script_rolls_since_seen = script_rolls_since;
  for (std::size_t bet = 11; bet <= 51; ++bet) established[bet] = bet_amount[bet];
  prev_prev_point = prev_point;
  prev_point = point;

  die1 = first;
  die2 = second;
  dice_total = die1 + die2;
  if (dice_total != 7 && point == 0) {
    point = dice_total;
    ++game_counters[7];
  } else if (dice_total == 7 || dice_total == point) {
    point = 0;
  }
  RecordRollStatistics();

  if (dice_total == prev_point) {
    HandPassed();
    ResolveBet(+1, kPassLine);
    ResolveBet(+2, kPassOdds);
  }
  ResolveDice();

  if (point != prev_point) {
    UpdateBetStates();
    if (point != 0) {
      CopyPointOddsRow();
      if (bet_amount[kPassLine] > 0) {
        if (auto_take_full_odds) TakeFullOdds(kPassOdds);
        if (auto_remove_place_bets) TakeDownBetQuietly(kPlace + Slot(point));
      }
    }
  }
  TrackBankroll();
  rolls_since_last[0] = roll_counts[0];
  at_roll_end = bet_amount;
  if (auto_rolls_remaining > 0) {
    --auto_rolls_remaining;
    if (auto_rolls_remaining == 0) auto_rolls_remaining = num_auto_rolls;
  }
  return true;
}

void ReferenceTable::ResolveDice() {
  hop_won.fill(false);
  if (dice_total == 7) {
    ResolveSeven();
  } else {
    ResolveNumber(dice_total);
  }

  ResolveBet(+1, kField);

  const int total = dice_total;
  if (total != 2) ResolveBet(-1, kTwo);
  if (total != 3) ResolveBet(-1, kThree);
  if (total != 7) ResolveBet(-1, kSeven);
  if (total != 11) ResolveBet(-1, kEleven);
  if (total != 12) ResolveBet(-1, kTwelve);
  if (total >= 4 && total <= 11) ResolveBet(-1, kCraps);
  if (total >= 4 && total <= 10) ResolveBet(-1, kCAndE);
  if (total >= 4 && total <= 10) ResolveBet(-1, kHorn);
  if (total >= 4 && total <= 10 && total != 7) ResolveBet(-1, kWorld);
  ResolveBet(total < 8 ? -1 : +1, kOver7);
  ResolveBet(total > 6 ? -1 : +1, kUnder7);
  for (int hop = kFirstHop; hop <= kLastBet; ++hop) {
    if (!hop_won[static_cast<std::size_t>(hop)]) ResolveBet(-1, hop);
  }
}

void ReferenceTable::ResolveNumber(int total) {
  const int slot = Slot(total);
  const bool pair = die1 == die2;
  const auto any = [this](int face) { return die1 == face || die2 == face; };
  const auto hop = [this](int low, int high) {
    hop_won[static_cast<std::size_t>(Hop(low, high))] = true;
    ResolveBet(+1, Hop(low, high));
  };

  ResolveBet(-1, kLay + slot);
  ResolveBet(+1, kCome + slot);
  ResolveBet(+2, kComeOdds + slot);
  ResolveBet(+1, kPlace + slot);
  ResolveBet(+1, kBuy + slot);
  switch (total) {
    case 2:
      for (const int bet : {kTwo, kCraps, kCAndE, kHorn, kWorld}) ResolveBet(+1, bet);
      break;
    case 3:
      for (const int bet : {kThree, kCraps, kCAndE, kHorn, kWorld}) ResolveBet(+1, bet);
      break;
    case 4:
      ResolveBet(pair ? +1 : -1, kHard4);
      pair ? hop(2, 2) : hop(1, 3);
      break;
    case 5:
      any(1) ? hop(1, 4) : hop(2, 3);
      break;
    case 6:
      ResolveBet(+1, kBig6);
      ResolveBet(pair ? +1 : -1, kHard6);
      if (pair) hop(3, 3);
      if (any(1)) hop(1, 5);
      if (any(2)) hop(2, 4);
      break;
    case 8:
      ResolveBet(+1, kBig8);
      ResolveBet(pair ? +1 : -1, kHard8);
      if (pair) hop(4, 4);
      if (any(2)) hop(2, 6);
      if (any(3)) hop(3, 5);
      break;
    case 9:
      any(3) ? hop(3, 6) : hop(4, 5);
      break;
    case 10:
      ResolveBet(pair ? +1 : -1, kHard10);
      pair ? hop(5, 5) : hop(4, 6);
      break;
    case 11:
      for (const int bet : {kEleven, kCAndE, kHorn, kWorld}) ResolveBet(+1, bet);
      break;
    case 12:
      for (const int bet : {kTwelve, kCraps, kCAndE, kHorn, kWorld}) ResolveBet(+1, bet);
      break;
    default:
      std::abort();
  }
  MoveComeBet(kComeBox, kCome + slot);
}

void ReferenceTable::ResolveSeven() {
  if (prev_point == 0) {
    HandPassed();
  } else {
    HandMissed();
  }
  ResolveBet(-1, kBig6);
  ResolveBet(-1, kBig8);
  for (int hard = kHard4; hard <= kHard10; ++hard) ResolveBet(-1, hard);
  for (int bet = 31; bet <= 50; ++bet) ResolveBet(-1, bet);
  for (int come = kCome; come < kCome + 10; ++come) {
    ResolveBet(-1, come);
    ResolveBet(-2, come + 10);
  }
  if (prev_point == 0) {
    ResolveBet(+1, kPassLine);
  } else {
    ResolveBet(-1, kPassLine);
    ResolveBet(-2, kPassOdds);
  }
  for (int lay = kLay; lay < kLay + 10; ++lay) ResolveBet(+1, lay);
  ResolveBet(+1, kComeBox);
  ResolveBet(+1, kSeven);
  ResolveBet(+1, kWorld);
  const int low = die1 < die2 ? die1 : die2;
  const int hop = Hop(low, 7 - low);
  hop_won[static_cast<std::size_t>(hop)] = true;
  ResolveBet(+1, hop);
}

void ReferenceTable::ResolveBet(int mode, int bet) {
  const auto b = static_cast<std::size_t>(bet);
  current_bet = bet;
  if (bet_state[b] < 1) {
    if (std::abs(mode) == 2 && bet_amount[b] != 0) ReturnOdds(bet);
    return;
  }
  ComputePayoff(false, bet, mode, kOne);
  RecordBetResult(0, bet, kOne, payoff_exact);
  if (bet_amount[b] == 0) return;
  ComputePayoff(true, bet, mode, bet_amount[b]);
  RecordBetResult(1, bet, bet_amount[b], payoff_net);
  decisions.push_back({bet, bet_amount[b], payoff_net});
  if (payoff_exact == 0 && payoff_net == 0) return;
  Bankroll() += payoff_net;
  if (bet >= 11 && bet <= 51) established[b] = 0;

  must_come_down = false;
  if (bet == kComeBox && dice_total == 7) must_come_down = true;
  if (bet == kPassOdds) must_come_down = true;
  if (IsCome(bet) && !allow_put_bets) must_come_down = true;
  if (IsComeOdds(bet) && bet_amount[b - 10] == 0) must_come_down = true;

  int& streak = bet_streak[b][1];
  if (payoff_net > 0) streak = streak < 0 ? 1 : streak + 1;
  if (payoff_net < 0) streak = streak > 0 ? -1 : streak - 1;

  if (payoff_net < 0) {
    HandleLostBet();
    return;
  }
  ComputePressUnit(bet);
  HandleWonBet();
}

void ReferenceTable::ReturnOdds(int bet) {
  const auto b = static_cast<std::size_t>(bet);
  payoff_net = 0;
  must_come_down = bet == kPassOdds || bet_amount[b - 10] == 0 || !allow_put_bets;
  if (!must_come_down) ComputePressUnit(bet);
  HandleWonBet();
  bet_state[b] = 1;
}

void ReferenceTable::ComputePayoff(bool actual, int bet, int mode, Raw amount) {
  const auto row_of = [this](int row) { return pay_table[static_cast<std::size_t>(row)]; };
  PayRow row = row_of(bet);
  if (mode < 0) {
    row.numerator = -kOne;
    row.denominator = kOne;
  }
  const auto straight = [&] {
    return Nearest(Wide{Times(amount, row.numerator)} * kOne, row.denominator);
  };
  payoff_exact = straight();

  if (IsLay(bet) && (payoff_exact > 0 || lay_vig_all_bets)) {
    if (actual) {
      payoff_exact -= lay_vig_paid[static_cast<std::size_t>(bet - kLay)];
    } else {
      // The dollar's vig is a fraction of what it wins; only the difference is rounded.
      const PayRow own = row_of(bet);
      const Wide vig = Wide{own.numerator} * lay_vig_pct;
      payoff_exact = Nearest(Wide{payoff_exact} * own.denominator - vig, own.denominator);
    }
  }
  if (IsBuy(bet) && (payoff_exact > 0 || buy_vig_all_bets)) {
    payoff_exact -= actual ? buy_vig_paid[static_cast<std::size_t>(bet - kBuy)] : buy_vig_pct;
  }

  if (mode > 0) {
    // One part of the bet wins by its own row, the other parts are lost.
    const auto split = [&](int parts, int winning_row) {
      row = row_of(winning_row);
      const Wide win = Wide{row.numerator} * amount;
      const Wide loss = Wide{row.denominator} * amount * (parts - 1);
      payoff_exact = Nearest(win - loss, Wide{row.denominator} * parts);
    };
    int one_roll_row = 0;
    switch (dice_total) {
      case 2:
        one_roll_row = kTwo;
        break;
      case 3:
        one_roll_row = kThree;
        break;
      case 7:
        one_roll_row = kSeven;
        break;
      case 11:
        one_roll_row = kEleven;
        break;
      default:
        one_roll_row = kTwelve;
        break;
    }
    switch (bet) {
      case kPassLine:
        row = row_of(prev_point == 0 ? kComeBox : kCome + Slot(prev_point));
        payoff_exact = straight();
        break;
      case kPassOdds:
        row = row_of(kComeOdds + Slot(prev_point));
        payoff_exact = straight();
        break;
      case kCAndE:
        split(2, dice_total == 11 ? kEleven : kCraps);
        break;
      case kHorn:
        split(4, one_roll_row);
        break;
      case kWorld:
        split(5, one_roll_row);
        break;
      default:
        break;
    }
  }
  if (bet == kField) {
    row = field_pay_table[static_cast<std::size_t>(FieldRow(die1, die2))];
    payoff_exact = straight();
  }
  payoff_net = FloorTo(payoff_exact, Unit());
}

void ReferenceTable::HandleWonBet() {
  if (IsLay(current_bet) || IsBuy(current_bet)) {
    Raw& vig = VigPaid(current_bet);
    if (ChargesVigOnAll(current_bet)) total_on_table -= vig;
    payoff_net += vig;
    vig = 0;
  }
  int rule = handle_winning_bets == 0 ? 1 : handle_winning_bets;
  if (must_come_down) rule = 1;
  switch (rule) {
    case 1:
      return TakeDownBet();
    case 2:
      return KeepSameBet();
    case 3:
      return PressOneUnit();
    case 4:
      return PressDouble();
    case 5:
      return ParlayBet();
    case 6:
      return ModifySameBet(9);
    default:
      return SetBetAmount(11);
  }
}

void ReferenceTable::HandleLostBet() {
  if (IsLay(current_bet) || IsBuy(current_bet)) {
    Raw& vig = VigPaid(current_bet);
    if (ChargesVigOnAll(current_bet)) total_on_table -= vig;
    vig = 0;
  }
  ComputePressUnit(current_bet);
  int rule = handle_losing_bets == 0 ? 1 : handle_losing_bets;
  if (must_come_down) rule = 1;
  switch (rule) {
    case 1:
      return TakeDownBet();
    case 2:
      return BetRemainder();
    case 3:
      return KeepSameBet();
    case 4:
      return PressOneUnit();
    case 5:
      return PressDouble();
    case 6:
      return ModifySameBet(10);
    default:
      return SetBetAmount(12);
  }
}

void ReferenceTable::ComputePressUnit(int bet) {
  const Raw amount = bet_amount[static_cast<std::size_t>(bet)];
  for (std::size_t slot = 99; slot >= 95; --slot) {
    press_unit = Times(pay_table[static_cast<std::size_t>(bet)].denominator, bet_amount[slot]);
    if (press_unit < amount && amount % press_unit == 0) return;
  }
}

void ReferenceTable::TakeDownBet() {
  PlaceBet(current_bet, -bet_amount[static_cast<std::size_t>(current_bet)]);
  must_come_down = false;
}

void ReferenceTable::KeepSameBet() {
  PlaceBet(current_bet, 0);
}

void ReferenceTable::BetRemainder() {
  const auto b = static_cast<std::size_t>(current_bet);
  PlaceBet(current_bet, -bet_amount[b]);
  PlaceBet(current_bet, payoff_net + at_roll_start[b]);
}

void ReferenceTable::PressOneUnit() {
  PlaceBet(current_bet, press_unit);
}

void ReferenceTable::PressDouble() {
  PlaceBet(current_bet, bet_amount[static_cast<std::size_t>(current_bet)]);
}

void ReferenceTable::ParlayBet() {
  const int kept[3] = {lay_bias, place_bias, do_bias};
  lay_bias = place_bias = do_bias = 2;
  PlaceBet(current_bet, payoff_net);
  lay_bias = kept[0];
  place_bias = kept[1];
  do_bias = kept[2];
}

void ReferenceTable::ModifySameBet(int option) {
  const auto cell = static_cast<std::size_t>(option - 5);
  const auto b = static_cast<std::size_t>(current_bet);
  const Raw start = at_roll_start[b];
  const Raw a = handle_amount[cell];
  const int units = handle_units[cell];
  const bool percent = units == 1;
  Raw unit = kOne;
  if (units > 1) {
    unit = Times(bet_amount[static_cast<std::size_t>(93 + units)], pay_table[b].denominator);
  }
  const Wide money = kOne;

  Raw request = 0;
  switch (handle_choice_tag[cell]) {
    case 0:
    case 1:
      request = percent ? Nearest(Wide{a} * start, money * 100) : Times(a, unit);
      if (handle_choice_tag[cell] == 1) request = -request;
      break;
    case 2:
      request = percent
                    ? Nearest(Wide{start} * a - Wide{start} * money * 100, money * 100)
                    : Nearest(Wide{start} * a * unit - Wide{start} * money * money, money * money);
      break;
    default:
      if (a > 0) {
        request =
            percent ? Nearest(Wide{start} * money * 100 - Wide{start} * a, a)
                    : Nearest(Wide{start} * money * money - Wide{start} * a * unit, Wide{a} * unit);
      }
      break;
  }
  PlaceBet(current_bet, request);
}

void ReferenceTable::SetBetAmount(int option) {
  const auto cell = static_cast<std::size_t>(option - 5);
  const auto b = static_cast<std::size_t>(current_bet);
  PlaceBet(current_bet, -bet_amount[b]);
  Raw unit = kOne;
  if (handle_units[cell] > 0) {
    unit = Times(bet_amount[static_cast<std::size_t>(93 + handle_units[cell])],
                 pay_table[b].denominator);
  }
  PlaceBet(current_bet, Times(handle_amount[cell], unit));
}

void ReferenceTable::CopyPointOddsRow() {
  pay_table[kPassOdds] = pay_table[static_cast<std::size_t>(point + 19 - point / 7)];
}

void ReferenceTable::DefaultPayoffs() {
  const auto pays = [this](int bet, Raw numerator, Raw denominator) {
    pay_table[static_cast<std::size_t>(bet)] = {numerator * kOne, true, denominator * kOne};
  };
  for (int bet = 1; bet <= kLastBet; ++bet) pays(bet, 1, 1);
  static constexpr Raw kTrue[10][2] = {{6, 1}, {3, 1}, {2, 1}, {3, 2}, {6, 5},
                                       {6, 5}, {3, 2}, {2, 1}, {3, 1}, {6, 1}};
  static constexpr Raw kPlaced[10][2] = {{11, 2}, {11, 4}, {9, 5}, {7, 5},  {7, 6},
                                         {7, 6},  {7, 5},  {9, 5}, {11, 4}, {11, 2}};
  for (int slot = 0; slot < 10; ++slot) {
    pays(kLay + slot, kTrue[slot][1], kTrue[slot][0]);
    pays(kComeOdds + slot, kTrue[slot][0], kTrue[slot][1]);
    pays(kPlace + slot, kPlaced[slot][0], kPlaced[slot][1]);
    pays(kBuy + slot, kTrue[slot][0], kTrue[slot][1]);
  }
  pays(kHard4, 7, 1);
  pays(kHard6, 9, 1);
  pays(kHard8, 9, 1);
  pays(kHard10, 7, 1);
  pays(kTwo, 30, 1);
  pays(kThree, 15, 1);
  pays(kSeven, 4, 1);
  pays(kEleven, 15, 1);
  pays(kTwelve, 30, 1);
  pays(kCraps, 7, 1);
  pays(kCAndE, 1, 2);
  pays(kHorn, 1, 4);
  pays(kWorld, 1, 5);
  for (int hop = kFirstHop; hop <= kLastBet; ++hop) pays(hop, 15, 1);
  for (int face = 2; face <= 5; ++face) pays(Hop(face, face), 30, 1);
  if (point != 0) CopyPointOddsRow();

  for (std::size_t row = 1; row <= 21; ++row) {
    const Raw numerator = row >= 5 && row <= 15 ? -1 : row == 1 || row == 21 ? 2 : 1;
    field_pay_table[row] = {numerator * kOne, true, kOne};
  }
}

void ReferenceTable::SetFieldPreset(int preset) {
  const auto pays = [this](int first, int last, Raw numerator, Raw denominator, bool is_to = true) {
    for (int row = first; row <= last; ++row) {
      field_pay_table[static_cast<std::size_t>(row)] = {numerator, is_to, denominator * kOne};
    }
  };
  constexpr Raw n = kOne;
  switch (preset) {
    case 0:  // Field
      pays(1, 21, n, 1);
      pays(5, 15, -n, 1);
      pays(1, 1, 2 * n, 1);
      pays(21, 21, 2 * n, 1);
      break;
    case 1:    // Pass Line
    case 2: {  // Don't Pass
      const Raw s = preset == 1 ? 1 : -1;
      pays(1, 21, -s * n, 11);
      pays(1, 2, -s * n, 1);
      pays(3, 4, -s * n, 3);
      pays(5, 6, -s * n, 5);
      pays(10, 12, s * n, 1);
      pays(16, 17, -s * n, 5);
      pays(18, 19, -s * n, 3);
      pays(20, 20, s * n, 1);
      pays(21, 21, preset == 1 ? -n : 0, 1);
      if (preset == 2) pays(10, 12, -n, 1);
      break;
    }
    case 3:  // Place 6
      pays(1, 21, 0, 1);
      pays(7, 9, 7 * n, 6);
      pays(10, 12, -n, 1);
      break;
    case 4:  // Place to lose 8
      pays(1, 21, 0, 1);
      pays(10, 12, 4 * n, 5);
      pays(13, 15, -5 * n, 5);
      break;
    case 5:  // Buy 10
      pays(1, 21, 0, 1);
      pays(10, 12, -n, 1);
      pays(18, 19, 39 * n, 21);
      break;
    case 6:  // Lay 4
      pays(1, 21, 0, 1);
      pays(3, 4, -n, 1);
      pays(10, 12, 4'750, 1);
      break;
    case 7:  // Hard 8
      pays(1, 21, 0, 1);
      pays(10, 14, -n, 1);
      pays(15, 15, 9 * n, 1);
      break;
    case 8:  // Horn
      pays(1, 21, -n, 1);
      pays(1, 1, 27 * n, 4, false);
      pays(21, 21, 27 * n, 4, false);
      pays(2, 2, 12 * n, 4, false);
      pays(20, 20, 12 * n, 4, false);
      break;
    case 9:  // World
      pays(1, 21, -n, 1);
      pays(1, 1, 26 * n, 5, false);
      pays(21, 21, 26 * n, 5, false);
      pays(2, 2, 11 * n, 5, false);
      pays(20, 20, 11 * n, 5, false);
      pays(10, 12, 0, 5, false);
      break;
    case 10:  // Hop 1-3
      pays(1, 21, -n, 1);
      pays(3, 3, 15 * n, 1);
      break;
    default:  // Pass Line of a crapless table
      pays(1, 21, -n, 11);
      pays(1, 1, -5 * n, 7);
      pays(21, 21, -5 * n, 7);
      pays(2, 2, -n, 2);
      pays(3, 4, -n, 3);
      pays(5, 6, -n, 5);
      pays(10, 12, n, 1);
      pays(16, 17, -n, 5);
      pays(18, 19, -n, 3);
      pays(20, 20, -n, 2);
      break;
  }
}

void ReferenceTable::SetFieldCommonDenominator() {
  Raw common = 0;
  for (std::size_t row = 1; row <= 21; ++row) {
    if (field_pay_table[row].numerator == 0) continue;
    const Raw denominator = field_pay_table[row].denominator;
    if (common == 0) common = denominator;
    if (common != denominator) {
      common = kOne;
      break;
    }
  }
  pay_table[kField].denominator = common;
}

}  // namespace reference
