#pragma once

#include <array>
#include <cstdint>
#include <memory>

#include "base/money.h"

namespace feltmaster {

inline constexpr int kGraphRolls = 525;    // width of the bankroll graph
inline constexpr int kHistorySize = 1051;  // elements 0 to 1050
// Behind them the page before those two, which averages not computed yet may reach back to.
inline constexpr int kHistoryKept = kHistorySize + kGraphRolls;
inline constexpr int kGraphHeight = 300;
inline constexpr int kGraphsPerPage = 3;  // that a printed page has room for

struct Document;  // reports/document.h

struct BankrollState {
  MoneyAmount BankrollHigh;
  MoneyAmount BankrollLow;
  MoneyAmount BankrollSum;
  MoneyAmount AmountInvested;

  // 1 to 525 the bankroll after each roll of this page, 526 to 1050 the page before; element 0
  // holds the number of the page's first roll.
  std::array<MoneyAmount, kHistoryKept> BankrollHistory{};
  std::int32_t BankrollHistoryCount = 0;
  // The moving average at each position; read it through stats/bankroll_history.h, which first
  // computes the page before, if nobody has read it, and the positions after AveragesSettled.
  std::array<MoneyAmount, kGraphRolls + 1> BankrollAverages{};
  std::int32_t AveragesSettled = 0;
  std::int32_t HistoryRolls = 0;  // RollCounts(0) at the newest value of the history
  bool PageBeforeUnsettled = false;
  std::int32_t PageBeforeRolls = 0;  // HistoryRolls and BankrollSum at its end
  MoneyAmount PageBeforeSum;

  MoneyAmount GraphHigh;
  MoneyAmount GraphLow;
  MoneyAmount GraphScale = MoneyAmount(1);  // dollars a point of height
  MoneyAmount GraphManualScale = MoneyAmount(1);
  MoneyAmount GraphTop = MoneyAmount(150);
  std::int32_t GraphAdjustType = 2;  // 0 Manual, 1 Expanding, 2 Snap-back
  std::int32_t GraphStyle = 1;       // 0 Plain, 1 Striped, 2 Solid
  std::int32_t GraphColorScheme = 0;
  bool GraphGridLines = true;
  bool GraphRefLines = false;
  bool GraphShowAverage = true;
  std::int32_t GraphAverageRolls = 120;  // 0 means all rolls of the game
  bool GraphAutoPrint = false;
  std::int32_t GraphsPerPage = kGraphsPerPage;
  std::int32_t GraphsOnPage = 0;  // sent to the page that is open
  std::int32_t LastPrintedRoll = 0;
  std::shared_ptr<const Document> GraphPage;  // the page that is open; none when it is empty
  std::array<std::int32_t, 3> RefLineRoll = {0, 174, 349};
  std::array<std::int32_t, 3> RefLineLevel{};
  std::array<bool, 3> RefLineOnAverage{};

  std::int32_t ThrottleSetting = 0;  // 0 the fastest to 10
};

}  // namespace feltmaster
