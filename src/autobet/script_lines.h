#pragma once

#include <cstddef>
#include <string_view>

#include "game/game.h"

namespace feltmaster {

// Names of a script compare after trimming, without regard to case.
void AddFlag(Game& game, std::string_view name);
void AddLabel(Game& game, std::string_view name);
// Registers the flag or label that a line names.
void RegisterNames(Game& game, const ScriptLine& line);

// Places a line at a position from 1; one behind the end means the end. The script counts as
// changed.
void InsertLine(Game& game, std::size_t position, const ScriptLine& line);

// To be called after any change of ScriptLines: the compiled form is dropped.
void ScriptLinesChanged(Game& game);

}  // namespace feltmaster
