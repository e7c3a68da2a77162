#include "desktop/message_picture.h"

#include <QFontMetrics>
#include <QLinearGradient>
#include <QPainterPath>
#include <QPolygonF>
#include <QRadialGradient>
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>

#include "desktop/die_picture.h"
#include "desktop/lammer_picture.h"
#include "desktop/paint_tools.h"
#include "game/script.h"

namespace feltmaster {

namespace {

// All are drawn in a square from -50 to 50.
constexpr double kHalf = 50;

void PaintDisc(QPainter& painter, double radius, const QColor& color) {
  QRadialGradient light(QPointF(-radius * 0.4, -radius * 0.5), radius * 1.7);
  light.setColorAt(0.0, Mix(color, Qt::white, 0.35));
  light.setColorAt(1.0, Mix(color, Qt::black, 0.25));
  painter.setBrush(light);
  painter.drawEllipse(QPointF(), radius, radius);
}

void PaintProgram(QPainter& painter) {
  PaintDisc(painter, 47, QColor(0x1B784A));
  painter.setPen(QPen(QColor(255, 255, 255, 210), 2));
  painter.setBrush(Qt::NoBrush);
  painter.drawEllipse(QPointF(), 43, 43);
  const DieColors colors{QColor(0xC8201C), QColor(Qt::white)};
  painter.scale(0.95, 0.95);
  PaintDie(painter, QPointF(-17, -7), 1, colors, {.face = 6, .turn = -14, .height = 0});
  PaintDie(painter, QPointF(18, 10), 1, colors, {.face = 5, .turn = 20, .height = 0});
}

void PaintStop(QPainter& painter) {
  const auto octagon = [](double radius) {
    QPolygonF shape;
    for (int i = 0; i < 8; ++i) {
      const double angle = (i + 0.5) * std::numbers::pi / 4;
      shape << QPointF(std::cos(angle), std::sin(angle)) * radius;
    }
    return shape;
  };
  painter.setBrush(QColor(0xF7F5EE));
  painter.drawPolygon(octagon(50));
  QLinearGradient red(QPointF(0, -45), QPointF(0, 45));
  red.setColorAt(0.0, QColor(0xD8342C));
  red.setColorAt(1.0, QColor(0xAE1712));
  painter.setBrush(red);
  painter.drawPolygon(octagon(46));
  PaintText(painter, QRectF(-38, -17, 76, 34), SmallPrint(34), "STOP", QColor(0xF7F5EE));
}

// A blue chip with its edge spots.
void PaintQuestion(QPainter& painter) {
  PaintDisc(painter, 47, QColor(0x2457A8));
  painter.setBrush(Qt::NoBrush);
  QPen spots(QColor(0xF3F0E6), 9, Qt::CustomDashLine, Qt::FlatCap);
  const double sixteenth = 2 * std::numbers::pi * 42.5 / 16 / 9;  // in widths of the pen
  spots.setDashPattern({sixteenth, sixteenth});
  painter.setPen(spots);
  painter.drawEllipse(QPointF(), 42.5, 42.5);
  painter.setPen(QPen(QColor(255, 255, 255, 190), 1.5));
  painter.drawEllipse(QPointF(), 34, 34);
  PaintText(painter, QRectF(-26, -27, 52, 54), SmallPrint(62), "?", Qt::white);
}

}  // namespace

MessagePicture PictureOf(std::int32_t options) {
  if ((options & kPictureOk) != 0) return MessagePicture::kOk;
  if ((options & kPictureStop) != 0) return MessagePicture::kStop;
  if ((options & kPictureQuestion) != 0) return MessagePicture::kQuestion;
  return MessagePicture::kProgram;
}

void PaintMessagePicture(QPainter& painter, const QRectF& box, MessagePicture picture) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.translate(box.center());
  const double scale = std::min(box.width(), box.height()) / (2 * kHalf);
  painter.scale(scale, scale);
  switch (picture) {
    case MessagePicture::kProgram:
      PaintProgram(painter);
      break;
    case MessagePicture::kOk:
      PaintLammer(painter, QPointF(), 46, Lammer::kPuckOn);
      break;
    case MessagePicture::kStop:
      PaintStop(painter);
      break;
    case MessagePicture::kQuestion:
      PaintQuestion(painter);
      break;
  }
  painter.restore();
}

PictureWidget::PictureWidget(QWidget* parent, MessagePicture picture)
    : QWidget(parent), picture_(picture) {
  constexpr const char* kNames[] = {"Feltmaster", "Puck", "Stop sign", "Question mark"};
  setObjectName("picture");
  setAccessibleName(kNames[static_cast<std::size_t>(picture)]);
  const int side = QFontMetrics(font()).height() * 3;
  setFixedSize(side, side);
}

void PictureWidget::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  PaintMessagePicture(painter, QRectF(rect()), picture_);
}

}  // namespace feltmaster
