#pragma once

#include <array>
#include <cstdint>

#include "base/money.h"
#include "game/bet_sets.h"

namespace feltmaster {

enum AutoAdjust : std::int32_t { kAdjustManually = 0, kMinorCorrection = 1, kColorCorrection = 2 };
enum Bias : std::int32_t { kNearest = 0, kIncrease = 1, kDecrease = 2 };

// Rules for decided bets. 0 asks; from 1 on see engine/handle_bet.h.
inline constexpr std::int32_t kHandleManually = 0;
inline constexpr std::int32_t kHandleRules = 8;

// The eight stored settings of "Same Bet:" and "Bet:" options, numbered from 5.
enum HandleOption : std::int32_t {
  kDialogWonSame = 5,
  kDialogWonBet = 6,
  kDialogLostSame = 7,
  kDialogLostBet = 8,
  kAutoWonSame = 9,
  kAutoLostSame = 10,
  kAutoWonBet = 11,
  kAutoLostBet = 12,
};
inline constexpr std::int32_t kFirstHandleOption = 5;

// What stops Auto-Roll, by the position in its list; kStopOnTotal gives the "any" rows.
inline constexpr std::int32_t kStopOnWin = 0;
inline constexpr std::int32_t kStopOnLoss = 1;
inline constexpr std::int32_t kAutoStops = 17;

struct AutoPlaySettings {
  std::int32_t HandleWinningBets = kHandleManually;
  std::int32_t HandleLosingBets = 1;
  // By option less 5.
  std::array<std::int32_t, 8> HandleChoiceTag{};  // 0 "+", 1 "-", 2 "x", 3 "/"
  std::array<MoneyAmount, 8> HandleAmount{};
  std::array<MoneyAmount, 8> HandleUnits{};  // 0 "$", 1 "%", 2 to 6 the chip of slot 93 + units
  std::int32_t LastWinChoice = 0;
  std::int32_t LastLossChoice = 0;

  std::int32_t AutoAdjustBetAmounts = kColorCorrection;
  std::int32_t LayBias = kNearest;
  std::int32_t PlaceBias = kIncrease;
  std::int32_t DoBias = kNearest;

  bool AutoTakeFullOdds = false;
  bool AutoRemovePlaceBets = false;
  bool AutoArrangeChips = false;

  bool AutoRollDice = false;
  std::int32_t NumAutoRolls = 0;  // 0 means no limit
  std::int32_t AutoRollsRemaining = 0;
  std::int32_t AutoRollDelay = 0;  // seconds, 0 to 99
  std::array<bool, kAutoStops> AutoStopOn{};

  BetSet WorkOnComeOut;  // bets 0 to 100
};

}  // namespace feltmaster
