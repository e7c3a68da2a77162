#pragma once

#include <string>
#include <string_view>

#include "base/plain_file.h"
#include "game/game.h"

namespace feltmaster {

// The recorder of the table and the Dice Roll File that it works on. DiceRollFileName says which
// file is in use; the file itself is opened when it is needed and stays open.

// The file in use; null when there is none, or it cannot be opened (LastErrorText tells).
PlainFile* DiceRollFile(Game& game);
std::int32_t DiceRollTotal(Game& game);  // its rolls; 0 without a file

// Takes a file into use and rewinds; a file that does not exist is made. FileStatus tells the
// result: 1 done, 0 refused as no Dice Roll File (the player has been told), -1 a file error
// (LastErrorText). The file in use before stays unless it is done.
bool OpenDiceRollFile(Game& game, const std::string& path);
// Whether a file may be taken for one of rolls; if not, the player is told.
bool CheckDiceRollFile(Game& game, const PlainFile& file);
// The Close command.
void CloseDiceRollFile(Game& game);
// The file is no longer in use; the position in it is left.
void ForgetDiceRollFile(Game& game);
// The file and the position that came with a game: a position behind the end of the file comes back
// to it, and a recorder whose file cannot be opened is switched off.
void ResumeDiceRollFile(Game& game);

// Off, Record, Playback. Without a file there is only Off; the player is told. True when the mode
// is the one asked for.
bool SetDiceRollMode(Game& game, DiceRollMode mode);
// The question after recording or playback has come to its end: rewind for playback, switch off,
// or leave it.
void DiceRollStopped(Game& game);
// What was recorded is on the disk.
void FlushDiceRolls(Game& game);

// --- The recorder in the roll cycle ---

inline constexpr std::string_view kEndOfDiceRolls = "Stopped due to end of Dice Roll File reached.";

// Before a chain of rolls with the recorder on: a file that was deleted or replaced is no longer
// written to, and nothing is written beyond the end of the file.
void ReadyRecorder(Game& game);
// Writes Die1 and Die2 at the position. A write that fails is told, or in Hyper-Drive noted as its
// stop text, and switches the recorder off and the chain with it; the roll itself counts.
void RecordDice(Game& game);
// Sets Die1 and Die2 from the file. False when there is no roll to be made: at the end of the file,
// which leaves its stop text, or at a bad byte or a file error, which switch the recorder off.
bool PlayBackDice(Game& game);

}  // namespace feltmaster
