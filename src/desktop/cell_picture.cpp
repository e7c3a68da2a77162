#include "desktop/cell_picture.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <numeric>
#include <utility>

#include "desktop/dialog_tools.h"
#include "desktop/paint_tools.h"
#include "desktop/qt_text.h"

namespace feltmaster {

namespace {

constexpr double kMargin = 4;

// The font, made smaller if the text needs more room than there is.
QFont Fitting(QFont font, const QString& text, double room) {
  const double needed = QFontMetricsF(font).horizontalAdvance(text);
  if (needed > room) font.setPointSizeF(font.pointSizeF() * room / needed);
  return font;
}

// A closed padlock in a square.
void PaintLock(QPainter& painter, const QRectF& box, const QColor& color) {
  painter.setPen(QPen(color, box.width() / 7));
  painter.setBrush(Qt::NoBrush);
  painter.drawArc(box.adjusted(box.width() * 0.25, 0, -box.width() * 0.25, -box.height() * 0.3), 0,
                  180 * 16);
  painter.fillRect(box.adjusted(box.width() * 0.1, box.height() * 0.42, -box.width() * 0.1, 0),
                   color);
}

}  // namespace

QColor InkOfNumber(const std::string& text, const QPalette& palette) {
  const bool zero = text.find_first_of("123456789") == std::string::npos;
  return MoneyColor(zero ? 0 : text.starts_with('-') ? -1 : 1, palette);
}

CellPicture::CellPicture(int rows, std::vector<double> columns,
                         std::function<DrawnCell(CellPlace)> drawn)
    : rows_(rows),
      columns_(std::move(columns)),
      weight_(std::accumulate(columns_.begin(), columns_.end(), 0.0)),
      drawn_(std::move(drawn)) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setMinimumSize(sizeHint() * 0.85);
}

QSize CellPicture::sizeHint() const {
  const QFontMetrics metrics(font());
  return {static_cast<int>(weight_ * metrics.averageCharWidth()),
          static_cast<int>(rows_ * metrics.height() * 1.3)};
}

QRectF CellPicture::RectOf(CellPlace place) const {
  const auto left = std::accumulate(columns_.begin(), columns_.begin() + place.column, 0.0);
  const double x = width() / weight_;
  const double y = static_cast<double>(height()) / rows_;
  return {left * x, place.row * y, columns_[static_cast<std::size_t>(place.column)] * x, y};
}

std::optional<CellPlace> CellPicture::PlaceAt(QPointF point) const {
  for (int row = 0; row < Rows(); ++row) {
    for (int column = 0; column < Columns(); ++column) {
      if (RectOf({row, column}).contains(point)) return CellPlace{row, column};
    }
  }
  return {};
}

QFont CellPicture::SmallFont() const {
  QFont small = font();
  small.setPointSizeF(font().pointSizeF() * 0.75);
  return small;
}

QRectF CellPicture::TextRectOf(CellPlace place) const {
  QRectF box = RectOf(place);
  if (!drawn_(place).name.isEmpty()) box.adjust(0, QFontMetricsF(SmallFont()).height(), 0, 0);
  return box;
}

void CellPicture::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QPalette& colors = palette();
  const QFont small = SmallFont();
  for (int row = 0; row < Rows(); ++row) {
    for (int column = 0; column < Columns(); ++column) {
      const CellPlace place{row, column};
      const DrawnCell cell = drawn_(place);
      if (cell.blank) continue;
      const QRectF box = RectOf(place);
      const QColor ground =
          cell.heading  ? colors.color(QPalette::Button)
          : cell.locked ? Mix(colors.color(QPalette::Base), colors.color(QPalette::Highlight), 0.22)
                        : colors.color(row % 2 == 0 ? QPalette::AlternateBase : QPalette::Base);
      painter.fillRect(box, ground);
      painter.setPen(colors.color(QPalette::Midlight));
      painter.drawLine(box.bottomLeft(), box.bottomRight());
      const double lock = QFontMetricsF(small).ascent();
      if (!cell.name.isEmpty()) {
        const double room = box.width() - 2 * kMargin - (cell.locked ? lock : 0);
        painter.setFont(Fitting(small, cell.name, room));
        painter.setPen(colors.color(QPalette::PlaceholderText));
        painter.drawText(box.adjusted(kMargin, 2, 0, 0), Qt::AlignLeft | Qt::AlignTop, cell.name);
      }
      const QRectF text_box = TextRectOf(place).adjusted(kMargin, 0, -kMargin, 0);
      if (cell.locked) {
        // In the corner that the name leaves free.
        const double left =
            cell.name.isEmpty() ? box.left() + kMargin / 2 : box.right() - kMargin / 2 - lock;
        PaintLock(painter, QRectF(left, box.top() + kMargin / 2, lock, lock),
                  colors.color(QPalette::Text));
      }
      painter.setFont(font());
      painter.setPen(cell.ink.isValid()
                         ? cell.ink
                         : colors.color(cell.heading ? QPalette::ButtonText : QPalette::Text));
      painter.drawText(text_box, Qt::AlignVCenter | (cell.at_left ? Qt::AlignLeft : Qt::AlignRight),
                       painter.fontMetrics().elidedText(cell.text, Qt::ElideRight,
                                                        static_cast<int>(text_box.width()) + 1));
      if (!IsCurrent(place)) continue;
      painter.setPen(QPen(colors.color(QPalette::Highlight), 2));
      painter.setBrush(Qt::NoBrush);
      painter.drawRect(box.adjusted(1, 1, -1, -1));
    }
  }
}

// ---- Editing ----------------------------------------------------------------------------------

EditedCells::EditedCells(int rows, std::vector<double> columns,
                         std::function<DrawnCell(CellPlace)> drawn, CellEditing editing,
                         const char* editor_name)
    : CellPicture(rows, std::move(columns), std::move(drawn)),
      editing_(std::move(editing)),
      editor_(new NumberField(NumberRule(), this)) {
  editor_->setObjectName(QString::fromLatin1(editor_name));
  editor_->setMinimumWidth(0);
  editor_->setMaximumWidth(QWIDGETSIZE_MAX);
  editor_->setFrame(false);
  editor_->setAlignment(Qt::AlignRight);
  editor_->installEventFilter(this);
  setFocusProxy(editor_);
  for (int cell = 0; cell < Rows() * Columns(); ++cell) {
    current_ = {cell / Columns(), cell % Columns()};
    if (editing_.editable(current_)) break;
  }
}

void EditedCells::Load() {
  const std::optional<NumberRule> rule = editing_.rule(current_);
  editor_->setReadOnly(!rule);
  editor_->SetRule(rule.value_or(NumberRule{9, true}));
  const QString entry = ToQt(editing_.entry(current_));
  if (!rule) editor_->setValidator(nullptr);
  if (editor_->text() != entry) editor_->setText(entry);
  editor_->setModified(false);
  editor_->selectAll();
  editor_->setGeometry(TextRectOf(current_).toRect().adjusted(2, 2, -2, -2));
  update();
}

void EditedCells::ShowModel() {
  if (!editor_->isModified()) Load();
  update();
}

void EditedCells::Commit() {
  if (editor_->isModified()) {
    editor_->setModified(false);
    editing_.commit(current_, editor_->Typed());
  }
  Load();
}

void EditedCells::GoTo(CellPlace place) {
  Commit();
  if (!editing_.editable(place)) return;
  current_ = place;
  Load();
}

void EditedCells::Move(int rows, int columns) {
  Commit();
  CellPlace place{current_.row + rows, current_.column + columns};
  const auto inside = [&] {
    return place.row >= 0 && place.row < Rows() && place.column >= 0 && place.column < Columns();
  };
  while (inside() && !editing_.editable(place)) {
    place.row += rows;
    place.column += columns;
  }
  if (inside()) {
    GoTo(place);
  } else if (rows != 0 && editing_.scroll) {
    editing_.scroll(rows);
    Load();
  }
}

bool EditedCells::KeyPressed(int key, const QString& text) {
  switch (key) {
    case Qt::Key_Left:
      Move(0, -1);
      return true;
    case Qt::Key_Right:
      Move(0, 1);
      return true;
    case Qt::Key_Up:
      Move(-1, 0);
      return true;
    case Qt::Key_Down:
      Move(1, 0);
      return true;
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
      Commit();
      if (editing_.scroll) editing_.scroll((key == Qt::Key_PageUp ? -1 : 1) * (Rows() - 2));
      Load();
      return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      Commit();
      return true;
    case Qt::Key_Escape:
      if (!editor_->isModified()) return false;
      editor_->setModified(false);
      Load();
      return true;
    default:
      break;
  }
  if (text.size() != 1 || !text[0].isPrint()) return false;
  if (editing_.key(current_, text)) {
    Load();
    return true;
  }
  return editor_->isReadOnly();
}

bool EditedCells::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const auto* key = static_cast<QKeyEvent*>(event);
    const bool plain = (key->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == 0;
    const bool selects = key->modifiers().testFlag(Qt::ShiftModifier) && key->text().isEmpty();
    if (plain && !selects && KeyPressed(key->key(), key->text())) return true;
  } else if (event->type() == QEvent::FocusOut) {
    Commit();
  } else if (event->type() == QEvent::FocusIn) {
    editor_->selectAll();
  }
  return CellPicture::eventFilter(watched, event);
}

void EditedCells::resizeEvent(QResizeEvent* event) {
  CellPicture::resizeEvent(event);
  ShowModel();
}

void EditedCells::mousePressEvent(QMouseEvent* event) {
  const std::optional<CellPlace> place = PlaceAt(event->position());
  if (!place || !editing_.editable(*place)) return;
  GoTo(*place);
  editor_->setFocus(Qt::MouseFocusReason);
  editor_->selectAll();
}

}  // namespace feltmaster
