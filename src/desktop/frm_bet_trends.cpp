#include "desktop/frm_bet_trends.h"

#include "desktop/screen_menus.h"
#include "desktop/screens.h"
#include "view/table_rows.h"

namespace feltmaster {

namespace {

constexpr int kLines = 30;

std::vector<RowsColumn> Columns() {
  std::vector<RowsColumn> columns;
  for (int bet = 1; bet <= kBetCount; bet += kLines) {
    columns.push_back({"Bet"});
    columns.push_back({"Won / lost", Qt::AlignHCenter});
  }
  return columns;
}

}  // namespace

BetTrendsScreen::BetTrendsScreen(Screens& screens) : ScreenWindow(screens, kTraits) {
  table_ = new RowsTable(Columns(), this, [this](int row, int column) {
    const int bet = column / 2 * kLines + row + 1;
    const int run = column % 2 == 1 && bet <= kBetCount ? TheGame().BetStreak.Now(bet) : 0;
    if (run == 0) return Tone::kNeutral;
    return run > 0 ? Tone::kWin : Tone::kLoss;
  });
  table_->setObjectName(QStringLiteral("lstTrends"));
  table_->setAccessibleName(QStringLiteral("Runs of wins and losses"));
  setCentralWidget(table_);
  AddFileMenu(*this, TheGame(), {"trends", [this] { return TrendRows(TheGame()); }, table_});
  AddHelpMenu(*this, TheGame());
}

void BetTrendsScreen::Refresh() {
  table_->Show(InColumns(TrendRows(TheGame()), kLines));
}

}  // namespace feltmaster
