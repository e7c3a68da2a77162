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

// Two arrows one after the other in a circle: a press brings in the other panel.
void PaintSwitch(QPainter& painter, QPointF middle) {
  for (const double turn : {0.0, 180.0}) {
    QPainterPath arc;
    arc.arcMoveTo(SquareAround({0, 0}, 9), 150);
    arc.arcTo(SquareAround({0, 0}, 9), 150, -120);
    QPainterPath head;
    head.moveTo(12.6, -6.4);
    head.lineTo(4.4, -6.2);
    head.lineTo(9.6, 0.8);
    head.closeSubpath();
    QPainterPathStroker broad;
    broad.setWidth(3);
    const QPainterPath shape =
        Turned(broad.createStroke(arc).united(head), turn).translated(middle);
    FillAndOutline(painter, shape, Qt::white);
  }
}

}  // namespace

void PaintTool(QPainter& painter, QPointF middle, const LayoutLook& look, int tool) {
  if (IsChipTool(tool)) {
    PaintChip(painter, middle, look.chip_design, tool,
              look.chip_texts[static_cast<std::size_t>(tool - kFirstChipTool)]);
  } else if (IsPileTool(tool)) {
    // A small pile, with the number of its place in the rack.
    for (int chip = 0; chip < 3; ++chip) {
      PaintChip(painter, middle + QPointF(0, 2.6 - 2.6 * chip), look.chip_design, 3, {});
    }
    PaintText(painter, SquareAround(middle - QPointF(0, 2.6), 5.5), Lettering(13),
              QString::number(tool - kFirstPileTool + 1), Qt::black);
  } else if (tool == kBuyTool) {
    PaintLammer(painter, middle, 10.5, Lammer::kMarkBuy);
  } else if (tool == kCallOffTool) {
    PaintLammer(painter, middle, 10.5, Lammer::kMarkOff);
  } else if (tool == kCallOnTool) {
    PaintLammer(painter, middle, 10.5, Lammer::kMarkOn);
  }
}

Pointer PointerOver(const LayoutLook& look, int selected_tool, int call_bet_mode, const Hit& hit,
                    double size, double pixel_ratio) {
  const int side = std::max(1, static_cast<int>(std::lround(size * pixel_ratio)));
  QPixmap picture(side, side);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(side / kPointerSide, side / kPointerSide);

  const QPointF middle(kPointerSide / 2, kPointerSide / 2);
  QPointF hot(2, 2);
  const bool on_bet = IsLayoutBet(hit.bet) || IsChipStack(hit.bet);
  if (hit.tool != kNoTool || hit.bet == kHitRecorder) {
    hot = {11, 3};
    PaintHand(painter, hot);
  } else if (hit.bet == kHitPanelCorner) {
    hot = middle;
    PaintSwitch(painter, middle);
  } else if (on_bet && call_bet_mode > 0) {
    constexpr std::array kCarried = {kCallOnTool, kCallOffTool, kBuyTool};
    hot = {11, 3};
    PaintHand(painter, hot);
    if (call_bet_mode <= static_cast<int>(kCarried.size())) {
      painter.translate(22.5, 23);
      painter.scale(0.72, 0.72);
      PaintTool(painter, {0, 0}, look, kCarried[static_cast<std::size_t>(call_bet_mode - 1)]);
    }
  } else if (on_bet) {
    hot = middle;
    PaintTool(painter, middle, look, selected_tool);
  } else {
    PaintArrow(painter, hot);
  }
  painter.end();
  picture.setDevicePixelRatio(pixel_ratio);
  const double to_pixels = size / kPointerSide;
  return {picture, QPoint(static_cast<int>(std::lround(hot.x() * to_pixels)),
                          static_cast<int>(std::lround(hot.y() * to_pixels)))};
}

}  // namespace feltmaster
