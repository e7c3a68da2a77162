#pragma once

#include <QPainter>
#include <QPointF>

namespace feltmaster {

// The discs with words that a dealer sets beside the chips: the puck, and the marks and tools.
enum class Lammer { kPuckOn, kPuckOff, kMarkOn, kMarkOff, kMarkBuy, kMarkLay };

// Paints a disc with its middle at a point, `radius` in pixels of the picture, with its shadow.
void PaintLammer(QPainter& painter, QPointF middle, double radius, Lammer lammer);

}  // namespace feltmaster
