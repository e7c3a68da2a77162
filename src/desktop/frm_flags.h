#pragma once

#include <QListWidget>
#include <array>

#include "autobet/flags.h"
#include "desktop/screen_window.h"

class QLabel;
class QPushButton;

namespace feltmaster {

// The flags of the script, each with its truth, to be set by hand.
class FlagsScreen : public ScreenWindow {
 public:
  static constexpr ScreenTraits kTraits = {"frmFlags", "Flag Values", 1040, kFlagsScreen};
  explicit FlagsScreen(Screens& screens);

  void Refresh() override;

 private:
  void SetSelected(FlagButton button);

  QListWidget* list_;
  QLabel* none_;
  std::array<QPushButton*, 4> buttons_{};
};

}  // namespace feltmaster
