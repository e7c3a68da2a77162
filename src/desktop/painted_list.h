#pragma once

#include <QColor>
#include <QScrollBar>
#include <QString>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <vector>

namespace feltmaster {

// A list painted row by row. It holds only the rows in view, so that it can stand over files of any
// length: whoever fills it knows which row is at the top, and hands over those that fit.

struct ListCell {
  QString text;
  QColor ink = {};  // the palette's where none is given

  bool operator==(const ListCell&) const = default;
};

struct ListRow {
  enum class Ground { kPlain, kSelected, kCurrent };

  std::vector<ListCell> cells;
  Ground ground = Ground::kPlain;
  bool framed = false;  // the cursor stands here

  bool operator==(const ListRow&) const = default;
};

struct ListColumn {
  QString header;
  double letters = 0;  // wide; 0 takes the room that the others leave
  Qt::Alignment align = Qt::AlignLeft;
};

// A place in the list: the row in view, counted from 0, which may lie above or below those that are
// there, and the column.
struct ListPlace {
  int row = 0;
  int column = 0;
};

class PaintedList : public QWidget {
 public:
  // The names are those of the list and of its scroll bar.
  PaintedList(QWidget* parent, const char* name, const char* bar_name,
              std::vector<ListColumn> columns);

  void SetHeader(int column, const QString& header);
  void Show(std::vector<ListRow> rows);
  // Rows that fit whole, and the height that so many need.
  int RowsShown() const;
  int HeightFor(int rows) const;
  // The scale of the scroll bar, and where it stands.
  void ShowScroll(int first, int last, int place);

  // Of a cell in view.
  QRect CellRect(const ListPlace& place) const;
  ListPlace PlaceAt(const QPoint& point) const;

  // The view is to move by so many rows: the bar's arrows and ends, the wheel, the keys where
  // nobody takes them.
  std::function<void(int rows)> StepBy = [](int) {};
  // The bar was put here.
  std::function<void(int place)> GoTo = [](int) {};
  // Another number of rows fits.
  std::function<void()> Resized = [] {};
  std::function<void(const ListPlace&, QMouseEvent&)> Pressed = [](const ListPlace&, QMouseEvent&) {
  };
  std::function<void(const ListPlace&)> DoublePressed = [](const ListPlace&) {};
  // The pointer has gone to this row with a button down; beside the list it scrolls along.
  std::function<void(const ListPlace&)> Dragged = [](const ListPlace&) {};
  std::function<void(const ListPlace&)> Released = [](const ListPlace&) {};
  // True when the key was taken.
  std::function<bool(QKeyEvent&)> KeyPressed = [](QKeyEvent&) { return false; };

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  int RowHeight() const;
  int HeaderHeight() const;
  QRect ListArea() const;  // all but the bar
  void Layout();
  void PaintRow(QPainter& painter, int row) const;
  QRect TextRect(const ListPlace& place) const;
  void ScrollAlong();

  std::vector<ListColumn> columns_;
  std::vector<int> lefts_;  // of the columns, and the right end of the last
  std::vector<ListRow> rows_;
  QScrollBar bar_;
  QTimer scroll_along_;
  QPoint pointer_;
  int wheel_ = 0;  // turned, but less than a step
};

}  // namespace feltmaster
