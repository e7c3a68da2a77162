#pragma once

#include <QPainter>
#include <QPointF>
#include <string>

#include "base/money.h"
#include "engine/chip_list.h"

namespace feltmaster {

inline constexpr int kChipDesigns = 7;

// What is printed on a chip: the plain amount; below 1 two decimals, or whole cents with the sign
// of cents.
std::string ChipText(MoneyAmount denomination, bool cents_symbol);

// Paints a chip with its middle at a point, 22 pixels of the picture wide, with its shadow.
// `design` is 1 to 7, `chip` 1 to 5 or kMarkerChip; numbers out of range take the nearest one.
// `text` is printed as large as it fits; the marker takes none.
void PaintChip(QPainter& painter, QPointF middle, int design, int chip, const std::string& text);

// How far the picture of a chip reaches from its middle, shadow included.
inline constexpr double kChipReach = 12.5;

}  // namespace feltmaster
