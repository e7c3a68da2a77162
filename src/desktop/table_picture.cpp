#include "desktop/table_picture.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "config/table_colors.h"
#include "desktop/chip_picture.h"
#include "desktop/lammer_picture.h"
#include "desktop/paint_tools.h"
#include "desktop/tool_picture.h"

namespace feltmaster {

namespace {

constexpr QRgb kBrightBlue = 0xFF0018F0;
constexpr QRgb kBrightRed = 0xFFE00010;

constexpr double kFigureLetters = 9.5;
constexpr double kFigureHeight = 10.4;
constexpr double kFigurePadding = 2.5;

QColor InkOf(StatusColor color) {
  switch (color) {
    case StatusColor::kBlue:
      return QColor(kBrightBlue);
    case StatusColor::kRed:
      return QColor(kBrightRed);
    default:
      return Qt::black;
  }
}

const StatusText& OnlyText(const Sprite& sprite) {
  return sprite.text.front();
}
QString TextOf(const StatusText& piece) {
  return QString::fromStdString(piece.text);
}

double WidthOf(const QFont& font, const QString& text) {
  return TextShape(font, text).boundingRect().width();
}

QPointF PieceMiddle(const Sprite& sprite) {
  const QPointF at = PointOf(sprite.at);
  switch (sprite.kind) {
    case SpriteKind::kPuck:
      return at + QPointF(kPuckSize, kPuckSize) / 2;
    case SpriteKind::kMark:
      return at + QPointF(kMarkSize, kMarkSize) / 2;
    case SpriteKind::kDie:
      return at + QPointF(kDieSize, kDieSize) / 2;
    case SpriteKind::kTool:
      return RectOf(kSelectedToolBox).center();
    default:
      return at;
  }
}

// Whether a sprite is one of few pictures, kept ready as images.
bool IsPiece(const Sprite& sprite) {
  return sprite.kind == SpriteKind::kChip || sprite.kind == SpriteKind::kMark ||
         sprite.kind == SpriteKind::kPuck || sprite.kind == SpriteKind::kDie ||
         sprite.kind == SpriteKind::kTool;
}
double ReachOfPiece(SpriteKind kind) {
  switch (kind) {
    case SpriteKind::kPuck:
      return kPuckSize / 2.0 + 3;
    case SpriteKind::kMark:
      return kMarkSize / 2.0 + 2;
    case SpriteKind::kDie:
      return kDieReach;
    default:
      return kChipReach;
  }
}

QRectF FigureBox(const Sprite& sprite) {
  const double width =
      WidthOf(SmallPrint(kFigureLetters), TextOf(OnlyText(sprite))) + 2 * kFigurePadding;
  const QPointF at = PointOf(sprite.at);
  if (sprite.kind == SpriteKind::kFigures) return QRectF(at, QSizeF(width, kFigureHeight));
  // A pile's amount is centred on it, but stays on the picture.
  const double left = std::max(2.0, at.x() - width / 2);
  return QRectF(left, at.y() - kFigureHeight / 2, width, kFigureHeight);
}

void PaintFigures(QPainter& painter, const Sprite& sprite) {
  const QRectF box = FigureBox(sprite);
  QPainterPath label;
  label.addRoundedRect(box, 1.5, 1.5);
  painter.fillPath(label, Qt::white);
  painter.strokePath(label, QPen(QColor(0, 0, 0, 120), 0.5));
  PaintText(painter, box, SmallPrint(kFigureLetters), TextOf(OnlyText(sprite)),
            InkOf(OnlyText(sprite).color));
}

void PaintEntryBox(QPainter& painter, const Sprite& sprite) {
  const QRectF box = RectOf(EntryBoxAt(sprite.at));
  painter.fillRect(box, Qt::white);
  const QString text = TextOf(OnlyText(sprite));
  const QFont font = SmallPrint(14);
  if (!text.isEmpty()) {  // it is always selected, so that the next key replaces it
    const QPainterPath shape = TextShape(font, text);
    const double room = box.width() - 8;
    const double wide = std::min(room, shape.boundingRect().width());
    const QRectF selected(box.left() + 3, box.top() + 3, wide + 3, box.height() - 6);
    painter.fillRect(selected, QColor(0x1F, 0x5F, 0xC8));
    PaintText(painter, selected.adjusted(1.5, 1, -1.5, -1), font, text, Qt::white);
  }
  painter.strokePath(
      [&box] {
        QPainterPath frame;
        frame.addRect(box.adjusted(0.6, 0.6, -0.6, -0.6));
        return frame;
      }(),
      QPen(QColor(0x10, 0x38, 0x80), 1.2));
}

void PaintPrompt(QPainter& painter, const Sprite& sprite) {
  const double room = kFeltBox.Width() - 30;
  const QRectF line(kPromptTop.x - room / 2, kPromptTop.y, room, kPromptLetters);
  const QPainterPath shape =
      Fitted(TextShape(Lettering(kPromptLetters * 0.86), TextOf(OnlyText(sprite))), line);
  // A veil keeps the words apart from the lettering below them.
  QPainterPath veil;
  veil.addRoundedRect(shape.boundingRect().adjusted(-12, -7, 12, 7), 8, 8);
  painter.fillPath(veil, QColor(255, 255, 255, 205));
  painter.fillPath(shape.translated(1.2, 1.2), QColor(96, 96, 96));
  painter.fillPath(shape, Qt::black);
}

QFont StatusFont() {
  return SmallPrint(kStatusLetters);
}

void PaintStatusLine(QPainter& painter, const Sprite& sprite) {
  const QFont font = StatusFont();
  double x = sprite.at.x;
  const double right =
      sprite.at.x == kStatusLeftColumn ? kStatusRightColumn - 4 : sprite.at.x + kStackLabelWidth;
  const double baseline = sprite.at.y + kStatusLetters - 0.5;
  // Letter by letter, so that a line that is too long ends at the last character that fits.
  for (const StatusText& piece : sprite.text) {
    QPainterPath shape;
    for (const QChar letter : TextOf(piece)) {
      const double advance = Advance(font, letter);
      if (x + advance > right) break;
      shape.addPath(TextShape(font, letter).translated(x, baseline));
      x += advance;
    }
    painter.fillPath(shape, InkOf(piece.color));
  }
}

void PaintRecorder(QPainter& painter, const Sprite& sprite) {
  const QRectF box = RectOf(kRecorderBox).adjusted(2, 3, -2, -3);
  const bool records = sprite.value == kRecording;
  QPainterPath plate;
  plate.addRoundedRect(box, 4, 4);
  painter.fillPath(plate, QColor(24, 22, 20, 225));
  painter.strokePath(plate, QPen(QColor(255, 235, 190, 150), 0.8));
  const QColor color = records ? QColor(0xFF, 0x3B, 0x30) : QColor(0x5A, 0xB0, 0xFF);
  const QPointF sign(box.left() + 9, box.center().y());
  QPainterPath mark;
  if (records) {
    mark.addEllipse(sign, 4, 4);
  } else {
    mark.moveTo(sign + QPointF(-3, -4.2));
    mark.lineTo(sign + QPointF(4.4, 0));
    mark.lineTo(sign + QPointF(-3, 4.2));
    mark.closeSubpath();
  }
  painter.fillPath(mark, color);
  PaintText(painter, QRectF(box.left() + 15, box.top() + 4, box.width() - 18, box.height() - 8),
            SmallPrint(11), records ? "REC" : "PLAY", color, 0.6);
}

}  // namespace

void TablePicture::SetScale(double scale) {
  scale = std::isfinite(scale) ? std::clamp(scale, 0.25, 8.0) : 1;
  if (scale == scale_) return;
  scale_ = scale;
  taken_ = false;
  layout_ = QImage();
  pieces_.clear();
}

QSize TablePicture::Size() const {
  return QSize(static_cast<int>(std::lround(kTableWidth * scale_)),
               static_cast<int>(std::lround(kTableHeight * scale_)));
}

QRegion TablePicture::Update(const Game& game, const TableView& view) {
  LayoutLook look = LookOf(game);
  Scene scene = SceneOf(game, view);
  if (!taken_ || look != look_ || die_design_ != game.DicePicture) {
    pieces_.clear();
    if (look != look_) layout_ = QImage();
    taken_ = true;
    look_ = std::move(look);
    die_design_ = game.DicePicture;
    scene_ = std::move(scene);
    return QRect(QPoint(0, 0), Size());
  }
  QRegion changed;
  // What is only in the one list or only in the other; both keep the order in which they are
  // painted, so a piece put in the middle moves all others by one.
  std::size_t same_head = 0;
  const std::size_t shorter = std::min(scene.size(), scene_.size());
  while (same_head < shorter && scene[same_head] == scene_[same_head]) ++same_head;
  std::size_t same_tail = 0;
  while (same_tail < shorter - same_head &&
         scene[scene.size() - 1 - same_tail] == scene_[scene_.size() - 1 - same_tail]) {
    ++same_tail;
  }
  for (const Scene* list : {&scene_, &scene}) {
    for (std::size_t i = same_head; i < list->size() - same_tail; ++i) {
      changed += DeviceRect(ReachOf((*list)[i]));
    }
  }
  scene_ = std::move(scene);
  return changed;
}

void TablePicture::Paint(QPainter& painter, const QRect& area) {
  const QRect part = area.intersected(QRect(QPoint(0, 0), Size()));
  if (part.isEmpty()) return;
  if (layout_.isNull()) layout_ = PaintLayout(look_, scale_, felts_);
  painter.save();
  painter.setClipRect(part, Qt::IntersectClip);
  painter.drawImage(part.topLeft(), layout_, part);
  for (const Sprite& sprite : scene_) {
    if (DeviceRect(ReachOf(sprite)).intersects(part)) PaintSprite(painter, sprite);
  }
  painter.restore();
}

QImage TablePicture::Image() {
  QImage image(Size(), QImage::Format_RGB32);
  QPainter painter(&image);
  Paint(painter, image.rect());
  return image;
}

QRect TablePicture::DeviceRect(const QRectF& grid) const {
  return QTransform::fromScale(scale_, scale_).mapRect(grid).toAlignedRect();
}

// A pixel more than the sprite takes, for what is rounded to whole device pixels.
QRectF TablePicture::ReachOf(const Sprite& sprite) const {
  const auto wider = [this](const QRectF& box) {
    const double margin = 1 + 1 / scale_;
    return box.adjusted(-margin, -margin, margin, margin);
  };
  switch (sprite.kind) {
    case SpriteKind::kPuck:
    case SpriteKind::kChip:
    case SpriteKind::kMark:
    case SpriteKind::kDie:
    case SpriteKind::kTool:
      return wider(SquareAround(PieceMiddle(sprite), ReachOfPiece(sprite.kind)));
    case SpriteKind::kFigures:
    case SpriteKind::kPileFigures:
      return wider(FigureBox(sprite));
    case SpriteKind::kRecorder:
      return wider(RectOf(kRecorderBox));
    case SpriteKind::kPrompt:
      return QRectF(kFeltBox.left, kPromptTop.y - 12, kFeltBox.Width(), kPromptLetters + 24);
    case SpriteKind::kStatusLine: {
      const double width = sprite.at.x == kStatusLeftColumn ? kStatusRightColumn - kStatusLeftColumn
                                                            : kStackLabelWidth;
      return wider(QRectF(sprite.at.x, sprite.at.y, width, kStatusLineHeight));
    }
    case SpriteKind::kEntryBox:
      return wider(RectOf(EntryBoxAt(sprite.at)));
  }
  return {};
}

void TablePicture::PaintSprite(QPainter& painter, const Sprite& sprite) {
  if (IsPiece(sprite)) {
    // At a whole device pixel, so that all chips are equally sharp.
    const QImage& piece = Piece(sprite);
    const QPointF middle = PieceMiddle(sprite) * scale_;
    painter.drawImage(QPoint(static_cast<int>(std::lround(middle.x())) - piece.width() / 2,
                             static_cast<int>(std::lround(middle.y())) - piece.height() / 2),
                      piece);
    return;
  }
  painter.save();
  painter.scale(scale_, scale_);
  painter.setRenderHint(QPainter::Antialiasing);
  switch (sprite.kind) {
    case SpriteKind::kFigures:
    case SpriteKind::kPileFigures:
      PaintFigures(painter, sprite);
      break;
    case SpriteKind::kRecorder:
      PaintRecorder(painter, sprite);
      break;
    case SpriteKind::kPrompt:
      PaintPrompt(painter, sprite);
      break;
    case SpriteKind::kStatusLine:
      PaintStatusLine(painter, sprite);
      break;
    case SpriteKind::kEntryBox:
      PaintEntryBox(painter, sprite);
      break;
    default:
      break;
  }
  painter.restore();
}

const QImage& TablePicture::Piece(const Sprite& sprite) {
  constexpr std::size_t kEnoughPieces = 100;  // tumbling dice are never the same again
  const int value = sprite.kind == SpriteKind::kPuck ? sprite.value != 0 : sprite.value;
  if (pieces_.size() > kEnoughPieces) pieces_.clear();
  QImage& image = pieces_[{sprite.kind, value, sprite.turn, sprite.height}];
  if (!image.isNull()) return image;
  const double reach = ReachOfPiece(sprite.kind);
  const int half = static_cast<int>(std::ceil(reach * scale_));
  image = QImage(2 * half, 2 * half, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.translate(half, half);
  painter.scale(scale_, scale_);
  switch (sprite.kind) {
    case SpriteKind::kPuck:
      PaintLammer(painter, {0, 0}, kPuckSize / 2.0,
                  value != 0 ? Lammer::kPuckOn : Lammer::kPuckOff);
      break;
    case SpriteKind::kMark: {
      constexpr std::array kMarks = {Lammer::kMarkOn, Lammer::kMarkOff, Lammer::kMarkBuy,
                                     Lammer::kMarkLay};
      PaintLammer(painter, {0, 0}, kMarkSize / 2.0, kMarks[static_cast<std::size_t>(value)]);
      break;
    }
    case SpriteKind::kDie:
      PaintDie(painter, {0, 0}, die_design_,
               {ColorOf(look_.colors[kColorDice]), ColorOf(look_.colors[kColorPips])},
               {value, static_cast<double>(sprite.turn), sprite.height / 100.0});
      break;
    case SpriteKind::kTool:
      PaintTool(painter, {0, 0}, look_, value);
      break;
    default:
      PaintChip(painter, {0, 0}, look_.chip_design, value,
                value >= 1 && value <= kChipCount
                    ? look_.chip_texts[static_cast<std::size_t>(value - 1)]
                    : std::string());
  }
  return image;
}

}  // namespace feltmaster
