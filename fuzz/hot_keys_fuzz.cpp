// Any bytes as HotKeys.dta: a list that can be pressed and edited, and is the same when it is saved
// and read again.
#include "autobet/hot_keys.h"
#include "table.h"

using namespace feltmaster;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string path = fuzz::FileWith(kHotKeyFileName, fuzz::TextOf(data, size));
  fuzz::Table table;
  Game& game = table.Play;
  game.AppPath = (fuzz::ScratchFolder() / "").string();
  LoadHotKeys(game);
  fuzz::Require(game.HotKeys.size() <= size / 256, "no more rows than the file holds");
  for (const char key : {'0', 'A', 'z'}) RunHotKey(game, key);
  fuzz::RequireSoundState(game);
  for (std::size_t i = 0; i + 1 < size && i < 64; i += 2) {
    const auto row = static_cast<std::int32_t>(data[i]) - 3;
    switch (data[i + 1] % 6) {
      case 0:
        if (AddHotKey(game, static_cast<char>(data[i]), "a.bet", "")) PlaceHotKey(game, row);
        break;
      case 1:
        CutHotKeys(game);
        break;
      case 2:
        PasteHotKeys(game);
        break;
      case 3:
        MoveHotKeys(game, row);
        break;
      case 4:
        MoveCursor(HotKeyList(game), row, kHotKeyRowsShown);
        break;
      default:
        ClickRow(HotKeyList(game), row, static_cast<Click>(data[i] % 3));
        break;
    }
    const auto behind = static_cast<std::int32_t>(game.HotKeys.size()) + 1;
    fuzz::Require(game.HotKeyCursor >= 1 && game.HotKeyCursor <= behind, "the cursor is on a row");
    fuzz::Require(game.HotKeyTop >= 1 && game.HotKeyTop <= behind, "the view begins at a row");
  }
  fuzz::Require(SaveHotKeys(game), "the list is saved");
  const std::string saved = fuzz::BytesOf(path);
  LoadHotKeys(game);
  fuzz::Require(SaveHotKeys(game) && fuzz::BytesOf(path) == saved, "the same rows, the same bytes");
  return 0;
}
