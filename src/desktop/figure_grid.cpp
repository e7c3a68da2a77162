#include "desktop/figure_grid.h"

#include <QEvent>
#include <QGridLayout>

#include "desktop/qt_text.h"
#include "desktop/rows_table.h"

namespace feltmaster {

namespace {

void ShowText(QLabel& label, const QString& text) {
  if (label.text() != text) label.setText(text);
}

}  // namespace

FigureGrid::FigureGrid(std::span<const FigureNames> names, int across, QWidget* parent)
    : QWidget(parent) {
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setHorizontalSpacing(fontMetrics().averageCharWidth() * 2);
  grid->setVerticalSpacing(fontMetrics().height() / 5);
  for (std::size_t i = 0; i < names.size(); ++i) {
    Pair pair = {new QLabel(this), new QLabel(this), Tone::kNeutral};
    pair.value->setObjectName(QString::fromLatin1(names[i].value));
    pair.value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    if (names[i].caption != nullptr) {
      pair.caption->setObjectName(QString::fromLatin1(names[i].caption));
    }
    const int row = static_cast<int>(i) / across;
    const int column = 2 * (static_cast<int>(i) % across);
    grid->addWidget(pair.caption, row, column);
    grid->addWidget(pair.value, row, column + 1);
    grid->setColumnStretch(column + 1, 1);
    pairs_.push_back(pair);
  }
}

void FigureGrid::Show(std::span<const Figure> figures) {
  for (std::size_t i = 0; i < pairs_.size() && i < figures.size(); ++i) {
    const Figure& figure = figures[i];
    Pair& pair = pairs_[i];
    if (pair.caption != nullptr) ShowText(*pair.caption, Verbatim(Trim(figure.caption)));
    ShowText(*pair.value, Verbatim(figure.text));
    if (pair.value->accessibleDescription().isEmpty()) {
      pair.value->setAccessibleDescription(ToQt(figure.caption));
    }
    if (figure.tone == pair.tone) continue;
    pair.tone = figure.tone;
    Paint(pair);
  }
}

void FigureGrid::Paint(const Pair& pair) {
  QPalette painted;
  if (pair.tone != Tone::kNeutral) {
    painted.setColor(QPalette::WindowText, ToneColor(pair.tone, palette()));
  }
  pair.value->setPalette(painted);
}

void FigureGrid::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() != QEvent::PaletteChange) return;
  for (const Pair& pair : pairs_) Paint(pair);
}

void FigureGrid::ReplaceCaption(std::size_t figure, QWidget* control) {
  Pair& pair = pairs_[figure];
  delete layout()->replaceWidget(pair.caption, control);
  delete pair.caption;
  pair.caption = nullptr;
}

}  // namespace feltmaster
