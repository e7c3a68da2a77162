#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "autobet/row_list.h"
#include "autobet/script_text.h"
#include "game/game.h"

namespace feltmaster {

// The colouring of a line, LineShade.
enum LineShades : std::int32_t {
  kShadeEven = 0,  // statements alternate
  kShadeOdd = 1,
  kShadeSelected = 2,
  kShadeLabel = 3,
  kShadeComment = 4,
};
void ShadeLines(Game& game);

// A script, one run of whose lines was replaced by others.
struct ScriptChange {
  std::size_t at = 0;  // index of the first line
  std::vector<ScriptLine> before;
  std::vector<ScriptLine> after;
  std::int32_t cursor_before = 1;
  std::int32_t cursor_after = 1;
};

// The list of lines as it is edited. The lines, ScriptCursorLine and the clipboard belong to the
// game; what is looked at, what waits to be placed and what can be undone are gone with the editor.
class ScriptEditor {
 public:
  explicit ScriptEditor(Game& game);

  std::int32_t TopLine = 1;       // first line in view
  std::int32_t SelectAnchor = 0;  // the line last clicked, from which a Shift range counts; 0 none

  RowList<ScriptLine> Rows();
  std::int32_t SelectedCount() const;

  // --- A line that waits for its place ---
  const std::optional<ScriptLine>& PendingLine() const { return pending_; }
  void SetPending(ScriptLine line);
  void CancelPending();
  void PlacePending(std::int32_t row);
  // A click on a row: places what waits, or selects.
  void PressRow(std::int32_t row, Click click);

  // --- Lines as text ---
  // A line that was typed goes in at the cursor, which then stands behind it, so that lines typed
  // one after the other stand in this order. Tells why it was refused, and in which column.
  std::optional<ScriptTextFault> TypeLine(std::string_view text);
  // Takes the place of the line at the cursor.
  std::optional<ScriptTextFault> RetypeLine(std::string_view text);
  // Whole lines of text, at the cursor; they stand selected. All or none.
  std::optional<ScriptTextFault> PasteText(std::string_view text);
  // The selected lines as text, a line feed behind each.
  std::string SelectedText() const;

  // --- Clipboard ---
  void SelectAll();
  void Copy();
  void Cut();
  void Paste();
  void Delete();
  // What a drop of the selected lines does: Cut, and Paste at the row.
  void MoveSelected(std::int32_t row);

  // --- Finding ---
  // Searches on from the line last found, round the end, each line once. The line found stands at
  // the top and under the cursor.
  bool FindNext();
  bool FindPrevious();
  void StartFind(std::string_view text);  // from the first line on
  const std::string& FindText() const { return find_text_; }

  // The structure test; the line at fault is put at the top. False when MsgText tells a fault.
  bool Check();

  // --- Undo ---
  // Any change of the lines, as one step.
  void Edit(const std::function<void()>& change);
  // Another script has taken the place of this one.
  void Restart();
  // The script is the one that its file holds.
  void Saved();
  bool CanUndo() const { return done_ > 0; }
  bool CanRedo() const { return done_ < history_.size(); }
  void Undo();
  void Redo();

 private:
  bool FindLine(std::int32_t step);
  void Touch();  // the lines are not what they were
  void Replace(std::size_t at, std::size_t count, const std::vector<ScriptLine>& lines,
               std::int32_t cursor);

  Game& game_;
  std::optional<ScriptLine> pending_;
  std::string find_text_;
  std::int32_t found_ = 0;
  std::vector<ScriptChange> history_;
  std::size_t done_ = 0;       // changes that were made and not undone
  std::ptrdiff_t saved_ = -1;  // the number of changes at which the file has the script
};

}  // namespace feltmaster
