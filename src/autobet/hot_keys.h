#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "autobet/row_list.h"
#include "game/game.h"

namespace feltmaster {

// Hot-Keys: Ctrl and a letter or digit runs a script once, apart from the one that is active.

inline constexpr std::string_view kHotKeyFileName = "HotKeys.dta";
inline constexpr std::int32_t kHotKeyRowsShown = 20;

// Reads HotKeys.dta from the data folder. A missing or empty file gives an empty list, one that
// cannot be read does too and leaves LastErrorText.
void LoadHotKeys(Game& game);
// Writes the list, as the closing of the screen does; records of an older and longer list stay
// behind it. False, after a message, when it could not be written.
bool SaveHotKeys(Game& game);

// A digit or a letter, in whatever case; the list keeps capitals.
bool IsHotKeyChar(char key);

// Runs the script of the first row with that key once, and brings back the active script. False
// when no row has the key. A script that cannot be loaded is told.
bool RunHotKey(Game& game, char key);

// The list as the screen edits it.
inline RowList<HotKey> HotKeyList(Game& game) {
  return {game.HotKeys, &HotKey::HotKeySelected, game.HotKeyCursor, game.HotKeyAnchor,
          game.HotKeyTop};
}

// The Add button with what stands in the three fields: the row waits for its place then. False,
// after a message, when there is no file or its name is too long to be kept.
bool AddHotKey(Game& game, char key, std::string_view file, std::string_view description);
// The waiting row goes in at this place, not selected; one behind the end means the end.
void PlaceHotKey(Game& game, std::int32_t row);
void CancelHotKey(Game& game);
// A press on a row: it takes the waiting row, or is a click that selects.
void PressHotKeyRow(Game& game, std::int32_t row, Click click);

// The Edit menu where it works on rows. What is cut or copied goes to the clipboard as text, too.
void CopyHotKeys(Game& game);
void CutHotKeys(Game& game);
void PasteHotKeys(Game& game);
void DeleteHotKeys(Game& game);
// The selected rows dropped on another row.
void MoveHotKeys(Game& game, std::int32_t row);

}  // namespace feltmaster
