#pragma once

#include <QPainter>
#include <QPixmap>
#include <QPoint>
#include <QPointF>

#include "desktop/layout_picture.h"
#include "table/layout.h"

namespace feltmaster {

// What a press on a bet puts there, as it is shown in the corner and carried by the pointer: a
// chip, the pile of a Chip-Stack, or a disc. `tool` is a value of ChipColor.
void PaintTool(QPainter& painter, QPointF middle, const LayoutLook& look, int tool);

// The pointer over a place of the table: the tool where it takes effect, a hand over what can be
// chosen, an arrow elsewhere. The hot spot is in pixels of the picture.
struct Pointer {
  QPixmap picture;
  QPoint hot_spot;
};
// `call_bet_mode` above 0 means that a command waits for a press on a bet. The picture is made for
// screens with `pixel_ratio` device pixels to a pixel, at `size` pixels wide.
Pointer PointerOver(const LayoutLook& look, int selected_tool, int call_bet_mode, const Hit& hit,
                    double size, double pixel_ratio);

}  // namespace feltmaster
