// Both tables under the same commands, and their comparison.
#include <algorithm>
#include <cstddef>

#include "reference/session.h"
#include "stats/bankroll_history.h"
#include "stats/bet_results.h"
#include "stats/roll_statistics.h"

namespace reference {
namespace {

std::size_t At(int index) {
  return static_cast<std::size_t>(index);
}

// Keeps the first difference.
class Difference {
 public:
  bool Found() const { return !text_.empty(); }
  const std::string& Text() const { return text_; }

  void Compare(const char* what, std::int64_t engine, std::int64_t reference) {
    if (engine != reference && !Found()) Tell(what, "", engine, reference);
  }
  void Compare(const char* what, int index, std::int64_t engine, std::int64_t reference) {
    if (engine != reference && !Found()) {
      Tell(what, "(" + std::to_string(index) + ")", engine, reference);
    }
  }
  void Compare(const char* what, int i, int j, std::int64_t engine, std::int64_t reference) {
    if (engine != reference && !Found()) {
      Tell(what, "(" + std::to_string(i) + ", " + std::to_string(j) + ")", engine, reference);
    }
  }
  void Compare(const char* what, int i, int j, int k, std::int64_t engine, std::int64_t reference) {
    if (engine != reference && !Found()) {
      Tell(what,
           "(" + std::to_string(i) + ", " + std::to_string(j) + ", " + std::to_string(k) + ")",
           engine, reference);
    }
  }

 private:
  void Tell(const char* what, const std::string& index, std::int64_t engine,
            std::int64_t reference) {
    text_ = what + index + ": engine " + std::to_string(engine) + ", reference " +
            std::to_string(reference);
  }

  std::string text_;
};

}  // namespace

Tables::Tables() {
  MakeReady(game_, surface_);
}

std::string Tables::Do(const Command& command) {
  game_.LastErrorText.clear();
  const bool engine_did = Perform(command, game_);
  const bool reference_did = Perform(command, table_);
  if (!game_.LastErrorText.empty()) return "LastErrorText: " + game_.LastErrorText;
  if (engine_did != reference_did) return "only one of the tables did it";
  const bool rolled = command.verb == Verb::kRoll && engine_did;
  std::string difference = CompareTable(rolled);
  if (!difference.empty()) return difference;
  if (command.verb == Verb::kSettle) return CompareArrays(game_);
  if (!rolled) return {};
  read_ = game_;
  return CompareArrays(read_);
}

// What a command or a roll leaves on the layout; cheap enough for every step.
std::string Tables::CompareTable(bool rolled) {
  Difference d;
  for (int slot = 0; slot <= 200; ++slot) {
    d.Compare("BetAmount", slot, game_.BetAmount[slot].Raw(), table_.bet_amount[At(slot)]);
  }
  d.Compare("TotalOnTable", game_.TotalOnTable.Raw(), table_.total_on_table);
  for (int slot = 0; slot < 10; ++slot) {
    d.Compare("LayVigPaid", slot, game_.LayVigPaid[At(slot)].Raw(), table_.lay_vig_paid[At(slot)]);
    d.Compare("BuyVigPaid", slot, game_.BuyVigPaid[At(slot)].Raw(), table_.buy_vig_paid[At(slot)]);
  }
  for (int bet = 1; bet <= 88; ++bet) {
    d.Compare("BetState", bet, game_.BetState[bet], table_.bet_state[At(bet)]);
    d.Compare("BetStreak 1", bet, game_.BetStreak.Now(bet), table_.bet_streak[At(bet)][1]);
    d.Compare("BetStreak 0", bet, game_.BetStreak.Before(bet), table_.bet_streak[At(bet)][0]);
  }
  for (int bet = 11; bet <= 51; ++bet) {
    d.Compare("EstablishedAmount", bet, game_.EstablishedAmount[At(bet)].Raw(),
              table_.established[At(bet)]);
  }
  d.Compare("Die1", game_.Die1, table_.die1);
  d.Compare("Die2", game_.Die2, table_.die2);
  d.Compare("DiceTotal", game_.DiceTotal, table_.dice_total);
  d.Compare("Point", game_.Point, table_.point);
  d.Compare("PrevPoint", game_.PrevPoint, table_.prev_point);
  d.Compare("PrevPrevPoint", game_.PrevPrevPoint, table_.prev_prev_point);
  d.Compare("BetChange", game_.BetChange.Raw(), table_.bet_change);
  d.Compare("AmountInvested", game_.AmountInvested.Raw(), table_.amount_invested);
  d.Compare("AutoRollsRemaining", game_.AutoRollsRemaining, table_.auto_rolls_remaining);
  d.Compare("HyperDriveActive", game_.HyperDriveActive, false);
  d.Compare("RollInProgress", game_.RollInProgress, false);
  d.Compare("DiceAlreadySet", game_.DiceAlreadySet, false);
  d.Compare("LayBias", game_.LayBias, table_.lay_bias);
  d.Compare("PlaceBias", game_.PlaceBias, table_.place_bias);
  d.Compare("DoBias", game_.DoBias, table_.do_bias);
  d.Compare("LayVigAllBets", game_.LayVigAllBets, table_.lay_vig_all_bets);
  d.Compare("BuyVigAllBets", game_.BuyVigAllBets, table_.buy_vig_all_bets);
  d.Compare("LayVigRounding", game_.LayVigRounding, table_.lay_vig_rounding);
  d.Compare("BuyVigRounding", game_.BuyVigRounding, table_.buy_vig_rounding);
  if (d.Found() || !rolled) return d.Text();

  d.Compare("decisions", game_.Decisions.count, static_cast<int>(table_.decisions.size()));
  for (int i = 0; !d.Found() && i < game_.Decisions.count; ++i) {
    const auto& engine = game_.Decisions.list[At(i)];
    const auto& reference = table_.decisions[At(i)];
    d.Compare("decided bet", i, engine.bet, reference.bet);
    d.Compare("decided amount", i, engine.amount.Raw(), reference.amount);
    d.Compare("decided net", i, engine.net.Raw(), reference.net);
  }
  for (int i = 0; i < 20; ++i) {
    d.Compare("GameCounters", i, game_.GameCounters[At(i)], table_.game_counters[At(i)]);
  }
  d.Compare("BankrollHigh", game_.BankrollHigh.Raw(), table_.bankroll_high);
  d.Compare("BankrollLow", game_.BankrollLow.Raw(), table_.bankroll_low);
  d.Compare("BankrollSum", game_.BankrollSum.Raw(), table_.bankroll_sum);
  d.Compare("RollCounts", 0, feltmaster::RollCounts(game_, 0), table_.roll_counts[0]);
  return d.Text();
}

std::string Tables::CompareArrays(feltmaster::Game& game) {
  Difference d;
  for (int slot = 0; slot <= 200; ++slot) {
    d.Compare("BetAmountAtRollStart", slot, game.BetAmountAtRollStart[At(slot)].Raw(),
              table_.at_roll_start[At(slot)]);
    d.Compare("BetAmountAtRollEnd", slot, game.BetAmountAtRollEnd[At(slot)].Raw(),
              table_.at_roll_end[At(slot)]);
  }
  for (int row = 1; row <= 88; ++row) {
    const auto& engine = game.PayTable[At(row)];
    const auto& reference = table_.pay_table[At(row)];
    d.Compare("PayTable numerator", row, engine.PayNumerator.Raw(), reference.numerator);
    d.Compare("PayTable denominator", row, engine.PayDenominator.Raw(), reference.denominator);
    d.Compare("PayTable is to", row, engine.PayIsTo, reference.is_to);
  }
  for (int row = 1; row <= 21; ++row) {
    const auto& engine = game.FieldPayTable[At(row)];
    const auto& reference = table_.field_pay_table[At(row)];
    d.Compare("FieldPayTable numerator", row, engine.PayNumerator.Raw(), reference.numerator);
    d.Compare("FieldPayTable denominator", row, engine.PayDenominator.Raw(), reference.denominator);
    d.Compare("FieldPayTable is to", row, engine.PayIsTo, reference.is_to);
  }
  if (d.Found()) return d.Text();

  using feltmaster::ResultCell;
  using feltmaster::ResultKind;
  for (int series = 0; series <= 1; ++series) {
    const auto s = At(series);
    for (int bet = 1; bet <= 88; ++bet) {
      for (int row = 0; row <= 7; ++row) {
        const auto engine = [&](ResultKind kind) {
          return ResultCell(game, kind, series, bet, row).Raw();
        };
        const auto& results = table_.results;
        d.Compare("BetWagers", series, bet, row, engine(ResultKind::kWagers),
                  results.wagers[s][At(bet)][At(row)]);
        d.Compare("BetWins", series, bet, row, engine(ResultKind::kWins),
                  results.wins[s][At(bet)][At(row)]);
        d.Compare("BetLosses", series, bet, row, engine(ResultKind::kLosses),
                  results.losses[s][At(bet)][At(row)]);
      }
    }
  }
  for (int i = 0; i <= 90; ++i) {
    const auto at = At(i);
    d.Compare("RollCounts", i, feltmaster::RollCounts(game, i), table_.roll_counts[at]);
    d.Compare("RollsSinceLast", i, feltmaster::RollsSinceLast(game, i),
              table_.rolls_since_last[at]);
    d.Compare("ScriptRollCounts", i, feltmaster::ScriptRollCounts(game, i),
              table_.script_roll_counts[at]);
    d.Compare("ScriptRollCountsSeen", i, feltmaster::ScriptRollCountsSeen(game, i),
              table_.script_roll_counts_seen[at]);
    d.Compare("ScriptRollsSince", i, feltmaster::ScriptRollsSince(game, i),
              table_.script_rolls_since[at]);
    d.Compare("ScriptRollsSinceSeen", i, feltmaster::ScriptRollsSinceSeen(game, i),
              table_.script_rolls_since_seen[at]);
    const auto gaps = feltmaster::GapsOf(game, i);
    if (std::ranges::equal(gaps, table_.roll_gap_table[at])) continue;
    for (int gap = 0; gap <= 200; ++gap) {
      d.Compare("RollGapTable", i, gap, gaps[At(gap)], table_.roll_gap_table[at][At(gap)]);
    }
  }

  for (int i = 0; i <= 1050; ++i) {
    d.Compare("BankrollHistory", i, game.BankrollHistory[At(i)].Raw(),
              table_.bankroll_history[At(i)]);
  }
  d.Compare("BankrollHistoryCount", game.BankrollHistoryCount, table_.bankroll_history_count);
  for (int i = 1; i <= 525; ++i) {
    d.Compare("BankrollAverages", i, feltmaster::BankrollAverage(game, i).Raw(),
              table_.bankroll_averages[At(i)]);
  }
  for (const auto& [position, count] : {std::pair{0, 0}, {0, 7}, {1, 40}, {300, 525}}) {
    for (const bool current : {false, true}) {
      d.Compare("MovingAverage", current, position, count,
                feltmaster::MovingAverage(game, current, position, count).Raw(),
                table_.MovingAverage(current, position, count));
    }
  }
  d.Compare("GraphHigh", game.GraphHigh.Raw(), table_.graph_high);
  d.Compare("GraphLow", game.GraphLow.Raw(), table_.graph_low);
  d.Compare("GraphScale", game.GraphScale.Raw(), table_.graph_scale);
  d.Compare("GraphTop", game.GraphTop.Raw(), table_.graph_top);
  return d.Text();
}

}  // namespace reference
