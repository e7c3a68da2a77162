#pragma once

#include <QWidget>
#include <vector>

#include "view/roll_totals.h"

namespace feltmaster {

// The picture of the Roll Totals: the table of counts and percentages, and below it the bars, each
// under its own column. The captions at the left stay in sight when the rest is scrolled.
class RollBars : public QWidget {
 public:
  explicit RollBars(QWidget* parent);

  void Show(Game& game, const RollTotals& totals);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  struct Places;
  Places PlacesNow() const;
  void PaintBars(QPainter& painter, const Places& at) const;
  QColor ProbableColor(std::size_t bar) const;
  void PaintAxis(QPainter& painter, const Places& at, double left) const;

  RollTotals totals_;
  Rows rows_;  // a row for each line of the table, its caption first
  std::vector<RollTotalsColors> colors_;
  int background_ = 0;
};

}  // namespace feltmaster
