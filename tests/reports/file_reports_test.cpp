#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

#include "files/games_log.h"
#include "files/roll_recorder.h"
#include "reports/page_layout.h"
#include "reports/print_commands.h"
#include "reports/printer_surface.h"
#include "reports/text_writer.h"
#include "support/started_game.h"

namespace feltmaster {
namespace {

using namespace money_literals;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using ::testing::StartsWith;
using Message = RecordingSurface::Message;

constexpr std::int32_t kYesOrNo = 1030;

// Reports on files: the Games Log and the Dice Roll File.
class FileReports : public StartedGame<PrinterSurface> {
 protected:
  bool Print(std::string_view name, Confirm confirm = Confirm::kAsk) {
    surface_.printed.clear();
    surface_.messages.clear();
    return FindPrintCommand(name)->print(*game_, confirm);
  }

  // Logs games that ended with these bankrolls; the last of them lost.
  void LogGames(const std::vector<MoneyAmount>& bankrolls) {
    game_->GamesLogFile = Path("study.glg");
    std::string games;
    for (std::size_t i = 0; i < bankrolls.size(); ++i) {
      Record record;
      record.SetMoney(kBankrollValue * 8, bankrolls[i]);
      record.SetMoney(kNetValue * 8, i + 1 == bankrolls.size() ? -1_usd : 1_usd);
      record.SetMoney(kHandleValue * 8, 10_usd);
      games += record.Bytes();
    }
    GamesLogAppender log;
    ASSERT_FALSE(log.Open(game_->GamesLogFile));
    ASSERT_FALSE(log.Add(games));
    ASSERT_FALSE(log.Finish(true));
    game_->GamesDisplayChoice = kBankrollValue;
  }
  void OpenRolls(std::size_t count) {
    std::ofstream(Path("luck.rol"), std::ios::binary) << std::string(count, '\x6C');  // 3-3
    ASSERT_TRUE(OpenDiceRollFile(*game_, Path("luck.rol")));
  }
};

TEST_F(FileReports, GamesLogHistogram) {
  LogGames({100_usd, 300_usd, 300_usd, -50_usd});
  surface_.Answer(kAnswerYes);
  ASSERT_TRUE(Print("games"));
  EXPECT_THAT(surface_.messages, ElementsAre(Message{"Print", "Confirm ready to print?", 9222, 0}));
  ASSERT_THAT(surface_.printed, SizeIs(1));
  const std::string text = TextOf(surface_.printed[0]);
  EXPECT_THAT(text, StartsWith("Feltmaster Games Log\n05-Nov-26, 08:04:09\n"
                               "Filename:  study.glg\n"));
  for (const char* label :
       {"\nEnding bankroll\n", "Won ",     "Broke-even ", "Lost ",     "Sum ",   "Mean ",
        "   Median *",         "Mode ",    "High ",       "Mid ",      "Low ",   "Range ",
        "Variance ",           "Std Dev ", "Skew ",       "Kurtosis ", "Net $ ", "Handle $ ",
        "Advantage ",          "162.5",    "4 games",     "100.0%"}) {
    EXPECT_THAT(text, HasSubstr(label));
  }
  const PlacedPage page = LayOut(surface_.printed[0].pages[0]);
  std::vector<double> heights;
  for (const PrintedBox& box : page.boxes) {
    if (box.ink == 9) heights.push_back(box.height);
  }
  std::ranges::sort(heights);
  ASSERT_THAT(heights, SizeIs(3));
  EXPECT_NEAR(heights[2], 2 * heights[0], 2);
  EXPECT_EQ(std::ranges::count_if(page.texts, [](const auto& t) { return t.text == "Mean"; }), 2);

  game_->GamesViewChoice = 0;  // nothing is included
  ASSERT_TRUE(Print("games", Confirm::kAsked));
  EXPECT_TRUE(LayOut(surface_.printed[0].pages[0]).boxes.empty());
}

TEST_F(FileReports, GamesLogData) {
  LogGames({100_usd, 0_usd, 1234.5_usd, -50_usd});
  game_->GamesViewChoice = 1;  // the games won
  surface_.Answer(kAnswerNo);
  EXPECT_FALSE(Print("gamesdata"));
  EXPECT_THAT(surface_.messages,
              ElementsAre(Message{"Print Games Log Raw Data",
                                  "Number of games to be printed: 3\n\nThis should result in 1 "
                                  "page.\n\nAre you ready to begin printing?",
                                  kYesOrNo, 0}));
  EXPECT_THAT(surface_.printed, IsEmpty());
  ASSERT_TRUE(Print("gamesdata", Confirm::kAsked));
  EXPECT_THAT(TextOf(surface_.printed[0]), HasSubstr("1,234.50"));
  EXPECT_THAT(TextOf(surface_.printed[0]), HasSubstr("Game #"));
  EXPECT_EQ(TextOf(surface_.printed[0]).find("-50"), std::string::npos);

  game_->GamesViewChoice = 0;
  EXPECT_FALSE(Print("gamesdata"));
  EXPECT_THAT(surface_.messages,
              ElementsAre(Message{"Games Log", "There are no games selected for printing.", 1, 0}));

  // As many pages as were told, and every game once.
  game_->GamesViewChoice = 7;
  LogGames(std::vector<MoneyAmount>(997, 5_usd));
  surface_.Answer(kAnswerYes);
  ASSERT_TRUE(Print("gamesdata"));
  const std::size_t pages = surface_.printed[0].pages.size();
  EXPECT_GT(pages, 1u);
  EXPECT_THAT(surface_.messages[0].text,
              StartsWith("Number of games to be printed: 1001\n\nThis should result in " +
                         std::to_string(pages) + " pages.\n"));
  std::size_t games = 0;
  for (const Page& page : surface_.printed[0].pages) {
    for (const PlacedText& text : LayOut(page).texts) games += text.text == "5" ? 1 : 0;
  }
  EXPECT_EQ(games, 997u + 1);  // the number 5 is game 5's as well
}

TEST_F(FileReports, DiceRolls) {
  EXPECT_FALSE(Print("rolls"));
  EXPECT_THAT(surface_.messages,
              ElementsAre(Message{"Print Dice Rolls", "There are no dice rolls to print.", 1, 0}));
  OpenRolls(5000);
  for (const std::int32_t size : {3, 6, 20, 200}) {
    game_->RollPrintFontSize = size;
    surface_.Answer(kAnswerYes);
    ASSERT_TRUE(Print("rolls"));
    const Document& document = surface_.printed[0];
    const std::string pages = std::to_string(document.pages.size());
    EXPECT_THAT(surface_.messages[0].text, HasSubstr("Number of rolls to be printed: 5000"));
    EXPECT_THAT(surface_.messages[0].text, HasSubstr("this should result in " + pages +
                                                     (pages == "1" ? " page." : " pages.")));
    std::size_t rolls = 0;
    for (std::size_t i = 0; i < document.pages.size(); ++i) {
      const PlacedPage page = LayOut(document.pages[i]);
      EXPECT_EQ(page.texts[0].text, "Feltking Dice Roll File: luck.rol");
      EXPECT_EQ(page.texts[1].text, "05-Nov-26, 08:04:09");
      EXPECT_THAT(page.texts.back().text, StartsWith("Page " + std::to_string(i + 1)));
      for (const PlacedText& text : page.texts) {
        rolls += text.text.ends_with(" (3-3) 6") ? 1 : 0;
        EXPECT_LE(text.x + text.width, kPageWidth - kPageMargin + 0.01) << text.text;
        EXPECT_LE(text.y, kPageHeight - kPageMargin) << text.text;
      }
    }
    EXPECT_EQ(rolls, 5000u) << size;
  }
  game_->PrintDieNumbers = game_->PrintNumbersCalled = 0;
  EXPECT_FALSE(Print("rolls"));
  EXPECT_EQ(surface_.messages[0].title, "Print Dice Rolls");
}

}  // namespace
}  // namespace feltmaster
