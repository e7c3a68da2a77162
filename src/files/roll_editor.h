#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "files/roll_file.h"
#include "game/game.h"

namespace feltmaster {

// The editor of the Dice Roll File in use. It works on the file where it lies, and rewrites it
// beside itself when rolls are put in or taken out; only the lines of the list are in memory.
// DiceRollNext is the position, from 1 to one behind the last roll; the selection goes from there
// to DiceRollSelectEnd. Each command gives false when nothing was done; an error has been told and
// the file is as it was.

inline constexpr std::int32_t kRollButtons = 36;
inline constexpr std::string_view kRollClipboard = "copyfile.rll";   // in the data folder
inline constexpr std::string_view kConvertedRolls = "cnvrtasc.xx~";  // there too, for a moment

// The dice of a button, 0 to 35.
Dice DiceOfButton(std::int32_t button);
// Writes a roll at the position, over an old one or, by InsertRolls, before it.
bool EnterRoll(Game& game, Dice dice);
bool EnterRandomRoll(Game& game);

// The selected rolls that are there.
RollRange SelectedRolls(Game& game);
void SelectAllRolls(Game& game);
// Moves the position by so many rolls, within the file and one behind it. `extends` keeps the other
// end of the selection where it is, otherwise it follows.
void MoveInRolls(Game& game, std::int64_t rolls, bool extends);
// A press on this roll's line. `extends` lets the selection run from the old position to here.
void PressRoll(Game& game, std::int64_t roll, bool extends);
// The number typed as the next roll.
void GoToRoll(Game& game, std::int64_t roll);

bool CopyRolls(Game& game);  // into the clipboard
bool CutRolls(Game& game);
bool DeleteRolls(Game& game);
bool PasteRolls(Game& game);  // before the position; the pasted rolls are selected
// With other files. The first three give false with LastErrorText, or when the player was told why
// the file was refused; whoever chose the file tells the errors.
enum class RollFileResult { kDone, kRefused, kFileError };
RollFileResult CopyRollsTo(Game& game, const std::string& path);
RollFileResult PasteRollsFrom(Game& game, const std::string& path);
RollFileResult PasteRollText(Game& game, const std::string& path);
RollFileResult CopyRollsToText(Game& game, const std::string& path);

// Which of the Edit menu's commands there is something to do for.
struct RollCommands {
  bool on_selection = false;  // Cut, Copy, Delete and "Copy to"
  bool paste = false;
  bool paste_from = false;
  bool select_all = false;
};
RollCommands UsableRollCommands(Game& game);

// --- The list ---

// The list shows DiceRollPageLines rolls from DiceRollTopLine on.
inline constexpr std::int32_t kRollScrollSteps = 30'000;
std::int32_t RollScrollValue(Game& game);
void ScrollRolls(Game& game, std::int32_t value);
// After a roll of the table: with the recorder on the list keeps the position in its middle.
void ShowDiceRollPosition(Game& game);

// --- Rolls shown in red ---

void ToggleHighlight(Game& game, Dice dice);
// All combinations of a total, 2 to 12: sets them, or clears them when all are set.
void ToggleHighlightOfTotal(Game& game, std::int32_t total);
bool TotalIsHighlighted(const Game& game, std::int32_t total);
void ClearHighlights(Game& game);

}  // namespace feltmaster
