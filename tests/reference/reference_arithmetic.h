#pragma once

#include "reference/reference_table.h"

namespace reference {

using Wide = __int128;

inline Wide FloorDivide(Wide a, Wide b) {
  Wide quotient = a / b;
  if (a % b != 0 && (a < 0) != (b < 0)) --quotient;
  return quotient;
}

// a / b to the nearest whole number, ties to even.
inline Raw Nearest(Wide a, Wide b) {
  if (b < 0) {
    a = -a;
    b = -b;
  }
  const Wide below = FloorDivide(a, b);
  const Wide twice_rest = (a - below * b) * 2;
  const bool up = twice_rest > b || (twice_rest == b && below % 2 != 0);
  return static_cast<Raw>(up ? below + 1 : below);
}

// The product of two amounts as an amount.
inline Raw Times(Raw a, Raw b) {
  return Nearest(Wide{a} * b, kOne);
}
// a * b / c, all amounts, rounded once.
inline Raw TimesOver(Raw a, Raw b, Raw c) {
  return Nearest(Wide{a} * b, c);
}
// The largest multiple of the unit that is not above the amount.
inline Raw FloorTo(Raw amount, Raw unit) {
  return static_cast<Raw>(FloorDivide(amount, unit) * unit);
}

// Bet positions by family and slot: the totals 2, 3, 4, 5, 6, 8, 9, 10, 11, 12.
inline constexpr int kLay = 1;
inline constexpr int kCome = 11;
inline constexpr int kComeOdds = 21;
inline constexpr int kPlace = 31;
inline constexpr int kBuy = 41;
inline constexpr int kPassLine = 51;
inline constexpr int kPassOdds = 52;
inline constexpr int kComeBox = 53;
inline constexpr int kField = 54;
inline constexpr int kBig6 = 55;
inline constexpr int kBig8 = 56;
inline constexpr int kHard4 = 57;
inline constexpr int kHard6 = 58;
inline constexpr int kHard8 = 59;
inline constexpr int kHard10 = 60;
inline constexpr int kTwo = 61;
inline constexpr int kThree = 62;
inline constexpr int kSeven = 63;
inline constexpr int kEleven = 64;
inline constexpr int kTwelve = 65;
inline constexpr int kCraps = 66;
inline constexpr int kCAndE = 67;
inline constexpr int kHorn = 68;
inline constexpr int kWorld = 69;
inline constexpr int kOver7 = 70;
inline constexpr int kUnder7 = 71;
inline constexpr int kFirstHop = 72;
inline constexpr int kLastBet = 88;

inline int Slot(int total) {
  return total < 7 ? total - 2 : total - 3;
}
inline bool IsLay(int bet) {
  return bet >= 1 && bet <= 10;
}
inline bool IsCome(int bet) {
  return bet >= 11 && bet <= 20;
}
inline bool IsComeOdds(int bet) {
  return bet >= 21 && bet <= 30;
}
inline bool IsPlace(int bet) {
  return bet >= 31 && bet <= 40;
}
inline bool IsBuy(int bet) {
  return bet >= 41 && bet <= 50;
}

}  // namespace reference
