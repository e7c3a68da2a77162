#include "files/file_commands.h"

#include <array>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

#include "autobet/message.h"
#include "autobet/output_file.h"
#include "autobet/run_script.h"
#include "autobet/script_file.h"
#include "automation/table_guards.h"
#include "engine/new_game.h"
#include "engine/roll_cycle.h"
#include "files/file_dialog.h"
#include "files/game_file.h"
#include "files/games_log.h"
#include "files/probability_commands.h"
#include "files/roll_editor.h"
#include "files/roll_recorder.h"
#include "files/script_commands.h"
#include "reports/graph_print.h"
#include "surface/surface.h"

namespace feltmaster {

namespace {

constexpr std::int32_t kAskToSave =
    kButtonYes | kButtonNo | kButtonCancel | kPictureQuestion | kDefaultYes;

// True when the player wants no saving, or it is done.
bool AskToSave(Game& game, std::string title, std::string text, bool (*save)(Game&)) {
  if (AskYesNo(game, std::move(title), std::move(text), kAskToSave)) return save(game);
  return game.MsgAnswer == kAnswerNo;
}

bool SaveAutoBets(Game& game) {
  return SaveScriptCommand(game, "*.bet");
}

bool AskAboutAutoBets(Game& game) {
  const bool empty_default =
      game.ScriptLines.empty() && IsNamed(game.ScriptFileName, kDefaultScript);
  if (!game.ScriptUnsaved || empty_default) return true;
  return AskToSave(game, "Save Auto-Bets?",
                   "Your current logged Auto-Bets\nhave not been saved.\n\n"
                   "Do you want to save them now?",
                   SaveAutoBets);
}

bool AskAboutProbabilities(Game& game) {
  if (!game.UseSkewedProbability || !game.ProbabilityChanged) return true;
  return AskToSave(game, "Save Probabilities?",
                   "Your current probabilities (listed on the\n"
                   "configuration screen) have not been saved.\n\n"
                   "Do you want to save them now?",
                   SaveProbabilitiesCommand);
}

// The dialog names the game; a name that could not be written to is not kept.
bool NameAndSaveGame(Game& game) {
  const std::string old_name = game.GameFileName;
  const std::optional<std::string> path = ShowFileDialog(game, "Save Game File As");
  if (!path) return false;
  if (SaveGame(game, *path)) return true;
  game.GameFileName = old_name;
  return false;
}

bool SaveThisGame(Game& game) {
  return game.GameFileName.empty() ? NameAndSaveGame(game) : SaveGame(game, game.GameFileName);
}

bool AskAboutGame(Game& game) {
  if (!game.GameChanged) return true;
  return AskToSave(game, "Save Game?",
                   "Your current game has not been saved.\n\nDo you want to save it now?",
                   SaveThisGame);
}

void KeepOrCloseDiceRolls(Game& game) {
  if (game.DiceRollFileName.empty() || game.DiceRollFileMode != kRecorderOff) return;
  if (AskYesNo(game, "Dice Roll File Present",
               "Although the dice roll recorder is turned off, would "
               "you like to keep the same Dice Roll File open?",
               kButtonYes | kButtonNo | kPictureQuestion)) {
    game.DiceRollNext = 1;
    game.DiceRollLast = 0;
    game.DiceRollSelectEnd = 1;
  } else {
    ForgetDiceRollFile(game);
  }
}

void KeepOrClearScript(Game& game) {
  if (game.ScriptLines.empty()) return;
  std::string text = game.ScriptUnsaved ? "Although you didn't save your Auto-Bets\n"
                                          "to disk, they're still listed on the\n"
                                          "Auto-Bet screen."
                                        : "Your Auto-Bets are still listed on\n"
                                          "the Auto-Bet screen.";
  text += "\n\nWould you like to keep them with\nyour new game?";
  if (!AskYesNo(game, "Auto-Bets Present", text)) {
    ClearScript(game);
  } else if (game.ScriptActive == 1) {
    RunInitialisationCycle(game);
  }
}

// default.crp takes the state, the scratch files go.
void LeaveDataFolder(Game& game) {
  SaveGame(game, game.AppPath + std::string(kDefaultGame));
  EndScriptOutput(game);
  FlushDiceRolls(game);
  for (const std::string_view scratch : {kRollClipboard, kActiveScript}) {
    std::error_code ignored;
    std::filesystem::remove(game.AppPath + std::string(scratch), ignored);
  }
}

}  // namespace

bool AskToSaveParts(Game& game) {
  return AskAboutAutoBets(game) && AskAboutProbabilities(game);
}

bool AskToSaveAll(Game& game) {
  return AskToSaveParts(game) && AskAboutGame(game);
}

bool NewGame(Game& game) {
  if (!AskToSaveAll(game)) return false;
  FinishGraphPrint(game);
  LogFinishedGame(game);
  ResetGame(game, ResetMode::kAll);
  game.RefreshBetAmounts = true;
  game.surface->TableChanged(kChangedAll);
  KeepOrCloseDiceRolls(game);
  KeepOrClearScript(game);
  game.surface->RefreshOpenScreens();
  ComeOutCall(game);
  return true;
}

bool OpenGameCommand(Game& game) {
  if (!AskToSaveAll(game)) return false;
  FinishGraphPrint(game);
  return ShowFileDialog(game, "Open Game File").has_value();
}

bool SaveGameCommand(Game& game) {
  return AskToSaveParts(game) && SaveThisGame(game);
}

bool SaveGameAsCommand(Game& game) {
  return AskToSaveParts(game) && NameAndSaveGame(game);
}

bool OpenNamedGame(Game& game, const std::string& path, bool ask) {
  if (ask && !AskToSaveAll(game)) return false;
  FinishGraphPrint(game);
  return OpenGame(game, path, true);
}

bool SaveNamedGame(Game& game, const std::string& path, bool ask) {
  const std::string old_name = game.GameFileName;
  if (ask && !AskToSaveParts(game)) return false;
  if (ask && path != old_name && !CarryOutFileCommand(game, "Save Game File As", path)) {
    return false;
  }
  if (SaveGame(game, path)) return true;
  game.GameFileName = old_name;
  return false;
}

void ShowPath(Game& game) {
  constexpr std::string_view kRule = "_______________________________________________";
  const std::array<std::pair<std::string_view, const std::string*>, 6> blocks = {{
      {"Feltmaster location:", &game.AppPath},
      {"Game File:", &game.GameFileName},
      {"Auto-Bet File:", &game.ScriptFileName},
      {"Dice Roll File:", &game.DiceRollFileName},
      {"Probability File:", &game.ProbabilityFileName},
      {"Games Log File:", &game.GamesLogFile},
  }};
  std::string text;
  for (const auto& [heading, path] : blocks) {
    if (!text.empty()) text += "\n" + std::string(kRule) + "\n";
    text += std::string(heading) + "\n" + *path;
  }
  Tell(game, "Path", std::move(text));
}

bool AskToClose(Game& game) {
  if (game.AutoBetRunning && !AskToEndScript(game)) return false;
  game.surface->LetEventsThrough();
  if (game.HyperDriveActive) {
    if (!AskToStopHyperDrive(game)) return false;
    game.surface->LetEventsThrough();
  }
  return AskToSaveAll(game);
}

void EndProgram(Game& game) {
  if (!game.AppPath.empty()) LeaveDataFolder(game);
  PrintLastGraphs(game);
}

}  // namespace feltmaster
