#include "view/status_lines.h"

#include "base/number_format.h"
#include "config/payoffs.h"
#include "engine/amounts.h"
#include "engine/entry_box.h"

namespace feltmaster {

namespace {

StatusText Amount(MoneyAmount amount) {
  return {FormatMoney(amount), amount.Raw() < 0 ? StatusColor::kRed : StatusColor::kBlue};
}

// How the player stands: the amount without its sign, in the colour of the sign.
StatusLine WonOrLost(MoneyAmount net) {
  const std::string_view words = net.Raw() > 0   ? "You've won:  "
                                 : net.Raw() < 0 ? "You've lost:  "
                                                 : "You're even:  ";
  return {{std::string(words)}, {FormatMoney(Abs(net)), Amount(net).color}};
}

StatusLine BetLine(const Game& game, int bet) {
  StatusText amount = Amount(game.BetAmount[bet]);
  amount.text += "  ";
  StatusLine line = {{NameOfBet(game, bet) + " bet " + WorkingState(game, bet) + ":  "}, amount};
  if (HasVig(bet)) {
    line.push_back({IsLay(bet) ? "vig: " : "vig:  "});
    line.push_back(Amount(VigStanding(game, bet)));
  }
  return line;
}

Row TextsOf(const StatusLine& line) {
  Row row;
  for (const StatusText& part : line) row.push_back(part.text);
  return row;
}

}  // namespace

int BetOfStatus(const Game& game) {
  return EntryBoxOpen(game) ? game.EntryBoxBet : game.HitBet;
}

StatusDisplay StatusLines(const Game& game, int bet) {
  const MoneyAmount bankroll = game.BetAmount[kBankroll];
  StatusDisplay display;
  display.left = {WonOrLost(bankroll - game.AmountInvested),
                  StatusLine{{"Bankroll:  "}, Amount(bankroll)}};
  if (IsChipStack(bet)) {
    display.right = {StatusLine{{NameOfBet(game, bet) + ":  "}, Amount(game.BetAmount[bet])},
                     StatusLine{{game.ChipStackName[static_cast<std::size_t>(bet - kFirstStack)]}}};
    return display;
  }
  if (bet == kRecorderIndicator && game.DiceRollFileMode != kRecorderOff) {
    const bool records = game.DiceRollFileMode == kRecording;
    display.right = {StatusLine{{"Dice Roll Recorder:   "},
                                {records ? "Recording" : "Playback",
                                 records ? StatusColor::kRed : StatusColor::kBlue}},
                     StatusLine{{"Next roll is #" + std::to_string(game.DiceRollNext)}}};
    return display;
  }
  if (IsLayoutBet(bet) && game.BetAmount[bet].Raw() != 0) display.right[0] = BetLine(game, bet);
  display.right[1] = {{"Total bets:  "},
                      Amount(game.TotalOnTable),
                      {"  Available:  "},
                      Amount(bankroll - game.TotalOnTable)};
  return display;
}

Rows StatusRows(const Game& game, int bet) {
  const StatusDisplay display = StatusLines(game, bet);
  Rows rows;
  for (const auto& column : {display.left, display.right}) {
    for (const StatusLine& line : column) {
      if (!line.empty()) rows.push_back(TextsOf(line));
    }
  }
  return rows;
}

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

std::string QuickStats(const Game& game, int bet) {
  if (!IsLayoutBet(bet)) return {};
  const PayRow& row = game.PayTable[static_cast<std::size_t>(bet)];
  return ' ' + NameOfBet(game, bet) + "\n Pays " + PlainNumber(ShownNumerator(row)) +
         (row.PayIsTo ? " to " : " for ") + PlainNumber(row.PayDenominator);
}

}  // namespace feltmaster
