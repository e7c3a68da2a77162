#include "engine/entry_box.h"

#include <utility>

#include "base/number_format.h"
#include "engine/table_effects.h"

namespace feltmaster {

std::string TextInEntryBox(const Game& game) {
  return game.EntryBoxEdited ? game.EntryBoxText : PlainNumber(game.BetAmount[game.EntryBoxBet]);
}

void MoveEntryBox(Game& game, int slot) {
  game.EntryBoxBet = slot;
  ResetEntryBox(game);
}

void EditEntryBox(Game& game, std::string text) {
  game.EntryBoxText = std::move(text);
  game.EntryBoxEdited = true;
  ShowTableChange(game, kChangedEntryBox);
}

void ResetEntryBox(Game& game) {
  game.EntryBoxText.clear();
  game.EntryBoxEdited = false;
  ShowTableChange(game, kChangedEntryBox | kChangedStatus);
}

}  // namespace feltmaster
