#include "view/table_rows.h"

#include "automation/auto_play.h"
#include "base/number_format.h"
#include "base/text.h"
#include "engine/amounts.h"
#include "view/status_lines.h"

namespace feltmaster {

namespace {

std::string NameOfLayoutBet(int bet) {
  return std::string(kBetName[static_cast<std::size_t>(bet)]);
}

}  // namespace

Rows BetRows(const Game& game) {
  Rows rows;
  (game.BetAmount.Standing() & kLayoutBets).ForEach([&](int bet) {
    Row row = {NameOfLayoutBet(bet), WorkingState(game, bet), FormatMoney(game.BetAmount[bet])};
    if (HasVig(bet)) row.push_back(FormatMoney(VigStanding(game, bet)));
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

Rows WorkOnComeOutRows(const Game& game) {
  Rows rows;
  WorkList().ForEach([&](int bet) {
    rows.push_back({NameOfLayoutBet(bet) + (game.WorkOnComeOut.Has(bet) ? " - Yes" : " - No")});
  });
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
