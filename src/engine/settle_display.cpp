#include "engine/settle_display.h"

#include <string>
#include <string_view>
#include <utility>

#include "base/number_format.h"
#include "engine/amounts.h"

namespace feltmaster {
namespace {

constexpr std::int32_t kHelpWon = 500;
constexpr std::int32_t kHelpLost = 501;

void Open(Game& game, std::string_view title, bool won) {
  SettleDisplay& display = game.Settle;
  display = SettleDisplay();
  display.title = title;
  display.won = won;
  display.help = won ? kHelpWon : kHelpLost;
  display.filled = true;
}

void AddText(Game& game, std::string label, std::string amount, bool bold) {
  game.Settle.rows.push_back({std::move(label), std::move(amount), bold});
}
void AddRow(Game& game, std::string label, MoneyAmount amount, bool bold = false) {
  AddText(game, std::move(label), "$" + FormatMoney(amount), bold);
}

void AddBetRow(Game& game) {
  AddRow(game, NameOfBet(game, game.CurrentBet) + " bet:", game.BetAmount[game.CurrentBet]);
}

// "Payoff at 7 to 6:", by the row that the decision was paid by.
std::string RatioLabel(const Game& game, std::string_view what) {
  const PayRow& row = game.PayTable[0];
  const MoneyAmount shown = row.PayIsTo ? row.PayNumerator : row.PayNumerator + row.PayDenominator;
  return std::string(what) + PlainNumber(shown) + (row.PayIsTo ? " to " : " for ") +
         PlainNumber(row.PayDenominator) + ":";
}

std::string VigLabel(const Game& game) {
  const MoneyAmount rate = IsLay(game.CurrentBet) ? game.LayVigPct : game.BuyVigPct;
  return PlainNumber(-rate.Times(100)) + "% vig:";
}

// "Net payoff (rounded): ", or without the remark where the rounding changed nothing.
void AddNetRow(Game& game, std::string_view what) {
  const bool rounded = game.PayoffNet != game.PayoffExact;
  AddRow(game, std::string(what) + (rounded ? " (rounded): " : ": "), game.PayoffNet, true);
}

void AddVigRows(Game& game, std::string_view payoff_label, std::string_view net_label,
                MoneyAmount vig) {
  AddRow(game, RatioLabel(game, payoff_label), game.PayoffExact + vig);
  AddRow(game, VigLabel(game), -vig);
  AddNetRow(game, net_label);
}

// Bets that are split over several numbers, of which one part wins and pays for the others.
int PartsOf(int bet) {
  switch (bet) {
    case kCAndE:
      return 2;
    case kHorn:
      return 4;
    case kWorld:
      return 5;
    default:
      return 1;
  }
}

void AddSplitRows(Game& game, int parts) {
  const MoneyAmount bet = game.BetAmount[game.CurrentBet];
  const MoneyAmount winning = Quotient(bet, MoneyAmount(parts));
  const MoneyAmount losing = Ratio(bet, MoneyAmount(parts - 1), MoneyAmount(parts));
  const std::string all = std::to_string(parts);
  AddRow(game, "1/" + all + " of bet:", winning);
  AddRow(game, RatioLabel(game, "Payoff at "), game.PayoffExact + losing);
  AddRow(game, "Less " + std::to_string(parts - 1) + "/" + all + " of bet:", -losing);
  AddNetRow(game, "Net payoff");
}

}  // namespace

void FillWonDisplay(Game& game) {
  const int bet = game.CurrentBet;
  Open(game, game.PayoffNet.Raw() > 0 ? "* * * Winner * * *" : "Push", true);
  AddBetRow(game);
  if (HasVig(bet)) {
    AddVigRows(game, "Payoff at ", "Net payoff", StandingVig(game, bet));
  } else if (PartsOf(bet) > 1) {
    AddSplitRows(game, PartsOf(bet));
  } else {
    AddRow(game, RatioLabel(game, "Payoff at "), game.PayoffExact);
    if (game.PayoffNet != game.PayoffExact) AddNetRow(game, "Net payoff");
  }
}

void FillLostDisplay(Game& game) {
  const int bet = game.CurrentBet;
  const std::string_view label =
      game.PayTable[0].PayNumerator.Raw() > 0 ? "Payoff at " : "Loss at ";
  Open(game, "Bet Lost", false);
  AddBetRow(game);
  // A bet that is charged on winning alone loses without vig.
  if (ChargesVigUpFront(game, bet)) {
    AddVigRows(game, label, "Net loss", StandingVig(game, bet));
    game.PayoffNet += StandingVig(game, bet);
  } else {
    AddRow(game, RatioLabel(game, label), game.PayoffExact);
    if (game.PayoffNet != game.PayoffExact) AddNetRow(game, "Net loss");
  }
  AddRow(game, "Remainder: ", game.BetAmount[bet] + game.PayoffNet, true);
}

void FillOddsReturnedDisplay(Game& game) {
  Open(game, "Odds Bet Returned", true);
  AddBetRow(game);
  AddText(game, "wasn't working!", "", false);
}

}  // namespace feltmaster
