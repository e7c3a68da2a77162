#include "files/roll_editor.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <system_error>
#include <utility>

#include "autobet/message.h"
#include "base/draft_file.h"
#include "files/roll_recorder.h"
#include "files/roll_text.h"
#include "surface/surface.h"

namespace feltmaster {

namespace {

constexpr std::int32_t kFaces = 6;

std::string Scratch(const Game& game, std::string_view name) {
  return game.AppPath + std::string(name);
}

std::int32_t Position(std::int64_t roll, std::int32_t total) {
  return static_cast<std::int32_t>(std::clamp<std::int64_t>(roll, 1, std::int64_t{total} + 1));
}

void KeepInRange(Game& game) {
  const std::int32_t total = DiceRollTotal(game);
  game.DiceRollNext = Position(game.DiceRollNext, total);
  game.DiceRollSelectEnd = Position(game.DiceRollSelectEnd, total);
  game.DiceRollTopLine = Position(game.DiceRollTopLine, total);
}

void TellError(Game& game, const FileError& error) {
  game.LastErrorText = error.At("Edit Dice Roll File");
  Tell(game, "Dice Roll File Error",
       game.DiceRollFileName + "\ncould not be changed: " + error.description + '.',
       kButtonOk | kPictureStop);
}

// The file for a command that changes it, as it lies on the disk now. Null when the player has been
// told that there is none.
PlainFile* FileToEdit(Game& game) {
  if (game.DiceRollFileName.empty()) {
    Tell(game, "Record Dice Rolls", "You need to open a file first.");
    return nullptr;
  }
  if (game.OpenDiceRolls && !game.OpenDiceRolls->IsInPlace()) game.OpenDiceRolls.reset();
  PlainFile* file = DiceRollFile(game);
  if (file == nullptr) {
    Tell(game, "Dice Roll File Error",
         game.DiceRollFileName + "\ncould not be opened: " +
             game.LastErrorText.substr(0, game.LastErrorText.find(", Error #")) + '.',
         kButtonOk | kPictureStop);
    return nullptr;
  }
  KeepInRange(game);
  return file;
}

// A file that was written anew is opened again when it is needed.
std::optional<FileError> WrittenAnew(Game& game, std::optional<FileError> error) {
  if (!error) game.OpenDiceRolls.reset();
  return error;
}

// True when the command is done; otherwise the player is told.
bool Succeeded(Game& game, const std::optional<FileError>& error) {
  if (error) TellError(game, *error);
  return !error;
}

void BringIntoView(Game& game) {
  const std::int32_t page = std::max(game.DiceRollPageLines, 1);
  game.DiceRollTopLine = std::clamp(game.DiceRollTopLine, std::max(game.DiceRollNext - page + 1, 1),
                                    game.DiceRollNext);
}

// Before the position; the rolls put in are selected.
std::optional<FileError> PutIn(Game& game, const PlainFile& file, const PlainFile& rolls) {
  const RollRange all = AllRolls(rolls);
  if (all.Count == 0) return std::nullopt;
  std::optional<FileError> error =
      WrittenAnew(game, ReplaceRolls(file, {game.DiceRollNext, 0}, &rolls, all));
  if (!error) {
    game.DiceRollSelectEnd = static_cast<std::int32_t>(game.DiceRollNext + all.Count - 1);
  }
  return error;
}

RollFileResult ResultOf(Game& game, const std::optional<FileError>& error) {
  if (!error) return RollFileResult::kDone;
  game.LastErrorText = error->At("Edit Dice Roll File");
  return RollFileResult::kFileError;
}

std::optional<FileError> ConvertText(const std::string& path, const std::string& rolls_path) {
  PlainFile text;
  DraftFile rolls;
  std::optional<FileError> error = text.Open(path, PlainFile::WhenMissing::kFails);
  if (!error) error = rolls.Open(rolls_path);
  if (error) return error;
  RollTextReader reader;
  // A text is a run of bytes as rolls are, and may be longer than any file of them.
  const RollRange all = {1, text.Size()};
  error = HandOnRolls(text, all,
                      [&](std::string_view piece) { return rolls.Write(reader.Take(piece)); });
  return error ? error : rolls.PutInPlace();
}

template <typename Function>
void ForEachOfTotal(std::int32_t total, Function&& act) {
  for (std::int32_t button = 0; button < kRollButtons; ++button) {
    const Dice dice = DiceOfButton(button);
    if (dice.Total() == total) act(dice);
  }
}

bool& Highlight(Game& game, Dice dice) {
  return game
      .RollHighlight[static_cast<std::size_t>(dice.Die2)][static_cast<std::size_t>(dice.Die1)];
}

}  // namespace

Dice DiceOfButton(std::int32_t button) {
  return {button / kFaces + 1, button % kFaces + 1};
}

bool EnterRoll(Game& game, Dice dice) {
  PlainFile* file = FileToEdit(game);
  if (file == nullptr) return false;
  const bool inserts = game.InsertRolls == kInsert && game.DiceRollNext <= TotalRolls(*file);
  const std::optional<FileError> error =
      inserts ? WrittenAnew(game, InsertRoll(*file, game.DiceRollNext, dice))
              : WriteRoll(*file, game.DiceRollNext, dice);
  if (!Succeeded(game, error)) return false;
  game.DiceRollSelectEnd = ++game.DiceRollNext;
  if (game.DiceRollNext - game.DiceRollTopLine > game.DiceRollPageLines) {
    game.DiceRollTopLine = game.DiceRollNext - game.DiceRollPageLines;
  }
  return true;
}

bool EnterRandomRoll(Game& game) {
  const auto die = [&] {
    return static_cast<std::int32_t>(game.surface->PlainUniform() * kFaces) + 1;
  };
  const std::int32_t die1 = die();
  return EnterRoll(game, {die1, die()});
}

RollRange SelectedRolls(Game& game) {
  const auto [low, high] = std::minmax(game.DiceRollNext, game.DiceRollSelectEnd);
  const std::int32_t first = std::max(low, 1);
  const std::int32_t last = std::min(high, DiceRollTotal(game));
  return {first, std::max(std::int64_t{last} - first + 1, std::int64_t{0})};
}

void SelectAllRolls(Game& game) {
  const std::int32_t total = DiceRollTotal(game);
  if (total == 0) return;
  game.DiceRollSelectEnd = 1;
  game.DiceRollNext = total;
  BringIntoView(game);
}

void MoveInRolls(Game& game, std::int64_t rolls, bool extends) {
  if (DiceRollFile(game) == nullptr) return;
  game.DiceRollNext = Position(game.DiceRollNext + rolls, DiceRollTotal(game));
  if (!extends) game.DiceRollSelectEnd = game.DiceRollNext;
  BringIntoView(game);
}

void PressRoll(Game& game, std::int64_t roll, bool extends) {
  if (DiceRollFile(game) == nullptr) return;
  const std::int32_t old = game.DiceRollNext;
  game.DiceRollNext = Position(roll, DiceRollTotal(game));
  game.DiceRollSelectEnd = extends ? old : game.DiceRollNext;
}

void GoToRoll(Game& game, std::int64_t roll) {
  PressRoll(game, roll, false);
  if (DiceRollFile(game) != nullptr) BringIntoView(game);
}

bool CopyRolls(Game& game) {
  const PlainFile* file = FileToEdit(game);
  if (file == nullptr) return false;
  const RollRange selected = SelectedRolls(game);
  return selected.Count > 0 &&
         Succeeded(game, CopyRolls(*file, selected, Scratch(game, kRollClipboard)));
}

bool CutRolls(Game& game) {
  return CopyRolls(game) && DeleteRolls(game);
}

bool DeleteRolls(Game& game) {
  PlainFile* file = FileToEdit(game);
  if (file == nullptr) return false;
  const RollRange selected = SelectedRolls(game);
  if (selected.Count == 0) return false;
  if (!Succeeded(game, WrittenAnew(game, ReplaceRolls(*file, selected, nullptr, {})))) return false;
  KeepInRange(game);
  game.DiceRollSelectEnd = game.DiceRollNext;
  return true;
}

bool PasteRolls(Game& game) {
  PlainFile* file = FileToEdit(game);
  if (file == nullptr) return false;
  PlainFile clipboard;
  std::optional<FileError> error =
      OpenRolls(clipboard, Scratch(game, kRollClipboard), PlainFile::WhenMissing::kFails);
  if (error && error->number == static_cast<int>(std::errc::no_such_file_or_directory)) {
    return false;
  }
  if (!error) error = PutIn(game, *file, clipboard);
  return Succeeded(game, error);
}

RollFileResult CopyRollsTo(Game& game, const std::string& path) {
  const PlainFile* file = FileToEdit(game);
  if (file == nullptr) return RollFileResult::kRefused;
  const std::optional<FileError> error = CopyRolls(*file, SelectedRolls(game), path);
  // The copy may have taken the place of the file itself.
  if (!error && !file->IsInPlace()) {
    game.OpenDiceRolls.reset();
    KeepInRange(game);
  }
  return ResultOf(game, error);
}

RollFileResult PasteRollsFrom(Game& game, const std::string& path) {
  PlainFile* file = FileToEdit(game);
  if (file == nullptr) return RollFileResult::kRefused;
  PlainFile rolls;
  if (const auto error = OpenRolls(rolls, path, PlainFile::WhenMissing::kFails)) {
    return ResultOf(game, error);
  }
  if (!CheckDiceRollFile(game, rolls)) return RollFileResult::kRefused;
  return ResultOf(game, PutIn(game, *file, rolls));
}

RollFileResult PasteRollText(Game& game, const std::string& path) {
  PlainFile* file = FileToEdit(game);
  if (file == nullptr) return RollFileResult::kRefused;
  const std::string converted = Scratch(game, kConvertedRolls);
  std::error_code ignored;
  std::filesystem::remove(converted, ignored);
  std::optional<FileError> error = ConvertText(path, converted);
  PlainFile rolls;
  if (!error) error = OpenRolls(rolls, converted, PlainFile::WhenMissing::kFails);
  if (!error) error = PutIn(game, *file, rolls);
  std::filesystem::remove(converted, ignored);
  return ResultOf(game, error);
}

RollFileResult CopyRollsToText(Game& game, const std::string& path) {
  const PlainFile* file = FileToEdit(game);
  if (file == nullptr) return RollFileResult::kRefused;
  const RollRange selected = SelectedRolls(game);
  const RollTextParts parts = PartsOfRollText(game);
  const std::int64_t first_number =
      FirstRollNumber(game, "Copy Dice Rolls To Text File", selected.First);
  DraftFile text;
  std::optional<FileError> error = text.Open(path);
  if (!error) {
    error = HandOnRollText(*file, selected, parts, first_number,
                           [&](std::string_view lines) { return text.Write(lines); });
  }
  if (!error) error = text.PutInPlace();
  return ResultOf(game, error);
}

RollCommands UsableRollCommands(Game& game) {
  RollCommands commands;
  std::error_code none;
  const auto length = std::filesystem::file_size(Scratch(game, kRollClipboard), none);
  commands.on_selection = SelectedRolls(game).Count > 0;
  commands.paste = !none && length > 0;
  commands.paste_from = !game.DiceRollFileName.empty();
  commands.select_all = DiceRollTotal(game) > 0;
  return commands;
}

std::int32_t RollScrollValue(Game& game) {
  const std::int64_t span = std::int64_t{DiceRollTotal(game)} - 1;
  if (span <= 0) return 0;
  const double value =
      static_cast<double>(game.DiceRollTopLine - 1) / static_cast<double>(span) * kRollScrollSteps;
  return static_cast<std::int32_t>(std::clamp(std::round(value), 0.0, 1.0 * kRollScrollSteps));
}

void ScrollRolls(Game& game, std::int32_t value) {
  const std::int64_t span = std::max(std::int64_t{DiceRollTotal(game)} - 1, std::int64_t{0});
  const double lines = static_cast<double>(value) / kRollScrollSteps * static_cast<double>(span);
  game.DiceRollTopLine = Position(std::llround(lines) + 1, DiceRollTotal(game));
}

void ShowDiceRollPosition(Game& game) {
  if (game.DiceRollFileMode == kRecorderOff) return;
  game.DiceRollTopLine = std::max(game.DiceRollNext - game.DiceRollPageLines / 2, 1);
}

void ToggleHighlight(Game& game, Dice dice) {
  bool& highlighted = Highlight(game, dice);
  highlighted = !highlighted;
}

bool TotalIsHighlighted(const Game& game, std::int32_t total) {
  bool all = true;
  ForEachOfTotal(total, [&](Dice dice) {
    all = all && game.RollHighlight[static_cast<std::size_t>(dice.Die2)]
                                   [static_cast<std::size_t>(dice.Die1)];
  });
  return all;
}

void ToggleHighlightOfTotal(Game& game, std::int32_t total) {
  const bool highlight = !TotalIsHighlighted(game, total);
  ForEachOfTotal(total, [&](Dice dice) { Highlight(game, dice) = highlight; });
}

void ClearHighlights(Game& game) {
  game.RollHighlight = {};
}

}  // namespace feltmaster
