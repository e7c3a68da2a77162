#include "table/table_input.h"

#include <utility>

#include "autobet/hot_keys.h"
#include "automation/auto_play.h"
#include "automation/table_guards.h"
#include "engine/entry_box.h"
#include "engine/place_bet.h"
#include "engine/roll_cycle.h"
#include "engine/sounds.h"
#include "engine/table_effects.h"
#include "files/roll_recorder.h"
#include "table/calls.h"
#include "table/key_walk.h"
#include "table/table_commands.h"

namespace feltmaster {

namespace {

bool IsBetOrStack(int slot) {
  return IsLayoutBet(slot) || IsChipStack(slot);
}

// What a press with the selected tool asks for: a chip or the amount of a Chip-Stack.
MoneyAmount ToolAmount(const Game& game) {
  if (IsChipTool(game.ChipColor))
    return game.BetAmount[kFirstChip - kFirstChipTool + game.ChipColor];
  if (!IsPileTool(game.ChipColor)) return {};
  const auto pile = static_cast<std::size_t>(game.ChipColor - kFirstPileTool + 1);
  return game.BetAmount[game.StackSlots[pile]];
}

void SelectTool(Game& game, int tool) {
  game.ChipColor = tool;
  ShowTableChange(game, kChangedTool);
}

void PressPanelCorner(Game& game, Pixel at) {
  if (at.y > kPanelSwitchBelow) {
    SwitchPanel(game);
  } else {
    StickCall(game, kClipGreeting);
  }
}

void BetWithTool(Game& game, int slot, Pixel at, Modifiers held) {
  if (held.shift) {
    game.BetRequest = -game.BetAmount[slot];
  } else if (game.ChipColor == kBuyTool) {
    BuyPlaceBet(game, slot);
    return;
  } else if (game.ChipColor == kCallOffTool || game.ChipColor == kCallOnTool) {
    CallBet(game, slot, game.ChipColor);
    return;
  } else {
    const MoneyAmount amount = ToolAmount(game);
    game.BetRequest = held.ctrl ? -amount : amount;
  }
  PlaceChips(game, slot, at);
}

void PressLeft(Game& game, Hit hit, Pixel at, Modifiers held) {
  const bool on_bet = IsBetOrStack(hit.bet);
  if (hit.bet == kHitRecorder) {
    DiceRollStopped(game);
    return;
  }
  if (hit.bet == kHitFelt) {
    CancelCall(game);
    return;
  }
  if (on_bet && game.CallBetMode > 0) {
    CarryOutCall(game, hit.bet);
    return;
  }
  if (hit.bet == kHitPanelCorner) {
    PressPanelCorner(game, at);
    return;
  }
  if (on_bet) {
    MoveEntryBox(game, hit.bet);
    if (EntryBoxOpen(game)) return;
  }
  ReturnDice(game);
  if (on_bet && held.alt) {
    LiftForDrag(game, hit.bet);
  } else if (hit.tool != kNoTool) {
    SelectTool(game, hit.tool);
  } else if (on_bet) {
    BetWithTool(game, hit.bet, at, held);
  }
}

bool IsTyped(const Game& game, KeyPress key) {
  return EntryBoxOpen(game) && key.key == Key::kCharacter && !key.ctrl;
}

// The box shows its amount selected, so the first key replaces it.
void TypeInEntryBox(Game& game, char character) {
  const std::string text = game.EntryBoxEdited ? game.EntryBoxText : std::string();
  FieldKey field = FilterEntryKey(game, {text, text.size()}, character);
  if (field.text != text) EditEntryBox(game, std::move(field.text));
}

bool WalkEntryBox(Game& game, Arrow arrow) {
  if (!EntryBoxOpen(game)) return false;
  MoveEntryBox(game, WalkFrom(game, game.EntryBoxBet, arrow));
  return true;
}

// Takes back what is under way: what was typed, a command that waits for a bet, or the recorder.
bool TakeBack(Game& game) {
  if (game.EntryBoxEdited) {
    ResetEntryBox(game);
  } else if (game.CallBetMode != 0) {
    CancelCall(game);
  } else if (game.DiceRollFileMode != kRecorderOff) {
    DiceRollStopped(game);
  } else {
    return false;
  }
  return true;
}

}  // namespace

// ---- The pointer ------------------------------------------------------------------------------

void MovePointer(Game& game, Pixel at) {
  const int bet = HitTest(game, at).bet;
  if (bet == game.HitBet) return;
  game.HitBet = bet;
  ShowTableChange(game, kChangedStatus);
}

void PointerLeaves(Game& game) {
  if (game.HitBet == kHitFelt) return;
  game.HitBet = kHitFelt;
  ShowTableChange(game, kChangedStatus);
}

void PressTable(Game& game, MouseButton button, Pixel at, Modifiers held) {
  MovePointer(game, at);
  if (!TableListens(game)) return;
  if (button == MouseButton::kRight) {
    RollCommand(game);
  } else {
    // What was lifted and never let go has left the table.
    game.DragAmount = MoneyAmount();
    PressLeft(game, HitTest(game, at), at, held);
  }
}

void ReleaseTable(Game& game, Pixel at) {
  MovePointer(game, at);
  DropDragged(game, game.HitBet);
}

PointerImage PointerAt(const Game& game, Pixel at, Modifiers held) {
  using enum PointerShape;
  if (game.AutoBetRunning || game.HyperDriveActive) return {kBusy};
  if (game.DragAmount.Raw() != 0) return {kLifted};
  const Hit hit = HitTest(game, at);
  if (hit.bet == kHitPanelCorner || hit.bet == kHitRecorder) return {kHand};
  if (!IsBetOrStack(hit.bet)) return {hit.tool != kNoTool ? kHand : kArrow, hit.tool};
  if (game.CallBetMode > 0) {
    constexpr PointerShape kByCall[] = {kArrow, kTurnOn, kTurnOff, kBuyIt, kTakeAll};
    return {kByCall[game.CallBetMode <= 4 ? game.CallBetMode : 0]};
  }
  if (EntryBoxOpen(game)) return {kText};
  if (held.alt) return {kLifted};
  if (hit.tool != kNoTool) return {kHand, hit.tool};
  if (held.shift) return {kTakeAll};
  if (game.ChipColor == kBuyTool) return {kBuyIt};
  if (game.ChipColor == kCallOffTool) return {kTurnOff};
  if (game.ChipColor == kCallOnTool) return {kTurnOn};
  const PointerShape puts = IsPileTool(game.ChipColor) ? kPile : kChip;
  return {held.ctrl ? kTakeChip : puts, game.ChipColor};
}

// ---- Keys -------------------------------------------------------------------------------------

bool PressKey(Game& game, KeyPress key) {
  if (!TableIsFree(game)) return true;
  if (IsTyped(game, key)) {
    TypeInEntryBox(game, key.character);
    return true;
  }
  if (key.key == Key::kEscape) return TakeBack(game);
  if (!CommitEnteredBet(game)) return true;
  switch (key.key) {
    case Key::kLeft:
      return WalkEntryBox(game, Arrow::kLeft);
    case Key::kRight:
      return WalkEntryBox(game, Arrow::kRight);
    case Key::kUp:
      return WalkEntryBox(game, Arrow::kUp);
    case Key::kDown:
      return WalkEntryBox(game, Arrow::kDown);
    case Key::kCharacter:
      return key.ctrl && key.character >= '0' && RunHotKey(game, key.character);
    case Key::kEnter:
      return EntryBoxOpen(game);
    case Key::kEscape:
      break;
  }
  return false;
}

FieldKey FilterEntryKey(const Game& game, const FieldKey& field, char key) {
  const bool stack = IsChipStack(game.EntryBoxBet);
  return NumericKeyFilter(field, key, stack ? 4 : 2, stack);
}

}  // namespace feltmaster
