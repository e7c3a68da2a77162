#pragma once

#include <QColor>

#include "view/palette.h"

namespace feltmaster {

// A colour of the 16 that stored numbers mean.
inline QColor InkColor(int number) {
  const Rgb rgb = PaletteRgb(number);
  return QColor(rgb.red, rgb.green, rgb.blue);
}

}  // namespace feltmaster
