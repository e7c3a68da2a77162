#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "game/game.h"

namespace feltmaster {

// The form in which names of a script compare: trimmed and in lower case.
std::string ScriptNameKey(std::string_view name);

// Alike in all that a file stores.
bool SameLine(const ScriptLine& a, const ScriptLine& b);

// Go to or Gosub.
bool IsJump(const ScriptLine& line);

void AddFlag(Game& game, std::string_view name);
void AddLabel(Game& game, std::string_view name);
// Registers the flag or label that a line names.
void RegisterNames(Game& game, const ScriptLine& line);
// The same for many lines, in order, at the cost of one look at each.
void RegisterNames(Game& game, const std::vector<ScriptLine>& lines);

// Places a line at a position from 1; one behind the end means the end. The script counts as
// changed, and the line alone is selected, under the cursor.
void InsertLine(Game& game, std::size_t position, const ScriptLine& line);

// To be called after any change of ScriptLines: the compiled form is dropped.
void ScriptLinesChanged(Game& game);

}  // namespace feltmaster
