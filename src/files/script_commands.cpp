#include "files/script_commands.h"

#include <optional>
#include <string>

#include "autobet/check_bets.h"
#include "autobet/message.h"
#include "autobet/script_file.h"
#include "base/record_file.h"
#include "files/file_dialog.h"
#include "files/game_file.h"

namespace feltmaster {

namespace {

constexpr std::int32_t kHelpOnFiles = 600;

bool AskToSaveLines(Game& game) {
  if (!game.ScriptUnsaved) return true;
  if (AskYesNo(game, "Save Auto-Bets?",
               "Your current logged bets have not been saved.\n\nDo you want to save them now?",
               kButtonYes | kButtonNo | kButtonCancel | kPictureQuestion | kDefaultYes,
               kHelpOnFiles)) {
    return SaveScriptCommand(game);
  }
  return game.MsgAnswer == kAnswerNo;
}

std::string SelectedLinesText(const Game& game) {
  std::string text;
  for (const ScriptLine& line : game.ScriptLines) {
    if (line.LineSelected) text += line.LineText + "\r\r\n";
  }
  return text;
}

}  // namespace

bool NewScriptCommand(Game& game) {
  if (!AskToSaveLines(game)) return false;
  ClearScript(game);
  game.ScriptNeedsInit = true;
  return true;
}

bool OpenScriptCommand(Game& game) {
  return AskToSaveLines(game) && ShowFileDialog(game, "Open Auto-Bet File").has_value();
}

bool SaveScriptCommand(Game& game, std::string_view pattern) {
  const std::string path = game.ScriptFileName;
  if (path.empty() || IsNamed(path, kDefaultScript)) return SaveScriptAsCommand(game, pattern);
  if (SaveScript(game, path)) return true;
  TellNotSaved(game, "Auto-Bet File", path);
  return false;
}

bool SaveScriptAsCommand(Game& game, std::string_view pattern) {
  return ShowFileDialog(game, "Save Auto-Bet File As", pattern).has_value();
}

bool CopyToScriptFileCommand(Game& game) {
  return ShowFileDialog(game, "Copy To Auto-Bet File", kScriptsAndLogs).has_value();
}

bool PasteFromScriptFileCommand(Game& game) {
  return ShowFileDialog(game, "Paste From Auto-Bet File").has_value();
}

bool CopyToTextFileCommand(Game& game) {
  const std::optional<std::string> path = ShowFileDialog(game, "Copy To Text File");
  if (!path) return false;
  const std::optional<FileError> error = WriteFileAtomically(*path, SelectedLinesText(game));
  if (!error) return true;
  game.LastErrorText = error->At("Form Auto-Bet Menu Copy To Text File");
  TellNotSaved(game, "Text File", *path);
  return false;
}

bool LeaveScriptEditor(Game& game) {
  if (game.ScriptActive == 1 && CheckBets(game) != 0) {
    const std::string fault = game.MsgText;
    if (!AskYesNo(game, game.MsgTitle,
                  fault +
                      "\n\nWould you like to deactivate Auto-betting and return to the game table "
                      "anyway?",
                  kButtonYes | kButtonNo | kPictureStop | kDefaultNo, game.MsgHelpId)) {
      return false;
    }
    game.ScriptActive = 0;
    game.ScriptNeedsInit = true;
    game.GameChanged = true;
  }
  if (game.ScriptNeedsInit) WriteActiveScript(game);
  return true;
}

}  // namespace feltmaster
