#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "files/roll_file.h"
#include "game/game.h"

namespace feltmaster {

// The commands of the Dice Roll Files screen that ask for a file or put questions first. Each gives
// false when the player gave up or it failed, which the player has been told.
bool OpenRollFileCommand(Game& game);
bool CopyToRollFileCommand(Game& game);
bool CopyRollsToTextCommand(Game& game);
bool PasteFromRollFileCommand(Game& game);
bool PasteFromTextCommand(Game& game);

// What the printed report is made of.
struct RollReport {
  std::string Title;
  RollRange Rolls;
  std::int64_t FirstNumber = 1;  // of the first roll, in print
};
// The longest texts a line can begin and go on with: the measure of its columns.
inline constexpr std::string_view kWidestRollNumber = "2000000 - ";
inline constexpr std::string_view kWidestRollDice = "(6-6)";
// Refuses, or asks about the numbers; nothing when there is nothing to be printed.
std::optional<RollReport> PrepareRollReport(Game& game);
// The question that goes before the printing.
bool ConfirmRollReport(Game& game, const RollReport& report, std::int64_t pages);
// Lines of the report, `count` of them or as many as there are, from line `first` on, which counts
// from 0.
std::vector<std::string> RollReportLines(Game& game, const RollReport& report, std::int64_t first,
                                         std::int64_t count);

}  // namespace feltmaster
