#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/money.h"
#include "game/bet_sets.h"
#include "game/bet_state.h"
#include "game/bets.h"

namespace feltmaster {

// All money of the table: slot 0 the bankroll, 1 to 88 the bets, 95 to 99 the denominations,
// 100 + n Chip-Stack n. Every write goes through Set, which also keeps the set of standing bets and
// the slots that differ from the copies taken at the start and at the end of a roll.
class BetAmounts {
 public:
  MoneyAmount operator[](int slot) const { return amounts_[static_cast<std::size_t>(slot)]; }
  void Set(int slot, MoneyAmount amount) {
    amounts_[static_cast<std::size_t>(slot)] = amount;
    const bool stands = amount.Raw() != 0;
    slot < kFirstStack ? standing_.Put(slot, stands) : stacked_.Put(slot - kFirstStack, stands);
    changed_since_end_.Add(slot);
    touched_ = true;
  }

  // Slots below the Chip-Stacks that hold anything; mask with the bets asked for.
  const BetSet& Standing() const { return standing_; }
  // The Chip-Stacks that hold anything, by their own numbers.
  const StackSet& Stacked() const { return stacked_; }

  // The slots that may differ from the copy taken at the end of the last roll.
  AmountSet& ChangedSinceEnd() { return changed_since_end_; }
  // The slots that may differ from the copy taken at its start: these, and those that the roll
  // itself has changed.
  AmountSet ChangedSinceStart() const { return changed_in_roll_ | changed_since_end_; }
  void MarkForRollStart(int slot) {
    changed_in_roll_.Add(slot);
    touched_ = true;
  }
  // False when no slot can differ from either copy: most rolls of a player who waits.
  bool Touched() const { return touched_; }
  // The copies have been taken.
  void RollStarted() {
    changed_in_roll_.Clear();
    touched_ = !changed_since_end_.Empty();
  }
  void RollEnded() {
    changed_in_roll_ = changed_in_roll_ | changed_since_end_;
    changed_since_end_.Clear();
  }

 private:
  std::array<MoneyAmount, kAmountSlots> amounts_{};
  BetSet standing_;
  StackSet stacked_;
  AmountSet changed_in_roll_;  // what a roll has changed, until the next one starts
  AmountSet changed_since_end_;
  bool touched_ = false;  // some slot may be in one of the two sets
};

// The runs of wins (positive) and losses (negative) of each bet: now, and as they stood before the
// present roll.
class BetStreaks {
 public:
  int Now(int bet) const { return now_[static_cast<std::size_t>(bet)]; }
  int Before(int bet) const { return before_[static_cast<std::size_t>(bet)]; }
  void SetNow(int bet, int run) {
    now_[static_cast<std::size_t>(bet)] = run;
    running_.Put(bet, run != 0);
    changed_.Add(bet);
  }
  void SetBefore(int bet, int run) {
    before_[static_cast<std::size_t>(bet)] = run;
    changed_.Add(bet);
  }
  // The bets with a run, and those whose run may differ from what it was.
  const BetSet& Running() const { return running_; }
  const BetSet& Changed() const { return changed_; }
  // A new roll begins: generation 1 becomes generation 0, for the bets of the layout.
  void BeginRoll() {
    if (changed_.Empty()) return;
    changed_.ForEach([this](int bet) {
      if (bet <= kBetCount)
        before_[static_cast<std::size_t>(bet)] = now_[static_cast<std::size_t>(bet)];
    });
    changed_.Clear();
  }

 private:
  std::array<std::int32_t, 101> now_{};
  std::array<std::int32_t, 101> before_{};
  BetSet running_;
  BetSet changed_;
};

// A chip as it lies on the picture of the table: 1 to 5 a denomination, 6 the marker of a stack
// that chips cannot show. A bet of 0 marks one that has been taken away.
struct TableChip {
  std::int32_t bet = 0;
  std::int32_t chip = 0;
  std::int32_t x = 0;
  std::int32_t y = 0;
};
inline constexpr std::size_t kMaxTableChips = 1000;

// Ends of Hyper-Drive that more than one place has to know, as HyperDriveStopText tells them.
inline constexpr std::string_view kStoppedByScript = "Stopped by Auto-Bet command.";
inline constexpr std::string_view kStoppedByRollCount =
    "Stopped by roll count on Auto-Play screen.";
inline constexpr std::string_view kStoppedByScriptError = "Auto-Bet error.";

struct TableState {
  BetAmounts BetAmount;
  std::array<MoneyAmount, kAmountSlots> BetAmountAtRollStart{};
  std::array<MoneyAmount, kAmountSlots> BetAmountAtRollEnd{};
  // Bets 11 to 51; the floor below which Pass Line and Come bets cannot be reduced. Write it
  // through SetEstablished (engine/amounts.h), which marks the slot for the next roll's copy.
  std::array<MoneyAmount, 52> EstablishedAmount{};
  std::array<MoneyAmount, kSlotCount> LayVigPaid{};
  std::array<MoneyAmount, kSlotCount> BuyVigPaid{};
  BetStates BetState;
  BetStreaks BetStreak;
  std::vector<TableChip> ChipList;  // at most kMaxTableChips

  std::int32_t Die1 = 3;
  std::int32_t Die2 = 4;
  std::int32_t DiceTotal = 7;
  std::int32_t Point = 0;
  std::int32_t PrevPoint = 0;      // Point when the present roll began; resolution judges by it
  std::int32_t PrevPrevPoint = 0;  // PrevPoint one roll earlier

  MoneyAmount TotalOnTable;
  MoneyAmount PayoffExact;
  MoneyAmount PayoffNet;
  std::int32_t CurrentBet = 0;
  bool MustComeDown = false;
  MoneyAmount PressUnit;

  MoneyAmount BetRequest;
  MoneyAmount BetChange;
  MoneyAmount MinBetHere;
  MoneyAmount MaxBetHere;
  MoneyAmount OddsMultiple;
  MoneyAmount OddsChangeUp;
  MoneyAmount OddsChangeDown;
  MoneyAmount BuyVigAmount;
  MoneyAmount LayVigAmount;
  MoneyAmount VigCarried;
  bool PutBetAllowedNow = false;
  std::int32_t CallBetMode = 0;  // 0 a chip, 1 call ON, 2 call OFF, 3 buy, 4 remove
  MoneyAmount DragAmount;

  bool RollInProgress = false;
  bool KeepRolling = false;
  bool HyperDriveActive = false;
  bool GameChanged = false;
  bool DiceAlreadySet = false;
  bool DiceReturned = true;
  bool RefreshBetAmounts = false;
  bool RedrawTable = false;
  std::string HyperDriveStopText;

  // The box for keyed-in amounts (engine/entry_box.h). The text counts once it was edited.
  std::int32_t EntryBoxBet = kLay;
  std::string EntryBoxText;
  bool EntryBoxEdited = false;

  std::int32_t HitBet = 0;  // what is under the pointer; table/layout.h knows the values
  // Where the walk of the arrow keys comes back to.
  std::int32_t LastStackBet = kFirstStack + 1;
  std::int32_t LastPanelBet = kHard8;
  std::int32_t LastGridColumn = 1;  // the number slot + 1
  std::int32_t LastGridRow = kLay;  // the first bet of a row of the grid, or 51, 52, 53 or 55
};

// One decision of a bet of the player's own, in the order in which the roll decided them.
struct BetDecision {
  std::int32_t bet = 0;
  MoneyAmount amount;
  MoneyAmount net;
};
struct RollDecisions {
  std::int32_t count = 0;
  std::array<BetDecision, kBetCount> list{};
};

// One row of the settle display: a label and an amount as shown.
struct SettleRow {
  std::string label;
  std::string amount;
  bool bold = false;
};
struct SettleDisplay {
  std::string title;
  std::vector<SettleRow> rows;
  std::int32_t help = 0;
  bool won = true;
  bool filled = false;
};

}  // namespace feltmaster
