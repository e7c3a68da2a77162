#pragma once

#include <QColor>
#include <QPainter>
#include <QPointF>

namespace feltmaster {

inline constexpr int kDieDesigns = 5;

struct DieColors {
  QColor body;
  QColor pips;
};

// How a die lies: the face that shows, 1 to 6, and for one that tumbles how far it is turned, in
// degrees, and how high it flies, 0 (on the cloth) to 1.
struct DiePose {
  int face = 1;
  double turn = 0;
  double height = 0;
};

// Paints a die with its middle at a point, 32 pixels of the picture wide when it lies straight.
// `design` is 1 to 5; numbers out of range take the nearest one.
void PaintDie(QPainter& painter, QPointF middle, int design, const DieColors& colors,
              const DiePose& pose);

// How far the picture of a die reaches from its middle however it is turned, shadow included.
inline constexpr double kDieReach = 36;

// A die as it is printed on the layout: flat, `side` wide, its upper left corner at a point.
void PaintPrintedDie(QPainter& painter, QPointF corner, double side, const DieColors& colors,
                     int face);

}  // namespace feltmaster
