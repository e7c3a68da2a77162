#include "files/roll_commands.h"

#include <algorithm>
#include <filesystem>

#include "autobet/message.h"
#include "files/file_dialog.h"
#include "files/roll_editor.h"
#include "files/roll_recorder.h"
#include "files/roll_text.h"

namespace feltmaster {

namespace {

constexpr const char* kCopyToText = "Copy Dice Rolls To Text File";
constexpr const char* kPrint = "Print Dice Rolls";

// Text needs something to say of each roll.
bool CheckRollText(Game& game, const char* title) {
  if (game.PrintDieNumbers != 0 || game.PrintNumbersCalled != 0) return true;
  Tell(game, title,
       "You must check at least one of the following boxes found under Print Options:\n"
       "        Include Individual Die #'s\n"
       "        Include Numbers Called");
  return false;
}

}  // namespace

bool OpenRollFileCommand(Game& game) {
  return ShowFileDialog(game, "Open Dice Roll File  or  Enter Name For A New File").has_value();
}

bool CopyToRollFileCommand(Game& game) {
  return ShowFileDialog(game, "Copy To Dice Roll File").has_value();
}

bool CopyRollsToTextCommand(Game& game) {
  return CheckRollText(game, kCopyToText) && ShowFileDialog(game, kCopyToText).has_value();
}

bool PasteFromRollFileCommand(Game& game) {
  return ShowFileDialog(game, "Paste From Dice Roll File").has_value();
}

bool PasteFromTextCommand(Game& game) {
  return ShowFileDialog(game, "Paste From Ascii/Text File").has_value();
}

std::optional<RollReport> PrepareRollReport(Game& game) {
  const std::int32_t total = DiceRollTotal(game);
  if (total == 0) {
    Tell(game, kPrint, "There are no dice rolls to print.");
    return std::nullopt;
  }
  RollReport report;
  report.Rolls = game.PrintSelectedRolls != 0 ? SelectedRolls(game) : RollRange{1, total};
  if (report.Rolls.Count == 0) {
    Tell(game, kPrint,
         "You checked the box \"Print selected rolls only\" but you haven't selected any dice "
         "rolls to print.");
    return std::nullopt;
  }
  if (!CheckRollText(game, kPrint)) return std::nullopt;
  report.FirstNumber = FirstRollNumber(game, kPrint, report.Rolls.First);
  report.Title = "Feltking Dice Roll File: " +
                 std::filesystem::path(game.DiceRollFileName).filename().string();
  return report;
}

bool ConfirmRollReport(Game& game, const RollReport& report, std::int64_t pages) {
  return AskYesNo(game, "Print Dice Roll File",
                  "Number of rolls to be printed: " + std::to_string(report.Rolls.Count) +
                      "\n\nBased on the options you've selected,\nthis should result in " +
                      std::to_string(pages) + (pages == 1 ? " page." : " pages.") +
                      "\n\nAre you ready to begin printing?",
                  kButtonYes | kButtonNo | kPictureQuestion);
}

std::vector<std::string> RollReportLines(Game& game, const RollReport& report, std::int64_t first,
                                         std::int64_t count) {
  std::vector<std::string> lines;
  const PlainFile* file = DiceRollFile(game);
  count = std::min(count, report.Rolls.Count - first);
  if (file == nullptr || count <= 0) return lines;
  const RollTextParts parts = PartsOfRollText(game);
  std::int64_t number = report.FirstNumber + first;
  const auto take = [&](std::string_view rolls) -> std::optional<FileError> {
    for (const char roll : rolls) lines.push_back(RollText(parts, number++, DiceOf(roll)));
    return std::nullopt;
  };
  if (const auto error = HandOnRolls(*file, {report.Rolls.First + first, count}, take)) {
    game.LastErrorText = error->At("Print Dice Rolls");
  }
  return lines;
}

}  // namespace feltmaster
