#pragma once

#include "desktop/rows_table.h"
#include "desktop/screen_window.h"

namespace feltmaster {

// The current run of wins or losses of every bet, in three columns.
class BetTrendsScreen : public ScreenWindow {
 public:
  static constexpr ScreenTraits kTraits = {"frmBetTrends", "Bet Trends", 750, kBetTrendsScreen};
  explicit BetTrendsScreen(Screens& screens);

  void Refresh() override;

 private:
  RowsTable* table_;
};

}  // namespace feltmaster
