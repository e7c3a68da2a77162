#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "base/plain_file.h"
#include "game/dice.h"

namespace feltmaster {

// A Dice Roll File: one byte for each roll, without a header. Roll n, counted from 1, is byte n
// - 1. Bits 2 to 4 of the byte hold the first die, bits 5 to 7 the second; bits 0 and 1 are 0.

constexpr char RollByte(Dice dice) {
  return static_cast<char>(dice.Die2 * 32 + dice.Die1 * 4);
}
constexpr Dice DiceOf(char roll) {
  const auto byte = static_cast<unsigned char>(roll);
  return {byte >> 2 & 7, byte >> 5};
}
static_assert(RollByte({1, 1}) == 36 && RollByte({1, 2}) == 68);
static_assert(DiceOf(static_cast<char>(216)).Die1 == 6 && DiceOf(RollByte({6, 5})).Die2 == 5);

inline constexpr std::int64_t kMaxRolls = 2'147'483'646;  // the position behind them has 32 bits
inline constexpr std::size_t kRollBlock = 30'000;         // bytes in memory while rolls are moved

// `Count` rolls from roll `First` on.
struct RollRange {
  std::int64_t First = 1;
  std::int64_t Count = 0;

  constexpr std::int64_t End() const { return First + Count; }  // the roll behind the last
};

// Opens a file as one of rolls; a file of more than kMaxRolls is an error.
std::optional<FileError> OpenRolls(PlainFile& file, const std::string& path,
                                   PlainFile::WhenMissing when_missing);
std::int32_t TotalRolls(const PlainFile& file);
RollRange AllRolls(const PlainFile& file);

// One roll; none behind the end of the file.
std::optional<FileError> ReadRoll(const PlainFile& file, std::int64_t roll,
                                  std::optional<Dice>& dice);
// Over an old roll, or behind the last.
std::optional<FileError> WriteRoll(PlainFile& file, std::int64_t roll, Dice dice);

// False when one of the first hundred bytes uses bits 0 or 1; then it is no Dice Roll File.
bool LooksLikeRollFile(const PlainFile& file);

// Where bytes go on their way; an error ends the way.
using ByteSink = std::function<std::optional<FileError>(std::string_view bytes)>;
// Told now and then how much of a long way is done, 0 to 1.
using WorkProgress = std::function<void(double done)>;

// Hands on the rolls of a range, block by block. Rolls that are not there are an error.
std::optional<FileError> HandOnRolls(const PlainFile& file, RollRange range, const ByteSink& sink,
                                     const WorkProgress& progress = {});
// Makes a file of these rolls, in the place of an older one.
std::optional<FileError> CopyRolls(const PlainFile& file, RollRange range, const std::string& path);
// Writes the file anew, with rolls of `others` in the place of its own rolls `replaced`. The old
// file stays whole when this fails; when it is done, `file` is no longer the one in place and is to
// be opened again. Without `others` the rolls are taken out.
std::optional<FileError> ReplaceRolls(const PlainFile& file, RollRange replaced,
                                      const PlainFile* others, RollRange inserted);
// The same with one roll put in before this one.
std::optional<FileError> InsertRoll(const PlainFile& file, std::int64_t before, Dice dice);

}  // namespace feltmaster
