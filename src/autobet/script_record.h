#pragma once

#include <cstddef>
#include <string_view>

#include "base/record_file.h"
#include "game/script.h"

// The records of a .bet file: a header, then a record a line.
namespace feltmaster {

inline constexpr std::string_view kScriptFormat = "Feltmaster AutoBets, Data Format 5.0";
inline constexpr std::string_view kScriptTitle = "Feltmaster AutoBets";
inline constexpr std::string_view kSiblingScriptTitle = "Feltking AutoBets";

// Byte offsets in a line record. The header has its title in the place of LineText and the count of
// lines in the place of LineAmount.
enum ScriptOffset : std::size_t {
  kAtText = 0,
  kAtKind = 128,
  kAtCode = 130,
  kAtName = 134,
  kAtAmount = 214,
  kAtSubject = 222,
  kAtSubjectStack = 226,
  kAtReserved1 = 228,
  kAtTarget = 230,
  kAtTargetStack = 234,
  kAtReserved2 = 236,
  kAtEnd = 238,
};
static_assert(kAtKind - kAtText == kLineTextSize && kAtAmount - kAtName == kLineNameSize);
static_assert(kAtEnd + 18 == kRecordSize);

// The number in the last four characters of a header's title, however the title goes on between.
double ScriptVersion(const Record& header);

Record ScriptHeader(std::int64_t line_count);

}  // namespace feltmaster
