#pragma once

#include <cstdint>

#include "files/roll_commands.h"
#include "game/game.h"
#include "reports/document.h"
#include "reports/report_pages.h"

namespace feltmaster {

// The rolls of the Dice Roll File in use, in columns of the size of letters that the player chose.
class RollsReport {
 public:
  RollsReport(Game& game, const RollReport& report);

  std::int64_t Pages() const { return pages_.PagesFor(table_, report_.Rolls.Count); }
  // A file that could not be read has left its error in LastErrorText, and not all rolls are there.
  Document Make();

 private:
  Game& game_;
  RollReport report_;
  ReportPages pages_;
  Table table_;
};

}  // namespace feltmaster
