#include "console/arguments.h"

#include <charconv>
#include <cmath>
#include <limits>

#include "base/text.h"
#include "engine/amounts.h"

namespace feltmaster {

namespace {

constexpr std::string_view kBlanks = " \t\r";
constexpr int kMoneyDecimals = 4;

bool IsBlank(char c) {
  return kBlanks.find(c) != std::string_view::npos;
}

template <typename T>
bool ReadNumber(std::string_view text, T& number) {
  const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), number);
  return fault == std::errc() && end == text.data() + text.size();
}

std::string Range(std::int64_t low, std::int64_t high) {
  return std::to_string(low) + " to " + std::to_string(high);
}

// A slot by its name: a bet, or a Chip-Stack as it is called anywhere.
int SlotOfName(const Game& game, std::string_view name) {
  if (const int bet = BetNumberOfName(name); bet != 0) return bet;
  for (int pile = 1; pile <= 4; ++pile) {
    const auto p = static_cast<std::size_t>(pile);
    if (EqualIgnoringCase(game.StackPileName[p], name)) return game.StackSlots[p];
  }
  for (int slot = kFirstStack; slot <= kLastStack; ++slot) {
    if (EqualIgnoringCase("Chip-Stack #" + std::to_string(slot - kFirstStack), name)) return slot;
  }
  return 0;
}

std::string IndexRange(const StateBounds& bounds) {
  if (bounds.last < bounds.first) return "the list is empty";
  return "it goes from " + Range(bounds.first, bounds.last);
}

}  // namespace

std::string Quoted(std::string_view text) {
  constexpr std::size_t kLongest = 60;
  std::string quoted = "\"";
  quoted += CutAtCharacter(text, kLongest);
  if (text.size() > kLongest) quoted += "...";
  return quoted + '"';
}

bool ReadAmount(std::string_view text, MoneyAmount& amount) {
  const bool negative = text.starts_with('-');
  if (negative) text.remove_prefix(1);
  const std::size_t point = text.find('.');
  const std::string_view whole = text.substr(0, point);
  std::string decimals(point == std::string_view::npos ? std::string_view()
                                                       : text.substr(point + 1));
  if (whole.empty() && decimals.empty()) return false;
  if (decimals.size() > kMoneyDecimals) return false;
  decimals.append(kMoneyDecimals - decimals.size(), '0');
  std::string digits(whole);
  digits += decimals;
  for (const char c : digits) {
    if (c < '0' || c > '9') return false;
  }
  std::int64_t raw = 0;
  if (!ReadNumber(std::string_view((negative ? "-" : "") + digits), raw)) return false;
  amount = MoneyAmount::FromRaw(raw);
  return true;
}

void Arguments::SkipBlanks() {
  while (!rest_.empty() && IsBlank(rest_.front())) rest_.remove_prefix(1);
}

bool Arguments::AtEnd() {
  SkipBlanks();
  return rest_.empty();
}

std::string_view Arguments::NextWord(bool& quoted) {
  SkipBlanks();
  quoted = rest_.starts_with('"');
  if (quoted) {
    const std::size_t end = rest_.find('"', 1);
    const std::string_view word = rest_.substr(1, end == std::string_view::npos ? end : end - 1);
    rest_.remove_prefix(end == std::string_view::npos ? rest_.size() : end + 1);
    return word;
  }
  std::size_t end = 0;
  while (end < rest_.size() && !IsBlank(rest_[end])) ++end;
  const std::string_view word = rest_.substr(0, end);
  rest_.remove_prefix(end);
  return word;
}

bool Arguments::Take(std::string_view word) {
  const std::string_view before = rest_;
  bool quoted = false;
  if (!Failed() && EqualIgnoringCase(NextWord(quoted), word) && !quoted) return true;
  rest_ = before;
  return false;
}

bool Arguments::NumberIsNext() {
  const std::string_view before = rest_;
  bool quoted = false;
  const std::string_view word = NextWord(quoted);
  rest_ = before;
  return !quoted && !word.empty() && word.find_first_not_of("0123456789") == std::string_view::npos;
}

std::string Arguments::Word(std::string_view what) {
  if (Failed()) return {};
  if (AtEnd()) {
    Fail(std::string(what) + " is missing.");
    return {};
  }
  bool quoted = false;
  return std::string(NextWord(quoted));
}

std::string Arguments::RawRest(std::string_view what) {
  if (Failed()) return {};
  if (AtEnd()) {
    Fail(std::string(what) + " is missing.");
    return {};
  }
  std::string_view text = rest_;
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  rest_ = {};
  return std::string(text);
}

std::string Arguments::Rest(std::string_view what) {
  const std::string text = RawRest(what);
  const bool in_quotes = text.size() >= 2 && text[0] == '"' && text.find('"', 1) == text.size() - 1;
  return in_quotes ? text.substr(1, text.size() - 2) : text;
}

std::int64_t Arguments::Number(std::string_view what, std::int64_t low, std::int64_t high) {
  const std::string word = Word(what);
  if (Failed()) return low;
  std::int64_t number = 0;
  if (!ReadNumber(std::string_view(word), number) || number < low || number > high) {
    Fail(std::string(what) + ' ' + Quoted(word) + " is not a whole number from " +
         Range(low, high) + '.');
    return low;
  }
  return number;
}

MoneyAmount Arguments::Amount(std::string_view what, bool may_be_negative) {
  constexpr std::int64_t kFieldLimit = 100'000'000'000'000;  // a money field takes 14 digits
  const std::string word = Word(what);
  if (Failed()) return {};
  MoneyAmount amount;
  if (!ReadAmount(word, amount)) {
    Fail(std::string(what) + ' ' + Quoted(word) + " is not an amount of money.");
  } else if (amount.Raw() < 0 && !may_be_negative) {
    Fail(std::string(what) + ' ' + Quoted(word) + " is negative.");
  } else if (amount > MoneyAmount::FromWhole(kFieldLimit) ||
             amount < MoneyAmount::FromWhole(-kFieldLimit)) {
    Fail(std::string(what) + ' ' + Quoted(word) + " is more than a money field holds.");
  }
  return Failed() ? MoneyAmount() : amount;
}

bool Arguments::Switch(std::string_view what) {
  const std::string word = Word(what);
  if (Failed()) return false;
  if (EqualIgnoringCase(word, "true") || word == "-1") return true;
  if (!EqualIgnoringCase(word, "false") && word != "0") {
    Fail(std::string(what) + ' ' + Quoted(word) + " is neither true nor false.");
  }
  return false;
}

double Arguments::Real(std::string_view what) {
  const std::string word = Word(what);
  if (Failed()) return 0;
  double number = 0;
  if (!ReadNumber(std::string_view(word), number) || !std::isfinite(number)) {
    Fail(std::string(what) + ' ' + Quoted(word) + " is not a number.");
    return 0;
  }
  return number;
}

int Arguments::BetOrStack(const Game& game, std::string_view what) {
  if (Failed()) return 1;
  if (AtEnd()) {
    Fail(std::string(what) + " is missing.");
    return 1;
  }
  bool quoted = false;
  const std::string_view word = NextWord(quoted);
  int slot = 0;
  if (quoted) {
    slot = SlotOfName(game, Trim(word));
    if (slot == 0) Fail(std::string(what) + ' ' + Quoted(word) + " is not the name of a bet.");
  } else if (!ReadNumber(word, slot) || !(IsLayoutBet(slot) || IsChipStack(slot))) {
    Fail(std::string(what) + ' ' + Quoted(word) + " is not a bet: bets are 1 to " +
         std::to_string(kBetCount) + ", Chip-Stacks " + Range(kFirstStack, kLastStack) +
         ", and names stand in double quotes.");
  }
  return Failed() ? 1 : slot;
}

int Arguments::LayoutBet(const Game& game, std::string_view what) {
  const int slot = BetOrStack(game, what);
  if (!Failed() && !IsLayoutBet(slot)) {
    Fail(std::string(what) + ' ' + std::to_string(slot) + " is not a bet of the layout, 1 to " +
         std::to_string(kBetCount) + '.');
    return 1;
  }
  return slot;
}

std::string Arguments::NameWord() {
  if (Failed()) return {};
  if (AtEnd()) {
    Fail("NAME is missing.");
    return {};
  }
  std::size_t end = 0;
  while (end < rest_.size() && !IsBlank(rest_[end]) && rest_[end] != '(') ++end;
  if (end < rest_.size() && rest_[end] == '(') end = rest_.find(')', end);
  end = end == std::string_view::npos ? rest_.size() : end;
  if (end < rest_.size() && rest_[end] == ')') ++end;
  const std::string word(rest_.substr(0, end));
  rest_.remove_prefix(end);
  return word;
}

const StateName* Arguments::Name(const Game& game, StateIndex& index, int& indices) {
  indices = 0;
  const std::string word = NameWord();
  if (Failed()) return nullptr;
  const std::size_t open = word.find('(');
  const std::string_view name = std::string_view(word).substr(0, open);
  const StateName* entry = FindStateName(name);
  if (entry == nullptr) {
    Fail("NAME " + Quoted(name) + " is not a name of the state record.");
    return nullptr;
  }
  if (open == std::string::npos) return entry;

  std::string_view list = std::string_view(word).substr(open + 1);
  const bool closed = list.ends_with(')');
  if (closed) list.remove_suffix(1);
  while (true) {
    const std::size_t comma = list.find(',');
    int number = 0;
    if (!closed || indices == entry->rank || !ReadNumber(Trim(list.substr(0, comma)), number)) {
      Fail("NAME " + Quoted(word) + " does not name an element: " + std::to_string(entry->rank) +
           (entry->rank == 1 ? " index belongs to it." : " indices belong to it."));
      return nullptr;
    }
    const StateBounds bounds = BoundsOf(game, *entry, indices);
    if (number < bounds.first || number > bounds.last) {
      Fail("The index " + std::to_string(number) + " of " + std::string(entry->name) +
           " is out of range: " + IndexRange(bounds) + '.');
      return nullptr;
    }
    index[static_cast<std::size_t>(indices++)] = number;
    if (comma == std::string_view::npos) return entry;
    list.remove_prefix(comma + 1);
  }
}

StateValue Arguments::Value(StateType type) {
  constexpr std::string_view kWhat = "VALUE";
  switch (type) {
    case StateType::kSwitch:
      return Switch(kWhat);
    case StateType::kWhole:
      return Number(kWhat, std::numeric_limits<std::int32_t>::min(),
                    std::numeric_limits<std::int32_t>::max());
    case StateType::kMoney: {
      const std::string word = Word(kWhat);
      MoneyAmount amount;
      if (!Failed() && !ReadAmount(word, amount)) {
        Fail("VALUE " + Quoted(word) + " is not an amount of money.");
      }
      return amount;
    }
    case StateType::kReal:
      return Real(kWhat);
    case StateType::kText:
      return Rest(kWhat);
    case StateType::kFlag:
      break;
  }
  Fail("VALUE cannot be a whole flag: set FlagName, FlagValue or FlagChanged.");
  return false;
}

void Arguments::End() {
  if (Failed() || AtEnd()) return;
  Fail("There is more than the command takes: " + Quoted(rest_) + '.');
}

void Arguments::Fail(std::string sentence) {
  if (error_.empty()) error_ = std::move(sentence);
}

}  // namespace feltmaster
