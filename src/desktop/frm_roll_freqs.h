#pragma once

#include <QComboBox>
#include <QPushButton>

#include "desktop/figure_grid.h"
#include "desktop/rows_table.h"
#include "desktop/screen_window.h"

namespace feltmaster {

// One roll event in depth, with the table of the gaps between its appearances.
class RollFrequenciesScreen : public ScreenWindow {
 public:
  static constexpr ScreenTraits kTraits = {"frmRollFreqs", "Roll Frequencies", 730,
                                           kRollFreqsScreen};
  explicit RollFrequenciesScreen(Screens& screens);

  void Refresh() override;

 private:
  Rows AllRows() const;

  QComboBox* event_;
  FigureGrid* figures_;
  QPushButton* probable_;
  RowsTable* gaps_;
  bool skewed_ = false;  // the probable percentage is that of the skewed dice
};

}  // namespace feltmaster
