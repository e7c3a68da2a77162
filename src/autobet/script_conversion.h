#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "base/record_file.h"
#include "game/game.h"

namespace feltmaster {

// Scripts of the sibling program Feltking, which numbers the bets in its own way and has Don't Pass
// and Don't Come bets.

bool IsSiblingScript(const Record& header);
// Version 3.9 kept the amount in fewer bytes, so that the fields behind it stand nearer.
bool HasOldLayout(const Record& header);

struct ConversionCount {
  std::int64_t kept = 0;
  std::int64_t dropped = 0;  // lines that spoke of bets which do not exist here
};

// The number of a bet here, or the code itself when it names none. Nothing for the bets that do not
// exist here.
std::optional<std::int32_t> ConvertedCode(std::int32_t code);

// Writes the script `source` to `target` in this program's format. The source stays as it is;
// records of an older target behind the last line stay too, and are ignored by readers. EINVAL when
// the source is no script of the sibling or the target is the source, ERANGE when an amount does
// not fit, EFBIG when the source is no script by its size.
std::optional<FileError> ConvertScriptFile(const std::string& source, const std::string& target,
                                           ConversionCount& count);

// Converts to the source's name less its last four characters, with "[fm].bet" instead, and asks
// before it overwrites. True when `file_name` is the new file; else nothing was made.
bool ConvertScript(Game& game, std::string& file_name);
// Offers the conversion and, when the player accepts, makes it.
bool OfferConversion(Game& game, std::string& file_name);

}  // namespace feltmaster
