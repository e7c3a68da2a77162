#pragma once

#include <QListWidget>
#include <QRadioButton>
#include <array>

#include "desktop/figure_grid.h"
#include "desktop/rows_table.h"
#include "desktop/screen_window.h"
#include "view/bet_results_table.h"

namespace feltmaster {

// What any set of bets has won and lost, combined: the player's own or the continuous $1 wagers.
class BetResultsScreen : public ScreenWindow {
 public:
  static constexpr ScreenTraits kTraits = {"frmBetResults", "Bet Results", 740, kBetResultsScreen};
  explicit BetResultsScreen(Screens& screens);

  void Refresh() override;

 private:
  BetResultsChoice Chosen() const;
  void Choose();
  void ShowChoice(const BetResultsChoice& choice);

  QListWidget* bets_;
  std::array<QRadioButton*, 2> series_;
  FigureGrid* heads_;
  RowsTable* table_;
  BetResultsTable results_;
  std::string shown_;  // the selection as the list shows it
};

}  // namespace feltmaster
