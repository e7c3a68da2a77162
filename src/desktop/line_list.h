#pragma once

#include <QAbstractScrollArea>
#include <functional>

#include "autobet/script_editor.h"

class QMenu;
class QMimeData;

namespace feltmaster {

inline constexpr const char* kPendingLineFormat = "application/x-feltmaster-pending-line";
inline constexpr const char* kSelectedLinesFormat = "application/x-feltmaster-selected-lines";

// The lines of the script, as they are edited. Behind the last one stands an empty row, at which
// the script grows.
class LineList : public QAbstractScrollArea {
 public:
  LineList(Game& game, ScriptEditor& editor, QWidget* parent);

  // Lines, selection or cursor have changed by the list's own doing.
  std::function<void()> changed = [] {};
  // A double press, or Enter, on a line.
  std::function<void(const ScriptLine&)> chosen = [](const ScriptLine&) {};
  // That the right button opens.
  QMenu* menu = nullptr;

  // Shows the lines and where the editor looks at them.
  void ShowLines();
  // The row at a height of the viewport, at most the empty one.
  std::int32_t RowAt(int y) const;
  // Where a row is seen.
  QRect PlaceOf(std::int32_t row) const;
  int RowsShown() const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  bool viewportEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dragLeaveEvent(QDragLeaveEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  int RowHeight() const;
  int NumberWidth() const;
  void PaintRow(QPainter& painter, std::int32_t row) const;
  void PaintCursor(QPainter& painter) const;
  void Press(std::int32_t row, Click click);
  void MoveTo(std::int32_t row, bool extends);
  void ShowDropAt(std::int32_t row);

  Game& game_;
  ScriptEditor& editor_;
  std::int32_t drop_row_ = 0;     // under what is dragged or waits; 0 for none
  std::int32_t pressed_row_ = 0;  // a selected line that may be dragged
  QPoint pressed_at_;
};

}  // namespace feltmaster
