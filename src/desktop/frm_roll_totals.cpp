#include "desktop/frm_roll_totals.h"

#include <QBoxLayout>
#include <QMenuBar>
#include <QScrollBar>

#include "desktop/qt_text.h"
#include "desktop/screen_menus.h"
#include "desktop/screens.h"
#include "view/roll_totals.h"

namespace feltmaster {

namespace {

constexpr std::array<FigureNames, 1> kTotal = {{{"lblTotalRolls"}}};
constexpr std::array<const char*, 2> kCompare = {
    "  Show % vs. true probability",
    "  Show % vs. current skewed probability",
};

// The entries of a table by their places.
template <typename Table, typename Caption>
std::vector<MenuChoice::Entry> Numbered(const Table& table, Caption caption) {
  std::vector<MenuChoice::Entry> entries;
  for (const auto& row : table) entries.push_back({caption(row), static_cast<int>(entries.size())});
  return entries;
}

}  // namespace

RollTotalsScreen::RollTotalsScreen(Screens& screens) : ScreenWindow(screens, kTraits) {
  auto* page = new QWidget(this);
  auto* lines = new QVBoxLayout(page);
  auto* top = new QHBoxLayout;
  total_ = new FigureGrid(kTotal, 1, page);
  total_->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
  top->addWidget(total_);
  top->addStretch();
  for (std::size_t i = 0; i < compare_.size(); ++i) {
    compare_[i] = new QRadioButton(QString::fromUtf8(kCompare[i]).trimmed(), page);
    compare_[i]->setObjectName(QStringLiteral("optShowProb%1").arg(i));
    top->addWidget(compare_[i]);
    QObject::connect(compare_[i], &QRadioButton::clicked, this, [this, i] {
      TheGame().ShowSkewedPercent = i == 1;
      Refresh();
    });
  }
  lines->addLayout(top);

  bars_ = new RollBars(page);
  scroll_ = new QScrollArea(page);
  scroll_->setWidget(bars_);
  scroll_->setWidgetResizable(true);
  lines->addWidget(scroll_, 1);
  setCentralWidget(page);
  AddMenus();
  KeepScroll(Qt::Horizontal, &Game::RollTotalsHScroll);
  KeepScroll(Qt::Vertical, &Game::RollTotalsVScroll);
}

void RollTotalsScreen::AddMenus() {
  Game& game = TheGame();
  AddFileMenu(*this, game, {"totals", [&game] { return RollTotalRows(game); }, bars_});
  QMenu* display = menuBar()->addMenu(QStringLiteral("&Display"));
  // A setting of the picture, as a group of entries.
  const auto add = [&](const char* name, const char* caption,
                       std::vector<MenuChoice::Entry> entries, std::int32_t Game::*setting) {
    AddMenuChoice(*display,
                  {name, caption, std::move(entries), [&game, setting] { return game.*setting; },
                   [this, setting](int value) {
                     TheGame().*setting = value;
                     Refresh();
                   }});
  };
  add("mnuDisplayTotals", "&Totals", Numbered(kRollTotalsDisplays, [](auto text) { return text; }),
      &Game::RollTotalsDisplay);
  std::vector<MenuChoice::Entry> backs;
  for (const RollTotalsBack& back : kRollTotalsBacks) backs.push_back({back.caption, back.color});
  add("mnuBackColor", "&Background Color", std::move(backs), &Game::RollTotalsBackColor);
  add("mnuGraphColor", "&Graph Color",
      Numbered(kRollTotalsColors, [](const auto& row) { return row.caption; }),
      &Game::RollTotalsGraphColor);
  AddHelpMenu(*this, game);
}

// Where the picture was scrolled to belongs to the game. A bar that has not had its range yet takes
// the position with its first range.
void RollTotalsScreen::KeepScroll(Qt::Orientation along, std::int32_t Game::*kept) {
  QScrollBar* bar =
      along == Qt::Horizontal ? scroll_->horizontalScrollBar() : scroll_->verticalScrollBar();
  QObject::connect(bar, &QScrollBar::rangeChanged, this,
                   [this, bar, kept, wanted = TheGame().*kept](int, int most) mutable {
                     if (wanted > 0 && wanted <= most) bar->setValue(std::exchange(wanted, 0));
                   });
  QObject::connect(bar, &QScrollBar::actionTriggered, this,
                   [this, bar, kept] { TheGame().*kept = bar->sliderPosition(); });
  QObject::connect(bar, &QScrollBar::valueChanged, bars_, qOverload<>(&QWidget::update));
}

QSize RollTotalsScreen::PreferredSize() const {
  const int line = fontMetrics().height();
  return bars_->sizeHint() + QSize(2 * line, 6 * line);
}

void RollTotalsScreen::Refresh() {
  Game& game = TheGame();
  const RollTotals totals = RollTotalsOf(game);
  const Figure total = {"Total rolls", totals.total_rolls};
  total_->Show({&total, 1});
  for (std::size_t i = 0; i < compare_.size(); ++i) {
    compare_[i]->setVisible(totals.offers_skewed);
    compare_[i]->setChecked(game.ShowSkewedPercent == (i == 1));
  }
  bars_->Show(game, totals);
}

}  // namespace feltmaster
