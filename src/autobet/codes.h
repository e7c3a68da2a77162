#pragma once

#include <cstdint>

// The codes that script lines hold. Their numbers are part of the .bet file format.
namespace feltmaster {

// LineSubject of a condition line. Subjects 1 to 88 are the bets; 2000 + r asks for roll event r.
enum ConditionCode : std::int32_t {
  kAnyFirst = 1000,    // "Any" subjects: first to first + 99
  kAllFirst = 1100,    // "All" subjects
  kTotalFirst = 1200,  // "Total" subjects
  kTotalLast = 1299,
  kOnEachRoll = 1300,
  kNextIsComeOut = 1301,
  kLastWasComeOut = 1302,
  kPointEstablished = 1303,
  kPointDecidedFor = 1304,
  kPointDecidedAgainst = 1305,
  kPointNotEstablished = 1306,
  kAnswerWasYes = 1307,
  kAnswerWasNo = 1308,
  kNextIsNotComeOut = 1309,
  kLastWasNotComeOut = 1310,
  kGameRolls = 1311,
  kShooterRolls = 1312,
  kOnEachPass = 1313,
  kGamePasses = 1314,
  kShooterPasses = 1315,
  kOnEachMiss = 1316,
  kGameMisses = 1317,
  kShooterMisses = 1318,
  kPointDecided = 1322,
  kLastShooterRolls = 1323,
  kLastShooterPasses = 1324,
  kLastShooterMisses = 1325,
  kBankrollSubject = 1400,
  kAverageBankroll = 1401,
  kHighestBankroll = 1402,  // value of an action only
  kLowestBankroll = 1403,   // value of an action only
  kSimulatedHours = 1405,
  kAvailableBankroll = 1410,
  kFlagSubject = 1500,
  kAnyFlag = 1501,
  kAllFlags = 1502,
  kTrueFlags = 1503,
  kFalseFlags = 1504,
  kStackSubject = 1600,
  kStackReference = 1601,
  kAllStacksTarget = 1602,  // target of an action only
  kDecidedWagersCount = 1700,
  kDecidedWagersAmount = 1701,
  kCurrentWagersCount = 1702,
  kCurrentWagersAmount = 1703,
  kLayOnPoint = 1800,
  kComeOnPoint = 1803,
  kComeOddsOnPoint = 1804,
  kPlaceOnPoint = 1805,
  kBuyOnPoint = 1806,
  kRollEventFirst = 2000,
  kInitializing = 9999,
};

// What an Any, All or Total subject ranges over: the code less its first.
enum SubjectRange : std::int32_t {
  kRangeBets = 1,
  kRangeLay = 2,
  kRangeCome = 5,
  kRangeComeOdds = 6,
  kRangePlace = 7,
  kRangeBuy = 8,
  kRangeStacks = 20,
};

// LineCode of a condition line.
enum ComparisonCode : std::int32_t {
  kHasWon = 1,
  kHasWonMore = 2,
  kHasLost = 3,
  kHasLostMore = 4,
  kHasRolled = 5,
  kHasRolledMore = 6,
  kHasNotRolled = 7,
  kHasRolledLess = 8,
  kHasRolledInLast = 9,
  kHasNotRolledInLast = 10,
  kEqualAmount = 11,
  kNotEqualAmount = 12,
  kGreaterAmount = 13,
  kNotGreaterAmount = 14,
  kLessAmount = 15,
  kNotLessAmount = 16,
  kEqualThing = 17,
  kNotEqualThing = 18,
  kGreaterThing = 19,
  kNotGreaterThing = 20,
  kLessThing = 21,
  kNotLessThing = 22,
  kNumberIs = 23,
  kNumberMore = 24,
  kNumberLess = 25,
  kIsNamed = 26,
  kIsNotNamed = 27,
  kHasNotWon = 60,
  kHasWonLess = 61,
  kHasNotLost = 62,
  kHasLostLess = 63,
};

// LineCode of an action line. Codes 10 to 58 are a verb (tens) and an operand form (last digit).
enum ActionVerb : std::int32_t { kBet = 1, kAdd = 2, kSubtract = 3, kMultiply = 4, kDivide = 5 };
enum OperandForm : std::int32_t {
  kFormAmount = 0,
  kFormPercent = 1,
  kFormPercentOfLast = 2,
  kFormHighest = 3,
  kFormHighestOfLast = 4,
  kFormLowest = 5,
  kFormLowestOfLast = 6,
  kFormAverage = 7,
  kFormAverageOfLast = 8,
};
enum ActionCode : std::int32_t {
  kFirstVerbCode = 10,
  kLastVerbCode = 58,
  kActionBuyPlace = 70,
  kActionCallOff = 71,
  kActionCallOn = 72,
  kActionResetStreaks = 73,
  kActionResetRolls = 74,
  kActionStop = 75,
  kActionGosub = 76,
  kActionSetFlag = 77,
  kActionSetAllFlags = 78,
  kActionMessage = 79,
  kActionPlaySound = 80,
  kActionShowSteps = 81,
  kActionQuestion = 82,
  kActionInput = 83,
  kActionMessageValue = 84,
  kActionQuestionValue = 85,
  kActionReturn = 86,
  kActionNameStack = 87,
  kActionClearStackNames = 88,
  kActionNameStackReference = 89,
  kActionSetWinRule = 90,
  kActionSetFullOdds = 91,
  kActionWithdraw = 93,
  kActionWithdrawPercent = 94,
  kActionDeposit = 95,
  kActionDepositPercent = 96,
  kActionActivateProbability = 97,
  kActionDeactivateProbability = 98,
  kActionOpenAppend = 99,
  kActionOutputMessage = 100,
  kActionOutputValue = 101,
  kActionOutputNewLine = 102,
  kActionSelectRng = 103,
  kActionSelectRngValue = 104,
  kActionSeedClock = 105,
  kActionSeedNumber = 106,
  kActionSeedValue = 107,
  kActionOutputLastValue = 108,
  kActionRound = 109,
  kActionSetLossRule = 110,
  kActionSelectRngLastValue = 111,
  kActionSeedLastValue = 112,
  kActionOpenClear = 113,
  kActionCloseFile = 114,
  kActionGoTo = 117,
  kActionResetKeepStacks = 998,
  kActionResetTable = 999,
};

// Codes of the "of" list (values) and of the "to" list (targets), beside the bets 1 to 88 and the
// codes that conditions have too.
enum ListCode : std::int32_t {
  kListBets = 1000,
  kListLay = 1001,
  kListDontCome = 1002,      // values only, always 0
  kListDontComeOdds = 1003,  // values only, always 0
  kListCome = 1004,
  kListComeOdds = 1005,
  kListPlace = 1006,
  kListInsidePlace = 1007,
  kListOutsidePlace = 1008,
  kListBuy = 1009,
  kRoundUpTo = 1100,
  kRoundToNearest = 1101,
  kRoundDownTo = 1102,
  kAllTheNumbers = 2001,  // target of "Reset rolls"
};

}  // namespace feltmaster
