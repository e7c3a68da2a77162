#pragma once

#include <vector>

#include "desktop/figure_grid.h"
#include "desktop/screen_window.h"

namespace feltmaster {

// A digest of the game on one page.
class SummaryScreen : public ScreenWindow {
 public:
  static constexpr ScreenTraits kTraits = {"frmSummary", "Summary", 700, kSummaryScreen};
  explicit SummaryScreen(Screens& screens);

  void Refresh() override;

 protected:
  QSize PreferredSize() const override;

 private:
  QWidget* page_;
  std::vector<FigureGrid*> groups_;
};

}  // namespace feltmaster
