#pragma once

#include <QWidget>
#include <functional>
#include <optional>

#include "game/game.h"
#include "stats/games_analysis.h"
#include "view/games_screen.h"

namespace feltmaster {

// The histogram of the Games Log, with the two pointers of the range under it. The left button
// drags the first, the right one the second, both together both; Left and Right move the one moved
// last, with Shift by bars.
class GamesHistogramView : public QWidget {
 public:
  GamesHistogramView(QWidget* parent, Game& game);

  // What is shown, which must outlive this or be replaced; null shows the text alone.
  void Show(GamesAnalysis* analysis, const QString& text = {});

  // The range has moved.
  std::function<void()> RangeMoved = [] {};

  // The middle of a column of the picture.
  QPointF PlaceOf(int column) const;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  QRectF Plot() const;
  int ColumnAt(double x) const;
  void DragPointers(const QMouseEvent& event);
  void PaintHistogram(QPainter& painter) const;
  void PaintPointer(QPainter& painter, int pointer) const;
  bool IsEmpty() const { return analysis_ == nullptr || analysis_->included == 0; }

  Game& game_;
  GamesAnalysis* analysis_ = nullptr;
  QString text_;  // in place of a picture
};

}  // namespace feltmaster
