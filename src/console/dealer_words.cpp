#include "console/dealer_words.h"

#include <array>
#include <string_view>

#include "base/number_format.h"
#include "engine/amounts.h"

namespace feltmaster {

namespace {

constexpr std::array<std::string_view, 13> kTotals = {
    "",      "",      "aces", "ace-deuce", "four",     "five",   "six",
    "seven", "eight", "nine", "ten",       "yo-leven", "boxcars"};

std::string Dollars(MoneyAmount amount) {
  return amount.Raw() < 0 ? "-$" + FormatMoney(-amount) : "$" + FormatMoney(amount);
}

std::string CallOfPoint(const Game& game) {
  if (game.PrevPoint == 0) {
    return game.Point == 0 ? "A winner on the come-out."
                           : "The point is " + std::to_string(game.Point) + '.';
  }
  if (game.DiceTotal == 7) return "Seven out, new shooter.";
  if (game.DiceTotal == game.PrevPoint) return "The point is made.";
  return "The point is still " + std::to_string(game.Point) + '.';
}

}  // namespace

std::string DiceInWords(const Game& game) {
  const int total = game.Die1 + game.Die2;
  std::string words = std::to_string(game.Die1) + " and " + std::to_string(game.Die2) + ": ";
  if (game.Die1 == game.Die2 && total > 2 && total < 12) words += "hard ";
  return words.append(kTotals[static_cast<std::size_t>(total)]) + '\n';
}

std::string RollInWords(const Game& game) {
  std::string words = CallOfPoint(game) + '\n';
  for (int i = 0; i < game.Decisions.count; ++i) {
    const BetDecision& decision = game.Decisions.list[static_cast<std::size_t>(i)];
    words += "  " + NameOfBet(game, decision.bet) + ", " + Dollars(decision.amount);
    if (decision.net.Raw() == 0) {
      words += ": a push\n";
    } else {
      words +=
          (decision.net.Raw() > 0 ? ": wins " : ": loses ") + Dollars(Abs(decision.net)) + '\n';
    }
  }
  return words + BankrollInWords(game, AtRollStart(game, kBankroll));
}

std::string BankrollInWords(const Game& game, MoneyAmount before) {
  const MoneyAmount now = game.BetAmount[kBankroll];
  std::string words = "Bankroll " + Dollars(now);
  if (now != before) {
    words += (now > before ? ", up " : ", down ") + Dollars(Abs(now - before));
  }
  return words + ".\n";
}

std::string BetInWords(const Game& game, int slot) {
  std::string words = NameOfBet(game, slot) + ": " + Dollars(game.BetAmount[slot]);
  if (IsLayoutBet(slot)) {
    words += ". On the table " + Dollars(game.TotalOnTable) + ", bankroll " +
             Dollars(game.BetAmount[kBankroll]);
  }
  return words + ".\n";
}

}  // namespace feltmaster
