#include "desktop/frm_summary.h"

#include <QBoxLayout>
#include <QLabel>
#include <QMenuBar>
#include <QScrollArea>
#include <array>
#include <span>

#include "desktop/qt_text.h"
#include "desktop/screen_menus.h"
#include "desktop/screens.h"
#include "view/summary.h"

namespace feltmaster {

namespace {

constexpr auto kGame = std::to_array<FigureNames>({
    {"lblTotalRolls"},
    {"lblRollsPerHour"},
    {"lblHours"},
});
constexpr auto kHands = std::to_array<FigureNames>({
    {"lblHandCurrentRolls"},
    {"lblHandCurrentPasses"},
    {"lblHandTotal"},
    {"lblHandLongestRolls"},
    {"lblHandLongestPasses"},
    {"lblHandAverageRolls"},
    {"lblHandAveragePasses"},
    {"lblNumPointsEstablished"},
    {"lblPassesPoints"},
    {"lblPassesComeout"},
    {"lblTotalPasses"},
    {"lblDontPassesPoints"},
    {"lblTotalDontPasses"},
    {"lblNumComeoutRolls"},
});
constexpr auto kBankrolls = std::to_array<FigureNames>({
    {"lblBankrollCurrent"},
    {"lblBankrollHigh"},
    {"lblBankrollLow"},
    {"lblBankrollAverage"},
    {"lblCompValue"},
});
constexpr auto kNumbers = std::to_array<FigureNames>({
    {"lblNumBetsDecided"},
    {"lblNumBetsWon"},
    {"lblNumBetsLost"},
    {"lblNumBetsNet", "lblNetNum"},
    {"lblNumBetsNetPercentage"},
});
constexpr auto kAmounts = std::to_array<FigureNames>({
    {"lblAmountBetsMade"},
    {"lblAmountBetsWon"},
    {"lblAmountBetsLost"},
    {"lblAmountBetsNet", "lblNetAmount"},
    {"lblAmountBetsNetPercentage"},
});

// The groups in the order of the figures; a heading stands before each but the first.
struct Group {
  std::span<const FigureNames> names;
  const char* heading;
  int column;
};
constexpr auto kGroups = std::to_array<Group>({
    {kGame, "", 0},
    {kHands, "Hands:", 0},
    {kBankrolls, "Bankroll:", 1},
    {kNumbers, "Total number of:", 1},
    {kAmounts, "Total $ amount of:", 1},
});

QWidget* Headed(const char* heading, FigureGrid* figures, QWidget* parent) {
  auto* box = new QFrame(parent);
  box->setFrameShape(QFrame::StyledPanel);
  auto* lines = new QVBoxLayout(box);
  if (*heading != '\0') {
    auto* head = new QLabel(QString::fromUtf8(heading), box);
    QFont font = head->font();
    font.setBold(true);
    head->setFont(font);
    lines->addWidget(head);
  }
  lines->addWidget(figures, 1);
  return box;
}

}  // namespace

SummaryScreen::SummaryScreen(Screens& screens) : ScreenWindow(screens, kTraits) {
  page_ = new QWidget(this);
  auto* columns = new QHBoxLayout(page_);
  std::array<QVBoxLayout*, 2> lines = {new QVBoxLayout, new QVBoxLayout};
  for (QVBoxLayout* column : lines) columns->addLayout(column, 1);
  for (const Group& group : kGroups) {
    groups_.push_back(new FigureGrid(group.names, 1, page_));
    lines[static_cast<std::size_t>(group.column)]->addWidget(
        Headed(group.heading, groups_.back(), page_), static_cast<int>(group.names.size()));
  }
  SummaryScreen::Refresh();  // the scroll area asks once how large the page is with its texts
  auto* scroll = new QScrollArea(this);
  scroll->setWidget(page_);
  scroll->setWidgetResizable(true);
  scroll->setFrameShape(QFrame::NoFrame);
  setCentralWidget(scroll);
  AddFileMenu(*this, TheGame(),
              {"summary", [this] { return RowsOf(SummaryFigures(TheGame())); }, page_});
  AddHelpMenu(*this, TheGame());
}

QSize SummaryScreen::PreferredSize() const {
  const int edge = 4 * fontMetrics().height();  // figures grow while a game is played
  return page_->sizeHint() + QSize(edge, edge + menuBar()->sizeHint().height());
}

void SummaryScreen::Refresh() {
  const Figures figures = SummaryFigures(TheGame());
  std::size_t next = 0;
  for (std::size_t i = 0; i < groups_.size(); ++i) {
    if (i > 0) ++next;  // the heading
    groups_[i]->Show(std::span(figures).subspan(next, kGroups[i].names.size()));
    next += kGroups[i].names.size();
  }
}

}  // namespace feltmaster
