#include "files/game_fields.h"

#include <algorithm>
#include <array>
#include <limits>
#include <type_traits>
#include <utility>

#include "engine/amounts.h"
#include "stats/bankroll_history.h"
#include "stats/bet_results.h"
#include "stats/roll_statistics.h"

namespace feltmaster {

namespace {

constexpr std::int64_t kAnyLow = std::numeric_limits<std::int32_t>::min();
constexpr std::int64_t kAnyHigh = std::numeric_limits<std::int32_t>::max();
// Of rolls, hands and gaps: room for a whole game more without leaving 32 bits.
constexpr std::int64_t kCountHigh = 1'000'000'000;

constexpr std::int64_t InRange(std::int64_t value, std::int64_t low, std::int64_t high,
                               std::int64_t otherwise) {
  return value >= low && value <= high ? value : otherwise;
}

// A variable of the game, or an element of its array.
template <auto kMember, int kFirst>
auto& Cell(Game& game, int element) {
  using Member = std::remove_reference_t<decltype(game.*kMember)>;
  if constexpr (requires(Member array) { array.size(); }) {
    return (game.*kMember)[static_cast<std::size_t>(kFirst + element)];
  } else {
    return game.*kMember;
  }
}

using Read = std::int64_t (*)(Game&, int);
using Write = void (*)(Game&, int, std::int64_t);

// Where a field begins: its name, record and slot.
struct Place {
  std::string_view name;
  int record = 0;
  int slot = 0;
};
struct Extent {
  int count = 1;
  int per_record = 0;
  int records = 1;
};

constexpr GameField Field(FieldKind kind, Place place, Extent extent, Read read, Write write) {
  GameField field;
  field.name = place.name;
  field.kind = kind;
  field.record = place.record;
  field.slot = place.slot;
  field.count = extent.count;
  field.per_record = extent.per_record;
  field.records = extent.records;
  field.read = read;
  field.write = write;
  return field;
}

// What no game reaches, and a damaged file may hold, is cut to where the sums that play and the
// screens take cannot overflow: one amount beside its like on all bets, and an amount that stands
// on the table or in the history of the bankroll.
constexpr std::int64_t kMostMoney = 10'000'000'000'000 * MoneyAmount::kScale;
constexpr std::int64_t kMostOnTable = 10'000'000'000 * MoneyAmount::kScale;
static_assert(kMostMoney <= std::numeric_limits<std::int64_t>::max() / kBetCount);
static_assert(kMostOnTable <= std::numeric_limits<std::int64_t>::max() / (2 * kHistorySize));

constexpr MoneyAmount AtMost(std::int64_t most, std::int64_t raw) {
  return MoneyAmount::FromRaw(std::clamp(raw, -most, most));
}

template <auto kMember, int kFirst = 0, std::int64_t kMost = kMostMoney>
constexpr GameField Amount(Place place, Extent extent = {}) {
  return Field(
      FieldKind::kAmount, place, extent,
      [](Game& game, int element) { return Cell<kMember, kFirst>(game, element).Raw(); },
      [](Game& game, int element, std::int64_t raw) {
        Cell<kMember, kFirst>(game, element) = AtMost(kMost, raw);
      });
}

// A number outside low to high becomes `otherwise`.
template <auto kMember, int kFirst, std::int64_t low, std::int64_t high,
          std::int64_t otherwise = low>
constexpr GameField Number(FieldKind kind, Place place, Extent extent = {}) {
  static_assert(otherwise >= low && otherwise <= high);
  return Field(
      kind, place, extent,
      [](Game& game, int element) {
        return static_cast<std::int64_t>(Cell<kMember, kFirst>(game, element));
      },
      [](Game& game, int element, std::int64_t value) {
        auto& cell = Cell<kMember, kFirst>(game, element);
        const std::int64_t valid = InRange(value, low, high, otherwise);
        cell = static_cast<std::remove_reference_t<decltype(cell)>>(valid);
      });
}

template <auto kMember, int kFirst = 0>
constexpr GameField Switch(Place place, Extent extent = {}) {
  return Number<kMember, kFirst, 0, 1, 1>(FieldKind::kSwitch, place, extent);
}

#define AMOUNT(variable, record, slot) Amount<&Game::variable>({#variable, record, slot})
#define AMOUNTS(variable, record, slot, ...) \
  Amount<&Game::variable>({#variable, record, slot}, {__VA_ARGS__})
#define WHOLE(variable, record, slot, ...) \
  Number<&Game::variable, 0, __VA_ARGS__>(FieldKind::kWhole, {#variable, record, slot})
#define ANY_WHOLE(variable, record, slot) WHOLE(variable, record, slot, kAnyLow, kAnyHigh, 0)
#define SWITCH(variable, record, slot) Switch<&Game::variable>({#variable, record, slot})
#define EVENTS(variable, record)                                                       \
  Field(                                                                               \
      FieldKind::kLong, {#variable, record, 0}, {kRollCategories, 64, 2},              \
      [](Game& game, int category) { return std::int64_t{variable(game, category)}; }, \
      [](Game& game, int category, std::int64_t value) {                               \
        const std::int64_t valid = InRange(value, 0, kCountHigh, 0);                   \
        Set##variable(game, category, static_cast<std::int32_t>(valid));               \
      })
#define RESULTS(variable, record, kind)                                                \
  Field(                                                                               \
      FieldKind::kAmount, {#variable, record, 0}, {1600, 32, 50},                      \
      [](Game& game, int element) {                                                    \
        const ResultPlace at = PlaceOfResult(element);                                 \
        return ResultCell(game, kind, at.series, at.bet, at.row).Raw();                \
      },                                                                               \
      [](Game& game, int element, std::int64_t raw) {                                  \
        const ResultPlace at = PlaceOfResult(element);                                 \
        SetResultCell(game, kind, at.series, at.bet, at.row, AtMost(kMostMoney, raw)); \
      })

// Values that a mere range does not describe.

constexpr bool IsPoint(std::int64_t number) {
  return number == 0 || (number >= 2 && number <= 12 && number != 7);
}
template <auto kMember>
constexpr GameField Point(Place place) {
  GameField field = Number<kMember, 0, 0, 12>(FieldKind::kWhole, place);
  field.write = [](Game& game, int, std::int64_t value) {
    game.*kMember = IsPoint(value) ? static_cast<std::int32_t>(value) : 0;
  };
  return field;
}

// A chip, a Chip-Stack of the table, or one of the tools on the strip.
constexpr bool IsTool(std::int64_t tool) {
  return (tool >= 1 && tool <= 5) || (tool >= 7 && tool <= 10) || (tool >= 89 && tool <= 91);
}
void WriteTool(Game& game, int, std::int64_t tool) {
  game.ChipColor = IsTool(tool) ? static_cast<std::int32_t>(tool) : 1;
}

// A scale of the graph lies between a cent and 100,000 dollars a point.
template <auto kMember>
constexpr GameField Scale(Place place) {
  GameField field = Amount<kMember>(place);
  field.write = [](Game& game, int, std::int64_t raw) {
    constexpr std::int64_t kCent = 100;
    constexpr std::int64_t kMost = 100'000 * MoneyAmount::kScale;
    game.*kMember = MoneyAmount::FromRaw(InRange(raw, kCent, kMost, MoneyAmount::kScale));
  };
  return field;
}
void WriteGraphTop(Game& game, int, std::int64_t raw) {
  constexpr std::int64_t kFar = 1'000'000'000 * MoneyAmount::kScale;
  game.GraphTop = MoneyAmount::FromRaw(InRange(raw, -kFar, kFar, 150 * MoneyAmount::kScale));
}

std::int64_t ReadRollsOutOf(Game& game, int) {
  try {
    return MoneyAmount::FromDouble(game.RollsOutOf).Raw();
  } catch (const MoneyOverflow&) {
    return 0;
  }
}

// Options with an operator: the four that change the bet that was decided.
constexpr std::array<std::size_t, 4> kOptionsWithOperator = {0, 2, 4, 5};

// An amount has no sign of its own; the first alone may come with one.
void WriteHandleAmount(Game& game, int option, std::int64_t raw) {
  const bool keeps_size = option == 0 && raw != std::numeric_limits<std::int64_t>::min();
  const std::int64_t valid = raw >= 0 ? raw : keeps_size ? -raw : 0;
  game.HandleAmount[static_cast<std::size_t>(option)] = MoneyAmount::FromRaw(valid);
}
void WriteHandleUnits(Game& game, int option, std::int64_t raw) {
  constexpr std::int64_t kMost = (kChipCount + 1) * MoneyAmount::kScale;
  const MoneyAmount units = MoneyAmount::FromRaw(InRange(raw, 0, kMost, 0));
  game.HandleUnits[static_cast<std::size_t>(option)] = units;
}

constexpr int kLastNamedBet = 104;  // the bets and the piles on the table
constexpr std::int32_t EntryBet(std::int64_t bet) {
  return static_cast<std::int32_t>(InRange(bet, 1, kLastNamedBet, 1));
}

// The list stands until its entries are read, behind the fixed records.
void WriteChipCount(Game& game, int, std::int64_t count) {
  const std::int64_t valid = std::clamp<std::int64_t>(count, 0, kMaxTableChips);
  game.ChipList.assign(static_cast<std::size_t>(valid), TableChip());
}

// A Chip-Stack that is none leaves the pile as it is.
void WriteStackSlot(Game& game, int element, std::int64_t slot) {
  if (slot < kFirstStack || slot > kLastStack) return;
  const auto pile = static_cast<std::size_t>(element + 1);
  game.StackSlots[pile] = static_cast<std::int32_t>(slot);
  game.StackPileName[pile] = "Chip-Stack #" + std::to_string(slot - kFirstStack);
}

// The slots that no bet and no Chip-Stack uses are written but never taken from a file.
constexpr bool IsUntaken(int slot) {
  return slot > kBetCount && slot < kFirstStack;
}
template <auto kMember>
constexpr GameField RollCopy(Place place) {
  GameField field = Amount<kMember>(place, {kAmountSlots, 25, 8});
  field.write = [](Game& game, int slot, std::int64_t raw) {
    if (IsUntaken(slot)) return;
    (game.*kMember)[static_cast<std::size_t>(slot)] = AtMost(kMostOnTable, raw);
  };
  return field;
}

void WriteBetAmount(Game& game, int slot, std::int64_t raw) {
  const bool is_chip = slot >= kFirstChip && slot <= kLastChip;
  game.BetAmount.Set(slot, AtMost(kMostOnTable, is_chip ? std::max<std::int64_t>(raw, 0) : raw));
}

// Three columns, one after the other, of rows from 1: numerator, "to" ratio or not, denominator.
enum PayColumns { kNumerators, kIsTo, kDenominators, kPayColumns };
template <auto kTable, int kRows>
PayRow& RowOf(Game& game, int element) {
  return (game.*kTable)[static_cast<std::size_t>(element % kRows + 1)];
}
template <auto kTable, int kRows>
constexpr GameField Payoffs(Place place, int records) {
  return Field(
      FieldKind::kAmount, place, {kPayColumns * kRows, 32, records},
      [](Game& game, int element) {
        const PayRow& row = RowOf<kTable, kRows>(game, element);
        if (element / kRows == kIsTo) return row.PayIsTo ? -MoneyAmount::kScale : 0;
        return (element / kRows == kNumerators ? row.PayNumerator : row.PayDenominator).Raw();
      },
      [](Game& game, int element, std::int64_t raw) {
        PayRow& row = RowOf<kTable, kRows>(game, element);
        const MoneyAmount amount = MoneyAmount::FromRaw(raw);
        if (element / kRows == kNumerators) row.PayNumerator = amount;
        if (element / kRows == kIsTo) row.PayIsTo = raw != 0;
        if (element / kRows == kDenominators) row.PayDenominator = amount;
      });
}

// The tables of results: series 0 and 1, in them bets 1 to 100, in them the rows.
struct ResultPlace {
  int series;
  int bet;
  int row;
};
constexpr int kResultBets = 100;
constexpr ResultPlace PlaceOfResult(int element) {
  return {element / (kResultBets * kResultRows), element / kResultRows % kResultBets + 1,
          element % kResultRows};
}

template <int (BetStreaks::*kGet)(int) const, void (BetStreaks::*kSet)(int, int)>
constexpr GameField Streaks(Place place) {
  return Field(
      FieldKind::kInteger, place, {100},
      [](Game& game, int element) -> std::int64_t { return (game.BetStreak.*kGet)(element + 1); },
      [](Game& game, int element, std::int64_t run) {
        (game.BetStreak.*kSet)(element + 1, static_cast<int>(run));
      });
}

constexpr int kGapFields = 90 * kGaps;
std::int32_t& GapCell(Game& game, int element) {
  return GapCell(game, element / kGaps + 1, element % kGaps);
}

bool& HighlightCell(Game& game, int element) {
  return game.RollHighlight[static_cast<std::size_t>(element / 6 + 1)]
                           [static_cast<std::size_t>(element % 6 + 1)];
}

// The place of a screen: whether it is open, top, left, width and height; `kSkipped` leaves out
// the first of them.
template <ScreenPlacement& (*kOf)(Game&), int kSkipped = 0>
constexpr GameField Placement(Place place, int count) {
  return Field(
      FieldKind::kSingle, place, {count},
      [](Game& game, int element) -> std::int64_t {
        const ScreenPlacement& at = kOf(game);
        const std::array<std::int32_t, 5> numbers = {at.open ? 1 : 0, at.top, at.left, at.width,
                                                     at.height};
        return numbers[static_cast<std::size_t>(element + kSkipped)];
      },
      [](Game& game, int element, std::int64_t value) {
        ScreenPlacement& at = kOf(game);
        const auto number = static_cast<std::int32_t>(value);
        constexpr std::array<std::int32_t ScreenPlacement::*, 5> kNumbers = {
            nullptr, &ScreenPlacement::top, &ScreenPlacement::left, &ScreenPlacement::width,
            &ScreenPlacement::height};
        const std::size_t which = static_cast<std::size_t>(element + kSkipped);
        if (which == 0) {
          at.open = number != 0;
        } else {
          at.*kNumbers[which] = number;
        }
      });
}
template <Screen kScreen>
ScreenPlacement& PlacementOf(Game& game) {
  return game.PlacementOf(kScreen);
}
constexpr int kPlaceOnly = 3;
constexpr int kPlaceAndSize = 5;
#define SCREEN(name, screen, position, count) \
  Placement<PlacementOf<screen>>({name, kOtherScreensRecord, position}, count)

constexpr std::array<std::int32_t ScreenPlacement::*, 4> kTablePlacement = {
    &ScreenPlacement::top, &ScreenPlacement::left, &ScreenPlacement::height,
    &ScreenPlacement::width};
constexpr GameField TablePlacementField() {
  return Field(
      FieldKind::kSingle, {"TablePlacement", kTableScreenRecord, 1}, {4},
      [](Game& game, int element) -> std::int64_t {
        return game.TablePlacement.*kTablePlacement[static_cast<std::size_t>(element)];
      },
      [](Game& game, int element, std::int64_t value) {
        game.TablePlacement.*kTablePlacement[static_cast<std::size_t>(element)] =
            static_cast<std::int32_t>(value);
      });
}

constexpr auto kFields = std::to_array<GameField>({
    Number<&Game::TableWindowState, 0, 0, 2>(FieldKind::kSingle,
                                             {"TableWindowState", kTableScreenRecord, 0}),
    TablePlacementField(),
    SCREEN("frmBankroll", kBankrollScreen, 0, kPlaceOnly),
    SCREEN("frmSummary", kSummaryScreen, 5, kPlaceOnly),
    SCREEN("frmRollTotals", kRollTotalsScreen, 10, kPlaceAndSize),
    SCREEN("frmRollFreqs", kRollFreqsScreen, 15, kPlaceOnly),
    SCREEN("frmBetResults", kBetResultsScreen, 20, kPlaceOnly),
    SCREEN("frmBetTrends", kBetTrendsScreen, 25, kPlaceOnly),
    SCREEN("frmStackValues", kStackValuesScreen, 30, kPlaceAndSize),
    SCREEN("frmFlags", kFlagsScreen, 35, kPlaceAndSize),
    SCREEN("frmGames", kGamesScreen, 40, kPlaceOnly),
    SCREEN("frmAutoBet", kAutoBetScreen, 45, kPlaceAndSize),
    SCREEN("frmDiceRollFiles", kDiceRollFilesScreen, 50, kPlaceAndSize),
    Placement<PlacementOf<kFileScreen>, 1>({"frmFile", kOtherScreensRecord, 55}, 4),
    SCREEN("frmRYON", kRyonScreen, 59, kPlaceAndSize),

    // Preferences.
    WHOLE(ConfigureTab, 8, 0, 0, 9),
    Field(
        FieldKind::kWhole, {"ChipColor", 8, 1}, {},
        [](Game& game, int) { return std::int64_t{game.ChipColor}; }, WriteTool),
    WHOLE(ChipPicture, 8, 2, 1, 7),
    WHOLE(DicePicture, 8, 3, 1, 5),
    WHOLE(DiceAction, 8, 4, kDiceStationary, kDiceRemain),
    AMOUNT(RollsPerHour, 8, 5),
    SWITCH(UseCentsSymbol, 8, 6),
    WHOLE(StickPersonChoice, 8, 7, 0, kAnyHigh),
    WHOLE(DiceSoundChoice, 8, 8, 0, kAnyHigh),
    WHOLE(ChipSoundChoice, 8, 9, 0, kAnyHigh),
    WHOLE(WinSoundChoice, 8, 10, 0, kAnyHigh),
    SWITCH(AutoBetSoundOff, 8, 11),
    SWITCH(AllSoundOff, 8, 12),
    Number<&Game::CompBetMask, 1, kAnyLow, kAnyHigh, 0>(FieldKind::kWhole, {"CompBetMask", 8, 13},
                                                        {3}),
    WHOLE(BaseComps, 8, 16, 0, 2),
    SWITCH(CompsUseTrueProbs, 8, 17),
    AMOUNT(CompRate, 8, 18),
    ANY_WHOLE(NotifyFlags, 8, 19),
    WHOLE(PrintColorWin, 8, 20, 0, 15),
    WHOLE(PrintColorLoss, 8, 21, 0, 15),
    WHOLE(PrintColorOther, 8, 22, 0, 15),
    SWITCH(SnapMouse, 8, 23),
    WHOLE(RngSelected, 8, 24, 0, kRngCount - 1),
    SWITCH(UserSeedMode, 8, 25),
    SWITCH(ReSeedNewGames, 8, 26),

    // The house rules and the bankroll.
    AMOUNT(MinPlacardBet, 9, 0),
    AMOUNT(MaxPlacardBet, 9, 1),
    AMOUNTS(OddsAllowed, 9, 2, 5),
    AMOUNT(LayVigPct, 9, 7),
    WHOLE(LayVigRounding, 9, 8, kRoundNormally, kRoundUp),
    SWITCH(LayVigAllBets, 9, 9),
    AMOUNT(BuyVigPct, 9, 10),
    WHOLE(BuyVigRounding, 9, 11, kRoundNormally, kRoundUp),
    SWITCH(BuyVigAllBets, 9, 12),
    SWITCH(AllowPutBets, 9, 13),
    SWITCH(UseSkewedProbability, 9, 14),
    WHOLE(ProbabilityDisplay, 9, 15, 0, 3),
    Field(
        FieldKind::kAmount, {"RollsOutOf", 9, 16}, {}, ReadRollsOutOf,
        [](Game& game, int, std::int64_t raw) {
          game.RollsOutOf = MoneyAmount::FromRaw(raw).ToDouble();
        }),
    SWITCH(IncludeZeroOutcomes, 9, 17),
    SWITCH(ShowMiscData, 9, 18),
    WHOLE(AdvantageScroll, 9, 19, 1, 68),
    WHOLE(PayoffsScroll, 9, 20, 1, 62),
    SWITCH(AllowNegBankroll, 9, 21),
    WHOLE(BankrollInitType, 9, 22, kStartBankrollWith, kCarryBankrollAndNet),
    AMOUNT(BankrollInitAmount, 9, 23),
    AMOUNT(ATMAmount, 9, 24),
    AMOUNT(BankrollSum, 9, 25),
    AMOUNT(AmountInvested, 9, 26),
    AMOUNT(MaxPropBetPayoff, 9, 27),
    AMOUNT(MaxOddsBet, 9, 28),

    // Auto-Play.
    WHOLE(AutoAdjustBetAmounts, 10, 0, kAdjustManually, kColorCorrection),
    SWITCH(AutoArrangeChips, 10, 1),
    SWITCH(AutoTakeFullOdds, 10, 2),
    SWITCH(AutoRemovePlaceBets, 10, 4),
    WHOLE(HandleWinningBets, 10, 5, kHandleManually, kHandleRules - 1),
    WHOLE(HandleLosingBets, 10, 6, kHandleManually, kHandleRules - 1),
    SWITCH(AutoRollDice, 10, 7),
    WHOLE(NumAutoRolls, 10, 8, 0, kRollLimit),
    WHOLE(AutoRollsRemaining, 10, 9, 0, kRollLimit),
    WHOLE(AutoRollDelay, 10, 10, 0, 99),
    Switch<&Game::AutoStopOn>({"AutoStopOn", 10, 11}, {kAutoStops}),
    WHOLE(LayBias, 10, 28, kNearest, kDecrease),
    WHOLE(PlaceBias, 10, 29, kNearest, kDecrease),
    WHOLE(DoBias, 10, 30, kNearest, kDecrease),
    Field(
        FieldKind::kWhole, {"HandleChoiceTag", 11, 0}, {4},
        [](Game& game, int element) {
          const std::size_t option = kOptionsWithOperator[static_cast<std::size_t>(element)];
          return std::int64_t{game.HandleChoiceTag[option]};
        },
        [](Game& game, int element, std::int64_t value) {
          const std::size_t option = kOptionsWithOperator[static_cast<std::size_t>(element)];
          game.HandleChoiceTag[option] = static_cast<std::int32_t>(InRange(value, 0, 3, 0));
        }),
    Field(
        FieldKind::kAmount, {"HandleAmount", 11, 4}, {8},
        [](Game& game, int option) {
          return game.HandleAmount[static_cast<std::size_t>(option)].Raw();
        },
        WriteHandleAmount),
    Field(
        FieldKind::kAmount, {"HandleUnits", 11, 12}, {6},
        [](Game& game, int option) {
          return game.HandleUnits[static_cast<std::size_t>(option)].Raw();
        },
        WriteHandleUnits),
    WHOLE(RollTotalsDisplay, 11, 18, 0, 3),
    WHOLE(RollTotalsBackColor, 11, 19, 0, 15, 11),
    WHOLE(RollTotalsGraphColor, 11, 20, 0, 9),
    WHOLE(RollTotalsHScroll, 11, 21, 0, kAnyHigh),
    WHOLE(RollTotalsVScroll, 11, 22, 0, kAnyHigh),
    WHOLE(OddsCalcMethod, 11, 23, kAutoSelect, kSingleOddsTimes),

    // The table as it stands.
    SWITCH(KeyInBetAmounts, 12, 1),
    SWITCH(DisplayBetAmounts, 12, 2),
    SWITCH(RollYourOwnNumbers, 12, 3),
    Field(
        FieldKind::kWhole, {"EntryBoxBet", 12, 4}, {},
        [](Game& game, int) { return std::int64_t{EntryBet(game.EntryBoxBet)}; },
        [](Game& game, int, std::int64_t bet) { game.EntryBoxBet = EntryBet(bet); }),
    SWITCH(ShowHopBets, 12, 5),
    Field(
        FieldKind::kWhole, {"ChipCount", 12, 6}, {},
        [](Game& game, int) {
          return static_cast<std::int64_t>(std::min(game.ChipList.size(), kMaxTableChips));
        },
        WriteChipCount),
    Point<&Game::Point>({"Point", 12, 7}),
    Point<&Game::PrevPoint>({"PrevPoint", 12, 8}),
    Point<&Game::PrevPrevPoint>({"PrevPrevPoint", 12, 9}),
    WHOLE(Die1, 12, 10, 1, 6, 3),
    WHOLE(Die2, 12, 11, 1, 6, 4),
    AMOUNT(TotalOnTable, 12, 12),
    WHOLE(ScriptActive, 12, 13, 0, 1),
    SWITCH(ShowSteps, 12, 14),
    SWITCH(ShowLineNumbers, 12, 15),
    AMOUNT(BankrollHigh, 12, 17),
    AMOUNT(BankrollLow, 12, 18),
    WHOLE(BankrollHistoryCount, 12, 19, 0, kGraphRolls),
    SWITCH(GraphAutoPrint, 12, 20),
    Scale<&Game::GraphScale>({"GraphScale", 12, 21}),
    Scale<&Game::GraphManualScale>({"GraphManualScale", 12, 22}),
    Field(
        FieldKind::kAmount, {"GraphTop", 12, 23}, {},
        [](Game& game, int) { return game.GraphTop.Raw(); }, WriteGraphTop),
    SWITCH(GraphRefLines, 12, 24),
    WHOLE(GraphColorScheme, 12, 25, 0, 7),
    WHOLE(GraphAdjustType, 12, 26, 0, 2),
    WHOLE(GraphStyle, 12, 27, 0, 2),
    SWITCH(GraphGridLines, 12, 28),
    SWITCH(GraphShowAverage, 12, 29),
    WHOLE(GraphAverageRolls, 12, 30, 0, kGraphRolls),
    WHOLE(ThrottleSetting, 12, 31, 0, 10),

    // Dice Roll Files and what the screens remember.
    Field(
        FieldKind::kMark, {"RollHighlight", 13, 1}, {36},
        [](Game& game, int element) { return std::int64_t{HighlightCell(game, element)}; },
        [](Game& game, int element, std::int64_t mark) {
          HighlightCell(game, element) = mark != 0;
        }),
    WHOLE(DiceRollFileMode, 14, 0, kRecorderOff, kPlayback),
    WHOLE(InsertRolls, 14, 1, kInsert, kTypeOver),
    WHOLE(PrintDieNumbers, 14, 2, 0, 1),
    WHOLE(PrintRollNumbers, 14, 3, 0, 1),
    WHOLE(PrintSelectedRolls, 14, 4, 0, 1),
    WHOLE(RollPrintFontSize, 14, 5, 1, 20, 6),
    WHOLE(DiceRollNext, 14, 6, 0, kAnyHigh - 1),
    WHOLE(DiceRollLast, 14, 7, 0, kAnyHigh - 1),
    SWITCH(StackDisplayZero, 14, 8),
    WHOLE(StackListScroll, 14, 9, 0, kStackCount - 1),
    Field(
        FieldKind::kWhole, {"StackSlots", 14, 10}, {4},
        [](Game& game, int element) {
          return std::int64_t{game.StackSlots[static_cast<std::size_t>(element + 1)]};
        },
        WriteStackSlot),
    SWITCH(ShowSkewedPercent, 14, 14),
    WHOLE(RollFreqsListIndex, 14, 15, 0, kRollCategories - 1),
    WHOLE(GamesViewChoice, 14, 16, 0, 15),
    WHOLE(GamesDisplayChoice, 14, 17, 0, 31),
    WHOLE(PrintNumbersCalled, 14, 18, 0, 1),
    ANY_WHOLE(RyonPanelState, 14, 19),
    Number<&Game::SeedValue, 0, kAnyLow, kAnyHigh, 0>(FieldKind::kLong, {"SeedValue", 15, 0}),
    Number<&Game::LastSeed, 0, kAnyLow, kAnyHigh, 0>(FieldKind::kLong, {"LastSeed", 15, 1}),
    Number<&Game::TableColors, 0, kAnyLow, kAnyHigh, 0>(FieldKind::kLong, {"TableColors", 15, 2},
                                                        {8}),
    Number<&Game::TextureRow, 0, 0, 8>(FieldKind::kLong, {"TextureRow", 15, 10}),

    // The tables.
    Field(
        FieldKind::kAmount, {"BetAmount", 16, 0}, {kAmountSlots, 25, 8},
        [](Game& game, int slot) { return game.BetAmount[slot].Raw(); }, WriteBetAmount),
    RollCopy<&Game::BetAmountAtRollStart>({"BetAmountAtRollStart", 24, 0}),
    RollCopy<&Game::BetAmountAtRollEnd>({"BetAmountAtRollEnd", 32, 0}),
    Field(
        FieldKind::kAmount, {"EstablishedAmount", 40, 0}, {kPassLine - kComePoint + 1, 20, 2},
        [](Game& game, int element) { return Established(game, kComePoint + element).Raw(); },
        [](Game& game, int element, std::int64_t raw) {
          SetEstablished(game, kComePoint + element, AtMost(kMostOnTable, raw));
        }),
    AMOUNTS(LayVigPaid, 42, 1, kSlotCount),
    AMOUNTS(BuyVigPaid, 42, 13, kSlotCount),
    Field(
        FieldKind::kInteger, {"WorkOnComeOut", 43, 0}, {101},
        [](Game& game, int bet) { return std::int64_t{game.WorkOnComeOut.Has(bet)}; },
        [](Game& game, int bet, std::int64_t works) { game.WorkOnComeOut.Put(bet, works != 0); }),
    Field(
        FieldKind::kInteger, {"BetState", 44, 1}, {100},
        [](Game& game, int element) { return std::int64_t{game.BetState[element + 1]}; },
        [](Game& game, int element, std::int64_t state) {
          const std::int64_t valid = InRange(state, kCalledOff, kCalledOn, kNotWorking);
          game.BetState.Set(element + 1, static_cast<int>(valid));
        }),
    Payoffs<&Game::PayTable, kPayRows - 1>({"PayTable", 45, 0}, 10),
    Payoffs<&Game::FieldPayTable, kFieldRows - 1>({"FieldPayTable", 55, 0}, 2),
    RESULTS(BetWagers, 57, ResultKind::kWagers),
    RESULTS(BetWins, 107, ResultKind::kWins),
    RESULTS(BetLosses, 157, ResultKind::kLosses),
    Amount<&Game::BankrollHistory, 0, kMostOnTable>({"BankrollHistory", 207, 0},
                                                    {kHistorySize, 32, 33}),
    Streaks<&BetStreaks::Before, &BetStreaks::SetBefore>({"BetStreakBefore", 240, 1}),
    Streaks<&BetStreaks::Now, &BetStreaks::SetNow>({"BetStreak", 241, 1}),
    EVENTS(RollCounts, 242),
    EVENTS(RollsSinceLast, 244),
    EVENTS(ScriptRollCounts, 246),
    EVENTS(ScriptRollCountsSeen, 248),
    EVENTS(ScriptRollsSince, 250),
    EVENTS(ScriptRollsSinceSeen, 252),
    Field(
        FieldKind::kLong, {"RollGapTable", 254, 0}, {kGapFields, 64, 283},
        [](Game& game, int element) { return std::int64_t{GapCell(game, element)}; },
        [](Game& game, int element, std::int64_t count) {
          GapCell(game, element) = static_cast<std::int32_t>(InRange(count, 0, kCountHigh, 0));
        }),
    Number<&Game::GameCounters, 0, 0, kCountHigh>(FieldKind::kLong, {"GameCounters", 537, 0},
                                                  {kGameCounters}),
    [] {
      GameField field =
          Field(FieldKind::kName, {"ChipStackName", 538, 0}, {kStackCount, 3, 34}, nullptr,
                nullptr);
      field.read_text = [](const Game& game, int stack) -> std::string_view {
        return game.ChipStackName[static_cast<std::size_t>(stack)];
      };
      field.write_text = [](Game& game, int stack, std::string text) {
        game.ChipStackName[static_cast<std::size_t>(stack)] = std::move(text);
      };
      return field;
    }(),
});

#undef AMOUNT
#undef AMOUNTS
#undef WHOLE
#undef ANY_WHOLE
#undef SWITCH
#undef EVENTS
#undef RESULTS
#undef SCREEN

// Every element lies within its record and within the fixed records, fields come in the order of
// the file, and no byte belongs to two of them.
constexpr bool FieldsLieInOrder() {
  std::size_t end = kHeaderRecords * kRecordSize;
  for (const GameField& field : kFields) {
    const std::size_t size = BytesOf(field.kind);
    if (field.per_record * (field.records - 1) >= field.count) return false;
    for (int element = 0; element < field.count; ++element) {
      const std::size_t offset = field.OffsetOf(element);
      if (offset + size > kRecordSize) return false;
      const std::size_t begin =
          static_cast<std::size_t>(field.RecordOf(element) - 1) * kRecordSize + offset;
      if (begin < end) return false;
      end = begin + size;
    }
  }
  return end <= std::size_t{kFixedRecords} * kRecordSize &&
         end > std::size_t{kFixedRecords - 1} * kRecordSize;
}
static_assert(FieldsLieInOrder());
static_assert(kGapFields == 18'090 && kHistorySize == 1051 && kRollCategories == 91);
static_assert(kAmountSlots == 201 && kStackCount == 100 && kScreenCount == 13);

void PutField(Record& record, std::size_t offset, FieldKind kind, std::int64_t value) {
  switch (kind) {
    case FieldKind::kSingle:
      record.SetFloat(offset, static_cast<float>(value));
      break;
    case FieldKind::kAmount:
      record.SetMoney(offset, MoneyAmount::FromRaw(value));
      break;
    case FieldKind::kWhole:
      record.SetMoney(offset, MoneyAmount::FromWhole(value));
      break;
    case FieldKind::kSwitch:
      record.SetMoney(offset, MoneyAmount(value != 0 ? -1 : 0));
      break;
    case FieldKind::kLong:
      record.SetInt32(offset, static_cast<std::int32_t>(value));
      break;
    case FieldKind::kInteger:
      record.SetInt16(offset, static_cast<std::int32_t>(value));
      break;
    case FieldKind::kMark:
      record.SetInt16(offset, value != 0 ? -1 : 0);
      break;
    case FieldKind::kName:
      break;
  }
}

// The whole number of a slot; what does not fit 32 bits becomes the nearest that does.
std::int64_t WholeNumber(MoneyAmount amount) {
  return std::clamp(amount.RoundWhole(), kAnyLow, kAnyHigh);
}

// The entries that follow the fixed records: four integers a chip, then one integer a flag.

int RecordsFor(std::size_t entries, int per_record) {
  const auto count = static_cast<int>(entries);
  return (count + per_record - 1) / per_record;
}

struct ChipPart {
  std::int32_t TableChip::*number;
  std::int32_t low, high, otherwise;
};
constexpr std::array<ChipPart, 4> kChipParts = {{
    {&TableChip::bet, 0, kLastStack, 0},
    {&TableChip::chip, 0, 6, 6},
    {&TableChip::x, kAnyLow, kAnyHigh, 0},
    {&TableChip::y, kAnyLow, kAnyHigh, 0},
}};
constexpr std::size_t kIntegerSize = BytesOf(FieldKind::kInteger);
constexpr std::size_t kChipSize = kChipParts.size() * kIntegerSize;
static_assert(kChipsPerRecord * kChipSize == kRecordSize);
static_assert(kFlagsPerRecord * kIntegerSize == kRecordSize);

struct EntryPlace {
  int record;
  std::size_t offset;
};
EntryPlace PlaceOfEntry(int first_record, std::size_t entry, std::size_t size) {
  const std::size_t per_record = kRecordSize / size;
  return {first_record + static_cast<int>(entry / per_record), entry % per_record * size};
}

constexpr int kFirstChipRecord = kFixedRecords + 1;
int FirstFlagRecord(std::size_t chips) {
  return kFirstChipRecord + RecordsFor(chips, kChipsPerRecord);
}

void WriteChips(const Game& game, GameRecords& records) {
  const std::size_t chips = std::min(game.ChipList.size(), kMaxTableChips);
  for (std::size_t i = 0; i < chips; ++i) {
    const EntryPlace place = PlaceOfEntry(kFirstChipRecord, i, kChipSize);
    Record& record = records.At(place.record);
    std::size_t offset = place.offset;
    for (const ChipPart& part : kChipParts) {
      record.SetInt16(offset, game.ChipList[i].*part.number);
      offset += kIntegerSize;
    }
  }
  for (std::size_t i = 0; i < game.ScriptFlags.size(); ++i) {
    const EntryPlace place = PlaceOfEntry(FirstFlagRecord(chips), i, kIntegerSize);
    records.At(place.record).SetInt16(place.offset, game.ScriptFlags[i].FlagValue ? -1 : 0);
  }
}

void ReadChips(Game& game, const GameRecords& records) {
  for (std::size_t i = 0; i < game.ChipList.size(); ++i) {
    const EntryPlace place = PlaceOfEntry(kFirstChipRecord, i, kChipSize);
    const Record& record = records[place.record];
    std::size_t offset = place.offset;
    for (const ChipPart& part : kChipParts) {
      const std::int32_t number = record.Int16(offset);
      const bool valid = number >= part.low && number <= part.high;
      game.ChipList[i].*part.number = valid ? number : part.otherwise;
      offset += kIntegerSize;
    }
  }
  const int first = FirstFlagRecord(game.ChipList.size());
  for (std::size_t i = 0; i < game.ScriptFlags.size(); ++i) {
    const EntryPlace place = PlaceOfEntry(first, i, kIntegerSize);
    game.ScriptFlags[i].FlagValue = records[place.record].Int16(place.offset) != 0;
    game.ScriptFlags[i].FlagChanged = false;
  }
  game.AnyFlagChanged = false;
}

// What the last roll of the game left in the copies that are not taken from its file.
void CompleteRollCopies(Game& game) {
  if (RollCounts(game, 0) == 0) return;
  for (int slot = 0; slot < kAmountSlots; ++slot) {
    if (!IsUntaken(slot)) continue;
    const auto cell = static_cast<std::size_t>(slot);
    game.BetAmountAtRollStart[cell] = game.BetAmountAtRollEnd[cell] = game.BetAmount[slot];
  }
}

const Record kNone;

}  // namespace

std::span<const GameField> GameFields() {
  return kFields;
}

GameRecords::GameRecords(std::string_view bytes) {
  records_.resize((bytes.size() + kRecordSize - 1) / kRecordSize);
  for (std::size_t i = 0; i < records_.size(); ++i) {
    const std::string_view part = bytes.substr(i * kRecordSize, kRecordSize);
    part.copy(records_[i].Data(), part.size());
  }
}

const Record& GameRecords::operator[](int number) const {
  const auto index = static_cast<std::size_t>(number - 1);
  return index < records_.size() ? records_[index] : kNone;
}

Record& GameRecords::At(int number) {
  const auto index = static_cast<std::size_t>(number - 1);
  if (index >= records_.size()) records_.resize(index + 1);
  return records_[index];
}

std::string GameRecords::Bytes() const {
  std::string bytes;
  bytes.reserve(records_.size() * kRecordSize);
  for (const Record& record : records_) bytes += record.Bytes();
  return bytes;
}

std::int64_t FieldValue(const GameRecords& records, const GameField& field, int element) {
  const Record& record = records[field.RecordOf(element)];
  const std::size_t offset = field.OffsetOf(element);
  switch (field.kind) {
    case FieldKind::kSingle:
      return record.RoundedFloat(offset);
    case FieldKind::kAmount:
      return record.Money(offset).Raw();
    case FieldKind::kWhole:
      return WholeNumber(record.Money(offset));
    case FieldKind::kSwitch:
      return WholeNumber(record.Money(offset)) != 0;
    case FieldKind::kLong:
      return record.Int32(offset);
    case FieldKind::kInteger:
      return record.Int16(offset);
    case FieldKind::kMark:
      return record.Int16(offset) != 0;
    case FieldKind::kName:
      break;
  }
  return 0;
}

void WriteGameFields(Game& game, GameRecords& records) {
  records.At(kFixedRecords);
  for (const GameField& field : kFields) {
    for (int element = 0; element < field.count; ++element) {
      Record& record = records.At(field.RecordOf(element));
      const std::size_t offset = field.OffsetOf(element);
      if (field.kind == FieldKind::kName) {
        record.SetText(offset, BytesOf(field.kind), field.read_text(game, element));
      } else {
        PutField(record, offset, field.kind, field.read(game, element));
      }
    }
  }
  WriteChips(game, records);
}

void ReadGameFields(Game& game, const GameRecords& records, bool with_screens) {
  for (const GameField& field : kFields) {
    if (field.record <= kOtherScreensRecord && !with_screens) continue;
    for (int element = 0; element < field.count; ++element) {
      if (field.kind == FieldKind::kName) {
        const Record& record = records[field.RecordOf(element)];
        field.write_text(game, element, record.Text(field.OffsetOf(element), BytesOf(field.kind)));
      } else {
        field.write(game, element, FieldValue(records, field, element));
      }
    }
  }
  CompleteRollCopies(game);
  ReadChips(game, records);
}

}  // namespace feltmaster
