#pragma once

#include <QImage>
#include <QLineEdit>
#include <QTimer>
#include <QWidget>
#include <optional>
#include <utility>
#include <vector>

#include "desktop/table_picture.h"
#include "table/table_input.h"

namespace feltmaster {

// The drawn table in its window: shows the picture as large as its shape fits, and hands presses,
// keys and the pointer on to the game, scaled back to the picture's pixels.
class TableCanvas : public QWidget {
 public:
  TableCanvas(Game& game, QWidget* parent);

  // What stands on the table has changed (`what` is a set of TableChange). The picture follows when
  // events are let through next, or at once by ShowNow.
  void Change(std::uint32_t what);
  void ShowNow();

  void SetBanner(std::string banner);
  // Dice in flight over the table; the last ones shown lie where they are until they are returned.
  void ThrowDice(const std::array<DieOnTable, 2>& dice);
  void DiceLie() { dice_fly_ = false; }
  // Chips of a shower, over all that stands on the table until it is cleared away.
  void AddShowerChip(Pixel at, int chip);
  void ClearShower();

  // Between the pixels of the picture and those of the widget.
  QPointF ToWidget(QPointF pixel) const;
  Pixel ToPixel(QPointF place) const;

  QSize sizeHint() const override { return {kTableWidth * 3 / 2, kTableHeight * 3 / 2}; }
  QSize minimumSizeHint() const override { return {kTableWidth / 2, kTableHeight / 2}; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  bool event(QEvent* event) override;  // what a bet pays, when the pointer rests on it
  bool eventFilter(QObject* watched, QEvent* event) override;  // the keys of the entry box

 private:
  double FittingScale() const;  // device pixels for each pixel of the picture
  QRect PictureRect() const;    // in device pixels of the widget
  QRegion ToUpdate(const QRegion& picture) const;
  void ComposeForThisSize();
  bool TakeKey(QKeyEvent* event);
  void FillEntryBox();
  void ShowPointer(Qt::KeyboardModifiers held);

  Game& game_;
  FeltStore felts_;
  TablePicture picture_;
  TableView view_;
  QTimer follow_;   // the picture follows the game
  QTimer settle_;   // the window has kept its size for a moment
  QImage resized_;  // the picture at an earlier size, while the window changes its own
  std::vector<std::pair<Pixel, int>> shower_;
  QLineEdit entry_box_;
  bool dice_fly_ = false;
  Pixel pointer_at_;
  std::optional<PointerImage> pointer_;
};

}  // namespace feltmaster
