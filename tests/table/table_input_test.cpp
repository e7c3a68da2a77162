#include "table/table_input.h"

#include <gmock/gmock.h>

#include <random>
#include <set>

#include "engine/bet_fixture.h"
#include "engine/entry_box.h"
#include "engine/start_up.h"
#include "stats/roll_statistics.h"
#include "table/calls.h"
#include "table/table_commands.h"

namespace feltmaster {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

constexpr Modifiers kShift = {.shift = true};
constexpr Modifiers kCtrl = {.ctrl = true};
constexpr Modifiers kAlt = {.alt = true};

class TableInput : public BetTable {
 protected:
  TableInput() {
    StartUp(game, {"", 7});
    SetBankroll(1000_usd);
    game.HandleWinningBets = game.HandleLosingBets = 1;
    game.AutoAdjustBetAmounts = kAdjustManually;
  }

  static Pixel At(int bet) {
    const Box box = BoxOfBet(bet);
    return {(box.left + box.right) / 2, (box.top + box.bottom) / 2};
  }
  void Left(Pixel at, Modifiers held = {}) { PressTable(game, MouseButton::kLeft, at, held); }
  void Right(Pixel at = {300, 30}) { PressTable(game, MouseButton::kRight, at); }
  void Chip(int chip) { Left({16, 370 - 25 * chip}); }
  bool Type(std::string_view text) {
    bool taken = true;
    for (const char c : text) taken = PressKey(game, {Key::kCharacter, c}) && taken;
    return taken;
  }
  bool Press(Key key) { return PressKey(game, {key}); }
  MoneyAmount Bet(int bet) const { return game.BetAmount[bet]; }
  int Rolls() const { return RollCounts(game, 0); }
  const MenuCommand& Entry(std::string_view name) const {
    return *std::ranges::find(MenuCommands(), name, &MenuCommand::name);
  }
  WindowCommand Choose(std::string_view name) { return feltmaster::Choose(game, Entry(name)); }
};

TEST_F(TableInput, TheSelectedToolDecidesWhatALeftPressDoes) {
  Left(At(kField));
  EXPECT_EQ(Bet(kField), 1_usd) << "the smallest chip is in hand at first";
  Chip(3);
  EXPECT_EQ(game.ChipColor, 3);
  Left(At(kField));
  EXPECT_EQ(Bet(kField), 26_usd);
  Left(At(kField), kCtrl);
  EXPECT_EQ(Bet(kField), 1_usd);
  Left(At(kField), kShift);
  EXPECT_EQ(Bet(kField), 0_usd);
  // A press on a tool selects it, whatever is held.
  Left({16, 345}, kShift);
  EXPECT_EQ(game.ChipColor, 1);

  // A Chip-Stack takes bets in its lower part and is a tool in its upper part.
  Chip(2);
  Left({16, 220});
  Left({16, 220});
  EXPECT_EQ(Bet(101), 10_usd);
  Left({16, 190});
  EXPECT_EQ(game.ChipColor, 7);
  Left(At(kField));
  EXPECT_EQ(Bet(kField), 10_usd);
  EXPECT_EQ(Bet(101), 10_usd);

  surface.messages.clear();
  Chip(3);
  Left(At(kPlace + 2));
  Left({16, 370});
  EXPECT_EQ(game.ChipColor, kBuyTool);
  Left(At(kPlace + 2));
  EXPECT_EQ(Bet(kBuy + 2), 25_usd);
  EXPECT_EQ(Bet(kPlace + 2), 0_usd);
  EXPECT_EQ(TakeMessage().title, "Buy 4 Bet");
  Left({16, 395});
  Left(At(kField));
  EXPECT_EQ(game.BetState[kField], kCalledOff);
  Left({16, 420});
  Left(At(kField));
  EXPECT_EQ(game.BetState[kField], kWorking) << "ON takes OFF back";
  Left(At(kField), kShift);
  EXPECT_EQ(Bet(kField), 0_usd) << "Shift takes down with any tool";
  Left({16, 220});
  EXPECT_THAT(TakeMessage().text, HasSubstr("You may not call Chip-Stacks ON or OFF."));
}

TEST_F(TableInput, AltLiftsABetUntilItIsDropped) {
  Chip(2);
  Left(At(kField));
  Left(At(kField), kAlt);
  EXPECT_EQ(Bet(kField), 0_usd);
  EXPECT_EQ(game.DragAmount, 5_usd);
  EXPECT_EQ(PointerAt(game, At(kBig6)).shape, PointerShape::kLifted);
  ReleaseTable(game, At(kBig6));
  EXPECT_EQ(Bet(kBig6), 5_usd);
  EXPECT_EQ(game.DragAmount, 0_usd);
  ReleaseTable(game, At(kField));
  EXPECT_EQ(Bet(kField), 0_usd) << "nothing is left to drop";

  Left(At(kBig6), kAlt);
  ReleaseTable(game, {16, 40});
  EXPECT_EQ(Bet(104), 5_usd) << "any part of a Chip-Stack takes what is dropped";
  Left({16, 40}, kAlt);
  ReleaseTable(game, {10, 10});
  EXPECT_EQ(Bet(104), 0_usd) << "dropped on the rail it is off the table";
  Left(At(kField));
  Left(At(kField), kAlt);
  Left(At(kBig8));
  EXPECT_EQ(Bet(kBig8), 5_usd);
  ReleaseTable(game, At(kBig8));
  EXPECT_EQ(Bet(kBig8), 5_usd) << "a lost release brings nothing back";
}

TEST_F(TableInput, ARightPressRollsAndPausesAutoRoll) {
  Right();
  EXPECT_EQ(Rolls(), 1);
  game.CallBetMode = 4;
  Right(At(kField));
  EXPECT_EQ(game.CallBetMode, 0);
  EXPECT_EQ(Rolls(), 2);

  game.AutoRollDice = true;
  game.NumAutoRolls = 3;
  Right();
  EXPECT_EQ(Rolls(), 5) << "a new run of three";
  game.KeepRolling = true;
  game.RollInProgress = true;
  Right();
  EXPECT_FALSE(game.KeepRolling) << "a press during the run pauses it";
  EXPECT_EQ(Rolls(), 5);
  Right();
  EXPECT_TRUE(game.KeepRolling) << "and another resumes it";
  EXPECT_EQ(Rolls(), 5);
}

TEST_F(TableInput, WhatRunsIsInterruptedBeforeAnythingElse) {
  const auto press = [&] { Left(At(kField)); };
  const auto roll = [&] { Right(); };
  const auto key = [&] { EXPECT_TRUE(Press(Key::kLeft)); };
  const auto remove = [&] { Choose("mnuRemoveAllBets"); };
  const std::function<void()> gestures[] = {press, roll, key, remove};
  for (const auto& gesture : gestures) {
    for (const bool yes : {false, true}) {
      game.AutoBetRunning = true;
      game.HyperDriveActive = true;
      game.KeepRolling = true;
      surface.Answer(yes ? kAnswerYes : kAnswerNo);
      gesture();
      RecordingSurface::Message message = TakeMessage();
      EXPECT_EQ(message.title, "Auto-Bet Active");
      EXPECT_EQ(message.text, "Do you want to interrupt Auto-Betting? ");
      EXPECT_EQ(game.AutoBetRunning, !yes);
      EXPECT_EQ(game.KeepRolling, !yes);

      game.AutoBetRunning = false;
      game.KeepRolling = true;
      surface.Answer(yes ? kAnswerYes : kAnswerNo);
      gesture();
      message = TakeMessage();
      EXPECT_EQ(message.title, "Hyper-Drive Active");
      EXPECT_EQ(message.text, "Do you want to stop Hyper-Drive?");
      EXPECT_EQ(game.KeepRolling, !yes);
      EXPECT_TRUE(game.HyperDriveActive);
    }
  }
  EXPECT_EQ(Bet(kField), 0_usd);
  EXPECT_EQ(Rolls(), 0);

  // A menu asks both and opens in any case; those that disturb nothing do not ask.
  for (const Menu menu : {Menu::kGame, Menu::kAction, Menu::kStatistics, Menu::kHelp}) {
    game.AutoBetRunning = game.HyperDriveActive = game.KeepRolling = true;
    surface.messages.clear();
    surface.Answer(kAnswerYes);
    surface.Answer(kAnswerNo);
    OpenMenu(game, menu);
    const bool asks = menu == Menu::kGame || menu == Menu::kAction;
    EXPECT_EQ(surface.messages.size(), asks ? 2u : 0u);
    EXPECT_EQ(game.AutoBetRunning, !asks);
    EXPECT_EQ(game.KeepRolling, !asks);
    surface.answers.clear();
  }
}

TEST_F(TableInput, CallsWaitForTheirBet) {
  Chip(2);
  Left(At(kField));
  Left(At(kPlace + 4));
  surface.messages.clear();
  Choose("mnuCallOff");
  EXPECT_EQ(game.CallBetMode, 2);
  EXPECT_EQ(CallPrompt(game), "Click on bet to call OFF");
  EXPECT_TRUE(Entry("mnuCallOff").checked(game));
  EXPECT_FALSE(Entry("mnuCallOn").checked(game));
  EXPECT_EQ(PointerAt(game, At(kField)).shape, PointerShape::kTurnOff);
  Left(At(kField));
  EXPECT_EQ(game.BetState[kField], kCalledOff);
  EXPECT_EQ(Bet(kField), 5_usd) << "no chip is placed";
  EXPECT_EQ(game.CallBetMode, 0);
  Choose("mnuCallOn");
  Left(At(kField), kShift);
  EXPECT_EQ(game.BetState[kField], kWorking);
  EXPECT_EQ(Bet(kField), 5_usd);

  Choose("mnuBuyBet");
  EXPECT_EQ(CallPrompt(game), "Click on bet to buy");
  Left(At(kPlace + 4));
  EXPECT_EQ(Bet(kBuy + 4), 5_usd);
  surface.messages.clear();
  Choose("mnuRemoveBet");
  EXPECT_EQ(CallPrompt(game), "Click on bet to remove");
  Left({300, 30});
  EXPECT_EQ(game.CallBetMode, 0) << "empty felt cancels";
  Choose("mnuRemoveBet");
  Choose("mnuRemoveBet");
  EXPECT_EQ(game.CallBetMode, 0) << "a second time cancels";
  Choose("mnuRemoveBet");
  EXPECT_TRUE(Press(Key::kEscape));
  EXPECT_EQ(game.CallBetMode, 0);
  Choose("mnuRemoveBet");
  Left({16, 345});
  EXPECT_EQ(game.CallBetMode, 4) << "a tool is taken up meanwhile";
  Choose("mnuCallOn");
  EXPECT_EQ(CallPrompt(game), "Click on bet to call ON") << "one command takes the other's place";
  Choose("mnuRemoveBet");
  Left(At(kPlace + 4));
  EXPECT_EQ(Bet(kBuy + 4), 0_usd);
  EXPECT_EQ(game.CallBetMode, 0);

  Choose("mnuCallAllOff");
  EXPECT_EQ(game.BetState[kField], kCalledOff);
  Choose("mnuCallAllOn");
  EXPECT_EQ(game.BetState[kField], kWorking);
  Choose("mnuRemoveAllBets");
  EXPECT_EQ(game.TotalOnTable, 0_usd);
}

TEST_F(TableInput, AmountsAreKeyedIntoTheBox) {
  EXPECT_FALSE(Press(Key::kRight)) << "without the box the arrow keys do nothing";
  Left(At(kField));
  EXPECT_EQ(game.EntryBoxBet, kField) << "the box follows the bets unseen";
  Choose("mnuKeyInBetAmounts");
  EXPECT_TRUE(Entry("mnuKeyInBetAmounts").checked(game));
  EXPECT_EQ(TextInEntryBox(game), "1");
  EXPECT_EQ(PointerAt(game, At(kField)).shape, PointerShape::kText);
  Left(At(kPlace + 4));
  EXPECT_EQ(game.EntryBoxBet, kPlace + 4);
  EXPECT_EQ(Bet(kPlace + 4), 0_usd) << "a press moves the box and bets nothing";

  Type("1x2-.5");
  EXPECT_EQ(TextInEntryBox(game), "12.5");
  EXPECT_EQ(Bet(kPlace + 4), 0_usd) << "not before it is committed";
  EXPECT_TRUE(Press(Key::kEscape));
  EXPECT_EQ(TextInEntryBox(game), "0");
  Type("12");
  EXPECT_TRUE(Press(Key::kEnter));
  EXPECT_EQ(Bet(kPlace + 4), 12_usd);
  Type("6");
  EXPECT_EQ(TextInEntryBox(game), "6") << "the amount shown was selected";
  EXPECT_TRUE(Press(Key::kRight));
  EXPECT_EQ(Bet(kPlace + 4), 6_usd);
  EXPECT_EQ(game.EntryBoxBet, kPlace + 5);
  Type("12");
  Left(At(kField));
  EXPECT_EQ(Bet(kPlace + 5), 12_usd) << "a press commits first";
  EXPECT_EQ(game.EntryBoxBet, kField);

  // A refusal keeps the box where it is, and nothing rolls.
  surface.messages.clear();
  Left(At(kComeBox));
  Type("5");
  EXPECT_TRUE(Press(Key::kUp));
  EXPECT_THAT(TakeMessage().text, HasSubstr("You may not make a Come bet until"));
  EXPECT_EQ(game.EntryBoxBet, kComeBox);
  Type("5");
  Right();
  EXPECT_EQ(Rolls(), 0);
  surface.messages.clear();
  Type("5");
  Choose("mnuKeyInBetAmounts");
  EXPECT_TRUE(game.KeyInBetAmounts);
  surface.messages.clear();
  Type("0");
  Right();
  EXPECT_EQ(Rolls(), 1);

  // Only Chip-Stacks go below 0.
  Left({16, 60});
  Type("-2.125");
  Press(Key::kEnter);
  EXPECT_EQ(Bet(104), -2.125_usd);
  Left(At(kField));
  Type("-");
  EXPECT_FALSE(game.EntryBoxEdited);

  // What acts on one bet takes the bet of the box.
  Left(At(kPlace + 5));
  Type("12");
  Choose("mnuCallOn");
  EXPECT_EQ(game.BetState[kPlace + 5], kCalledOn);
  EXPECT_EQ(game.CallBetMode, 0);
  Choose("mnuBuyBet");
  EXPECT_EQ(game.EntryBoxBet, kBuy + 5);
  Choose("mnuRemoveBet");
  EXPECT_EQ(TextInEntryBox(game), "0");
  Choose("mnuKeyInBetAmounts");
  EXPECT_FALSE(game.KeyInBetAmounts);
  EXPECT_FALSE(Type("5")) << "without the box characters are for nobody";
}

TEST_F(TableInput, ThePanelIsSwitchedFromTheTray) {
  const Pixel cell = At(kHard8);
  Left({600, 390});
  EXPECT_TRUE(game.ShowHopBets);
  EXPECT_TRUE(game.RedrawTable);
  Chip(2);
  Left(cell);
  const int hop = HitTest(game, cell).bet;
  EXPECT_GE(hop, kHop13);
  EXPECT_EQ(Bet(hop), 5_usd);
  Left({600, 390});
  Left(cell);
  EXPECT_EQ(Bet(kHard8), 5_usd);
  // The box stays where it is and takes the bet that comes to stand there.
  for (const bool hop_bets : {false, true}) {
    game.ShowHopBets = hop_bets;
    for (const PanelCell& each : PanelCells(hop_bets)) {
      game.EntryBoxBet = each.bet;
      SwitchPanel(game);
      EXPECT_TRUE(IsLayoutBet(game.EntryBoxBet)) << each.bet;
      EXPECT_FALSE(HiddenByPanel(game, game.EntryBoxBet)) << each.bet;
      SwitchPanel(game);
    }
  }

  game.StickPersonChoice = 1;
  game.StickCallFiles[1] = "Casey01.stk";
  surface.sounds.clear();
  Left({620, 18});
  EXPECT_EQ(surface.sounds.size(), 1u);
  EXPECT_TRUE(game.ShowHopBets);
  game.AllSoundOff = true;
  Left({620, 18});
  EXPECT_EQ(surface.sounds.size(), 1u);
}

TEST_F(TableInput, DiceThatRemainGoBackAtTheNextPressOnTheLayout) {
  game.DiceAction = kDiceRemain;
  Right();
  EXPECT_FALSE(game.DiceReturned);
  Left({300, 30});
  EXPECT_FALSE(game.DiceReturned) << "empty felt";
  Left(At(kField));
  EXPECT_TRUE(game.DiceReturned);
}

TEST_F(TableInput, TheRecorderIsStoppedByItsSignAndByEsc) {
  const auto press = [&] { Left({480, 390}); };
  const auto escape = [&] { EXPECT_TRUE(Press(Key::kEscape)); };
  const std::function<void()> gestures[] = {press, escape};
  for (const auto& gesture : gestures) {
    game.DiceRollFileMode = kRecording;
    surface.Answer(kAnswerNo);
    gesture();
    EXPECT_EQ(TakeMessage().text, "Recording stopped.\nRewind for playback?");
    EXPECT_EQ(game.DiceRollFileMode, kRecorderOff);
  }
  press();
  EXPECT_FALSE(Press(Key::kEscape));
  game.HyperDriveStopText = "Stopped due to end of Dice Roll File reached.";
  game.DiceRollFileMode = kPlayback;
  surface.Answer(kAnswerOk);
  surface.Answer(kAnswerNo);
  TableRestored(game);
  ASSERT_EQ(surface.messages.size(), 2u);
  EXPECT_EQ(surface.messages[0].title, "Hyper-Drive Stopped");
  EXPECT_EQ(surface.messages[1].text, "Playback stopped.\nRewind for playback?");
}

TEST_F(TableInput, EveryEntryOfTheMenuDoesSomething) {
  std::set<std::string_view> names;
  std::set<WindowCommand> windows;
  for (const MenuCommand& command : MenuCommands()) {
    EXPECT_TRUE(names.insert(command.name).second) << command.name;
    if (command.window != WindowCommand::kNone) {
      EXPECT_TRUE(windows.insert(command.window).second) << command.name;
    }
  }
  EXPECT_EQ(windows.size(), static_cast<std::size_t>(WindowCommand::kAbout));
  EXPECT_EQ(Choose("mnuExit"), WindowCommand::kCloseTable);
  EXPECT_EQ(Choose("mnuRollYourOwnNumbers"), WindowCommand::kRollYourOwn);
  EXPECT_TRUE(game.RollYourOwnNumbers && game.GameChanged);
  Choose("mnuDisplayBetAmounts");
  EXPECT_TRUE(game.DisplayBetAmounts && game.RefreshBetAmounts);
  Choose("mnuRollDice");
  EXPECT_EQ(Rolls(), 1);
  Left(At(kField));
  Choose("mnuDisplayHopBets");
  EXPECT_TRUE(game.ShowHopBets);
  surface.Answer(kAnswerNo);
  game.KeepRolling = true;
  Choose("mnuNew");
  EXPECT_EQ(Rolls(), 0);
  EXPECT_FALSE(game.KeepRolling) << "a run of rolls does not go on in the new game";
  EXPECT_EQ(Bet(kField), 0_usd);
}

TEST_F(TableInput, TheTitleTellsTheGame) {
  EXPECT_EQ(TableTitle(game, false), "Feltmaster");
  game.GameFileName = "/home/anna/games/Friday.crp";
  EXPECT_EQ(TableTitle(game, false), "Feltmaster (Friday.crp)");
  EXPECT_EQ(TableTitle(game, true), "Feltmaster");
  game.HyperDriveActive = true;
  EXPECT_EQ(TableTitle(game, true), "Feltmaster Hyper-Drive Active");
  game.HyperDriveActive = false;
  game.HyperDriveStopText = "Stopped by Auto-Bet command.";
  EXPECT_EQ(TableTitle(game, true), "Hyper-Drive Stopped");
  TableRestored(game);
  EXPECT_EQ(TakeMessage().text, "Stopped by Auto-Bet command.");
  EXPECT_THAT(game.HyperDriveStopText, IsEmpty());
  TableRestored(game);
  EXPECT_THAT(surface.messages, IsEmpty());
}

// Whatever hands and keys do, the sums stay right and every list within its bounds.
TEST_F(TableInput, WildHandsKeepTheTableInOrder) {
  std::mt19937 random(20);
  const auto pick = [&](int count) {
    return static_cast<int>(random() % static_cast<unsigned>(count));
  };
  SetBankroll(100'000_usd);
  for (int i = 0; i < 20'000; ++i) {
    const Modifiers held = {pick(8) == 0, pick(8) == 0, pick(8) == 0};
    const Pixel at = {pick(700) - 30, pick(480) - 20};
    switch (pick(12)) {
      case 0:
        Right(at);
        break;
      case 1:
        ReleaseTable(game, at);
        break;
      case 2:
      case 3:
        PressKey(game, {static_cast<Key>(pick(6))});
        break;
      case 4:
        PressKey(game, {Key::kCharacter, "0123456789.-x\b"[pick(14)], pick(20) == 0});
        break;
      case 5: {
        const MenuCommand& command =
            MenuCommands()[static_cast<std::size_t>(pick(static_cast<int>(MenuCommands().size())))];
        const bool of_files = command.menu == Menu::kGame;
        if (!of_files) feltmaster::Choose(game, command);
        break;
      }
      default:
        Left(at, held);
    }
    surface.messages.clear();
    surface.settles.clear();
    ASSERT_EQ(game.TotalOnTable, BetsAndVig()) << "after step " << i;
    ASSERT_LE(game.ChipList.size(), kMaxTableChips);
    ASSERT_TRUE(IsLayoutBet(game.EntryBoxBet) || PileOfStack(game, game.EntryBoxBet) != 0);
    ASSERT_GE(game.CallBetMode, 0);
    ASSERT_LE(game.CallBetMode, 4);
    for (int bet = 1; bet <= kBetCount; ++bet) ASSERT_GE(Bet(bet), 0_usd) << bet;
    for (const TableChip& chip : game.ChipList) {
      ASSERT_NE(Bet(chip.bet), 0_usd) << "a chip lies where no bet is: " << chip.bet;
    }
    game.KeepRolling = false;
    if (Bet(kBankroll) < 1000_usd) SetBankroll(100'000_usd);
  }
  EXPECT_GT(Rolls(), 300);
}

}  // namespace
}  // namespace feltmaster
