#include "desktop/line_list.h"

#include <QApplication>
#include <QDrag>
#include <QDropEvent>
#include <QHelpEvent>
#include <QMenu>
#include <QMimeData>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>
#include <algorithm>
#include <array>

#include "autobet/line_meaning.h"
#include "desktop/qt_text.h"

namespace feltmaster {

namespace {

constexpr int kRowAir = 4;  // pixels above and below the letters, together
constexpr int kMargin = 6;

QColor Mixed(const QColor& a, const QColor& b, double part_of_b) {
  const auto mix = [part_of_b](int x, int y) {
    return static_cast<int>(x + (y - x) * part_of_b + 0.5);
  };
  return QColor(mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue()));
}

struct RowColors {
  QColor ground;
  QColor text;
};

// By LineShade. Tints of the palette, so that they fit dark desktops as well as light ones.
RowColors ColorsOf(std::int32_t shade, const QPalette& palette) {
  const QColor base = palette.color(QPalette::Base);
  const QColor text = palette.color(QPalette::Text);
  switch (shade) {
    case kShadeSelected:
      return {palette.color(QPalette::Highlight), palette.color(QPalette::HighlightedText)};
    case kShadeLabel:
      return {Mixed(base, QColor(0xd0, 0x9a, 0x20), 0.28), text};
    case kShadeComment:
      return {Mixed(base, QColor(0x40, 0x90, 0x50), 0.13),
              Mixed(text, QColor(0x40, 0x90, 0x50), 0.55)};
    case kShadeOdd:
      return {Mixed(base, QColor(0x50, 0x78, 0xb8), 0.16), text};
    default:
      return {base, text};
  }
}

Click ClickOf(Qt::KeyboardModifiers held) {
  if (held.testFlag(Qt::ControlModifier)) return Click::kCtrl;
  return held.testFlag(Qt::ShiftModifier) ? Click::kShift : Click::kPlain;
}

}  // namespace

LineList::LineList(Game& game, ScriptEditor& editor, QWidget* parent)
    : QAbstractScrollArea(parent), game_(game), editor_(editor) {
  setObjectName("picLoggedBets");
  setAccessibleName("Lines of the script");
  setFocusPolicy(Qt::StrongFocus);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  viewport()->setAcceptDrops(true);
  viewport()->setMouseTracking(true);
  viewport()->setAutoFillBackground(true);
  viewport()->setBackgroundRole(QPalette::Base);
}

int LineList::RowHeight() const {
  return fontMetrics().height() + kRowAir;
}

int LineList::RowsShown() const {
  return std::max(1, viewport()->height() / RowHeight());
}

std::int32_t LineList::RowAt(int y) const {
  return editor_.Rows().Clamped(editor_.TopLine + std::max(0, y) / RowHeight());
}

QRect LineList::PlaceOf(std::int32_t row) const {
  return QRect(0, (row - editor_.TopLine) * RowHeight(), viewport()->width(), RowHeight());
}

int LineList::NumberWidth() const {
  if (!game_.ShowLineNumbers) return 0;
  const auto digits = QString::number(std::max<std::size_t>(game_.ScriptLines.size(), 100)).size();
  return fontMetrics().horizontalAdvance(QString(digits, '8')) + 2 * kMargin;
}

void LineList::ShowLines() {
  const int top = editor_.TopLine;  // the scroll bar may write it
  drop_row_ = 0;
  verticalScrollBar()->setRange(0, editor_.Rows().Count());
  verticalScrollBar()->setPageStep(RowsShown());
  verticalScrollBar()->setSingleStep(1);
  verticalScrollBar()->setValue(top - 1);
  editor_.TopLine = editor_.Rows().Clamped(top);
  const std::int32_t row = editor_.Rows().Clamped(game_.ScriptCursorLine);
  setAccessibleDescription(row > editor_.Rows().Count()
                               ? QStringLiteral("The end of the script")
                               : QStringLiteral("Line %1: %2")
                                     .arg(row)
                                     .arg(ToQt(editor_.Rows().Place(row)->LineText).trimmed()));
  viewport()->update();
}

// ---- Painting ---------------------------------------------------------------------------------

void LineList::paintEvent(QPaintEvent*) {
  QPainter painter(viewport());
  const std::int32_t last = editor_.Rows().Count();
  for (std::int32_t row = editor_.TopLine; row <= last; ++row) {
    if (PlaceOf(row).top() > viewport()->height()) break;
    PaintRow(painter, row);
  }
  if (last == 0) {
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(viewport()->rect().marginsRemoved({20, 20, 20, 20}),
                     Qt::AlignCenter | Qt::TextWordWrap,
                     "No lines yet.\n\nChoose from the lists and press the button of the line, "
                     "then click here. Or type a line below.");
  }
  PaintCursor(painter);
}

void LineList::PaintRow(QPainter& painter, std::int32_t row) const {
  const ScriptLine& line = *editor_.Rows().Place(row);
  const RowColors colors = ColorsOf(line.LineShade, palette());
  const QRect place = PlaceOf(row);
  painter.fillRect(place, colors.ground);
  const int numbers = NumberWidth();
  if (numbers > 0) {
    painter.setPen(Mixed(colors.text, colors.ground, 0.45));
    painter.setFont(font());
    painter.drawText(place.adjusted(0, 0, numbers - place.width() - kMargin, 0),
                     Qt::AlignRight | Qt::AlignVCenter, QString::number(row));
  }
  QFont style = font();
  style.setBold(line.LineKind == kLabelLine);
  style.setItalic(line.LineKind == kCommentLine);
  painter.setFont(style);
  painter.setPen(colors.text);
  const QRect room = place.adjusted(numbers + kMargin, 0, -kMargin, 0);
  painter.drawText(
      room, Qt::AlignLeft | Qt::AlignVCenter,
      QFontMetrics(style).elidedText(ToQt(line.LineText), Qt::ElideRight, room.width()));
}

// Lines go in front of the row of the cursor, so it is a mark between two rows.
void LineList::PaintCursor(QPainter& painter) const {
  const bool shows_drop = drop_row_ > 0;
  const std::int32_t row = shows_drop ? drop_row_ : editor_.Rows().Clamped(game_.ScriptCursorLine);
  const QRect place = PlaceOf(row);
  QColor color = shows_drop || editor_.PendingLine() ? QColor(0xc0, 0x1c, 0x28)
                                                     : palette().color(QPalette::Highlight);
  if (!hasFocus() && !shows_drop && !editor_.PendingLine()) color.setAlpha(120);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(color);
  const int y = std::max(place.top(), 1);
  painter.drawRect(QRect(0, y - 1, place.width(), 2));
  const int size = RowHeight() / 3;
  const std::array<QPoint, 3> mark = {QPoint(0, y - size), QPoint(size, y), QPoint(0, y + size)};
  painter.drawPolygon(mark.data(), 3);
}

void LineList::resizeEvent(QResizeEvent* event) {
  QAbstractScrollArea::resizeEvent(event);
  ShowLines();
}

void LineList::changeEvent(QEvent* event) {
  QAbstractScrollArea::changeEvent(event);
  if (event->type() == QEvent::FontChange) ShowLines();
}

void LineList::scrollContentsBy(int, int) {
  editor_.TopLine = verticalScrollBar()->value() + 1;
  viewport()->update();
}

bool LineList::viewportEvent(QEvent* event) {
  if (event->type() == QEvent::Leave) ShowDropAt(0);
  if (event->type() != QEvent::ToolTip) return QAbstractScrollArea::viewportEvent(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  const std::int32_t row = RowAt(help->pos().y());
  const QRect place = PlaceOf(row);
  if (row > editor_.Rows().Count() || !place.contains(help->pos())) {
    QToolTip::hideText();
  } else {
    const ScriptLine& line = *editor_.Rows().Place(row);
    QToolTip::showText(help->globalPos(),
                       QStringLiteral("<p><b>%1</b></p><p>%2</p>")
                           .arg(ToQt(line.LineText).trimmed().toHtmlEscaped(),
                                ToQt(MeaningOf(line)).toHtmlEscaped()),
                       viewport(), place);
  }
  return true;
}

// ---- The mouse --------------------------------------------------------------------------------

void LineList::Press(std::int32_t row, Click click) {
  editor_.PressRow(row, click);
  drop_row_ = 0;
  changed();
}

void LineList::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  const std::int32_t row = RowAt(event->position().toPoint().y());
  const Click click = ClickOf(event->modifiers());
  const bool on_selection =
      row <= editor_.Rows().Count() && editor_.Rows().Place(row)->LineSelected;
  pressed_row_ = 0;
  if (!editor_.PendingLine() && click == Click::kPlain && on_selection) {
    pressed_row_ = row;  // a click, or the begin of a drag
    pressed_at_ = event->position().toPoint();
  } else {
    Press(row, click);
  }
}

void LineList::mouseMoveEvent(QMouseEvent* event) {
  const QPoint at = event->position().toPoint();
  if (editor_.PendingLine()) ShowDropAt(RowAt(at.y()));
  if (pressed_row_ == 0 || !event->buttons().testFlag(Qt::LeftButton) ||
      (at - pressed_at_).manhattanLength() < QApplication::startDragDistance()) {
    return;
  }
  auto* const mime = new QMimeData;
  mime->setData(kSelectedLinesFormat, QByteArray::number(pressed_row_));
  mime->setText(ToQt(editor_.SelectedText()));
  auto* const drag = new QDrag(this);
  drag->setMimeData(mime);
  pressed_row_ = 0;
  drag->exec(Qt::MoveAction | Qt::CopyAction, Qt::MoveAction);
  ShowDropAt(0);
}

void LineList::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || pressed_row_ == 0) return;
  Press(pressed_row_, Click::kPlain);
  pressed_row_ = 0;
}

void LineList::mouseDoubleClickEvent(QMouseEvent* event) {
  const std::int32_t row = RowAt(event->position().toPoint().y());
  if (event->button() != Qt::LeftButton || editor_.PendingLine() || row > editor_.Rows().Count()) {
    return;
  }
  pressed_row_ = 0;
  chosen(*editor_.Rows().Place(row));
}

void LineList::contextMenuEvent(QContextMenuEvent* event) {
  const bool by_key = event->reason() == QContextMenuEvent::Keyboard;
  const QPoint at = by_key ? viewport()->mapToGlobal(PlaceOf(game_.ScriptCursorLine).bottomLeft())
                           : event->globalPos();
  if (menu != nullptr) menu->popup(at);
}

// ---- The keys ---------------------------------------------------------------------------------

void LineList::MoveTo(std::int32_t row, bool extends) {
  const std::int32_t from = editor_.Rows().Clamped(game_.ScriptCursorLine);
  MoveCursor(editor_.Rows(), row - from, RowsShown());
  if (extends && !editor_.PendingLine()) {
    editor_.SelectAnchor = from;
    if (from <= editor_.Rows().Count()) editor_.Rows().Place(from)->LineSelected = true;
    ClickRow(editor_.Rows(), game_.ScriptCursorLine, Click::kShift);
    ShadeLines(game_);
  }
  changed();
}

void LineList::keyPressEvent(QKeyEvent* event) {
  const std::int32_t row = editor_.Rows().Clamped(game_.ScriptCursorLine);
  const bool extends = event->modifiers().testFlag(Qt::ShiftModifier);
  switch (event->key()) {
    case Qt::Key_Up:
      return MoveTo(row - 1, extends);
    case Qt::Key_Down:
      return MoveTo(row + 1, extends);
    case Qt::Key_PageUp:
      return MoveTo(row - RowsShown(), extends);
    case Qt::Key_PageDown:
      return MoveTo(row + RowsShown(), extends);
    case Qt::Key_Home:
      return MoveTo(1, extends);
    case Qt::Key_End:
      return MoveTo(editor_.Rows().Count() + 1, extends);
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (!editor_.PendingLine()) {
        if (row <= editor_.Rows().Count()) chosen(*editor_.Rows().Place(row));
        return;
      }
      [[fallthrough]];
    case Qt::Key_Space:
      return Press(row, ClickOf(event->modifiers()));
    default:
      // Not the base class, which would scroll without the cursor.
      event->ignore();
  }
}

void LineList::focusInEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusInEvent(event);
  viewport()->update();
}

void LineList::focusOutEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusOutEvent(event);
  viewport()->update();
}

// ---- Drag and drop ----------------------------------------------------------------------------

void LineList::ShowDropAt(std::int32_t row) {
  if (row == drop_row_) return;
  drop_row_ = row;
  viewport()->update();
}

void LineList::dragEnterEvent(QDragEnterEvent* event) {
  const QMimeData* mime = event->mimeData();
  if (mime->hasFormat(kPendingLineFormat) || mime->hasFormat(kSelectedLinesFormat)) {
    event->acceptProposedAction();
  }
}

void LineList::dragMoveEvent(QDragMoveEvent* event) {
  ShowDropAt(RowAt(event->position().toPoint().y()));
  event->acceptProposedAction();
}

void LineList::dragLeaveEvent(QDragLeaveEvent*) {
  ShowDropAt(0);
}

void LineList::dropEvent(QDropEvent* event) {
  const std::int32_t row = RowAt(event->position().toPoint().y());
  ShowDropAt(0);
  event->acceptProposedAction();
  if (event->mimeData()->hasFormat(kPendingLineFormat)) {
    editor_.PlacePending(row);
  } else if (event->mimeData()->data(kSelectedLinesFormat).toInt() != row) {
    editor_.MoveSelected(row);
  }
  changed();
}

}  // namespace feltmaster
