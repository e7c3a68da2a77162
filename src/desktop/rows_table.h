#pragma once

#include <QAbstractTableModel>
#include <QPalette>
#include <QTableView>
#include <functional>
#include <string>
#include <vector>

#include "view/figure.h"
#include "view/rows.h"

namespace feltmaster {

// A colour of the 16, on this palette: made readable on a dark one as on a light one.
QColor InkOn(int number, const QPalette& palette);
// The colour of a tone on this palette, as well to be read on a dark one as on a light one.
QColor ToneColor(Tone tone, const QPalette& palette);

// A column of a table of texts.
struct RowsColumn {
  std::string heading = {};
  Qt::AlignmentFlag align = Qt::AlignLeft;
  bool caption = false;  // names what stands beside it, and is painted fainter
};

// Rows as a model of a view. Of what is shown anew only the cells that differ are painted.
class RowsModel : public QAbstractTableModel {
 public:
  using ToneOfCell = std::function<Tone(int row, int column)>;

  RowsModel(std::vector<RowsColumn> columns, ToneOfCell tone, QObject* parent);

  // False when nothing has changed.
  bool Show(Rows rows);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  bool Renew(int row, Row& wanted);

  std::vector<RowsColumn> columns_;
  ToneOfCell tone_;
  Rows rows_;
};

// A table of texts to be read: it uses the room that it has, its cells can be selected and copied.
class RowsTable : public QTableView {
 public:
  // A tone is asked for after Show has taken the rows. Without one all cells are neutral.
  RowsTable(std::vector<RowsColumn> columns, QWidget* parent, RowsModel::ToneOfCell tone = {});

  void Show(Rows rows);

  QSize sizeHint() const override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void CopySelected() const;
  void NeedWidths();
  void SpreadColumns();

  RowsModel model_;
  std::vector<int> needed_;  // width of each column, for the widest text so far
};

}  // namespace feltmaster
