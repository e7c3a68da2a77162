#include "desktop/lammer_picture.h"

#include <QLinearGradient>
#include <QRadialGradient>
#include <array>
#include <cstddef>

#include "desktop/paint_tools.h"

namespace feltmaster {

namespace {

struct Look {
  const char* word;
  QRgb body;
  QRgb ink;
  QRgb ring;
};
constexpr std::array<Look, 6> kLooks = {{{"ON", 0xFFF7F5EE, 0xFF15130F, 0xFF15130F},
                                         {"OFF", 0xFF1B1B1E, 0xFFF7F5EE, 0xFFD8D4C8},
                                         {"ON", 0xFFF7F5EE, 0xFF0B7A33, 0xFF0B7A33},
                                         {"OFF", 0xFF1B1B1E, 0xFFFF5A4D, 0xFFFF5A4D},
                                         {"BUY", 0xFFF2C230, 0xFF2A1B00, 0xFF2A1B00},
                                         {"LAY", 0xFF2457A8, 0xFFFFFFFF, 0xFFCFE0FF}}};

QPainterPath Disc(QPointF middle, double radius) {
  QPainterPath shape;
  shape.addEllipse(middle, radius, radius);
  return shape;
}

}  // namespace

void PaintLammer(QPainter& painter, QPointF middle, double radius, Lammer lammer) {
  const Look& look = kLooks[static_cast<std::size_t>(lammer)];
  const QColor body(look.body);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);

  const double thick = radius * 0.1;  // the disc's side, seen a little from above
  const double face = radius - thick;
  const QPointF top = middle - QPointF(0, thick * 0.5);
  const QPointF below = middle + QPointF(radius * 0.03, thick * 0.75);
  QRadialGradient shadow(below, face + thick);
  shadow.setColorAt(0.0, QColor(0, 0, 0, 160));
  shadow.setColorAt(0.88, QColor(0, 0, 0, 120));
  shadow.setColorAt(1.0, QColor(0, 0, 0, 0));
  painter.fillPath(Disc(below, face + thick), shadow);

  painter.fillPath(Disc(top + QPointF(0, thick), face), Mix(body, QColor(70, 66, 58), 0.6));
  QLinearGradient light(top - QPointF(face, face), top + QPointF(face, face));
  light.setColorAt(0.0, Mix(body, Qt::white, 0.45));
  light.setColorAt(0.5, body);
  light.setColorAt(1.0, Mix(body, Qt::black, 0.22));
  painter.fillPath(Disc(top, face), light);

  painter.setBrush(Qt::NoBrush);
  QLinearGradient bevel(top - QPointF(face, face), top + QPointF(face, face));
  bevel.setColorAt(0.0, QColor(255, 255, 255, 200));
  bevel.setColorAt(0.5, QColor(128, 128, 128, 60));
  bevel.setColorAt(1.0, QColor(0, 0, 0, 150));
  painter.setPen(QPen(QBrush(bevel), radius * 0.06));
  painter.drawEllipse(top, face - radius * 0.03, face - radius * 0.03);
  painter.setPen(QPen(QColor(look.ring), radius * 0.05));
  painter.drawEllipse(top, face * 0.86, face * 0.86);

  const double room = face * (lammer <= Lammer::kPuckOff ? 0.64 : 0.72);
  PaintText(painter, QRectF(top.x() - room, top.y() - room * 0.55, 2 * room, 1.1 * room),
            SmallPrint(radius * 1.1), look.word, QColor(look.ink));
  painter.restore();
}

}  // namespace feltmaster
