#include "files/roll_recorder.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <memory>

#include "autobet/message.h"
#include "base/text.h"
#include "engine/table_effects.h"
#include "files/roll_file.h"

namespace feltmaster {

namespace {

constexpr std::int32_t kRefused = 0;
constexpr std::int32_t kDone = 1;
constexpr std::int32_t kFileError = -1;

void SetPosition(Game& game, std::int32_t next, std::int32_t last) {
  game.DiceRollNext = game.DiceRollSelectEnd = next;
  game.DiceRollLast = last;
}

void Advance(Game& game) {
  SetPosition(game, game.DiceRollNext + 1, game.DiceRollNext);
}

void ShowRecorder(Game& game) {
  game.RedrawTable = true;
  ShowTableChange(game, kChangedAll);
}

void SwitchOff(Game& game) {
  FlushDiceRolls(game);
  game.DiceRollFileMode = kRecorderOff;
  ShowRecorder(game);
}

// The recorder cannot go on. `stop_text` is for Hyper-Drive, which shows no dialogs.
void GiveUp(Game& game, std::string text, std::string stop_text) {
  game.KeepRolling = false;
  game.HyperDriveStopText = std::move(stop_text);
  SwitchOff(game);
  if (!game.HyperDriveActive) Tell(game, "Dice Roll File Error", std::move(text));
}

void GiveUpForFileError(Game& game, std::string_view what_failed, std::string_view what_ceased,
                        const FileError& error) {
  game.LastErrorText = error.At("Dice Roll File");
  GiveUp(game,
         game.DiceRollFileName + '\n' + std::string(what_failed) + ": " + error.description +
             ".\n\n" + std::string(what_ceased) +
             " this Dice Roll File has ceased so that you can check the file or continue without "
             "it.",
         "Stopped due to Dice Roll File error: " + error.description + '.');
}

// The file in use, or why there is none.
std::optional<FileError> FindFile(Game& game, PlainFile*& file) {
  file = nullptr;
  if (game.DiceRollFileName.empty()) return SystemError(ENOENT);
  std::shared_ptr<PlainFile>& open = game.OpenDiceRolls;
  if (!open || open->Path() != game.DiceRollFileName) {
    auto opened = std::make_shared<PlainFile>();
    const auto error = OpenRolls(*opened, game.DiceRollFileName, PlainFile::WhenMissing::kFails);
    if (error) return error;
    open = std::move(opened);
  }
  file = open.get();
  return std::nullopt;
}

}  // namespace

PlainFile* DiceRollFile(Game& game) {
  PlainFile* file = nullptr;
  if (const std::optional<FileError> error = FindFile(game, file)) {
    if (!game.DiceRollFileName.empty()) game.LastErrorText = error->At("Open Dice Roll File");
  }
  return file;
}

std::int32_t DiceRollTotal(Game& game) {
  const PlainFile* file = DiceRollFile(game);
  return file == nullptr ? 0 : TotalRolls(*file);
}

bool CheckDiceRollFile(Game& game, const PlainFile& file) {
  if (LooksLikeRollFile(file)) return true;
  Tell(game, "Unable to Open Dice Roll File",
       file.Path() +
           "\nis either from an earlier version, has been corrupted, or is "
           "not a true Feltmaster dice roll file.",
       kButtonOk | kPictureStop);
  return false;
}

bool OpenDiceRollFile(Game& game, const std::string& path) {
  auto opened = std::make_shared<PlainFile>();
  if (const auto error = OpenRolls(*opened, path, PlainFile::WhenMissing::kIsCreated)) {
    game.FileStatus = kFileError;
    game.LastErrorText = error->At("Open Dice Roll File");
    return false;
  }
  if (!CheckDiceRollFile(game, *opened)) {
    game.FileStatus = kRefused;
    return false;
  }
  FlushDiceRolls(game);
  game.OpenDiceRolls = std::move(opened);
  game.DiceRollFileName = path;
  SetPosition(game, 1, 0);
  game.DiceRollTopLine = 1;
  game.FileStatus = kDone;
  return true;
}

void ForgetDiceRollFile(Game& game) {
  game.DiceRollFileName.clear();
  game.OpenDiceRolls.reset();
}

void CloseDiceRollFile(Game& game) {
  SwitchOff(game);
  ForgetDiceRollFile(game);
  SetPosition(game, 0, 0);
  game.DiceRollTopLine = 1;
}

void ResumeDiceRollFile(Game& game) {
  game.OpenDiceRolls.reset();
  game.DiceRollTopLine = 1;
  if (game.DiceRollFileName.empty()) return;
  const PlainFile* file = DiceRollFile(game);
  if (file == nullptr) game.DiceRollFileMode = kRecorderOff;
  const std::int32_t total = file == nullptr ? 0 : TotalRolls(*file);
  SetPosition(game, std::clamp(game.DiceRollNext, 1, total + 1),
              std::clamp(game.DiceRollLast, 0, total));
}

bool SetDiceRollMode(Game& game, DiceRollMode mode) {
  constexpr std::array<std::string_view, 3> kTitles = {"", "Record Dice Rolls During Game Play",
                                                       "Playback Dice Rolls During Game Play"};
  const std::string title(kTitles[static_cast<std::size_t>(mode)]);
  if (mode != kRecorderOff && game.DiceRollFileName.empty()) {
    SwitchOff(game);
    Tell(game, title, "You need to open a file first.");
    return false;
  }
  PlainFile* file = nullptr;
  std::optional<FileError> error;
  if (mode != kRecorderOff) error = FindFile(game, file);
  if (!error && mode == kRecording && !file->IsWritable()) error = SystemError(EACCES);
  if (error) {
    game.LastErrorText = error->At("Open Dice Roll File");
    SwitchOff(game);
    Tell(game, title, game.DiceRollFileName + "\ncould not be opened: " + error->description + '.',
         kButtonOk | kPictureStop);
    return false;
  }
  FlushDiceRolls(game);
  game.DiceRollFileMode = mode;
  ShowRecorder(game);
  return true;
}

void DiceRollStopped(Game& game) {
  game.KeepRolling = false;
  FlushDiceRolls(game);
  const std::string stopped =
      game.DiceRollFileMode == kPlayback ? "Playback stopped." : "Recording stopped.";
  const bool rewind = AskYesNo(game, "Dice Roll File", stopped + "\nRewind for playback?",
                               kButtonYes | kButtonNo | kButtonCancel | kPictureQuestion);
  if (rewind) {
    game.DiceRollNext = game.DiceRollSelectEnd = 1;
    game.DiceRollFileMode = kPlayback;
    ShowRecorder(game);
  } else if (game.MsgAnswer == kAnswerNo) {
    SwitchOff(game);
  }
}

void FlushDiceRolls(Game& game) {
  if (!game.OpenDiceRolls) return;
  if (const auto error = game.OpenDiceRolls->Flush()) {
    game.LastErrorText = error->At("Flush Dice Roll File");
  }
}

void ReadyRecorder(Game& game) {
  if (game.OpenDiceRolls && !game.OpenDiceRolls->IsInPlace()) game.OpenDiceRolls.reset();
  const PlainFile* file = DiceRollFile(game);
  if (file == nullptr) return;  // the first roll tells
  game.DiceRollNext = std::clamp(game.DiceRollNext, 1, TotalRolls(*file) + 1);
}

void RecordDice(Game& game) {
  PlainFile* file = nullptr;
  std::optional<FileError> error = FindFile(game, file);
  if (!error) error = WriteRoll(*file, game.DiceRollNext, {game.Die1, game.Die2});
  if (error) {
    GiveUpForFileError(game, "could not be written", "Recording in", *error);
  } else {
    Advance(game);
  }
}

bool PlayBackDice(Game& game) {
  PlainFile* file = nullptr;
  std::optional<Dice> dice;
  std::optional<FileError> error = FindFile(game, file);
  if (!error) error = ReadRoll(*file, game.DiceRollNext, dice);
  if (error) {
    GiveUpForFileError(game, "could not be read", "Playback of", *error);
    return false;
  }
  if (!dice) {
    game.KeepRolling = false;
    game.HyperDriveStopText = kEndOfDiceRolls;
    return false;
  }
  if (!dice->AreGood()) {
    GiveUp(game,
           "A dice roll value has been found to be out of limits.  \n\n"
           "Playback of this Dice Roll File has ceased so that "
           "you can check the file or continue without it.",
           "Stopped due to Dice Roll File value out of limits.");
    return false;
  }
  game.Die1 = dice->Die1;
  game.Die2 = dice->Die2;
  Advance(game);
  return true;
}

}  // namespace feltmaster
