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
// start. Of two files of the same name that of the earlier folder counts; a folder that cannot be
// read holds nothing.
void FindSounds(Game& game, const std::vector<std::string>& folders);

// The path of a clip that was found, by its name in whatever case; a name that was not found is one
// in the data folder. "Chips.wav", the shower of chips, is found here too.
std::string SoundFile(const Game& game, std::string_view name);

// StickCallFiles follows the choice of the stick person: all empty for none.
void BuildStickCalls(Game& game);

}  // namespace feltmaster
