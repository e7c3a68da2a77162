#include "desktop/frm_bet_results.h"

#include <QBoxLayout>
#include <QPushButton>
#include <QSplitter>

#include "desktop/qt_text.h"
#include "desktop/screen_menus.h"
#include "desktop/screens.h"

namespace feltmaster {

namespace {

constexpr auto kHeads = std::to_array<FigureNames>({
    {"lblNumBets"},
    {"lblCurrent"},
    {"lblLastRollAmount"},
    {"lblNumRolls"},
    {"lblRollsPerHour"},
    {"lblHours"},
});
constexpr std::array<const char*, 2> kSeries = {
    " Display results of continuous phantom $1 wagers",
    " Display results of actual decided wagers",
};
constexpr int kNet = 4;  // the columns from here on are coloured

std::vector<RowsColumn> Columns() {
  std::vector<RowsColumn> columns = {{.caption = true}};
  for (const char* heading : {" Wagers", " Wins", " Losses", " Net", " Net %"}) {
    columns.push_back({heading, Qt::AlignRight});
  }
  return columns;
}

}  // namespace

BetResultsScreen::BetResultsScreen(Screens& screens) : ScreenWindow(screens, kTraits) {
  auto* choice = new QWidget(this);
  auto* choice_lines = new QVBoxLayout(choice);
  bets_ = new QListWidget(choice);
  bets_->setObjectName(QStringLiteral("lstBets"));
  bets_->setAccessibleName(QStringLiteral("Bets"));
  bets_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  for (int bet = 1; bet <= kBetCount; ++bet) {
    bets_->addItem(ToQt(kBetName[static_cast<std::size_t>(bet)]));
  }
  auto* all = new QPushButton(QStringLiteral("Select &All"), choice);
  all->setObjectName(QStringLiteral("cmdSelectAll"));
  choice_lines->addWidget(bets_, 1);
  choice_lines->addWidget(all);

  auto* results = new QWidget(this);
  auto* lines = new QVBoxLayout(results);
  for (std::size_t i = 0; i < kSeries.size(); ++i) {
    series_[i] = new QRadioButton(QString::fromUtf8(kSeries[i]).trimmed(), results);
    series_[i]->setObjectName(QStringLiteral("optDataType%1").arg(i));
    lines->addWidget(series_[i]);
    QObject::connect(series_[i], &QRadioButton::clicked, this, [this] { Choose(); });
  }
  heads_ = new FigureGrid(kHeads, 2, results);
  lines->addWidget(heads_);
  table_ = new RowsTable(Columns(), results, [this](int row, int column) {
    return column < kNet ? Tone::kNeutral : results_.lines[static_cast<std::size_t>(row)].tone;
  });
  table_->setObjectName(QStringLiteral("lstResults"));
  table_->setAccessibleName(QStringLiteral("Results of the selected bets"));
  lines->addWidget(table_, 1);

  ShowChoice({});
  BetResultsScreen::Refresh();  // the splitter asks for sizes as it is filled
  auto* page = new QSplitter(this);
  page->addWidget(choice);
  page->addWidget(results);
  page->setStretchFactor(1, 1);
  page->setChildrenCollapsible(false);
  setCentralWidget(page);
  AddFileMenu(*this, TheGame(),
              {"results", [this] { return BetResultRows(TheGame(), Chosen()); }, results});
  AddHelpMenu(*this, TheGame());

  QObject::connect(all, &QPushButton::clicked, bets_, &QListWidget::selectAll);
  QObject::connect(bets_, &QListWidget::itemSelectionChanged, this, [this] { Choose(); });
}

BetResultsChoice BetResultsScreen::Chosen() const {
  BetResultsChoice choice;
  for (int row = 0; row < bets_->count(); ++row) {
    if (bets_->item(row)->isSelected()) choice.bets.Add(row + 1);
  }
  choice.phantom = series_[0]->isChecked();
  return choice;
}

void BetResultsScreen::Choose() {
  TheGame().BetResultsSelection = shown_ = BetResultsSelectionOf(Chosen());
  Refresh();
}

void BetResultsScreen::ShowChoice(const BetResultsChoice& choice) {
  const QSignalBlocker quiet(bets_);
  for (int bet = 1; bet <= kBetCount; ++bet) {
    bets_->item(bet - 1)->setSelected(choice.bets.Has(bet));
  }
  series_[choice.phantom ? 0 : 1]->setChecked(true);
}

void BetResultsScreen::Refresh() {
  const BetResultsChoice choice = ReadBetResultsSelection(TheGame().BetResultsSelection);
  if (shown_ != TheGame().BetResultsSelection) ShowChoice(choice);
  shown_ = TheGame().BetResultsSelection;
  results_ = BetResultsOf(TheGame(), choice);
  heads_->Show(results_.heads);
  Rows rows;
  for (const BetResultsLine& line : results_.lines) {
    rows.push_back(
        {std::string(line.label), line.wagers, line.wins, line.losses, line.net, line.net_percent});
  }
  table_->Show(std::move(rows));
}

}  // namespace feltmaster
