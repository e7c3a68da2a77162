#include "console/line_editor.h"

#include <histedit.h>

#include <algorithm>
#include <cstddef>
#include <cstdio>

namespace feltmaster {

struct LineEditor::Editor {
  EditLine* line = nullptr;
  History* history = nullptr;
  HistEvent event{};
  std::string prompt;
  Completer completer;
  bool asking = false;

  std::optional<std::string> Read(const std::string& new_prompt);
};

namespace {

// The beginning that all words share; case is that of the first.
std::string CommonStart(const std::vector<std::string>& words) {
  std::string start = words.front();
  for (const std::string& word : words) {
    const auto ends = std::mismatch(start.begin(), start.end(), word.begin(), word.end());
    start.erase(ends.first, start.end());
  }
  return start;
}

}  // namespace

LineEditor::LineEditor(Completer completer) : editor_(std::make_unique<Editor>()) {
  constexpr int kRemembered = 1000;
  editor_->completer = std::move(completer);
  editor_->line = el_init("feltmaster", stdin, stdout, stderr);
  editor_->history = history_init();
  history(editor_->history, &editor_->event, H_SETSIZE, kRemembered);
  history(editor_->history, &editor_->event, H_SETUNIQUE, 1);

  EditLine* line = editor_->line;
  el_set(line, EL_CLIENTDATA, editor_.get());
  el_set(line, EL_EDITOR, "emacs");
  el_set(
      line, EL_PROMPT, +[](EditLine* el) {
        Editor* editor = nullptr;
        el_get(el, EL_CLIENTDATA, &editor);
        return editor->prompt.data();
      });
  el_set(line, EL_HIST, history, editor_->history);
  el_set(
      line, EL_ADDFN, "complete", "Completes a name", +[](EditLine* el, int) -> unsigned char {
        Editor* editor = nullptr;
        el_get(el, EL_CLIENTDATA, &editor);
        const LineInfo* info = el_line(el);
        const std::string typed(info->buffer, info->cursor);
        const std::vector<std::string> words =
            editor->asking ? std::vector<std::string>() : editor->completer(typed);
        if (words.empty()) return CC_ERROR;
        // The words begin like the end of the line, whatever the case.
        const std::string common = words.size() == 1 ? words.front() + ' ' : CommonStart(words);
        const bool in_quotes = std::count(typed.begin(), typed.end(), '"') % 2 == 1;
        const std::size_t start = in_quotes ? typed.rfind('"') : typed.find_last_of(' ') + 1;
        const std::size_t length = typed.size() - start;
        if (common.size() > length) {
          el_insertstr(el, common.c_str() + length);
          return CC_REFRESH;
        }
        std::putchar('\n');
        for (const std::string& word : words) std::printf("%s  ", word.c_str());
        std::putchar('\n');
        return CC_REDISPLAY;
      });
  el_set(line, EL_BIND, "^I", "complete", nullptr);
}

LineEditor::~LineEditor() {
  history_end(editor_->history);
  el_end(editor_->line);
}

std::optional<std::string> LineEditor::Editor::Read(const std::string& new_prompt) {
  prompt = new_prompt;
  int length = 0;
  const char* text = el_gets(line, &length);
  if (text == nullptr || length <= 0) return std::nullopt;
  std::string typed(text, static_cast<std::size_t>(length));
  while (typed.ends_with('\n') || typed.ends_with('\r')) typed.pop_back();
  return typed;
}

std::optional<std::string> LineEditor::Command(const std::string& prompt) {
  editor_->asking = false;
  auto typed = editor_->Read(prompt);
  if (typed && !typed->empty()) {
    history(editor_->history, &editor_->event, H_ENTER, typed->c_str());
  }
  return typed;
}

std::optional<std::string> LineEditor::Answer(const std::string& prompt) {
  editor_->asking = true;
  return editor_->Read(prompt);
}

}  // namespace feltmaster
