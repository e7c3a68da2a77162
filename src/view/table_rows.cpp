#include "view/table_rows.h"

#include "base/number_format.h"
#include "base/text.h"
#include "engine/amounts.h"

namespace feltmaster {

namespace {

std::string NameOfLayoutBet(int bet) {
  return std::string(kBetName[static_cast<std::size_t>(bet)]);
}

// The vig that stands on a Lay or Buy bet.
MoneyAmount VigOf(const Game& game, int bet) {
  return IsLay(bet) ? game.LayVigPaid[static_cast<std::size_t>(bet - kLay)]
                    : game.BuyVigPaid[static_cast<std::size_t>(bet - kBuy)];
}

}  // namespace

std::string WorkingState(const Game& game, int bet) {
  switch (game.BetState[bet]) {
    case kCalledOff:
      return "(called OFF)";
    case kNotWorking:
      return "(not working)";
    case kCalledOn:
      return "(called ON)";
    default:
      return "(working)";
  }
}

Rows StatusRows(const Game& game, int bet) {
  Rows rows;
  const MoneyAmount bankroll = game.BetAmount[kBankroll];
  const MoneyAmount net = bankroll - game.AmountInvested;
  const std::int64_t sign = net.Raw();
  rows.push_back({sign > 0   ? "You've won:  "
                  : sign < 0 ? "You've lost:  "
                             : "You're even:  ",
                  FormatMoney(Abs(net))});
  rows.push_back({"Bankroll:  ", FormatMoney(bankroll)});
  if (IsChipStack(bet)) {
    rows.push_back({NameOfBet(game, bet) + ":  ", FormatMoney(game.BetAmount[bet])});
    rows.push_back({game.ChipStackName[static_cast<std::size_t>(bet - kFirstStack)]});
    return rows;
  }
  if (IsLayoutBet(bet) && game.BetAmount[bet].Raw() != 0) {
    Row row = {NameOfLayoutBet(bet) + " bet " + WorkingState(game, bet) + ":  ",
               FormatMoney(game.BetAmount[bet]) + "  "};
    if (IsLay(bet)) row.insert(row.end(), {"vig: ", FormatMoney(VigOf(game, bet))});
    if (IsBuy(bet)) row.insert(row.end(), {"vig:  ", FormatMoney(VigOf(game, bet))});
    rows.push_back(row);
  }
  rows.push_back({"Total bets:  ", FormatMoney(game.TotalOnTable),
                  "  Available:  ", FormatMoney(bankroll - game.TotalOnTable)});
  return rows;
}

Rows BetRows(const Game& game) {
  Rows rows;
  (game.BetAmount.Standing() & kLayoutBets).ForEach([&](int bet) {
    Row row = {NameOfLayoutBet(bet), WorkingState(game, bet), FormatMoney(game.BetAmount[bet])};
    if (IsLay(bet) || IsBuy(bet)) row.push_back(FormatMoney(VigOf(game, bet)));
    rows.push_back(row);
  });
  return rows;
}

Rows ChipStackRows(const Game& game) {
  Rows rows;
  for (int stack = 0; stack < kStackCount; ++stack) {
    const MoneyAmount amount = game.BetAmount[kFirstStack + stack];
    const bool blank = amount.Raw() == 0 && !game.StackDisplayZero;
    rows.push_back({std::to_string(stack), blank ? std::string() : FormatMoney(amount),
                    game.ChipStackName[static_cast<std::size_t>(stack)]});
  }
  return rows;
}

Rows TrendRows(const Game& game) {
  Rows rows;
  for (int bet = 1; bet <= kBetCount; ++bet) {
    const int run = game.BetStreak.Now(bet);
    rows.push_back({NameOfLayoutBet(bet), run == 0 ? std::string() : std::to_string(run)});
  }
  return rows;
}

Rows HotKeyRows(const Game& game) {
  Rows rows;
  for (const HotKey& hot_key : game.HotKeys) {
    const std::string& file = hot_key.HotKeyFile;
    rows.push_back({std::string("Ctrl ") + hot_key.HotKeyChar, file.substr(file.rfind('/') + 1),
                    std::string(Trim(hot_key.HotKeyDescription))});
  }
  return rows;
}

Rows FlagRows(const Game& game) {
  Rows rows;
  for (const ScriptFlag& flag : game.ScriptFlags) {
    rows.push_back({flag.FlagName + (flag.FlagValue ? " - True" : " - False")});
  }
  return rows;
}

}  // namespace feltmaster
