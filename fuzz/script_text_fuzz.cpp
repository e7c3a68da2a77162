// Any bytes as the text of a script: a fault at a place inside it, or lines whose own text says the
// same lines again.
#include <algorithm>

#include "autobet/script_text.h"
#include "table.h"

using namespace feltmaster;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text = fuzz::TextOf(data, size);
  LooksLikeScriptFile(text);
  const auto composed = ComposeScript(text);
  if (const auto* fault = std::get_if<ScriptTextFault>(&composed)) {
    const auto lines = static_cast<std::size_t>(std::ranges::count(text, '\n')) + 1;
    fuzz::Require(fault->line >= 1 && fault->line <= lines, "a fault is on a line of the text");
    fuzz::Require(fault->column >= 1 && !fault->expected.empty(), "a fault says what was expected");
    return 0;
  }
  const auto& lines = std::get<std::vector<ScriptLine>>(composed);
  std::string printed;
  for (const ScriptLine& line : lines) printed += LineTextOf(line) + '\n';
  const auto again = ComposeScript(printed);
  fuzz::Require(std::holds_alternative<std::vector<ScriptLine>>(again), "its own text is read");
  const auto& second = std::get<std::vector<ScriptLine>>(again);
  const auto text_of = [](const ScriptLine& line) { return LineTextOf(line); };
  fuzz::Require(std::ranges::equal(lines, second, {}, text_of, text_of),
                "its own text says the same");
  return 0;
}
