#include <QLabel>
#include <QLineEdit>
#include <fstream>
#include <regex>

#include "autobet/script_lines.h"
#include "base/record_file.h"
#include "desktop/filled_table.h"
#include "desktop/print_document.h"
#include "files/games_log.h"
#include "files/roll_recorder.h"
#include "reports/graph_print.h"
#include "reports/print_commands.h"

namespace feltmaster {
namespace {

class PrintTest : public FilledTable {
 protected:
  void FillManyPages();
  static std::ptrdiff_t PagesIn(const std::string& path) {
    std::string pdf;
    if (ReadWholeFile(path, 1 << 24, pdf)) return -1;
    const std::regex page("/Type\\s*/Page\\b(?!s)");
    return std::distance(std::sregex_iterator(pdf.begin(), pdf.end(), page), {});
  }
};

TEST_F(PrintTest, AReportIsSeenPageByPageAndGoesIntoAPdf) {
  Document report{.title = "Feltmaster Evening", .made = {}, .pages = {}};
  for (const char* text : {"one", "two", "three"})
    report.pages.push_back({TextLine{{{text}}, 40, Align::kLeft}});
  Expect([](QWidget& preview) {
    const auto* number = Find<QLabel>(preview, "lblPage");
    const QImage first = Find<QWidget>(preview, "picPage")->grab().toImage();
    EXPECT_EQ(number->text(), "Page 1 of 3");
    QTest::keyClick(&preview, Qt::Key_PageDown);
    EXPECT_EQ(number->text(), "Page 2 of 3");
    EXPECT_NE(first, Find<QWidget>(preview, "picPage")->grab().toImage());
    // Behind this answer, so that the next dialog is looked for.
    QTimer::singleShot(0, Find<QPushButton>(preview, "cmdPdf"), &QPushButton::click);
  });
  Expect([](QWidget& dialog) {
    auto* name = Find<QLineEdit>(dialog, "txtFileName");
    EXPECT_EQ(name->text(), "Feltmaster Evening.pdf");
    name->setText("evening");
    Find<QPushButton>(dialog, "cmdOK")->click();
  });
  EXPECT_FALSE(surface_->Print(report).has_value());
  NothingExpected();
  EXPECT_EQ(PagesIn((folder_ / "evening.pdf").string()), 3);
}

void PrintTest::FillManyPages() {
  Fill();
  Game& game = *game_;
  const auto repeat = [](auto& rows) {
    const auto once = rows;
    for (int i = 0; i < 60; ++i) rows.insert(rows.end(), once.begin(), once.end());
  };
  repeat(game.ScriptLines);
  repeat(game.HotKeys);
  for (int i = 0; i < 150; ++i) AddFlag(game, "Flag " + std::to_string(i));
  std::ofstream(Path("rolls.rol")) << std::string(5000, '\x64');
  OpenDiceRollFile(game, Path("rolls.rol"));
  GamesLogAppender log;
  EXPECT_FALSE(log.Open(game.GamesLogFile));
  std::string games;
  for (int i = 0; i < 1000; ++i) {
    Record record;
    record.SetMoney(kNetValue * sizeof(std::int64_t), MoneyAmount(i % 2 == 0 ? -1234 * i : i));
    games += record.Bytes();
  }
  EXPECT_FALSE(log.Add(games));
  EXPECT_FALSE(log.Finish(false));
}

struct Printed {
  WindowCommand which;
  const char* entry;
  const char* question;
  const char* report;
  bool many_pages = false;
  int tab = 0;
};
constexpr Printed kPrinted[] = {
    {WindowCommand::kAutoBet, "mnuPrint", "Print", "Feltmaster Auto-Bets", true},
    {WindowCommand::kBetResults, "mnuPrint", "Print", "Feltmaster Bet Results"},
    {WindowCommand::kBetTrends, "mnuPrint", "Print", "Feltmaster Bet Trends"},
    {WindowCommand::kChipStacks, "mnuPrint", "Print",
     "Chip-Stack values and names for untitled game"},
    {WindowCommand::kConfigure, "mnuPrintAdvPay", "Print", "Feltmaster Payoffs and Advantage", true,
     7},
    {WindowCommand::kConfigure, "mnuPrintAdvPay", "Print", "Feltmaster Payoffs and Advantage", true,
     9},
    {WindowCommand::kDiceRollFiles, "cmdPrint", "Print Dice Roll File",
     "Feltking Dice Roll File: rolls.rol", true},
    {WindowCommand::kFlags, "mnuPrint", "Print", "Feltmaster: untitled game", true},
    {WindowCommand::kGamesLog, "mnuPrintHistogram", "Print", "Feltmaster Games Log"},
    {WindowCommand::kGamesLog, "mnuPrintRawData", "Print Games Log Raw Data",
     "Feltmaster Games Log", true},
    {WindowCommand::kHotKeys, "mnuPrint", "Print", "Feltmaster Hot-Keys", true},
    {WindowCommand::kRollFreqs, "mnuPrint", "Print", "Feltmaster Roll Frequencies"},
    {WindowCommand::kRollTotals, "mnuPrint", "Print", "Feltmaster Roll Totals"},
    {WindowCommand::kSummary, "mnuPrint", "Print", "Feltmaster Summary"},
};

// By the entries of the screens, as a player prints them.
TEST_F(PrintTest, EveryReportGoesIntoAPdf) {
  FillManyPages();
  int number = 0;
  for (const Printed& one : kPrinted) {
    SCOPED_TRACE(one.report);
    game_->ConfigureTab = one.tab;
    ScreenWindow& screen = Open(one.which);
    const std::string name = std::to_string(++number) + ".pdf";
    QString shown;
    ExpectPress("cmdButton1");
    Expect([&](QWidget& preview) {
      EXPECT_EQ(preview.windowTitle().toStdString(), one.report);
      shown = Find<QLabel>(preview, "lblPage")->text();
      QTimer::singleShot(0, Find<QPushButton>(preview, "cmdPdf"), &QPushButton::click);
    });
    ExpectFile(name);
    Titles.clear();
    if (std::string_view(one.entry).starts_with("cmd")) {
      Find<QAbstractButton>(screen, one.entry)->click();
    } else {
      Trigger(screen, one.entry);
    }
    NothingExpected();
    EXPECT_EQ(Titles.front(), one.question);
    const std::ptrdiff_t pages = PagesIn(Path(name.c_str()));
    EXPECT_EQ(pages > 1, one.many_pages) << pages;
    EXPECT_EQ(shown.toStdString(), "Page 1 of " + std::to_string(pages));
    screen.close();
  }
}

TEST_F(PrintTest, WhatCannotBeWrittenIsTold) {
  Expect([](QWidget& preview) { Find<QPushButton>(preview, "cmdClose")->click(); });
  FindPrintCommand("summary")->print(*game_, Confirm::kAsked);
  NothingExpected();
  EXPECT_EQ(game_->LastErrorText, "");

  Document document;
  document.pages.resize(3);
  const auto fault = WritePdf(document, "/no/such/folder/report.pdf");
  ASSERT_TRUE(fault.has_value());
  EXPECT_EQ(fault->description, "No such file or directory");
}

TEST_F(PrintTest, AGraphPageGoesItsWayWithoutAPreview) {
  if (ThereIsAPrinter()) GTEST_SKIP() << "it would be printed";
  Fill();
  ScreenWindow& bankroll = Open(WindowCommand::kBankrollGraph);
  Expect([&](QWidget& message) {
    EXPECT_TRUE(Find<QLabel>(message, "lblMsg")->text().endsWith("report-1.pdf"));
    message.close();
  });
  for (int graph = 0; graph < game_->GraphsPerPage; ++graph) {
    EXPECT_EQ(game_->GraphsOnPage, graph);
    Trigger(bankroll, "mnuPrintNow");
  }
  NothingExpected();
  EXPECT_EQ(game_->GraphsOnPage, 0);
  EXPECT_EQ(PagesIn((folder_ / "report-1.pdf").string()), 1);
}

}  // namespace
}  // namespace feltmaster
