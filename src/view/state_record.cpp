#include "view/state_record.h"

#include <limits>
#include <type_traits>
#include <utility>

#include "autobet/script_lines.h"
#include "base/text.h"
#include "engine/amounts.h"
#include "engine/chip_list.h"
#include "engine/entry_box.h"
#include "stats/bankroll_history.h"
#include "stats/bet_results.h"
#include "stats/roll_statistics.h"

namespace feltmaster {

namespace {

template <typename T>
constexpr StateType TypeOf() {
  if constexpr (std::is_same_v<T, bool>) {
    return StateType::kSwitch;
  } else if constexpr (std::is_integral_v<T>) {
    return StateType::kWhole;
  } else if constexpr (std::is_same_v<T, MoneyAmount>) {
    return StateType::kMoney;
  } else if constexpr (std::is_same_v<T, double>) {
    return StateType::kReal;
  } else {
    static_assert(std::is_same_v<T, std::string>);
    return StateType::kText;
  }
}

template <typename T>
StateValue Wrap(const T& variable) {
  if constexpr (std::is_integral_v<T> && !std::is_same_v<T, bool>) {
    return std::int64_t{variable};
  } else {
    return variable;
  }
}

std::int64_t Whole(const StateValue& value) {
  return std::get<std::int64_t>(value);
}
MoneyAmount Money(const StateValue& value) {
  return std::get<MoneyAmount>(value);
}
bool Fits32(std::int64_t number) {
  return number >= std::numeric_limits<std::int32_t>::min() &&
         number <= std::numeric_limits<std::int32_t>::max();
}

template <typename T>
bool Assign(T& variable, const StateValue& value) {
  if constexpr (TypeOf<T>() == StateType::kWhole) {
    if (!Fits32(Whole(value))) return false;
    variable = static_cast<T>(Whole(value));
  } else {
    variable = std::get<T>(value);
  }
  return true;
}

// What has to be done before a variable changes under the statistics that are counted lazily.
using Settle = void (*)(Game&);
void Nothing(Game&) {}

constexpr std::int64_t kAnyLow = std::numeric_limits<std::int32_t>::min();
constexpr std::int64_t kAnyHigh = std::numeric_limits<std::int32_t>::max();

// A single value. low and high bound the whole numbers that the program uses as an index.
template <auto kMember, Settle kSettle = Nothing, std::int64_t low = kAnyLow,
          std::int64_t high = kAnyHigh>
constexpr StateName Single(std::string_view name) {
  using T = std::remove_reference_t<decltype(std::declval<Game&>().*kMember)>;
  StateName entry;
  entry.name = name;
  entry.type = TypeOf<T>();
  entry.read = [](Game& game, const StateIndex&) { return Wrap(game.*kMember); };
  entry.write = [](Game& game, const StateIndex&, const StateValue& value) {
    if constexpr (TypeOf<T>() == StateType::kWhole) {
      if (Whole(value) < low || Whole(value) > high) return false;
    }
    kSettle(game);
    return Assign(game.*kMember, value);
  };
  return entry;
}
template <auto kMember, std::int64_t low, std::int64_t high>
constexpr StateName Bounded(std::string_view name) {
  return Single<kMember, Nothing, low, high>(name);
}

// A table with one index whose elements lie in an array under the same index.
template <auto kMember, Settle kSettle = Nothing, std::int64_t low = kAnyLow,
          std::int64_t high = kAnyHigh>
constexpr StateName Row(std::string_view name, int first, int last) {
  using Array = std::remove_reference_t<decltype(std::declval<Game&>().*kMember)>;
  using T = typename Array::value_type;
  StateName entry;
  entry.name = name;
  entry.type = TypeOf<T>();
  entry.rank = 1;
  entry.bounds[0] = {first, last};
  entry.read = [](Game& game, const StateIndex& index) {
    return Wrap((game.*kMember)[static_cast<std::size_t>(index[0])]);
  };
  entry.write = [](Game& game, const StateIndex& index, const StateValue& value) {
    if constexpr (TypeOf<T>() == StateType::kWhole) {
      if (Whole(value) < low || Whole(value) > high) return false;
    }
    kSettle(game);
    return Assign((game.*kMember)[static_cast<std::size_t>(index[0])], value);
  };
  return entry;
}

using Read = StateValue (*)(Game&, const StateIndex&);
using Write = bool (*)(Game&, const StateIndex&, const StateValue&);

constexpr StateName Custom(std::string_view name, StateType type, int rank,
                           std::array<StateBounds, kMaxStateRank> bounds, Read read, Write write) {
  StateName entry;
  entry.name = name;
  entry.type = type;
  entry.rank = rank;
  entry.bounds = bounds;
  entry.read = read;
  entry.write = write;
  return entry;
}

constexpr StateName Growing(std::string_view name, StateType type, int (*length)(const Game&),
                            Read read, Write write) {
  StateName entry = Custom(name, type, 1, {{{1, 0}}}, read, write);
  entry.length = length;
  return entry;
}

constexpr StateName Setting(StateName entry) {
  entry.setting = true;
  return entry;
}

template <int kCounter>
constexpr StateName Counter(std::string_view name) {
  return Custom(
      name, StateType::kWhole, 0, {},
      [](Game& game, const StateIndex&) { return Wrap(game.GameCounters[kCounter]); },
      [](Game& game, const StateIndex&, const StateValue& value) {
        return Assign(game.GameCounters[kCounter], value);
      });
}

// The counters of the roll events, which are not kept in the form they are read in.
template <auto kGet, void (*kSet)(Game&, int, std::int32_t)>
constexpr StateName RollEvents(std::string_view name) {
  return Custom(
      name, StateType::kWhole, 1, {{{0, kRollCategories - 1}}},
      [](Game& game, const StateIndex& index) { return Wrap(kGet(game, index[0])); },
      [](Game& game, const StateIndex& index, const StateValue& value) {
        if (!Fits32(Whole(value))) return false;
        SettleAverages(game);  // the average over all rolls divides by their count
        kSet(game, index[0], static_cast<std::int32_t>(Whole(value)));
        return true;
      });
}

template <ResultKind kKind>
constexpr StateName Results(std::string_view name) {
  return Custom(
      name, StateType::kMoney, 3, {{{0, 1}, {0, 100}, {0, kResultRows - 1}}},
      [](Game& game, const StateIndex& index) {
        return Wrap(ResultCell(game, kKind, index[0], index[1], index[2]));
      },
      [](Game& game, const StateIndex& index, const StateValue& value) {
        SetResultCell(game, kKind, index[0], index[1], index[2], Money(value));
        return true;
      });
}

// Columns 1 to 3 of a payoff: numerator, whether it is a "to" ratio (-1 or 0), denominator.
MoneyAmount PayColumn(const PayRow& row, int column) {
  if (column == 1) return row.PayNumerator;
  if (column == 2) return MoneyAmount(row.PayIsTo ? -1 : 0);
  return row.PayDenominator;
}
void SetPayColumn(PayRow& row, int column, MoneyAmount value) {
  if (column == 1) row.PayNumerator = value;
  if (column == 2) row.PayIsTo = value.Raw() != 0;
  if (column == 3) row.PayDenominator = value;
}
template <auto kMember>
constexpr StateName Payoffs(std::string_view name, int first, int last) {
  return Custom(
      name, StateType::kMoney, 2, {{{first, last}, {1, 3}}},
      [](Game& game, const StateIndex& index) {
        return Wrap(PayColumn((game.*kMember)[static_cast<std::size_t>(index[0])], index[1]));
      },
      [](Game& game, const StateIndex& index, const StateValue& value) {
        SettlePhantoms(game);
        SetPayColumn((game.*kMember)[static_cast<std::size_t>(index[0])], index[1], Money(value));
        return true;
      });
}

// A list of texts of which element 1 is the first, without a place for element 0.
template <auto kMember>
constexpr StateName Texts(std::string_view name) {
  return Growing(
      name, StateType::kText,
      [](const Game& game) { return static_cast<int>((game.*kMember).size()); },
      [](Game& game, const StateIndex& index) {
        return Wrap((game.*kMember)[static_cast<std::size_t>(index[0] - 1)]);
      },
      nullptr);
}

int FlagCount(const Game& game) {
  return static_cast<int>(game.ScriptFlags.size());
}
template <auto kField>
constexpr StateName FlagField(std::string_view name) {
  using T = std::remove_reference_t<decltype(std::declval<ScriptFlag&>().*kField)>;
  return Growing(
      name, TypeOf<T>(), FlagCount,
      [](Game& game, const StateIndex& index) {
        return Wrap(game.ScriptFlags[static_cast<std::size_t>(index[0] - 1)].*kField);
      },
      [](Game& game, const StateIndex& index, const StateValue& value) {
        game.AnyFlagChanged = true;
        return Assign(game.ScriptFlags[static_cast<std::size_t>(index[0] - 1)].*kField, value);
      });
}

int HotKeyCount(const Game& game) {
  return static_cast<int>(game.HotKeys.size());
}
template <auto kField>
constexpr StateName HotKeyField(std::string_view name) {
  return Growing(
      name, StateType::kText, HotKeyCount,
      [](Game& game, const StateIndex& index) {
        return Wrap(game.HotKeys[static_cast<std::size_t>(index[0] - 1)].*kField);
      },
      nullptr);
}

int LineCount(const Game& game) {
  return static_cast<int>(game.ScriptLines.size());
}
template <auto kField>
constexpr StateName LineField(std::string_view name) {
  using T = std::remove_reference_t<decltype(std::declval<ScriptLine&>().*kField)>;
  return Growing(
      name, TypeOf<T>(), LineCount,
      [](Game& game, const StateIndex& index) {
        return Wrap(game.ScriptLines[static_cast<std::size_t>(index[0] - 1)].*kField);
      },
      [](Game& game, const StateIndex& index, const StateValue& value) {
        const bool done =
            Assign(game.ScriptLines[static_cast<std::size_t>(index[0] - 1)].*kField, value);
        ScriptLinesChanged(game);
        return done;
      });
}

int ChipsOnTable(const Game& game) {
  return static_cast<int>(game.ChipList.size());
}
// ChipList(n, 1 to 4): the bet, the chip, x and y of the n-th chip.
struct ChipColumn {
  std::int32_t TableChip::*number;
  std::int32_t low, high;
};
constexpr std::array<ChipColumn, 4> kChipColumns = {{{&TableChip::bet, 0, kLastStack},
                                                     {&TableChip::chip, 1, 6},
                                                     {&TableChip::x, -32768, 32767},
                                                     {&TableChip::y, -32768, 32767}}};
constexpr StateName ChipTable() {
  StateName entry = Custom(
      "ChipList", StateType::kWhole, 2, {{{1, 0}, {1, 4}}},
      [](Game& game, const StateIndex& index) {
        const ChipColumn& column = kChipColumns[static_cast<std::size_t>(index[1] - 1)];
        return Wrap(game.ChipList[static_cast<std::size_t>(index[0] - 1)].*column.number);
      },
      [](Game& game, const StateIndex& index, const StateValue& value) {
        const ChipColumn& column = kChipColumns[static_cast<std::size_t>(index[1] - 1)];
        if (Whole(value) < column.low || Whole(value) > column.high) return false;
        return Assign(game.ChipList[static_cast<std::size_t>(index[0] - 1)].*column.number, value);
      });
  entry.length = ChipsOnTable;
  return entry;
}

// Where a bet or a Chip-Stack of the table stands on the picture; 0 for other slots.
template <int Pixel::*kCoordinate>
constexpr StateName PlaceOnTable(std::string_view name) {
  return Custom(
      name, StateType::kReal, 1, {{{0, kAmountSlots - 1}}},
      [](Game& game, const StateIndex& index) -> StateValue {
        const Pixel place = PlaceOf(game, index[0]).value_or(Pixel());
        return static_cast<double>(place.*kCoordinate);
      },
      nullptr);
}

std::string BetNameOf(const Game& game, int slot) {
  if (slot > kFirstStack) {
    return game.StackPileName[static_cast<std::size_t>(slot - kFirstStack)];
  }
  return std::string(kBetName[static_cast<std::size_t>(slot)]);
}

constexpr bool IsPoint(std::int64_t number) {
  return number == 0 || (number >= 2 && number <= 12 && number != 7);
}
template <auto kMember>
constexpr StateName PointOf(std::string_view name) {
  StateName entry = Single<kMember>(name);
  entry.write = [](Game& game, const StateIndex&, const StateValue& value) {
    return IsPoint(Whole(value)) && Assign(game.*kMember, value);
  };
  return entry;
}

constexpr StateType kSwitch = StateType::kSwitch;
constexpr StateType kWhole = StateType::kWhole;
constexpr StateType kMoney = StateType::kMoney;
constexpr StateType kText = StateType::kText;

#define NAME(variable) Single<&Game::variable>(#variable)
#define BOUNDED(variable, low, high) Bounded<&Game::variable, low, high>(#variable)
#define ROW(variable, first, last) Row<&Game::variable>(#variable, first, last)
#define COUNTER(variable) Counter<k##variable>(#variable)
#define EVENTS(variable) RollEvents<variable, Set##variable>(#variable)

const StateName
    kRecord[] =
        {
            // The table.
            Custom(
                "BetAmount", kMoney, 1, {{{0, kAmountSlots - 1}}},
                [](Game& game, const StateIndex& index) { return Wrap(game.BetAmount[index[0]]); },
                [](Game& game, const StateIndex& index, const StateValue& value) {
                  const bool is_chip = index[0] >= kFirstChip && index[0] <= kLastChip;
                  if (is_chip && Money(value) < MoneyAmount(0)) return false;
                  if (index[0] == kBankroll) SettleAverages(game);
                  game.BetAmount.Set(index[0], Money(value));
                  return true;
                }),
            Custom(
                "BetAmountAtRollStart", kMoney, 1, {{{0, kAmountSlots - 1}}},
                [](Game& game, const StateIndex& index) {
                  return Wrap(AtRollStart(game, index[0]));
                },
                [](Game& game, const StateIndex& index, const StateValue& value) {
                  game.BetAmountAtRollStart[static_cast<std::size_t>(index[0])] = Money(value);
                  game.BetAmount.MarkForRollStart(index[0]);
                  return true;
                }),
            Custom(
                "BetAmountAtRollEnd", kMoney, 1, {{{0, kAmountSlots - 1}}},
                [](Game& game, const StateIndex& index) { return Wrap(AtRollEnd(game, index[0])); },
                [](Game& game, const StateIndex& index, const StateValue& value) {
                  game.BetAmountAtRollEnd[static_cast<std::size_t>(index[0])] = Money(value);
                  game.BetAmount.ChangedSinceEnd().Add(index[0]);
                  return true;
                }),
            Custom(
                "EstablishedAmount", kMoney, 1, {{{kComePoint, kPassLine}}},
                [](Game& game, const StateIndex& index) {
                  return Wrap(Established(game, index[0]));
                },
                [](Game& game, const StateIndex& index, const StateValue& value) {
                  SetEstablished(game, index[0], Money(value));
                  return true;
                }),
            ROW(LayVigPaid, 0, kSlotCount - 1),
            ROW(BuyVigPaid, 0, kSlotCount - 1),
            Custom(
                "BetState", kWhole, 1, {{{0, 100}}},
                [](Game& game, const StateIndex& index) { return Wrap(game.BetState[index[0]]); },
                [](Game& game, const StateIndex& index, const StateValue& value) {
                  if (Whole(value) < kCalledOff || Whole(value) > kCalledOn) return false;
                  game.BetState.Set(index[0], static_cast<int>(Whole(value)));
                  return true;
                }),
            Custom(
                "BetStreak", kWhole, 2, {{{0, 100}, {0, 1}}},
                [](Game& game, const StateIndex& index) {
                  return Wrap(index[1] == 1 ? game.BetStreak.Now(index[0])
                                            : game.BetStreak.Before(index[0]));
                },
                [](Game& game, const StateIndex& index, const StateValue& value) {
                  if (!Fits32(Whole(value))) return false;
                  const int run = static_cast<int>(Whole(value));
                  index[1] == 1 ? game.BetStreak.SetNow(index[0], run)
                                : game.BetStreak.SetBefore(index[0], run);
                  return true;
                }),
            Custom(
                "BetName", kText, 1, {{{0, kBetNames - 1}}},
                [](Game& game, const StateIndex& index) { return Wrap(BetNameOf(game, index[0])); },
                nullptr),
            Custom(
                "ChipCount", kWhole, 0, {},
                [](Game& game, const StateIndex&) { return Wrap(ChipsOnTable(game)); },
                [](Game& game, const StateIndex&, const StateValue& value) {
                  if (Whole(value) < 0 || Whole(value) > std::int64_t{kMaxTableChips}) return false;
                  game.ChipList.resize(static_cast<std::size_t>(Whole(value)));
                  return true;
                }),
            ChipTable(),
            PlaceOnTable<&Pixel::x>("BetX"),
            PlaceOnTable<&Pixel::y>("BetY"),
            BOUNDED(Die1, 1, 6),
            BOUNDED(Die2, 1, 6),
            BOUNDED(DiceTotal, 2, 12),
            PointOf<&Game::Point>("Point"),
            PointOf<&Game::PrevPoint>("PrevPoint"),
            PointOf<&Game::PrevPrevPoint>("PrevPrevPoint"),
            NAME(TotalOnTable),
            NAME(PayoffExact),
            NAME(PayoffNet),
            BOUNDED(CurrentBet, 0, kAmountSlots - 1),
            NAME(MustComeDown),
            NAME(PressUnit),
            NAME(BetRequest),
            NAME(BetChange),
            NAME(MinBetHere),
            NAME(MaxBetHere),
            NAME(OddsMultiple),
            NAME(OddsChangeUp),
            NAME(OddsChangeDown),
            NAME(BuyVigAmount),
            NAME(LayVigAmount),
            NAME(VigCarried),
            NAME(PutBetAllowedNow),
            NAME(CallBetMode),
            NAME(DragAmount),
            NAME(HitBet),
            BOUNDED(EntryBoxBet, 1, kLastStack),
            Custom(
                "EntryBoxText", kText, 0, {},
                [](Game& game, const StateIndex&) { return Wrap(TextInEntryBox(game)); }, nullptr),
            BOUNDED(LastStackBet, kFirstStack, kLastStack),
            BOUNDED(LastPanelBet, kPassLine, kBetCount),
            BOUNDED(LastGridColumn, 0, kSlotCount),
            BOUNDED(LastGridRow, kLay, kBig6),
            NAME(RollInProgress),
            NAME(KeepRolling),
            NAME(HyperDriveActive),
            NAME(GameChanged),
            NAME(DiceAlreadySet),
            NAME(DiceReturned),
            NAME(RefreshBetAmounts),
            NAME(RedrawTable),
            NAME(HyperDriveStopText),

            // The house rules.
            Payoffs<&Game::PayTable>("PayTable", 0, kPayRows - 1),
            Payoffs<&Game::FieldPayTable>("FieldPayTable", 1, kFieldRows - 1),
            Setting(NAME(MinPlacardBet)),
            Setting(NAME(MaxPlacardBet)),
            Setting(NAME(MaxOddsBet)),
            Setting(NAME(MaxPropBetPayoff)),
            Setting(ROW(OddsAllowed, 0, 4)),
            Setting(BOUNDED(OddsCalcMethod, 0, kSingleOddsTimes)),
            Setting(Single<&Game::AllowPutBets, SettlePhantoms>("AllowPutBets")),
            Setting(Single<&Game::LayVigPct, SettlePhantoms>("LayVigPct")),
            Setting(Single<&Game::BuyVigPct, SettlePhantoms>("BuyVigPct")),
            Setting(Single<&Game::LayVigAllBets, SettlePhantoms>("LayVigAllBets")),
            Setting(Single<&Game::BuyVigAllBets, SettlePhantoms>("BuyVigAllBets")),
            Setting(Single<&Game::LayVigRounding, SettlePhantoms, 0, kRoundUp>("LayVigRounding")),
            Setting(Single<&Game::BuyVigRounding, SettlePhantoms, 0, kRoundUp>("BuyVigRounding")),
            Setting(BOUNDED(BankrollInitType, 0, kCarryBankrollAndNet)),
            Setting(NAME(BankrollInitAmount)),
            Setting(NAME(AllowNegBankroll)),
            Setting(NAME(ATMAmount)),
            Setting(NAME(RollsPerHour)),

            // Auto-Play.
            Setting(BOUNDED(HandleWinningBets, 0, kHandleRules - 1)),
            Setting(BOUNDED(HandleLosingBets, 0, kHandleRules - 1)),
            Setting(Row<&Game::HandleChoiceTag, Nothing, 0, 3>("HandleChoiceTag", 0, 7)),
            Setting(ROW(HandleAmount, 0, 7)),
            Setting(Custom(
                "HandleUnits", kMoney, 1, {{{0, 7}}},
                [](Game& game, const StateIndex& index) {
                  return Wrap(game.HandleUnits[static_cast<std::size_t>(index[0])]);
                },
                [](Game& game, const StateIndex& index, const StateValue& value) {
                  if (Money(value) < MoneyAmount(0) || Money(value) > MoneyAmount(6)) return false;
                  game.HandleUnits[static_cast<std::size_t>(index[0])] = Money(value);
                  return true;
                })),
            BOUNDED(LastWinChoice, 0, 6),
            BOUNDED(LastLossChoice, 0, 6),
            Setting(BOUNDED(AutoAdjustBetAmounts, 0, kColorCorrection)),
            Setting(BOUNDED(LayBias, 0, kDecrease)),
            Setting(BOUNDED(PlaceBias, 0, kDecrease)),
            Setting(BOUNDED(DoBias, 0, kDecrease)),
            Setting(NAME(AutoTakeFullOdds)),
            Setting(NAME(AutoRemovePlaceBets)),
            Setting(NAME(AutoArrangeChips)),
            Setting(NAME(AutoRollDice)),
            Setting(NAME(NumAutoRolls)),
            NAME(AutoRollsRemaining),
            Setting(NAME(AutoRollDelay)),
            Setting(ROW(AutoStopOn, 0, kAutoStops - 1)),
            Setting(Custom(
                "WorkOnComeOut", kWhole, 1, {{{0, 100}}},
                [](Game& game, const StateIndex& index) {
                  return Wrap(game.WorkOnComeOut.Has(index[0]) ? 1 : 0);
                },
                [](Game& game, const StateIndex& index, const StateValue& value) {
                  if (Whole(value) != 0 && Whole(value) != 1) return false;
                  game.WorkOnComeOut.Put(index[0], Whole(value) == 1);
                  return true;
                })),

            // The dice.
            Setting(BOUNDED(RngSelected, 0, kRngCount - 1)),
            Setting(NAME(UserSeedMode)),
            Setting(NAME(ReSeedNewGames)),
            NAME(SeedValue),
            NAME(LastSeed),
            NAME(Ran2Idum),
            Custom(
                "DiceProbability", kWhole, 3, {{{0, 1}, {0, 7}, {0, 13}}},
                [](Game& game, const StateIndex& index) {
                  return Wrap(game.DiceProbability[static_cast<std::size_t>(index[0])]
                                                  [static_cast<std::size_t>(index[1])]
                                                  [static_cast<std::size_t>(index[2])]);
                },
                [](Game& game, const StateIndex& index, const StateValue& value) {
                  return Assign(game.DiceProbability[static_cast<std::size_t>(index[0])]
                                                    [static_cast<std::size_t>(index[1])]
                                                    [static_cast<std::size_t>(index[2])],
                                value);
                }),
            Setting(NAME(UseSkewedProbability)),
            Setting(BOUNDED(ProbabilityDisplay, 0, 3)),
            Setting(NAME(RollsOutOf)),
            NAME(ProbabilityFileName),
            NAME(ProbabilityChanged),
            BOUNDED(DiceRollFileMode, kRecorderOff, kPlayback),
            NAME(DiceRollFileName),
            NAME(DiceRollNext),
            NAME(DiceRollLast),
            NAME(DiceRollSelectEnd),
            NAME(DiceRollTopLine),
            Setting(BOUNDED(InsertRolls, kInsert, kTypeOver)),
            Setting(BOUNDED(PrintDieNumbers, 0, 1)),
            Setting(BOUNDED(PrintRollNumbers, 0, 1)),
            Setting(BOUNDED(PrintNumbersCalled, 0, 1)),
            Setting(BOUNDED(PrintSelectedRolls, 0, 1)),
            Setting(BOUNDED(RollPrintFontSize, 3, 20)),
            Custom(
                "RollHighlight", kSwitch, 2, {{{0, 6}, {0, 6}}},
                [](Game& game, const StateIndex& index) {
                  return Wrap(game.RollHighlight[static_cast<std::size_t>(index[0])]
                                                [static_cast<std::size_t>(index[1])]);
                },
                [](Game& game, const StateIndex& index, const StateValue& value) {
                  return Assign(game.RollHighlight[static_cast<std::size_t>(index[0])]
                                                  [static_cast<std::size_t>(index[1])],
                                value);
                }),

            // Roll statistics.
            EVENTS(RollCounts),
            EVENTS(RollsSinceLast),
            EVENTS(ScriptRollCounts),
            EVENTS(ScriptRollCountsSeen),
            EVENTS(ScriptRollsSince),
            EVENTS(ScriptRollsSinceSeen),
            Custom(
                "RollGapTable", kWhole, 2, {{{0, kRollCategories - 1}, {0, kGaps - 1}}},
                [](Game& game, const StateIndex& index) {
                  return Wrap(GapCell(game, index[0], index[1]));
                },
                [](Game& game, const StateIndex& index, const StateValue& value) {
                  return Assign(GapCell(game, index[0], index[1]), value);
                }),
            ROW(GameCounters, 0, kGameCounters - 1),
            COUNTER(RollsThisHand),
            COUNTER(PassesThisHand),
            COUNTER(HandsCompleted),
            COUNTER(LongestHandRolls),
            COUNTER(MostPassesInHand),
            COUNTER(TotalHandRolls),
            COUNTER(TotalHandPasses),
            COUNTER(PointsEstablished),
            COUNTER(PassesOnPoint),
            COUNTER(PassesOnComeOut),
            COUNTER(TotalPasses),
            COUNTER(SevenOuts),
            COUNTER(TotalMisses),
            COUNTER(ComeOutRolls),
            COUNTER(MissesThisHand),
            COUNTER(MostMissesInHand),
            COUNTER(LastHandRolls),
            COUNTER(LastHandPasses),
            COUNTER(LastHandMisses),

            // Bet results.
            Results<ResultKind::kWagers>("BetWagers"),
            Results<ResultKind::kWins>("BetWins"),
            Results<ResultKind::kLosses>("BetLosses"),

            // The bankroll and its graph.
            NAME(BankrollHigh),
            NAME(BankrollLow),
            Single<&Game::BankrollSum, SettleAverages>("BankrollSum"),
            NAME(AmountInvested),
            Row<&Game::BankrollHistory, SettleAverages>("BankrollHistory", 0, kHistorySize - 1),
            Single<&Game::BankrollHistoryCount, SettleAverages, 0, kGraphRolls>(
                "BankrollHistoryCount"),
            Custom(
                "BankrollAverages", kMoney, 1, {{{0, kGraphRolls}}},
                [](Game& game, const StateIndex& index) {
                  return Wrap(index[0] == 0 ? game.BankrollAverages[0]
                                            : BankrollAverage(game, index[0]));
                },
                [](Game& game, const StateIndex& index, const StateValue& value) {
                  SettleAverages(game);
                  game.BankrollAverages[static_cast<std::size_t>(index[0])] = Money(value);
                  return true;
                }),
            NAME(GraphHigh),
            NAME(GraphLow),
            Setting(NAME(GraphScale)),
            Setting(NAME(GraphManualScale)),
            Setting(NAME(GraphTop)),
            Setting(BOUNDED(GraphAdjustType, 0, 2)),
            Setting(BOUNDED(GraphStyle, 0, 2)),
            Setting(BOUNDED(GraphColorScheme, 0, 7)),
            Setting(NAME(GraphGridLines)),
            Setting(NAME(GraphRefLines)),
            Setting(Single<&Game::GraphShowAverage, SettleAverages>("GraphShowAverage")),
            Setting(
                Single<&Game::GraphAverageRolls, SettleAverages, 0, kGraphRolls>(
                    "GraphAverageRolls")),
            Setting(NAME(GraphAutoPrint)),
            BOUNDED(GraphsPerPage, 1, kGraphsPerPage),
            BOUNDED(GraphsOnPage, 0, kGraphsPerPage - 1),
            NAME(LastPrintedRoll),
            Row<&Game::RefLineRoll, Nothing, 0, kGraphRolls - 1>("RefLineRoll", 1, 2),
            ROW(RefLineLevel, 1, 2),
            ROW(RefLineOnAverage, 1, 2),
            Setting(BOUNDED(ThrottleSetting, 0, 10)),

            // Preferences and what the screens remember.
            Setting(BOUNDED(ConfigureTab, 0, 9)),
            Setting(NAME(ChipColor)),
            Setting(NAME(ChipPicture)),
            Setting(NAME(DicePicture)),
            Setting(BOUNDED(DiceAction, kDiceStationary, kDiceRemain)),
            Setting(ROW(TableColors, 0, 7)),
            Setting(BOUNDED(TextureRow, 0, 8)),
            Setting(NAME(UseCentsSymbol)),
            Setting(NAME(StickPersonChoice)),
            Setting(NAME(DiceSoundChoice)),
            Setting(NAME(ChipSoundChoice)),
            Setting(NAME(WinSoundChoice)),
            ROW(StickCallFiles, 1, 18),
            Texts<&Game::StickPersonList>("StickPersonList"),
            Texts<&Game::DiceSoundList>("DiceSoundList"),
            Texts<&Game::WinSoundList>("WinSoundList"),
            Texts<&Game::ChipSoundList>("ChipSoundList"),
            Setting(NAME(AutoBetSoundOff)),
            Setting(NAME(AllSoundOff)),
            Setting(NAME(NotifyFlags)),
            Setting(NAME(PrintColorWin)),
            Setting(NAME(PrintColorLoss)),
            Setting(NAME(PrintColorOther)),
            Setting(NAME(SnapMouse)),
            Setting(BOUNDED(RollsPerTimeUnit, 0, 5)),
            Setting(NAME(IncludeZeroOutcomes)),
            Setting(NAME(ShowMiscData)),
            Setting(NAME(AdvantageScroll)),
            Setting(NAME(PayoffsScroll)),
            Setting(ROW(CompBetMask, 1, 3)),
            Setting(BOUNDED(BaseComps, 0, 2)),
            Setting(NAME(CompsUseTrueProbs)),
            Setting(NAME(CompRate)),
            Setting(NAME(RollTotalsDisplay)),
            Setting(NAME(RollTotalsBackColor)),
            Setting(NAME(RollTotalsGraphColor)),
            Setting(NAME(RollTotalsHScroll)),
            Setting(NAME(RollTotalsVScroll)),
            Setting(NAME(ShowSkewedPercent)),
            Setting(NAME(RollFreqsListIndex)),
            Setting(BOUNDED(GamesViewChoice, 0, 15)),
            Setting(BOUNDED(GamesDisplayChoice, 0, 31)),
            NAME(BetResultsSelection),
            Setting(NAME(KeyInBetAmounts)),
            Setting(NAME(DisplayBetAmounts)),
            Setting(NAME(RollYourOwnNumbers)),
            Setting(NAME(ShowHopBets)),
            Setting(NAME(ShowLineNumbers)),
            Setting(NAME(StackDisplayZero)),
            Setting(NAME(StackListScroll)),
            Setting(NAME(RyonPanelState)),
            Setting(NAME(RyonButtonColor)),

            // Chip-Stacks.
            ROW(ChipStackName, 0, kStackCount - 1),
            Row<&Game::StackSlots, Nothing, kFirstStack, kLastStack>("StackSlots", 1, 4),

            // The script.
            Custom(
                "ScriptLineCount", kWhole, 0,
                {}, [](Game& game, const StateIndex&) { return Wrap(LineCount(game)); }, nullptr),
            LineField<&ScriptLine::LineKind>("LineKind"),
            LineField<&ScriptLine::LineCode>("LineCode"),
            LineField<&ScriptLine::LineName>("LineName"),
            LineField<&ScriptLine::LineAmount>("LineAmount"),
            LineField<&ScriptLine::LineSubject>("LineSubject"),
            LineField<&ScriptLine::LineSubjectStack>("LineSubjectStack"),
            LineField<&ScriptLine::LineReserved1>("LineReserved1"),
            LineField<&ScriptLine::LineTarget>("LineTarget"),
            LineField<&ScriptLine::LineTargetStack>("LineTargetStack"),
            LineField<&ScriptLine::LineReserved2>("LineReserved2"),
            LineField<&ScriptLine::LineSelected>("LineSelected"),
            LineField<&ScriptLine::LineShade>("LineShade"),
            LineField<&ScriptLine::LineText>("LineText"),
            Growing(
                "ScriptFlags", StateType::kFlag, FlagCount,
                [](Game& game, const StateIndex& index) {
                  return StateValue(game.ScriptFlags[static_cast<std::size_t>(index[0] - 1)]);
                },
                nullptr),
            FlagField<&ScriptFlag::FlagName>("FlagName"),
            FlagField<&ScriptFlag::FlagValue>("FlagValue"),
            FlagField<&ScriptFlag::FlagChanged>("FlagChanged"),
            Texts<&Game::ScriptLabels>("ScriptLabels"),
            NAME(ScriptFileName),
            NAME(ScriptUnsaved),
            NAME(ScriptNeedsInit),
            BOUNDED(ScriptActive, 0, 1),
            NAME(HotKeyRunning),
            NAME(ScriptFileMode),
            NAME(ScriptCursorLine),
            NAME(AutoBetRunning),
            NAME(CurrentLine),
            NAME(ShowSteps),
            NAME(ScriptStartTime),
            NAME(ScriptOutputFile),

            // The Hot-Keys.
            Custom(
                "HotKeyCount", kWhole, 0,
                {}, [](Game& game, const StateIndex&) { return Wrap(HotKeyCount(game)); }, nullptr),
            Growing(
                "HotKeyChar", kText, HotKeyCount,
                [](Game& game, const StateIndex& index) {
                  const HotKey& row = game.HotKeys[static_cast<std::size_t>(index[0] - 1)];
                  return Wrap(std::string(1, row.HotKeyChar));
                },
                nullptr),
            HotKeyField<&HotKey::HotKeyFile>("HotKeyFile"),
            HotKeyField<&HotKey::HotKeyDescription>("HotKeyDescription"),
            NAME(HotKeyCursor),

            // The message dialog.
            NAME(MsgText),
            NAME(MsgTitle),
            NAME(MsgHelpId),
            NAME(MsgOptions),
            NAME(MsgAnswer),
            NAME(MsgInput2),

            // Files.
            NAME(AppPath),
            NAME(GameFileName),
            NAME(GamesLogFile),
            NAME(GamesCount),
            NAME(GamesIncludedCount),
            NAME(GamesBreakLow),
            NAME(GamesBreakHigh),
            BOUNDED(GamesBarWidth, 1, 105),
            BOUNDED(GamesTopLine, 1, kAnyHigh),
            ROW(GamesPointers, 0, 1),
            BOUNDED(GamesMeanColumn, 0, kHistogramColumns - 1),
            NAME(FileDialogPath),
            NAME(FileDialogName),
            NAME(FileStatus),
            NAME(LastErrorText),
};

#undef NAME
#undef BOUNDED
#undef ROW
#undef COUNTER
#undef EVENTS

}  // namespace

std::span<const StateName> StateRecord() {
  return kRecord;
}

const StateName* FindStateName(std::string_view name) {
  for (const StateName& entry : kRecord) {
    if (EqualIgnoringCase(entry.name, name)) return &entry;
  }
  return nullptr;
}

StateBounds BoundsOf(const Game& game, const StateName& entry, int index) {
  StateBounds bounds = entry.bounds[static_cast<std::size_t>(index)];
  if (index == 0 && entry.length != nullptr) {
    bounds.last = bounds.first + entry.length(game) - 1;
  }
  return bounds;
}

}  // namespace feltmaster
