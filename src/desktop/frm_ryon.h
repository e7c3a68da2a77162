#pragma once

#include "desktop/dice_panel.h"
#include "desktop/screen_window.h"

namespace feltmaster {

// The panel "Dice Rolls", which floats above the table: the player picks the next roll.
class RyonScreen : public ScreenWindow {
 public:
  static constexpr ScreenTraits kTraits = {"frmRYON", "Dice Rolls", 0, kRyonScreen};

  explicit RyonScreen(Screens& screens);

  void Refresh() override { panel_->Refresh(); }
  void StepAside(bool aside) override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  DicePanel* panel_;
};

}  // namespace feltmaster
