#include "desktop/table_canvas.h"

#include <QAccessible>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <cmath>

#include "desktop/chip_picture.h"
#include "desktop/paint_tools.h"
#include "desktop/qt_text.h"
#include "desktop/tool_picture.h"
#include "engine/entry_box.h"
#include "surface/surface.h"
#include "table/calls.h"

namespace feltmaster {

namespace {

constexpr int kSettleTime = 120;          // milliseconds
constexpr double kPointerSize = 36;       // pixels of the screen
constexpr QColor kRoomColor(24, 16, 12);  // around the table

Modifiers ModifiersOf(Qt::KeyboardModifiers held) {
  return {held.testFlag(Qt::ShiftModifier), held.testFlag(Qt::ControlModifier),
          held.testFlag(Qt::AltModifier)};
}

// Ctrl and a key come without a text of their own.
char CharacterOf(const QKeyEvent& event, bool ctrl) {
  if (ctrl && event.key() > ' ' && event.key() <= '~') return static_cast<char>(event.key());
  const QString text = event.text();
  if (text.isEmpty() || text[0] <= QChar(' ') || text[0] > QChar('~')) return '\0';
  return text[0].toLatin1();
}

std::optional<KeyPress> KeyPressOf(const QKeyEvent& event) {
  const bool ctrl = event.modifiers().testFlag(Qt::ControlModifier);
  switch (event.key()) {
    case Qt::Key_Left:
      return KeyPress{Key::kLeft};
    case Qt::Key_Right:
      return KeyPress{Key::kRight};
    case Qt::Key_Up:
      return KeyPress{Key::kUp};
    case Qt::Key_Down:
      return KeyPress{Key::kDown};
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return KeyPress{Key::kEnter};
    case Qt::Key_Escape:
      return KeyPress{Key::kEscape};
    default:
      if (const char character = CharacterOf(event, ctrl); character != '\0') {
        return KeyPress{Key::kCharacter, character, ctrl};
      }
      return std::nullopt;
  }
}

}  // namespace

TableCanvas::TableCanvas(Game& game, QWidget* parent)
    : QWidget(parent), game_(game), picture_(felts_), entry_box_(this) {
  setObjectName(QStringLiteral("picLayout"));
  setAccessibleName(tr("Crapless craps table"));
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  setAttribute(Qt::WA_OpaquePaintEvent);
  view_.entry_box_is_a_window = true;
  view_.dice = DiceAtRest(game_);

  entry_box_.setObjectName(QStringLiteral("txtEnterBet"));
  entry_box_.setAccessibleName(tr("Bet amount"));
  entry_box_.setContextMenuPolicy(Qt::NoContextMenu);
  entry_box_.installEventFilter(this);
  entry_box_.hide();
  QObject::connect(&entry_box_, &QLineEdit::textEdited, this,
                   [this](const QString& text) { EditEntryBox(game_, FromQt(text)); });

  follow_.setSingleShot(true);
  QObject::connect(&follow_, &QTimer::timeout, this, [this] { ShowNow(); });
  settle_.setSingleShot(true);
  settle_.setInterval(kSettleTime);
  QObject::connect(&settle_, &QTimer::timeout, this, [this] { ComposeForThisSize(); });
}

// ---- The picture ------------------------------------------------------------------------------

double TableCanvas::FittingScale() const {
  const double ratio = devicePixelRatioF();
  return std::min(width() * ratio / kTableWidth, height() * ratio / kTableHeight);
}

QRect TableCanvas::PictureRect() const {
  const double ratio = devicePixelRatioF();
  const QSize room(static_cast<int>(width() * ratio), static_cast<int>(height() * ratio));
  const double scale = resized_.isNull() ? picture_.Scale() : FittingScale();
  const QSize size(static_cast<int>(std::lround(kTableWidth * scale)),
                   static_cast<int>(std::lround(kTableHeight * scale)));
  return {QPoint((room.width() - size.width()) / 2, (room.height() - size.height()) / 2), size};
}

QPointF TableCanvas::ToWidget(QPointF pixel) const {
  const QRect picture = PictureRect();
  const double scale = picture.width() / static_cast<double>(kTableWidth);
  return (QPointF(picture.topLeft()) + pixel * scale) / devicePixelRatioF();
}

Pixel TableCanvas::ToPixel(QPointF place) const {
  const QRect picture = PictureRect();
  const double scale = std::max(0.01, picture.width() / static_cast<double>(kTableWidth));
  const QPointF pixel = (place * devicePixelRatioF() - QPointF(picture.topLeft())) / scale;
  return {static_cast<int>(std::floor(pixel.x())), static_cast<int>(std::floor(pixel.y()))};
}

QRegion TableCanvas::ToUpdate(const QRegion& picture) const {
  const double ratio = devicePixelRatioF();
  const QPointF corner = PictureRect().topLeft();
  QRegion region;
  for (const QRect& rect : picture) {
    const QRectF place(QRectF(rect).translated(corner));
    region += QRectF(place.topLeft() / ratio, place.size() / ratio).toAlignedRect();
  }
  return region;
}

void TableCanvas::ComposeForThisSize() {
  resized_ = QImage();
  picture_.SetScale(FittingScale());
  ShowNow();
  update();
}

void TableCanvas::Change(std::uint32_t what) {
  if ((what & kChangedEntryBox) != 0) FillEntryBox();
  if (!follow_.isActive()) follow_.start(0);
}

void TableCanvas::ShowNow() {
  follow_.stop();
  if (!isVisible()) return;
  FillEntryBox();
  if (!dice_fly_) {
    const std::array<DieOnTable, 2> at_rest = DiceAtRest(game_);
    for (std::size_t die = 0; die < at_rest.size(); ++die) {
      if (game_.DiceReturned) view_.dice[die] = at_rest[die];
      view_.dice[die].face = at_rest[die].face;
    }
  }
  update(ToUpdate(picture_.Update(game_, view_)));
  if (QAccessible::isActive()) {
    std::string status;
    for (const Row& row : StatusRows(game_, BetOfStatus(game_))) {
      for (const std::string& text : row) status += text + ' ';
    }
    setAccessibleDescription(ToQt(status));
  }
  ShowPointer(QGuiApplication::keyboardModifiers());
}

void TableCanvas::SetBanner(std::string banner) {
  view_.banner = std::move(banner);
  Change(kChangedBanner);
}

void TableCanvas::ThrowDice(const std::array<DieOnTable, 2>& dice) {
  dice_fly_ = true;
  view_.dice = dice;
  ShowNow();
}

void TableCanvas::AddShowerChip(Pixel at, int chip) {
  shower_.emplace_back(at, chip);
  const QPointF middle = ToWidget(QPointF(at.x, at.y));
  const double reach = (kChipReach + 1) * PictureRect().width() / kTableWidth;
  update(SquareAround(middle, reach).toAlignedRect());
}

void TableCanvas::ClearShower() {
  if (shower_.empty()) return;
  shower_.clear();
  update();
}

void TableCanvas::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  const QRect place = PictureRect();
  // Nothing has been taken yet when the window comes up; what else has changed is painted next.
  if (resized_.isNull()) update(ToUpdate(picture_.Update(game_, view_)));
  const double ratio = devicePixelRatioF();
  const QRectF in_widget(QPointF(place.topLeft()) / ratio, QSizeF(place.size()) / ratio);
  for (const QRect& rect : event->region()) {
    if (!in_widget.contains(rect)) painter.fillRect(rect, kRoomColor);
  }
  painter.scale(1 / ratio, 1 / ratio);
  if (!resized_.isNull()) {
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(place, resized_);
    return;
  }
  painter.translate(place.topLeft());
  for (const QRect& rect : event->region()) {
    const QRectF device(QPointF(rect.topLeft()) * ratio - QPointF(place.topLeft()),
                        QSizeF(rect.size()) * ratio);
    picture_.Paint(painter, device.toAlignedRect());
  }
  if (shower_.empty()) return;
  const LayoutLook look = LookOf(game_);
  painter.scale(picture_.Scale(), picture_.Scale());
  painter.setRenderHint(QPainter::Antialiasing);
  for (const auto& [at, chip] : shower_) {
    PaintChip(painter, QPointF(at.x, at.y), look.chip_design, chip,
              look.chip_texts[static_cast<std::size_t>(chip - 1)]);
  }
}

// Composing the layout takes a good part of a second at large sizes, so a window that is being
// pulled shows its last picture stretched, and the sharp one when it rests.
void TableCanvas::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  if (event->oldSize().isEmpty() || !isVisible()) {
    ComposeForThisSize();
    return;
  }
  if (resized_.isNull()) resized_ = picture_.Image();
  FillEntryBox();
  settle_.start();
  update();
}

// ---- The player's hand ------------------------------------------------------------------------

void TableCanvas::mousePressEvent(QMouseEvent* event) {
  setFocus(Qt::MouseFocusReason);
  const Pixel at = ToPixel(event->position());
  Modifiers held = ModifiersOf(event->modifiers());
  // Many desktops keep Alt and the left button for themselves, so the middle one lifts as well.
  if (event->button() == Qt::MiddleButton) held = {.alt = true};
  const bool right = event->button() == Qt::RightButton;
  if (!right && event->button() != Qt::LeftButton && event->button() != Qt::MiddleButton) return;
  PressTable(game_, right ? MouseButton::kRight : MouseButton::kLeft, at, held);
  ShowNow();
  if (entry_box_.isVisible()) entry_box_.setFocus();
}

void TableCanvas::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::RightButton || game_.DragAmount.Raw() == 0) return;
  ReleaseTable(game_, ToPixel(event->position()));
  ShowNow();
}

void TableCanvas::mouseMoveEvent(QMouseEvent* event) {
  pointer_at_ = ToPixel(event->position());
  MovePointer(game_, pointer_at_);
  ShowPointer(event->modifiers());
}

void TableCanvas::leaveEvent(QEvent*) {
  if (game_.DragAmount.Raw() == 0) PointerLeaves(game_);
}

bool TableCanvas::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QWidget::event(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  const std::string pays = QuickStats(game_, HitTest(game_, ToPixel(help->pos())).bet);
  if (pays.empty() || game_.HyperDriveActive) {
    QToolTip::hideText();
  } else {
    QToolTip::showText(help->globalPos(), ToQt(pays), this);
  }
  return true;
}

void TableCanvas::ShowPointer(Qt::KeyboardModifiers held) {
  const PointerImage image = PointerAt(game_, pointer_at_, ModifiersOf(held));
  if (pointer_ == image) return;
  pointer_ = image;
  if (image.shape == PointerShape::kArrow) {
    unsetCursor();
    return;
  }
  const PointerPicture pointer =
      PaintPointer(LookOf(game_), image, kPointerSize, devicePixelRatioF());
  setCursor(QCursor(pointer.picture, pointer.hot_spot.x(), pointer.hot_spot.y()));
}

// ---- Keys -------------------------------------------------------------------------------------

bool TableCanvas::TakeKey(QKeyEvent* event) {
  const std::optional<KeyPress> key = KeyPressOf(*event);
  if (!key || !PressKey(game_, *key)) return false;
  ShowNow();
  return true;
}

void TableCanvas::keyPressEvent(QKeyEvent* event) {
  ShowPointer(event->modifiers() | QGuiApplication::keyboardModifiers());
  if (!TakeKey(event)) QWidget::keyPressEvent(event);
}

void TableCanvas::keyReleaseEvent(QKeyEvent* event) {
  ShowPointer(event->modifiers());
  QWidget::keyReleaseEvent(event);
}

// The box edits its own text with the keys that a text field has; those that walk and commit it
// belong to the table, and what is typed goes through the filter of amounts.
bool TableCanvas::eventFilter(QObject* watched, QEvent* event) {
  if (watched != &entry_box_) return QWidget::eventFilter(watched, event);
  if (event->type() == QEvent::FocusIn) {
    QTimer::singleShot(0, &entry_box_, &QLineEdit::selectAll);
    return false;
  }
  if (event->type() != QEvent::KeyPress) return false;
  auto* key_event = static_cast<QKeyEvent*>(event);
  const std::optional<KeyPress> key = KeyPressOf(*key_event);
  if (!key) return false;
  const bool typed = key->key == Key::kCharacter && !key->ctrl;
  if (!typed) {
    // Copying and the like stay with the box when no Hot-Key takes them.
    return TakeKey(key_event) || key->key != Key::kCharacter;
  }
  QString text = entry_box_.text();
  auto caret = static_cast<qsizetype>(entry_box_.cursorPosition());
  if (entry_box_.hasSelectedText()) {
    caret = entry_box_.selectionStart();
    text.remove(caret, entry_box_.selectedText().size());
  }
  const FieldKey field =
      FilterEntryKey(game_, {FromQt(text), static_cast<std::size_t>(caret)}, key->character);
  entry_box_.setText(ToQt(field.text));
  entry_box_.setCursorPosition(static_cast<int>(field.cursor));
  EditEntryBox(game_, field.text);
  return true;
}

void TableCanvas::FillEntryBox() {
  const std::optional<Pixel> place = PlaceOf(game_, game_.EntryBoxBet);
  const bool shown = EntryBoxOpen(game_) && place.has_value();
  if (!shown) {
    if (entry_box_.isVisible()) {
      const bool had_focus = entry_box_.hasFocus();
      entry_box_.hide();
      if (had_focus) setFocus();
    }
    return;
  }
  const Box box = EntryBoxAt(*place);
  const double scale = PictureRect().width() / static_cast<double>(kTableWidth);
  const QRectF area(ToWidget(QPointF(box.left, box.top)), ToWidget(QPointF(box.right, box.bottom)));
  entry_box_.setGeometry(area.toRect().intersected(rect()));
  QFont font = entry_box_.font();
  font.setPixelSize(std::max(8, static_cast<int>(13 * scale / devicePixelRatioF())));
  entry_box_.setFont(font);
  const QString text = ToQt(TextInEntryBox(game_));
  if (entry_box_.text() != text) entry_box_.setText(text);
  if (!game_.EntryBoxEdited) entry_box_.selectAll();
  if (!entry_box_.isVisible()) {
    entry_box_.show();
    entry_box_.setFocus();
  }
}

}  // namespace feltmaster
