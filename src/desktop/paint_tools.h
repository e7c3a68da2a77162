#pragma once

#include <QColor>
#include <QFont>
#include <QPainter>
#include <QPainterPath>
#include <QPointF>
#include <QRectF>
#include <QString>
#include <cstdint>

#include "table/layout.h"

namespace feltmaster {

// What all pictures of the table are made with. Lengths are pixels of the 640 by 440 picture, in
// fractions; the painter's transformation makes device pixels of them. Letters are painted as
// shapes, so that they have the same form and place at every scale.

// From a stored colour, 0xBBGGRR.
QColor ColorOf(std::int32_t blue_green_red);
// Part of the way from one colour to another, 0 to 1.
QColor Mix(const QColor& from, const QColor& to, double part);
QColor WithAlpha(QColor color, int alpha);
// How well one colour is read on another: 1 for the same, 21 for black on white.
double Contrast(const QColor& a, const QColor& b);

inline QRectF RectOf(const Box& box) {
  return QRectF(box.left, box.top, box.Width(), box.Height());
}
inline QPointF PointOf(Pixel pixel) {
  return QPointF(pixel.x, pixel.y);
}
QRectF SquareAround(QPointF middle, double half);

// The two faces of the table: the one in which the bets are lettered, and that of small print.
QFont Lettering(double size);
QFont SmallPrint(double size);

// The outline of a line of text; its baseline begins at the origin. `spacing` widens each letter.
QPainterPath TextShape(const QFont& font, const QString& text, double spacing = 0);
// A line of text from the origin, up to the last character that fits `room`; `width` is how far it
// came.
struct CutText {
  QPainterPath shape;
  double width = 0;
};
CutText TextWithin(const QFont& font, const QString& text, double room);
// A shape moved so that its middle (not that of its line) comes to a point.
QPainterPath Centred(const QPainterPath& shape, QPointF middle);
// The same, made smaller if it is wider or higher than a box allows, in the middle of the box.
QPainterPath Fitted(const QPainterPath& shape, const QRectF& box);
// Turned about the origin, clockwise in degrees.
QPainterPath Turned(const QPainterPath& shape, double degrees);

// Text round a centre, on its baseline at a radius. The middle of the text stands at `angle`, in
// degrees clockwise from the top. With `inside` the letters stand upright at the lower half: their
// feet point away from the centre.
QPainterPath TextOnArc(const QFont& font, const QString& text, QPointF centre, double radius,
                       double angle, double spacing = 0, bool inside = false);

// Text in the middle of a box, made smaller until it fits.
void PaintText(QPainter& painter, const QRectF& box, const QFont& font, const QString& text,
               const QColor& color, double spacing = 0);

enum class Suit { kSpade, kHeart, kDiamond, kClub };
// In a square from -1 to 1.
QPainterPath SuitShape(Suit suit);

// A star or rosette with `points` tips between two radii.
QPainterPath StarShape(QPointF centre, int points, double outer, double inner);

}  // namespace feltmaster
