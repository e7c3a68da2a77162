#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "game/game.h"

namespace feltmaster {

// The sound clips, found by pattern: *.stk calls of stick persons, *.dce dice, *.win wins and *.chp
// chips. Which clip is heard when is told where it happens; PlayChosenClip and StickCall play it.

// The calls of a stick person, by number; 2 to 12 are the totals.
enum StickClip : int {
  kClipGreeting = 1,
  kClipPointMade = 13,
  kClipSevenOut = 14,
  kClipPair = 16,
  kClipComeOut = 17,
  kClipNewShooter = 18,
};
inline constexpr int kStickClips = 18;

// Fills the sound lists from these folders, in alphabetical order, and makes the choices of a first
// start. Of two files of the same name that of the earlier folder counts. Folders end with a
// separator; one that cannot be read holds nothing.
void FindSounds(Game& game, std::vector<std::string> folders);

// The path of a clip, in the first folder that has it; in the first folder at all if none does.
std::string SoundFile(const Game& game, std::string_view name);

// StickCallFiles follows the choice of the stick person: all empty for none.
void BuildStickCalls(Game& game);

}  // namespace feltmaster
