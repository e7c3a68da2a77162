#pragma once

#include <QFrame>
#include <functional>
#include <vector>

#include "desktop/option_row.h"
#include "desktop/screen_window.h"
#include "game/bet_sets.h"

class QBoxLayout;
class QLabel;
class QListWidget;
class QToolButton;

namespace feltmaster {

// The standing orders of the player: what becomes of decided bets, how amounts are corrected, and
// how the dice roll by themselves. Each control writes its setting at once.
class AutoPlayScreen : public ScreenWindow {
 public:
  static constexpr ScreenTraits kTraits = {"frmAutoPlay", "Auto-Play", 120};
  explicit AutoPlayScreen(Screens& screens);

  void Refresh() override;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QWidget* HandlingGroup(const char* title, const char* name, int same_option, int bet_option);
  QWidget* AmountsGroup();
  QWidget* ChoicesGroup();
  QWidget* AutoRollGroup();
  void AddChoices(QBoxLayout& column, const char* name);
  void AddBox(QBoxLayout& column, const char* name, const char* caption);
  AmountField* AddNumber(const char* name, const char* setting, int decimals,
                         std::function<int()> value);
  void AddOption(QBoxLayout& column, int at, int option, bool same_bet);

  // The list of what works on the come-out, which drops down from its button.
  void BuildWorkPanel();
  void ShowWorkPanel(bool show);
  void PlaceWorkPanel();
  void MarkWork(BetMark mark);

  void Set(const char* setting, const QString& value);
  void KeepStops();

  std::vector<std::function<void()>> shows_;  // each shows what one setting is now
  QLabel* left_ = nullptr;
  QListWidget* stops_ = nullptr;
  QToolButton* work_button_ = nullptr;
  QFrame work_panel_;
  QListWidget* work_ = nullptr;
};

}  // namespace feltmaster
