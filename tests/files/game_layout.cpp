#include "files/game_layout.h"

#include <cmath>

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

  void Money(const char* name, int record, int slot) {
    Add(name, {}, Form::kAmount, record, slot, -kAmounts, kAmounts);
  }
  void Whole(const char* name, int record, int slot, std::int64_t low, std::int64_t high) {
    Add(name, {}, Form::kWhole, record, slot, low, high);
  }
  void Bool(const char* name, int record, int slot) {
    Add(name, {}, Form::kSwitch, record, slot, 0, 1);
  }
  void Add(const std::string& name, feltmaster::StateIndex index, Form form, int record, int slot,
           std::int64_t low, std::int64_t high) {
    const int at = (record - 1) * 256 + slot * SizeOf(form);
    list.push_back({name, index, form, static_cast<std::size_t>(at), low, high});
  }
};

void Settings(Table& t) {
  t.Whole("ConfigureTab", 8, 0, 0, 9);
  t.Whole("ChipColor", 8, 1, 1, 5);
  t.Whole("ChipPicture", 8, 2, 1, 7);
  t.Whole("DicePicture", 8, 3, 1, 5);
  t.Whole("DiceAction", 8, 4, 0, 3);
  t.Money("RollsPerHour", 8, 5);
  t.Bool("UseCentsSymbol", 8, 6);
  t.Whole("StickPersonChoice", 8, 7, 0, 50);
  t.Whole("DiceSoundChoice", 8, 8, 0, 50);
  t.Whole("ChipSoundChoice", 8, 9, 0, 50);
  t.Whole("WinSoundChoice", 8, 10, 0, 50);
  t.Bool("AutoBetSoundOff", 8, 11);
  t.Bool("AllSoundOff", 8, 12);
  for (int i = 1; i <= 3; ++i) {
    t.Add("CompBetMask", {i}, Form::kWhole, 8, 12 + i, -kMost32 - 1, kMost32);
  }
  t.Whole("BaseComps", 8, 16, 0, 2);
  t.Bool("CompsUseTrueProbs", 8, 17);
  t.Money("CompRate", 8, 18);
  t.Whole("NotifyFlags", 8, 19, 0, 31);
  t.Whole("PrintColorWin", 8, 20, 0, 15);
  t.Whole("PrintColorLoss", 8, 21, 0, 15);
  t.Whole("PrintColorOther", 8, 22, 0, 15);
  t.Bool("SnapMouse", 8, 23);
  t.Whole("RngSelected", 8, 24, 0, 7);
  t.Bool("UserSeedMode", 8, 25);
  t.Bool("ReSeedNewGames", 8, 26);

  t.Money("MinPlacardBet", 9, 0);
  t.Money("MaxPlacardBet", 9, 1);
  for (int i = 0; i <= 4; ++i) {
    t.Add("OddsAllowed", {i}, Form::kAmount, 9, 2 + i, -kAmounts, kAmounts);
  }
  t.Money("LayVigPct", 9, 7);
  t.Whole("LayVigRounding", 9, 8, 0, 2);
  t.Bool("LayVigAllBets", 9, 9);
  t.Money("BuyVigPct", 9, 10);
  t.Whole("BuyVigRounding", 9, 11, 0, 2);
  t.Bool("BuyVigAllBets", 9, 12);
  t.Bool("AllowPutBets", 9, 13);
  t.Bool("UseSkewedProbability", 9, 14);
  t.Whole("ProbabilityDisplay", 9, 15, 0, 3);
  t.Money("RollsOutOf", 9, 16);
  t.Bool("IncludeZeroOutcomes", 9, 17);
  t.Bool("ShowMiscData", 9, 18);
  t.Whole("AdvantageScroll", 9, 19, 1, 68);
  t.Whole("PayoffsScroll", 9, 20, 1, 62);
  t.Bool("AllowNegBankroll", 9, 21);
  t.Whole("BankrollInitType", 9, 22, 0, 3);
  t.Money("BankrollInitAmount", 9, 23);
  t.Money("ATMAmount", 9, 24);
  t.Money("BankrollSum", 9, 25);
  t.Money("AmountInvested", 9, 26);
  t.Money("MaxPropBetPayoff", 9, 27);
  t.Money("MaxOddsBet", 9, 28);

  t.Whole("AutoAdjustBetAmounts", 10, 0, 0, 2);
  t.Bool("AutoArrangeChips", 10, 1);
  t.Bool("AutoTakeFullOdds", 10, 2);
  t.Bool("AutoRemovePlaceBets", 10, 4);
  t.Whole("HandleWinningBets", 10, 5, 0, 7);
  t.Whole("HandleLosingBets", 10, 6, 0, 7);
  t.Bool("AutoRollDice", 10, 7);
  t.Whole("NumAutoRolls", 10, 8, 0, 100'000'000);
  t.Whole("AutoRollsRemaining", 10, 9, 0, 100'000'000);
  t.Whole("AutoRollDelay", 10, 10, 0, 99);
  for (int i = 0; i <= 16; ++i) t.Add("AutoStopOn", {i}, Form::kSwitch, 10, 11 + i, 0, 1);
  t.Whole("LayBias", 10, 28, 0, 2);
  t.Whole("PlaceBias", 10, 29, 0, 2);
  t.Whole("DoBias", 10, 30, 0, 2);

  int slot = 0;
  for (const int option : {0, 2, 4, 5}) {
    t.Add("HandleChoiceTag", {option}, Form::kWhole, 11, slot++, 0, 3);
  }
  for (int i = 0; i <= 7; ++i) t.Add("HandleAmount", {i}, Form::kAmount, 11, 4 + i, 0, kAmounts);
  for (int i = 0; i <= 5; ++i) t.Add("HandleUnits", {i}, Form::kAmount, 11, 12 + i, 0, 60'000);
  t.Whole("RollTotalsDisplay", 11, 18, 0, 3);
  t.Whole("RollTotalsBackColor", 11, 19, 0, 15);
  t.Whole("RollTotalsGraphColor", 11, 20, 0, 9);
  t.Whole("RollTotalsHScroll", 11, 21, 0, 32'767);
  t.Whole("RollTotalsVScroll", 11, 22, 0, 32'767);
  t.Whole("OddsCalcMethod", 11, 23, 0, 5);

  t.Bool("KeyInBetAmounts", 12, 1);
  t.Bool("DisplayBetAmounts", 12, 2);
  t.Bool("RollYourOwnNumbers", 12, 3);
  t.Bool("ShowHopBets", 12, 5);
  t.Whole("Point", 12, 7, 8, 12);
  t.Whole("PrevPoint", 12, 8, 2, 6);
  t.Whole("PrevPrevPoint", 12, 9, 8, 12);
  t.Whole("Die1", 12, 10, 1, 6);
  t.Whole("Die2", 12, 11, 1, 6);
  t.Money("TotalOnTable", 12, 12);
  t.Whole("ScriptActive", 12, 13, 0, 1);
  t.Bool("ShowSteps", 12, 14);
  t.Bool("ShowLineNumbers", 12, 15);
  t.Money("BankrollHigh", 12, 17);
  t.Money("BankrollLow", 12, 18);
  t.Whole("BankrollHistoryCount", 12, 19, 0, 525);
  t.Bool("GraphAutoPrint", 12, 20);
  t.Add("GraphScale", {}, Form::kAmount, 12, 21, 100, 1'000'000'000);
  t.Add("GraphManualScale", {}, Form::kAmount, 12, 22, 100, 1'000'000'000);
  t.Money("GraphTop", 12, 23);
  t.Bool("GraphRefLines", 12, 24);
  t.Whole("GraphColorScheme", 12, 25, 0, 7);
  t.Whole("GraphAdjustType", 12, 26, 0, 2);
  t.Whole("GraphStyle", 12, 27, 0, 2);
  t.Bool("GraphGridLines", 12, 28);
  t.Bool("GraphShowAverage", 12, 29);
  t.Whole("GraphAverageRolls", 12, 30, 0, 525);
  t.Whole("ThrottleSetting", 12, 31, 0, 10);

  for (int i = 1; i <= 6; ++i) {
    for (int j = 1; j <= 6; ++j) {
      t.Add("RollHighlight", {i, j}, Form::kMark, 13, (i - 1) * 6 + j, 0, 1);
    }
  }
  t.Whole("DiceRollFileMode", 14, 0, 0, 2);
  t.Whole("InsertRolls", 14, 1, 0, 1);
  t.Whole("PrintDieNumbers", 14, 2, 0, 1);
  t.Whole("PrintRollNumbers", 14, 3, 0, 1);
  t.Whole("PrintSelectedRolls", 14, 4, 0, 1);
  t.Whole("RollPrintFontSize", 14, 5, 3, 20);
  t.Whole("DiceRollNext", 14, 6, 0, 1'000'000);
  t.Whole("DiceRollLast", 14, 7, 0, 1'000'000);
  t.Bool("StackDisplayZero", 14, 8);
  t.Whole("StackListScroll", 14, 9, 0, 99);
  for (int i = 1; i <= 4; ++i) t.Add("StackSlots", {i}, Form::kWhole, 14, 9 + i, 100, 199);
  t.Bool("ShowSkewedPercent", 14, 14);
  t.Whole("RollFreqsListIndex", 14, 15, 0, 80);
  t.Whole("GamesViewChoice", 14, 16, 0, 15);
  t.Whole("GamesDisplayChoice", 14, 17, 0, 31);
  t.Whole("PrintNumbersCalled", 14, 18, 0, 1);
  t.Whole("RyonPanelState", 14, 19, 0, 127);

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
