#include "base/number_format.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>

namespace feltmaster {

namespace {

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

// A number as its decimal digits: 0.d1d2d3... times ten to the power of `point`.
struct Decimal {
  bool negative = false;
  std::string digits;  // without leading zeros; empty is zero
  int point = 0;

  // Digit i places behind the point (0 the first one), negative i in front of it.
  char At(int place) const {
    const int i = point + place;
    return i >= 0 && i < static_cast<int>(digits.size()) ? digits[static_cast<std::size_t>(i)]
                                                         : '0';
  }
};

Decimal DecimalOf(std::int64_t value, int places) {
  Decimal decimal;
  decimal.negative = value < 0;
  const std::uint64_t magnitude = value < 0 ? std::uint64_t{0} - static_cast<std::uint64_t>(value)
                                            : static_cast<std::uint64_t>(value);
  if (magnitude != 0) decimal.digits = std::to_string(magnitude);
  decimal.point = static_cast<int>(decimal.digits.size()) - places;
  return decimal;
}

Decimal DecimalOf(double value) {
  Decimal decimal;
  decimal.negative = std::signbit(value);
  if (value == 0) return decimal;
  std::array<char, 40> text{};
  std::snprintf(text.data(), text.size(), "%.14e", std::fabs(value));
  decimal.digits = text[0];
  decimal.digits.append(&text[2], 14);
  decimal.point = 1 + std::atoi(&text[17]);
  return decimal;
}

// Half away from zero.
void RoundTo(Decimal& decimal, int places) {
  const int kept = decimal.point + places;
  if (kept >= static_cast<int>(decimal.digits.size())) return;
  const bool up = kept >= 0 && decimal.digits[static_cast<std::size_t>(kept)] >= '5';
  decimal.digits.resize(static_cast<std::size_t>(kept > 0 ? kept : 0));
  if (up) {
    std::size_t i = decimal.digits.size();
    while (i > 0 && decimal.digits[i - 1] == '9') decimal.digits[--i] = '0';
    if (i > 0) {
      ++decimal.digits[i - 1];
    } else {
      decimal.digits.insert(decimal.digits.begin(), '1');
      ++decimal.point;
    }
  }
  if (decimal.digits.find_first_not_of('0') == std::string::npos) decimal.digits.clear();
  if (decimal.digits.empty()) decimal.point = 0;
}

// What a section of a picture asks for.
struct Section {
  std::string_view text;
  int whole = 0;          // digit places in front of the point
  int first_zero = 0;     // of them the last ones that are always shown
  int fraction = 0;       // digit places behind the point
  int fraction_kept = 0;  // of them the first ones that are always shown
  int percents = 0;
  bool grouped = false;
};

Section ReadSection(std::string_view text) {
  Section section{text};
  bool behind_point = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c == '.') {
      behind_point = true;
    } else if (c == '%') {
      ++section.percents;
    } else if (c == ',') {
      if (section.whole > 0 && !behind_point) section.grouped = true;
    } else if (c == '0' || c == '#') {
      if (behind_point) {
        ++section.fraction;
        if (c == '0') section.fraction_kept = section.fraction;
      } else {
        ++section.whole;
        if (c == '0' || section.first_zero > 0) ++section.first_zero;
      }
    }
  }
  return section;
}

// The section of the picture for a sign: 0 positive, 1 negative, 2 zero. A section that is missing
// or empty gives way to the first.
std::string_view SectionText(std::string_view picture, int index) {
  std::string_view rest = picture;
  for (int i = 0; i < index; ++i) {
    const std::size_t end = rest.find(';');
    if (end == std::string_view::npos) return {};
    rest.remove_prefix(end + 1);
  }
  return rest.substr(0, rest.find(';'));
}

std::string Write(const Decimal& number, const Section& section) {
  std::string out;
  int shown = number.point > section.first_zero ? number.point : section.first_zero;
  if (number.digits.empty()) shown = section.first_zero;
  int fraction = section.fraction;
  while (fraction > section.fraction_kept && number.At(fraction - 1) == '0') --fraction;

  // Digits are written from `place` in front of the point down to `last`.
  const auto write_whole = [&](int place, int last) {
    for (; place > last; --place) {
      out += number.At(-place);
      if (section.grouped && place > 1 && place % 3 == 1) out += ',';
    }
  };
  int whole_left = section.whole;
  int written_fraction = 0;
  bool behind_point = false;
  for (const char c : section.text) {
    if (c == '.' && !behind_point) {
      behind_point = true;
      // A picture without places in front of the point still shows the whole part.
      if (section.whole == 0 && shown > 0) write_whole(shown, 0);
      out += '.';
    } else if (c == ',' && section.whole > 0 && !behind_point) {
      continue;
    } else if (c == '0' || c == '#') {
      if (behind_point) {
        if (written_fraction < fraction) out += number.At(written_fraction);
        ++written_fraction;
      } else {
        // The first place takes all digits that have no place of their own.
        const int from = whole_left == section.whole ? shown : std::min(shown, whole_left);
        --whole_left;
        write_whole(from, whole_left);
      }
    } else {
      out += c;
    }
  }
  return out;
}

std::string FormatDecimal(Decimal number, std::string_view picture) {
  const bool negative = number.negative && !number.digits.empty();
  std::string_view own = negative ? SectionText(picture, 1) : SectionText(picture, 0);
  const bool add_minus = negative && own.empty();
  if (own.empty()) own = SectionText(picture, 0);
  const Section section = ReadSection(own);
  number.point += 2 * section.percents;
  RoundTo(number, section.fraction);
  if (number.digits.empty()) {
    // What rounds to zero is written as zero, so that no "-0.00" is shown.
    const std::string_view zero = SectionText(picture, 2);
    if (!zero.empty()) return Write(number, ReadSection(zero));
    return Write(number, ReadSection(SectionText(picture, 0)));
  }
  return (add_minus ? "-" : "") + Write(number, section);
}

// A numeric prefix, taken apart without loss.
struct Prefix {
  bool negative = false;
  std::string digits;  // of the whole and the fraction
  int point = 0;       // digits in front of the point
  long exponent = 0;   // held within +-kExponentLimit
};
constexpr long kExponentLimit = 100'000;

Prefix ReadPrefix(std::string_view text, bool separators) {
  Prefix prefix;
  std::size_t i = 0;
  while (i < text.size() && (text[i] == ' ' || text[i] == '\t')) ++i;
  if (i < text.size() && (text[i] == '-' || text[i] == '+')) prefix.negative = text[i++] == '-';
  for (; i < text.size(); ++i) {
    if (IsDigit(text[i])) {
      prefix.digits += text[i];
    } else if (!(separators && text[i] == ',')) {
      break;
    }
  }
  prefix.point = static_cast<int>(prefix.digits.size());
  if (i < text.size() && text[i] == '.') {
    for (++i; i < text.size() && IsDigit(text[i]); ++i) prefix.digits += text[i];
  }
  if (prefix.digits.empty()) return prefix;
  if (i < text.size() && (text[i] == 'e' || text[i] == 'E')) {
    ++i;
    bool down = false;
    if (i < text.size() && (text[i] == '-' || text[i] == '+')) down = text[i++] == '-';
    for (; i < text.size() && IsDigit(text[i]); ++i) {
      if (prefix.exponent < kExponentLimit)
        prefix.exponent = prefix.exponent * 10 + (text[i] - '0');
    }
    if (prefix.exponent > kExponentLimit) prefix.exponent = kExponentLimit;
    if (down) prefix.exponent = -prefix.exponent;
  }
  return prefix;
}

}  // namespace

std::string FormatNumber(MoneyAmount value, std::string_view picture) {
  return FormatDecimal(DecimalOf(value.Raw(), 4), picture);
}

std::string FormatNumber(double value, std::string_view picture) {
  if (!std::isfinite(value)) return std::isnan(value) ? "nan" : value < 0 ? "-inf" : "inf";
  return FormatDecimal(DecimalOf(value), picture);
}

std::string FormatNumber(std::int64_t value, std::string_view picture) {
  return FormatDecimal(DecimalOf(value, 0), picture);
}

std::string FormatMoney(MoneyAmount amount) {
  return FormatNumber(amount, amount.IsWhole() ? "#,#;-#,#;0" : "#,#.00##;-#,#.00##;0.00");
}

std::string PlainNumber(MoneyAmount amount) {
  return amount.IsWhole() ? FormatNumber(amount, "0") : FormatNumber(amount, "0.####");
}

MoneyAmount ParseMoney(std::string_view text) {
  if (NumericPrefix(text) == 0) return {};
  const Prefix prefix = ReadPrefix(text, true);
  // The digits in front of `end` count whole ten-thousandths, those behind it are rounded.
  const long end = prefix.point + prefix.exponent + 4;
  const auto size = static_cast<long>(prefix.digits.size());
  std::int64_t raw = 0;  // below zero, where one amount more finds place
  for (long i = 0; i < end; ++i) {
    if (raw == 0 && i >= size) break;
    const int digit = i < size ? prefix.digits[static_cast<std::size_t>(i)] - '0' : 0;
    if (__builtin_mul_overflow(raw, std::int64_t{10}, &raw) ||
        __builtin_sub_overflow(raw, std::int64_t{digit}, &raw)) {
      return {};
    }
  }
  if (end >= 0 && end < size) {
    const std::string_view rest =
        std::string_view(prefix.digits).substr(static_cast<std::size_t>(end));
    const bool beyond_half = rest.find_first_not_of('0', 1) != std::string_view::npos;
    if (rest[0] > '5' || (rest[0] == '5' && (beyond_half || raw % 2 != 0))) {
      if (__builtin_sub_overflow(raw, std::int64_t{1}, &raw)) return {};
    }
  }
  if (prefix.negative) return MoneyAmount::FromRaw(raw);
  return raw == std::numeric_limits<std::int64_t>::min() ? MoneyAmount()
                                                         : MoneyAmount::FromRaw(-raw);
}

double NumericPrefix(std::string_view text) {
  const Prefix prefix = ReadPrefix(text, false);
  if (prefix.digits.empty()) return 0;
  std::string plain = prefix.digits;
  plain.insert(static_cast<std::size_t>(prefix.point), 1, '.');
  plain += 'e' + std::to_string(prefix.exponent);
  double value = 0;
  const auto result = std::from_chars(plain.data(), plain.data() + plain.size(), value);
  if (result.ec == std::errc::result_out_of_range) {
    // Too small to tell from zero, or beyond all doubles.
    const auto first = static_cast<long>(prefix.digits.find_first_not_of('0'));
    const bool tiny = prefix.point - first + prefix.exponent < 0;
    value = tiny ? 0 : std::numeric_limits<double>::max();
  }
  return prefix.negative ? -value : value;
}

}  // namespace feltmaster
