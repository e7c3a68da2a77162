#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <array>

#include "desktop/bankroll_canvas.h"
#include "desktop/figure_grid.h"
#include "desktop/screen_window.h"

namespace feltmaster {

// The graph of the bankroll, and the controls of Hyper-Drive.
class BankrollScreen : public ScreenWindow {
 public:
  static constexpr ScreenTraits kTraits = {"frmBankroll", "Bankroll / Hyper-Drive", 710,
                                           kBankrollScreen};
  explicit BankrollScreen(Screens& screens);

  void Refresh() override;

 private:
  QWidget* MakeHead();
  QWidget* MakeScaleButtons();
  QWidget* MakeReferenceBars();
  QWidget* MakeHyperDrive();
  void AddMenus();
  void MoveLine(int line, int x, Qt::KeyboardModifiers held);
  void ShowHyperDrive();

  FigureGrid* head_;
  QLabel* auto_print_;
  BankrollCanvas* canvas_;
  QWidget* references_;
  std::array<QScrollBar*, 2> reference_bars_;
  QLabel* between_;
  QPushButton* hyper_drive_;
  QScrollBar* throttle_;
  QCheckBox* unlimited_;
};

}  // namespace feltmaster
