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

// Takes the first character of a text that is not empty. A byte that is no UTF-8 is a character of
// Latin-1.
char32_t TakeCharacter(std::string_view& text);
std::size_t CharacterCount(std::string_view text);
void AddCharacter(std::string& text, char32_t character);
// The same text in proper UTF-8, control characters as blanks.
std::string AsUtf8(std::string_view text);
// The same with the signs of XML escaped, for its texts and attributes.
std::string XmlText(std::string_view text);

}  // namespace feltmaster
