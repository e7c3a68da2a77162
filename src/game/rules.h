#pragma once

#include <array>
#include <cstdint>

#include "base/money.h"

namespace feltmaster {

// What `denominator` staked wins net: amount * numerator / denominator. A "for" ratio is stored net
// as well; only its display adds the denominator.
struct PayRow {
  MoneyAmount PayNumerator = MoneyAmount(1);
  bool PayIsTo = true;
  MoneyAmount PayDenominator = MoneyAmount(1);

  bool operator==(const PayRow&) const = default;
};

inline constexpr int kPayRows = 101;   // rows 0 to 100; row 0 is scratch of the resolution
inline constexpr int kFieldRows = 22;  // rows 1 to 21, one for each unordered pair of dice

enum OddsMethod : std::int32_t {
  kAutoSelect = 0,
  kFlatNoPush = 1,
  kFlatMinorPush = 2,
  kFlatColorPush = 3,
  kFlatSingleOdds = 4,
  kSingleOddsTimes = 5,
};

enum VigRounding : std::int32_t { kRoundNormally = 0, kRoundDown = 1, kRoundUp = 2 };

enum BankrollInit : std::int32_t {
  kStartBankrollWith = 0,
  kPromptForBankroll = 1,
  kCarryBankroll = 2,
  kCarryBankrollAndNet = 3,
};

inline constexpr std::int64_t kBankLimit = 9'999'999;    // of the bankroll, both ways
inline constexpr std::int32_t kRollLimit = 100'000'000;  // rolls of one game

// The placard's limits rounded to betting units, with the numbers that they were worked out from:
// while those stand, nobody has to divide again.
struct PlacardLimits {
  MoneyAmount unit;  // 0: not worked out yet
  MoneyAmount min_placard;
  MoneyAmount max_placard;
  MoneyAmount minimum;
  MoneyAmount maximum;
};

// The house rules. The phantom wagers are counted by the rules in force: call SettlePhantoms
// (stats/bet_results.h) before any write to PayTable, FieldPayTable, the vig or AllowPutBets.
struct HouseRules {
  std::array<PayRow, kPayRows> PayTable{};
  std::array<PayRow, kFieldRows> FieldPayTable{};

  MoneyAmount MinPlacardBet = MoneyAmount(1);
  MoneyAmount MaxPlacardBet = MoneyAmount(1000);
  PlacardLimits Placard;
  MoneyAmount MaxOddsBet = MoneyAmount(2000);
  MoneyAmount MaxPropBetPayoff = MoneyAmount(3000);
  // By group: 2 and 12, 3 and 11, 4 and 10, 5 and 9, 6 and 8.
  std::array<MoneyAmount, 5> OddsAllowed = {MoneyAmount(2), MoneyAmount(2), MoneyAmount(2),
                                            MoneyAmount(2), MoneyAmount::FromRaw(25'000)};
  std::int32_t OddsCalcMethod = kAutoSelect;
  bool AllowPutBets = false;

  MoneyAmount LayVigPct = MoneyAmount::FromRaw(500);  // a fraction: 0.05 is 5 %
  MoneyAmount BuyVigPct = MoneyAmount::FromRaw(500);
  bool LayVigAllBets = true;
  bool BuyVigAllBets = true;
  std::int32_t LayVigRounding = kRoundNormally;
  std::int32_t BuyVigRounding = kRoundNormally;

  std::int32_t BankrollInitType = kStartBankrollWith;
  MoneyAmount BankrollInitAmount;
  bool AllowNegBankroll = true;
  MoneyAmount ATMAmount = MoneyAmount(500);
  MoneyAmount RollsPerHour = MoneyAmount(120);
};

}  // namespace feltmaster
