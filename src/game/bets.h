#pragma once

#include <array>
#include <string>
#include <string_view>

namespace feltmaster {

// The bet positions. Their numbers are part of the file formats and of every script; the order of
// the numbers is the order of all loops over bets.
inline constexpr int kBetCount = 88;
inline constexpr int kSlotCount = 10;  // number slots: the totals 2 3 4 5 6 8 9 10 11 12

// First position of each family; the position on a number is the first one plus the number slot.
inline constexpr int kLay = 1;
inline constexpr int kComePoint = 11;  // a Come bet that has travelled to its number
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
inline constexpr int kHop13 = 72;
inline constexpr int kHop14 = 73;
inline constexpr int kHop15 = 74;
inline constexpr int kHop16 = 75;
inline constexpr int kHop22 = 76;
inline constexpr int kHop23 = 77;
inline constexpr int kHop24 = 78;
inline constexpr int kHop25 = 79;
inline constexpr int kHop26 = 80;
inline constexpr int kHop33 = 81;
inline constexpr int kHop34 = 82;
inline constexpr int kHop35 = 83;
inline constexpr int kHop36 = 84;
inline constexpr int kHop44 = 85;
inline constexpr int kHop45 = 86;
inline constexpr int kHop46 = 87;
inline constexpr int kHop55 = 88;

// Slots of BetAmount beside the bets.
inline constexpr int kBankroll = 0;
inline constexpr int kRail = 93;
inline constexpr int kFirstChip = 95;  // five denominations, smallest first; the first is the unit
inline constexpr int kChipCount = 5;
inline constexpr int kLastChip = kFirstChip + kChipCount - 1;
inline constexpr int kFirstStack = 100;  // 100 + n is Chip-Stack n
inline constexpr int kStackCount = 100;
inline constexpr int kLastStack = kFirstStack + kStackCount - 1;
inline constexpr int kAmountSlots = 201;  // 0 to 200

inline constexpr std::array<int, kSlotCount> kNumbers = {2, 3, 4, 5, 6, 8, 9, 10, 11, 12};

// 2 to 12 but 7; other totals have no slot.
constexpr int SlotOfNumber(int total) {
  return total < 7 ? total - 2 : total - 3;
}
constexpr int NumberOfSlot(int slot) {
  return kNumbers[static_cast<std::size_t>(slot)];
}

constexpr bool IsInFamily(int bet, int first) {
  return bet >= first && bet < first + kSlotCount;
}
constexpr bool IsLay(int bet) {
  return IsInFamily(bet, kLay);
}
constexpr bool IsComePoint(int bet) {
  return IsInFamily(bet, kComePoint);
}
constexpr bool IsComeOdds(int bet) {
  return IsInFamily(bet, kComeOdds);
}
constexpr bool IsPlace(int bet) {
  return IsInFamily(bet, kPlace);
}
constexpr bool IsBuy(int bet) {
  return IsInFamily(bet, kBuy);
}
// Whether the house takes a vig of the bet: the two families of Lay and Buy. A look into a table,
// as every decision and every request asks.
inline constexpr std::array<bool, kAmountSlots> kHasVig = [] {
  std::array<bool, kAmountSlots> has_vig{};
  for (int bet = 0; bet < kAmountSlots; ++bet) {
    has_vig[static_cast<std::size_t>(bet)] = IsLay(bet) || IsBuy(bet);
  }
  return has_vig;
}();
constexpr bool HasVig(int slot) {
  return kHasVig[static_cast<std::size_t>(slot)];
}
constexpr bool IsLayoutBet(int bet) {
  return bet >= 1 && bet <= kBetCount;
}
constexpr bool IsChipStack(int slot) {
  return slot >= kFirstStack && slot <= kLastStack;
}
// The Chip-Stacks and the slot behind them, which has no name and no place on the screens but takes
// part in a script's "all Chip-Stacks".
constexpr bool IsStackSlot(int slot) {
  return slot >= kFirstStack && slot < kAmountSlots;
}

// The position of a family on a total (any but 7).
constexpr int BetOnNumber(int family, int total) {
  return family + SlotOfNumber(total);
}

inline constexpr int kBetNames = 105;  // BetName has the bounds 0 to 104
inline constexpr std::array<std::string_view, kBetNames> kBetName = {
    "",
    "Lay 2",
    "Lay 3",
    "Lay 4",
    "Lay 5",
    "Lay 6",
    "Lay 8",
    "Lay 9",
    "Lay 10",
    "Lay 11",
    "Lay 12",
    "Come 2",
    "Come 3",
    "Come 4",
    "Come 5",
    "Come 6",
    "Come 8",
    "Come 9",
    "Come 10",
    "Come 11",
    "Come 12",
    "Come 2 Odds",
    "Come 3 Odds",
    "Come 4 Odds",
    "Come 5 Odds",
    "Come 6 Odds",
    "Come 8 Odds",
    "Come 9 Odds",
    "Come 10 Odds",
    "Come 11 Odds",
    "Come 12 Odds",
    "Place 2",
    "Place 3",
    "Place 4",
    "Place 5",
    "Place 6",
    "Place 8",
    "Place 9",
    "Place 10",
    "Place 11",
    "Place 12",
    "Buy 2",
    "Buy 3",
    "Buy 4",
    "Buy 5",
    "Buy 6",
    "Buy 8",
    "Buy 9",
    "Buy 10",
    "Buy 11",
    "Buy 12",
    "Pass Line",
    "Pass Line Odds",
    "Come",
    "Field",
    "Big 6",
    "Big 8",
    "Hard 4",
    "Hard 6",
    "Hard 8",
    "Hard 10",
    "Two",
    "Three",
    "Seven",
    "Eleven",
    "Twelve",
    "Craps",
    "C and E",
    "Horn",
    "World",
    "Over 7",
    "Under 7",
    "Hop 1-3",
    "Hop 1-4",
    "Hop 1-5",
    "Hop 1-6",
    "Hop 2-2",
    "Hop 2-3",
    "Hop 2-4",
    "Hop 2-5",
    "Hop 2-6",
    "Hop 3-3",
    "Hop 3-4",
    "Hop 3-5",
    "Hop 3-6",
    "Hop 4-4",
    "Hop 4-5",
    "Hop 4-6",
    "Hop 5-5",
    "",
    "",
    "",
    "",
    "Rail",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "Chip-Stack # 1",
    "Chip-Stack # 2",
    "Chip-Stack # 3",
    "Chip-Stack # 4",
};

// The number of the bet of that name (case is ignored), or 0.
int BetNumberOfName(std::string_view name);

}  // namespace feltmaster
