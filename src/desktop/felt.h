#pragma once

#include <QColor>
#include <QImage>
#include <QPainterPath>
#include <QRectF>

namespace feltmaster {

// The nine cloths of the table, by TextureRow: 0 smooth, 1 brushed nap, 2 linen, 3 twill, 4 suede,
// 5 quilted diamonds, 6 wood grain, 7 damask with the suits of cards, 8 wool felt.
inline constexpr int kFeltCount = 9;

// A cloth as a map of light, 0 to 255 around 128, for the whole picture of the table at twice its
// grid. An index out of range gives cloth 0.
QImage FeltLight(int texture);

// Gives what is painted inside `shape` the weave and the light of a cloth. What differs from the
// colour of the `ground` is ink, which lies smoother. The image must be Format_RGB32; `scale` is
// its device pixels for each pixel of the picture.
void PressIntoFelt(QImage& image, const QPainterPath& shape, const QImage& light,
                   const QColor& ground, double scale);

}  // namespace feltmaster
