#pragma once

#include <QAbstractButton>
#include <QRectF>
#include <QSize>
#include <QWidget>
#include <functional>

class QPainter;

namespace feltmaster {

// Pictures side by side, one of which is chosen by the mouse or with the arrow keys.
struct PictureGridTraits {
  int columns = 1;
  int rows = 1;
  QSize cell;  // as large as it likes to be, in pixels
  std::function<void(QPainter&, const QRectF&, int)> paint;
};

class PictureGrid : public QWidget {
 public:
  explicit PictureGrid(PictureGridTraits traits, QWidget* parent = nullptr);

  void SetChosen(int cell);  // -1 for none
  int Chosen() const { return chosen_; }
  QRectF CellRect(int cell) const;

  std::function<void(int)> OnChosen;  // by the player
  std::function<void()> OnDone;       // the button was released, or Enter, Space or Escape pressed

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  // A place beyond the edge counts as the nearest cell.
  void ChooseAt(QPointF place);
  void Choose(int cell);

  PictureGridTraits traits_;
  int chosen_ = -1;
};

// The picture of the design in use. A press, Enter or Space drops the list of the designs down, and
// the keys Up and Down go from one to the next, round and round.
class DesignPicker : public QAbstractButton {
 public:
  // Designs are counted from 0. The list bears this name.
  DesignPicker(PictureGridTraits designs, const char* list_name);

  void SetDesign(int design);
  std::function<void(int)> OnChosen;

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void DropDown();

  PictureGridTraits designs_;
  PictureGrid list_;
};

}  // namespace feltmaster
