#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextTable>

#include "autobet/message.h"
#include "desktop/at_the_table.h"
#include "desktop/help_window.h"

namespace feltmaster {
namespace {

class HelpTest : public AtTheTable {
 protected:
  HelpWindow& Guide() {
    auto* open = window_->AllScreens().Find(WindowCommand::kHelpContents);
    EXPECT_NE(open, nullptr);
    return static_cast<HelpWindow&>(*open);
  }
  GuidePage& Page() { return *Find<GuidePage>(Guide(), "txtPage"); }
};

TEST_F(HelpTest, TopicsOpenTheirChapterAndLinksLeadOn) {
  Choose("mnuContents");
  EXPECT_EQ(Page().File(), "README.md");
  EXPECT_TRUE(Page().toPlainText().contains("The user's guide"));

  surface_->OpenHelp(554);
  QApplication::processEvents();
  EXPECT_EQ(Page().File(), "script_language.md");
  EXPECT_GT(Page().verticalScrollBar()->value(), 0);

  emit Page().anchorClicked(QUrl(QStringLiteral("vocabulary.md")));
  EXPECT_EQ(Page().File(), "vocabulary.md");
  Find<QAction>(Guide(), "mnuBack")->trigger();
  EXPECT_EQ(Page().File(), "script_language.md");

  surface_->OpenHelp(-5);
  EXPECT_EQ(Page().File(), "README.md");
}

TEST_F(HelpTest, TablesBeginWithTheirHeadings) {
  Choose("mnuContents");
  Page().Open("studies.md");
  int tables = 0;
  for (QTextFrame* const frame : Page().document()->rootFrame()->childFrames()) {
    const auto* const table = qobject_cast<QTextTable*>(frame);
    if (table == nullptr) continue;
    ++tables;
    const QTextCursor heading = table->cellAt(0, 0).firstCursorPosition();
    EXPECT_EQ(heading.block().text(), "Of 10,000 games");
    EXPECT_GE(heading.block().begin().fragment().charFormat().fontWeight(), QFont::Bold);
  }
  EXPECT_EQ(tables, 3);
}

TEST_F(HelpTest, ASearchShowsWhatItFindsAndOpensIt) {
  Choose("mnuSearch");
  auto* found = Find<QTreeWidget>(Guide(), "lstFound");
  EXPECT_FALSE(found->isVisible());
  auto* box = Find<QLineEdit>(Guide(), "txtSearch");
  QTest::keyClicks(box, "reference lines");
  ASSERT_TRUE(found->isVisible());
  EXPECT_GE(found->topLevelItemCount(), 1);
  QTest::keyClick(box, Qt::Key_Return);
  EXPECT_EQ(Page().File(), "bankroll.md");
  box->setText("zebra");
  EXPECT_EQ(found->topLevelItem(0)->flags(), Qt::NoItemFlags);
}

TEST_F(HelpTest, TheGuideCanBeReadWhileADialogWaits) {
  Expect([this](QWidget& dialog) {
    surface_->OpenHelp(600);
    EXPECT_EQ(Guide().parentWidget(), &dialog);
    Find<QPushButton>(dialog, "cmdButton0")->click();
  });
  Tell(*game_, "Title", "Text", kButtonOk, 600);
  EXPECT_EQ(Guide().parentWidget(), window_.get());
  EXPECT_TRUE(Guide().isVisible());
  EXPECT_EQ(Page().File(), "script_editor.md");
}

TEST_F(HelpTest, AboutTellsTheVersion) {
  Expect([](QWidget& dialog) {
    EXPECT_TRUE(Find<QLabel>(dialog, "lblVersion")->text().startsWith("Version 1."));
    Find<QPushButton>(dialog, "cmdOK")->click();
  });
  Choose("mnuAbout");
  NothingExpected();
}

}  // namespace
}  // namespace feltmaster
