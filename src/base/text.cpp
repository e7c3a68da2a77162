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

}  // namespace feltmaster
