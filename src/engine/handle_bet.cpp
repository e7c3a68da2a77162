#include "engine/handle_bet.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "autobet/message.h"
#include "base/number_format.h"
#include "engine/amounts.h"
#include "engine/chip_list.h"
#include "engine/place_bet.h"
#include "engine/settle_display.h"
#include "engine/table_effects.h"

namespace feltmaster {
namespace {

constexpr int kChoices = 5;  // without an amount of their own
constexpr int kButtons = 7;  // the choices, "Same Bet:" and "Bet:"
constexpr int kTakeDownButton = 0;

// What can be done with a decided bet. Button b of the dialog does what rule b + 1 does by itself.
struct Handling {
  bool won;
  std::array<void (*)(Game&), kChoices> choices;
  std::array<std::string_view, kButtons> captions;  // an empty one tells the press unit
  HandleOption dialog_same;
  HandleOption dialog_bet;
  HandleOption auto_same;
  HandleOption auto_bet;
};

constexpr Handling kWonHandling = {true,
                                   {TakeDownBet, KeepSameBet, PressOneUnit, PressDouble, ParlayBet},
                                   {"&Take Bet and Winnings", "&Same Bet - Take Winnings", "",
                                    "Press - Add Winnings to &Double Bet",
                                    "Parlay - Add &All Winnings to Bet", "Sa&me Bet:", "&Bet:"},
                                   kDialogWonSame,
                                   kDialogWonBet,
                                   kAutoWonSame,
                                   kAutoWonBet};
constexpr Handling kLostHandling = {
    false,
    {TakeDownBet, BetRemainder, KeepSameBet, PressOneUnit, PressDouble},
    {"No Bet/Take Remainder", "Bet Remainder", "Same Bet", "", "Double Bet", "Sa&me Bet:", "&Bet:"},
    kDialogLostSame,
    kDialogLostBet,
    kAutoLostSame,
    kAutoLostBet};
static_assert(kButtons + 1 == kHandleRules);

std::size_t Cell(int option) {
  return static_cast<std::size_t>(option - kFirstHandleOption);
}

enum class Amounts : std::uint8_t { kOfDialog, kOfAutoPlay };

void Handle(Game& game, const Handling& handling, int button, Amounts amounts) {
  if (button < kChoices) {
    handling.choices[static_cast<std::size_t>(button)](game);
    return;
  }
  const bool dialog = amounts == Amounts::kOfDialog;
  if (button == kChoices) {
    ModifySameBet(game, dialog ? handling.dialog_same : handling.auto_same);
  } else {
    SetBetAmount(game, dialog ? handling.dialog_bet : handling.auto_bet);
  }
}

bool IsButton(int button) {
  return button >= 0 && button < kButtons;
}

SettleRequest RequestFor(const Game& game, const Handling& handling, int last_choice) {
  SettleRequest request;
  request.title = game.Settle.title;
  for (const SettleRow& row : game.Settle.rows) {
    request.rows.push_back({row.label, row.amount, row.bold});
  }
  for (const std::string_view caption : handling.captions) {
    request.captions.push_back(caption.empty() ? "Press 1 &Unit - Add $" +
                                                     FormatMoney(game.PressUnit) + " to Bet"
                                               : std::string(caption));
  }
  request.won = handling.won;
  request.only_take_down = game.MustComeDown;
  request.default_button =
      !game.MustComeDown && IsButton(last_choice) ? last_choice : kTakeDownButton;
  request.options[0] = LoadOption(game, handling.dialog_same);
  request.options[1] = LoadOption(game, handling.dialog_bet);
  request.help = game.Settle.help;
  return request;
}

void AskAndHandle(Game& game, const Handling& handling) {
  std::int32_t& last_choice = handling.won ? game.LastWinChoice : game.LastLossChoice;
  const bool only_take_down = game.MustComeDown;
  const SettleRequest request = RequestFor(game, handling, last_choice);
  const SettleReply reply = game.surface->ShowSettle(request);
  game.surface->LetEventsThrough();
  if (reply.stop_rolling && game.AutoRollDice) game.KeepRolling = false;
  StoreOption(game, handling.dialog_same, reply.options[0]);
  StoreOption(game, handling.dialog_bet, reply.options[1]);
  game.Settle = SettleDisplay();

  const int button = only_take_down || !IsButton(reply.button) ? kTakeDownButton : reply.button;
  Handle(game, handling, button, Amounts::kOfDialog);
  last_choice = button;
}

void HandleByRule(Game& game, const Handling& handling, std::int32_t rule) {
  if (rule == kHandleManually && !game.HyperDriveActive) {
    AskAndHandle(game, handling);
    return;
  }
  const bool is_rule = rule > kHandleManually && rule < kHandleRules;
  const int button = is_rule && !game.MustComeDown ? rule - 1 : kTakeDownButton;
  Handle(game, handling, button, Amounts::kOfAutoPlay);
}

// What a decision does at the table before the bet itself is handled.
void ShowDecision(Game& game, int auto_stop) {
  if (game.DiceAction == kDiceReturnOnDecision) ReturnDice(game);
  if (game.AutoRollDice && game.AutoStopOn[static_cast<std::size_t>(auto_stop)]) {
    game.KeepRolling = false;
  }
}

// The vig of a decided bet has been paid or won back with it. Gives the vig that stood.
MoneyAmount ClearVig(Game& game, int bet) {
  if (!IsLay(bet) && !IsBuy(bet)) return MoneyAmount();
  const MoneyAmount vig = StandingVig(game, bet);
  if (ChargesVigUpFront(game, bet)) game.TotalOnTable -= vig;
  StandingVig(game, bet) = MoneyAmount();
  return vig;
}

void Request(Game& game, MoneyAmount change) {
  game.BetRequest = change;
  PlaceBet(game, game.CurrentBet);
}

MoneyAmount AmountNow(const Game& game) {
  return game.BetAmount[game.CurrentBet];
}

// Tells how the bet now differs from what stood when the roll began.
void Report(Game& game, std::string_view what) {
  if (!Notifies(game, kNoticeCharges)) return;
  const MoneyAmount before = AtRollStart(game, game.CurrentBet);
  const MoneyAmount now = AmountNow(game);
  std::string text = "No change in bet amount.";
  if (now > before) text = "Bet increased by: $" + FormatMoney(now - before);
  if (now < before) text = "Bet decreased by: $" + FormatMoney(before - now);
  Tell(game, std::string(what) + NameOfBet(game, game.CurrentBet), text, kButtonOk | kHideCharges);
}

enum Units : std::int64_t { kDollars = 0, kPercent = 1 };  // from 2 on a chip unit
enum Operator : std::int32_t { kAdd = 0, kSubtract = 1, kMultiply = 2, kDivide = 3 };

// What an amount out of all range asks for; the limits of the table do the rest.
constexpr MoneyAmount kBeyondAnyBet = MoneyAmount::FromWhole(1'000'000'000'000);

std::int64_t UnitsOf(const Game& game, int option) {
  return game.HandleUnits[Cell(option)].FloorWhole();
}

// The change that a "Same Bet:" option asks for, of a bet that was `bet` when the roll began.
MoneyAmount ChangeOfSameBet(const Game& game, int option, MoneyAmount bet) {
  const MoneyAmount amount = game.HandleAmount[Cell(option)];
  const std::int64_t units = UnitsOf(game, option);
  const bool percent = units == kPercent;
  const MoneyAmount hundred(100);
  const MoneyAmount unit = units > kPercent ? ChipUnit(game, units) : MoneyAmount(1);
  switch (game.HandleChoiceTag[Cell(option)]) {
    case kAdd:
      return Product(amount, percent ? Quotient(bet, hundred) : unit);
    case kSubtract:
      return -Product(amount, percent ? Quotient(bet, hundred) : unit);
    case kMultiply:
      return (percent ? Ratio(bet, amount, hundred) : Product(Product(bet, amount), unit)) - bet;
    case kDivide: {
      const MoneyAmount divisor = Product(amount, unit);
      if (divisor.Raw() <= 0) return MoneyAmount();
      return (percent ? Ratio(bet, hundred, amount) : Quotient(bet, divisor)) - bet;
    }
    default:
      return MoneyAmount();
  }
}

// A parlay never grows beyond the winnings: for its length every adjustment decreases.
class DecreasingBiases {
 public:
  explicit DecreasingBiases(Game& game)
      : game_(game), lay_(game.LayBias), place_(game.PlaceBias), do_(game.DoBias) {
    game.LayBias = game.PlaceBias = game.DoBias = kDecrease;
  }
  ~DecreasingBiases() {
    game_.LayBias = lay_;
    game_.PlaceBias = place_;
    game_.DoBias = do_;
  }
  DecreasingBiases(const DecreasingBiases&) = delete;
  DecreasingBiases& operator=(const DecreasingBiases&) = delete;

 private:
  Game& game_;
  std::int32_t lay_;
  std::int32_t place_;
  std::int32_t do_;
};

}  // namespace

SettleRequest::Option LoadOption(const Game& game, int option) {
  SettleRequest::Option row;
  row.math_operator = game.HandleChoiceTag[Cell(option)];
  row.amount = game.HandleAmount[Cell(option)];
  row.units = static_cast<int>(
      std::clamp<std::int64_t>(game.HandleUnits[Cell(option)].FloorWhole(), 0, kChipCount + 1));
  return row;
}

void StoreOption(Game& game, int option, const SettleRequest::Option& row) {
  game.HandleChoiceTag[Cell(option)] = row.math_operator;
  game.HandleAmount[Cell(option)] = row.amount;
  game.HandleUnits[Cell(option)] = MoneyAmount(row.units);
}

void HandleWonBet(Game& game) {
  if (!game.HyperDriveActive) {
    ShowDecision(game, kStopOnWin);
    const bool wait = game.HandleWinningBets != kHandleManually;
    PlayChosenClip(game, game.WinSoundList, game.WinSoundChoice, wait);
  }
  game.PayoffNet += ClearVig(game, game.CurrentBet);
  HandleByRule(game, kWonHandling, game.HandleWinningBets);
}

void HandleLostBet(Game& game) {
  if (!game.HyperDriveActive) {
    ShowDecision(game, kStopOnLoss);
    const bool stood = AtRollStart(game, game.CurrentBet).Raw() != 0;
    if (stood && game.HandleLosingBets == kHandleManually) FillLostDisplay(game);
  }
  ClearVig(game, game.CurrentBet);
  ComputePressUnit(game, game.CurrentBet);
  HandleByRule(game, kLostHandling, game.HandleLosingBets);
}

void ComputePressUnit(Game& game, int bet) {
  const MoneyAmount denominator = game.PayTable[static_cast<std::size_t>(bet)].PayDenominator;
  const MoneyAmount amount = game.BetAmount[bet];
  const bool whole = denominator.IsWhole();
  const std::int64_t chips = denominator.FloorWhole();
  MoneyAmount unit;
  for (int slot = kLastChip; slot >= kFirstChip; --slot) {
    const MoneyAmount chip = game.BetAmount[slot];
    unit = whole ? chip.Times(chips) : Product(denominator, chip);
    if (unit.Raw() > 0 && unit < amount && IsMultipleOf(amount, unit)) break;
  }
  game.PressUnit = unit;
}

// Only the slots of the chips hold a denomination.
MoneyAmount ChipUnit(const Game& game, std::int64_t units) {
  constexpr std::int64_t kFirstChipUnit = 2;
  const std::int64_t chip = units - kFirstChipUnit;
  if (chip < 0 || chip >= kChipCount) return MoneyAmount();
  const PayRow& row = game.PayTable[static_cast<std::size_t>(game.CurrentBet)];
  return Product(game.BetAmount[kFirstChip + static_cast<int>(chip)], row.PayDenominator);
}

void TakeDownBet(Game& game) {
  Request(game, -AmountNow(game));
  RebuildChips(game, game.CurrentBet);
  game.MustComeDown = false;
}

void KeepSameBet(Game& game) {
  Request(game, MoneyAmount());
  if (AmountNow(game) == AtRollStart(game, game.CurrentBet)) return;
  RebuildChips(game, game.CurrentBet);
  Report(game, "");
}

void BetRemainder(Game& game) {
  const MoneyAmount rest = game.PayoffNet + AtRollStart(game, game.CurrentBet);
  Request(game, -AmountNow(game));
  Request(game, rest);
  RebuildChips(game, game.CurrentBet);
}

void PressOneUnit(Game& game) {
  Request(game, game.PressUnit);
  RebuildChips(game, game.CurrentBet);
  Report(game, "Press 1 Unit ");
}

void PressDouble(Game& game) {
  Request(game, AmountNow(game));
  RebuildChips(game, game.CurrentBet);
  Report(game, "Press Double ");
}

void ParlayBet(Game& game) {
  {
    const DecreasingBiases decreasing(game);
    Request(game, game.PayoffNet);
  }
  RebuildChips(game, game.CurrentBet);
  Report(game, "Parlay ");
}

void ModifySameBet(Game& game, int option) {
  MoneyAmount change;
  try {
    change = ChangeOfSameBet(game, option, AtRollStart(game, game.CurrentBet));
  } catch (const MoneyOverflow&) {
    const bool less = game.HandleChoiceTag[Cell(option)] == kSubtract;
    change = less ? -kBeyondAnyBet : kBeyondAnyBet;
  }
  Request(game, change);
  RebuildChips(game, game.CurrentBet);
  Report(game, "");
}

void SetBetAmount(Game& game, int option) {
  Request(game, -AmountNow(game));
  const std::int64_t units = UnitsOf(game, option);
  MoneyAmount amount = kBeyondAnyBet;
  try {
    amount = Product(game.HandleAmount[Cell(option)],
                     units > kDollars ? ChipUnit(game, units) : MoneyAmount(1));
  } catch (const MoneyOverflow&) {
  }
  Request(game, amount);
  RebuildChips(game, game.CurrentBet);
  Report(game, "");
}

}  // namespace feltmaster
