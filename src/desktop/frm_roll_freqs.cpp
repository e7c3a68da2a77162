#include "desktop/frm_roll_freqs.h"

#include <QBoxLayout>
#include <QLabel>
#include <algorithm>
#include <array>

#include "desktop/qt_text.h"
#include "desktop/screen_menus.h"
#include "desktop/screens.h"
#include "view/roll_frequencies.h"

namespace feltmaster {

namespace {

constexpr auto kNames = std::to_array<FigureNames>({
    {"lblTotalRollsAll"},
    {"lblTotalRolls"},
    {"lblActualPercent"},
    {"lblLastRolled"},
    {"lblAverage"},
    {"lblIdealPercent"},
});
constexpr std::size_t kProbable = kNames.size() - 1;
constexpr int kAcross = 2;

const FrequencyEntry& ChosenEntry(const Game& game) {
  return kFrequencyEntry[static_cast<std::size_t>(
      std::clamp(game.RollFreqsListIndex, 0, kFrequencyEntries - 1))];
}

std::vector<RowsColumn> GapColumns() {
  std::vector<RowsColumn> columns;
  for (int gap = 1; gap < kGaps; gap += kGapRowsShown) {
    columns.push_back({.heading = "Gap", .align = Qt::AlignRight, .caption = true});
    columns.push_back({.heading = "Times", .align = Qt::AlignRight});
  }
  return columns;
}

}  // namespace

RollFrequenciesScreen::RollFrequenciesScreen(Screens& screens) : ScreenWindow(screens, kTraits) {
  auto* page = new QWidget(this);
  auto* lines = new QVBoxLayout(page);

  event_ = new QComboBox(page);
  event_->setObjectName(QStringLiteral("cmbFreqNum"));
  for (const FrequencyEntry& entry : kFrequencyEntry) event_->addItem(ToQt(entry.caption));
  auto* caption = new QLabel(QStringLiteral("&Display frequencies for:"), page);
  caption->setBuddy(event_);
  auto* choice = new QHBoxLayout;
  choice->addWidget(caption);
  choice->addWidget(event_);
  choice->addStretch();
  lines->addLayout(choice);

  figures_ = new FigureGrid(kNames, kAcross, page);
  probable_ = new QPushButton(page);
  probable_->setObjectName(QStringLiteral("cmdProbable"));
  figures_->ReplaceCaption(kProbable, probable_);
  lines->addWidget(figures_);

  gaps_ = new RowsTable(GapColumns(), page);
  gaps_->setObjectName(QStringLiteral("lstGaps"));
  gaps_->setAccessibleName(QStringLiteral("Rolls from one appearance to the next"));
  lines->addWidget(gaps_, 1);
  setCentralWidget(page);

  AddFileMenu(*this, TheGame(), {"frequencies", [this] { return AllRows(); }, page});
  AddHelpMenu(*this, TheGame());

  QObject::connect(event_, &QComboBox::activated, this, [this](int entry) {
    TheGame().RollFreqsListIndex = entry;
    Refresh();
  });
  QObject::connect(probable_, &QPushButton::clicked, this, [this] {
    skewed_ = !skewed_ && TheGame().UseSkewedProbability;
    Refresh();
  });
}

void RollFrequenciesScreen::Refresh() {
  Game& game = TheGame();
  const int event = ChosenEntry(game).event;
  event_->setCurrentIndex(std::clamp(game.RollFreqsListIndex, 0, kFrequencyEntries - 1));
  const Figures figures = FrequencyFigures(game, event, skewed_);
  figures_->Show(figures);
  const QString probable = ToQt(figures[kProbable].caption);
  if (probable_->text() != probable) probable_->setText(probable);
  gaps_->Show(InColumns(GapRows(game, event), kGapRowsShown));
}

Rows RollFrequenciesScreen::AllRows() const {
  const FrequencyEntry& entry = ChosenEntry(TheGame());
  Rows rows = FrequencyRows(TheGame(), entry, skewed_);
  const Rows gaps = GapRows(TheGame(), entry.event);
  rows.insert(rows.end(), gaps.begin(), gaps.end());
  return rows;
}

}  // namespace feltmaster
