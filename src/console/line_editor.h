#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace feltmaster {

// Lines typed at a terminal, with a history of commands and completion by the Tab key.
class LineEditor {
 public:
  using Completer = std::function<std::vector<std::string>(std::string_view line)>;

  explicit LineEditor(Completer completer);
  ~LineEditor();

  // The line without its end; nothing at the end of input. An answer to a question is neither
  // completed nor remembered.
  std::optional<std::string> Command(const std::string& prompt);
  std::optional<std::string> Answer(const std::string& prompt);

 private:
  struct Editor;
  std::unique_ptr<Editor> editor_;
};

}  // namespace feltmaster
