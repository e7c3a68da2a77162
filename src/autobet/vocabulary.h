#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "autobet/codes.h"
#include "game/bets.h"
#include "game/script.h"

// The vocabulary of scripts: every row of every list that a line is composed from, with its
// caption, its code and the operands that it needs, in the order in which the printed line shows
// them. Composing, the text form and its reader, the editor's pick lists and the help read these
// tables.
namespace feltmaster {

// What follows a caption in a line: an operand and the member of ScriptLine that holds it, or
// words.
enum class Field : std::uint8_t {
  kNone,
  kAmount,          // LineAmount
  kPositiveAmount,  // LineAmount without a sign
  kTimes,           // LineAmount, then "time" or "times"
  kTimesOrEach,     // the same; 0 is shown as "each"
  kRolls,           // LineAmount, then "roll" or "rolls"
  kStack,           // LineSubjectStack, a Chip-Stack number
  kAverage,         // LineSubjectStack, the rolls of a moving average; 0 is shown as "all"
  kFlag,            // LineName, a flag
  kLabel,           // LineName, a label
  kName,            // LineName, the name of a Chip-Stack that a condition asks for
  kText,            // LineName, a message, file or name; a ';' at its end stands outside the quotes
  kIsTrue,          // LineAmount -1 or 0 as "is True" or "is False"
  kAreTrue,         // "are True" or "are False"
  kToTrue,          // "to True" or "to False"
  kComparedWith,    // LineTarget, of kComparedThings
  kValue,           // LineSubject, of kValues
  kRounding,        // LineSubject, of kRoundings
  kTarget,          // LineTarget, of kTargets
  kPlaceTarget,     // LineTarget, of kPlaceTargets
  kRollTarget,      // LineTarget, of kRollTargets
  kWinRule,         // LineTarget, of kWinRules
  kLossRule,        // LineTarget, of kLossRules
  kWordPercentOf,
  kWordOn,
  kWordTo,
  kWordFrom,
  kWordAs,
  kWordFromAtm,
  kWordInAtm,
};

struct PickRow {
  std::int32_t code = 0;
  std::string_view caption = {};
};
using PickList = std::span<const PickRow>;

// Rows of listWhat.
struct ComparisonRow {
  std::int32_t code = 0;
  std::string_view caption = {};
  Field operand = Field::kNone;

  bool operator==(const ComparisonRow&) const = default;
};
using ComparisonList = std::span<const ComparisonRow>;

// Rows of listCondition. A condition without comparisons is complete with its fields.
struct ConditionRow {
  std::int32_t code = 0;
  std::string_view caption = {};
  std::string_view shown = {};  // what the line shows in place of the caption, if anything
  std::array<Field, 2> fields{};
  std::array<ComparisonList, 3> comparisons{};  // one behind the other make the list
};

// Rows of listAction.
struct ActionRow {
  std::int32_t code = 0;
  std::string_view caption = {};
  std::array<Field, 5> fields{};
};

// Rows of listStartCondition and listStartAction.
struct StartRow {
  std::int32_t kind = 0;
  std::string_view caption = {};
  int indentation = 0;
};

inline constexpr std::array<StartRow, 11> kStartRows = {{
    {kWhen, "When . . .", 1},
    {kWhile, "While . . .", 1},
    {kAndWhen, "and when . . .", 10},
    {kAndWhile, "and while . . .", 10},
    {kOrWhen, "or when . . .", 5},
    {kOrWhile, "or while . . .", 5},
    {kXorWhen, "xor when . . .", 5},
    {kXorWhile, "xor while . . .", 5},
    {kThen, "then . . .", 1},
    {kElse, "else . . .", 5},
    {kDoThis, "Do this . . .", 1},
}};
inline constexpr int kLineIndentation = 10;  // of conditions and actions
inline constexpr int kNameIndentation = 1;   // of labels and comments

namespace vocabulary_internal {

template <typename Row, std::size_t... kSizes>
constexpr auto Join(const std::array<Row, kSizes>&... parts) {
  std::array<Row, (kSizes + ...)> all{};
  std::size_t filled = 0;
  const auto append = [&](const auto& part) {
    for (const Row& row : part) all[filled++] = row;
  };
  (append(parts), ...);
  return all;
}

template <int kCount>
constexpr std::array<PickRow, kCount> BetRows(int first) {
  std::array<PickRow, kCount> rows{};
  for (int i = 0; i < kCount; ++i) {
    rows[static_cast<std::size_t>(i)] = {first + i, kBetName[static_cast<std::size_t>(first + i)]};
  }
  return rows;
}

constexpr std::int32_t Any(SubjectRange range) {
  return std::int32_t{kAnyFirst} + std::int32_t{range};
}
constexpr std::int32_t All(SubjectRange range) {
  return std::int32_t{kAllFirst} + std::int32_t{range};
}
constexpr std::int32_t Total(SubjectRange range) {
  return std::int32_t{kTotalFirst} + std::int32_t{range};
}

inline constexpr std::array<PickRow, 5> kShootersPointRows = {{
    {kLayOnPoint, "Lay (shooter's point)"},
    {kComeOnPoint, "Come (shooter's point)"},
    {kComeOddsOnPoint, "Come Odds (shooter's point)"},
    {kPlaceOnPoint, "Place (shooter's point)"},
    {kBuyOnPoint, "Buy (shooter's point)"},
}};

inline constexpr std::array<PickRow, 2> kStackRows = {{
    {kStackSubject, "Chip-Stack #"},
    {kStackReference, "Chip-Stack ref #"},
}};

inline constexpr std::array<PickRow, 21> kRangeRows = {{
    {Any(kRangeBets), "Any bet"},
    {Any(kRangeLay), "Any Lay bet"},
    {Any(kRangeCome), "Any Come bet"},
    {Any(kRangeComeOdds), "Any Come Odds bet "},
    {Any(kRangePlace), "Any Place bet"},
    {Any(kRangeBuy), "Any Buy bet"},
    {Any(kRangeStacks), "Any Chip-Stack"},
    {All(kRangeBets), "All bets"},
    {All(kRangeLay), "All Lay bets"},
    {All(kRangeCome), "All Come bets"},
    {All(kRangeComeOdds), "All Come Odds bets"},
    {All(kRangePlace), "All Place bets"},
    {All(kRangeBuy), "All Buy bets"},
    {All(kRangeStacks), "All Chip-Stacks"},
    {Total(kRangeBets), "Total bets"},
    {Total(kRangeLay), "Total Lay bets"},
    {Total(kRangeCome), "Total Come bets"},
    {Total(kRangeComeOdds), "Total Come Odds bets"},
    {Total(kRangePlace), "Total Place bets"},
    {Total(kRangeBuy), "Total Buy bets"},
    {Total(kRangeStacks), "Total Chip-Stacks"},
}};

inline constexpr std::array<PickRow, 88> kRollEventRows = {{
    {2002, "Number 2 (1-1)"},
    {2022, "Number 3 (1-2)"},
    {2023, "Number 3 (2-1)"},
    {2003, "Number 3 (1-2) or (2-1)"},
    {2024, "Number 4 (1-3)"},
    {2025, "Number 4 (3-1)"},
    {2013, "Hard 4 (2-2)"},
    {2026, "Number 4 (1-3) or (3-1)"},
    {2004, "Any 4"},
    {2027, "Number 5 (1-4)"},
    {2028, "Number 5 (4-1)"},
    {2029, "Number 5 (2-3)"},
    {2030, "Number 5 (3-2)"},
    {2031, "Number 5 (1-4) or (4-1)"},
    {2032, "Number 5 (2-3) or (3-2)"},
    {2005, "Any 5"},
    {2033, "Number 6 (1-5)"},
    {2034, "Number 6 ((5-1)"},
    {2035, "Number 6 (2-4)"},
    {2036, "Number 6 (4-2)"},
    {2014, "Hard 6 (3-3)"},
    {2037, "Number 6 (1-5) or (5-1)"},
    {2038, "Number 6 (2-4) or (4-2)"},
    {2006, "Any 6"},
    {2039, "Number 7 (1-6)"},
    {2040, "Number 7 (6-1)"},
    {2041, "Number 7 (2-5)"},
    {2042, "Number 7 (5-2)"},
    {2043, "Number 7 (3-4)"},
    {2044, "Number 7 (4-3)"},
    {2045, "Number 7 (1-6) or (6-1)"},
    {2046, "Number 7 (2-5) or (5-2)"},
    {2047, "Number 7 (3-4) or (4-3)"},
    {2007, "Any 7"},
    {2048, "Number 8 (2-6)"},
    {2049, "Number 8 (6-2)"},
    {2050, "Number 8 (3-5)"},
    {2051, "Number 8 (5-3)"},
    {2015, "Hard 8 (4-4)"},
    {2052, "Number 8 (2-6) or (6-2)"},
    {2053, "Number 8 (3-5) or (5-3)"},
    {2008, "Any 8"},
    {2054, "Number 9 (3-6)"},
    {2055, "Number 9 (6-3)"},
    {2056, "Number 9 (4-5)"},
    {2057, "Number 9 (5-4)"},
    {2058, "Number 9 (3-6) or (6-3)"},
    {2059, "Number 9 (4-5) or (5-4)"},
    {2009, "Any 9"},
    {2060, "Number 10 (4-6)"},
    {2061, "Number 10 (6-4)"},
    {2016, "Hard 10 (5-5)"},
    {2062, "Number 10 (4-6) or (6-4)"},
    {2010, "Any 10"},
    {2063, "Number 11 (5-6)"},
    {2064, "Number 11 (6-5)"},
    {2011, "Number 11 (5-6) or (6-5)"},
    {2012, "Number 12 (6-6)"},
    {2021, "Number group 2,3,4,9,10,11,12"},
    {2017, "Number group 4,5,6,8,9,10"},
    {2065, "Number group 2,3,7,11,12"},
    {2066, "Number group 2,3,11,12"},
    {2018, "Number group 5,6,8,9"},
    {2019, "Number group 4,5,9,10"},
    {2020, "Number group 2,3,12"},
    {2067, "Number group 4,5,6"},
    {2068, "Number group 8,9,10"},
    {2069, "Number group 2,12"},
    {2070, "Number group 3,11"},
    {2071, "Number group 4,10"},
    {2072, "Number group 5,9"},
    {2073, "Number group 6,8"},
    {2074, "Number group 2,3"},
    {2075, "Number group 3,12"},
    {2076, "Number group 7,11"},
    {2077, "Number group 11,12"},
    {2078, "Die 1, face 1"},
    {2079, "Die 1, face 2"},
    {2080, "Die 1, face 3"},
    {2081, "Die 1, face 4"},
    {2082, "Die 1, face 5"},
    {2083, "Die 1, face 6"},
    {2084, "Die 2, face 1"},
    {2085, "Die 2, face 2"},
    {2086, "Die 2, face 3"},
    {2087, "Die 2, face 4"},
    {2088, "Die 2, face 5"},
    {2089, "Die 2, face 6"},
}};

// A roll event as "Reset rolls" names it: "and" for "or", and a small letter in front of all but
// the dice.
struct ResetCaption {
  std::array<char, 32> bytes{};
  std::size_t size = 0;
  constexpr std::string_view View() const { return {bytes.data(), size}; }
};
constexpr ResetCaption MakeResetCaption(std::string_view caption) {
  ResetCaption made;
  const auto append = [&](std::string_view part) {
    for (const char c : part) made.bytes[made.size++] = c;
  };
  const std::size_t alternative = caption.find(" or ");
  if (alternative == std::string_view::npos) {
    append(caption);
  } else {
    append(caption.substr(0, alternative));
    append(" and ");
    append(caption.substr(alternative + 4));
  }
  if (!caption.starts_with("Die")) {
    made.bytes[0] = static_cast<char>(made.bytes[0] - 'A' + 'a');
  }
  return made;
}
constexpr auto MakeResetCaptions() {
  std::array<ResetCaption, kRollEventRows.size()> captions{};
  for (std::size_t i = 0; i < captions.size(); ++i) {
    captions[i] = MakeResetCaption(kRollEventRows[i].caption);
  }
  return captions;
}
inline constexpr auto kResetCaptions = MakeResetCaptions();
constexpr auto ResetRows() {
  std::array<PickRow, kRollEventRows.size()> rows{};
  for (std::size_t i = 0; i < rows.size(); ++i) {
    rows[i] = {kRollEventRows[i].code, kResetCaptions[i].View()};
  }
  return rows;
}

}  // namespace vocabulary_internal

// ---- What is compared, read and worked on ----

// listCompare
inline constexpr auto kComparedThings = vocabulary_internal::Join(
    vocabulary_internal::kRangeRows,
    std::array<PickRow, 3>{{
        {kBankrollSubject, "bankroll"},
        {kAverageBankroll, "bankroll average"},
        {kAvailableBankroll, "bankroll available"},
    }},
    vocabulary_internal::kStackRows, vocabulary_internal::kShootersPointRows,
    vocabulary_internal::BetRows<kBetCount>(1));
static_assert(kComparedThings.size() == 21 + 3 + 2 + 5 + 88);

// listOf
inline constexpr auto kValues =
    vocabulary_internal::Join(vocabulary_internal::BetRows<kBetCount>(1),
                              std::array<PickRow, 22>{{
                                  {kListBets, "total bets"},
                                  {kListLay, "total Lay bets"},
                                  {kListDontCome, "total Don't Come bets"},
                                  {kListDontComeOdds, "total Don't Come Odds bets"},
                                  {kListCome, "total Come bets"},
                                  {kListComeOdds, "total Come Odds bets"},
                                  {kListPlace, "total Place bets"},
                                  {kListInsidePlace, "total inside Place bets"},
                                  {kListOutsidePlace, "total outside Place bets"},
                                  {kListBuy, "total Buy bets"},
                                  {kGameRolls, "game rolls"},
                                  {kShooterRolls, "shooter rolls"},
                                  {kGamePasses, "game passes"},
                                  {kShooterPasses, "shooter passes"},
                                  {kGameMisses, "game misses"},
                                  {kShooterMisses, "shooter misses"},
                                  {kBankrollSubject, "bankroll"},
                                  {kAverageBankroll, "average bankroll"},
                                  {kHighestBankroll, "highest bankroll"},
                                  {kLowestBankroll, "lowest bankroll"},
                                  {kAvailableBankroll, "available bankroll"},
                                  {kAllStacksTarget, "total Chip-Stacks"},
                              }},
                              vocabulary_internal::kStackRows,
                              std::array<PickRow, 4>{{
                                  {kDecidedWagersCount, "total # of decided wagers"},
                                  {kDecidedWagersAmount, "total $ of decided wagers"},
                                  {kCurrentWagersCount, "total # of current wagers"},
                                  {kCurrentWagersAmount, "total $ of current wagers"},
                              }},
                              vocabulary_internal::kShootersPointRows);
static_assert(kValues.size() == 88 + 22 + 2 + 4 + 5);

// listTo
inline constexpr auto kTargets =
    vocabulary_internal::Join(vocabulary_internal::BetRows<kBetCount>(1),
                              std::array<PickRow, 8>{{
                                  {kListBets, "all bets"},
                                  {kListLay, "all Lay bets"},
                                  {kListCome, "all Come bets"},
                                  {kListComeOdds, "all Come Odds bets"},
                                  {kListPlace, "all Place bets"},
                                  {kListInsidePlace, "all inside Place bets"},
                                  {kListOutsidePlace, "all outside Place bets"},
                                  {kListBuy, "all Buy bets"},
                              }},
                              vocabulary_internal::kStackRows,
                              std::array<PickRow, 1>{{{kAllStacksTarget, "all Chip-Stacks"}}},
                              vocabulary_internal::kShootersPointRows);
static_assert(kTargets.size() == 88 + 8 + 2 + 1 + 5);

inline constexpr auto kPlaceTargets = vocabulary_internal::BetRows<kSlotCount>(kPlace);

inline constexpr auto kRollTargets =
    vocabulary_internal::Join(std::array<PickRow, 1>{{{kAllTheNumbers, "all the numbers"}}},
                              vocabulary_internal::ResetRows());

// The code of a rule is the value of HandleWinningBets or HandleLosingBets.
inline constexpr std::array<PickRow, 6> kWinRules = {{
    {0, "Manual"},
    {1, "Take Bet and Winnings"},
    {2, "Same Bet - Take Winnings"},
    {3, "Press 1 Unit"},
    {4, "Press Double"},
    {5, "Parlay"},
}};
inline constexpr std::array<PickRow, 6> kLossRules = {{
    {0, "Manual"},
    {1, "No Bet/Take Remainder (if any)"},
    {2, "Bet Remainder (if any)"},
    {3, "Same Bet"},
    {4, "Same Bet plus 1 Unit"},
    {5, "Double Bet"},
}};

inline constexpr std::array<PickRow, 3> kRoundings = {{
    {kRoundUpTo, "up to the nearest $"},
    {kRoundToNearest, "to the nearest $"},
    {kRoundDownTo, "down to the nearest $"},
}};

// ---- Comparisons ----

inline constexpr std::array<ComparisonRow, 8> kWonLostOne = {{
    {kHasWon, "has won", Field::kTimesOrEach},
    {kHasWonMore, "has won more than", Field::kTimes},
    {kHasNotWon, "has not won", Field::kTimesOrEach},
    {kHasWonLess, "has won less than", Field::kTimes},
    {kHasLost, "has lost", Field::kTimesOrEach},
    {kHasLostMore, "has lost more than", Field::kTimes},
    {kHasNotLost, "has not lost", Field::kTimesOrEach},
    {kHasLostLess, "has lost less than", Field::kTimes},
}};
inline constexpr std::array<ComparisonRow, 4> kWonLostSeveral = {{
    {kHasWon, "have won", Field::kTimesOrEach},
    {kHasWonMore, "have won more than", Field::kTimes},
    {kHasLost, "have lost", Field::kTimesOrEach},
    {kHasLostMore, "have lost more than", Field::kTimes},
}};
inline constexpr std::array<ComparisonRow, 12> kComparedOne = {{
    {kEqualAmount, "is equal to $", Field::kAmount},
    {kNotEqualAmount, "is not equal to $", Field::kAmount},
    {kGreaterAmount, "is greater than $", Field::kAmount},
    {kNotGreaterAmount, "is not greater than $", Field::kAmount},
    {kLessAmount, "is less than $", Field::kAmount},
    {kNotLessAmount, "is not less than $", Field::kAmount},
    {kEqualThing, "is equal to", Field::kComparedWith},
    {kNotEqualThing, "is not equal to", Field::kComparedWith},
    {kGreaterThing, "is greater than", Field::kComparedWith},
    {kNotGreaterThing, "is not greater than", Field::kComparedWith},
    {kLessThing, "is less than", Field::kComparedWith},
    {kNotLessThing, "is not less than", Field::kComparedWith},
}};
inline constexpr std::array<ComparisonRow, 6> kComparedThingSeveral = {{
    {kEqualThing, "are equal to", Field::kComparedWith},
    {kNotEqualThing, "are not equal to", Field::kComparedWith},
    {kGreaterThing, "are greater than", Field::kComparedWith},
    {kNotGreaterThing, "are not greater than", Field::kComparedWith},
    {kLessThing, "are less than", Field::kComparedWith},
    {kNotLessThing, "are not less than", Field::kComparedWith},
}};
inline constexpr std::array<ComparisonRow, 6> kComparedAmountSeveral = {{
    {kEqualAmount, "are equal to $", Field::kAmount},
    {kNotEqualAmount, "are not equal to $", Field::kAmount},
    {kGreaterAmount, "are greater than $", Field::kAmount},
    {kNotGreaterAmount, "are not greater than $", Field::kAmount},
    {kLessAmount, "are less than $", Field::kAmount},
    {kNotLessAmount, "are not less than $", Field::kAmount},
}};
// Counters are no money: the same codes, a blank in the place of the dollar sign. What follows
// tells "are equal to 10" from "are equal to bankroll".
inline constexpr std::array<ComparisonRow, 6> kComparedCount = {{
    {kEqualAmount, "are equal to ", Field::kAmount},
    {kNotEqualAmount, "are not equal to ", Field::kAmount},
    {kGreaterAmount, "are greater than ", Field::kAmount},
    {kNotGreaterAmount, "are not greater than ", Field::kAmount},
    {kLessAmount, "are less than ", Field::kAmount},
    {kNotLessAmount, "are not less than ", Field::kAmount},
}};
inline constexpr std::array<ComparisonRow, 3> kNumberOf = {{
    {kNumberIs, "number", Field::kAmount},
    {kNumberMore, "number more than", Field::kAmount},
    {kNumberLess, "number less than", Field::kAmount},
}};
inline constexpr std::array<ComparisonRow, 2> kNamedOne = {{
    {kIsNamed, "is named", Field::kName},
    {kIsNotNamed, "is not named", Field::kName},
}};
inline constexpr std::array<ComparisonRow, 2> kNamedSeveral = {{
    {kIsNamed, "are named", Field::kName},
    {kIsNotNamed, "are not named", Field::kName},
}};
inline constexpr std::array<ComparisonRow, 6> kRolled = {{
    {kHasRolled, "has rolled", Field::kTimesOrEach},
    {kHasRolledMore, "has rolled more than", Field::kTimes},
    {kHasNotRolled, "has not rolled", Field::kTimesOrEach},
    {kHasRolledLess, "has rolled less than", Field::kTimesOrEach},
    {kHasRolledInLast, "has rolled in the last", Field::kRolls},
    {kHasNotRolledInLast, "has not rolled in the last", Field::kRolls},
}};
// Six rows share a code with another or have no set behind them. The rows that say what the code
// does come first: a code alone is shown by the first row that has it.
inline constexpr std::array<ComparisonRow, 21> kPointNumbers = {{
    {31, "any number"},
    {34, "the number 4"},
    {35, "the number 5"},
    {36, "the number 6"},
    {38, "the number 8"},
    {39, "the number 9"},
    {40, "the number 10"},
    {41, "the number 5, 6, 8, or 9"},
    {42, "the number 4, 5, 9, or 10"},
    {43, "the number 4, 6, 8, or 10"},
    {44, "the number 4, 5, or 6"},
    {45, "the number 8, 9, or 10"},
    {46, "the number 4 or 10"},
    {47, "the number 5 or 9"},
    {48, "the number 6 or 8"},
    {32, "the number 2"},
    {33, "the number 3"},
    {41, "the number 11"},
    {42, "the number 12"},
    {46, "the number 2 or 12"},
    {46, "the number 3 or 11"},
}};

// ---- Conditions ----

// listCondition
namespace vocabulary_internal {

inline constexpr auto kComparedSeveral = Join(kComparedAmountSeveral, kComparedThingSeveral);
inline constexpr auto kComparedCounter = Join(kComparedCount, kComparedThingSeveral);

constexpr std::array<ComparisonList, 3> ComparisonsOfRange(std::int32_t code) {
  switch (code) {
    case Any(kRangeStacks):
      return {kComparedOne, kNamedOne};
    case All(kRangeStacks):
      return {kComparedSeveral, kNamedSeveral};
    case Total(kRangeStacks):
      return {kComparedSeveral};
    default:
      break;
  }
  if (code < kAllFirst) return {kWonLostOne, kComparedOne};
  if (code < kTotalFirst) return {kWonLostSeveral, kComparedSeveral};
  return {kWonLostSeveral, kComparedSeveral, kNumberOf};
}

template <typename ComparisonsOf, std::size_t kSize>
constexpr std::array<ConditionRow, kSize> ConditionsOn(const std::array<PickRow, kSize>& picks,
                                                       ComparisonsOf comparisons_of) {
  std::array<ConditionRow, kSize> rows{};
  for (std::size_t i = 0; i < kSize; ++i) {
    rows[i].code = picks[i].code;
    rows[i].caption = picks[i].caption;
    rows[i].comparisons = comparisons_of(picks[i].code);
  }
  return rows;
}
constexpr std::array<ComparisonList, 3> ComparisonsOfBet(std::int32_t /*code*/) {
  return {kWonLostOne, kComparedOne};
}
constexpr std::array<ComparisonList, 3> ComparisonsOfRolls(std::int32_t /*code*/) {
  return {kRolled};
}

inline constexpr std::array<ConditionRow, 25> kTableConditions = {{
    {kInitializing, "Initializing Auto-Bet"},
    {kOnEachRoll, "On each roll"},
    {kNextIsComeOut, "Next roll is a come-out roll"},
    {kNextIsNotComeOut, "Next roll is NOT a come-out roll"},
    {kLastWasComeOut, "Last roll was a come-out roll"},
    {kLastWasNotComeOut, "Last roll was NOT a come-out roll"},
    {kAnswerWasYes, "Last answer was \"Yes\""},
    {kAnswerWasNo, "Last answer was \"No\""},
    {kOnEachPass, "On each pass"},
    {kOnEachMiss, "On each miss"},
    {kPointEstablished, "A point is established on", "", {}, {kPointNumbers}},
    {kPointNotEstablished, "A point is NOT established on", "", {}, {kPointNumbers}},
    {kPointDecidedFor, "A point is decided \"for\"", "", {}, {kPointNumbers}},
    {kPointDecidedAgainst, "A point is decided \"against\"", "", {}, {kPointNumbers}},
    {kPointDecided, "A point is decided \"for\" or \"against\"", "", {}, {kPointNumbers}},
    {kGameRolls, "The # of rolls in the game", "", {}, {kComparedCounter}},
    {kShooterRolls, "The # of rolls for this shooter", "", {}, {kComparedCounter}},
    {kLastShooterRolls, "The # of rolls for the last shooter", "", {}, {kComparedCounter}},
    {kGamePasses, "The # of passes in the game", "", {}, {kComparedCounter}},
    {kShooterPasses, "The # of passes for this shooter", "", {}, {kComparedCounter}},
    {kLastShooterPasses, "The # of passes for the last shooter", "", {}, {kComparedCounter}},
    {kGameMisses, "The # of misses in the game", "", {}, {kComparedCounter}},
    {kShooterMisses, "The # of misses for this shooter", "", {}, {kComparedCounter}},
    {kLastShooterMisses, "The # of misses for the last shooter", "", {}, {kComparedCounter}},
    {kSimulatedHours, "Simulated hours", "", {}, {kComparedCounter}},
}};
inline constexpr std::array<ConditionRow, 8> kMoneyConditions = {{
    {kBankrollSubject, "Bankroll", "", {}, {kComparedOne}},
    {kAverageBankroll, "Average bankroll", "Bankroll (", {Field::kAverage}, {kComparedOne}},
    {kAvailableBankroll, "Available bankroll", "", {}, {kComparedOne}},
    {kFlagSubject, "Flag", "", {Field::kFlag, Field::kIsTrue}, {}},
    {kAnyFlag, "Any flag", "", {Field::kIsTrue}, {}},
    {kAllFlags, "All flags", "", {Field::kAreTrue}, {}},
    {kTrueFlags, "Total # of true flags", "", {}, {kNumberOf}},
    {kFalseFlags, "Total # of false flags", "", {}, {kNumberOf}},
}};
inline constexpr std::array<ConditionRow, 2> kStackConditions = {{
    {kStackSubject, "Chip-Stack #", "", {Field::kStack}, {kComparedOne, kNamedOne}},
    {kStackReference, "Chip-Stack ref #", "", {Field::kStack}, {kComparedOne, kNamedOne}},
}};

}  // namespace vocabulary_internal

inline constexpr auto kConditions = vocabulary_internal::Join(
    vocabulary_internal::kTableConditions, vocabulary_internal::kMoneyConditions,
    vocabulary_internal::kStackConditions,
    vocabulary_internal::ConditionsOn(vocabulary_internal::kRollEventRows,
                                      vocabulary_internal::ComparisonsOfRolls),
    vocabulary_internal::ConditionsOn(vocabulary_internal::kRangeRows,
                                      vocabulary_internal::ComparisonsOfRange),
    vocabulary_internal::ConditionsOn(vocabulary_internal::kShootersPointRows,
                                      vocabulary_internal::ComparisonsOfBet),
    vocabulary_internal::ConditionsOn(vocabulary_internal::BetRows<kBetCount>(1),
                                      vocabulary_internal::ComparisonsOfBet));
static_assert(kConditions.size() == 25 + 8 + 2 + 88 + 21 + 5 + 88);

// ---- Actions ----

// listAction
inline constexpr std::array<ActionRow, 92> kActions = {{
    {10, "Bet $", {Field::kAmount, Field::kWordOn, Field::kTarget}},
    {11,
     "Bet % of",
     {Field::kAmount, Field::kWordPercentOf, Field::kValue, Field::kWordOn, Field::kTarget}},
    {12,
     "Bet % of the last",
     {Field::kAmount, Field::kWordPercentOf, Field::kValue, Field::kWordOn, Field::kTarget}},
    {13, "Bet the highest of:", {Field::kValue, Field::kWordOn, Field::kTarget}},
    {14, "Bet the highest of the last:", {Field::kValue, Field::kWordOn, Field::kTarget}},
    {15, "Bet the lowest of:", {Field::kValue, Field::kWordOn, Field::kTarget}},
    {16, "Bet the lowest of the last:", {Field::kValue, Field::kWordOn, Field::kTarget}},
    {17, "Bet the average of:", {Field::kValue, Field::kWordOn, Field::kTarget}},
    {18, "Bet the average of the last:", {Field::kValue, Field::kWordOn, Field::kTarget}},
    {20, "Add $", {Field::kAmount, Field::kWordTo, Field::kTarget}},
    {21,
     "Add % of",
     {Field::kAmount, Field::kWordPercentOf, Field::kValue, Field::kWordTo, Field::kTarget}},
    {22,
     "Add % of the last",
     {Field::kAmount, Field::kWordPercentOf, Field::kValue, Field::kWordTo, Field::kTarget}},
    {23, "Add the highest of:", {Field::kValue, Field::kWordTo, Field::kTarget}},
    {24, "Add the highest of the last:", {Field::kValue, Field::kWordTo, Field::kTarget}},
    {25, "Add the lowest of:", {Field::kValue, Field::kWordTo, Field::kTarget}},
    {26, "Add the lowest of the last:", {Field::kValue, Field::kWordTo, Field::kTarget}},
    {27, "Add the average of:", {Field::kValue, Field::kWordTo, Field::kTarget}},
    {28, "Add the average of the last:", {Field::kValue, Field::kWordTo, Field::kTarget}},
    {30, "Subtract $", {Field::kAmount, Field::kWordFrom, Field::kTarget}},
    {31,
     "Subtract % of",
     {Field::kAmount, Field::kWordPercentOf, Field::kValue, Field::kWordFrom, Field::kTarget}},
    {32,
     "Subtract % of the last",
     {Field::kAmount, Field::kWordPercentOf, Field::kValue, Field::kWordFrom, Field::kTarget}},
    {33, "Subtract the highest of:", {Field::kValue, Field::kWordFrom, Field::kTarget}},
    {34, "Subtract the highest of the last:", {Field::kValue, Field::kWordFrom, Field::kTarget}},
    {35, "Subtract the lowest of:", {Field::kValue, Field::kWordFrom, Field::kTarget}},
    {36, "Subtract the lowest of the last:", {Field::kValue, Field::kWordFrom, Field::kTarget}},
    {37, "Subtract the average of:", {Field::kValue, Field::kWordFrom, Field::kTarget}},
    {38, "Subtract the average of the last:", {Field::kValue, Field::kWordFrom, Field::kTarget}},
    {40, "Multiply by", {Field::kAmount, Field::kWordOn, Field::kTarget}},
    {41,
     "Multiply by % of",
     {Field::kAmount, Field::kWordPercentOf, Field::kValue, Field::kWordOn, Field::kTarget}},
    {42,
     "Multiply by % of the last",
     {Field::kAmount, Field::kWordPercentOf, Field::kValue, Field::kWordOn, Field::kTarget}},
    {43, "Multiply by the highest of:", {Field::kValue, Field::kWordOn, Field::kTarget}},
    {44, "Multiply by the highest of the last:", {Field::kValue, Field::kWordOn, Field::kTarget}},
    {45, "Multiply by the lowest of:", {Field::kValue, Field::kWordOn, Field::kTarget}},
    {46, "Multiply by the lowest of the last:", {Field::kValue, Field::kWordOn, Field::kTarget}},
    {47, "Multiply by the average of:", {Field::kValue, Field::kWordOn, Field::kTarget}},
    {48, "Multiply by the average of the last:", {Field::kValue, Field::kWordOn, Field::kTarget}},
    {50, "Divide by", {Field::kAmount, Field::kWordOn, Field::kTarget}},
    {51,
     "Divide by % of",
     {Field::kAmount, Field::kWordPercentOf, Field::kValue, Field::kWordOn, Field::kTarget}},
    {52,
     "Divide by % of the last",
     {Field::kAmount, Field::kWordPercentOf, Field::kValue, Field::kWordOn, Field::kTarget}},
    {53, "Divide by the highest of:", {Field::kValue, Field::kWordOn, Field::kTarget}},
    {54, "Divide by the highest of the last:", {Field::kValue, Field::kWordOn, Field::kTarget}},
    {55, "Divide by the lowest of:", {Field::kValue, Field::kWordOn, Field::kTarget}},
    {56, "Divide by the lowest of the last:", {Field::kValue, Field::kWordOn, Field::kTarget}},
    {57, "Divide by the average of:", {Field::kValue, Field::kWordOn, Field::kTarget}},
    {58, "Divide by the average of the last:", {Field::kValue, Field::kWordOn, Field::kTarget}},
    {kActionBuyPlace, "Buy the Place Bet", {Field::kWordOn, Field::kPlaceTarget}},
    {kActionCallOff, "Call OFF", {Field::kTarget}},
    {kActionCallOn, "Call ON", {Field::kTarget}},
    {kActionResetStreaks, "Reset wins / losses", {Field::kWordOn, Field::kTarget}},
    {kActionResetRolls, "Reset rolls", {Field::kWordOn, Field::kRollTarget}},
    {kActionStop, "Stop Auto-Rolling / Hyper-Drive"},
    {kActionGoTo, "Go to", {Field::kLabel}},
    {kActionGosub, "Gosub", {Field::kLabel}},
    {kActionReturn, "Return"},
    {kActionSetFlag, "Set flag", {Field::kFlag, Field::kToTrue}},
    {kActionSetAllFlags, "Set all flags", {Field::kToTrue}},
    {kActionRound, "Round", {Field::kTarget, Field::kRounding, Field::kPositiveAmount}},
    {kActionNameStack, "Name Chip-Stack #", {Field::kStack, Field::kWordAs, Field::kText}},
    {kActionNameStackReference,
     "Name Chip-Stack ref #",
     {Field::kStack, Field::kWordAs, Field::kText}},
    {kActionClearStackNames, "Clear all Chip-Stack names"},
    {kActionMessage, "Show message:", {Field::kText}},
    {kActionMessageValue, "Show message: Value of", {Field::kValue}},
    {kActionQuestion, "Yes/No question:", {Field::kText}},
    {kActionQuestionValue, "Yes/No question: Value of", {Field::kValue}},
    {kActionInput, "Get input and bet it on", {Field::kTarget}},
    {kActionPlaySound, "Play sound:", {Field::kText}},
    {kActionActivateProbability, "Activate Probability File:", {Field::kText}},
    {kActionDeactivateProbability, "Deactivate Probability File"},
    {kActionShowSteps, "Invoke \"Show Steps\""},
    {kActionSetWinRule, "Set Auto-Handle Winning Bets", {Field::kWordTo, Field::kWinRule}},
    {kActionSetLossRule, "Set Auto-Handle Losing Bets", {Field::kWordTo, Field::kLossRule}},
    {kActionSetFullOdds, "Set Auto-Take Full Odds", {Field::kToTrue}},
    {kActionWithdraw, "ATM - withdraw $", {Field::kAmount, Field::kWordFromAtm}},
    {kActionWithdrawPercent,
     "ATM - withdraw % of",
     {Field::kAmount, Field::kWordPercentOf, Field::kValue, Field::kWordFromAtm}},
    {kActionDeposit, "ATM - deposit $", {Field::kAmount, Field::kWordInAtm}},
    {kActionDepositPercent,
     "ATM - deposit % of",
     {Field::kAmount, Field::kWordPercentOf, Field::kValue, Field::kWordInAtm}},
    {kActionSelectRng, "Select RNG #", {Field::kAmount}},
    {kActionSelectRngValue, "Select RNG # as value of", {Field::kValue}},
    {kActionSelectRngLastValue, "Select RNG # as value of the last", {Field::kValue}},
    {kActionSeedClock, "Seed RNG with date/time"},
    {kActionSeedNumber, "Seed RNG with #", {Field::kAmount}},
    {kActionSeedValue, "Seed RNG with value of", {Field::kValue}},
    {kActionSeedLastValue, "Seed RNG with value of the last", {Field::kValue}},
    {kActionOpenClear, "Open/clear file for output:", {Field::kText}},
    {kActionOpenAppend, "Open/append file for output:", {Field::kText}},
    {kActionOutputMessage, "Output to file. Message:", {Field::kText}},
    {kActionOutputValue, "Output to file. Value of", {Field::kValue}},
    {kActionOutputLastValue, "Output to file. Value of the last", {Field::kValue}},
    {kActionOutputNewLine, "Output to file. New line."},
    {kActionCloseFile, "Close file"},
    {kActionResetTable, "Reset table"},
    {kActionResetKeepStacks, "Reset table (preserve Chip-Stacks)"},
}};

// ---- Looking up ----

// The row of a code, or nullptr. Where two rows share a code it is the first.
const StartRow* FindStart(std::int32_t kind);
const ConditionRow* FindCondition(std::int32_t code);
const ComparisonRow* FindComparison(const ConditionRow& condition, std::int32_t code);
const ActionRow* FindAction(std::int32_t code);
const PickRow* FindPick(PickList list, std::int32_t code);

// The list that a field is picked from; empty for other fields.
PickList PicksOf(Field field);
// The words of a word field; empty for others.
std::string_view WordsOf(Field field);

// Codes of picks that need a number beside them: that of a Chip-Stack (0 to 99), or the rolls of a
// moving average (0 to 999, 0 for all).
constexpr bool NeedsStack(std::int32_t code) {
  return code == kStackSubject || code == kStackReference;
}
constexpr bool NeedsAverage(std::int32_t code) {
  return code == kAverageBankroll;
}

}  // namespace feltmaster
