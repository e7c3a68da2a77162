#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "game/script.h"

namespace feltmaster {

// The text form of a script: its LineText lines, one a line. Leading blanks and the case of fixed
// words do not matter when it is read back.
struct ScriptTextFault {
  std::size_t line = 0;    // from 1
  std::size_t column = 0;  // from 1
  std::string expected;    // what was expected there, one sentence
};

// Composes one line from its printable text, or says where the text stops making sense.
std::variant<ScriptLine, ScriptTextFault> ComposeLine(std::string_view text);
// A whole script; blank lines are passed over.
std::variant<std::vector<ScriptLine>, ScriptTextFault> ComposeScript(std::string_view text);

// The printable text of a line from its codes and operands, as the editor composes it.
std::string LineTextOf(const ScriptLine& line);

// Whether the bytes are those of a .bet file (of this program or its sibling) rather than text.
bool LooksLikeScriptFile(std::string_view bytes);

}  // namespace feltmaster
