#pragma once

#include <QFrame>
#include <array>

#include "desktop/amount_field.h"
#include "desktop/menu_table.h"
#include "desktop/painted_list.h"
#include "desktop/screen_window.h"
#include "engine/chip_stacks.h"

namespace feltmaster {

// The hundred Chip-Stacks, edited in a box that stands on the cells of their list.
class StackValuesScreen : public ScreenWindow {
 public:
  static constexpr ScreenTraits kTraits = {"frmStackValues", "Chip-Stacks", 240,
                                           kStackValuesScreen};
  explicit StackValuesScreen(Screens& screens);

  void Refresh() override;

 protected:
  bool MayClose() override;
  QSize PreferredSize() const override;
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void BuildMenus();
  void BuildPanel();
  void ScrollTo(int stack);

  // The entry box. What was typed is kept when it moves on; what was not touched is left alone, so
  // that a script may change it meanwhile.
  void OpenBox(const StackCell& cell);
  void CommitBox();
  void CloseBox();
  void ShowCell();
  void PlaceBox();
  bool MovesBox(int key) const;
  void MoveBox(int key);

  // The Chip-Stacks that lie on the table.
  void OpenPanel();
  void AcceptPanel();
  void ClosePanel();
  void PlacePanel();

  PaintedList list_;
  AmountField box_;
  const QValidator* amounts_;  // what the box takes on a value
  StackCell cell_;
  QFrame panel_;
  std::array<AmountField*, 4> visible_{};
};

}  // namespace feltmaster
