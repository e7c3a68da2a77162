#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <sstream>
#include <utility>

#include "automation/hyper_drive.h"
#include "base/text.h"
#include "engine/place_bet.h"
#include "engine/roll_cycle.h"
#include "files/file_commands.h"
#include "reports/graph_print.h"
#include "reports/page_layout.h"
#include "reports/print_commands.h"
#include "reports/printer_surface.h"
#include "reports/report_pages.h"
#include "reports/text_writer.h"
#include "stats/roll_statistics.h"
#include "support/started_game.h"
#include "view/bet_results_table.h"

namespace feltmaster {
namespace {

using namespace money_literals;
using ::testing::ElementsAre;
using ::testing::Gt;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;
using ::testing::StartsWith;

using Message = RecordingSurface::Message;

class Reports : public StartedGame<PrinterSurface> {
 protected:
  Reports() {
    game_->BetAmount.Set(kBankroll, 1000_usd);
    game_->AmountInvested = 1000_usd;
  }

  // Rolls with a bet on the Field, which is decided by each.
  void Roll(int count) {
    for (int i = 0; i < count; ++i) {
      if (game_->BetAmount[kField].Raw() == 0) {
        game_->BetRequest = 5_usd;
        PlaceChips(*game_, kField);
      }
      RollCycle(*game_);
    }
  }
  void SelectBets(std::initializer_list<int> bets, bool phantom) {
    BetResultsChoice choice;
    for (const int bet : bets) choice.bets.Add(bet);
    choice.phantom = phantom;
    game_->BetResultsSelection = BetResultsSelectionOf(choice);
  }

  // The report that a command prints.
  Document Print(std::string_view name) {
    surface_.printed.clear();
    EXPECT_TRUE(FindPrintCommand(name)->print(*game_, Confirm::kAsked)) << name;
    EXPECT_THAT(surface_.printed, SizeIs(1)) << name;
    return surface_.printed.empty() ? Document() : surface_.printed[0];
  }
  std::string Printed(std::string_view name) { return TextOf(Print(name)); }
};

std::vector<PlacedText> TextsOf(const Document& document) {
  std::vector<PlacedText> texts;
  for (const Page& page : document.pages) {
    const PlacedPage placed = LayOut(page);
    texts.insert(texts.end(), placed.texts.begin(), placed.texts.end());
  }
  return texts;
}
// The ink of the first text that reads like this; -1 when there is none.
int InkOfText(const Document& document, std::string_view text) {
  for (const PlacedText& placed : TextsOf(document)) {
    if (Trim(placed.text) == text) return placed.ink;
  }
  return -1;
}
int CountOf(std::string_view text, std::string_view part) {
  int count = 0;
  for (std::size_t at = text.find(part); at != std::string_view::npos;
       at = text.find(part, at + part.size())) {
    ++count;
  }
  return count;
}
// The next word behind a caption; empty when it is not there.
std::string CellBehind(const std::string& text, const std::string& caption) {
  const std::size_t at = text.find(caption);
  if (at == std::string::npos) return {};
  std::istringstream rest(text.substr(at + caption.size()));
  std::string cell;
  rest >> cell;
  return cell;
}

TEST_F(Reports, ATableHasTheSameColumnsOnEveryPage) {
  Table table;
  table.columns = {Align::kLeft, Align::kLeft};
  for (int row = 0; row < 200; ++row) table.rows.push_back(PlainRow({"short", "here"}));
  table.rows.back() = PlainRow({std::string(400, 'M'), "here"});  // shrinks what it stands in
  ReportPages pages(*game_, "Table");
  pages.EndHeading();
  pages.AddTable(table);
  std::set<std::pair<double, double>> places;
  const Document document = pages.Finish();
  EXPECT_THAT(document.pages.size(), Gt(1u));
  for (const PlacedText& text : TextsOf(document)) {
    if (text.text == "here") places.emplace(text.x, text.size);
  }
  EXPECT_THAT(places, SizeIs(1));
}

TEST_F(Reports, SummaryHasItsOwnCaptions) {
  Roll(60);
  game_->GameFileName = "/games/Evening.crp";
  game_->ScriptActive = 1;
  game_->DiceRollFileMode = kPlayback;
  game_->DiceRollFileName = "/rolls/luck.rol";
  const std::string text = Printed("summary");
  EXPECT_THAT(text, StartsWith("Feltmaster Summary\n05-Nov-26, 08:04:09\n"
                               "Game file:  Evening.crp\nAuto-bet file:  untitled\n"
                               "Dice roll file:  /rolls/luck.rol\n"));
  std::istringstream captions(
      "Rolls/hr:|Sim hrs:|Total comp value:|Bankroll:|High:|Current:|Low:|Average:|"
      "Total number of:|Bets decided:|Bets won:|Bets lost:|Total $ amount of:|Hands:|"
      "# of rolls (current Hand):|# of Passes (current Hand):|Total completed:|"
      "Longest # of rolls:|Average # of rolls:|Most Passes:|Average # of Passes:|"
      "# of Come-out rolls:|# that Passed (7, 11):|# of Points established:|"
      "# that Passed (rolled point):|# that Missed (Seven-out):|Total Passes:|Total Misses:");
  for (std::string caption; std::getline(captions, caption, '|');) {
    EXPECT_THAT(text, HasSubstr(caption));
  }
  EXPECT_EQ(CellBehind(text, "Total rolls:"), "60");
  EXPECT_EQ(CellBehind(text, "# of Points established:"),
            std::to_string(game_->GameCounters[kPointsEstablished]));
  EXPECT_EQ(CellBehind(text, "Bets decided:"), "60");
  EXPECT_EQ(CountOf(text, "Bets decided:"), 2);
}

TEST_F(Reports, RollTotalsListEveryEventOnce) {
  Roll(200);
  game_->ShowSkewedPercent = true;
  const std::string text = Printed("totals");
  EXPECT_EQ(CellBehind(text, "Total rolls:"), "200");
  EXPECT_EQ(CellBehind(text, "\n7 "), std::to_string(RollCounts(*game_, 7)));
  EXPECT_EQ(CellBehind(text, "4-1 or 1-4"), "");
  EXPECT_EQ(CellBehind(text, "1-4 or 4-1"), std::to_string(RollCounts(*game_, 31)));
  EXPECT_EQ(CellBehind(text, "2,3,4,9,10,11,12"), std::to_string(RollCounts(*game_, 21)));
  EXPECT_EQ(CellBehind(text, "Die 2, face 6"), std::to_string(RollCounts(*game_, 89)));
  for (const char* head : {"# of times", "rolled", "# of rolls", "since last", "appeared",
                           "PERCENT", "Probable %", "Actual %"}) {
    EXPECT_EQ(CountOf(text, head), 3) << head;
  }
  // 11 totals, 18 groups, 12 faces, 36 pairs and 15 pairs in either order.
  const Document totals = Print("totals");
  std::size_t rows = 0;
  for (const Block& block : totals.pages[0]) {
    const auto* side = std::get_if<SideBySide>(&block.Kind());
    if (side == nullptr) continue;
    for (const auto& stack : side->stacks) {
      for (const Block& inner : stack) {
        if (const auto* table = std::get_if<Table>(&inner.Kind())) rows += table->rows.size();
      }
    }
  }
  EXPECT_EQ(rows, 92u);
  EXPECT_THAT(text, Not(HasSubstr("(skewed)")));  // true dice
  game_->UseSkewedProbability = true;
  EXPECT_EQ(CountOf(Printed("totals"), "(skewed)"), 3);
}

TEST_F(Reports, RollFrequenciesShowTheChosenEvent) {
  Roll(100);
  game_->RollFreqsListIndex = 33;
  const std::string text = Printed("frequencies");
  EXPECT_THAT(text, HasSubstr("Roll Frequencies for Any 7\n"));
  EXPECT_THAT(text, HasSubstr("Average # of Rolls to achieve:    "));
  EXPECT_THAT(text, HasSubstr("200+"));
  EXPECT_EQ(CountOf(text, "Times"), 8);
  game_->RollFreqsListIndex = 5000;  // of a damaged file
  EXPECT_THAT(Printed("frequencies"), HasSubstr("Roll Frequencies for Die 2, face 6\n"));
}

TEST_F(Reports, BetResultsNameTheirBets) {
  Roll(30);
  EXPECT_FALSE(FindPrintCommand("results")->print(*game_, Confirm::kAsk));
  EXPECT_THAT(surface_.messages,
              ElementsAre(Message{"Print Bet Results",
                                  "You need to select one or more bets to print.", 1, 0}));
  EXPECT_THAT(surface_.printed, IsEmpty());

  SelectBets({kField}, false);
  const std::string one = Printed("results");
  EXPECT_THAT(one, HasSubstr("Game File:  untitled\n"));
  EXPECT_THAT(one, HasSubstr("Results of actual decided wagers for this bet:\nField\n"));
  EXPECT_EQ(CellBehind(one, "Total rolls:"), "30");
  EXPECT_EQ(CellBehind(one, "Rolls / hour:"), "120");
  EXPECT_EQ(CellBehind(one, "Sim hours:"), ".25");
  EXPECT_EQ(CellBehind(one, "$ amount wagered on last roll:"), "5");
  EXPECT_THAT(one, HasSubstr("Current $ amount wagered:"));
  EXPECT_EQ(CellBehind(one, "Total # "), "30");
  SelectBets({kField, kPassLine}, true);
  EXPECT_THAT(Printed("results"),
              HasSubstr("Combined results of continuous phantom $1 wagers for these 2 bets:\n"
                        "Pass Line, Field\n"));
}

TEST_F(Reports, AmountsTakeThePrintColours) {
  game_->BetAmount.Set(kFirstStack + 3, 12.5_usd);
  game_->BetAmount.Set(kFirstStack + 4, -7_usd);
  game_->ChipStackName[4] = "Loss";
  const Document plain = Print("stacks");
  EXPECT_EQ(InkOfText(plain, "12.50"), 9);
  EXPECT_EQ(InkOfText(plain, "-7"), 12);
  game_->StackDisplayZero = true;
  game_->GameFileName = "/games/Evening.crp";
  const Document full = Print("stacks");
  EXPECT_THAT(TextOf(full), StartsWith("Chip-Stack values and names for Evening.crp\n"
                                       "0 rolls.  05-Nov-26 at 08:04:09\n"));
  const std::vector<PlacedText> texts = TextsOf(full);
  EXPECT_EQ(std::ranges::count_if(texts, [](const PlacedText& t) { return t.ink == 13; }), 98);
  EXPECT_THAT(TextOf(plain), StartsWith("Chip-Stack values and names for untitled game\n"));
  EXPECT_TRUE(std::ranges::none_of(TextsOf(plain), [](const auto& t) { return t.ink == 13; }));

  game_->PrintColorWin = game_->PrintColorLoss = game_->PrintColorOther = 0;
  for (const char* name : {"stacks", "summary", "trends", "advantage", "bankroll"}) {
    for (const PlacedText& text : TextsOf(Print(name))) EXPECT_EQ(text.ink, 0) << text.text;
  }
}

TEST_F(Reports, TrendsFlagsScriptAndHotKeys) {
  Roll(1);
  const int run = game_->BetStreak.Now(kField);
  const std::string trends = Printed("trends");
  EXPECT_THAT(trends, HasSubstr("1 rolls\n"));
  EXPECT_THAT(trends, HasSubstr("Recent Won / Lost trend for bets actually made (losses shown as "
                                "negative numbers)."));
  EXPECT_EQ(CellBehind(trends, "Field"), std::to_string(run));
  EXPECT_EQ(InkOfText(Print("trends"), std::to_string(run)), run > 0 ? 9 : 12);

  game_->ScriptFlags = {{"Hot", true, false}, {"Cold", false, false}};
  game_->ScriptFileName = "/scripts/iron.bet";
  EXPECT_THAT(Printed("flags"),
              StartsWith("Feltmaster: untitled game\n05-Nov-26 at 08:04:09  1 rolls\n"
                         "Flag values for Auto-Bet file: iron.bet\n" +
                         std::string(43, '_') + "\n\nHot - True\nCold - False\n"));
  game_->HotKeys = {{'7', "/scripts/seven.bet", "bets on seven"}};
  EXPECT_THAT(Printed("hotkeys"), HasSubstr("Ctrl 7  seven.bet  bets on seven"));

  // A long script goes on below the same heading, each line once.
  for (int i = 1; i <= 150; ++i) {
    game_->ScriptLines.emplace_back().LineText = "  line number " + std::to_string(i) + ".";
  }
  const Document script = Print("script");
  EXPECT_THAT(script.pages, SizeIs(3));
  const std::string text = TextOf(script);
  EXPECT_EQ(CountOf(text, "Feltmaster Auto-Bets\n05-Nov-26, 08:04:09\nAuto-Bet File:  iron.bet\n"),
            3);
  EXPECT_EQ(CountOf(text, "Page 3 of 3"), 1);
  for (int i = 1; i <= 150; ++i) {
    EXPECT_EQ(CountOf(text, "\n  line number " + std::to_string(i) + ".\n"), 1) << i;
  }
}

TEST_F(Reports, PayoffsAndAdvantageSayWhichDice) {
  game_->PayTable[kHard4] = {7_usd, false, 1_usd};
  const Document report = Print("advantage");
  const std::string text = TextOf(report);
  EXPECT_THAT(text, HasSubstr("Figured using true probabilities\n"));
  EXPECT_THAT(text, HasSubstr("EV/Hour"));
  EXPECT_EQ(CellBehind(text, "Hard 4"), "8");
  EXPECT_EQ(InkOfText(report, "for"), 13);
  EXPECT_GT(report.pages.size(), 1u);
  game_->UseSkewedProbability = true;
  EXPECT_THAT(Printed("advantage"), HasSubstr("Figured using skewed probabilities\n"));
}

TEST_F(Reports, EverythingStaysOnThePaperAndNothingOverlaps) {
  Roll(700);
  SelectBets({kField, kPassLine}, false);
  game_->GraphRefLines = true;
  game_->GameFileName = "/" + std::string(180, 'g') + ".crp";
  game_->DiceRollFileMode = kPlayback;
  game_->DiceRollFileName = "/" + std::string(200, 'r') + ".rol";
  game_->ScriptLines.emplace_back().LineText = std::string(128, 'W');
  game_->ScriptFlags = {{std::string(80, 'W'), true, false}};
  game_->HotKeys = {{'A', "/" + std::string(99, 'W'), std::string(100, 'W')}};
  for (std::size_t i = 0; i < 100; ++i) {
    game_->BetAmount.Set(kFirstStack + static_cast<int>(i), -9'999'999.99_usd);
    game_->ChipStackName[i] = std::string(80, 'M');
  }
  constexpr double kSlack = 0.01;
  for (const PrintCommand& command : PrintCommands()) {
    if (command.name == "rolls" || command.name.starts_with("games")) continue;  // of a file
    const Document document = Print(command.name);
    for (const Page& page : document.pages) {
      const PlacedPage placed = LayOut(page);
      for (const PlacedText& text : placed.texts) {
        EXPECT_GE(text.x, kPageMargin - kSlack) << command.name << ": " << text.text;
        EXPECT_LE(text.x + text.width, kPageWidth - kPageMargin + kSlack)
            << command.name << ": " << text.text;
        EXPECT_GE(text.y - text.size, 0) << command.name << ": " << text.text;
        EXPECT_LE(text.y, kPageHeight - kPageMargin + kSlack) << command.name << ": " << text.text;
        for (const PlacedText& other : placed.texts) {
          if (&other == &text || other.y != text.y || other.x < text.x) continue;
          EXPECT_GE(other.x, text.x + text.width - kSlack)
              << command.name << ": " << text.text << " | " << other.text;
        }
      }
      for (const Stroke& stroke : placed.strokes) {
        EXPECT_TRUE(
            std::min(stroke.x1, stroke.x2) >= 0 && std::max(stroke.x1, stroke.x2) <= kPageWidth &&
            std::min(stroke.y1, stroke.y2) >= 0 && std::max(stroke.y1, stroke.y2) <= kPageHeight)
            << command.name;
      }
    }
  }
}

TEST_F(Reports, PrintingIsConfirmedAndFailuresAreTold) {
  const PrintCommand& summary = *FindPrintCommand("Summary");
  surface_.Answer(kAnswerNo);
  EXPECT_FALSE(summary.print(*game_, Confirm::kAsk));
  surface_.Answer(kAnswerYes);
  EXPECT_TRUE(summary.print(*game_, Confirm::kAsk));
  const Message question = {"Print", "Confirm ready to print?", 9222, 0};
  EXPECT_THAT(surface_.messages, ElementsAre(question, question));
  EXPECT_THAT(surface_.printed, SizeIs(1));

  surface_.broken = true;
  surface_.messages.clear();
  EXPECT_FALSE(summary.print(*game_, Confirm::kAsked));
  EXPECT_EQ(game_->LastErrorText, "Input/output error, Error #5 occurred, at: Print Summary");
  EXPECT_THAT(surface_.messages, ElementsAre(Message{"Print", game_->LastErrorText, 513, 0}));
  EXPECT_EQ(FindPrintCommand("nothing"), nullptr);
}

// ---- The bankroll graph -------------------------------------------------------------------------

const Message kLastGraph = {"Bankroll Graph Auto-Print Active",
                            "Would you like to print the last graph now?", 1030, 0};
Message OpenPage(const char* count) {
  return {"Bankroll Graph",
          "So far you've sent " + std::string(count) +
              " to the current page.\n3 graphs will fit on a page.\n\n"
              "Would you like to finish printing now?",
          1030, 0};
}

TEST_F(Reports, GraphsFillAPage) {
  Roll(10);
  for (int graph = 1; graph <= 2; ++graph) PrintGraphNow(*game_);
  EXPECT_EQ(game_->GraphsOnPage, 2);
  EXPECT_EQ(game_->LastPrintedRoll, 10);
  EXPECT_THAT(surface_.printed, IsEmpty());
  game_->GraphRefLines = true;
  PrintGraphNow(*game_);
  EXPECT_EQ(game_->GraphsOnPage, 0);
  ASSERT_THAT(surface_.printed, SizeIs(1));
  const std::string text = TextOf(surface_.printed[0]);
  EXPECT_THAT(text, StartsWith("Feltmaster\n05-Nov-26, 08:04:09\n"));
  EXPECT_EQ(CountOf(text, "Feltmaster"), 1);
  EXPECT_EQ(CountOf(text, "\n\nGame file:  untitled\nHigh:  "), 3);
  EXPECT_EQ(CountOf(text, "\n10 rolls @ 120 rolls/hr = .08 sim hrs\n"), 3);
  EXPECT_EQ(CountOf(text, "Reference line differences:  Rolls:  175\n"), 1);
  EXPECT_EQ(CountOf(text, "ROLLS"), 3);
  EXPECT_EQ(CountOf(text, "120 roll moving average"), 3);
  EXPECT_LE(HeightOf(surface_.printed[0].pages[0]), kPrintHeight);
  EXPECT_THAT(
      surface_.notices,
      ElementsAre("Preparing output for printer.", "Preparing output for printer.",
                  "Preparing output for printer.", "Standby . . .\n\nSending output to printer."));
  EXPECT_THAT(surface_.messages, IsEmpty());

  game_->HyperDriveActive = game_->KeepRolling = true;
  surface_.Answer(kAnswerYes);
  PrintGraphNow(*game_);
  EXPECT_EQ(surface_.messages.back().text, "Do you want to stop Hyper-Drive?");
  EXPECT_FALSE(game_->KeepRolling);
  EXPECT_EQ(game_->GraphsOnPage, 0);
}

TEST_F(Reports, AutoPrintPrintsFullPagesAndAsksAboutTheRest) {
  const auto hyper_drive = [&](int rolls) {
    game_->NumAutoRolls = game_->AutoRollsRemaining = rolls;
    surface_.messages.clear();
    ToggleHyperDrive(*game_);
    std::erase_if(surface_.messages,
                  [](const Message& m) { return m.title == "Hyper-Drive Stopped"; });
  };
  hyper_drive(600);
  EXPECT_THAT(surface_.messages, IsEmpty());
  EXPECT_EQ(game_->GraphsOnPage, 0);

  game_->GraphAutoPrint = true;
  surface_.Answer(kAnswerOk);  // the stop text
  surface_.Answer(kAnswerNo);
  surface_.Answer(kAnswerNo);
  hyper_drive(500);  // past roll 1050, where the page is full
  EXPECT_THAT(surface_.messages, ElementsAre(kLastGraph, OpenPage("1")));
  EXPECT_EQ(game_->LastPrintedRoll, 1050);
  EXPECT_EQ(game_->GraphsOnPage, 1);

  surface_.Answer(kAnswerOk);
  surface_.Answer(kAnswerYes);
  surface_.Answer(kAnswerYes);
  hyper_drive(100);
  EXPECT_THAT(surface_.messages, ElementsAre(kLastGraph, OpenPage("2")));
  EXPECT_EQ(game_->LastPrintedRoll, 1200);
  ASSERT_THAT(surface_.printed, SizeIs(1));
  EXPECT_EQ(CountOf(TextOf(surface_.printed[0]), " rolls @ "), 2);
  EXPECT_EQ(surface_.notices.back(), "Sending output to printer.");

  // Nothing new, nothing asked; a new game forgets the last one.
  surface_.messages.clear();
  FinishGraphPrint(*game_);
  EXPECT_THAT(surface_.messages, IsEmpty());
  game_->GameChanged = false;
  NewGame(*game_);
  FinishGraphPrint(*game_);
  EXPECT_THAT(surface_.messages, IsEmpty());

  Roll(5);
  surface_.messages.clear();
  surface_.answers.clear();
  surface_.Answer(kAnswerNo);  // the game is not saved
  surface_.Answer(kAnswerNo);
  NewGame(*game_);
  EXPECT_THAT(surface_.messages, SizeIs(2));
  EXPECT_EQ(surface_.messages.back(), kLastGraph);

  Roll(5);
  surface_.printed.clear();
  EndProgram(*game_);
  EXPECT_THAT(surface_.printed, SizeIs(1));
}

TEST_F(Reports, WithoutAPrinterNothingPrintsByItself) {
  surface_.has_printer = false;
  game_->GraphAutoPrint = true;
  game_->NumAutoRolls = game_->AutoRollsRemaining = 530;
  surface_.messages.clear();
  ToggleHyperDrive(*game_);
  EXPECT_THAT(surface_.messages, SizeIs(1));  // the stop text alone
  EXPECT_THAT(surface_.notices, IsEmpty());
  EXPECT_EQ(game_->GraphsOnPage, 0);
}

TEST_F(Reports, ThePrintedGraphLeavesTheScreenAsItIs) {
  game_->BankrollHistoryCount = 2;
  game_->BankrollHistory[1] = 1000_usd;
  game_->BankrollHistory[2] = 250'000_usd;
  game_->GraphHigh = 250'000_usd;
  game_->GraphLow = 1000_usd;
  const MoneyAmount scale = game_->GraphScale;
  const MoneyAmount top = game_->GraphTop;
  EXPECT_THAT(Printed("bankroll"), HasSubstr("250,000|"));
  EXPECT_EQ(game_->GraphScale, scale);
  EXPECT_EQ(game_->GraphTop, top);
}

TEST(ReportText, AnyBytesArePrintable) {
  EXPECT_EQ(AsUtf8("caf\xC3\xA9 \xE9\x01\xE2\x82"), "caf\xC3\xA9 \xC3\xA9 \xC3\xA2 ");
  EXPECT_EQ(CharacterCount("caf\xC3\xA9"), 4u);
  EXPECT_EQ(TextWidth("10", 10), 11.12);
}

}  // namespace
}  // namespace feltmaster
