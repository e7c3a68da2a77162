#pragma once

#include <QPainter>
#include <QPixmap>
#include <QPoint>
#include <QPointF>

#include "desktop/layout_picture.h"
#include "table/table_input.h"

namespace feltmaster {

// What a press on a bet puts there, as it is shown in the corner and carried by the pointer: a
// chip, the pile of a Chip-Stack, or a disc. `tool` is a value of ChipColor.
void PaintTool(QPainter& painter, QPointF middle, const LayoutLook& look, int tool);

// The picture of a pointer: what a press would do, with the tool or its sign at the hot spot.
struct PointerPicture {
  QPixmap picture;
  QPoint hot_spot;  // in pixels of `size`
};
// `size` pixels wide, for a screen with `pixel_ratio` device pixels to a pixel.
PointerPicture PaintPointer(const LayoutLook& look, const PointerImage& image, double size,
                            double pixel_ratio);

}  // namespace feltmaster
