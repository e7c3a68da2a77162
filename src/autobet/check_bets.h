#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "game/game.h"

namespace feltmaster {

// What is wrong with the structure of a script.
struct StructureFault {
  std::size_t line = 0;   // from 1, the line that is at fault
  std::size_t shown = 0;  // the line that the editor puts at the top and selects
  std::string text;       // without the sentence that every such message ends with
  std::string title;
  std::int32_t help = 0;
};
std::optional<StructureFault> FindStructureFault(const std::vector<ScriptLine>& script);

// The structure test. Empty MsgText when the script is sound; otherwise MsgText, MsgTitle and
// MsgHelpId tell the first fault, and the line shown for it is the one selected line. Gives the
// number of that line, 0 when sound.
int CheckBets(Game& game);

}  // namespace feltmaster
