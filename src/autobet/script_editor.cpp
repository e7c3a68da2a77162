#include "autobet/script_editor.h"

#include <algorithm>
#include <utility>

#include "autobet/check_bets.h"
#include "autobet/line_draft.h"
#include "autobet/script_lines.h"
#include "base/text.h"

namespace feltmaster {

namespace {

constexpr std::size_t kMostSteps = 500;  // that can be undone

// The lines in which two scripts differ.
ScriptChange Difference(const std::vector<ScriptLine>& before,
                        const std::vector<ScriptLine>& after) {
  const auto ends = std::ranges::mismatch(before, after, SameLine);
  auto last_before = before.end();
  auto last_after = after.end();
  while (last_before != ends.in1 && last_after != ends.in2 &&
         SameLine(*(last_before - 1), *(last_after - 1))) {
    --last_before;
    --last_after;
  }
  return {.at = static_cast<std::size_t>(ends.in1 - before.begin()),
          .before = {ends.in1, last_before},
          .after = {ends.in2, last_after}};
}

bool StartsStatement(std::int32_t kind) {
  return kind == kWhen || kind == kWhile || kind == kDoThis;
}

std::int32_t ShadeOfKind(std::int32_t kind, std::int32_t band) {
  if (kind == kLabelLine) return kShadeLabel;
  return kind == kCommentLine ? std::int32_t{kShadeComment} : band;
}

// A label that was typed obeys the rule of those that are logged.
std::variant<ScriptLine, ScriptTextFault> TypedLine(std::string_view text, const Game& game) {
  auto composed = ComposeLine(text, game.ScriptLines);
  const auto* line = std::get_if<ScriptLine>(&composed);
  if (line != nullptr && line->LineKind == kLabelLine && LabelFault(line->LineName, game)) {
    return ScriptTextFault{1, 1, "a label that is not in use yet"};
  }
  return composed;
}

}  // namespace

void ShadeLines(Game& game) {
  std::int32_t band = kShadeEven;
  bool in_statement = false;
  for (ScriptLine& line : game.ScriptLines) {
    if (StartsStatement(line.LineKind)) {
      if (in_statement) band = kShadeEven + kShadeOdd - band;
      in_statement = true;
    }
    line.LineShade =
        line.LineSelected ? std::int32_t{kShadeSelected} : ShadeOfKind(line.LineKind, band);
  }
}

ScriptEditor::ScriptEditor(Game& game) : game_(game) {
  Restart();
}

RowList<ScriptLine> ScriptEditor::Rows() {
  return {game_.ScriptLines, &ScriptLine::LineSelected, game_.ScriptCursorLine, SelectAnchor,
          TopLine};
}

std::int32_t ScriptEditor::SelectedCount() const {
  return static_cast<std::int32_t>(
      std::ranges::count(game_.ScriptLines, true, &ScriptLine::LineSelected));
}

// ---- Placing and selecting --------------------------------------------------------------------

void ScriptEditor::SetPending(ScriptLine line) {
  pending_ = std::move(line);
}

void ScriptEditor::CancelPending() {
  pending_.reset();
}

void ScriptEditor::PlacePending(std::int32_t row) {
  if (!pending_) return;
  const ScriptLine line = *std::exchange(pending_, std::nullopt);
  row = Rows().Clamped(row);
  Edit([&] { InsertLine(game_, static_cast<std::size_t>(row), line); });
  PressRow(row, Click::kPlain);
}

void ScriptEditor::PressRow(std::int32_t row, Click click) {
  if (pending_) {
    PlacePending(row);
    return;
  }
  ClickRow(Rows(), row, click);
  ShadeLines(game_);
}

// ---- Lines as text ----------------------------------------------------------------------------

std::optional<ScriptTextFault> ScriptEditor::TypeLine(std::string_view text) {
  const auto composed = TypedLine(text, game_);
  if (const auto* fault = std::get_if<ScriptTextFault>(&composed)) return *fault;
  const std::int32_t row = Rows().Clamped(game_.ScriptCursorLine);
  Edit([&] {
    InsertLine(game_, static_cast<std::size_t>(row), std::get<ScriptLine>(composed));
    game_.ScriptCursorLine = SelectAnchor = row + 1;
  });
  return std::nullopt;
}

std::optional<ScriptTextFault> ScriptEditor::RetypeLine(std::string_view text) {
  const std::int32_t row = Rows().Clamped(game_.ScriptCursorLine);
  if (row > Rows().Count()) return TypeLine(text);
  // The line that is replaced does not hold its own label.
  ScriptLine& old = *Rows().Place(row);
  const ScriptLine kept = std::exchange(old, ScriptLine{});
  const auto composed = TypedLine(text, game_);
  old = kept;
  if (const auto* fault = std::get_if<ScriptTextFault>(&composed)) return *fault;
  Edit([&] {
    *Rows().Place(row) = std::get<ScriptLine>(composed);
    RegisterNames(game_, *Rows().Place(row));
  });
  PressRow(row, Click::kPlain);
  return std::nullopt;
}

std::optional<ScriptTextFault> ScriptEditor::PasteText(std::string_view text) {
  auto composed = ComposeScript(text);
  if (const auto* fault = std::get_if<ScriptTextFault>(&composed)) return *fault;
  auto& lines = std::get<std::vector<ScriptLine>>(composed);
  if (lines.empty()) return ScriptTextFault{1, 1, "a line of a script"};
  Edit([&] {
    RegisterNames(game_, lines);
    PasteRows(Rows(), std::move(lines));
  });
  return std::nullopt;
}

std::string ScriptEditor::SelectedText() const {
  std::string text;
  for (const ScriptLine& line : game_.ScriptLines) {
    if (line.LineSelected) text += line.LineText + '\n';
  }
  return text;
}

// ---- Clipboard --------------------------------------------------------------------------------

void ScriptEditor::SelectAll() {
  SelectAllRows(Rows());
  ShadeLines(game_);
}

void ScriptEditor::Copy() {
  std::vector<ScriptLine> lines = SelectedRows(Rows());
  if (!lines.empty()) game_.ClipLines = std::move(lines);
}

void ScriptEditor::Cut() {
  Copy();
  Delete();
}

void ScriptEditor::Paste() {
  if (game_.ClipLines.empty()) return;
  Edit([this] {
    PasteRows(Rows(), game_.ClipLines);
    RegisterNames(game_, game_.ClipLines);
  });
}

void ScriptEditor::Delete() {
  if (SelectedCount() == 0) return;
  Edit([this] { DeleteRows(Rows()); });
  if (game_.ScriptLines.empty() && game_.ScriptFileName.empty()) game_.ScriptUnsaved = false;
}

void ScriptEditor::MoveSelected(std::int32_t row) {
  if (SelectedCount() == 0) return;
  Edit([&] {
    std::vector<ScriptLine> lines = SelectedRows(Rows());
    game_.ClipLines = lines;
    DeleteRows(Rows());
    game_.ScriptCursorLine = Rows().Clamped(row);
    PasteRows(Rows(), std::move(lines));
  });
}

// ---- Finding ----------------------------------------------------------------------------------

void ScriptEditor::StartFind(std::string_view text) {
  find_text_ = Lower(text);
  found_ = 0;
}

bool ScriptEditor::FindNext() {
  return FindLine(1);
}
bool ScriptEditor::FindPrevious() {
  return FindLine(-1);
}

bool ScriptEditor::FindLine(std::int32_t step) {
  const std::int32_t count = Rows().Count();
  if (find_text_.empty()) return false;
  std::int32_t line = std::clamp(found_, 0, count);
  for (std::int32_t i = 0; i < count; ++i) {
    line += step;
    if (line > count) line = 1;
    if (line < 1) line = count;
    if (!ContainsIgnoringCase(Rows().Place(line)->LineText, find_text_)) continue;
    found_ = TopLine = game_.ScriptCursorLine = line;
    return true;
  }
  return false;
}

bool ScriptEditor::Check() {
  const int line = CheckBets(game_);
  if (line > 0) TopLine = game_.ScriptCursorLine = SelectAnchor = line;
  ShadeLines(game_);
  return line == 0;
}

// ---- Undo -------------------------------------------------------------------------------------

void ScriptEditor::Touch() {
  ScriptLinesChanged(game_);
  ShadeLines(game_);
}

void ScriptEditor::Edit(const std::function<void()>& change) {
  const std::vector<ScriptLine> old = game_.ScriptLines;
  const std::int32_t cursor = game_.ScriptCursorLine;
  change();
  Touch();
  ScriptChange step = Difference(old, game_.ScriptLines);
  if (step.before.empty() && step.after.empty()) return;
  game_.ScriptNeedsInit = game_.ScriptUnsaved = true;
  step.cursor_before = cursor;
  step.cursor_after = game_.ScriptCursorLine;
  history_.resize(done_);
  if (saved_ > static_cast<std::ptrdiff_t>(done_)) saved_ = -1;
  if (history_.size() == kMostSteps) {
    history_.erase(history_.begin());
    --saved_;
  }
  history_.push_back(std::move(step));
  done_ = history_.size();
}

void ScriptEditor::Restart() {
  history_.clear();
  done_ = 0;
  saved_ = game_.ScriptUnsaved ? -1 : 0;
  pending_.reset();
  found_ = 0;
  game_.ScriptCursorLine = Rows().Clamped(game_.ScriptCursorLine);
  SelectAnchor = 0;
  TopLine = 1;
  ShadeLines(game_);
}

void ScriptEditor::Saved() {
  saved_ = static_cast<std::ptrdiff_t>(done_);
}

void ScriptEditor::Replace(std::size_t at, std::size_t count, const std::vector<ScriptLine>& lines,
                           std::int32_t cursor) {
  SelectAllRows(Rows(), false);
  std::vector<ScriptLine>& script = game_.ScriptLines;
  const auto first = script.begin() + static_cast<std::ptrdiff_t>(at);
  const auto place = script.erase(first, first + static_cast<std::ptrdiff_t>(count));
  script.insert(place, lines.begin(), lines.end());  // selected as they were
  game_.ScriptCursorLine = Rows().Clamped(cursor);
  SelectAnchor = game_.ScriptCursorLine;
  TopLine = Rows().Clamped(TopLine);
  Touch();
  game_.ScriptNeedsInit = true;
  game_.ScriptUnsaved = saved_ != static_cast<std::ptrdiff_t>(done_);
}

void ScriptEditor::Undo() {
  if (!CanUndo()) return;
  const ScriptChange& step = history_[--done_];
  Replace(step.at, step.after.size(), step.before, step.cursor_before);
}

void ScriptEditor::Redo() {
  if (!CanRedo()) return;
  const ScriptChange& step = history_[done_++];
  Replace(step.at, step.before.size(), step.after, step.cursor_after);
}

}  // namespace feltmaster
