#include "table/printed_rules.h"

#include <algorithm>

#include "base/number_format.h"
#include "config/payoffs.h"

namespace feltmaster {

namespace {

std::vector<FieldNumber> FieldNumbers(const HouseRules& rules) {
  std::vector<FieldNumber> numbers;
  for (int total = 2; total <= 12; ++total) {
    FieldNumber number = {total, {}, false};
    bool printed = false;
    for (int low = std::max(1, total - 6); 2 * low <= total; ++low) {
      const PayRow& row =
          rules.FieldPayTable[static_cast<std::size_t>(FieldRowOfDice(low, total - low))];
      const bool loses_all = row.PayNumerator.ToDouble() == -row.PayDenominator.ToDouble();
      printed = printed || (!loses_all && row.PayNumerator.Raw() != 0);
      number.pays_more = number.pays_more || row.PayNumerator > row.PayDenominator;
      const std::string mark = RatioMark(row);
      if (std::ranges::find(number.marks, mark) == number.marks.end()) number.marks.push_back(mark);
    }
    if (printed) numbers.push_back(number);
  }
  return numbers;
}

std::string VigText(const char* name, MoneyAmount rate, bool all_bets) {
  try {
    return name + PlainNumber(rate.Times(100)) + (all_bets ? "% OF EVERY BET" : "% OF WINS");
  } catch (const MoneyOverflow&) {
    return name;
  }
}

}  // namespace

std::string RatioMark(const PayRow& row) {
  try {
    return PlainNumber(ShownNumerator(row)) + (row.PayIsTo ? 't' : 'f') +
           PlainNumber(row.PayDenominator);
  } catch (const MoneyOverflow&) {  // of a row that only a damaged file can hold
    return "?";
  }
}

PrintedRules PrintRules(const Game& game) {
  PrintedRules printed;
  for (const int bet : kPayoffGrid) {
    const auto index = static_cast<std::size_t>(bet);
    printed.ratio[index] = RatioMark(game.PayTable[index]);
  }
  printed.field = FieldNumbers(game);
  printed.limits =
      "$" + FormatMoney(game.MinPlacardBet) + " TO $" + FormatMoney(game.MaxPlacardBet);
  printed.odds_limit = "ODDS TO $" + FormatMoney(game.MaxOddsBet);
  printed.lay_vig = VigText("LAY VIG ", game.LayVigPct, game.LayVigAllBets);
  printed.buy_vig = VigText("BUY VIG ", game.BuyVigPct, game.BuyVigAllBets);
  return printed;
}

}  // namespace feltmaster
