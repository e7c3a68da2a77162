#pragma once

#include <QColor>
#include <QString>
#include <QWidget>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "config/configure.h"
#include "desktop/number_field.h"

namespace feltmaster {

// A cell of a drawn table.
struct DrawnCell {
  QString text;
  QColor ink = {};    // none: that of the palette
  QString name = {};  // small, in the upper left corner
  bool heading = false;
  bool at_left = false;  // the text, which otherwise stands at the right
  bool locked = false;
  bool blank = false;  // nothing is drawn, not even the cell
};

// Blue above 0, red below, as the text of a cell says it.
QColor InkOfNumber(const std::string& text, const QPalette& palette);

struct CellPlace {
  int row = 0;
  int column = 0;
  bool operator==(const CellPlace&) const = default;
};

// A table drawn into whatever room there is: rows of the same height, columns by their weights.
class CellPicture : public QWidget {
 public:
  // The least width is that of the weights in letters.
  CellPicture(int rows, std::vector<double> columns, std::function<DrawnCell(CellPlace)> drawn);

  int Rows() const { return rows_; }
  int Columns() const { return static_cast<int>(columns_.size()); }
  QRectF RectOf(CellPlace place) const;
  // Of what stands in it, below its name.
  QRectF TextRectOf(CellPlace place) const;
  QSize sizeHint() const override;

 protected:
  // Nothing outside the cells.
  std::optional<CellPlace> PlaceAt(QPointF point) const;
  void paintEvent(QPaintEvent* event) override;
  virtual bool IsCurrent(CellPlace) const { return false; }

 private:
  QFont SmallFont() const;

  int rows_;
  std::vector<double> columns_;
  double weight_ = 0;
  std::function<DrawnCell(CellPlace)> drawn_;
};

// What the cells of a table are edited by.
struct CellEditing {
  std::function<bool(CellPlace)> editable;
  // What stands in the editor, and what may be typed there; no rule for a cell that takes single
  // keys only.
  std::function<std::string(CellPlace)> entry;
  std::function<std::optional<NumberRule>(CellPlace)> rule;
  std::function<void(CellPlace, const std::string&)> commit;
  // A single key; true when it was one of the cell's own.
  std::function<bool(CellPlace, const QString&)> key;
  // The cell that the arrow keys reach past the last row at the top (-1) or the bottom (1): scrolls
  // if it can.
  std::function<void(int)> scroll = {};
};

// A table with one editor that is moved over the current cell. Enter, the arrow keys and leaving
// the cell commit what was typed; Escape takes it back.
class EditedCells : public CellPicture {
 public:
  EditedCells(int rows, std::vector<double> columns, std::function<DrawnCell(CellPlace)> drawn,
              CellEditing editing, const char* editor_name);

  CellPlace Current() const { return current_; }
  // Commits, and goes to a cell that is editable.
  void GoTo(CellPlace place);
  void Commit();
  // The model has changed.
  void ShowModel();
  QLineEdit& Editor() { return *editor_; }

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  bool IsCurrent(CellPlace place) const override { return place == current_; }

 private:
  void Load();
  bool KeyPressed(int key, const QString& text);
  void Move(int rows, int columns);

  CellEditing editing_;
  NumberField* editor_;
  CellPlace current_;
};

}  // namespace feltmaster
