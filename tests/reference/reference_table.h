#pragma once

#include <array>
#include <cstdint>
#include <vector>

// A second table, written for plainness alone: every array of the game is kept in full and
// every counter is moved on every roll, so that the real engine can be held against it. It shares
// no code and no table with the engine; money is a plain count of ten-thousandths.
namespace reference {

using Raw = std::int64_t;            // ten-thousandths of a dollar
inline constexpr Raw kOne = 10'000;  // one dollar, and the number 1 in rules kept as money

struct PayRow {
  Raw numerator = kOne;
  bool is_to = true;
  Raw denominator = kOne;
};

struct Decision {
  int bet = 0;
  Raw amount = 0;
  Raw net = 0;
};

enum class Vig { kBuyRounding, kLayRounding, kBuyAllBets, kLayAllBets };

class ReferenceTable {
 public:
  ReferenceTable();

  // ---- The road of one roll. False when the bankroll is past the limit and nothing was rolled.
  bool Roll(int die1, int die2);

  // ---- Commands between rolls.
  void PlaceBet(int bet, Raw request);
  void PlaceChips(int bet, Raw request);
  void TakeFullOdds(int bet);
  void TakeAllFullOdds();
  void TakeDownBetQuietly(int bet);
  void MoveComeBet(int from, int to);
  void BuyPlaceBet(int bet);
  void CallBet(int bet, bool on);
  void CallAllBets(bool on);
  void RemoveAllBets();
  void AdjustAllBets();
  void KeyInBet(int bet, Raw amount);
  void Withdraw(Raw amount);
  void Deposit(Raw amount);
  void SetWorkOnComeOut(int bet, bool works);
  void ChangeVig(Vig setting, int value);
  void DefaultPayoffs();
  void SetFieldPreset(int preset);
  void SetFieldCommonDenominator();
  void ResetScriptCounters(int category);
  // Scale 1, an empty page, the extremes at the bankroll.
  void RestartGraph();
  void DrawGraph(bool rescale);
  void RebuildAverages();
  void RescanGraphRange();
  Raw MovingAverage(bool include_current, int position, int count) const;

  // ---- House rules.
  std::array<PayRow, 101> pay_table{};
  std::array<PayRow, 22> field_pay_table{};
  Raw min_placard_bet = 1 * kOne;
  Raw max_placard_bet = 1000 * kOne;
  Raw max_odds_bet = 2000 * kOne;
  std::array<Raw, 5> odds_allowed = {2 * kOne, 2 * kOne, 2 * kOne, 2 * kOne, 25'000};
  int odds_calc_method = 0;
  bool allow_put_bets = false;
  Raw lay_vig_pct = 500;
  Raw buy_vig_pct = 500;
  bool lay_vig_all_bets = true;
  bool buy_vig_all_bets = true;
  int lay_vig_rounding = 0;
  int buy_vig_rounding = 0;
  bool allow_neg_bankroll = true;

  // ---- Standing orders of the player.
  int handle_winning_bets = 0;
  int handle_losing_bets = 1;
  std::array<int, 8> handle_choice_tag{};  // by option less 5
  std::array<Raw, 8> handle_amount{};
  std::array<int, 8> handle_units{};
  int auto_adjust = 2;
  int lay_bias = 0;
  int place_bias = 1;
  int do_bias = 0;
  bool auto_take_full_odds = false;
  bool auto_remove_place_bets = false;
  int num_auto_rolls = 0;
  int auto_rolls_remaining = 0;
  std::array<int, 101> work_on_come_out{};

  // ---- The table.
  std::array<Raw, 201> bet_amount{};
  std::array<Raw, 201> at_roll_start{};
  std::array<Raw, 201> at_roll_end{};
  std::array<Raw, 52> established{};
  std::array<Raw, 10> lay_vig_paid{};
  std::array<Raw, 10> buy_vig_paid{};
  std::array<int, 101> bet_state{};
  std::array<std::array<int, 2>, 101> bet_streak{};
  int die1 = 3;
  int die2 = 4;
  int dice_total = 7;
  int point = 0;
  int prev_point = 0;
  int prev_prev_point = 0;
  Raw total_on_table = 0;
  Raw bet_change = 0;
  std::vector<Decision> decisions;

  // ---- Statistics.
  struct Results {
    // [series][bet][row]; series 0 phantom, 1 actual
    std::array<std::array<std::array<Raw, 8>, 101>, 2> wagers{};
    std::array<std::array<std::array<Raw, 8>, 101>, 2> wins{};
    std::array<std::array<std::array<Raw, 8>, 101>, 2> losses{};
  };
  Results results;
  std::array<int, 91> roll_counts{};
  std::array<int, 91> rolls_since_last{};
  std::array<int, 91> script_roll_counts{};
  std::array<int, 91> script_roll_counts_seen{};
  std::array<int, 91> script_rolls_since{};
  std::array<int, 91> script_rolls_since_seen{};
  std::array<std::array<int, 201>, 91> roll_gap_table{};
  std::array<int, 20> game_counters{};

  // ---- Bankroll and graph.
  Raw bankroll_high = 0;
  Raw bankroll_low = 0;
  Raw bankroll_sum = 0;
  Raw amount_invested = 0;
  std::array<Raw, 1051> bankroll_history{};
  std::array<Raw, 526> bankroll_averages{};
  int bankroll_history_count = 0;
  Raw graph_high = 0;
  Raw graph_low = 0;
  Raw graph_scale = kOne;
  Raw graph_manual_scale = kOne;
  Raw graph_top = 150 * kOne;
  int graph_adjust_type = 2;
  bool graph_ref_lines = false;
  bool graph_show_average = true;
  int graph_average_rolls = 120;
  std::array<int, 3> ref_line_roll = {0, 174, 349};

 private:
  Raw& Bankroll() { return bet_amount[0]; }
  Raw Unit() const { return bet_amount[95]; }
  Raw& VigPaid(int bet);
  bool ChargesVigOnAll(int bet) const;
  Raw NewVig(int bet, Raw amount) const;

  void PlaceRequested(int bet);
  void PlaceChipsRequested(int bet);
  void ComputeMinBet(int bet);
  void ComputeMaxBet(int bet);
  void ComputeMaxOdds(int bet, int flat_bet, Raw numerator, Raw denominator);
  void AutoAdjustBet(int bet);
  void RecomputeTotalOnTable();
  void RecomputeVigs(bool lay);

  void ResolveDice();
  void ResolveSeven();
  void ResolveNumber(int total);
  void ResolveBet(int mode, int bet);
  void ReturnOdds(int bet);
  void ComputePayoff(bool actual, int bet, int mode, Raw amount);
  void RecordBetResult(int series, int bet, Raw amount, Raw result);

  void HandleWonBet();
  void HandleLostBet();
  void ComputePressUnit(int bet);
  void TakeDownBet();
  void KeepSameBet();
  void BetRemainder();
  void PressOneUnit();
  void PressDouble();
  void ParlayBet();
  void ModifySameBet(int option);
  void SetBetAmount(int option);

  void ResetBetState(int bet);
  void UpdateBetStates();
  void CopyPointOddsRow();

  void BeginRollResults();
  void RecordRollStatistics();
  void HitRollCategory(int category);
  void HandPassed();
  void HandMissed();
  void TrackBankroll();

  Raw bet_request = 0;
  Raw min_bet_here = 0;
  Raw max_bet_here = 0;
  Raw odds_multiple = 0;
  Raw payoff_exact = 0;
  Raw payoff_net = 0;
  Raw press_unit = 0;
  int current_bet = 0;
  bool must_come_down = false;
  bool put_bet_allowed_now = false;
  std::array<bool, 101> hop_won{};
};

}  // namespace reference
