#include "desktop/die_picture.h"

#include <QLinearGradient>
#include <QRadialGradient>
#include <algorithm>
#include <array>
#include <cstddef>
#include <span>

#include "desktop/paint_tools.h"

namespace feltmaster {

namespace {

constexpr double kHalf = 14.2;  // of a face; the die's square of 32 pixels also holds its shadow

// Places of the pips of a face, in thirds of the way to its edge.
std::span<const QPointF> PipsOf(int face) {
  static const std::array<QPointF, 21> kPips = {{{0, 0},                                       //
                                                 {-1, -1}, {1, 1},                             //
                                                 {-1, -1}, {0, 0},  {1, 1},                    //
                                                 {-1, -1}, {1, -1}, {-1, 1}, {1, 1},           //
                                                 {-1, -1}, {1, -1}, {0, 0},  {-1, 1}, {1, 1},  //
                                                 {-1, -1}, {1, -1}, {-1, 0}, {1, 0},  {-1, 1},
                                                 {1, 1}}};
  const auto pips = static_cast<std::size_t>(std::clamp(face, 1, 6));
  return std::span(kPips).subspan(pips * (pips - 1) / 2, pips);
}

constexpr double kPipSpread = 7.6;
constexpr double kPipRadius = 2.75;

QPainterPath Rounded(const QRectF& box, double radius) {
  QPainterPath shape;
  shape.addRoundedRect(box, radius, radius);
  return shape;
}

void Dot(QPainter& painter, QPointF at, double radius, const QBrush& brush) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(brush);
  painter.drawEllipse(at, radius, radius);
}

// The die of a design, its middle at the origin.
struct Canvas {
  QPainter& painter;
  QColor body;
  QColor pips;
  int face;

  QRectF Face() const { return SquareAround({0, 0}, kHalf); }

  // The pips of the face below, seen through the body, larger and blurred.
  void SeenThrough(double strength) {
    for (const QPointF& pip : PipsOf(7 - face)) {
      const QPointF at = QPointF(pip.x(), -pip.y()) * (kPipSpread * 0.78) + QPointF(0.4, 0.9);
      QRadialGradient blur(at, kPipRadius * 1.25);
      blur.setColorAt(0, WithAlpha(pips, static_cast<int>(85 * strength)));
      blur.setColorAt(0.6, WithAlpha(pips, static_cast<int>(55 * strength)));
      blur.setColorAt(1, WithAlpha(pips, 0));
      Dot(painter, at, kPipRadius * 1.25, blur);
    }
  }
  // Light that has gone through the body: bright in the middle and at the far edge.
  void Translucent(double radius) {
    const QPainterPath shape = Rounded(Face(), radius);
    QRadialGradient glow(QPointF(3, 4), kHalf * 1.65);
    glow.setColorAt(0.0, Mix(body, Qt::white, 0.30));
    glow.setColorAt(0.45, Mix(body, Qt::white, 0.05));
    glow.setColorAt(1.0, Mix(body, Qt::black, 0.42));
    painter.fillPath(shape, glow);
    // The edges behind, seen through.
    painter.setPen(QPen(WithAlpha(Mix(body, Qt::white, 0.5), 95), 0.7));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(Rounded(SquareAround({0.3, 0.7}, kHalf * 0.76), radius * 0.7));
    painter.setPen(QPen(WithAlpha(Mix(body, Qt::black, 0.4), 70), 0.6));
    const double corner = kHalf - 0.6 - radius * 0.3;
    for (const double x : {-1.0, 1.0}) {
      for (const double y : {-1.0, 1.0}) {
        painter.drawLine(QPointF(x, y) * corner, QPointF(x, y) * (kHalf * 0.76 - radius * 0.2));
      }
    }
  }
  void Edge(double radius, double width) {
    QLinearGradient edge(-kHalf, -kHalf, kHalf, kHalf);
    edge.setColorAt(0.0, WithAlpha(Mix(body, Qt::white, 0.75), 230));
    edge.setColorAt(0.5, WithAlpha(body, 120));
    edge.setColorAt(1.0, WithAlpha(Mix(body, Qt::black, 0.65), 230));
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QBrush(edge), width));
    const double inset = width / 2;
    painter.drawPath(Rounded(Face().adjusted(inset, inset, -inset, -inset), radius));
  }
  void Gloss(double radius, int alpha) {
    painter.save();
    painter.setClipPath(Rounded(Face().adjusted(1, 1, -1, -1), radius));
    QPainterPath shine;
    shine.moveTo(-kHalf, -kHalf);
    shine.lineTo(kHalf * 0.75, -kHalf);
    shine.quadTo(-kHalf * 0.1, -kHalf * 0.1, -kHalf, kHalf * 0.6);
    shine.closeSubpath();
    QLinearGradient light(-kHalf, -kHalf, 2, 2);
    light.setColorAt(0, QColor(255, 255, 255, alpha));
    light.setColorAt(1, QColor(255, 255, 255, alpha / 6));
    painter.fillPath(shine, light);
    painter.restore();
  }
  template <typename PaintPip>
  void ForEachPip(PaintPip&& paint_pip) {
    for (const QPointF& pip : PipsOf(face)) paint_pip(pip * kPipSpread);
  }
};

// ---- The designs ------------------------------------------------------------------------------

void RazorEdge(Canvas& die) {  // clear casino dice with flush pips
  die.Translucent(2);
  die.SeenThrough(1);
  die.Gloss(2, 80);
  die.ForEachPip([&die](QPointF at) { Dot(die.painter, at, kPipRadius, die.pips); });
  die.Edge(2, 1.1);
}

void Candy(Canvas& die) {  // round corners, drilled pips
  constexpr double kRound = 8;
  die.Translucent(kRound);
  die.ForEachPip([&die](QPointF at) {
    Dot(die.painter, at, kPipRadius + 0.35, Mix(die.body, Qt::black, 0.55));
    QRadialGradient bowl(at + QPointF(0.8, 0.9), kPipRadius * 1.4);
    bowl.setColorAt(0, die.pips);
    bowl.setColorAt(0.7, Mix(die.pips, Qt::black, 0.05));
    bowl.setColorAt(1, Mix(die.pips, Qt::black, 0.45));
    Dot(die.painter, at, kPipRadius, bowl);
  });
  die.Edge(kRound, 1.2);
  QRadialGradient light(QPointF(-7, -8), 7);
  light.setColorAt(0, QColor(255, 255, 255, 190));
  light.setColorAt(1, QColor(255, 255, 255, 0));
  Dot(die.painter, {-7, -8}, 7, light);
}

void BirdsEye(Canvas& die) {  // frosted, with a ring round each pip
  const QPainterPath shape = Rounded(die.Face(), 3.5);
  QLinearGradient matt(0, -kHalf, 0, kHalf);
  matt.setColorAt(0, Mix(die.body, Qt::white, 0.34));
  matt.setColorAt(1, Mix(die.body, Qt::white, 0.08));
  die.painter.fillPath(shape, matt);
  die.SeenThrough(0.5);
  die.ForEachPip([&die](QPointF at) {
    Dot(die.painter, at, kPipRadius + 0.5, die.pips);
    Dot(die.painter, at, kPipRadius - 0.55, Mix(die.body, Qt::white, 0.12));
    Dot(die.painter, at, kPipRadius - 1.5, die.pips);
  });
  die.Edge(3.5, 0.9);
}

void Marble(Canvas& die) {  // solid stone with veins and a gilded edge
  constexpr double kRound = 5;
  QLinearGradient stone(-kHalf, -kHalf, kHalf, kHalf);
  stone.setColorAt(0, Mix(die.body, Qt::white, 0.16));
  stone.setColorAt(0.5, Mix(die.body, Qt::black, 0.06));
  stone.setColorAt(1, Mix(die.body, Qt::black, 0.4));
  die.painter.fillPath(Rounded(die.Face(), kRound), stone);
  die.painter.save();
  die.painter.setClipPath(Rounded(die.Face(), kRound));
  for (int i = 0; i < 5; ++i) {
    QPainterPath vein;
    vein.moveTo(-kHalf, -12 + 6.5 * i);
    vein.cubicTo(-5, -16 + 8.0 * i, 2, -2 + 3.0 * i, kHalf, -14 + 5.0 * i);
    die.painter.setPen(
        QPen(WithAlpha(Mix(die.body, Qt::white, 0.7), 60 + 15 * (i % 3)), 0.5 + 0.5 * (i % 2)));
    die.painter.drawPath(vein);
  }
  die.painter.restore();
  die.ForEachPip([&die](QPointF at) {
    Dot(die.painter, at, kPipRadius + 0.55, QColor(0xD9, 0xB4, 0x4A));
    Dot(die.painter, at, kPipRadius - 0.25, die.pips);
  });
  die.painter.setBrush(Qt::NoBrush);
  QLinearGradient gilt(-kHalf, -kHalf, kHalf, kHalf);
  gilt.setColorAt(0, QColor(0xFF, 0xED, 0xB0));
  gilt.setColorAt(0.5, QColor(0xC8, 0x9A, 0x2E));
  gilt.setColorAt(1, QColor(0x7A, 0x55, 0x10));
  die.painter.setPen(QPen(QBrush(gilt), 1.5));
  die.painter.drawPath(Rounded(die.Face().adjusted(0.75, 0.75, -0.75, -0.75), kRound));
}

void Neon(Canvas& die) {  // dark, with a shining outline and shining pips
  constexpr double kRound = 6;
  die.painter.fillPath(Rounded(die.Face(), kRound), Mix(die.body, QColor(8, 8, 12), 0.82));
  die.painter.setBrush(Qt::NoBrush);
  for (const double width : {4.5, 2.8, 1.3}) {
    die.painter.setPen(QPen(
        WithAlpha(Mix(die.body, Qt::white, width < 2 ? 0.35 : 0.0), width < 2 ? 255 : 60), width));
    die.painter.drawPath(Rounded(die.Face().adjusted(2.2, 2.2, -2.2, -2.2), kRound - 1.5));
  }
  const QColor shine = die.pips.lightness() < 60 ? Mix(die.body, Qt::white, 0.5) : die.pips;
  die.ForEachPip([&die, &shine](QPointF at) {
    QRadialGradient glow(at, kPipRadius * 1.9);
    glow.setColorAt(0, WithAlpha(shine, 170));
    glow.setColorAt(1, WithAlpha(shine, 0));
    Dot(die.painter, at, kPipRadius * 1.9, glow);
    Dot(die.painter, at, kPipRadius * 0.72, shine);
  });
}

using Design = void (*)(Canvas&);
constexpr std::array<Design, kDieDesigns> kDesigns = {RazorEdge, Candy, BirdsEye, Marble, Neon};
constexpr std::array<double, kDieDesigns> kCorners = {2, 8, 3.5, 5, 6};

void PaintShadow(QPainter& painter, double corner, double height) {
  const QPointF below = QPointF(1.2, 1.6) + height * QPointF(3, 5);
  for (int layer = 0; layer < 4; ++layer) {
    const double grow = layer * (0.55 + 0.6 * height);
    painter.fillPath(Rounded(SquareAround(below, kHalf - 0.6 + grow), corner + grow),
                     QColor(0, 0, 0, static_cast<int>(46 - 18 * height)));
  }
}

}  // namespace

void PaintDie(QPainter& painter, QPointF middle, int design, const DieColors& colors,
              const DiePose& pose) {
  const auto look = static_cast<std::size_t>(std::clamp(design, 1, kDieDesigns) - 1);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(middle);
  painter.save();
  painter.rotate(pose.turn);
  // The shadow falls to the lower right however the die is turned.
  PaintShadow(painter, kCorners[look], 0);
  painter.restore();
  if (pose.height > 0) PaintShadow(painter, kCorners[look], pose.height);
  painter.rotate(pose.turn);
  const double nearer = 1 + 0.12 * pose.height;
  painter.scale(nearer, nearer);
  Canvas die = {painter, colors.body, colors.pips, std::clamp(pose.face, 1, 6)};
  kDesigns[look](die);
  painter.restore();
}

void PaintPrintedDie(QPainter& painter, QPointF corner, double side, const DieColors& colors,
                     int face) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF box(corner, QSizeF(side, side));
  painter.fillPath(Rounded(box, side * 0.17), colors.body);
  for (const QPointF& pip : PipsOf(face)) {
    Dot(painter, box.center() + pip * (side * 0.265), side * 0.105, colors.pips);
  }
  painter.restore();
}

}  // namespace feltmaster
