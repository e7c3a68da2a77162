#include "desktop/chip_picture.h"

#include <QRadialGradient>
#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "base/number_format.h"
#include "desktop/paint_tools.h"

namespace feltmaster {

namespace {

constexpr double kRadius = 10.6;

// The colours of a chip: the body, what is set into its edge, its inlay and the ink on the inlay.
struct ChipColors {
  QRgb body;
  QRgb edge;
  QRgb inlay;
  QRgb ink;
};
using Palette = std::array<ChipColors, kMarkerChip>;  // by chip, the marker last

constexpr QRgb kIvory = 0xFFFFF8E7;
constexpr QRgb kBlackInk = 0xFF1A1410;
constexpr QRgb kGold = 0xFFE2B33C;

// The colours that casinos use for 1, 5, 25, 100 and 500.
constexpr Palette kCasino = {{{0xFFF4F1E8, 0xFF2F5DA8, kIvory, kBlackInk},
                              {0xFFC4161C, 0xFFFFFFFF, kIvory, kBlackInk},
                              {0xFF138A3D, 0xFFFFFFFF, kIvory, kBlackInk},
                              {0xFF1C1C20, 0xFFF2F2F2, kIvory, kBlackInk},
                              {0xFF6A2C91, 0xFFF7D65A, kIvory, kBlackInk},
                              {0xFFD98A14, 0xFFFFF1C4, kGold, kBlackInk}}};
constexpr Palette kRiverboat = {{{0xFF8FB7D9, 0xFF24435E, kIvory, 0xFF16324A},
                                 {0xFFB4472F, 0xFFF3D9A8, kIvory, 0xFF5A1B10},
                                 {0xFF4F8A63, 0xFFF3D9A8, kIvory, 0xFF173F27},
                                 {0xFF3A3A42, 0xFFD9B25A, kIvory, 0xFF17171B},
                                 {0xFF7A4E8C, 0xFFF3D9A8, kIvory, 0xFF37204A},
                                 {0xFFC98B2B, 0xFF5C3A0C, kGold, kBlackInk}}};
constexpr Palette kJewels = {{{0xFFE9EDF2, 0xFF8C97A6, 0xFFFFFFFF, 0xFF303A46},
                              {0xFFB00F2E, 0xFFFF6F85, 0xFFFFFFFF, 0xFF7A0A20},
                              {0xFF007A5A, 0xFF5FE0B5, 0xFFFFFFFF, 0xFF00513B},
                              {0xFF1E2A44, 0xFF6C8CD5, 0xFFFFFFFF, 0xFF16203A},
                              {0xFF5B1F80, 0xFFC28BEB, 0xFFFFFFFF, 0xFF3F1160},
                              {0xFFCE8A00, 0xFFFFD772, 0xFFFFF3CC, kBlackInk}}};
constexpr Palette kPastels = {{{0xFFF5F2EA, 0xFFB8B2A2, 0xFFFFFFFF, 0xFF3C3A34},
                               {0xFFF08A8A, 0xFFFFFFFF, 0xFFFFF4F2, 0xFF8A1F1F},
                               {0xFF7CCB92, 0xFFFFFFFF, 0xFFF2FFF5, 0xFF17602D},
                               {0xFF7F8FA6, 0xFFFFFFFF, 0xFFF4F7FB, 0xFF26344A},
                               {0xFFB99AE0, 0xFFFFFFFF, 0xFFF9F4FF, 0xFF4A2878},
                               {0xFFF0C067, 0xFFFFFFFF, 0xFFFFF8E6, 0xFF6B4605}}};
constexpr Palette kNight = {{{0xFF3B3F46, 0xFFE8E8E8, 0xFF17191D, 0xFFFFFFFF},
                             {0xFF5E0F14, 0xFFFF4A4A, 0xFF17191D, 0xFFFF7A73},
                             {0xFF0C4A27, 0xFF3BE07C, 0xFF17191D, 0xFF6BF0A0},
                             {0xFF151518, 0xFF9FA6B2, 0xFF0B0B0D, 0xFFFFFFFF},
                             {0xFF3A1258, 0xFFC07BFF, 0xFF17191D, 0xFFD9AEFF},
                             {0xFF6A4300, 0xFFFFC84A, 0xFF17191D, 0xFFFFD97F}}};

QPainterPath Disc(QPointF middle, double radius) {
  QPainterPath shape;
  shape.addEllipse(middle, radius, radius);
  return shape;
}

// A piece of a ring: `middle_angle` and `sweep` in degrees.
QPainterPath RingPiece(QPointF middle, double outer, double inner, double middle_angle,
                       double sweep) {
  QPainterPath shape;
  shape.arcMoveTo(SquareAround(middle, outer), middle_angle - sweep / 2);
  shape.arcTo(SquareAround(middle, outer), middle_angle - sweep / 2, sweep);
  shape.arcTo(SquareAround(middle, inner), middle_angle + sweep / 2, -sweep);
  shape.closeSubpath();
  return shape;
}

QPointF OnRing(QPointF middle, double radius, double degrees) {
  const double turn = degrees * std::numbers::pi / 180;
  return middle + radius * QPointF(std::cos(turn), std::sin(turn));
}

struct Canvas {
  QPainter& painter;
  QPointF middle;
  QColor body;
  QColor edge;
  QColor inlay;

  void Body() { painter.fillPath(Disc(middle, kRadius), body); }
  void Spots(int count, double sweep, double inner, double turn, const QColor& color) {
    for (int i = 0; i < count; ++i) {
      painter.fillPath(RingPiece(middle, kRadius, inner, turn + 360.0 * i / count, sweep), color);
    }
  }
  void Ring(double radius, double width, const QColor& color) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(color, width));
    painter.drawEllipse(middle, radius, radius);
  }
  void Inlay(double radius) { painter.fillPath(Disc(middle, radius), inlay); }
};

// ---- The designs ------------------------------------------------------------------------------

void Clay(Canvas& chip) {  // six edge spots and a round inlay
  chip.Body();
  chip.Spots(6, 26, 7.7, 90, chip.edge);
  chip.Ring(7.5, 0.45, Mix(chip.body, Qt::black, 0.35));
  chip.Inlay(7.1);
}

void SplitSpots(Canvas& chip) {  // pairs of narrow spots with a third between, brass ring
  chip.Body();
  for (int i = 0; i < 4; ++i) {
    const double turn = 45 + 90.0 * i;
    chip.painter.fillPath(RingPiece(chip.middle, kRadius, 7.4, turn - 17, 11), chip.edge);
    chip.painter.fillPath(RingPiece(chip.middle, kRadius, 7.4, turn + 17, 11), chip.edge);
    chip.painter.fillPath(RingPiece(chip.middle, kRadius, 7.4, turn, 13),
                          Mix(chip.body, Qt::black, 0.45));
  }
  chip.Ring(7.35, 0.8, QColor(kGold));
  chip.Inlay(6.95);
}

void Sunburst(Canvas& chip) {  // rays from the inlay to the rim
  chip.Body();
  for (int i = 0; i < 16; ++i) {
    chip.painter.fillPath(RingPiece(chip.middle, 9.6, 5, 22.5 * i, 11.25), chip.edge);
  }
  chip.Ring(9.95, 1.1, Mix(chip.body, Qt::black, 0.25));
  chip.painter.fillPath(StarShape(chip.middle, 16, 8.0, 7.0), chip.inlay);
}

void Beads(Canvas& chip) {  // a ring of beads
  chip.Body();
  chip.Ring(8.9, 2.3, Mix(chip.body, Qt::black, 0.2));
  for (int i = 0; i < 18; ++i) {
    chip.painter.fillPath(Disc(OnRing(chip.middle, 8.9, 20.0 * i), 0.85), chip.edge);
  }
  chip.Inlay(7.2);
  chip.Ring(7.2, 0.5, Mix(chip.body, Qt::black, 0.1));
}

void Suits(Canvas& chip) {  // the four suits on the rim
  chip.Body();
  constexpr std::array kSuits = {Suit::kSpade, Suit::kHeart, Suit::kClub, Suit::kDiamond};
  chip.Spots(4, 52, 7.3, 90, chip.edge);
  for (int i = 0; i < 4; ++i) {
    const bool red = i % 2 == 1;
    QTransform place;
    const QPointF at = OnRing(chip.middle, 8.95, 90.0 * i - 90);
    place.translate(at.x(), at.y());
    place.rotate(90.0 * i);
    place.scale(1.5, 1.5);
    chip.painter.fillPath(place.map(SuitShape(kSuits[static_cast<std::size_t>(i)])),
                          red ? QColor(0xC8, 0x10, 0x1C) : QColor(0x14, 0x14, 0x14));
  }
  chip.Inlay(7.1);
  chip.Ring(7.1, 0.6, chip.body);
}

void Windmill(Canvas& chip) {  // broad sails in two colours, modern ceramic
  chip.Body();
  for (int i = 0; i < 8; ++i) {
    QPainterPath sail;
    sail.moveTo(OnRing(chip.middle, 4, 45.0 * i - 20));
    sail.lineTo(OnRing(chip.middle, kRadius, 45.0 * i));
    sail.arcTo(SquareAround(chip.middle, kRadius), -45.0 * i, -24);
    sail.lineTo(OnRing(chip.middle, 4, 45.0 * i + 8));
    sail.closeSubpath();
    chip.painter.fillPath(sail, chip.edge);
  }
  chip.Inlay(7.0);
  chip.Ring(6.3, 0.4, Mix(chip.body, Qt::white, 0.2));
}

void Neon(Canvas& chip) {  // dark, with shining rings
  chip.Body();
  chip.Ring(9.3, 0.9, chip.edge);
  chip.Spots(12, 7, 8.1, 0, chip.edge);
  chip.Inlay(7.6);
  chip.Ring(7.6, 0.7, chip.edge);
}

struct Design {
  void (*paint)(Canvas&);
  const Palette& palette;
  double inlay_radius;  // within which the text fits
};
const std::array<Design, kChipDesigns> kDesigns = {{{Clay, kCasino, 6.9},
                                                    {SplitSpots, kRiverboat, 6.7},
                                                    {Sunburst, kJewels, 6.9},
                                                    {Beads, kCasino, 6.9},
                                                    {Suits, kJewels, 6.9},
                                                    {Windmill, kPastels, 6.8},
                                                    {Neon, kNight, 7.2}}};

void PaintShadow(QPainter& painter, QPointF middle) {
  const QPointF below = middle + QPointF(0.7, 1.0);
  QRadialGradient shadow(below, kRadius + 1.2);
  shadow.setColorAt(0.0, QColor(0, 0, 0, 150));
  shadow.setColorAt(0.84, QColor(0, 0, 0, 130));
  shadow.setColorAt(1.0, QColor(0, 0, 0, 0));
  painter.fillPath(Disc(below, kRadius + 1.2), shadow);
}

// Light from the upper left, a dark lower rim and a thin line round the edge.
void PaintRelief(QPainter& painter, QPointF middle) {
  QLinearGradient light(middle - QPointF(7, 8), middle + QPointF(7, 8));
  light.setColorAt(0.0, QColor(255, 255, 255, 95));
  light.setColorAt(0.45, QColor(255, 255, 255, 8));
  light.setColorAt(0.6, QColor(0, 0, 0, 8));
  light.setColorAt(1.0, QColor(0, 0, 0, 90));
  painter.fillPath(Disc(middle, kRadius), light);

  QLinearGradient rim(middle - QPointF(6, 9), middle + QPointF(6, 9));
  rim.setColorAt(0.0, QColor(255, 255, 255, 170));
  rim.setColorAt(0.5, QColor(120, 120, 120, 60));
  rim.setColorAt(1.0, QColor(0, 0, 0, 150));
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(QBrush(rim), 0.9));
  painter.drawEllipse(middle, kRadius - 0.35, kRadius - 0.35);
  painter.setPen(QPen(QColor(0, 0, 0, 150), 0.45));
  painter.drawEllipse(middle, kRadius, kRadius);
}

void PaintChipText(QPainter& painter, QPointF middle, double radius, const QString& text,
                   const QColor& ink) {
  if (text.isEmpty()) return;
  // The widest box of the text's own shape that fits the round inlay; up to four characters keep
  // the largest letters.
  const double size = text.size() <= 2 ? 10.5 : text.size() == 3 ? 8.4 : 7.2;
  const QRectF shape = TextShape(SmallPrint(size), text).boundingRect();
  const double scale = std::min(1.0, 2 * radius / std::hypot(shape.width(), shape.height()));
  PaintText(painter,
            QRectF(middle.x() - shape.width() * scale / 2, middle.y() - shape.height() * scale / 2,
                   shape.width() * scale, shape.height() * scale),
            SmallPrint(size), text, ink);
}

void PaintMarkerStar(QPainter& painter, QPointF middle, const QColor& ink) {
  painter.fillPath(StarShape(middle, 5, 6.2, 2.5), ink);
}

}  // namespace

std::string ChipText(MoneyAmount denomination, bool cents_symbol) {
  if (denomination.Raw() <= 0 || denomination >= MoneyAmount(1)) return PlainNumber(denomination);
  if (!cents_symbol) return FormatNumber(denomination, "0.00");
  return FormatNumber(denomination.Times(100), "0") + "¢";
}

void PaintChip(QPainter& painter, QPointF middle, int design, int chip, const std::string& text) {
  const Design& look = kDesigns[static_cast<std::size_t>(std::clamp(design, 1, kChipDesigns) - 1)];
  const ChipColors& colors =
      look.palette[static_cast<std::size_t>(std::clamp(chip, 1, kMarkerChip) - 1)];
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  PaintShadow(painter, middle);
  Canvas canvas = {painter, middle, QColor(colors.body), QColor(colors.edge), QColor(colors.inlay)};
  look.paint(canvas);
  PaintRelief(painter, middle);
  if (chip >= kMarkerChip) {
    PaintMarkerStar(painter, middle, QColor(colors.ink));
  } else {
    PaintChipText(painter, middle, look.inlay_radius, QString::fromStdString(text),
                  QColor(colors.ink));
  }
  painter.restore();
}

}  // namespace feltmaster
