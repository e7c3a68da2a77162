#pragma once

#include <QWidget>
#include <functional>

#include "view/bankroll_graph.h"

namespace feltmaster {

// The picture of the bankroll graph with its scale and labels, as large as the window has room.
class BankrollCanvas : public QWidget {
 public:
  explicit BankrollCanvas(QWidget* parent);

  void Show(BankrollGraph graph);
  const BankrollGraph& Shown() const { return graph_; }

  // Called when the player puts a reference line, 1 or 2, at a position of the graph.
  std::function<void(int line, int x, Qt::KeyboardModifiers held)> Placed;

  // Where the graph itself stands within the widget.
  QRectF GraphPlace() const;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;

 private:
  void PaintGraph(QPainter& painter, const QRectF& place) const;
  void PaintScale(QPainter& painter, const QRectF& place) const;
  void PaintReferenceLabels(QPainter& painter, const QRectF& place) const;
  void PlaceLine(const QMouseEvent& event);

  BankrollGraph graph_;
};

}  // namespace feltmaster
