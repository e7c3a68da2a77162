#include "files/roll_file.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <span>

#include "base/draft_file.h"

namespace feltmaster {

namespace {

constexpr std::int64_t kCheckedRolls = 100;
constexpr unsigned char kUnusedBits = 3;

std::int64_t PlaceOf(std::int64_t roll) {
  return roll - 1;
}

// The file anew: the rolls before `replaced`, what `insert` hands on, and the rolls behind.
std::optional<FileError> Rewrite(
    const PlainFile& file, RollRange replaced, std::int64_t inserted,
    const std::function<std::optional<FileError>(const ByteSink&)>& insert) {
  const std::int64_t total = TotalRolls(file);
  if (total - replaced.Count + inserted > kMaxRolls) return SystemError(EFBIG);
  if (!file.IsWritable()) return SystemError(EACCES);
  DraftFile draft;
  std::optional<FileError> error = draft.Open(file.Path());
  const ByteSink sink = [&](std::string_view bytes) { return draft.Write(bytes); };
  if (!error) error = HandOnRolls(file, {1, replaced.First - 1}, sink);
  if (!error) error = insert(sink);
  if (!error) error = HandOnRolls(file, {replaced.End(), total - replaced.End() + 1}, sink);
  return error ? error : draft.PutInPlace();
}

}  // namespace

std::optional<FileError> OpenRolls(PlainFile& file, const std::string& path,
                                   PlainFile::WhenMissing when_missing) {
  PlainFile opened;
  std::optional<FileError> error = opened.Open(path, when_missing);
  if (!error && opened.Size() > kMaxRolls) error = SystemError(EFBIG);
  if (!error) file = std::move(opened);
  return error;
}

std::int32_t TotalRolls(const PlainFile& file) {
  return static_cast<std::int32_t>(std::min(file.Size(), kMaxRolls));
}

RollRange AllRolls(const PlainFile& file) {
  return {1, TotalRolls(file)};
}

std::optional<FileError> ReadRoll(const PlainFile& file, std::int64_t roll,
                                  std::optional<Dice>& dice) {
  dice.reset();
  if (roll > kMaxRolls) return std::nullopt;
  char byte = 0;
  std::size_t count = 0;
  if (std::optional<FileError> error = file.ReadAt(PlaceOf(roll), {&byte, 1}, count)) return error;
  if (count == 1) dice = DiceOf(byte);
  return std::nullopt;
}

std::optional<FileError> WriteRoll(PlainFile& file, std::int64_t roll, Dice dice) {
  if (roll > kMaxRolls) return SystemError(EFBIG);
  const char byte = RollByte(dice);
  return file.WriteAt(PlaceOf(roll), {&byte, 1});
}

bool LooksLikeRollFile(const PlainFile& file) {
  std::array<char, kCheckedRolls> rolls{};
  std::size_t count = 0;
  return !file.ReadAt(0, rolls, count) &&
         std::all_of(
             rolls.begin(), rolls.begin() + static_cast<std::ptrdiff_t>(count),
             [](char roll) { return (static_cast<unsigned char>(roll) & kUnusedBits) == 0; });
}

std::optional<FileError> HandOnRolls(const PlainFile& file, RollRange range, const ByteSink& sink,
                                     const WorkProgress& progress) {
  std::array<char, kRollBlock> block;
  for (std::int64_t done = 0; done < range.Count;) {
    const auto wanted = static_cast<std::size_t>(
        std::min<std::int64_t>(range.Count - done, static_cast<std::int64_t>(block.size())));
    std::size_t count = 0;
    std::optional<FileError> error =
        file.ReadAt(PlaceOf(range.First + done), {block.data(), wanted}, count);
    // Somebody else has made the file shorter.
    if (!error && count < wanted) error = SystemError(EIO);
    if (!error) error = sink({block.data(), count});
    if (error) return error;
    done += static_cast<std::int64_t>(count);
    if (progress) progress(static_cast<double>(done) / static_cast<double>(range.Count));
  }
  return std::nullopt;
}

std::optional<FileError> CopyRolls(const PlainFile& file, RollRange range,
                                   const std::string& path) {
  DraftFile draft;
  std::optional<FileError> error = draft.Open(path);
  if (!error) {
    error = HandOnRolls(file, range, [&](std::string_view bytes) { return draft.Write(bytes); });
  }
  return error ? error : draft.PutInPlace();
}

std::optional<FileError> ReplaceRolls(const PlainFile& file, RollRange replaced,
                                      const PlainFile* others, RollRange inserted) {
  if (others == nullptr) inserted.Count = 0;
  return Rewrite(file, replaced, inserted.Count, [&](const ByteSink& sink) {
    return others == nullptr ? std::nullopt : HandOnRolls(*others, inserted, sink);
  });
}

std::optional<FileError> InsertRoll(const PlainFile& file, std::int64_t before, Dice dice) {
  const char byte = RollByte(dice);
  return Rewrite(file, {before, 0}, 1, [&](const ByteSink& sink) { return sink({&byte, 1}); });
}

}  // namespace feltmaster
