#pragma once

#include <array>
#include <cstdint>

#include "game/bet_sets.h"
#include "game/bets.h"
#include "stats/roll_events.h"

namespace feltmaster {

// How a roll touches a bet.
enum ResolveMode : std::int8_t {
  kOddsLose = -2,
  kLoses = -1,
  kTravels = 0,  // the Come box moves to the number
  kWins = 1,
  kOddsWin = 2,
};

struct Decision {
  std::uint8_t bet = 0;
  std::int8_t mode = 0;
};

// The bets that one roll decides, in the order in which they are settled.
struct RollDecisionList {
  std::uint8_t count = 0;
  std::array<Decision, kBetCount + 1> list{};
  std::array<std::uint8_t, kBetCount + 1>
      place{};  // of each bet in the list, from 1; 0 not decided
  BetSet bets;

  constexpr void Add(int bet, int mode) {
    list[count] = {static_cast<std::uint8_t>(bet), static_cast<std::int8_t>(mode)};
    place[static_cast<std::size_t>(bet)] = ++count;
    bets.Add(bet);
  }
  constexpr int ModeOf(int bet) const {
    return list[static_cast<std::size_t>(place[static_cast<std::size_t>(bet)]) - 1].mode;
  }
};

// What the point was when the roll began.
enum PointState : std::uint8_t { kComeOutRoll = 0, kPointStands = 1, kPointRolled = 2 };
inline constexpr int kPointStates = 3;

namespace roll_table_internal {

// The Hop bet on a pair; 0 for the pairs that are Two, Three, Eleven and Twelve.
constexpr int HopBet(int die1, int die2) {
  constexpr std::array<std::array<std::uint8_t, 6>, 6> kHop = {{
      {0, 0, kHop13, kHop14, kHop15, kHop16},
      {0, kHop22, kHop23, kHop24, kHop25, kHop26},
      {kHop13, kHop23, kHop33, kHop34, kHop35, kHop36},
      {kHop14, kHop24, kHop34, kHop44, kHop45, kHop46},
      {kHop15, kHop25, kHop35, kHop45, kHop55, 0},
      {kHop16, kHop26, kHop36, kHop46, 0, 0},
  }};
  return kHop[static_cast<std::size_t>(die1 - 1)][static_cast<std::size_t>(die2 - 1)];
}

constexpr void AddSeven(RollDecisionList& roll, bool come_out) {
  roll.Add(kBig6, kLoses);
  roll.Add(kBig8, kLoses);
  for (int bet = kHard4; bet <= kHard10; ++bet) roll.Add(bet, kLoses);
  for (int bet = kPlace; bet < kBuy + kSlotCount; ++bet) roll.Add(bet, kLoses);
  for (int slot = 0; slot < kSlotCount; ++slot) {
    roll.Add(kComePoint + slot, kLoses);
    roll.Add(kComeOdds + slot, kOddsLose);
  }
  roll.Add(kPassLine, come_out ? kWins : kLoses);
  if (!come_out) roll.Add(kPassOdds, kOddsLose);
  for (int bet = kLay; bet < kLay + kSlotCount; ++bet) roll.Add(bet, kWins);
  roll.Add(kComeBox, kWins);
  roll.Add(kSeven, kWins);
  roll.Add(kWorld, kWins);
}

constexpr void AddNumber(RollDecisionList& roll, int total, bool pair) {
  const int slot = SlotOfNumber(total);
  roll.Add(kLay + slot, kLoses);
  roll.Add(kComePoint + slot, kWins);
  roll.Add(kComeOdds + slot, kOddsWin);
  roll.Add(kPlace + slot, kWins);
  roll.Add(kBuy + slot, kWins);
  const auto hard = [&](int bet) { roll.Add(bet, pair ? kWins : kLoses); };
  switch (total) {
    case 2:
      roll.Add(kTwo, kWins);
      break;
    case 3:
      roll.Add(kThree, kWins);
      break;
    case 4:
      hard(kHard4);
      break;
    case 6:
      roll.Add(kBig6, kWins);
      hard(kHard6);
      break;
    case 8:
      roll.Add(kBig8, kWins);
      hard(kHard8);
      break;
    case 10:
      hard(kHard10);
      break;
    case 11:
      roll.Add(kEleven, kWins);
      break;
    case 12:
      roll.Add(kTwelve, kWins);
      break;
    default:
      break;
  }
  const bool craps = total == 2 || total == 3 || total == 12;
  if (craps) roll.Add(kCraps, kWins);
  if (craps || total == 11) {
    for (const int bet : {kCAndE, kHorn, kWorld}) roll.Add(bet, kWins);
  }
}

constexpr RollDecisionList DecisionsOf(int pair, PointState state) {
  RollDecisionList roll;
  const int die1 = FirstDie(pair);
  const int die2 = SecondDie(pair);
  const int total = die1 + die2;
  if (state == kPointRolled && total != 7) {
    roll.Add(kPassLine, kWins);
    roll.Add(kPassOdds, kOddsWin);
  }
  if (total == 7) {
    AddSeven(roll, state == kComeOutRoll);
  } else {
    AddNumber(roll, total, die1 == die2);
  }
  const int hop = HopBet(die1, die2);
  if (hop != 0) roll.Add(hop, kWins);
  if (total != 7) roll.Add(kComeBox, kTravels);
  roll.Add(kField, kWins);

  // The one-roll bets that missed.
  for (int bet = kTwo; bet <= kHop55; ++bet) {
    if (bet == kOver7) {
      roll.Add(bet, total > 7 ? kWins : kLoses);
    } else if (bet == kUnder7) {
      roll.Add(bet, total < 7 ? kWins : kLoses);
    } else if (roll.place[static_cast<std::size_t>(bet)] == 0) {
      roll.Add(bet, kLoses);
    }
  }
  return roll;
}

}  // namespace roll_table_internal

// By the state of the point and the pair of dice.
inline constexpr std::array<std::array<RollDecisionList, kDicePairs>, kPointStates> kRollTable =
    [] {
      std::array<std::array<RollDecisionList, kDicePairs>, kPointStates> table{};
      for (int state = 0; state < kPointStates; ++state) {
        for (int pair = 0; pair < kDicePairs; ++pair) {
          table[static_cast<std::size_t>(state)][static_cast<std::size_t>(pair)] =
              roll_table_internal::DecisionsOf(pair, static_cast<PointState>(state));
        }
      }
      return table;
    }();

// The bets of each list by themselves: most rolls decide none that stands, and need no more.
inline constexpr std::array<std::array<BetSet, kDicePairs>, kPointStates> kDecidedBets = [] {
  std::array<std::array<BetSet, kDicePairs>, kPointStates> table{};
  for (std::size_t state = 0; state < kPointStates; ++state) {
    for (std::size_t pair = 0; pair < kDicePairs; ++pair) {
      table[state][pair] = kRollTable[state][pair].bets;
    }
  }
  return table;
}();

constexpr PointState PointStateOf(int point_before, int total) {
  return point_before == 0 ? kComeOutRoll : point_before == total ? kPointRolled : kPointStands;
}

}  // namespace feltmaster
