#include "autobet/flags.h"

namespace feltmaster {

void SetFlag(Game& game, std::size_t index, bool value) {
  ScriptFlag& flag = game.ScriptFlags[index];
  if (flag.FlagValue != value) {
    flag.FlagChanged = true;
    game.AnyFlagChanged = true;
  }
  flag.FlagValue = value;
}

void PressFlagButton(Game& game, std::span<const std::size_t> rows, FlagButton button) {
  for (const std::size_t row : rows) {
    bool& value = game.ScriptFlags[row].FlagValue;
    value = button == FlagButton::kReverse ? !value : button == FlagButton::kTrue;
  }
  game.GameChanged = true;
}

}  // namespace feltmaster
