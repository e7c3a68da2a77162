#include "autobet/script_text.h"

#include <algorithm>
#include <optional>
#include <unordered_set>

#include "autobet/script_lines.h"
#include "autobet/text_form.h"
#include "autobet/vocabulary.h"
#include "base/number_format.h"
#include "base/text.h"

namespace feltmaster {

namespace {

constexpr MoneyAmount kTrueAmount = MoneyAmount(-1);

bool IsBlank(char c) {
  return c == ' ' || c == '\t';
}
bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}
bool IsWordByte(char c) {
  return IsDigit(c) || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
         static_cast<unsigned char>(c) >= 0x80;
}
// A text without the blanks, tabs and carriage returns around it.
std::string_view Strip(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t\r");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t\r") + 1 - first);
}
char LowerByte(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

std::string_view Shown(const ConditionRow& row) {
  return row.shown.empty() ? row.caption : row.shown;
}
std::string_view Shown(const StartRow& row) {
  return row.caption.substr(0, row.caption.find(" . . ."));
}
template <typename Row>
std::string_view Shown(const Row& row) {
  return row.caption;
}

// Where the caption ends if it stands at this place of the text. Case does not matter; a blank of
// the caption stands for any run of blanks, beside punctuation also for none.
std::optional<std::size_t> MatchCaption(std::string_view text, std::size_t at,
                                        std::string_view caption) {
  caption = TrimRight(caption);
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == ' ') {
      const bool needed = IsWordByte(caption[i - 1]) && IsWordByte(caption[i + 1]);
      if (needed && (at >= text.size() || !IsBlank(text[at]))) return std::nullopt;
      while (at < text.size() && IsBlank(text[at])) ++at;
    } else {
      if (at >= text.size() || LowerByte(text[at]) != LowerByte(caption[i])) return std::nullopt;
      ++at;
    }
  }
  if (IsWordByte(caption.back()) && at < text.size() && IsWordByte(text[at])) return std::nullopt;
  return at;
}

// The row whose caption is the longest that stands here, taken over several lists in turn.
struct LongestMatch {
  std::string_view text;
  std::size_t at = 0;
  std::size_t end = 0;  // 0 as long as nothing matched

  template <typename Row>
  const Row* In(std::span<const Row> rows, const Row* found = nullptr) {
    for (const Row& row : rows) {
      const std::optional<std::size_t> match = MatchCaption(text, at, Shown(row));
      if (match && *match > end) {
        end = *match;
        found = &row;
      }
    }
    return found;
  }
};

std::string Quote(std::string_view words) {
  std::string quoted = "\"";
  quoted += words;
  quoted += '"';
  return quoted;
}

// "a, b or c" of the captions that begin most like the text; all of them when they are few.
class Suggestions {
 public:
  explicit Suggestions(std::string_view text) : text_(text) {}

  template <typename Row>
  void Add(std::span<const Row> rows) {
    for (const Row& row : rows) {
      const std::string_view caption = TrimRight(Shown(row));
      const auto equal = [](char a, char b) { return LowerByte(a) == LowerByte(b); };
      const auto ends =
          std::mismatch(caption.begin(), caption.end(), text_.begin(), text_.end(), equal);
      const bool known = std::any_of(choices_.begin(), choices_.end(),
                                     [&](const Choice& c) { return c.caption == caption; });
      if (!known) choices_.push_back({caption, ends.first - caption.begin()});
    }
  }
  std::string Text(std::string_view noun) {
    constexpr std::size_t kAll = 6;
    constexpr std::size_t kSome = 3;
    std::string text(noun);
    if (choices_.empty()) return text;
    const bool all = choices_.size() <= kAll;
    if (!all) {
      std::stable_sort(choices_.begin(), choices_.end(),
                       [](const Choice& a, const Choice& b) { return a.likeness > b.likeness; });
      choices_.resize(kSome);
    }
    text += all ? ": " : ", such as ";
    for (std::size_t i = 0; i < choices_.size(); ++i) {
      if (i > 0) text += i + 1 < choices_.size() ? ", " : " or ";
      text += Quote(choices_[i].caption);
    }
    return text;
  }

 private:
  struct Choice {
    std::string_view caption;
    std::ptrdiff_t likeness = 0;
  };
  std::string_view text_;
  std::vector<Choice> choices_;
};

enum class Quotes { kPlain, kMayBeEmpty, kSemicolonOutside, kOptional };

// The two ways of walking over a line. Both take the fields one after the other: the printer writes
// what the record holds, the reader fills the record and writes the text as it should be.
class LineText {
 public:
  std::string text;

 protected:
  void Append(std::string_view piece) {
    text += ' ';
    text += piece;
  }
};

class LinePrinter : public LineText {
 public:
  explicit LinePrinter(const ComparisonRow* comparison = nullptr) : comparison_(comparison) {}

  bool Words(std::string_view words) {
    Append(words);
    return true;
  }
  bool OptionalWords(std::string_view words) { return Words(words); }
  bool OneOf(std::string_view words, std::span<const std::string_view> /*others*/) {
    return Words(words);
  }
  template <typename Row>
  const Row* Pick(std::span<const Row> rows, std::int32_t& code, std::string_view noun) {
    for (const Row& row : rows) {
      if (row.code == code) return Found(row);
    }
    return Unknown<Row>(code, noun);
  }
  const ComparisonRow* PickComparison(const ConditionRow& condition, std::int32_t& code) {
    const bool chosen = comparison_ != nullptr && comparison_->code == code;
    const ComparisonRow* row = chosen ? comparison_ : FindComparison(condition, code);
    return row != nullptr ? Found(*row) : Unknown<ComparisonRow>(code, "a comparison");
  }
  bool Amount(MoneyAmount& amount, bool /*may_be_negative*/) { return Words(PlainNumber(amount)); }
  bool Count(MoneyAmount& count, bool zero_is_each, std::string_view one, std::string_view many) {
    const bool each = zero_is_each && count == MoneyAmount();
    Append(each ? std::string(kEachTime) : PlainNumber(count));
    return Words(each || count == MoneyAmount(1) ? one : many);
  }
  bool Number(std::int32_t& number, std::size_t /*digits*/, std::string_view zero) {
    return Words(number == 0 && !zero.empty() ? std::string(zero) : std::to_string(number));
  }
  bool Truth(MoneyAmount& amount, std::string_view is_true, std::string_view is_false) {
    return Words(amount == kTrueAmount ? is_true : is_false);
  }
  bool Name(std::string& name, Quotes quotes, std::string_view /*noun*/) {
    if (quotes == Quotes::kSemicolonOutside && name.ends_with(';')) {
      return Words(Quote(std::string_view(name).substr(0, name.size() - 1)) + ';');
    }
    return Words(Quote(name));
  }
  bool End() { return true; }

 private:
  template <typename Row>
  const Row* Found(const Row& row) {
    Append(Shown(row));
    return &row;
  }
  // A code that no list has: a record from elsewhere. The text says so and cannot be read back.
  template <typename Row>
  const Row* Unknown(std::int32_t code, std::string_view noun) {
    Append("(no name: " + std::string(noun) + ' ' + std::to_string(code) + ')');
    return nullptr;
  }

  const ComparisonRow* comparison_;
};

class LineReader : public LineText {
 public:
  explicit LineReader(std::string_view source, std::size_t at = 0) : source_(source), at_(at) {}

  ScriptTextFault fault;

  bool Fail(std::string expected) { return FailAt(at_, std::move(expected)); }
  bool FailAt(std::size_t at, std::string expected) {
    fault = {1, at + 1, std::move(expected)};
    return false;
  }
  std::size_t At() const { return at_; }

  bool Words(std::string_view words) {
    if (!Take(words)) return Fail(Quote(words));
    Append(words);
    return true;
  }
  bool OptionalWords(std::string_view words) {
    Take(words);
    Append(words);
    return true;
  }
  bool OneOf(std::string_view words, std::span<const std::string_view> others) {
    if (!Take(words) && std::none_of(others.begin(), others.end(),
                                     [this](std::string_view other) { return Take(other); })) {
      return Fail(Quote(words));
    }
    Append(words);
    return true;
  }
  template <typename Row>
  const Row* Pick(std::span<const Row> rows, std::int32_t& code, std::string_view noun) {
    SkipBlanks();
    LongestMatch match{source_, at_};
    const Row* row = match.In(rows);
    if (row == nullptr) {
      Suggestions suggestions(source_.substr(at_));
      suggestions.Add(rows);
      Fail(suggestions.Text(noun));
      return nullptr;
    }
    return Found(*row, match.end, code);
  }
  const ComparisonRow* PickComparison(const ConditionRow& condition, std::int32_t& code) {
    SkipBlanks();
    LongestMatch match{source_, at_};
    const ComparisonRow* row = nullptr;
    for (const ComparisonList& list : condition.comparisons) row = match.In(list, row);
    if (row == nullptr) {
      Suggestions suggestions(source_.substr(at_));
      for (const ComparisonList& list : condition.comparisons) suggestions.Add(list);
      Fail(suggestions.Text("a comparison"));
      return nullptr;
    }
    // "are equal to" with a count and with a thing differ in what comes next alone.
    if (row->caption.ends_with(' ') && !IsNumberAt(SkippedBlanks(match.end))) {
      row = FindComparison(condition, row->code - kEqualAmount + kEqualThing);
    }
    return Found(*row, match.end, code);
  }
  bool Amount(MoneyAmount& amount, bool may_be_negative) {
    SkipBlanks();
    std::size_t end = at_;
    if (may_be_negative && end < source_.size() && source_[end] == '-') ++end;
    const std::size_t whole = end;
    while (end < source_.size() && IsDigit(source_[end])) ++end;
    std::size_t digits = end - whole;
    if (digits > kWholeDigits) return Fail("an amount of at most 13 digits before the point");
    if (end < source_.size() && source_[end] == '.') {
      const std::size_t fraction = ++end;
      while (end < source_.size() && IsDigit(source_[end])) ++end;
      if (end - fraction > kDecimals) return Fail("an amount with at most four decimals");
      digits += end - fraction;
    }
    if (digits == 0 ||
        (end < source_.size() && (IsWordByte(source_[end]) || source_[end] == ','))) {
      return Fail(may_be_negative ? "an amount, such as 10 or 12.5"
                                  : "an amount without a sign, such as 5");
    }
    amount = ParseMoney(source_.substr(at_, end - at_));
    at_ = end;
    Append(PlainNumber(amount));
    return true;
  }
  bool Count(MoneyAmount& count, bool zero_is_each, std::string_view one, std::string_view many) {
    if (zero_is_each && Take(kEachTime)) {
      count = MoneyAmount();
    } else {
      const std::size_t start = text.size();
      if (!Amount(count, true)) {
        if (zero_is_each) fault.expected = "a number or \"each\"";
        return false;
      }
      text.resize(start);
    }
    if (!Take(many) && !Take(one)) return Fail(Quote(count == MoneyAmount(1) ? one : many));
    LinePrinter canonical;
    canonical.Count(count, zero_is_each, one, many);
    text += canonical.text;
    return true;
  }
  bool Number(std::int32_t& number, std::size_t digits, std::string_view zero) {
    SkipBlanks();
    std::size_t end = at_;
    while (end < source_.size() && IsDigit(source_[end])) ++end;
    if (end > at_) {
      if (end - at_ > digits || (end < source_.size() && IsWordByte(source_[end]))) {
        return Fail(zero.empty() ? "a Chip-Stack number from 0 to 99"
                                 : "a number of rolls from 1 to 999, or \"all\"");
      }
      number = 0;
      for (; at_ < end; ++at_) number = number * 10 + (source_[at_] - '0');
    } else if (!zero.empty() && Take(zero)) {
      number = 0;
    } else {
      return Fail(zero.empty() ? "a Chip-Stack number from 0 to 99"
                               : "a number of rolls from 1 to 999, or \"all\"");
    }
    LinePrinter canonical;
    canonical.Number(number, digits, zero);
    text += canonical.text;
    return true;
  }
  bool Truth(MoneyAmount& amount, std::string_view is_true, std::string_view is_false) {
    const bool truth = Take(is_true);
    if (!truth && !Take(is_false)) return Fail(Quote(is_true) + " or " + Quote(is_false));
    amount = truth ? kTrueAmount : MoneyAmount();
    Append(truth ? is_true : is_false);
    return true;
  }
  // A line holds one name at most, so that the name may hold double quotes itself: it ends at the
  // last one.
  bool Name(std::string& name, Quotes quotes, std::string_view noun) {
    SkipBlanks();
    const std::size_t start = at_;
    if (at_ < source_.size() && source_[at_] == '"') {
      const std::size_t closing = source_.rfind('"');
      if (closing == at_) return FailAt(source_.size(), "a closing double quote");
      name = source_.substr(at_ + 1, closing - at_ - 1);
      at_ = closing + 1;
      if (quotes == Quotes::kSemicolonOutside && at_ < source_.size() && source_[at_] == ';') {
        name += ';';
        ++at_;
      }
    } else if (quotes == Quotes::kOptional && at_ < source_.size()) {
      name = source_.substr(at_);
      at_ = source_.size();
    } else {
      return Fail(std::string(noun) + " in double quotes");
    }
    name = quotes == Quotes::kSemicolonOutside ? TrimRight(name) : Trim(name);
    if (name.empty() && (quotes == Quotes::kPlain || quotes == Quotes::kOptional)) {
      return FailAt(start, std::string(noun) + " that is not blank");
    }
    if (name.size() > kLineNameSize) {
      return FailAt(start, std::string(noun) + " of at most 80 bytes");
    }
    LinePrinter canonical;
    canonical.Name(name, quotes, noun);
    text += canonical.text;
    return true;
  }
  bool End() {
    SkipBlanks();
    return at_ == source_.size() || Fail("the end of the line");
  }

 private:
  std::size_t SkippedBlanks(std::size_t at) const {
    while (at < source_.size() && IsBlank(source_[at])) ++at;
    return at;
  }
  void SkipBlanks() { at_ = SkippedBlanks(at_); }
  bool IsNumberAt(std::size_t at) const {
    return at < source_.size() &&
           (IsDigit(source_[at]) || source_[at] == '-' || source_[at] == '.');
  }
  bool Take(std::string_view words) {
    SkipBlanks();
    const std::optional<std::size_t> end = MatchCaption(source_, at_, words);
    if (end) at_ = *end;
    return end.has_value();
  }
  template <typename Row>
  const Row* Found(const Row& row, std::size_t end, std::int32_t& code) {
    code = row.code;
    at_ = end;
    Append(Shown(row));
    return &row;
  }

  std::string_view source_;
  std::size_t at_ = 0;
};

// Reads as far as the text makes sense, and collects what could stand where it ends.
class LineCompleter {
 public:
  LineCompleter(std::string_view source, std::size_t at, const ScriptState& script)
      : source_(source), reader_(source, at), script_(script) {}

  std::vector<std::string> texts;

  // `match` is what the rest of the text may be the beginning of, `words` what then stands there.
  void Offer(std::string_view words, std::string_view match) {
    const std::size_t at = reader_.At();
    const std::string_view rest = Strip(source_.substr(at));
    if (rest.size() >= match.size() || !EqualIgnoringCase(rest, match.substr(0, rest.size()))) {
      return;
    }
    std::string text(Strip(source_.substr(0, at)));
    if (!text.empty()) text += ' ';
    text += words;
    if (std::find(texts.begin(), texts.end(), text) == texts.end()) texts.push_back(text);
  }
  void Offer(std::string_view words) { Offer(words, words); }
  // A condition whose line shows other words than the list can be begun with either.
  template <typename Row>
  void OfferRows(std::span<const Row> rows) {
    for (const Row& row : rows) {
      const std::string_view shown = TrimRight(Shown(row));
      Offer(shown);
      if (shown != TrimRight(row.caption)) Offer(shown, row.caption);
    }
  }
  void OfferRows(std::span<const StartRow> rows) {
    for (const StartRow& row : rows) Offer(row.caption);
  }

  bool Words(std::string_view words) {
    Offer(words);
    return reader_.Words(words);
  }
  bool OptionalWords(std::string_view words) {
    Offer(words);
    return reader_.OptionalWords(words);
  }
  bool OneOf(std::string_view words, std::span<const std::string_view> others) {
    Offer(words);
    return reader_.OneOf(words, others);
  }
  template <typename Row>
  const Row* Pick(std::span<const Row> rows, std::int32_t& code, std::string_view noun) {
    OfferRows(rows);
    return reader_.Pick(rows, code, noun);
  }
  const ComparisonRow* PickComparison(const ConditionRow& condition, std::int32_t& code) {
    for (const ComparisonList& list : condition.comparisons) OfferRows(list);
    return reader_.PickComparison(condition, code);
  }
  bool Amount(MoneyAmount& amount, bool may_be_negative) {
    return reader_.Amount(amount, may_be_negative);
  }
  bool Count(MoneyAmount& count, bool zero_is_each, std::string_view one, std::string_view many) {
    if (zero_is_each) Offer("each time");
    const std::size_t before = reader_.At();
    if (reader_.Count(count, zero_is_each, one, many)) return true;
    const bool each = zero_is_each && count == MoneyAmount();
    if (each || Strip(source_.substr(before, reader_.At() - before)).empty()) return false;
    Offer(count == MoneyAmount(1) ? one : many);
    return false;
  }
  bool Number(std::int32_t& number, std::size_t digits, std::string_view zero) {
    if (!zero.empty()) Offer(zero);
    return reader_.Number(number, digits, zero);
  }
  bool Truth(MoneyAmount& amount, std::string_view is_true, std::string_view is_false) {
    Offer(is_true);
    Offer(is_false);
    return reader_.Truth(amount, is_true, is_false);
  }
  bool Name(std::string& name, Quotes quotes, std::string_view noun) {
    if (quotes == Quotes::kOptional) {
      for (const std::string& label : script_.ScriptLabels) {
        Offer(Quote(label));
        Offer(Quote(label), label);
      }
    } else if (quotes == Quotes::kPlain) {
      for (const ScriptFlag& flag : script_.ScriptFlags) Offer(Quote(flag.FlagName));
    }
    return reader_.Name(name, quotes, noun);
  }
  bool End() { return reader_.End(); }

 private:
  std::string_view source_;
  LineReader reader_;
  const ScriptState& script_;
};

std::string_view NounOf(Field field) {
  switch (field) {
    case Field::kComparedWith:
      return "something to compare with, or a number in its form";
    case Field::kValue:
      return "a value";
    case Field::kRounding:
      return "a way of rounding";
    case Field::kPlaceTarget:
      return "a Place bet";
    case Field::kRollTarget:
      return "a roll";
    case Field::kWinRule:
    case Field::kLossRule:
      return "a rule";
    default:
      return "a bet or Chip-Stack";
  }
}

template <typename Line>
bool WalkPick(Line& line, Field field, std::int32_t& code, std::int32_t& stack) {
  if (line.Pick(PicksOf(field), code, NounOf(field)) == nullptr) return false;
  if (NeedsStack(code)) return line.Number(stack, kStackDigits, {});
  if (NeedsAverage(code)) {
    return line.Number(stack, kAverageDigits, kAllRolls) &&
           (field != Field::kComparedWith || line.Words(kAverageWords));
  }
  return true;
}

template <typename Line>
bool WalkField(Line& line, Field field, ScriptLine& record) {
  static constexpr std::array<std::string_view, 3> kPrepositions = {"on", "to", "from"};
  switch (field) {
    case Field::kNone:
      return true;
    case Field::kAmount:
      return line.Amount(record.LineAmount, true);
    case Field::kPositiveAmount:
      return line.Amount(record.LineAmount, false);
    case Field::kTimes:
      return line.Count(record.LineAmount, false, "time", "times");
    case Field::kTimesOrEach:
      return line.Count(record.LineAmount, true, "time", "times");
    case Field::kRolls:
      return line.Count(record.LineAmount, false, "roll", "rolls");
    case Field::kStack:
      return line.Number(record.LineSubjectStack, kStackDigits, {});
    case Field::kAverage:
      return line.Number(record.LineSubjectStack, kAverageDigits, kAllRolls) &&
             line.Words(kAverageWords);
    case Field::kFlag:
      return line.Name(record.LineName, Quotes::kPlain, "a flag name");
    case Field::kLabel:
      return line.Name(record.LineName, Quotes::kOptional, "a label");
    case Field::kName:
      return line.Name(record.LineName, Quotes::kMayBeEmpty, "a name");
    case Field::kText:
      return line.Name(record.LineName, Quotes::kSemicolonOutside, "a text");
    case Field::kIsTrue:
      return line.Truth(record.LineAmount, "is True", "is False");
    case Field::kAreTrue:
      return line.Truth(record.LineAmount, "are True", "are False");
    case Field::kToTrue:
      return line.Truth(record.LineAmount, "to True", "to False");
    case Field::kValue:
    case Field::kRounding:
      return WalkPick(line, field, record.LineSubject, record.LineSubjectStack);
    case Field::kComparedWith:
    case Field::kTarget:
    case Field::kPlaceTarget:
    case Field::kRollTarget:
    case Field::kWinRule:
    case Field::kLossRule:
      return WalkPick(line, field, record.LineTarget, record.LineTargetStack);
    case Field::kWordPercentOf:
      return line.OptionalWords(WordsOf(field));
    case Field::kWordOn:
    case Field::kWordTo:
    case Field::kWordFrom:
      return line.OneOf(WordsOf(field), kPrepositions);
    case Field::kWordAs:
    case Field::kWordFromAtm:
    case Field::kWordInAtm:
      return line.Words(WordsOf(field));
  }
  return false;
}

template <typename Line>
bool WalkFields(Line& line, std::span<const Field> fields, ScriptLine& record) {
  return std::all_of(fields.begin(), fields.end(),
                     [&](Field field) { return WalkField(line, field, record); });
}

// What follows the caption.
template <typename Line>
bool WalkCondition(Line& line, const ConditionRow& condition, ScriptLine& record) {
  if (!WalkFields(line, condition.fields, record)) return false;
  if (condition.comparisons[0].empty()) return line.End();
  const ComparisonRow* comparison = line.PickComparison(condition, record.LineCode);
  return comparison != nullptr && WalkField(line, comparison->operand, record) && line.End();
}

template <typename Line>
bool WalkAction(Line& line, const ActionRow& action, ScriptLine& record) {
  return WalkFields(line, action.fields, record) && line.End();
}

bool IsGroupVerb(std::int32_t code) {
  return code >= kFirstVerbCode && code <= kLastVerbCode && code % 10 >= kFormHighest;
}

// The group verbs keep the caption of the value that they read.
void NameGroupValue(ScriptLine& record) {
  if (!IsGroupVerb(record.LineCode)) return;
  ScriptLine copy = record;
  LinePrinter printer;
  WalkField(printer, Field::kValue, copy);
  record.LineName = Trim(printer.text);
}

std::string Indented(int blanks, std::string_view text) {
  std::string line(static_cast<std::size_t>(blanks), ' ');
  line += Trim(text);
  return line;
}

template <typename Rows>
bool AnyCaption(const Rows& rows, const auto& test) {
  return std::any_of(rows.begin(), rows.end(), [&](const auto& row) {
    return test(std::string_view(row.caption)) || test(Shown(row));
  });
}
bool AnyLineCaption(const auto& test) {
  return AnyCaption(kStartRows, test) || AnyCaption(kConditions, test) ||
         AnyCaption(kActions, test);
}

std::string_view FirstWord(std::string_view text) {
  return text.substr(0, text.find_first_of(" \t"));
}

// Whether two words are equal but for one letter left out, put in, changed or swapped with its
// neighbour. Short words say too little.
bool IsSlipOf(std::string_view a, std::string_view b) {
  if (a.size() < b.size()) std::swap(a, b);
  if (a.size() < 4 || a.size() > b.size() + 1) return false;
  std::size_t same = 0;
  while (same < b.size() && a[same] == b[same]) ++same;
  if (a.size() > b.size()) return a.substr(same + 1) == b.substr(same);
  if (same == a.size() || a.substr(same + 1) == b.substr(same + 1)) return true;
  return same + 1 < a.size() && a[same] == b[same + 1] && a[same + 1] == b[same] &&
         a.substr(same + 2) == b.substr(same + 2);
}

// Whether a text that is no line looks as if it was meant to be one: it begins with a whole
// caption, or has three words of which the first is a caption's first word or close to it.
bool BeginsLikeLine(std::string_view text) {
  const auto is_prefix = [text](std::string_view caption) {
    return MatchCaption(text, 0, caption).has_value();
  };
  if (AnyLineCaption(is_prefix)) return true;
  int words = 1;
  for (std::size_t i = 1; i < text.size(); ++i) words += IsBlank(text[i - 1]) && !IsBlank(text[i]);
  if (words < 3) return text.ends_with(" . . .");
  const std::string first = Lower(FirstWord(text));
  return AnyLineCaption([&](std::string_view caption) {
    const std::string word = Lower(FirstWord(caption));
    return word == first || IsSlipOf(word, first);
  });
}

std::unordered_set<std::string> LabelsNamed(std::span<const ScriptLine> script) {
  std::unordered_set<std::string> labels;
  for (const ScriptLine& line : script) {
    if (IsJump(line)) labels.insert(ScriptNameKey(line.LineName));
  }
  return labels;
}

using Composed = std::variant<ScriptLine, ScriptTextFault>;

Composed NamedLine(std::int32_t kind, std::string_view text) {
  const std::string_view name = Strip(text);
  if (name.size() > kLineNameSize) {
    return ScriptTextFault{
        1, text.find(name) + kLineNameSize + 1,
        kind == kLabelLine ? "a label of at most 80 bytes" : "a comment of at most 80 bytes"};
  }
  ScriptLine line;
  line.LineKind = kind;
  line.LineName = name;
  line.LineText = Indented(kNameIndentation, name);
  return line;
}

// The row that a line begins with: at most one of the three.
struct LineHead {
  const StartRow* start = nullptr;
  const ConditionRow* condition = nullptr;
  const ActionRow* action = nullptr;
  std::size_t end = 0;  // behind its caption
};
LineHead ReadHead(std::string_view text, std::size_t at) {
  LongestMatch match{text, at};
  LineHead head;
  head.start = match.In(std::span<const StartRow>(kStartRows));
  head.end = match.end;
  head.condition = match.In(std::span<const ConditionRow>(kConditions));
  if (match.end > head.end) head.start = nullptr;
  head.end = match.end;
  head.action = match.In(std::span<const ActionRow>(kActions));
  if (match.end > head.end) {
    head.start = nullptr;
    head.condition = nullptr;
  }
  head.end = match.end;
  return head;
}

// A line of the vocabulary, or where the text stops being one.
Composed VocabularyLine(std::string_view text) {
  const std::size_t start = text.find_first_not_of(" \t");
  const auto [start_row, condition, action, end] = ReadHead(text, start);
  LineReader reader(text, end);
  ScriptLine line;
  bool whole = false;
  if (start_row != nullptr) {
    line.LineKind = start_row->kind;
    line.LineText = Indented(start_row->indentation, start_row->caption);
    const std::size_t rest = text.find_first_not_of(". \t", end);
    whole = rest == std::string_view::npos || reader.FailAt(rest, "the end of the line");
    return whole ? Composed(line) : reader.fault;
  }
  if (condition != nullptr) {
    line.LineKind = kConditionLine;
    line.LineSubject = condition->code;
    reader.text = Shown(*condition);
    whole = WalkCondition(reader, *condition, line);
  } else if (action != nullptr) {
    line.LineKind = kActionLine;
    line.LineCode = action->code;
    reader.text = Shown(*action);
    whole = WalkAction(reader, *action, line);
    NameGroupValue(line);
  } else {
    return ScriptTextFault{1, start + 1,
                           "a line such as \"When . . .\", \"Pass Line has won each time\" or "
                           "\"Bet $ 10 on Pass Line\", or a label that a \"Go to\" or \"Gosub\" "
                           "names"};
  }
  if (!whole) return reader.fault;
  line.LineText = Indented(kLineIndentation, reader.text);
  if (line.LineText.size() > kLineTextSize) {
    return ScriptTextFault{1, start + 1, "a line that prints in at most 128 bytes"};
  }
  return line;
}

std::optional<ScriptTextFault> UnprintableByte(std::string_view text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    if ((byte < ' ' && byte != '\t') || byte == 0x7f) {
      return ScriptTextFault{1, i + 1, "printable text"};
    }
  }
  return std::nullopt;
}

// What a text is, as far as it can be told without the rest of the script.
struct Reading {
  Composed line;
  bool may_be_label = false;  // the line is a fault, unless the script takes the text for a label
};
Reading ReadLine(std::string_view text) {
  if (const std::optional<ScriptTextFault> fault = UnprintableByte(text)) return {*fault};
  if (Strip(text).starts_with('\'')) return {NamedLine(kCommentLine, text)};
  Reading reading{VocabularyLine(text)};
  reading.may_be_label = std::holds_alternative<ScriptTextFault>(reading.line);
  return reading;
}

// Takes the lines that are not blank, with their numbers, as long as the taker goes on.
template <typename Take>
void ForEachLine(std::string_view text, Take take) {
  for (std::size_t number = 1; !text.empty(); ++number) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view source = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (source.ends_with('\r')) source.remove_suffix(1);
    if (!Strip(source).empty() && !take(number, source)) return;
  }
}

}  // namespace

std::variant<ScriptLine, ScriptTextFault> ComposeLine(std::string_view text,
                                                      std::span<const ScriptLine> script) {
  const std::string_view name = Strip(text);
  if (name.empty()) return ScriptTextFault{1, 1, "a line of a script"};
  const Reading reading = ReadLine(text);
  if (reading.may_be_label &&
      (!BeginsLikeLine(name) || LabelsNamed(script).contains(ScriptNameKey(name)))) {
    return NamedLine(kLabelLine, text);
  }
  return reading.line;
}

std::variant<std::vector<ScriptLine>, ScriptTextFault> ComposeScript(std::string_view text) {
  // A jump may stand behind its label, so the jumps are read first.
  std::vector<ScriptLine> jumps;
  ForEachLine(text, [&](std::size_t /*number*/, std::string_view source) {
    if (Lower(Strip(source).substr(0, 2)) != "go") return true;
    const Reading reading = ReadLine(source);
    const auto* line = std::get_if<ScriptLine>(&reading.line);
    if (line != nullptr && IsJump(*line)) jumps.push_back(*line);
    return true;
  });
  const std::unordered_set<std::string> labels = LabelsNamed(jumps);

  std::vector<ScriptLine> script;
  std::optional<ScriptTextFault> fault;
  ForEachLine(text, [&](std::size_t number, std::string_view source) {
    Reading reading = ReadLine(source);
    if (reading.may_be_label) {
      const std::string_view name = Strip(source);
      const bool printed_as_label = source.find(name) == kNameIndentation && !BeginsLikeLine(name);
      if (printed_as_label || labels.contains(ScriptNameKey(name))) {
        reading.line = NamedLine(kLabelLine, source);
      }
    }
    if (auto* line = std::get_if<ScriptLine>(&reading.line)) {
      script.push_back(std::move(*line));
      return true;
    }
    fault = std::get<ScriptTextFault>(std::move(reading.line));
    fault->line = number;
    return false;
  });
  if (fault) return *fault;
  return script;
}

std::vector<std::string> Completions(std::string_view text, const ScriptState& script) {
  const std::size_t start = std::min(text.find_first_not_of(" \t"), text.size());
  LineCompleter heads(text, start, script);
  heads.OfferRows(std::span<const StartRow>(kStartRows));
  heads.OfferRows(std::span<const ConditionRow>(kConditions));
  heads.OfferRows(std::span<const ActionRow>(kActions));
  const LineHead head = ReadHead(text, start);
  LineCompleter completer(text, head.end, script);
  completer.texts = std::move(heads.texts);
  ScriptLine line;
  if (head.condition != nullptr) WalkCondition(completer, *head.condition, line);
  if (head.action != nullptr) WalkAction(completer, *head.action, line);
  return std::move(completer.texts);
}

std::string LineTextOf(const ScriptLine& line, const ComparisonRow* comparison) {
  ScriptLine record = line;  // the walk is shared with the reader, which fills it
  LinePrinter printer(comparison);
  int indentation = kLineIndentation;
  if (const StartRow* start = FindStart(line.LineKind)) {
    printer.text = start->caption;
    indentation = start->indentation;
  } else if (line.LineKind == kConditionLine) {
    const ConditionRow* condition =
        printer.Pick(std::span<const ConditionRow>(kConditions), record.LineSubject, "condition");
    if (condition != nullptr) WalkCondition(printer, *condition, record);
  } else if (line.LineKind == kActionLine) {
    const ActionRow* action =
        printer.Pick(std::span<const ActionRow>(kActions), record.LineCode, "action");
    if (action != nullptr) WalkAction(printer, *action, record);
  } else if (line.LineKind == kLabelLine || line.LineKind == kCommentLine) {
    printer.text = line.LineName;
    indentation = kNameIndentation;
  } else {
    printer.text = "(no name: line kind " + std::to_string(line.LineKind) + ')';
  }
  const std::string text = Indented(indentation, printer.text);
  return std::string(CutAtCharacter(text, kLineTextSize));
}

void FinishLine(ScriptLine& line, const ComparisonRow* comparison) {
  if (line.LineKind == kActionLine) NameGroupValue(line);
  line.LineText = LineTextOf(line, comparison);
}

bool LooksLikeScriptFile(std::string_view bytes) {
  return bytes.starts_with("Feltmaster AutoBets") || bytes.starts_with("Feltking AutoBets");
}

}  // namespace feltmaster
