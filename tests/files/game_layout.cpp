#include "files/game_layout.h"

#include <cmath>
#include <sstream>

namespace game_layout {

using feltmaster::MoneyAmount;
using feltmaster::StateType;
using feltmaster::StateValue;

namespace {

constexpr std::int64_t kAmounts = 5'000'000'000;  // up to half a million, with cents
constexpr std::int64_t kMost32 = 2'147'483'647;
constexpr std::int64_t kRolls = 1'000'000'000;

class Table {
 public:
  std::vector<Element> list;

  void Add(const std::string& name, feltmaster::StateIndex index, Form form, int record, int slot,
           std::int64_t low, std::int64_t high) {
    const int at = (record - 1) * 256 + slot * SizeOf(form);
    list.push_back({name, index, form, static_cast<std::size_t>(at), low, high});
  }
};

// Variables that follow each other: an amount "$", a switch "?", or a whole number and its bounds.
struct Run {
  int record;
  int slot;
  const char* variables;
};
constexpr Run kSettings[] = {
    {8, 0,
     "ConfigureTab 0 9, ChipColor 1 5, ChipPicture 1 7, DicePicture 1 5, DiceAction 0 3, "
     "RollsPerHour $, UseCentsSymbol ?, StickPersonChoice 0 50, DiceSoundChoice 0 50, "
     "ChipSoundChoice 0 50, WinSoundChoice 0 50, AutoBetSoundOff ?, AllSoundOff ?"},
    {8, 16,
     "BaseComps 0 2, CompsUseTrueProbs ?, CompRate $, NotifyFlags 0 31, PrintColorWin 0 15, "
     "PrintColorLoss 0 15, PrintColorOther 0 15, SnapMouse ?, RngSelected 0 7, UserSeedMode ?, "
     "ReSeedNewGames ?"},
    {9, 0, "MinPlacardBet $, MaxPlacardBet $"},
    {9, 7,
     "LayVigPct $, LayVigRounding 0 2, LayVigAllBets ?, BuyVigPct $, BuyVigRounding 0 2, "
     "BuyVigAllBets ?, AllowPutBets ?, UseSkewedProbability ?, ProbabilityDisplay 0 3, "
     "RollsOutOf $, IncludeZeroOutcomes ?, ShowMiscData ?, AdvantageScroll 1 68, "
     "PayoffsScroll 1 62, AllowNegBankroll ?, BankrollInitType 0 3, BankrollInitAmount $, "
     "ATMAmount $, BankrollSum $, AmountInvested $, MaxPropBetPayoff $, MaxOddsBet $"},
    {10, 0, "AutoAdjustBetAmounts 0 2, AutoArrangeChips ?, AutoTakeFullOdds ?"},
    {10, 4,
     "AutoRemovePlaceBets ?, HandleWinningBets 0 7, HandleLosingBets 0 7, AutoRollDice ?, "
     "NumAutoRolls 0 100000000, AutoRollsRemaining 0 100000000, AutoRollDelay 0 99"},
    {10, 28, "LayBias 0 2, PlaceBias 0 2, DoBias 0 2"},
    {11, 18,
     "RollTotalsDisplay 0 3, RollTotalsBackColor 0 15, RollTotalsGraphColor 0 9, "
     "RollTotalsHScroll 0 32767, RollTotalsVScroll 0 32767, OddsCalcMethod 0 5"},
    {12, 1, "KeyInBetAmounts ?, DisplayBetAmounts ?, RollYourOwnNumbers ?"},
    {12, 5, "ShowHopBets ?"},
    {12, 7,
     "Point 8 12, PrevPoint 2 6, PrevPrevPoint 8 12, Die1 1 6, Die2 1 6, TotalOnTable $, "
     "ScriptActive 0 1, ShowSteps ?, ShowLineNumbers ?"},
    {12, 17, "BankrollHigh $, BankrollLow $, BankrollHistoryCount 0 525, GraphAutoPrint ?"},
    {12, 23,
     "GraphTop $, GraphRefLines ?, GraphColorScheme 0 7, GraphAdjustType 0 2, GraphStyle 0 2, "
     "GraphGridLines ?, GraphShowAverage ?, GraphAverageRolls 0 525, ThrottleSetting 0 10"},
    {14, 0,
     "DiceRollFileMode 0 2, InsertRolls 0 1, PrintDieNumbers 0 1, PrintRollNumbers 0 1, "
     "PrintSelectedRolls 0 1, RollPrintFontSize 3 20, DiceRollNext 0 1000000, "
     "DiceRollLast 0 1000000, StackDisplayZero ?, StackListScroll 0 99"},
    {14, 14,
     "ShowSkewedPercent ?, RollFreqsListIndex 0 80, GamesViewChoice 0 15, "
     "GamesDisplayChoice 0 31, PrintNumbersCalled 0 1, RyonPanelState 0 127"},
};

void Settings(Table& t) {
  for (const Run& run : kSettings) {
    std::istringstream variables(run.variables);
    std::string variable;
    for (int slot = run.slot; std::getline(variables, variable, ','); ++slot) {
      std::istringstream words(variable);
      std::string name, low;
      words >> name >> low;
      if (low == "$") {
        t.Add(name, {}, Form::kAmount, run.record, slot, -kAmounts, kAmounts);
      } else if (low == "?") {
        t.Add(name, {}, Form::kSwitch, run.record, slot, 0, 1);
      } else {
        std::int64_t high = 0;
        words >> high;
        t.Add(name, {}, Form::kWhole, run.record, slot, std::stoll(low), high);
      }
    }
  }
  for (int i = 1; i <= 3; ++i) {
    t.Add("CompBetMask", {i}, Form::kWhole, 8, 12 + i, -kMost32 - 1, kMost32);
  }
  for (int i = 0; i <= 4; ++i) {
    t.Add("OddsAllowed", {i}, Form::kAmount, 9, 2 + i, -kAmounts, kAmounts);
  }
  for (int i = 0; i <= 16; ++i) t.Add("AutoStopOn", {i}, Form::kSwitch, 10, 11 + i, 0, 1);
  int slot = 0;
  for (const int option : {0, 2, 4, 5}) {
    t.Add("HandleChoiceTag", {option}, Form::kWhole, 11, slot++, 0, 3);
  }
  for (int i = 0; i <= 7; ++i) t.Add("HandleAmount", {i}, Form::kAmount, 11, 4 + i, 0, kAmounts);
  for (int i = 0; i <= 5; ++i) t.Add("HandleUnits", {i}, Form::kAmount, 11, 12 + i, 0, 60'000);
  t.Add("GraphScale", {}, Form::kAmount, 12, 21, 100, 1'000'000'000);
  t.Add("GraphManualScale", {}, Form::kAmount, 12, 22, 100, 1'000'000'000);
  for (int i = 1; i <= 6; ++i) {
    for (int j = 1; j <= 6; ++j) {
      t.Add("RollHighlight", {i, j}, Form::kMark, 13, (i - 1) * 6 + j, 0, 1);
    }
  }
  for (int i = 1; i <= 4; ++i) t.Add("StackSlots", {i}, Form::kWhole, 14, 9 + i, 100, 199);
  t.Add("SeedValue", {}, Form::kLong, 15, 0, -kMost32 - 1, kMost32);
  t.Add("LastSeed", {}, Form::kLong, 15, 1, -kMost32 - 1, kMost32);
  for (int i = 0; i <= 7; ++i) t.Add("TableColors", {i}, Form::kLong, 15, 2 + i, 0, 0xFFFFFF);
  t.Add("TextureRow", {}, Form::kLong, 15, 10, 0, 8);
}

void Bets(Table& t) {
  int record = 16;
  for (const char* name : {"BetAmount", "BetAmountAtRollStart", "BetAmountAtRollEnd"}) {
    for (int n = 0; n <= 199; ++n) {
      t.Add(name, {n}, Form::kAmount, record + n / 25, n % 25, 0, kAmounts);
    }
    t.Add(name, {200}, Form::kAmount, record + 7, 25, 0, kAmounts);
    record += 8;
  }
  for (int n = 0; n <= 39; ++n) {
    t.Add("EstablishedAmount", {11 + n}, Form::kAmount, 40 + n / 20, n % 20, 0, kAmounts);
  }
  t.Add("EstablishedAmount", {51}, Form::kAmount, 41, 20, 0, kAmounts);
  for (int n = 0; n <= 9; ++n) {
    t.Add("LayVigPaid", {n}, Form::kAmount, 42, 1 + n, 0, kAmounts);
    t.Add("BuyVigPaid", {n}, Form::kAmount, 42, 13 + n, 0, kAmounts);
  }
  for (int n = 0; n <= 100; ++n) t.Add("WorkOnComeOut", {n}, Form::kInteger, 43, n, 0, 1);
  for (int n = 1; n <= 100; ++n) t.Add("BetState", {n}, Form::kInteger, 44, n, -1, 2);
  int place = 0;
  for (int column = 1; column <= 3; ++column) {
    for (int bet = 1; bet <= 100; ++bet, ++place) {
      const Form form = column == 2 ? Form::kSwitch : Form::kAmount;
      t.Add("PayTable", {bet, column}, form, 45 + place / 32, place % 32, column == 2 ? 0 : 1,
            column == 2 ? 1 : 100'000);
    }
  }
  place = 0;
  for (int column = 1; column <= 3; ++column) {
    for (int row = 1; row <= 21; ++row, ++place) {
      const Form form = column == 2 ? Form::kSwitch : Form::kAmount;
      t.Add("FieldPayTable", {row, column}, form, 55 + place / 32, place % 32, column == 2 ? 0 : 1,
            column == 2 ? 1 : 100'000);
    }
  }
}

void Statistics(Table& t) {
  int record = 57;
  for (const std::string name : {"BetWagers", "BetWins", "BetLosses"}) {
    int place = 0;
    for (int series = 0; series <= 1; ++series) {
      for (int bet = 1; bet <= 100; ++bet) {
        for (int row = 0; row <= 7; ++row, ++place) {
          const bool come_on =
              name == "BetWagers" && series == 0 && row == 0 && bet >= 11 && bet <= 30;
          t.Add(name, {series, bet, row}, come_on ? Form::kWhole : Form::kAmount,
                record + place / 32, place % 32, 0, come_on ? 1 : kAmounts);
        }
      }
    }
    record += 50;
  }
  for (int n = 0; n <= 1050; ++n) {
    t.Add("BankrollHistory", {n}, Form::kAmount, 207 + n / 32, n % 32, -kAmounts, kAmounts);
  }
  for (int n = 1; n <= 100; ++n) {
    t.Add("BetStreak", {n, 0}, Form::kInteger, 240, n, -32'768, 32'767);
    t.Add("BetStreak", {n, 1}, Form::kInteger, 241, n, -32'768, 32'767);
  }
  record = 242;
  for (const char* name : {"RollCounts", "RollsSinceLast", "ScriptRollCounts",
                           "ScriptRollCountsSeen", "ScriptRollsSince", "ScriptRollsSinceSeen"}) {
    for (int n = 0; n <= 90; ++n) {
      t.Add(name, {n}, Form::kLong, record + n / 64, n % 64, 0, kRolls);
    }
    record += 2;
  }
  int place = 0;
  for (int category = 1; category <= 90; ++category) {
    for (int gap = 0; gap <= 200; ++gap, ++place) {
      t.Add("RollGapTable", {category, gap}, Form::kLong, 254 + place / 64, place % 64, 0, kRolls);
    }
  }
  for (int n = 0; n <= 19; ++n) t.Add("GameCounters", {n}, Form::kLong, 537, n, 0, kRolls);
  for (int n = 0; n <= 99; ++n) {
    t.Add("ChipStackName", {n}, Form::kText, 538 + n / 3, n % 3, 0, 0);
  }
}

}  // namespace

std::vector<Element> Elements() {
  Table table;
  Settings(table);
  Bets(table);
  Statistics(table);
  return std::move(table.list);
}

int SizeOf(Form form) {
  switch (form) {
    case Form::kLong:
      return 4;
    case Form::kInteger:
    case Form::kMark:
      return 2;
    case Form::kText:
      return 80;
    default:
      return 8;
  }
}

std::int64_t NumberAt(const std::string& bytes, std::size_t offset, int size) {
  std::uint64_t value = 0;
  for (int i = size - 1; i >= 0; --i) {
    value = value * 256 + static_cast<unsigned char>(bytes.at(offset + static_cast<unsigned>(i)));
  }
  const int shift = 64 - 8 * size;
  return static_cast<std::int64_t>(value << shift) >> shift;
}

void PutNumber(std::string& bytes, std::size_t offset, int size, std::int64_t value) {
  for (int i = 0; i < size; ++i) {
    bytes.at(offset + static_cast<unsigned>(i)) = static_cast<char>(value >> (8 * i) & 255);
  }
}

std::int64_t Stored(Form form, const StateValue& value) {
  std::int64_t number = 0;
  if (const auto* truth = std::get_if<bool>(&value)) {
    number = *truth ? -1 : 0;
  } else if (const auto* whole = std::get_if<std::int64_t>(&value)) {
    number = *whole;
  } else if (const auto* real = std::get_if<double>(&value)) {
    return std::llround(*real * 10'000);
  } else {
    return std::get<MoneyAmount>(value).Raw();
  }
  return form == Form::kWhole || form == Form::kSwitch ? number * 10'000 : number;
}

StateValue Meaning(Form form, StateType type, std::int64_t stored) {
  const bool scaled = form == Form::kWhole || form == Form::kSwitch;
  switch (type) {
    case StateType::kSwitch:
      return stored != 0;
    case StateType::kWhole:
      return scaled ? stored / 10'000 : stored;
    case StateType::kReal:
      return static_cast<double>(stored) / 10'000;
    default:
      return MoneyAmount::FromRaw(stored);
  }
}

}  // namespace game_layout
