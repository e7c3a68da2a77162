#pragma once

#include <QPalette>
#include <array>
#include <functional>

#include "autobet/hot_keys.h"
#include "desktop/menu_table.h"
#include "desktop/painted_list.h"
#include "desktop/screen_window.h"

class QComboBox;
class QLineEdit;

namespace feltmaster {

// The scripts that Ctrl and a key run from the table. A new row is composed in three fields, and
// waits then until the player shows its place in the list.
class HotKeysScreen : public ScreenWindow {
 public:
  static constexpr ScreenTraits kTraits = {"frmHotKeys", "Hot-Keys", 110};
  explicit HotKeysScreen(Screens& screens);

  void Refresh() override;

 protected:
  bool MayClose() override;
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void BuildMenus();
  QWidget* Fields();
  void ConnectList();

  int RowAt(const ListPlace& place) const;
  bool ListKey(QKeyEvent& key);
  void Add();
  void SelectFile();
  void LoadIntoFields(int row);
  void Edit(TextCommand command);
  // Carries out a change of the list and shows it.
  void Change(const std::function<void()>& change);
  void ShowPending();

  PaintedList list_;
  QComboBox* key_ = nullptr;
  QLineEdit* file_ = nullptr;
  QLineEdit* description_ = nullptr;
  bool shown_pending_ = false;
  int pressed_row_ = 0;  // a selected row on which the button went down; 0 for none
  bool dragging_ = false;
};

}  // namespace feltmaster
