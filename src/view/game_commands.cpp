#include "view/game_commands.h"

#include <string>
#include <string_view>

#include "autobet/message.h"
#include "autobet/run_script.h"
#include "autobet/script_file.h"
#include "base/text.h"
#include "engine/new_game.h"
#include "engine/roll_cycle.h"
#include "surface/surface.h"

namespace feltmaster {

namespace {

constexpr std::int32_t kAskToSave =
    kButtonYes | kButtonNo | kButtonCancel | kPictureQuestion | kDefaultYes;

enum class Choice { kSave, kDiscard, kGiveUp };

Choice AskToSave(Game& game, std::string title, std::string text) {
  Tell(game, std::move(title), std::move(text), kAskToSave);
  if (game.MsgAnswer == kAnswerYes) return Choice::kSave;
  return game.MsgAnswer == kAnswerNo ? Choice::kDiscard : Choice::kGiveUp;
}

bool IsNamed(std::string_view path, std::string_view file) {
  return path.size() >= file.size() &&
         EqualIgnoringCase(path.substr(path.size() - file.size()), file);
}

bool SaveAutoBets(Game& game) {
  std::string path = game.ScriptFileName;
  if (path.empty() || IsNamed(path, "default.bet")) {
    path = game.surface->AskFile({"Save Auto-Bet File As", "*.bet", true, path});
  }
  if (path.empty() || !SaveScript(game, path)) return false;
  game.ScriptUnsaved = false;
  return true;
}

bool AskAboutAutoBets(Game& game) {
  const bool empty_default =
      game.ScriptLines.empty() && IsNamed(game.ScriptFileName, "default.bet");
  if (!game.ScriptUnsaved || empty_default) return true;
  switch (AskToSave(game, "Save Auto-Bets?",
                    "Your current logged Auto-Bets\nhave not been saved.\n\n"
                    "Do you want to save them now?")) {
    case Choice::kSave:
      return SaveAutoBets(game);
    case Choice::kDiscard:
      return true;
    default:
      return false;
  }
}

bool AskAboutProbabilities(Game& game) {
  if (!game.UseSkewedProbability || !game.ProbabilityChanged) return true;
  return AskToSave(game, "Save Probabilities?",
                   "Your current probabilities (listed on the\n"
                   "configuration screen) have not been saved.\n\n"
                   "Do you want to save them now?") == Choice::kDiscard;
}

bool AskAboutGame(Game& game) {
  if (!game.GameChanged) return true;
  return AskToSave(game, "Save Game?",
                   "Your current game has not been saved.\n\nDo you want to save it now?") ==
         Choice::kDiscard;
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

}  // namespace

bool AskToSaveAll(Game& game) {
  return AskAboutAutoBets(game) && AskAboutProbabilities(game) && AskAboutGame(game);
}

bool NewGame(Game& game) {
  if (!AskToSaveAll(game)) return false;
  ResetGame(game, ResetMode::kAll);
  game.RefreshBetAmounts = true;
  game.surface->TableChanged(kChangedAll);
  KeepOrClearScript(game);
  game.surface->RefreshOpenScreens();
  ComeOutCall(game);
  return true;
}

}  // namespace feltmaster
