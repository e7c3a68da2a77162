#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace feltmaster {

inline constexpr std::size_t kHotKeyTextSize = 100;

// Ctrl and a key of the table, bound to a script.
struct HotKey {
  char HotKeyChar = '0';   // a digit or a capital letter
  std::string HotKeyFile;  // at most 100 bytes, as is the description
  std::string HotKeyDescription;
  bool HotKeySelected = false;  // of the screen, never stored
};

// Read at the start and kept until the program ends; of no game.
struct HotKeyState {
  std::vector<HotKey> HotKeys;          // row 1 is element 0
  std::vector<HotKey> HotKeyClip;       // the rows last cut or copied
  std::optional<HotKey> HotKeyPending;  // a new row that waits for its place
  std::int32_t HotKeyCursor = 1;        // may be the empty row behind the last
  std::int32_t HotKeyAnchor = 0;        // the row last clicked; 0 for none
  std::int32_t HotKeyTop = 1;           // the first row in view
};

}  // namespace feltmaster
