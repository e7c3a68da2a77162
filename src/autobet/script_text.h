#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "autobet/vocabulary.h"
#include "game/script.h"

namespace feltmaster {

// The text form of a script: its LineText lines, one a line. What a reader of the text may vary:
// the indentation, runs of blanks, blanks beside punctuation, and the case of fixed words. Names
// and messages stand in double quotes. A line that begins with "'" is a comment.
//
// Any text that is no line of the vocabulary could be a label, and so could every slip of the pen.
// Therefore such a text is a label only
//   - if a Go to or Gosub of the script names it, or
//   - if it does not begin like a line of the vocabulary and, in a whole script, stands behind
//     exactly one blank, as labels are printed.
struct ScriptTextFault {
  std::size_t line = 0;    // from 1
  std::size_t column = 0;  // from 1, in bytes
  std::string expected;    // what was expected there
};

// Composes one line from its printable text, or says where the text stops making sense. `script`
// gives the lines whose Go to and Gosub name labels.
std::variant<ScriptLine, ScriptTextFault> ComposeLine(std::string_view text,
                                                      std::span<const ScriptLine> script = {});
// A whole script; blank lines are passed over.
std::variant<std::vector<ScriptLine>, ScriptTextFault> ComposeScript(std::string_view text);

// The texts of which this one is the beginning, one caption, word or name of the game further: what
// somebody who is typing a line may go on with, in the order of the lists.
std::vector<std::string> Completions(std::string_view text, const ScriptState& script);

// The printable text of a line from its codes and operands, as the editor composes it. The row of
// the comparison is needed where two rows share a code; without it the first one is printed.
std::string LineTextOf(const ScriptLine& line, const ComparisonRow* comparison = nullptr);
// Finishes a record whose codes and operands are set: its text, and the name that a group verb
// keeps.
void FinishLine(ScriptLine& line, const ComparisonRow* comparison = nullptr);

// Whether the bytes are those of a .bet file (of this program or its sibling) rather than text.
bool LooksLikeScriptFile(std::string_view bytes);

}  // namespace feltmaster
