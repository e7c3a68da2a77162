#include <QLabel>
#include <QLineEdit>
#include <regex>

#include "base/record_file.h"
#include "desktop/at_the_table.h"
#include "desktop/print_document.h"
#include "reports/graph_print.h"
#include "reports/print_commands.h"

namespace feltmaster {
namespace {

class PrintTest : public AtTheTable {
 protected:
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
  Roll(3, 4);
  PrintGraph(*game_);
  EXPECT_TRUE(SendGraphPage(*game_));
  EXPECT_EQ(PagesIn((folder_ / "report-1.pdf").string()), 1);
}

}  // namespace
}  // namespace feltmaster
