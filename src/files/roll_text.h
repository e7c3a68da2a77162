#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "files/roll_file.h"
#include "game/game.h"

namespace feltmaster {

// Rolls as text, a line for each: "12 (3-4) 7".

// What a line holds; with nothing it is empty.
struct RollTextParts {
  bool RollNumber = true;
  bool DieNumbers = true;
  bool NumberCalled = true;
};
RollTextParts PartsOfRollText(const Game& game);
std::string RollText(const RollTextParts& parts, std::int64_t number, Dice dice);

// The number of the first line of a selection: its own, or 1 when the player wants it renumbered.
std::int64_t FirstRollNumber(Game& game, std::string title, std::int64_t first);

// Hands on the lines of a range, the first with this number, each with its line feed.
std::optional<FileError> HandOnRollText(const PlainFile& file, RollRange range,
                                        const RollTextParts& parts, std::int64_t first_number,
                                        const ByteSink& sink, const WorkProgress& progress = {});

// Reads rolls out of any text: each digit 1 to 6 is a die, two dice are a roll, every other
// character is passed over. The text comes in pieces.
class RollTextReader {
 public:
  // The bytes of the rolls that this piece completes.
  std::string Take(std::string_view text);
  // The first die of a roll whose second has not come; 0 for none.
  std::int32_t LoneDie() const { return die1_; }

 private:
  std::int32_t die1_ = 0;
};

}  // namespace feltmaster
