#pragma once

#include <QRadioButton>
#include <QScrollArea>
#include <array>

#include "desktop/figure_grid.h"
#include "desktop/roll_bars.h"
#include "desktop/screen_window.h"

namespace feltmaster {

// How often each roll came, against how often it should: a table over bars.
class RollTotalsScreen : public ScreenWindow {
 public:
  static constexpr ScreenTraits kTraits = {"frmRollTotals", "Roll Totals", 720, kRollTotalsScreen};
  explicit RollTotalsScreen(Screens& screens);

  void Refresh() override;

 protected:
  QSize PreferredSize() const override;

 private:
  void AddMenus();
  void KeepScroll(Qt::Orientation along, std::int32_t Game::*kept);

  FigureGrid* total_;
  std::array<QRadioButton*, 2> compare_;
  QScrollArea* scroll_;
  RollBars* bars_;
};

}  // namespace feltmaster
