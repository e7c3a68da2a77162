#include "autobet/hot_keys.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <utility>

#include "autobet/message.h"
#include "autobet/run_script.h"
#include "autobet/script_file.h"
#include "autobet/script_lines.h"
#include "base/number_format.h"
#include "base/record_file.h"
#include "base/text.h"
#include "surface/surface.h"

namespace feltmaster {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kTitle = "Hot-Key";
constexpr std::int32_t kHelp = 110;

// Of HotKeys.dta: a header, then a record a row. The header has its title in the place of the file
// and the count of rows, as text, in the place of the description.
constexpr std::string_view kFileTitle = "Feltmaster Hot-Key File";
constexpr std::size_t kAtKey = 0;
constexpr std::size_t kAtFile = 1;
constexpr std::size_t kAtDescription = 101;
static_assert(kAtDescription - kAtFile == kHotKeyTextSize);
constexpr double kMostRows = 30'000;  // more than any list is; a wild count ends here

std::string ListPath(const Game& game) {
  return game.AppPath + std::string(kHotKeyFileName);
}

std::string ListBytes(const Game& game) {
  Record header;
  header.SetText(kAtFile, kHotKeyTextSize, kFileTitle);
  header.SetText(kAtDescription, kHotKeyTextSize, ' ' + std::to_string(game.HotKeys.size()));
  std::string bytes(header.Bytes());
  for (const HotKey& hot_key : game.HotKeys) {
    Record record;
    record.SetText(kAtKey, 1, std::string_view(&hot_key.HotKeyChar, 1));
    record.SetText(kAtFile, kHotKeyTextSize, hot_key.HotKeyFile);
    record.SetText(kAtDescription, kHotKeyTextSize, hot_key.HotKeyDescription);
    bytes += record.Bytes();
  }
  return bytes;
}

char Capital(char key) {
  return key >= 'a' && key <= 'z' ? static_cast<char>(key - 'a' + 'A') : key;
}

// A name without a folder in front may lie in the data folder.
std::string FoundFile(const Game& game, const std::string& file) {
  std::error_code ignored;
  const std::string kept_there = game.AppPath + file;
  const bool elsewhere = fs::path(file).is_absolute() || fs::exists(file, ignored);
  return !elsewhere && fs::exists(kept_there, ignored) ? kept_there : file;
}

// While it lives, another script may stand in for the active one.
class StandIn {
 public:
  explicit StandIn(Game& game)
      : game_(game),
        lines_(game.ScriptLines),
        labels_(game.ScriptLabels),
        compiled_(game.Compiled) {
    game.HotKeyRunning = true;
  }
  ~StandIn() {
    game_.ScriptLines = std::move(lines_);
    game_.ScriptLabels = std::move(labels_);
    game_.Compiled = std::move(compiled_);
    game_.HotKeyRunning = false;
  }
  StandIn(const StandIn&) = delete;
  StandIn& operator=(const StandIn&) = delete;

 private:
  Game& game_;
  std::vector<ScriptLine> lines_;
  std::vector<std::string> labels_;
  std::shared_ptr<const CompiledScript> compiled_;
};

void TellNotFound(Game& game) {
  Tell(game, std::string(kTitle),
       "The Auto-Bet file defined for that Hot-Key was not found in the specified location.\n\n"
       "Please check the filename and/or location and make corrections on the Hot-Key screen.",
       kButtonOk, kHelp);
}

std::string TextOf(const std::vector<HotKey>& rows) {
  std::string text;
  for (const HotKey& row : rows) {
    text += "   Ctrl ";
    text += row.HotKeyChar;
    text += "   " + row.HotKeyFile + "   " + row.HotKeyDescription + "\r\n";
  }
  return text;
}

}  // namespace

void LoadHotKeys(Game& game) {
  game.HotKeys.clear();
  std::error_code ignored;
  if (game.AppPath.empty() || !fs::exists(ListPath(game), ignored)) return;
  RecordReader file;
  if (const std::optional<FileError> error = file.Open(ListPath(game))) {
    game.LastErrorText = error->At("Load Hot-Keys");
    return;
  }
  Record record;
  if (!file.Read(record)) return;
  const double count = NumericPrefix(record.Text(kAtDescription, kHotKeyTextSize));
  const double rows = std::min(count, kMostRows);
  while (static_cast<double>(game.HotKeys.size()) < rows && file.Read(record)) {
    game.HotKeys.push_back({record.Bytes()[kAtKey], record.Text(kAtFile, kHotKeyTextSize),
                            record.Text(kAtDescription, kHotKeyTextSize)});
  }
  if (const std::optional<FileError> error = file.Fault()) {
    game.LastErrorText = error->At("Load Hot-Keys");
  }
}

bool SaveHotKeys(Game& game) {
  if (game.AppPath.empty()) return true;
  const std::string path = ListPath(game);
  const std::optional<FileError> error = WriteOverStart(path, ListBytes(game));
  if (!error) return true;
  game.LastErrorText = error->At("Save Hot-Keys");
  TellNotSaved(game, "Hot-Keys", path);
  return false;
}

bool IsHotKeyChar(char key) {
  const char capital = Capital(key);
  return (capital >= '0' && capital <= '9') || (capital >= 'A' && capital <= 'Z');
}

bool RunHotKey(Game& game, char key) {
  const auto row = std::ranges::find(game.HotKeys, Capital(key), &HotKey::HotKeyChar);
  if (row == game.HotKeys.end()) return false;
  const StandIn stand_in(game);
  if (LoadScript(game, FoundFile(game, row->HotKeyFile))) {
    RunScript(game);
  } else if (game.FileStatus < 0) {
    TellNotFound(game);
  }
  return true;
}

bool AddHotKey(Game& game, char key, std::string_view file, std::string_view description) {
  const std::string_view name = Trim(file);
  if (name.empty()) {
    Tell(game, std::string(kTitle), "Please enter an Auto-Bet filename to define this Hot-Key.",
         kButtonOk, kHelp);
    return false;
  }
  if (name.size() > kHotKeyTextSize) {
    Tell(game, std::string(kTitle),
         "The filename is longer than " + std::to_string(kHotKeyTextSize) +
             " characters and can't be kept for this Hot-Key.",
         kButtonOk, kHelp);
    return false;
  }
  game.HotKeyPending = HotKey{Capital(key), std::string(name),
                              std::string(TrimRight(CutAtCharacter(description, kHotKeyTextSize)))};
  return true;
}

void PlaceHotKey(Game& game, std::int32_t row) {
  if (!game.HotKeyPending) return;
  const RowList<HotKey> list = HotKeyList(game);
  game.HotKeyCursor = game.HotKeyAnchor = list.Clamped(row);
  game.HotKeys.insert(list.Place(row), *std::exchange(game.HotKeyPending, std::nullopt));
}

void CancelHotKey(Game& game) {
  game.HotKeyPending.reset();
}

void PressHotKeyRow(Game& game, std::int32_t row, Click click) {
  if (game.HotKeyPending) {
    PlaceHotKey(game, row);
  } else {
    ClickRow(HotKeyList(game), row, click);
  }
}

void CopyHotKeys(Game& game) {
  std::vector<HotKey> rows = SelectedRows(HotKeyList(game));
  if (rows.empty()) return;
  game.surface->SetClipboard(TextOf(rows));
  game.HotKeyClip = std::move(rows);
}

void CutHotKeys(Game& game) {
  CopyHotKeys(game);
  DeleteHotKeys(game);
}

void PasteHotKeys(Game& game) {
  if (game.HotKeyClip.empty()) return;
  PasteRows(HotKeyList(game), game.HotKeyClip);
}

void DeleteHotKeys(Game& game) {
  DeleteRows(HotKeyList(game));
}

void MoveHotKeys(Game& game, std::int32_t row) {
  if (SelectedRows(HotKeyList(game)).empty()) return;
  CutHotKeys(game);
  game.HotKeyCursor = HotKeyList(game).Clamped(row);
  PasteHotKeys(game);
}

}  // namespace feltmaster
