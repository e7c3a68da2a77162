#include "desktop/layout_picture.h"

#include <QLinearGradient>
#include <QPainter>
#include <QRadialGradient>
#include <algorithm>
#include <cmath>
#include <span>

#include "config/table_colors.h"
#include "desktop/chip_picture.h"
#include "desktop/die_picture.h"
#include "desktop/felt.h"
#include "desktop/lammer_picture.h"
#include "desktop/paint_tools.h"

namespace feltmaster {

namespace {

constexpr int kWoodGrain = 6;
constexpr QRgb kMahogany = 0xFF4A2415;
constexpr QRgb kBrass = 0xFFC9A24A;
constexpr QRgb kBrassLight = 0xFFF3DFA0;
constexpr QRgb kIvory = 0xFFF6F0DC;

constexpr double kLine = 1.3;
constexpr double kThinLine = 0.7;

QRectF StatusPlate() {
  return QRectF(75, kStatusBox.top - 2, 444, 30);
}
QRectF DiceTray() {
  return QRectF(524, kDiceTray.top + 1, kDiceTray.right - 526, kDiceTray.Height() - 3);
}

QPainterPath BoxShape(const QRectF& box, double radius = 0) {
  QPainterPath shape;
  shape.addRoundedRect(box, radius, radius);
  return shape;
}

// The outline of a band that comes down, turns round the corner and goes on to the right.
QPainterPath BandShape(const CornerBand& band, double inner_gap = 0, double outer_gap = 0) {
  const QPointF centre = PointOf(kCornerCentre);
  const double inner = band.inner + inner_gap;
  const double outer = band.outer - outer_gap;
  QPainterPath shape;
  shape.moveTo(centre.x() - outer, band.top);
  shape.lineTo(centre.x() - outer, centre.y());
  shape.arcTo(SquareAround(centre, outer), 180, 90);
  shape.lineTo(band.right, centre.y() + outer);
  shape.lineTo(band.right, centre.y() + inner);
  shape.lineTo(centre.x(), centre.y() + inner);
  shape.arcTo(SquareAround(centre, inner), 270, -90);
  shape.lineTo(centre.x() - inner, band.top);
  shape.closeSubpath();
  return shape;
}

// The cloth: the felt box with one large round corner, which follows the outermost band.
QPainterPath FeltShape(double grow = 0) {
  // To the right it reaches a little beyond its bets, so that their last line lies on cloth.
  const QRectF box = RectOf(kFeltBox).adjusted(-grow, -grow, 1.6 + 0.4 * grow, grow);
  const QPointF centre = PointOf(kCornerCentre);
  const double large = centre.x() - box.left();
  constexpr double kSmall = 10;
  const double small = kSmall + grow;
  QPainterPath shape;
  shape.moveTo(box.left() + small, box.top());
  shape.lineTo(box.right() - small, box.top());
  shape.arcTo(QRectF(box.right() - 2 * small, box.top(), 2 * small, 2 * small), 90, -90);
  shape.lineTo(box.right(), box.bottom());
  shape.lineTo(box.left() + large, box.bottom());
  shape.arcTo(QRectF(box.left(), box.bottom() - 2 * large, 2 * large, 2 * large), 270, -90);
  shape.lineTo(box.left(), box.top() + small);
  shape.arcTo(QRectF(box.left(), box.top(), 2 * small, 2 * small), 180, -90);
  shape.closeSubpath();
  return shape;
}

// ---- What is printed on the cloth -------------------------------------------------------------

class FeltPrinter {
 public:
  FeltPrinter(QPainter& painter, const LayoutLook& look) : painter_(painter), look_(look) {}

  void Print() {
    PrintBorders();
    PrintPuckPlaces();
    PrintGrid();
    PrintComeBox();
    PrintField();
    PrintBig6And8();
    PrintPassLine();
    PrintCAndE();
    PrintPanel();
    PrintStickCorner();
  }

 private:
  QColor Ink(TableColor which) const {
    return ColorOf(look_.colors[static_cast<std::size_t>(which)]);
  }
  QString Ratio(int bet) const {
    return QString::fromStdString(look_.rules.ratio[static_cast<std::size_t>(bet)]);
  }
  DieColors PrintedDice() const { return {Ink(kColorDice), Ink(kColorPips)}; }

  void Stroke(const QPainterPath& shape, double width) {
    painter_.strokePath(shape,
                        QPen(Ink(kColorLines), width, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
  }
  void Line(double x1, double y1, double x2, double y2, double width = kLine) {
    QPainterPath shape;
    shape.moveTo(x1, y1);
    shape.lineTo(x2, y2);
    Stroke(shape, width);
  }
  void Frame(const Box& box, double width = kLine) { Stroke(BoxShape(RectOf(box)), width); }
  void Text(const QRectF& box, const QFont& font, const QString& text, TableColor ink,
            double spacing = 0) {
    PaintText(painter_, box, font, text, Ink(ink), spacing);
  }
  // With the baseline at y, the middle at x.
  void TextAt(double x, double baseline, const QFont& font, const QString& text, TableColor ink,
              double room, double spacing = 0) {
    QPainterPath shape = TextShape(font, text, spacing);
    const QRectF bounds = shape.boundingRect();
    const double scale = std::min(1.0, room / std::max(bounds.width(), 1.0));
    QTransform place;
    place.translate(x, baseline);
    place.scale(scale, scale);
    place.translate(-bounds.center().x(), 0);
    painter_.fillPath(place.map(shape), Ink(ink));
  }

  void PrintBorders() {
    Stroke(BandShape(kPassOddsBand), kLine);
    Stroke(BandShape(kPassLineBand), kLine);
    Frame(kComeBoxBox);
    Frame(kCAndEBox);
    // The Field is closed by Big 6 and Big 8, which meet it in a round corner.
    QPainterPath field;
    field.moveTo(kFieldBox.left, kFieldBox.top);
    field.lineTo(kFieldBox.right, kFieldBox.top);
    field.lineTo(kFieldBox.right, kFieldBox.bottom);
    field.lineTo(kBigBand.right, kFieldBox.bottom);
    Stroke(field, kLine);
    Stroke(BandShape(kBigBand), kLine);
  }

  // Where the puck will stand: off, and above each number.
  void PrintPuckPlaces() {
    const double radius = kPuckSize / 2.0 - 3.5;
    const auto ring = [&](Pixel place) {
      const QPointF middle = PointOf(place) + QPointF(kPuckSize, kPuckSize) / 2;
      QPainterPath circle;
      circle.addEllipse(middle, radius, radius);
      painter_.strokePath(circle, QPen(WithAlpha(Ink(kColorLines), 105), kThinLine));
      return middle;
    };
    const QPointF off = ring(PuckPlace(0));
    PaintText(painter_, SquareAround(off, 9), SmallPrint(8), "OFF",
              WithAlpha(Ink(kColorLines), 125), 0.6);
    constexpr std::array kSuits = {Suit::kSpade, Suit::kHeart, Suit::kClub, Suit::kDiamond};
    for (int slot = 0; slot < kSlotCount; ++slot) {
      const QPointF middle = ring(PuckPlace(NumberOfSlot(slot)));
      QTransform place;
      place.translate(middle.x(), middle.y());
      place.scale(5.2, 5.2);
      painter_.fillPath(place.map(SuitShape(kSuits[static_cast<std::size_t>(slot % 4)])),
                        WithAlpha(Ink(kColorLines), 80));
    }
  }

  void PrintGrid() {
    const double top = kGridRows.front().top;
    const double bottom = kGridRows.back().bottom;
    for (int column = 0; column <= kSlotCount; ++column) {
      const double x = kGridLeft + kGridColumnWidth * column;
      Line(x, top, x, bottom);
    }
    for (const GridRow& row : kGridRows) {
      Line(kGridLeft, row.top, kGridRight, row.top, row.family == kComeOdds ? kThinLine : kLine);
    }
    Line(kGridLeft, bottom, kGridRight, bottom);
    constexpr std::array<const char*, kSlotCount> kWords = {
        "TWO", "THREE", "FOUR", "FIVE", "SIX", "EIGHT", "NINE", "TEN", "ELEVEN", "TWELVE"};
    for (int slot = 0; slot < kSlotCount; ++slot) {
      const double middle = kGridLeft + kGridColumnWidth * (slot + 0.5);
      const double room = kGridColumnWidth - 6;
      TextAt(middle, 61.5, SmallPrint(7.2), "LAY", kColorPlaceText, room, 0.5);
      TextAt(middle, 72.8, SmallPrint(10), Ratio(kLay + slot), kColorPlaceText, room);
      PrintNumber({middle, 102}, QString::number(NumberOfSlot(slot)));
      // A Come bet on its number wins even money, unless this house says otherwise.
      const QString come = Ratio(kComePoint + slot);
      TextAt(middle, 132, SmallPrint(7.6),
             come == "1t1" ? QString(kWords[static_cast<std::size_t>(slot)]) : "COME " + come,
             kColorPlaceText, room, 0.8);
      TextAt(middle, 148.6, SmallPrint(7.6), "ODDS " + Ratio(kComeOdds + slot), kColorPlaceText,
             room);
      TextAt(middle, 162.6, SmallPrint(8.2), "PLACE " + Ratio(kPlace + slot), kColorPlaceText,
             room);
      TextAt(middle, 173.2, SmallPrint(8.2), "BUY " + Ratio(kBuy + slot), kColorPlaceText, room);
    }
  }

  // Two digits are narrower, so that they leave the lines alone.
  void PrintNumber(QPointF middle, const QString& number) {
    const QPainterPath shape = TextShape(Lettering(38), number);
    const double room = kGridColumnWidth - 9;
    const double narrow = std::min(1.0, room / shape.boundingRect().width());
    painter_.fillPath(Centred(QTransform::fromScale(narrow, 1).map(shape), middle),
                      Ink(kColorPlaceText));
  }

  void PrintComeBox() {
    const QRectF box = RectOf(kComeBoxBox);
    const QPointF middle = box.center();
    painter_.fillPath(Centred(TextShape(Lettering(54), "COME", 14), middle), Ink(kColorLineText));
    for (const double side : {-1.0, 1.0}) {
      const QPointF at = middle + QPointF(side * 168, 0);
      PaintText(painter_, QRectF(at.x() - 30, at.y() - 14, 60, 11), SmallPrint(9), "PAYS",
                Ink(kColorLineText), 1.5);
      PaintText(painter_, QRectF(at.x() - 30, at.y() - 1, 60, 17), SmallPrint(17), Ratio(kComeBox),
                Ink(kColorLineText));
    }
  }

  void PrintField() {
    const std::vector<FieldNumber>& numbers = look_.rules.field;
    const double left = 152;
    const double right = kFieldBox.right - 10;
    const QPointF word(left + (right - left) / 2, 327);
    painter_.fillPath(Centred(TextShape(Lettering(28), "FIELD", 12), word), Ink(kColorFieldText));
    if (numbers.empty()) return;
    const double step = (right - left) / static_cast<double>(numbers.size());
    double x = left + step / 2;
    for (const FieldNumber& number : numbers) {
      const QPointF middle(x, 271);
      if (number.pays_more) {
        QPainterPath ring;
        ring.addEllipse(middle, 17.5, 17.5);
        painter_.strokePath(ring, QPen(Ink(kColorFieldText), 1.2));
      }
      const double room = std::min(step - 4, 26.0);
      PaintText(painter_, QRectF(x - room / 2, 256, room, 30), Lettering(27),
                QString::number(number.total), Ink(kColorFieldText));
      QString marks;
      for (const std::string& mark : number.marks) {
        marks += (marks.isEmpty() ? "" : " ") + QString::fromStdString(mark);
      }
      TextAt(x, 300, SmallPrint(9.5), marks, kColorFieldText, step - 3);
      x += step;
    }
  }

  void PrintBig6And8() {
    const QPointF centre = PointOf(kCornerCentre);
    // They part on the diagonal.
    const QPointF diagonal(-std::sqrt(0.5), std::sqrt(0.5));
    const QPointF from = centre + diagonal * kBigBand.inner;
    const QPointF to = centre + diagonal * kBigBand.outer;
    Line(from.x(), from.y(), to.x(), to.y());
    PrintBig({113, 244}, "6", Ratio(kBig6));
    PrintBig({175, 302}, "8", Ratio(kBig8));
  }
  // Below the upper line of its region; what is below belongs to the chips.
  void PrintBig(QPointF top, const QString& number, const QString& ratio) {
    TextAt(top.x(), top.y() + 11, SmallPrint(8.5), "BIG", kColorPropText, 36, 2.5);
    painter_.fillPath(Centred(TextShape(Lettering(25), number), top + QPointF(-7, 22)),
                      Ink(kColorPropText));
    TextAt(top.x() + 11, top.y() + 25.5, SmallPrint(9), ratio, kColorPropText, 18);
  }

  void PrintPassLine() {
    const QPointF centre = PointOf(kCornerCentre);
    const QColor ink = Ink(kColorLineText);
    const double middle_radius = (kPassLineBand.inner + kPassLineBand.outer) / 2.0;
    const QPainterPath name = TextShape(Lettering(19), "PASS LINE", 3.5);
    painter_.fillPath(Centred(Turned(name, -90), {centre.x() - middle_radius, 150}), ink);
    painter_.fillPath(Centred(name, {240, centre.y() + middle_radius}), ink);
    painter_.fillPath(TextOnArc(SmallPrint(9), "SEVEN ON THE COME-OUT " + Ratio(kComeBox), centre,
                                middle_radius + 3.2, 225, 0.5, true),
                      ink);
    painter_.fillPath(
        Centred(TextShape(SmallPrint(12), Ratio(kComeBox)), {418, centre.y() + middle_radius}),
        ink);

    const double odds_radius = (kPassOddsBand.inner + kPassOddsBand.outer) / 2.0;
    painter_.fillPath(
        TextOnArc(Lettering(12), "LINE ODDS", centre, odds_radius + 4.3, 225, 2.5, true), ink);
    painter_.fillPath(
        Centred(Turned(TextShape(Lettering(12), "ODDS", 4), -90), {centre.x() - odds_radius, 120}),
        ink);
    // The chips of the odds lie on the right.
    PrintOddsTable({centre.x() + 4, centre.y() + odds_radius}, 340, ink);
  }

  // What the odds of the line pay on each pair of points: "4 10" over "2t1".
  void PrintOddsTable(QPointF from, double right, const QColor& ink) {
    struct Group {
      QString points;
      QString ratio;
    };
    std::vector<Group> groups;
    for (int slot = 0; slot < kSlotCount / 2; ++slot) {
      const int mirror = kSlotCount - 1 - slot;
      const QString low = QString::number(NumberOfSlot(slot));
      const QString high = QString::number(NumberOfSlot(mirror));
      if (Ratio(kComeOdds + slot) == Ratio(kComeOdds + mirror)) {
        groups.push_back({low + " · " + high, Ratio(kComeOdds + slot)});
      } else {
        groups.push_back({low, Ratio(kComeOdds + slot)});
        groups.push_back({high, Ratio(kComeOdds + mirror)});
      }
    }
    const double step = (right - from.x()) / static_cast<double>(groups.size());
    double x = from.x() + step / 2;
    for (const Group& group : groups) {
      const QRectF upper(x - step / 2 + 2, from.y() - 10, step - 4, 9);
      const QRectF lower(x - step / 2 + 2, from.y() + 1, step - 4, 10);
      PaintText(painter_, upper, SmallPrint(8), group.points, ink);
      PaintText(painter_, lower, SmallPrint(9.5), group.ratio, ink);
      x += step;
    }
  }

  void PrintCAndE() {
    struct Half {
      const char* letter;
      int bet;
      TableColor ink;
      double x;
    };
    for (const Half& half :
         {Half{"C", kCraps, kColorLineText, 460}, Half{"E", kEleven, kColorPropText, 487}}) {
      const QPointF middle(half.x, 358);
      QPainterPath ring;
      ring.addEllipse(middle, 8.6, 8.6);
      painter_.strokePath(ring, QPen(Ink(half.ink), 1));
      PaintText(painter_, SquareAround(middle, 5.6), Lettering(12), half.letter, Ink(half.ink));
      TextAt(half.x, 373, SmallPrint(6.8), Ratio(half.bet), half.ink, 25);
    }
  }

  // ---- The panel ------------------------------------------------------------------------------

  void PrintPanel() {
    const std::span<const PanelCell> cells = PanelCells(look_.hop_bets);
    for (const PanelCell& cell : cells) Frame(cell.box, kThinLine);
    QPainterPath panel;
    for (const PanelCell& cell : cells) panel = panel.united(BoxShape(RectOf(cell.box)));
    Stroke(panel.simplified(), kLine);
    for (const PanelCell& cell : cells) PrintCell(cell);
  }

  void PrintCell(const PanelCell& cell) {
    const QRectF box = RectOf(cell.box);
    switch (cell.bet) {
      case kSeven:
        PrintNamedCell(box, "SEVEN", 21, Ratio(kSeven), 3.5);
        break;
      case kCraps:
        PrintNamedCell(box, "ANY CRAPS", 14, Ratio(kCraps), 0.6);
        break;
      case kHorn:
        PrintSplitCell(box, "HORN", "2 · 3 · 11 · 12");
        break;
      case kWorld:
        PrintSplitCell(box, "WORLD", "HORN & 7");
        break;
      case kOver7:
      case kUnder7:
        PrintSplitCell(box, cell.bet == kOver7 ? "OVER 7" : "UNDER 7", Ratio(cell.bet));
        break;
      default:
        PrintDiceCell(box, cell.bet);
    }
  }
  void PrintNamedCell(const QRectF& box, const QString& name, double size, const QString& ratio,
                      double spacing) {
    const double y = box.center().y();
    Text(QRectF(box.left() + 25, y - 12, box.width() - 50, 24), Lettering(size), name,
         kColorPropText, spacing);
    for (const double x : {box.left() + 12, box.right() - 12}) {
      Text(QRectF(x - 10, y - 6, 20, 12), SmallPrint(10.5), ratio, kColorPropText);
    }
  }
  void PrintSplitCell(const QRectF& box, const QString& name, const QString& below) {
    const double high = box.height();
    Text(QRectF(box.left() + 4, box.top() + high * 0.1, box.width() - 8, high * 0.46),
         Lettering(std::min(17.0, high * 0.5)), name, kColorPropText, 1);
    Text(QRectF(box.left() + 4, box.top() + high * 0.62, box.width() - 8, high * 0.28),
         SmallPrint(9), below, kColorPropText);
  }

  // Bets on dice show their dice.
  struct Pair {
    int bet;
    int first;
    int second;
  };
  void PrintDiceCell(const QRectF& box, int bet) {
    constexpr auto kPairs = std::to_array<Pair>(
        {{kHard4, 2, 2}, {kHard6, 3, 3},  {kHard8, 4, 4},  {kHard10, 5, 5}, {kTwo, 1, 1},
         {kThree, 1, 2}, {kEleven, 5, 6}, {kTwelve, 6, 6}, {kHop13, 1, 3},  {kHop14, 1, 4},
         {kHop15, 1, 5}, {kHop16, 1, 6},  {kHop22, 2, 2},  {kHop23, 2, 3},  {kHop24, 2, 4},
         {kHop25, 2, 5}, {kHop26, 2, 6},  {kHop33, 3, 3},  {kHop34, 3, 4},  {kHop35, 3, 5},
         {kHop36, 3, 6}, {kHop44, 4, 4},  {kHop45, 4, 5},  {kHop46, 4, 6},  {kHop55, 5, 5}});
    const auto* pair = std::ranges::find(kPairs, bet, &Pair::bet);
    if (pair == kPairs.end()) return;
    const bool low = box.height() < 30;  // a Hop cell: the ratio stands beside the dice
    const double side = low ? 13.5 : 17;
    const double gap = 2.5;
    const double wide = 2 * side + gap;
    const QPointF corner(low ? box.left() + 5 : box.center().x() - wide / 2,
                         low ? box.center().y() - side / 2 : box.top() + 4.5);
    PaintPrintedDie(painter_, corner, side, PrintedDice(), pair->first);
    PaintPrintedDie(painter_, corner + QPointF(side + gap, 0), side, PrintedDice(), pair->second);
    const QRectF label = low ? QRectF(corner.x() + wide + 3, box.top() + 5,
                                      box.right() - corner.x() - wide - 6, box.height() - 10)
                             : QRectF(box.left() + 3, box.bottom() - 15, box.width() - 6, 11);
    Text(label, SmallPrint(10), Ratio(bet), kColorPropText);
  }

  // ---- The corner of the stick person ---------------------------------------------------------

  void PrintStickCorner() {
    const QRectF box = RectOf(kStickCorner);
    const QPointF middle(box.center().x(), 60);
    const QColor ink = Ink(kColorLineText);
    painter_.fillPath(TextOnArc(Lettering(14), "FELTMASTER", middle, 40, 0, 1.6), ink);
    const double side = 19;
    for (const double turn : {-14.0, 12.0}) {
      painter_.save();
      painter_.translate(middle + QPointF(turn < 0 ? -12 : 12, turn < 0 ? -11 : -9));
      painter_.rotate(turn);
      PaintPrintedDie(painter_, QPointF(-side / 2, -side / 2), side, PrintedDice(),
                      turn < 0 ? 3 : 4);
      painter_.restore();
    }
    const double room = box.width() - 12;
    const QPointF below(middle.x(), 0);
    TextAt(below.x(), 75.5, SmallPrint(9.5), QString::fromStdString(look_.rules.limits),
           kColorLineText, room, 0.6);
    TextAt(below.x(), 85, SmallPrint(7), QString::fromStdString(look_.rules.lay_vig),
           kColorLineText, room, 0.3);
    TextAt(below.x(), 93.5, SmallPrint(7), QString::fromStdString(look_.rules.buy_vig),
           kColorLineText, room, 0.3);
  }

  QPainter& painter_;
  const LayoutLook& look_;
};

// ---- The rail ---------------------------------------------------------------------------------

void PaintBrassLine(QPainter& painter, const QPainterPath& shape, double width) {
  const QRectF bounds = shape.boundingRect();
  QLinearGradient brass(bounds.topLeft(), bounds.bottomRight());
  brass.setColorAt(0.0, QColor(kBrassLight));
  brass.setColorAt(0.35, QColor(kBrass));
  brass.setColorAt(0.6, QColor(kBrassLight));
  brass.setColorAt(1.0, Mix(QColor(kBrass), Qt::black, 0.35));
  painter.strokePath(shape, QPen(QBrush(brass), width));
}

// A hollow: dark at the upper edge, a light lip at the lower one.
void PaintRecess(QPainter& painter, const QRectF& box, double radius, const QColor& ground) {
  painter.fillPath(BoxShape(box, radius), ground);
  painter.save();
  painter.setClipPath(BoxShape(box, radius));
  for (int layer = 0; layer < 5; ++layer) {
    const double inset = 0.5 + 0.8 * layer;
    painter.strokePath(BoxShape(box.translated(0.4, 0.6), radius),
                       QPen(QColor(0, 0, 0, 34), 2 * inset));
  }
  painter.restore();
  painter.strokePath(BoxShape(box.translated(0, 0.5), radius),
                     QPen(QColor(255, 230, 180, 55), 0.6));
  painter.strokePath(BoxShape(box, radius), QPen(QColor(0, 0, 0, 150), 0.6));
}

void PaintRailShine(QPainter& painter) {
  QLinearGradient side(0, 0, kFeltBox.left, 0);
  side.setColorAt(0.0, QColor(0, 0, 0, 110));
  side.setColorAt(0.35, QColor(255, 220, 170, 34));
  side.setColorAt(1.0, QColor(0, 0, 0, 90));
  painter.fillRect(QRectF(0, 0, kFeltBox.left, kTableHeight), side);
  QLinearGradient low(0, kFeltBox.bottom, 0, kTableHeight);
  low.setColorAt(0.0, QColor(0, 0, 0, 60));
  low.setColorAt(0.5, QColor(255, 220, 170, 26));
  low.setColorAt(1.0, QColor(0, 0, 0, 120));
  painter.fillRect(QRectF(kFeltBox.left, kFeltBox.bottom - 60, kTableWidth - kFeltBox.left,
                          kTableHeight - kFeltBox.bottom + 60),
                   low);
}

void PaintEdgeOfFelt(QPainter& painter) {
  // The cushion throws a shadow on the cloth, deepest at the upper left.
  painter.save();
  painter.setClipPath(FeltShape());
  for (int layer = 0; layer < 6; ++layer) {
    painter.strokePath(FeltShape().translated(0.8, 1.2),
                       QPen(QColor(0, 0, 0, 26), 2.0 + 2.2 * layer));
  }
  painter.restore();
  PaintBrassLine(painter, FeltShape(1.2), 2.2);
  painter.strokePath(FeltShape(2.4), QPen(QColor(0, 0, 0, 120), 0.7));
}

void PaintToolStrip(QPainter& painter, const LayoutLook& look) {
  for (const ToolPlace& place : kToolStrip) {
    if (IsPileTool(place.tool)) continue;
    const QRectF box = RectOf(place.box).adjusted(-0.5, 0.5, -0.5, -0.5);
    PaintRecess(painter, box, 4, QColor(0, 0, 0, 105));
    const QPointF middle = box.center();
    if (IsChipTool(place.tool)) {
      PaintChip(painter, middle, look.chip_design, place.tool,
                look.chip_texts[static_cast<std::size_t>(place.tool - 1)]);
    } else {
      PaintLammer(painter, middle, 10.5,
                  place.tool == kBuyTool       ? Lammer::kMarkBuy
                  : place.tool == kCallOffTool ? Lammer::kMarkOff
                                               : Lammer::kMarkOn);
    }
  }
}

void PaintPileBoxes(QPainter& painter, const QColor& felt) {
  for (int pile = 1; pile <= kPileCount; ++pile) {
    const QRectF box = RectOf(kPileBox[static_cast<std::size_t>(pile)]).adjusted(0.5, 0.5, 0, -0.5);
    PaintRecess(painter, box, 4, Mix(felt, Qt::black, 0.35));
    // The upper half takes the pile as a tool, the lower half takes chips.
    const double half = box.top() + 24.5;
    painter.setPen(QPen(QColor(255, 235, 190, 70), 0.6, Qt::DashLine));
    painter.drawLine(QPointF(box.left() + 3, half), QPointF(box.right() - 3, half));
    PaintText(painter, QRectF(box.left() + 5, box.top() + 5, box.width() - 10, 15), Lettering(13),
              QString::number(pile), QColor(255, 238, 200, 150));
  }
}

void PaintStatusPlate(QPainter& painter) {
  const QRectF box = StatusPlate();
  QLinearGradient ivory(box.topLeft(), box.bottomLeft());
  ivory.setColorAt(0, QColor(kIvory));
  ivory.setColorAt(1, Mix(QColor(kIvory), QColor(0xC8, 0xB8, 0x90), 0.45));
  painter.fillPath(BoxShape(box, 4), ivory);
  painter.strokePath(BoxShape(box, 4), QPen(QColor(0, 0, 0, 140), 1.6));
  PaintBrassLine(painter, BoxShape(box, 4), 1.1);
}

void PaintDiceTray(QPainter& painter, bool hop_bets) {
  const QRectF tray = DiceTray();
  painter.save();
  painter.setClipPath(BoxShape(tray, 7));
  for (int layer = 0; layer < 6; ++layer) {
    painter.strokePath(BoxShape(tray.translated(0.8, 1.2), 7),
                       QPen(QColor(0, 0, 0, 30), 2.0 + 2.2 * layer));
  }
  painter.restore();
  PaintBrassLine(painter, BoxShape(tray.adjusted(-1, -1, 1, 1), 7), 1.6);
  // What a press on it brings in.
  const QColor ink(255, 238, 200, 190);
  const QRectF line(tray.left() + 16, tray.top() + 3.5, tray.width() - 32, 9);
  PaintText(painter, line, SmallPrint(8), hop_bets ? "HARD WAYS, PROPS" : "HOP BETS", ink, 0.6);
  for (const double side : {-1.0, 1.0}) {
    const QPointF tip = line.center() + QPointF(side * (tray.width() / 2 - 7), 0);
    QPainterPath arrow(tip);
    arrow.lineTo(tip + QPointF(-side * 5, -3.2));
    arrow.lineTo(tip + QPointF(-side * 5, 3.2));
    arrow.closeSubpath();
    painter.fillPath(arrow, ink);
  }
}

}  // namespace

LayoutLook LookOf(const Game& game) {
  LayoutLook look;
  look.colors = game.TableColors;
  look.texture = game.TextureRow;
  look.hop_bets = game.ShowHopBets;
  look.rules = PrintRules(game);
  look.chip_design = game.ChipPicture;
  for (int chip = 0; chip < kChipCount; ++chip) {
    look.chip_texts[static_cast<std::size_t>(chip)] =
        ChipText(game.BetAmount[kFirstChip + chip], game.UseCentsSymbol);
  }
  return look;
}

const QImage& FeltStore::Light(int texture) {
  QImage& light = lights_[static_cast<std::size_t>(std::clamp(texture, 0, kFeltCount - 1))];
  if (light.isNull()) light = FeltLight(texture);
  return light;
}

QImage PaintLayout(const LayoutLook& look, double scale, FeltStore& felts) {
  QImage image(std::max(1, static_cast<int>(std::lround(kTableWidth * scale))),
               std::max(1, static_cast<int>(std::lround(kTableHeight * scale))),
               QImage::Format_RGB32);
  const QColor felt = ColorOf(look.colors[kColorFelt]);
  image.fill(felt);  // the last row and column may be covered in part only
  const auto begin = [&](QPainter& painter) {
    painter.begin(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(scale, scale);
  };
  QPainterPath whole;
  whole.addRect(0, 0, kTableWidth, kTableHeight);

  // The cloth and its print take the weave together; so does the wood of the rail.
  QPainter painter;
  begin(painter);
  painter.fillPath(whole, QColor(kMahogany));
  painter.fillPath(FeltShape(), felt);
  FeltPrinter(painter, look).Print();
  painter.end();
  const QPainterPath rail = whole.subtracted(FeltShape());
  PressIntoFelt(image, rail, felts.Light(kWoodGrain), QColor(kMahogany), scale);
  PressIntoFelt(image, FeltShape(), felts.Light(look.texture), felt, scale);

  begin(painter);
  painter.save();
  painter.setClipPath(rail);
  PaintRailShine(painter);
  painter.restore();
  PaintEdgeOfFelt(painter);
  const QColor deep_felt = Mix(felt, Qt::black, 0.3);
  painter.fillPath(BoxShape(DiceTray(), 7), deep_felt);
  painter.end();
  PressIntoFelt(image, BoxShape(DiceTray(), 7), felts.Light(look.texture), deep_felt, scale);

  begin(painter);
  // A lamp hangs over the middle of the table.
  QRadialGradient lamp(QPointF(300, 190), 400);
  lamp.setColorAt(0.0, QColor(255, 250, 225, 26));
  lamp.setColorAt(0.45, QColor(255, 250, 225, 0));
  lamp.setColorAt(0.6, QColor(0, 0, 0, 0));
  lamp.setColorAt(1.0, QColor(0, 0, 0, 55));
  painter.fillPath(whole, lamp);
  PaintToolStrip(painter, look);
  PaintPileBoxes(painter, felt);
  PaintStatusPlate(painter);
  PaintDiceTray(painter, look.hop_bets);
  PaintRecess(painter, RectOf(kSelectedToolBox), 5, QColor(0, 0, 0, 120));
  PaintBrassLine(painter, BoxShape(RectOf(kSelectedToolBox), 5), 1.1);
  painter.end();
  return image;
}

}  // namespace feltmaster
