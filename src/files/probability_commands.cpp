#include "files/probability_commands.h"

#include <string>

#include "autobet/message.h"
#include "dice/probability.h"
#include "files/file_dialog.h"
#include "files/game_file.h"
#include "surface/surface.h"

namespace feltmaster {

namespace {

bool AskToSaveNumbers(Game& game) {
  if (!game.ProbabilityChanged) return true;
  if (AskYesNo(game, "Save Probabilities?",
               "These numbers have not been saved.\n\nDo you want to save them now?",
               kButtonYes | kButtonNo | kButtonCancel | kPictureQuestion | kDefaultYes)) {
    return SaveProbabilitiesCommand(game);
  }
  return game.MsgAnswer == kAnswerNo;
}

}  // namespace

bool NewProbabilitiesCommand(Game& game) {
  if (!AskToSaveNumbers(game)) return false;
  NewProbabilities(game);
  game.surface->RefreshOpenScreens();
  return true;
}

bool OpenProbabilitiesCommand(Game& game) {
  return AskToSaveNumbers(game) && ShowFileDialog(game, "Open Probability File").has_value();
}

bool SaveProbabilitiesCommand(Game& game) {
  const std::string path = game.ProbabilityFileName;
  if (path.empty() || IsNamed(path, kDefaultProbabilities)) return SaveProbabilitiesAsCommand(game);
  if (SaveProbabilityFile(game, path)) return true;
  TellNotSaved(game, "Probability File", path);
  return false;
}

bool SaveProbabilitiesAsCommand(Game& game) {
  return ShowFileDialog(game, "Save Probability File As").has_value();
}

}  // namespace feltmaster
