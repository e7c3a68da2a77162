#include "desktop/rows_table.h"

#include <QApplication>
#include <QClipboard>
#include <QFont>
#include <QHeaderView>
#include <QKeyEvent>
#include <algorithm>
#include <numeric>
#include <utility>

#include "desktop/dialog_tools.h"
#include "desktop/ink.h"
#include "desktop/paint_tools.h"
#include "desktop/picture_export.h"
#include "desktop/qt_text.h"

namespace feltmaster {

namespace {

constexpr double kFainter = 0.35;
constexpr double kLegible = 4.5;  // contrast of small letters

// On the worst of the grounds on which figures stand: a table, a window, a page of tabs.
double ContrastOn(const QPalette& palette, const QColor& color) {
  double least = Contrast(color, palette.color(QPalette::Base));
  for (const auto ground : {QPalette::Window, QPalette::Button}) {
    least = std::min(least, Contrast(color, palette.color(ground)));
  }
  return least;
}

}  // namespace

QColor InkOn(int number, const QPalette& palette) {
  const QColor pure = InkColor(number);
  QColor color = pure;
  for (double part = 0; ContrastOn(palette, color) < kLegible && part < 1;) {
    color = Mix(pure, palette.color(QPalette::Text), part += 0.1);
  }
  return color;
}

QColor ToneColor(Tone tone, const QPalette& palette) {
  return tone == Tone::kNeutral ? palette.color(QPalette::Text)
                                : InkOn(PaletteColor(tone), palette);
}

// ---- The model --------------------------------------------------------------------------------

RowsModel::RowsModel(std::vector<RowsColumn> columns, ToneOfCell tone, QObject* parent)
    : QAbstractTableModel(parent), columns_(std::move(columns)), tone_(std::move(tone)) {}

bool RowsModel::Show(Rows rows) {
  const int before = rowCount();
  const int now = static_cast<int>(rows.size());
  bool changed = now != before;
  if (now < before) {
    beginRemoveRows({}, now, before - 1);
    rows_.resize(rows.size());
    endRemoveRows();
  }
  for (int row = 0; row < std::min(before, now); ++row) {
    if (Renew(row, rows[static_cast<std::size_t>(row)])) changed = true;
  }
  if (now > before) {
    beginInsertRows({}, before, now - 1);
    rows_.insert(rows_.end(), std::make_move_iterator(rows.begin() + before),
                 std::make_move_iterator(rows.end()));
    endInsertRows();
  }
  return changed;
}

bool RowsModel::Renew(int row, Row& wanted) {
  Row& shown = rows_[static_cast<std::size_t>(row)];
  if (shown == wanted) return false;
  shown.resize(wanted.size());
  for (std::size_t column = 0; column < wanted.size(); ++column) {
    if (shown[column] == wanted[column]) continue;
    shown[column] = std::move(wanted[column]);
    const QModelIndex changed = index(row, static_cast<int>(column));
    emit dataChanged(changed, changed);
  }
  return true;
}

int RowsModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int RowsModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant RowsModel::data(const QModelIndex& index, int role) const {
  const RowsColumn& column = columns_[static_cast<std::size_t>(index.column())];
  const Row& row = rows_[static_cast<std::size_t>(index.row())];
  const auto cell = static_cast<std::size_t>(index.column());
  switch (role) {
    case Qt::DisplayRole:
      return cell < row.size() ? ToQt(row[cell]) : QString();
    case Qt::TextAlignmentRole:
      return QVariant::fromValue(column.align | Qt::AlignVCenter);
    case Qt::ForegroundRole: {
      const QPalette palette = QApplication::palette();
      if (column.caption) {
        return Mix(palette.color(QPalette::Text), palette.color(QPalette::Base), kFainter);
      }
      return ToneColor(tone_ ? tone_(index.row(), index.column()) : Tone::kNeutral, palette);
    }
    default:
      return {};
  }
}

QVariant RowsModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  const RowsColumn& column = columns_[static_cast<std::size_t>(section)];
  if (role == Qt::DisplayRole) return ToQt(column.heading);
  if (role == Qt::TextAlignmentRole) return QVariant::fromValue(column.align | Qt::AlignVCenter);
  return {};
}

// ---- The view ---------------------------------------------------------------------------------

RowsTable::RowsTable(std::vector<RowsColumn> columns, QWidget* parent, RowsModel::ToneOfCell tone)
    : QTableView(parent), model_(columns, std::move(tone), this), needed_(columns.size()) {
  setModel(&model_);
  setEditTriggers(NoEditTriggers);
  setTabKeyNavigation(false);
  setAlternatingRowColors(true);
  setShowGrid(false);
  setWordWrap(false);
  setHorizontalScrollMode(ScrollPerPixel);
  verticalHeader()->hide();
  verticalHeader()->setMinimumSectionSize(fontMetrics().height() + 1);
  verticalHeader()->setSectionResizeMode(QHeaderView::Stretch);
  horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  horizontalHeader()->setHighlightSections(false);
  const bool headed = std::any_of(columns.begin(), columns.end(),
                                  [](const RowsColumn& column) { return !column.heading.empty(); });
  horizontalHeader()->setVisible(headed);
}

void RowsTable::Show(Rows rows) {
  const bool first = model_.rowCount() == 0;
  if (!model_.Show(std::move(rows))) return;
  NeedWidths();
  SpreadColumns();
  if (first) updateGeometry();
}

void RowsTable::NeedWidths() {
  const int letter = fontMetrics().averageCharWidth();
  for (std::size_t column = 0; column < needed_.size(); ++column) {
    const int section = static_cast<int>(column);
    const int head =
        horizontalHeader()->isHidden() ? 0 : horizontalHeader()->sectionSizeHint(section);
    needed_[column] = std::max({needed_[column], sizeHintForColumn(section) + 2 * letter, head,
                                model_.Column(section).letters * letter});
  }
}

// Each column has what it needs, and an equal part of the room that is left.
void RowsTable::SpreadColumns() {
  const int columns = static_cast<int>(needed_.size());
  const int needed = std::accumulate(needed_.begin(), needed_.end(), 0);
  const int spare = std::max(0, viewport()->width() - needed);
  for (int column = 0; column < columns; ++column) {
    const int part = spare * (column + 1) / columns - spare * column / columns;
    horizontalHeader()->resizeSection(column, needed_[static_cast<std::size_t>(column)] + part);
  }
}

void RowsTable::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  SpreadColumns();
}

QSize RowsTable::sizeHint() const {
  const int width = std::accumulate(needed_.begin(), needed_.end(), 0);
  const int row = fontMetrics().height() + 4;
  const int head = horizontalHeader()->isHidden() ? 0 : horizontalHeader()->sizeHint().height();
  return {width + 2 * frameWidth(), model_.rowCount() * row + head + 2 * frameWidth()};
}

void RowsTable::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy)) {
    CopySelected();
  } else {
    QTableView::keyPressEvent(event);
  }
}

void RowsTable::CopySelected() const {
  QModelIndexList cells = selectionModel()->selectedIndexes();
  std::sort(cells.begin(), cells.end());
  Rows rows;
  int row = -1;
  for (const QModelIndex& cell : cells) {
    if (cell.row() != row) rows.emplace_back();
    row = cell.row();
    rows.back().push_back(FromQt(cell.data().toString()));
  }
  if (!rows.empty()) QApplication::clipboard()->setText(ToQt(TabbedText(rows)));
}

}  // namespace feltmaster
