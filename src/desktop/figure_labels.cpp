#include "desktop/figure_labels.h"

#include <QGridLayout>
#include <algorithm>

#include "desktop/number_field.h"
#include "desktop/qt_text.h"

namespace feltmaster {

FigureLabels::FigureLabels(const std::vector<std::string_view>& names) {
  auto* rows = new QGridLayout(this);
  rows->setContentsMargins({});
  rows->setColumnStretch(2, 1);
  for (const std::string_view name : names) {
    const Pair pair{new QLabel, new QLabel};
    pair.value->setObjectName(ToQt(name));
    pair.value->setAlignment(Qt::AlignRight);
    pair.value->setTextInteractionFlags(Qt::TextSelectableByMouse);
    const int row = static_cast<int>(pairs_.size());
    rows->addWidget(pair.caption, row, 0);
    rows->addWidget(pair.value, row, 1);
    pairs_.push_back(pair);
  }
}

void FigureLabels::Show(const Figures& figures) {
  const QPalette plain;
  for (std::size_t i = 0; i < std::min(pairs_.size(), figures.size()); ++i) {
    const Figure& figure = figures[i];
    const QColor ink = figure.tone == Tone::kNeutral
                           ? plain.color(QPalette::WindowText)
                           : InkOf(PaletteColor(figure.tone), plain.color(QPalette::Window));
    pairs_[i].caption->setText(Verbatim(figure.caption));
    pairs_[i].value->setText(Verbatim(figure.text));
    pairs_[i].value->setAccessibleName(Verbatim(figure.caption));
    QPalette colors;
    colors.setColor(QPalette::WindowText, ink);
    pairs_[i].value->setPalette(colors);
  }
}

}  // namespace feltmaster
