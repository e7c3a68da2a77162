#include "base/text.h"

#include <algorithm>

namespace feltmaster {

namespace {

char LowerChar(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool SameIgnoringCase(char a, char b) {
  return LowerChar(a) == LowerChar(b);
}

bool IsContinuation(char c) {
  return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

// The length that a UTF-8 lead byte announces; 1 for every other byte.
std::size_t CharacterLength(char lead) {
  const auto byte = static_cast<unsigned char>(lead);
  if (byte >= 0xC2 && byte <= 0xDF) return 2;
  if (byte >= 0xE0 && byte <= 0xEF) return 3;
  if (byte >= 0xF0 && byte <= 0xF4) return 4;
  return 1;
}

}  // namespace

std::string_view TrimRight(std::string_view text) {
  const std::size_t last = text.find_last_not_of(' ');
  return last == std::string_view::npos ? std::string_view() : text.substr(0, last + 1);
}

std::string_view Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  return first == std::string_view::npos ? std::string_view() : TrimRight(text.substr(first));
}

std::string Lower(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(), LowerChar);
  return lower;
}

bool EqualIgnoringCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), SameIgnoringCase);
}

bool ContainsIgnoringCase(std::string_view text, std::string_view part) {
  return std::search(text.begin(), text.end(), part.begin(), part.end(), SameIgnoringCase) !=
             text.end() ||
         part.empty();
}

std::string OneLine(std::string_view text) {
  std::string line(text);
  std::replace(line.begin(), line.end(), '\n', ' ');
  return line;
}

std::string_view CutAtCharacter(std::string_view text, std::size_t width) {
  if (text.size() <= width) return text;
  // Only a well-formed character that the cut would split is given up whole; bytes of any other
  // encoding are single characters.
  std::size_t lead = width;
  while (lead > 0 && width - lead < 3 && IsContinuation(text[lead])) --lead;
  const std::size_t end = lead + CharacterLength(text[lead]);
  if (lead == width || end <= width || end > text.size()) return text.substr(0, width);
  for (std::size_t i = lead + 1; i < end; ++i) {
    if (!IsContinuation(text[i])) return text.substr(0, width);
  }
  return text.substr(0, lead);
}

std::string PadRight(std::string_view text, std::size_t width) {
  std::string padded(CutAtCharacter(text, width));
  padded.resize(width, ' ');
  return padded;
}

char32_t TakeCharacter(std::string_view& text) {
  const auto lead = static_cast<unsigned char>(text.front());
  const std::size_t length = CharacterLength(text.front());
  char32_t character = length == 1 ? lead : lead & (0xFFu >> (length + 1));
  std::size_t taken = 1;
  while (taken < length && taken < text.size() && IsContinuation(text[taken])) {
    character = character << 6 | (static_cast<unsigned char>(text[taken++]) & 0x3Fu);
  }
  constexpr char32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
  const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
  if (taken < length || character < kLeast[length] || character > 0x10FFFF || surrogate) {
    text.remove_prefix(1);
    return lead;
  }
  text.remove_prefix(length);
  return character;
}

std::size_t CharacterCount(std::string_view text) {
  std::size_t count = 0;
  for (; !text.empty(); ++count) TakeCharacter(text);
  return count;
}

void AddCharacter(std::string& text, char32_t c) {
  const auto add = [&](char32_t byte) { text += static_cast<char>(byte); };
  const auto add_rest = [&](int bits) { add(0x80 | (c >> bits & 0x3F)); };
  if (c < 0x80) {
    add(c);
  } else if (c < 0x800) {
    add(0xC0 | c >> 6);
    add_rest(0);
  } else if (c < 0x10000) {
    add(0xE0 | c >> 12);
    add_rest(6);
    add_rest(0);
  } else {
    add(0xF0 | c >> 18);
    add_rest(12);
    add_rest(6);
    add_rest(0);
  }
}

std::string AsUtf8(std::string_view text) {
  std::string utf8;
  while (!text.empty()) {
    const char32_t c = TakeCharacter(text);
    const bool control = c < 0x20 || (c >= 0x7F && c < 0xA0);
    AddCharacter(utf8, control ? U' ' : c);
  }
  return utf8;
}

std::string XmlText(std::string_view text) {
  std::string xml;
  for (const char c : AsUtf8(text)) {
    switch (c) {
      case '&':
        xml += "&amp;";
        break;
      case '<':
        xml += "&lt;";
        break;
      case '>':
        xml += "&gt;";
        break;
      case '"':
        xml += "&quot;";
        break;
      default:
        xml += c;
    }
  }
  return xml;
}

}  // namespace feltmaster
