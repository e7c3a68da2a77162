#pragma once

#include <compare>
#include <cstdint>
#include <limits>
#include <stdexcept>

namespace feltmaster {

// Thrown when an amount leaves the range of 64 bits. Money never wraps.
struct MoneyOverflow : std::overflow_error {
  MoneyOverflow() : std::overflow_error("Overflow") {}
};

// Thrown by a quotient whose divisor is zero.
struct MoneyDivisionByZero : std::domain_error {
  MoneyDivisionByZero() : std::domain_error("Division by zero") {}
};

// An amount of money: a signed count of ten-thousandths. Sums are exact; products and quotients are
// exact in 128 bits and then rounded once, to nearest with ties to even. Nothing converts to or
// from floating point by itself.
class MoneyAmount {
 public:
  static constexpr std::int64_t kScale = 10'000;

  constexpr MoneyAmount() = default;
  constexpr explicit MoneyAmount(int whole) : raw_(std::int64_t{whole} * kScale) {}

  static constexpr MoneyAmount FromRaw(std::int64_t ten_thousandths) {
    MoneyAmount amount;
    amount.raw_ = ten_thousandths;
    return amount;
  }
  static constexpr MoneyAmount FromWhole(std::int64_t whole) {
    std::int64_t raw = 0;
    if (__builtin_mul_overflow(whole, kScale, &raw)) throw MoneyOverflow();
    return FromRaw(raw);
  }
  // Rounds to four places, ties to even; NaN and what does not fit throw MoneyOverflow.
  static MoneyAmount FromDouble(double value);

  constexpr std::int64_t Raw() const { return raw_; }
  constexpr double ToDouble() const { return static_cast<double>(raw_) / double{kScale}; }
  constexpr bool IsWhole() const { return raw_ % kScale == 0; }
  // The whole number at or below the amount, and the nearest one with ties to even.
  constexpr std::int64_t FloorWhole() const { return raw_ / kScale - (raw_ % kScale < 0 ? 1 : 0); }
  constexpr std::int64_t RoundWhole() const;

  constexpr auto operator<=>(const MoneyAmount&) const = default;

  constexpr MoneyAmount operator-() const { return MoneyAmount() - *this; }
  constexpr MoneyAmount operator+(MoneyAmount other) const {
    std::int64_t raw = 0;
    if (__builtin_add_overflow(raw_, other.raw_, &raw)) throw MoneyOverflow();
    return FromRaw(raw);
  }
  constexpr MoneyAmount operator-(MoneyAmount other) const {
    std::int64_t raw = 0;
    if (__builtin_sub_overflow(raw_, other.raw_, &raw)) throw MoneyOverflow();
    return FromRaw(raw);
  }
  constexpr MoneyAmount& operator+=(MoneyAmount other) { return *this = *this + other; }
  constexpr MoneyAmount& operator-=(MoneyAmount other) { return *this = *this - other; }

  // A whole number of times the amount; exact.
  constexpr MoneyAmount Times(std::int64_t count) const {
    std::int64_t raw = 0;
    if (__builtin_mul_overflow(raw_, count, &raw)) throw MoneyOverflow();
    return FromRaw(raw);
  }
  // One of so many equal parts, rounded to four places; throws MoneyDivisionByZero.
  constexpr MoneyAmount Shared(std::int64_t parts) const;

 private:
  std::int64_t raw_ = 0;
};
static_assert(sizeof(MoneyAmount) == 8);

namespace money_internal {

// a * b / c rounded to nearest, ties to even. c must not be 0.
constexpr std::int64_t MultiplyDivide(std::int64_t a, std::int64_t b, std::int64_t c) {
  std::int64_t narrow = 0;
  if (!__builtin_mul_overflow(a, b, &narrow) &&
      !(narrow == std::numeric_limits<std::int64_t>::min() && c == -1)) {
    std::int64_t quotient = narrow / c;
    const std::int64_t rest = narrow % c;
    if (rest != 0) {
      const auto magnitude = [](std::int64_t v) {
        return v < 0 ? std::uint64_t{0} - static_cast<std::uint64_t>(v)
                     : static_cast<std::uint64_t>(v);
      };
      const std::uint64_t twice = magnitude(rest);
      const std::uint64_t size = magnitude(c);
      const std::uint64_t gap = size - twice;  // compares 2 * rest with c without overflow
      if (twice > gap || (twice == gap && (quotient & 1) != 0)) {
        quotient += (narrow < 0) == (c < 0) ? 1 : -1;
      }
    }
    return quotient;
  }
  const __int128 wide = static_cast<__int128>(a) * b;
  __int128 quotient = wide / c;
  const __int128 rest = wide % c;
  if (rest != 0) {
    const __int128 twice = (rest < 0 ? -rest : rest) * 2;
    const __int128 size = c < 0 ? -static_cast<__int128>(c) : static_cast<__int128>(c);
    if (twice > size || (twice == size && (quotient & 1) != 0)) {
      quotient += (wide < 0) == (c < 0) ? 1 : -1;
    }
  }
  if (quotient > std::numeric_limits<std::int64_t>::max() ||
      quotient < std::numeric_limits<std::int64_t>::min()) {
    throw MoneyOverflow();
  }
  return static_cast<std::int64_t>(quotient);
}

}  // namespace money_internal

constexpr std::int64_t MoneyAmount::RoundWhole() const {
  return money_internal::MultiplyDivide(raw_, 1, kScale);
}

// The product of two amounts, rounded to four places.
constexpr MoneyAmount Product(MoneyAmount a, MoneyAmount b) {
  return MoneyAmount::FromRaw(
      money_internal::MultiplyDivide(a.Raw(), b.Raw(), MoneyAmount::kScale));
}

// a / b rounded to four places; throws MoneyDivisionByZero.
constexpr MoneyAmount Quotient(MoneyAmount a, MoneyAmount b) {
  if (b.Raw() == 0) throw MoneyDivisionByZero();
  return MoneyAmount::FromRaw(
      money_internal::MultiplyDivide(a.Raw(), MoneyAmount::kScale, b.Raw()));
}

constexpr MoneyAmount MoneyAmount::Shared(std::int64_t parts) const {
  if (parts == 0) throw MoneyDivisionByZero();
  return FromRaw(money_internal::MultiplyDivide(raw_, 1, parts));
}

// a * b / c with one rounding at the end, where the rule does not round the product by itself.
constexpr MoneyAmount Ratio(MoneyAmount a, MoneyAmount b, MoneyAmount c) {
  if (c.Raw() == 0) throw MoneyDivisionByZero();
  return MoneyAmount::FromRaw(money_internal::MultiplyDivide(a.Raw(), b.Raw(), c.Raw()));
}

constexpr MoneyAmount Abs(MoneyAmount amount) {
  return amount.Raw() < 0 ? -amount : amount;
}

// Whole multiples of a unit. The unit must not be 0.
constexpr bool IsMultipleOf(MoneyAmount amount, MoneyAmount unit) {
  if (unit.Raw() == 0) throw MoneyDivisionByZero();
  // Most bets fit 32 bits, whose division takes half as long or less on many processors.
  if (((amount.Raw() | unit.Raw()) >> 32) == 0) {
    return static_cast<std::uint32_t>(amount.Raw()) % static_cast<std::uint32_t>(unit.Raw()) == 0;
  }
  return unit.Raw() == -1 || amount.Raw() % unit.Raw() == 0;
}
// Int(amount / unit), rounding toward minus infinity.
constexpr std::int64_t UnitsIn(MoneyAmount amount, MoneyAmount unit) {
  if (unit.Raw() == 0) throw MoneyDivisionByZero();
  if (unit.Raw() == -1) return (-amount).Raw();
  const std::int64_t quotient = amount.Raw() / unit.Raw();
  const std::int64_t rest = amount.Raw() % unit.Raw();
  return quotient - (rest != 0 && (rest < 0) != (unit.Raw() < 0) ? 1 : 0);
}
// unit * Int(amount / unit).
constexpr MoneyAmount FloorToUnit(MoneyAmount amount, MoneyAmount unit) {
  return unit.Times(UnitsIn(amount, unit));
}

namespace money_literals {
constexpr MoneyAmount operator""_usd(unsigned long long whole) {
  return MoneyAmount::FromWhole(static_cast<std::int64_t>(whole));
}
// Exact to four places: the literal's digits are the amount.
constexpr MoneyAmount operator""_usd(long double value) {
  return MoneyAmount::FromRaw(static_cast<std::int64_t>(value * 10'000.0L + 0.5L));
}
}  // namespace money_literals

}  // namespace feltmaster
