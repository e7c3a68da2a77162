#include "desktop/rows_table.h"

#include <QApplication>
#include <QClipboard>
#include <QFont>
#include <QHeaderView>
#include <QKeyEvent>
#include <algorithm>
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

}  // namespace

QColor InkOn(int number, const QPalette& palette) {
  const QColor pure = InkColor(number);
  QColor color = pure;
  for (double part = 0; Contrast(color, palette.color(QPalette::Base)) < kLegible && part < 1;) {
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

void RowsModel::Show(Rows rows) {
  const int before = rowCount();
  const int now = static_cast<int>(rows.size());
  if (now < before) {
    beginRemoveRows({}, now, before - 1);
    rows_.resize(rows.size());
    endRemoveRows();
  }
  for (int row = 0; row < std::min(before, now); ++row) {
    Renew(row, rows[static_cast<std::size_t>(row)]);
  }
  if (now > before) {
    beginInsertRows({}, before, now - 1);
    rows_.insert(rows_.end(), std::make_move_iterator(rows.begin() + before),
                 std::make_move_iterator(rows.end()));
    endInsertRows();
  }
}

void RowsModel::Renew(int row, Row& wanted) {
  Row& shown = rows_[static_cast<std::size_t>(row)];
  if (shown == wanted) return;
  shown.resize(wanted.size());
  for (std::size_t column = 0; column < wanted.size(); ++column) {
    if (shown[column] == wanted[column]) continue;
    shown[column] = std::move(wanted[column]);
    const QModelIndex changed = index(row, static_cast<int>(column));
    emit dataChanged(changed, changed);
  }
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
      return QVariant::fromValue((column.number ? Qt::AlignRight : Qt::AlignLeft) |
                                 Qt::AlignVCenter);
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
  if (role == Qt::TextAlignmentRole) {
    return QVariant::fromValue((column.number ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
  }
  return {};
}

// ---- The view ---------------------------------------------------------------------------------

RowsTable::RowsTable(std::vector<RowsColumn> columns, QWidget* parent, RowsModel::ToneOfCell tone)
    : QTableView(parent), model_(columns, std::move(tone), this) {
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
  horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
  horizontalHeader()->setHighlightSections(false);
  horizontalHeader()->setMinimumSectionSize(fontMetrics().averageCharWidth() * 5);
  const bool headed = std::any_of(columns.begin(), columns.end(),
                                  [](const RowsColumn& column) { return !column.heading.empty(); });
  horizontalHeader()->setVisible(headed);
}

void RowsTable::Show(Rows rows) {
  model_.Show(std::move(rows));
}

QSize RowsTable::sizeHint() const {
  int width = 0;
  for (int column = 0; column < model_.columnCount(); ++column) {
    width += std::max({sizeHintForColumn(column), horizontalHeader()->sectionSizeHint(column),
                       horizontalHeader()->minimumSectionSize()});
  }
  const int row = fontMetrics().height() + 4;
  const int head = horizontalHeader()->isVisible() ? horizontalHeader()->sizeHint().height() : 0;
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
