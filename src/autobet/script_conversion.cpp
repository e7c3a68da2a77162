#include "autobet/script_conversion.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <span>
#include <string_view>
#include <system_error>
#include <utility>

#include "autobet/message.h"
#include "autobet/script_record.h"
#include "base/text.h"

namespace feltmaster {

namespace {

constexpr double kOldVersion = 3.9;
constexpr std::size_t kOldAmountSize = 4;  // a float, where MoneyAmount takes 8 bytes
constexpr std::size_t kSizeLimit = 64 << 20;
constexpr std::string_view kTitle = "Convert Feltking to Feltmaster Auto-Bet File";

struct CodeRange {
  std::int32_t first;
  std::int32_t last;
  std::int32_t shift;
};
constexpr CodeRange kMovedCodes[] = {
    {1, 6, 2}, {19, 24, -6}, {25, 30, -2}, {31, 36, 2}, {37, 42, 6}, {43, 45, 8}, {49, 83, 5},
};
constexpr CodeRange kLostCodes[] = {{7, 18, 0}, {46, 48, 0}};

const CodeRange* FindRange(std::span<const CodeRange> ranges, std::int32_t code) {
  const auto found = std::ranges::find_if(
      ranges, [code](const CodeRange& range) { return code >= range.first && code <= range.last; });
  return found == ranges.end() ? nullptr : &*found;
}

Record RecordAt(std::string_view bytes, std::size_t number) {
  Record record;
  bytes.substr(number * kRecordSize, kRecordSize).copy(record.Data(), kRecordSize);
  return record;
}

std::int64_t LineCount(const Record& header, bool old_layout) {
  return old_layout ? header.RoundedFloat(kAtAmount) : header.Money(kAtAmount).RoundWhole();
}

// The same line with the amount in its full width.
Record Widened(const Record& old) {
  constexpr std::size_t kBehind = kAtEnd - kAtSubject;
  Record record;
  old.Bytes().substr(0, kAtAmount).copy(record.Data(), kAtAmount);
  record.SetMoney(kAtAmount, MoneyAmount::FromDouble(old.Float(kAtAmount)));
  old.Bytes().substr(kAtAmount + kOldAmountSize, kBehind).copy(record.Data() + kAtSubject, kBehind);
  return record;
}

// False when the line has no meaning here.
bool Renumber(Record& record) {
  for (const std::size_t at : {kAtSubject, kAtTarget}) {
    const std::int32_t code = record.RoundedFloat(at);
    const std::optional<std::int32_t> converted = ConvertedCode(code);
    if (!converted) return false;
    if (*converted != code) record.SetFloat(at, static_cast<float>(*converted));
  }
  return true;
}

// Throws MoneyOverflow for an amount that does not fit.
std::string ConvertedBytes(std::string_view source, ConversionCount& count) {
  const Record header = RecordAt(source, 0);
  const bool old_layout = HasOldLayout(header);
  const auto in_file = static_cast<std::int64_t>(source.size() / kRecordSize) - 1;
  const std::int64_t lines = std::min(LineCount(header, old_layout), in_file);
  std::string bytes(kRecordSize, '\0');
  count = {};
  for (std::int64_t i = 1; i <= lines; ++i) {
    Record record = RecordAt(source, static_cast<std::size_t>(i));
    if (old_layout) record = Widened(record);
    if (!Renumber(record)) {
      ++count.dropped;
      continue;
    }
    bytes += record.Bytes();
    ++count.kept;
  }
  bytes.replace(0, kRecordSize, ScriptHeader(count.kept).Bytes());
  return bytes;
}

}  // namespace

bool IsSiblingScript(const Record& header) {
  return header.Bytes().starts_with(kSiblingScriptTitle);
}

bool HasOldLayout(const Record& header) {
  return ScriptVersion(header) == kOldVersion;
}

std::optional<std::int32_t> ConvertedCode(std::int32_t code) {
  if (FindRange(kLostCodes, code) != nullptr) return std::nullopt;
  const CodeRange* range = FindRange(kMovedCodes, code);
  return range == nullptr ? code : code + range->shift;
}

std::optional<FileError> ConvertScriptFile(const std::string& source, const std::string& target,
                                           ConversionCount& count) {
  std::error_code no_target;
  if (std::filesystem::equivalent(source, target, no_target)) return SystemError(EINVAL);
  std::string bytes;
  if (const auto error = ReadWholeFile(source, kSizeLimit, bytes)) return error;
  if (bytes.size() < kRecordSize || !IsSiblingScript(RecordAt(bytes, 0))) {
    return SystemError(EINVAL);
  }
  try {
    bytes = ConvertedBytes(bytes, count);
  } catch (const MoneyOverflow&) {
    return SystemError(ERANGE);
  }
  return WriteOverStart(target, bytes);
}

bool ConvertScript(Game& game, std::string& file_name) {
  constexpr std::string_view kEnding = "[fm].bet";
  constexpr std::size_t kOldEndingSize = 4;
  constexpr std::int32_t kHelp = 105;
  const std::string_view source = Trim(file_name);
  if (source.size() < kOldEndingSize) return false;
  std::string target(source.substr(0, source.size() - kOldEndingSize));
  target += kEnding;
  std::error_code no_target;
  const std::uintmax_t size = std::filesystem::file_size(target, no_target);
  if (!no_target && size > 0 &&
      !AskYesNo(game, std::string(kTitle),
                target + "\nis already on file.\n\nDo you want to overwrite it?",
                kButtonYes | kButtonNo | kPictureQuestion | kDefaultNo, kHelp)) {
    return false;
  }
  ConversionCount count;
  if (ConvertScriptFile(file_name, target, count)) return false;
  file_name = std::move(target);
  return true;
}

bool OfferConversion(Game& game, std::string& file_name) {
  constexpr std::string_view kOffer =
      "\nwas created using Feltking (another program by Marlow Bay Software.)\n\n"
      "You can run this file by converting it to Feltmaster format. If you choose to do this, the "
      "original file will remain intact and a new file will be created using the same name plus "
      "[fm] added to the end. Any lines containing references to Don't Pass or Don't Come bets "
      "will be removed.  This could cause errors in the script which you'll need to resolve before "
      "you can run it.\n\n"
      "Would you like to convert this file to Feltmaster format now?";
  constexpr std::int32_t kHelp = 600;
  return AskYesNo(game, std::string(kTitle), file_name + std::string(kOffer),
                  kButtonYes | kButtonNo | kPictureStop | kDefaultYes, kHelp) &&
         ConvertScript(game, file_name);
}

}  // namespace feltmaster
