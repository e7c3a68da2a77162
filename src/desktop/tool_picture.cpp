#include "desktop/tool_picture.h"

#include <algorithm>
#include <cmath>

#include "desktop/chip_picture.h"
#include "desktop/lammer_picture.h"
#include "desktop/paint_tools.h"

namespace feltmaster {

namespace {

constexpr double kPointerSide = 32;  // of the square in which a pointer is drawn

void FillAndOutline(QPainter& painter, const QPainterPath& shape, const QColor& fill) {
  painter.strokePath(shape, QPen(Qt::black, 2.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.fillPath(shape, fill);
}

// Its tip at a point.
void PaintArrow(QPainter& painter, QPointF tip) {
  QPainterPath arrow(tip);
  for (const QPointF& corner : {QPointF(0, 17), QPointF(4, 13.4), QPointF(6.6, 19.4),
                                QPointF(9.4, 18.2), QPointF(6.8, 12.4), QPointF(12, 12.2)}) {
    arrow.lineTo(tip + corner);
  }
  arrow.closeSubpath();
  FillAndOutline(painter, arrow, Qt::white);
}

// A hand that points upwards, the tip of its finger at a point.
void PaintHand(QPainter& painter, QPointF tip) {
  QPainterPath hand;
  hand.setFillRule(Qt::WindingFill);
  hand.addRoundedRect(QRectF(-2, 0, 4.4, 15), 2.2, 2.2);
  hand.addRoundedRect(QRectF(2, 8, 4.2, 9), 2.1, 2.1);
  hand.addRoundedRect(QRectF(5.8, 9, 4.2, 9), 2.1, 2.1);
  hand.addRoundedRect(QRectF(9.4, 10.6, 3.8, 8), 1.9, 1.9);
  hand.addRoundedRect(QRectF(-2, 12, 15.2, 11.5), 4.5, 4.5);
  QPainterPath thumb;
  thumb.addRoundedRect(QRectF(-2.1, -5.4, 4.2, 11), 2.1, 2.1);
  hand.addPath(Turned(thumb, -42).translated(-3.6, 14.6));
  FillAndOutline(painter, hand.simplified().translated(tip), Qt::white);
}

void PaintHourglass(QPainter& painter, QPointF middle) {
  QPainterPath glass;
  glass.moveTo(-7, -11);
  glass.lineTo(7, -11);
  glass.cubicTo(7, -3, 1.2, -3, 1.2, 0);
  glass.cubicTo(1.2, 3, 7, 3, 7, 11);
  glass.lineTo(-7, 11);
  glass.cubicTo(-7, 3, -1.2, 3, -1.2, 0);
  glass.cubicTo(-1.2, -3, -7, -3, -7, -11);
  glass.closeSubpath();
  FillAndOutline(painter, glass.translated(middle), Qt::white);
  for (const double y : {-11.5, 11.5}) {
    QPainterPath plate;
    plate.addRoundedRect(QRectF(middle.x() - 8.5, middle.y() + y - 1.6, 17, 3.2), 1.4, 1.4);
    FillAndOutline(painter, plate, QColor(0xC9, 0xA2, 0x4A));
  }
  QPainterPath sand;
  sand.moveTo(-5.4, 10);
  sand.quadTo(0, 1.5, 5.4, 10);
  sand.closeSubpath();
  painter.fillPath(sand.translated(middle), QColor(0xD9, 0x8A, 0x14));
}

void PaintBeam(QPainter& painter, QPointF middle) {  // of a text field
  QPainterPath beam;
  beam.addRect(QRectF(-0.9, -9, 1.8, 18));
  beam.addRect(QRectF(-4, -10, 8, 1.8));
  beam.addRect(QRectF(-4, 8.2, 8, 1.8));
  beam.setFillRule(Qt::WindingFill);
  FillAndOutline(painter, beam.translated(middle), Qt::white);
}

// A round sign beside a tool: minus for what is taken off, a cross for what is taken down.
void PaintSign(QPainter& painter, QPointF middle, bool cross) {
  QPainterPath disc;
  disc.addEllipse(middle, 5.4, 5.4);
  FillAndOutline(painter, disc, QColor(0xD2, 0x1F, 0x26));
  painter.setPen(QPen(Qt::white, 2, Qt::SolidLine, Qt::RoundCap));
  constexpr double kArm = 2.4;
  if (cross) {
    painter.drawLine(middle - QPointF(kArm, kArm), middle + QPointF(kArm, kArm));
    painter.drawLine(middle - QPointF(kArm, -kArm), middle + QPointF(kArm, -kArm));
  } else {
    painter.drawLine(middle - QPointF(kArm + 0.6, 0), middle + QPointF(kArm + 0.6, 0));
  }
}

// Some chips one on the other, with the number of a place in the rack or without.
void PaintPile(QPainter& painter, QPointF middle, const LayoutLook& look, const QString& number) {
  constexpr int kGreen = 3;
  for (int chip = 0; chip < 3; ++chip) {
    PaintChip(painter, middle + QPointF(0, 2.6 - 2.6 * chip), look.chip_design, kGreen, {});
  }
  PaintText(painter, SquareAround(middle - QPointF(0, 2.6), 5.5), Lettering(13), number, Qt::black);
}

}  // namespace

void PaintTool(QPainter& painter, QPointF middle, const LayoutLook& look, int tool) {
  if (IsChipTool(tool)) {
    PaintChip(painter, middle, look.chip_design, tool,
              look.chip_texts[static_cast<std::size_t>(tool - kFirstChipTool)]);
  } else if (IsPileTool(tool)) {
    PaintPile(painter, middle, look, QString::number(tool - kFirstPileTool + 1));
  } else if (tool == kBuyTool) {
    PaintLammer(painter, middle, 10.5, Lammer::kMarkBuy);
  } else if (tool == kCallOffTool) {
    PaintLammer(painter, middle, 10.5, Lammer::kMarkOff);
  } else if (tool == kCallOnTool) {
    PaintLammer(painter, middle, 10.5, Lammer::kMarkOn);
  }
}

PointerPicture PaintPointer(const LayoutLook& look, const PointerImage& image, double size,
                            double pixel_ratio) {
  const int side = std::max(1, static_cast<int>(std::lround(size * pixel_ratio)));
  QPixmap picture(side, side);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(side / kPointerSide, side / kPointerSide);

  const QPointF middle(kPointerSide / 2, kPointerSide / 2);
  const QPointF corner(24, 24);  // of a sign
  QPointF hot = middle;
  switch (image.shape) {
    case PointerShape::kArrow:
      hot = {2, 2};
      PaintArrow(painter, hot);
      break;
    case PointerShape::kBusy:
      PaintHourglass(painter, middle);
      break;
    case PointerShape::kHand:
      hot = {11, 3};
      PaintHand(painter, hot);
      break;
    case PointerShape::kText:
      PaintBeam(painter, middle);
      break;
    case PointerShape::kChip:
    case PointerShape::kPile:
      PaintTool(painter, middle, look, image.tool);
      break;
    case PointerShape::kTakeChip:
      PaintTool(painter, middle, look, image.tool);
      PaintSign(painter, corner, false);
      break;
    case PointerShape::kTakeAll:
      PaintPile(painter, middle, look, {});
      PaintSign(painter, corner, true);
      break;
    case PointerShape::kBuyIt:
      PaintTool(painter, middle, look, kBuyTool);
      break;
    case PointerShape::kTurnOn:
      PaintTool(painter, middle, look, kCallOnTool);
      break;
    case PointerShape::kTurnOff:
      PaintTool(painter, middle, look, kCallOffTool);
      break;
    case PointerShape::kLifted:
      PaintPile(painter, middle - QPointF(0, 3), look, {});
      PaintHand(painter, middle + QPointF(1, 0));
      break;
  }
  painter.end();
  picture.setDevicePixelRatio(pixel_ratio);
  const double to_pixels = size / kPointerSide;
  return {picture, QPoint(static_cast<int>(std::lround(hot.x() * to_pixels)),
                          static_cast<int>(std::lround(hot.y() * to_pixels)))};
}

}  // namespace feltmaster
