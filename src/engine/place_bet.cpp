#include "engine/place_bet.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <utility>

#include "autobet/message.h"
#include "base/number_format.h"
#include "engine/amounts.h"
#include "engine/bet_limits.h"
#include "engine/bet_notes.h"
#include "engine/bet_states.h"
#include "engine/chip_list.h"
#include "engine/entry_box.h"
#include "engine/table_effects.h"

namespace feltmaster {
namespace {

// The largest amount of a Chip-Stack either way: below 10^14.
constexpr MoneyAmount kStackLimit = MoneyAmount::FromRaw(999'999'999'999'999'999);
// No limit of the table reaches as far as this, and sums with it stay within range.
constexpr MoneyAmount kMostAskedFor = kStackLimit.Times(2);
// Bets on numbers have room for a stack alone, not for chips put down beside each other.
constexpr int kLastOnNumbers = kBuy + kSlotCount - 1;
constexpr MoneyAmount kMostOdds = MoneyAmount::FromWhole(9'999'999);

// Holds another value in a setting and puts the old one back, whatever happens.
template <typename T>
class Temporarily {
 public:
  Temporarily(T& setting, T value) : setting_(setting), old_(std::exchange(setting, value)) {}
  ~Temporarily() { setting_ = old_; }
  Temporarily(const Temporarily&) = delete;
  Temporarily& operator=(const Temporarily&) = delete;

 private:
  T& setting_;
  T old_;
};

// What became of a request: refused, or told to the player in a message; else it passed quietly.
enum class Outcome : std::uint8_t { kQuiet, kTold, kRefused };

enum class Refusal : std::uint8_t {
  kNone,
  kComeNeedsPoint,
  kOddsNeedPassLine,
  kOddsNeedCome,
  kPutNotAllowed,
  kPassLineStands,
  kComeStands,
};

int FlatBetOf(int odds_bet) {
  return odds_bet == kPassOdds ? kPassLine : odds_bet - kComeOdds + kComePoint;
}

bool Stands(const Game& game, int bet) {
  return game.BetAmount[bet].Raw() != 0;
}

// A Pass Line or Come bet whose point is set: a contract until it is decided.
bool IsEstablished(const Game& game, int bet) {
  return (bet == kPassLine && game.Point != 0) || IsComePoint(bet);
}

Refusal WhyNotIncrease(const Game& game, int bet) {
  if (bet == kComeBox && game.Point == 0) return Refusal::kComeNeedsPoint;
  if (bet == kPassOdds && (!Stands(game, kPassLine) || game.Point == 0)) {
    return Refusal::kOddsNeedPassLine;
  }
  if (IsComeOdds(bet) && !Stands(game, FlatBetOf(bet))) return Refusal::kOddsNeedCome;
  const bool put = IsEstablished(game, bet) && !game.AllowPutBets && !game.PutBetAllowedNow;
  return put ? Refusal::kPutNotAllowed : Refusal::kNone;
}

Refusal WhyNotDecrease(const Game& game, int bet) {
  if (!IsEstablished(game, bet) || game.BetAmount[bet] > Established(game, bet)) {
    return Refusal::kNone;
  }
  return bet == kPassLine ? Refusal::kPassLineStands : Refusal::kComeStands;
}

std::string RefusalText(const Game& game, int bet, Refusal refusal) {
  switch (refusal) {
    case Refusal::kComeNeedsPoint:
      return "You may not make a Come bet until \na point is established.";
    case Refusal::kOddsNeedPassLine:
      return "You may not make a Pass Line Odds Bet unless \n"
             "you also have a Pass Line bet and a point is established.";
    case Refusal::kOddsNeedCome:
      return "You may not make an odds bet here until \nyou have established a " +
             NameOfBet(game, FlatBetOf(bet)) + " bet.";
    case Refusal::kPutNotAllowed:
      return "You may not directly make or increase an\nestablished Pass Line or Come bet.\n\n"
             "(Unless you check \"Allow Put Bets\" on\nthe Configuration screen.)";
    case Refusal::kPassLineStands:
      return "You may not decrease or remove your Pass Line bet \n"
             "once a point has been established.";
    case Refusal::kComeStands:
      return "You may not decrease or remove Come bets \n"
             "once their points have been established.";
    case Refusal::kNone:
      break;
  }
  return {};
}

[[gnu::noinline]] Outcome Refuse(Game& game, int bet, Refusal refusal) {
  game.BetChange = MoneyAmount();
  if (Notifies(game, kNoticeActions)) {
    Tell(game, TitleOfBet(game, bet), RefusalText(game, bet, refusal), kButtonOk | kHideActions);
  }
  return Outcome::kRefused;
}

// Away from zero for an increase, and a decrease takes a little more.
MoneyAmount RoundToUnit(MoneyAmount change, MoneyAmount unit) {
  if (IsMultipleOf(change, unit)) return change;
  const MoneyAmount floor = FloorToUnit(change, unit);
  return change.Raw() > 0 ? floor + unit : floor;
}

// TotalOnTable with the change, and with the vig that the bet would then be charged up front.
MoneyAmount TotalWith(Game& game, int bet, MoneyAmount change) {
  MoneyAmount total = game.TotalOnTable + change;
  if (ChargesVigUpFront(game, bet)) {
    total += VigOf(game, bet, game.BetAmount[bet] + change) - StandingVig(game, bet);
  }
  return total;
}

// The largest change, whole units below BetChange, that the bankroll carries; at the least the bet
// comes down. Every unit that the bet gives up frees one unit or, with its vig, more: so the number
// of units is found by halving.
MoneyAmount AffordableChange(Game& game, int bet) {
  const MoneyAmount change = game.BetChange;
  const MoneyAmount amount = game.BetAmount[bet];
  const MoneyAmount bankroll = game.BetAmount[kBankroll];
  const MoneyAmount missing = TotalWith(game, bet, change) - bankroll;
  const MoneyAmount can_give = amount + change;
  if (missing.Raw() <= 0 || can_give.Raw() <= 0) return change;

  const MoneyAmount unit = BettingUnit(game);
  const auto less = [&](std::int64_t units) {
    return std::max(change - unit.Times(units), -amount);
  };
  std::int64_t too_few = 0;
  std::int64_t enough = UnitsIn(std::min(missing, can_give), unit) + 1;
  while (enough - too_few > 1) {
    const std::int64_t middle = too_few + (enough - too_few) / 2;
    if (TotalWith(game, bet, less(middle)) <= bankroll) {
      enough = middle;
    } else {
      too_few = middle;
    }
  }
  return less(enough);
}

std::string ShortBankrollText(const Game& game, int bet, const BetNotes& notes) {
  std::string text = notes.Text();
  if (!text.empty()) text += "\n\n";
  text +=
      "You don't have enough bankroll remaining to bet the full amount requested.\n\n"
      "Your options are: \n";
  if (game.TotalOnTable > game.BetAmount[bet]) text += "      - Bet less on other bets.\n";
  text +=
      "      - Make a withdrawal from the ATM.\n"
      "      - Allow negative bankroll amounts.";
  return text;
}

// Brings BetChange within the bankroll. True when the player was told of it.
[[gnu::noinline]] bool FitToBankroll(Game& game, int bet, const BetNotes& limits, BetNotes& notes) {
  const MoneyAmount affordable = AffordableChange(game, bet);
  if (affordable == game.BetChange) return false;
  game.BetChange = affordable;
  const MoneyAmount amount = game.BetAmount[bet];
  game.MaxBetHere = amount + affordable;
  notes = limits;
  if (game.AutoAdjustBetAmounts > kAdjustManually) AutoAdjustBet(game, bet, notes);
  const MoneyAmount result = amount + game.BetChange;
  if (result.Raw() > 0 && result < game.MinBetHere) {
    notes.Replace(BetNotes::kMinimumBet, game.MinBetHere);
    game.BetChange = -amount;
  }
  const bool told = Notifies(game, kNoticeLimits);
  if (told) {
    Tell(game, TitleOfBet(game, bet), ShortBankrollText(game, bet, notes), kButtonOk | kHideLimits);
  }
  notes.Clear();
  return told;
}

[[gnu::noinline]] bool TellNotes(Game& game, int slot, const BetNotes& notes) {
  if (notes.Empty() || !Notifies(game, kNoticeLimits)) return false;
  const bool granted = game.BetChange.Raw() != 0;
  std::string text = notes.Text();
  std::string title;
  if (IsStackSlot(slot)) {
    text += granted ? "\nwhich is being stacked." : "\nwhich is already stacked.";
    title = "Chip-Stack #" + std::to_string(slot - kFirstStack);
  } else {
    if (!notes.TellUnable()) {
      text += granted ? "\nwhich is being bet." : "\nwhich is already bet.";
    }
    title = TitleOfBet(game, slot);
  }
  Tell(game, std::move(title), std::move(text), kButtonOk | kHideLimits);
  return true;
}

std::string VigText(bool up_front, MoneyAmount old_vig, MoneyAmount new_vig) {
  if (old_vig.Raw() > 0 && new_vig.Raw() == 0 && up_front) {
    return "\"Vig\" charge returned: $" + FormatMoney(old_vig);
  }
  std::string text;
  if (old_vig.Raw() > 0 && new_vig > old_vig) {
    text = "\"Vig\" increased by: $" + FormatMoney(new_vig - old_vig) + "\n\n";
  } else if (old_vig.Raw() > 0 && new_vig.Raw() != 0) {
    text = "\"Vig\" decreased by: $" + FormatMoney(old_vig - new_vig) + "\n\n";
  }
  text += up_front ? "Total \"Vig\" charge: $" : "If you win, the \"Vig\" charge will be: $";
  return text + FormatMoney(new_vig);
}

// The table takes over BetChange. Everything that can fail is computed before anything is written.
// True when the player was told of a vig.
bool ApplyChange(Game& game, int bet) {
  const MoneyAmount amount = game.BetAmount[bet] + game.BetChange;
  const bool has_vig = HasVig(bet);
  const MoneyAmount new_vig = has_vig ? VigOf(game, bet, amount) : MoneyAmount();
  const bool up_front = ChargesVigUpFront(game, bet);
  MoneyAmount total = game.TotalOnTable + game.BetChange;
  if (up_front) total += new_vig - StandingVig(game, bet);

  if (game.BetChange.Raw() != 0) {
    game.BetAmount.Set(bet, amount);
    game.GameChanged = true;
  }
  game.TotalOnTable = total;
  if (amount.Raw() == 0) ResetBetState(game, bet);
  if (!has_vig) return false;

  const MoneyAmount old_vig = StandingVig(game, bet) + std::exchange(game.VigCarried, {});
  StandingVig(game, bet) = new_vig;
  if (new_vig == old_vig || !(up_front || new_vig.Raw() > 0)) return false;
  if (!Notifies(game, kNoticeCharges)) return false;
  Tell(game, TitleOfBet(game, bet), VigText(up_front, old_vig, new_vig), kButtonOk | kHideCharges);
  return true;
}

[[gnu::noinline]] Outcome StackChips(Game& game, int stack) {
  const MoneyAmount held = game.BetAmount[stack];
  const MoneyAmount wanted = held + game.BetChange;
  BetNotes notes;
  if (Abs(wanted) > kStackLimit) {
    const bool over = wanted.Raw() > 0;
    const MoneyAmount limit = over ? kStackLimit : -kStackLimit;
    game.BetChange = limit - held;
    notes.Add(over ? BetNotes::kStackMaximum : BetNotes::kStackMinimum, limit);
  }
  game.MaxBetHere = kStackLimit;
  const bool told = TellNotes(game, stack, notes);
  game.MsgText.clear();
  if (game.BetChange.Raw() != 0) {
    game.BetAmount.Set(stack, held + game.BetChange);
    game.GameChanged = true;
  }
  return told ? Outcome::kTold : Outcome::kQuiet;
}

Outcome ApplyRequest(Game& game, int bet) {
  const MoneyAmount request = std::clamp(game.BetRequest, -kMostAskedFor, kMostAskedFor);
  game.BetChange = request;
  game.MsgText.clear();
  if (IsStackSlot(bet)) return StackChips(game, bet);
  if (!IsLayoutBet(bet)) {
    game.BetChange = MoneyAmount();
    return Outcome::kQuiet;
  }
  const MoneyAmount unit = BettingUnit(game);
  if (unit.Raw() <= 0) throw MoneyDivisionByZero();
  const MoneyAmount amount = game.BetAmount[bet];
  game.BetChange = std::max(RoundToUnit(request, unit), -amount);

  if (game.BetChange.Raw() > 0) {
    const Refusal refusal = WhyNotIncrease(game, bet);
    if (refusal != Refusal::kNone) return Refuse(game, bet, refusal);
  }
  if (game.BetChange.Raw() < 0) {
    const Refusal refusal = WhyNotDecrease(game, bet);
    if (refusal != Refusal::kNone) return Refuse(game, bet, refusal);
    if (IsEstablished(game, bet)) {
      game.BetChange = std::max(game.BetChange, Established(game, bet) - amount);
    }
  }

  BetNotes notes;
  const MoneyAmount wanted = amount + request;
  ComputeLimits(game, bet);
  if (wanted.Raw() > 0 && wanted < game.MinBetHere) {
    if (game.BetChange.Raw() > 0) {
      game.BetChange = game.MinBetHere - amount;
      notes.Replace(BetNotes::kMinimumBet, game.MinBetHere);
    } else if (game.BetChange.Raw() < 0) {
      game.BetChange = -amount;
    }
  }
  if (wanted > game.MaxBetHere) {
    game.BetChange = game.MaxBetHere - amount;
    notes.Replace(BetNotes::kMaximumBet, game.MaxBetHere);
  }
  const bool adjusts = game.AutoAdjustBetAmounts > kAdjustManually;
  bool told = false;
  if (game.AllowNegBankroll) {
    if (adjusts) AutoAdjustBet(game, bet, notes);
  } else {
    const BetNotes limits = notes;
    if (adjusts) AutoAdjustBet(game, bet, notes);
    told = FitToBankroll(game, bet, limits, notes);
  }
  if (!notes.Empty()) told = TellNotes(game, bet, notes) || told;
  game.MsgText.clear();
  told = ApplyChange(game, bet) || told;
  return told ? Outcome::kTold : Outcome::kQuiet;
}

// A flat bet has changed: odds that have grown too high for it come down, and with the setting on
// its full odds are taken.
void FollowWithOdds(Game& game, int flat_bet) {
  if (!IsEstablished(game, flat_bet)) return;
  const int odds = flat_bet == kPassLine ? kPassOdds : flat_bet - kComePoint + kComeOdds;
  ComputeMaxBet(game, odds);
  if (!game.AutoTakeFullOdds && game.BetAmount[odds] <= game.MaxBetHere) return;
  const MoneyAmount change = game.BetChange;
  TakeFullOdds(game, odds);
  game.BetChange = change;
}

// Whether the change is one chip of the player's hand, which lies where it was put.
bool IsOneChip(const Game& game, int slot) {
  const bool chip_selected = game.ChipColor >= 1 && game.ChipColor <= kChipCount;
  return chip_selected && slot > kLastOnNumbers && slot < kFirstChip &&
         game.BetRequest.Raw() >= 0 && game.BetChange == game.BetRequest &&
         game.DragAmount.Raw() == 0 && !game.KeyInBetAmounts && !game.AutoArrangeChips;
}

[[gnu::noinline]] void ShowPlaced(Game& game, int slot, std::optional<Pixel> pointer) {
  if (game.BetChange.Raw() != 0 && !game.AutoBetRunning) {
    PlayChosenClip(game, game.ChipSoundList, game.ChipSoundChoice, false);
  }
  if (game.DisplayBetAmounts) game.RefreshBetAmounts = true;
  if (!pointer || !IsOneChip(game, slot)) {
    RebuildChips(game, slot);
  } else if (game.BetChange.Raw() > 0) {
    AddChip(game, slot, *pointer);
  }
  if (IsStackSlot(slot)) game.surface->RefreshOpenScreens();
}

Outcome PlaceVisibly(Game& game, int slot, std::optional<Pixel> pointer = std::nullopt) {
  const Outcome outcome = ApplyRequest(game, slot);
  if (!game.HyperDriveActive) ShowPlaced(game, slot, pointer);
  if (game.BetChange.Raw() != 0) FollowWithOdds(game, slot);
  if (game.CallBetMode != 0) {
    game.CallBetMode = 0;
    ShowTableChange(game, kChangedPrompt);
  }
  return outcome;
}

void PutIntoState(Game& game, int bet, int on_off) {
  const int opposite = on_off == kCallOn ? kCalledOff : kCalledOn;
  if (game.BetState[bet] == opposite) {
    ResetBetState(game, bet);
  } else {
    game.BetState.Set(bet, on_off == kCallOn ? kCalledOn : kCalledOff);
  }
}

void TellNotAllowed(Game& game, int slot, std::string text) {
  if (!Notifies(game, kNoticeActions)) return;
  std::string title = IsLayoutBet(slot) ? TitleOfBet(game, slot) : NameOfBet(game, slot);
  Tell(game, std::move(title), std::move(text), kButtonOk | kHideActions);
}

// Why the ATM did not move the full amount: the bank's limit, or the player's own money.
std::string PastBankLimitText(bool withdraws) {
  const MoneyAmount limit = MoneyAmount::FromWhole(withdraws ? kBankLimit : -kBankLimit);
  return std::string(withdraws ? "caused the" : "caused your") +
         " current bankroll to exceed the bank limit of $" + FormatMoney(limit);
}

std::string PastOwnMoneyText(const Game& game, bool from_configure) {
  const bool bets_stand = game.TotalOnTable.Raw() > 0;
  std::string text =
      bets_stand ? "caused your current bankroll to drop below the amount of your current bets."
                 : "resulted in a negative current bankroll.";
  text +=
      "\n\nYou can deposit more by checking the box marked, \"Allow negative bankroll amounts\"";
  if (!from_configure) text += " on the Configuration screen";
  return text + (bets_stand ? ", and/or by reducing the amount of your current bets." : ".");
}

// LiftBet within BetAnew, which a script calls for most of its bets: a call less for each.
[[gnu::always_inline]] inline MoneyAmount Lift(Game& game, int slot) {
  MoneyAmount vig;
  if (IsLayoutBet(slot)) {
    const bool up_front = ChargesVigUpFront(game, slot);
    if (up_front) vig = StandingVig(game, slot);
    game.TotalOnTable -= game.BetAmount[slot] + vig;
    if (up_front) StandingVig(game, slot) = MoneyAmount();
  }
  game.BetAmount.Set(slot, MoneyAmount());
  return vig;
}

}  // namespace

void PlaceBet(Game& game, int bet) {
  ApplyRequest(game, bet);
}

void PlaceChips(Game& game, int bet, std::optional<Pixel> pointer) {
  PlaceVisibly(game, bet, pointer);
}

void TakeFullOdds(Game& game, int bet) {
  const Temporarily<std::int32_t> silence(game.NotifyFlags, 0);
  game.BetRequest = -game.BetAmount[bet];
  PlaceBet(game, bet);
  game.BetRequest = kMostOdds;
  PlaceBet(game, bet);
  RebuildChips(game, bet);
}

void TakeAllFullOdds(Game& game) {
  if (Stands(game, kPassLine) && game.Point != 0) TakeFullOdds(game, kPassOdds);
  for (int slot = 0; slot < kSlotCount; ++slot) {
    if (Stands(game, kComePoint + slot)) TakeFullOdds(game, kComeOdds + slot);
  }
}

void TakeDownBetQuietly(Game& game, int bet) {
  game.BetRequest = -game.BetAmount[bet];
  PlaceChips(game, bet);
}

void MoveComeBet(Game& game, int from, int to) {
  const MoneyAmount amount = game.BetAmount[from];
  if (amount.Raw() <= 0) return;
  const Temporarily<bool> mute(game.AllSoundOff, true);
  game.BetRequest = -amount;
  PlaceBet(game, from);
  RebuildChips(game, from);
  {
    const Temporarily<bool> put(game.PutBetAllowedNow, true);
    game.BetRequest = amount;
    PlaceChips(game, to);
  }
  SetEstablished(game, to, amount);
  if (IsComePoint(to) && game.AutoRemovePlaceBets) {
    TakeDownBetQuietly(game, to - kComePoint + kPlace);
    TakeDownBetQuietly(game, to - kComePoint + kBuy);
  }
}

void BuyPlaceBet(Game& game, int bet) {
  if (!Stands(game, bet) || IsBuy(bet)) return;
  if (!IsPlace(bet)) {
    TellNotAllowed(game, bet,
                   IsLayoutBet(bet) ? "You may not buy this bet." : "You may not buy Chip-Stacks.");
    return;
  }
  const int buy = bet - kPlace + kBuy;
  const int state = game.BetState[bet];
  if (state == kCalledOn || state == kCalledOff) game.BetState.Set(buy, state);
  const MoneyAmount amount = game.BetAmount[bet];
  game.BetRequest = -amount;
  PlaceBet(game, bet);
  RebuildChips(game, bet);
  game.BetRequest = amount - game.BetAmount[buy];
  PlaceChips(game, buy);
  MoveEntryBox(game, buy);
}

void CallBet(Game& game, int bet, int on_off) {
  if (!Stands(game, bet)) return;
  if (!IsLayoutBet(bet)) {
    TellNotAllowed(game, bet, "You may not call Chip-Stacks ON or OFF.");
    return;
  }
  const bool bound =
      bet == kPassLine || (bet >= BetOnNumber(kComePoint, 4) && bet <= BetOnNumber(kComePoint, 10));
  if (bound) {
    TellNotAllowed(game, bet, "You may not call this bet ON or OFF.");
    return;
  }
  PutIntoState(game, bet, on_off);
  game.GameChanged = true;
  ShowTableChange(game, kChangedChips | kChangedStatus);
}

void CallAllBets(Game& game, int on_off) {
  for (int bet = 1; bet <= kBetCount; ++bet) {
    if (!Stands(game, bet) || bet == kPassLine || IsComePoint(bet)) continue;
    PutIntoState(game, bet, on_off);
  }
  ShowTableChange(game, kChangedAmounts | kChangedChips | kChangedStatus);
  game.GameChanged = true;
}

void RemoveAllBets(Game& game) {
  const Temporarily<std::int32_t> silence(game.NotifyFlags, 0);
  for (int bet = 1; bet <= kBetCount; ++bet) {
    game.BetRequest = -game.BetAmount[bet];
    PlaceBet(game, bet);
    RebuildChips(game, bet);
  }
}

void AdjustAllBets(Game& game) {
  const Temporarily<std::int32_t> silence(game.NotifyFlags, 0);
  for (int bet = 1; bet <= kBetCount; ++bet) {
    if (!Stands(game, bet)) continue;
    game.BetRequest = MoneyAmount();
    PlaceBet(game, bet);
    if (game.BetChange.Raw() != 0) RebuildChips(game, bet);
  }
}

MoneyAmount LiftBet(Game& game, int slot) {
  return Lift(game, slot);
}

void BetAnew(Game& game, int slot, MoneyAmount amount) {
  if (slot == kPassLine || IsComePoint(slot)) {
    game.BetRequest = amount - game.BetAmount[slot];
  } else {
    const bool vig_stands = ChargesVigUpFront(game, slot);
    const MoneyAmount vig = Lift(game, slot);
    if (vig_stands) game.VigCarried = vig;
    game.BetRequest = amount;
  }
  PlaceVisibly(game, slot);
}

bool CommitEnteredBet(Game& game) {
  if (!game.EntryBoxEdited) return true;
  const int slot = game.EntryBoxBet;
  if (!IsLayoutBet(slot) && !IsChipStack(slot)) return true;
  const MoneyAmount entered = ParseMoney(game.EntryBoxText);
  ResetEntryBox(game);
  if (entered == game.BetAmount[slot]) return true;
  if (slot == kPassLine || IsComePoint(slot)) {
    game.BetRequest = entered - game.BetAmount[slot];
  } else {
    LiftBet(game, slot);
    game.BetRequest = entered;
  }
  return PlaceVisibly(game, slot) == Outcome::kQuiet;
}

void ATMTransaction(Game& game, Atm direction, MoneyAmount amount, bool from_configure) {
  const MoneyAmount limit = MoneyAmount::FromWhole(kBankLimit);
  const MoneyAmount bankroll = game.BetAmount[kBankroll];
  const bool withdraws = direction == Atm::kWithdraw;
  const bool own_money = !withdraws && !game.AllowNegBankroll;
  MoneyAmount most = withdraws ? limit - bankroll : bankroll + limit;
  if (own_money) most = bankroll - game.TotalOnTable;
  most = std::max(most, MoneyAmount());

  const MoneyAmount allowed = std::min(amount, most);
  const MoneyAmount moved = withdraws ? allowed : -allowed;
  const MoneyAmount invested = game.AmountInvested + moved;
  game.BetAmount.Set(kBankroll, bankroll + moved);
  game.AmountInvested = invested;
  game.GameChanged = true;
  ShowTableChange(game, kChangedStatus);

  if (allowed == amount) return;
  if (!from_configure && !Notifies(game, kNoticeActions)) return;
  Tell(game, withdraws ? "ATM Withdrawal" : "ATM Deposit",
       "Requested amount:  $" + FormatMoney(amount) + "\nAllowed amount:  $" +
           FormatMoney(allowed) +
           "\n\nThe full amount of this transaction was not allowed since it would have " +
           (own_money ? PastOwnMoneyText(game, from_configure) : PastBankLimitText(withdraws)),
       from_configure ? kButtonOk : kButtonOk | kHideActions);
}

void LiftForDrag(Game& game, int from) {
  game.BetRequest = -game.BetAmount[from];
  PlaceChips(game, from);
  // What the house does not give back cannot be dragged.
  game.DragAmount = -game.BetChange;
}

void DropDragged(Game& game, int to) {
  if (game.DragAmount.Raw() != 0 && (IsLayoutBet(to) || IsChipStack(to))) {
    game.BetRequest = game.DragAmount;
    PlaceChips(game, to);
  }
  game.DragAmount = MoneyAmount();
}

}  // namespace feltmaster
