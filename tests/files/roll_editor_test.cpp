// The editor of Dice Roll Files against a plain vector of rolls, and its texts.
#include "files/roll_editor.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <random>

#include "files/file_dialog.h"
#include "files/roll_commands.h"
#include "files/roll_fixture.h"
#include "files/roll_recorder.h"
#include "view/roll_list.h"

namespace feltmaster {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

// What a person with pencil and paper would do.
struct PaperRolls {
  std::string rolls;
  std::string clipboard;
  std::size_t next = 1;  // 1 to one behind the last
  std::size_t end = 1;

  std::size_t Low() const { return std::min(next, end); }
  std::size_t Selected() const {
    const std::size_t high = std::min(std::max(next, end), rolls.size());
    return high >= Low() ? high - Low() + 1 : 0;
  }
  void Enter(char roll, bool insert) {
    if (insert) {
      rolls.insert(next - 1, 1, roll);
    } else if (next > rolls.size()) {
      rolls += roll;
    } else {
      rolls[next - 1] = roll;
    }
    end = ++next;
  }
  void Delete() {
    if (Selected() == 0) return;
    rolls.erase(Low() - 1, Selected());
    end = next = std::min(next, rolls.size() + 1);
  }
  void Copy() {
    if (Selected() > 0) clipboard = rolls.substr(Low() - 1, Selected());
  }
  void Paste(const std::string& what) {
    if (what.empty()) return;
    rolls.insert(next - 1, what);
    end = next + what.size() - 1;
  }
};

class RollEditor : public RollFixture {
 protected:
  void Open(const std::string& name, const std::string& rolls) {
    Write(name, rolls);
    ASSERT_TRUE(OpenDiceRollFile(*game_, Path(name)));
  }
  std::string RandomRolls(std::size_t count) {
    std::string rolls(count, '\0');
    for (char& roll : rolls) roll = Byte(Below(6) + 1, Below(6) + 1);
    return rolls;
  }
  int Below(int n) { return static_cast<int>(random_() % static_cast<unsigned>(n)); }

  std::mt19937 random_{17};
};

TEST_F(RollEditor, AnyOperationsInAnyOrder) {
  PaperRolls paper;
  paper.rolls = RandomRolls(70'000);  // more than two blocks
  Open("a.rol", paper.rolls);
  for (int step = 0; step < 300; ++step) {
    switch (Below(11)) {
      case 0:
      case 1: {
        const std::int32_t button = Below(36);
        game_->InsertRolls = Below(2);
        paper.Enter(Byte(button / 6 + 1, button % 6 + 1), game_->InsertRolls == kInsert);
        EXPECT_TRUE(EnterRoll(*game_, DiceOfButton(button)));
        break;
      }
      case 2:
        paper.Copy();
        CopyRolls(*game_);
        break;
      case 3:
        paper.Copy();
        paper.Delete();
        CutRolls(*game_);
        break;
      case 4:
        paper.Delete();
        DeleteRolls(*game_);
        break;
      case 5:
        if (paper.rolls.size() > 300'000) break;
        paper.Paste(paper.clipboard);
        PasteRolls(*game_);
        break;
      case 6: {
        const std::string rolls = RandomRolls(static_cast<std::size_t>(Below(3) * Below(20'000)));
        Write("b.rol", rolls);
        paper.Paste(rolls);
        EXPECT_EQ(PasteRollsFrom(*game_, Path("b.rol")), RollFileResult::kDone);
        break;
      }
      case 7: {
        const std::int64_t roll = Below(static_cast<int>(paper.rolls.size()) + 50);
        const bool extends = Below(3) > 0;
        const std::size_t old = paper.next;
        paper.next =
            std::clamp<std::size_t>(static_cast<std::size_t>(roll), 1, paper.rolls.size() + 1);
        paper.end = extends ? old : paper.next;
        PressRoll(*game_, roll, extends);
        break;
      }
      case 8: {
        const int rolls = Below(81) - 40;
        const bool extends = Below(2) > 0;
        const auto moved = static_cast<std::int64_t>(paper.next) + rolls;
        paper.next = static_cast<std::size_t>(
            std::clamp<std::int64_t>(moved, 1, static_cast<std::int64_t>(paper.rolls.size()) + 1));
        if (!extends) paper.end = paper.next;
        MoveInRolls(*game_, rolls, extends);
        break;
      }
      case 9:
        if (Below(10) > 0 || paper.rolls.empty()) break;
        paper.end = 1;
        paper.next = paper.rolls.size();
        SelectAllRolls(*game_);
        break;
      default: {
        const auto roll = static_cast<std::size_t>(Below(3) * Below(40'000));
        paper.next = paper.end = std::clamp<std::size_t>(roll, 1, paper.rolls.size() + 1);
        GoToRoll(*game_, static_cast<std::int64_t>(roll));
      }
    }
    ASSERT_EQ(static_cast<std::size_t>(game_->DiceRollNext), paper.next) << step;
    ASSERT_EQ(static_cast<std::size_t>(game_->DiceRollSelectEnd), paper.end) << step;
    ASSERT_EQ(SelectedRolls(*game_).Count, static_cast<std::int64_t>(paper.Selected())) << step;
    const bool look = step % 20 == 0;  // the file is long
    ASSERT_EQ(look ? Bytes("a.rol") : paper.rolls, paper.rolls) << step;
    ASSERT_GE(game_->DiceRollTopLine, 1);
    ASSERT_LE(game_->DiceRollTopLine, DiceRollTotal(*game_) + 1);
  }
  EXPECT_EQ(Bytes("a.rol"), paper.rolls);
  EXPECT_EQ(Bytes("data/copyfile.rll"), paper.clipboard);
  EXPECT_TRUE(surface_.messages.empty());
}

TEST_F(RollEditor, TheEdgesOfAFile) {
  EXPECT_FALSE(EnterRandomRoll(*game_));
  const auto message = Said();
  EXPECT_EQ(message.title, "Record Dice Rolls");
  EXPECT_EQ(message.text, "You need to open a file first.");
  EXPECT_EQ(game_->DiceRollNext, 1);

  Open("a.rol", "");
  game_->InsertRolls = kInsert;
  EXPECT_FALSE(DeleteRolls(*game_));
  EXPECT_FALSE(PasteRolls(*game_));  // there is no clipboard yet
  RollCommands usable = UsableRollCommands(*game_);
  EXPECT_FALSE(usable.on_selection || usable.paste || usable.select_all);
  EXPECT_TRUE(usable.paste_from);
  // The first button is 1 and 1, the second 1 and 2; random dice are dice.
  EnterRoll(*game_, DiceOfButton(0));
  EnterRoll(*game_, DiceOfButton(1));
  EnterRoll(*game_, DiceOfButton(35));
  EXPECT_EQ(Bytes("a.rol"), (std::string{36, 68, static_cast<char>(216)}));
  for (int i = 0; i < 100; ++i) EnterRandomRoll(*game_);
  const std::string rolls = Bytes("a.rol");
  ASSERT_EQ(rolls.size(), 103u);
  for (const char roll : rolls) {
    const auto byte = static_cast<unsigned char>(roll);
    EXPECT_TRUE(byte % 4 == 0 && byte / 32 >= 1 && byte / 32 <= 6 && byte / 4 % 8 >= 1 &&
                byte / 4 % 8 <= 6);
  }
  EXPECT_EQ(game_->DiceRollTopLine, 104 - game_->DiceRollPageLines);

  // Behind the last roll nothing is selected, on one roll that one is.
  EXPECT_EQ(SelectedRolls(*game_).Count, 0);
  GoToRoll(*game_, 0);
  EXPECT_EQ(game_->DiceRollNext, 1);
  EXPECT_EQ(SelectedRolls(*game_).Count, 1);
  SelectAllRolls(*game_);
  EXPECT_TRUE(CutRolls(*game_));
  EXPECT_EQ(Bytes("a.rol"), "");
  EXPECT_EQ(game_->DiceRollNext, 1);
  EXPECT_TRUE(UsableRollCommands(*game_).paste);
  EXPECT_TRUE(PasteRolls(*game_));
  EXPECT_EQ(SelectedRolls(*game_).Count, 103);
  // A file pasted into itself, and one copied over itself.
  game_->DiceRollNext = 2;
  EXPECT_EQ(PasteRollsFrom(*game_, Path("a.rol")), RollFileResult::kDone);
  EXPECT_EQ(Bytes("a.rol"), rolls.substr(0, 1) + rolls + rolls.substr(1));
  PressRoll(*game_, 4, false);
  PressRoll(*game_, 6, true);
  EXPECT_EQ(CopyRollsTo(*game_, Path("a.rol")), RollFileResult::kDone);
  EXPECT_EQ(Bytes("a.rol"), rolls.substr(2, 3));
  EXPECT_EQ(DiceRollTotal(*game_), 3);
  EXPECT_EQ(game_->DiceRollNext, 4);
}

TEST_F(RollEditor, AnOperationThatFailsLeavesTheFileWhole) {
  const std::string rolls = RandomRolls(100'000);
  Open("a.rol", rolls);
  Write("data/copyfile.rll", RandomRolls(10));
  game_->DiceRollSelectEnd = 50;
  fs::create_directory(Path("a.rol.new" + std::to_string(getpid())));  // in the draft's way
  game_->InsertRolls = kInsert;
  EXPECT_FALSE(DeleteRolls(*game_));
  const auto message = Said();
  EXPECT_EQ(message.title, "Dice Roll File Error");
  EXPECT_THAT(message.text, HasSubstr(Path("a.rol") + "\ncould not be changed: "));
  EXPECT_FALSE(PasteRolls(*game_));
  EXPECT_FALSE(EnterRoll(*game_, {1, 2}));
  EXPECT_EQ(Bytes("a.rol"), rolls);
  EXPECT_EQ(game_->DiceRollNext, 1);
  EXPECT_EQ(SelectedRolls(*game_).Count, 50);
  fs::remove(Path("a.rol.new" + std::to_string(getpid())));

  // A file that someone deleted meanwhile is not brought back.
  fs::remove(Path("a.rol"));
  EXPECT_FALSE(EnterRoll(*game_, {1, 2}));
  EXPECT_THAT(Said().text, HasSubstr("could not be opened: No such file or directory."));
  EXPECT_FALSE(fs::exists(Path("a.rol")));
  // What is pasted must be rolls.
  Open("a.rol", rolls);
  Write("b.rol", "no rolls");
  EXPECT_FALSE(CarryOutFileCommand(*game_, "Paste From Dice Roll File", Path("b.rol")));
  EXPECT_EQ(Said().title, "Unable to Open Dice Roll File");
  EXPECT_FALSE(CarryOutFileCommand(*game_, "Paste From Dice Roll File", Path("none.rol")));
  EXPECT_EQ(Said().title, "Error");
  EXPECT_EQ(Bytes("a.rol"), rolls);
}

TEST_F(RollEditor, TextOutAndIn) {
  const std::string rolls = {Byte(3, 4), Byte(6, 6), Byte(1, 2)};
  const std::string caption = "Copy Dice Rolls To Text File";
  Open("a.rol", rolls);
  SelectAllRolls(*game_);
  const auto text_with = [&](int numbers, int dice, int called) {
    game_->PrintRollNumbers = numbers;
    game_->PrintDieNumbers = dice;
    game_->PrintNumbersCalled = called;
    fs::remove(Path("a.txt"));
    EXPECT_TRUE(CarryOutFileCommand(*game_, caption, Path("a.txt")));
    return Bytes("a.txt");
  };
  EXPECT_EQ(text_with(1, 1, 1), "1 (3-4) 7\n2 (6-6) 12\n3 (1-2) 3\n");
  EXPECT_EQ(text_with(1, 0, 1), "1 - 7\n2 - 12\n3 - 3\n");
  EXPECT_EQ(text_with(0, 0, 1), "7\n12\n3\n");
  EXPECT_EQ(text_with(1, 1, 0), "1 (3-4)\n2 (6-6)\n3 (1-2)\n");
  EXPECT_EQ(text_with(0, 1, 1), "(3-4) 7\n(6-6) 12\n(1-2) 3\n");

  // A selection from the middle can be renumbered; without roll numbers nobody asks.
  surface_.messages.clear();
  game_->DiceRollSelectEnd = 2;
  EXPECT_EQ(text_with(0, 1, 0), "(6-6)\n(1-2)\n");
  EXPECT_TRUE(surface_.messages.empty());
  surface_.Answer(kAnswerYes);
  EXPECT_EQ(text_with(1, 1, 0), "1 (6-6)\n2 (1-2)\n");
  EXPECT_EQ(Said().text,
            "The rolls you've selected do not begin with roll #1.  Would you like to renumber them "
            "in the output starting with #1?");
  surface_.Answer(kAnswerNo);
  EXPECT_EQ(text_with(1, 1, 0), "2 (6-6)\n3 (1-2)\n");

  game_->PrintDieNumbers = game_->PrintNumbersCalled = 0;
  EXPECT_FALSE(CopyRollsToTextCommand(*game_));
  const auto message = Said();
  EXPECT_EQ(message.title, caption);
  EXPECT_EQ(message.text,
            "You must check at least one of the following boxes found under Print Options:\n"
            "        Include Individual Die #'s\n        Include Numbers Called");

  const auto pasted = [&](const std::string& text) {
    Open("b.rol", "");
    Write("in.txt", text);
    Write("data/cnvrtasc.xx~", "an old one");
    EXPECT_TRUE(CarryOutFileCommand(*game_, "Paste From Ascii/Text File", Path("in.txt")));
    EXPECT_FALSE(fs::exists(Path("data/cnvrtasc.xx~")));
    return Bytes("b.rol");
  };
  EXPECT_EQ(pasted("3 4\n5"), std::string{Byte(3, 4)});
  EXPECT_EQ(pasted("789 3 0x 4-0-56"), (std::string{Byte(3, 4), Byte(5, 6)}));
  EXPECT_EQ(pasted(""), "");
  EXPECT_EQ(pasted("no 7s"), "");
  std::string long_text(29'999, ' ');  // a roll over the border of two blocks
  EXPECT_EQ(pasted(long_text + "12" + long_text + "65"), (std::string{Byte(1, 2), Byte(6, 5)}));
}

TEST_F(RollEditor, TheListAndItsColours) {
  Open("a.rol", {Byte(3, 4), Byte(4, 3), Byte(6, 6), Byte(2, 2), 0});
  EXPECT_EQ(RollFileCaption(*game_), "Dice Roll Files (a.rol)");
  PressRoll(*game_, 2, false);
  PressRoll(*game_, 4, true);
  ToggleHighlight(*game_, {3, 4});
  ToggleHighlightOfTotal(*game_, 12);
  EXPECT_TRUE(game_->RollHighlight[4][3]);  // by the second die and the first
  EXPECT_FALSE(game_->RollHighlight[3][4]);
  const auto lines = RollLines(*game_);
  ASSERT_EQ(lines.size(), 6u);  // one behind the last can be the next roll
  EXPECT_THAT(lines[0].Cells, ElementsAre("1", "3", "4", "7"));
  EXPECT_THAT(lines[4].Cells, ElementsAre("5", "0", "0", "0"));
  EXPECT_THAT(lines[5].Cells, ElementsAre("6", "", "", ""));
  std::string marks;
  for (const RollLine& line : lines) {
    marks += line.IsNext ? 'n' : line.IsSelected ? 's' : '-';
    marks += line.IsHighlighted ? 'h' : ' ';
  }
  EXPECT_EQ(marks, "-hs shn - - ");
  const RollCounters counters = CountersOfRolls(*game_);
  EXPECT_EQ(counters.Total + ' ' + counters.Selected + ' ' + counters.Last + ' ' + counters.Next,
            "5 3 0 4");

  ToggleHighlightOfTotal(*game_, 7);
  EXPECT_TRUE(TotalIsHighlighted(*game_, 7));
  ToggleHighlightOfTotal(*game_, 7);
  EXPECT_FALSE(game_->RollHighlight[4][3]);
  ClearHighlights(*game_);
  EXPECT_FALSE(TotalIsHighlighted(*game_, 12));

  // A long list: the scroll bar covers it, and play keeps its position in the middle.
  Open("b.rol", std::string(30'001, Byte(1, 1)));
  game_->DiceRollPageLines = 10;
  ScrollRolls(*game_, kRollScrollSteps);
  EXPECT_EQ(game_->DiceRollTopLine, 30'001);
  EXPECT_EQ(RollScrollValue(*game_), kRollScrollSteps);
  EXPECT_EQ(RollLines(*game_).size(), 2u);
  ScrollRolls(*game_, 1234);
  EXPECT_EQ(game_->DiceRollTopLine, 1235);
  EXPECT_EQ(RollScrollValue(*game_), 1234);
  GoToRoll(*game_, 500);
  EXPECT_EQ(game_->DiceRollTopLine, 500);
  MoveInRolls(*game_, 10, false);
  EXPECT_EQ(game_->DiceRollTopLine, 501);
  SetDiceRollMode(*game_, kPlayback);
  ShowDiceRollPosition(*game_);
  EXPECT_EQ(game_->DiceRollTopLine, 505);
}

TEST_F(RollEditor, QuestionsBeforePrinting) {
  const std::string title = "Print Dice Rolls";
  EXPECT_FALSE(PrepareRollReport(*game_));
  EXPECT_EQ(Said().text, "There are no dice rolls to print.");
  Open("a.rol", std::string(20, Byte(1, 2)));
  GoToRoll(*game_, 21);
  game_->PrintSelectedRolls = 1;
  EXPECT_FALSE(PrepareRollReport(*game_));
  EXPECT_EQ(Said().text,
            "You checked the box \"Print selected rolls only\" but you haven't selected any dice "
            "rolls to print.");
  PressRoll(*game_, 5, false);
  PressRoll(*game_, 9, true);
  surface_.Answer(kAnswerYes);
  const auto report = PrepareRollReport(*game_);
  ASSERT_TRUE(report);
  EXPECT_EQ(report->Rolls.First, 5);
  EXPECT_EQ(report->Rolls.Count, 5);
  EXPECT_EQ(report->FirstNumber, 1);
  EXPECT_EQ(report->Title, "Feltking Dice Roll File: a.rol");
  EXPECT_THAT(RollReportLines(*game_, *report, 3, 9), ElementsAre("4 (1-2) 3", "5 (1-2) 3"));
  surface_.messages.clear();
  ConfirmRollReport(*game_, *report, 1);
  const auto question = Said();
  EXPECT_EQ(question.title, "Print Dice Roll File");
  EXPECT_THAT(question.text, HasSubstr("Number of rolls to be printed: 5\n"));
  EXPECT_THAT(question.text, HasSubstr("this should result in 1 page.\n"));
  game_->PrintDieNumbers = game_->PrintNumbersCalled = 0;
  EXPECT_FALSE(PrepareRollReport(*game_));
  EXPECT_EQ(Said().title, title);
}

}  // namespace
}  // namespace feltmaster
