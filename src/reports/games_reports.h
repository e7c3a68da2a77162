#pragma once

#include <cstdint>
#include <optional>

#include "game/game.h"
#include "reports/document.h"
#include "reports/report_pages.h"
#include "stats/games_analysis.h"

namespace feltmaster {

// The figures and the histogram of the variable that the Games Log screen has chosen.
Document GamesReport(Game& game, const GamesAnalysis& analysis);

// One of the 32 values of every game that passes the outcome filter, in columns page after page.
class GamesDataReport {
 public:
  GamesDataReport(Game& game, int value);

  std::int64_t PagesFor(std::int64_t games) const { return pages_.PagesFor(table_, games); }
  // Nothing when the log could not be read, which the player has been told.
  std::optional<Document> Make();

 private:
  Game& game_;
  int value_;
  ReportPages pages_;
  Table table_;
};

}  // namespace feltmaster
