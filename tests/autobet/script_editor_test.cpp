#include "autobet/script_editor.h"

#include <gtest/gtest.h>

#include <random>

#include "autobet/line_draft.h"
#include "autobet/script_file.h"
#include "autobet/script_lines.h"
#include "base/text.h"

namespace feltmaster {
namespace {

class TheEditor : public testing::Test {
 protected:
  void Type(std::initializer_list<const char*> lines) {
    for (const char* line : lines) {
      const auto fault = editor.TypeLine(line);
      EXPECT_FALSE(fault) << line << ": " << fault->expected;
    }
  }
  // The lines, with a star in front of the selected ones and a bar in front of the cursor.
  std::string Lines() const {
    std::string text;
    for (std::size_t i = 0; i <= game.ScriptLines.size(); ++i) {
      if (static_cast<std::int32_t>(i + 1) == game.ScriptCursorLine) text += '|';
      if (i == game.ScriptLines.size()) break;
      const ScriptLine& line = game.ScriptLines[i];
      text += (line.LineSelected ? "*" : "") + std::string(Trim(line.LineText)) + ' ';
    }
    return text;
  }

  Game game;
  ScriptEditor editor{game};
};

TEST_F(TheEditor, PlacesALineThatWaits) {
  Type({"'a", "'b"});
  EXPECT_EQ(Lines(), "'a *'b |");
  editor.SetPending(LabelLine("here"));
  editor.PressRow(2, Click::kShift);
  EXPECT_EQ(Lines(), "'a |*here 'b ");
  EXPECT_EQ(editor.SelectAnchor, 2);
  EXPECT_EQ(game.ScriptLabels, std::vector<std::string>{"here"});
  EXPECT_TRUE(game.ScriptNeedsInit && game.ScriptUnsaved);
  editor.SetPending(LabelLine("'c"));
  editor.PlacePending(99);
  EXPECT_EQ(Lines(), "'a here 'b |*'c ");
  editor.SetPending(LabelLine("gone"));
  editor.CancelPending();
  editor.PressRow(1, Click::kPlain);
  EXPECT_EQ(Lines(), "|*'a here 'b 'c ");
  EXPECT_TRUE(editor.TypeLine("Here"));  // in use
}

TEST_F(TheEditor, CutsPastesAndMoves) {
  Type({"'a", "'b", "'c", "'d", "'e"});
  editor.PressRow(2, Click::kPlain);
  editor.PressRow(4, Click::kCtrl);
  editor.Cut();
  EXPECT_EQ(Lines(), "'a 'c 'e |");
  game.ScriptCursorLine = 1;
  editor.Paste();
  EXPECT_EQ(Lines(), "|*'b *'d 'a 'c 'e ");
  editor.Cut();  // takes exactly what was pasted
  EXPECT_EQ(Lines(), "|'a 'c 'e ");
  editor.Undo();
  editor.PressRow(1, Click::kPlain);
  editor.MoveSelected(4);
  EXPECT_EQ(Lines(), "'d 'a 'c |*'b 'e ");
  editor.Undo();
  EXPECT_EQ(Lines(), "|*'b 'd 'a 'c 'e ");  // what was moved
  editor.SelectAll();
  editor.Delete();
  EXPECT_EQ(Lines(), "|");
  EXPECT_FALSE(game.ScriptUnsaved);
  EXPECT_TRUE(editor.PasteText("When . . .\n  On each\n"));
  EXPECT_EQ(Lines(), "|");
  EXPECT_FALSE(editor.PasteText("When . . .\n  On each roll\n"));
  EXPECT_EQ(Lines(), "|*When . . . *On each roll ");
}

TEST_F(TheEditor, UndoesAndRedoesEveryEdit) {
  std::mt19937 random(7);
  std::vector<std::vector<ScriptLine>> states = {game.ScriptLines};
  const auto number = [&](int below) { return static_cast<std::int32_t>(random() % below); };
  const auto same = [&](const std::vector<ScriptLine>& state) {
    return std::ranges::equal(game.ScriptLines, state, SameLine);
  };
  while (states.size() < 200) {
    game.ScriptCursorLine = 1 + number(static_cast<int>(game.ScriptLines.size()) + 1);
    for (ScriptLine& line : game.ScriptLines) line.LineSelected = number(3) == 0;
    switch (number(6)) {
      case 0:
        editor.Cut();
        break;
      case 1:
        editor.Paste();
        break;
      case 2:
        editor.MoveSelected(1 + number(9));
        break;
      case 3:
        editor.RetypeLine("'new" + std::to_string(number(99)));
        break;
      default:
        editor.TypeLine("'" + std::to_string(number(99)));
    }
    if (!same(states.back())) states.push_back(game.ScriptLines);
  }
  for (std::size_t i = states.size(); i-- > 0;) {
    ASSERT_TRUE(same(states[i])) << i;
    EXPECT_EQ(editor.CanUndo(), i > 0);
    editor.Undo();
  }
  EXPECT_FALSE(game.ScriptUnsaved);
  for (const auto& state : states) {
    ASSERT_TRUE(same(state));
    editor.Redo();
  }
  EXPECT_FALSE(editor.CanRedo());
}

TEST_F(TheEditor, FindsRoundTheEndInBothDirections) {
  Type({"'Field one", "'two", "'the FIELD"});
  editor.StartFind("fieLD");
  const auto found = [&](bool (ScriptEditor::*find)()) {
    EXPECT_TRUE((editor.*find)());
    EXPECT_EQ(editor.TopLine, game.ScriptCursorLine);
    return editor.TopLine;
  };
  EXPECT_EQ(found(&ScriptEditor::FindNext), 1);
  EXPECT_EQ(found(&ScriptEditor::FindNext), 3);
  EXPECT_EQ(found(&ScriptEditor::FindNext), 1);
  EXPECT_EQ(found(&ScriptEditor::FindPrevious), 3);
  editor.StartFind("absent");
  EXPECT_FALSE(editor.FindNext());
}

TEST_F(TheEditor, ShadesStatementsAndShowsFaults) {
  EXPECT_FALSE(
      editor.PasteText(" start\n' note\nDo this . . .\nGo to start\nWhen . . .\n"
                       "On each roll\nthen . . .\nReturn\nWhile . . .\nOn each roll\n"));
  editor.PressRow(11, Click::kPlain);
  std::string shades;
  for (const ScriptLine& line : game.ScriptLines) shades += std::to_string(line.LineShade);
  EXPECT_EQ(shades, "3400111100");
  EXPECT_FALSE(editor.Check());
  EXPECT_EQ(editor.TopLine, 7);
  EXPECT_EQ(game.ScriptLines[6].LineShade, kShadeSelected);
}

TEST(Completions, GoOnWithTheVocabulary) {
  Game game;
  AddFlag(game, "Low");
  AddLabel(game, "start");
  const auto has = [&](const char* typed, const char* offered) {
    const std::vector<std::string> texts = Completions(typed, game);
    return std::ranges::find(texts, offered) != texts.end();
  };
  EXPECT_TRUE(has("wh", "When . . ."));
  EXPECT_TRUE(has("pass l", "Pass Line"));
  EXPECT_TRUE(has("Pass Line ", "Pass Line has won more than"));
  EXPECT_TRUE(has("Pass Line has won", "Pass Line has won each time"));
  EXPECT_TRUE(has("Pass Line has won 2", "Pass Line has won 2 times"));
  EXPECT_TRUE(has("average", "Bankroll ("));
  EXPECT_TRUE(has("Bet $ 10", "Bet $ 10 on"));
  EXPECT_TRUE(has("Bet $ 10 on pl", "Bet $ 10 on Place 6"));
  EXPECT_TRUE(has("Set flag \"l", "Set flag \"Low\""));
  EXPECT_TRUE(has("go to s", "go to \"start\""));
  EXPECT_TRUE(Completions("On each roll", game).empty());
  EXPECT_TRUE(Completions("Bet x", game).empty());
}

}  // namespace
}  // namespace feltmaster
