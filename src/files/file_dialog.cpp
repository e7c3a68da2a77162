#include "files/file_dialog.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <system_error>

#include "autobet/message.h"
#include "autobet/script_file.h"
#include "base/record_file.h"
#include "base/text.h"
#include "dice/probability.h"
#include "files/game_file.h"
#include "files/games_log.h"
#include "files/games_log_commands.h"
#include "files/roll_editor.h"
#include "files/roll_recorder.h"
#include "surface/surface.h"

namespace feltmaster {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kExtensionSize = 4;  // ".crp"
constexpr std::string_view kAnyFile = "*.*";

enum class Outcome {
  kDone,
  kRefused,    // the player has been told
  kFileError,  // LastErrorText tells
};
using Action = Outcome (*)(Game&, const std::string& path);

struct FileCommand {
  std::string_view caption;
  std::string_view pattern;
  Action act = nullptr;             // none: the caller takes the path
  std::string_view overwrite = {};  // title of the question before an old file is written over
  std::string_view prompt = "Do you want to overwrite it?";
  std::string_view ending = {};  // that the name must have
};

Outcome OutcomeOfLoad(const Game& game, bool loaded) {
  if (loaded) return Outcome::kDone;
  return game.FileStatus < 0 ? Outcome::kFileError : Outcome::kRefused;
}
Outcome OutcomeOfSave(bool saved) {
  return saved ? Outcome::kDone : Outcome::kFileError;
}

Outcome OpenChosenGame(Game& game, const std::string& path) {
  return OutcomeOfLoad(game, OpenGame(game, path, true));
}

Outcome NameGame(Game& game, const std::string& path) {
  game.GameFileName = path;
  return Outcome::kDone;
}

Outcome LoadWholeScript(Game& game, const std::string& path) {
  return OutcomeOfLoad(game, LoadScript(game, path));
}
Outcome PasteScript(Game& game, const std::string& path) {
  game.ScriptFileMode = true;
  const bool loaded = LoadScript(game, path);
  game.ScriptFileMode = false;
  return OutcomeOfLoad(game, loaded);
}
Outcome SaveWholeScript(Game& game, const std::string& path) {
  return OutcomeOfSave(SaveScript(game, path));
}
Outcome SaveSelectedLines(Game& game, const std::string& path) {
  game.ScriptFileMode = true;
  const bool saved = SaveScript(game, path);
  game.ScriptFileMode = false;
  return OutcomeOfSave(saved);
}

Outcome OpenProbabilities(Game& game, const std::string& path) {
  return OutcomeOfLoad(game, OpenProbabilityFile(game, path));
}
Outcome SaveProbabilities(Game& game, const std::string& path) {
  return OutcomeOfSave(SaveProbabilityFile(game, path));
}

Outcome OpenChosenRolls(Game& game, const std::string& path) {
  return OutcomeOfLoad(game, OpenDiceRollFile(game, path));
}
template <RollFileResult (*kEdit)(Game&, const std::string&)>
Outcome EditRolls(Game& game, const std::string& path) {
  switch (kEdit(game, path)) {
    case RollFileResult::kDone:
      return Outcome::kDone;
    case RollFileResult::kRefused:
      return Outcome::kRefused;
    case RollFileResult::kFileError:
      break;
  }
  return Outcome::kFileError;
}

Outcome OpenChosenLog(Game& game, const std::string& path) {
  return OutcomeOfLoad(game, OpenGamesLog(game, path));
}
Outcome MergeChosenLog(Game& game, const std::string& path) {
  return MergeGamesLog(game, path) ? Outcome::kDone : Outcome::kRefused;
}
Outcome SaveLogUnderName(Game& game, const std::string& path) {
  return OutcomeOfSave(SaveGamesLogAs(game, path));
}

constexpr auto kCommands = std::to_array<FileCommand>({
    {"Open Game File", "*.crp", OpenChosenGame},
    {"Save Game File As", "*.crp", NameGame, "Save Game File As"},
    {"Open Dice Roll File  or  Enter Name For A New File", "*.rol", OpenChosenRolls},
    {"Copy To Dice Roll File", "*.rol", EditRolls<CopyRollsTo>, "Copy to Dice Roll File",
     "Do you want to copy over it?"},
    {"Copy Dice Rolls To Text File", "*.txt", EditRolls<CopyRollsToText>,
     "Copy Dice Rolls To Text File"},
    {"Paste From Dice Roll File", "*.rol", EditRolls<PasteRollsFrom>},
    {"Paste From Ascii/Text File", kAnyFile, EditRolls<PasteRollText>},
    {"Open Auto-Bet File", "*.bet", LoadWholeScript},
    {"Paste From Auto-Bet File", "*.bet", PasteScript},
    {.caption = "Save Auto-Bet File As",
     .pattern = "*.bet",
     .act = SaveWholeScript,
     .overwrite = "Save Auto-Bet File As",
     .ending = ".bet"},
    {.caption = "Copy To Auto-Bet File",
     .pattern = "*.bet",
     .act = SaveSelectedLines,
     .overwrite = "Copy to Auto-Bet File",
     .ending = ".bet"},
    {"Copy To Text File", "*.txt", nullptr, "Copy To Text File"},
    {"Save Report As", "*.pdf", nullptr, "Save Report As"},
    {"Save Picture As", "*.svg;*.png", nullptr, "Save Picture As"},
    {"Select Wave File", "*.wav"},
    {"Select Probability File", "*.prb"},
    {"Select File  or  Enter New File Name", kAnyFile},
    {"Select Auto-Bet File for Hot-Key", "*.bet"},
    {"Open Games Log", "*.glg", OpenChosenLog},
    {"Merge Games Log", "*.glg", MergeChosenLog},
    {"Save Games Log As", "*.glg", SaveLogUnderName, "Save Games Log As"},
    {"Open Probability File", "*.prb", OpenProbabilities},
    {.caption = "Save Probability File As",
     .pattern = "*.prb",
     .act = SaveProbabilities,
     .overwrite = "Save Probability File As",
     .ending = ".prb"},
});

// An unknown caption gives the path to the caller, as the Select captions do.
constexpr FileCommand kSelect = {"", kAnyFile};
const FileCommand& CommandOf(std::string_view caption) {
  const auto* const command =
      std::find_if(kCommands.begin(), kCommands.end(),
                   [&](const FileCommand& candidate) { return candidate.caption == caption; });
  return command == kCommands.end() ? kSelect : *command;
}

void TellFileError(Game& game) {
  Tell(game, "Error",
       "File name error, file not found, or device error. \n\nCheck path and file name.");
}

bool MayOverwrite(Game& game, const FileCommand& command, const std::string& path) {
  if (command.overwrite.empty()) return true;
  std::error_code fault;
  const auto length = fs::file_size(path, fault);
  if (fault || length == 0) return true;
  return AskYesNo(game, std::string(command.overwrite),
                  path + "\nis already on file.\n\n" + std::string(command.prompt),
                  kButtonYes | kButtonNo | kPictureQuestion | kDefaultNo);
}

// The files of a game that a caption may be about, by a word in it.
void ForgetDiceRolls(Game& game) {
  ForgetDiceRollFile(game);
  game.DiceRollFileMode = kRecorderOff;
}
void ForgetScript(Game& game) {
  game.ScriptFileName.clear();
  game.ScriptUnsaved = true;
}
void ForgetProbabilities(Game& game) {
  game.ProbabilityFileName.clear();
  game.ProbabilityChanged = true;
}
void ForgetGamesLog(Game& game) {
  game.GamesLogFile = game.AppPath + std::string(kDefaultGamesLog);
}
struct FileInUse {
  std::string_view word;
  const std::string& (*name)(const Game&);
  void (*forget)(Game&);
};
constexpr std::array<FileInUse, 4> kFilesInUse = {{
    {"Roll", [](const Game& game) -> const std::string& { return game.DiceRollFileName; },
     ForgetDiceRolls},
    {"Auto-Bet", [](const Game& game) -> const std::string& { return game.ScriptFileName; },
     ForgetScript},
    {"Probability", [](const Game& game) -> const std::string& { return game.ProbabilityFileName; },
     ForgetProbabilities},
    {"Games", [](const Game& game) -> const std::string& { return game.GamesLogFile; },
     ForgetGamesLog},
}};

bool SamePath(std::string_view a, std::string_view b) {
  return EqualIgnoringCase(Trim(a), Trim(b));
}

}  // namespace

std::string CompleteFileName(std::string_view typed, std::string_view folder,
                             std::string_view pattern) {
  std::string name(Trim(typed));
  if (name.find('/') == std::string::npos && !folder.empty()) {
    const bool parted = folder.back() == '/';
    name = std::string(folder) + (parted ? "" : "/") + name;
  }
  const std::string_view extension =
      pattern.substr(pattern.size() - std::min(pattern.size(), kExtensionSize));
  if (name.ends_with('.')) name += extension.substr(std::min<std::size_t>(1, extension.size()));
  const std::string_view ending =
      std::string_view(name).substr(name.size() - std::min(name.size(), kExtensionSize));
  if (pattern != kAnyFile && !ContainsIgnoringCase(pattern, ending)) name += extension;
  return name;
}

bool CarryOutFileCommand(Game& game, std::string_view caption, const std::string& path) {
  const FileCommand& command = CommandOf(caption);
  if (!command.ending.empty() && !IsNamed(path, command.ending)) {
    game.LastErrorText = path + " does not end in " + std::string(command.ending) +
                         " occurred, at: Form File Command OK";
    TellFileError(game);
    return false;
  }
  if (!MayOverwrite(game, command, path)) return false;
  const Outcome outcome = command.act == nullptr ? Outcome::kDone : command.act(game, path);
  if (outcome == Outcome::kFileError) TellFileError(game);
  return outcome == Outcome::kDone;
}

std::optional<std::string> PressFileOk(Game& game, std::string_view caption,
                                       std::string_view pattern, std::string_view typed) {
  if (Trim(typed).empty()) {
    Tell(game, "Missing Filename", "Please enter a file name.");
    return std::nullopt;
  }
  if (pattern.empty()) pattern = CommandOf(caption).pattern;
  std::string path = CompleteFileName(typed, game.FileDialogPath, pattern);
  if (!CarryOutFileCommand(game, caption, path)) return std::nullopt;
  game.FileDialogPath = path.substr(0, path.rfind('/') + 1);
  game.FileDialogName = Trim(typed);
  game.MsgAnswer = kAnswerOk;
  return path;
}

std::optional<std::string> ShowFileDialog(Game& game, std::string_view caption,
                                          std::string_view pattern) {
  const FileCommand& command = CommandOf(caption);
  if (pattern.empty()) pattern = command.pattern;
  for (;;) {
    const std::string typed = game.surface->AskFile({.caption = caption,
                                                     .pattern = pattern,
                                                     .for_saving = !command.overwrite.empty(),
                                                     .start_name = game.FileDialogName,
                                                     .folder = game.FileDialogPath});
    if (typed.empty()) break;
    if (std::optional<std::string> path = PressFileOk(game, caption, pattern, typed)) return path;
  }
  game.MsgAnswer = kAnswerCancel;
  return std::nullopt;
}

bool DeleteChosenFile(Game& game, std::string_view caption, const std::string& path) {
  const std::string name = fs::path(path).filename().string();
  if (!AskYesNo(game, "Delete File", "Are you sure you want to delete:\n" + name,
                kButtonYes | kButtonNo | kPictureQuestion | kDefaultNo)) {
    return false;
  }
  std::error_code fault;
  if (!fs::remove(path, fault)) {
    game.LastErrorText = FileError{fault.value(), fault.message()}.At("Delete File");
    TellFileError(game);
    return false;
  }
  for (const FileInUse& file : kFilesInUse) {
    if (caption.find(file.word) != std::string_view::npos && SamePath(file.name(game), path)) {
      file.forget(game);
    }
  }
  game.surface->RefreshOpenScreens();
  return true;
}

std::int32_t FileDialogHelp(std::string_view pattern) {
  if (pattern.ends_with(".rol")) return 210;
  return pattern.ends_with(".bet") ? 600 : 0;
}

}  // namespace feltmaster
