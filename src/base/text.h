#pragma once

#include <string>
#include <string_view>

namespace feltmaster {

// Text is single bytes as the system stores them. Case is folded for ASCII letters alone.
// Only blanks are trimmed.
std::string_view Trim(std::string_view text);
std::string_view TrimRight(std::string_view text);
std::string Lower(std::string_view text);
bool EqualIgnoringCase(std::string_view a, std::string_view b);
bool ContainsIgnoringCase(std::string_view text, std::string_view part);

// Line breaks become blanks.
std::string OneLine(std::string_view text);

// The first `width` bytes, shortened further where the cut would split a UTF-8 character.
std::string_view CutAtCharacter(std::string_view text, std::size_t width);
// Cut as above, then padded with blanks to exactly `width` bytes.
std::string PadRight(std::string_view text, std::size_t width);

}  // namespace feltmaster
