#include "config/configure.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <limits>
#include <optional>
#include <variant>
#include <vector>

#include "autobet/message.h"
#include "automation/auto_play.h"
#include "base/number_format.h"
#include "base/text.h"
#include "config/payoffs.h"
#include "config/table_colors.h"
#include "dice/rng.h"
#include "engine/amounts.h"
#include "engine/bet_limits.h"
#include "engine/chip_list.h"
#include "engine/place_bet.h"
#include "engine/sounds.h"
#include "engine/table_effects.h"
#include "stats/bet_results.h"
#include "stats/roll_statistics.h"

namespace feltmaster {

namespace {

// ConfigureTab
constexpr std::int32_t kChecksTab = 0;
constexpr std::int32_t kBetsTab = 6;
constexpr std::int32_t kPayoffsTab = 7;
constexpr std::int32_t kAdvantageTab = 9;

constexpr int kPayoffRowsShown = 21;
constexpr int kLastPayoffScroll = kPayoffGridRows - kPayoffRowsShown + 1;
constexpr int kLastAdvantageScroll = kBetCount - kPayoffRowsShown + 1;

constexpr std::array<int, kChipCount> kDefaultDenominations = {1, 5, 25, 100, 500};

struct RateUnit {
  int multiplier;
  bool rolls_per_time;
  std::int64_t limit;
};
constexpr std::array<RateUnit, kRateUnits> kRates = {{
    {1, true, 3'600'000},
    {60, true, 60'000},
    {3600, true, 1'000},
    {1, false, 1'000},
    {60, false, 60'000},
    {3600, false, 3'600'000},
}};
constexpr MoneyAmount kSlowestRate = MoneyAmount::FromRaw(1);

std::size_t UnitIndex(int unit) {
  return unit >= 0 && unit < kRateUnits ? static_cast<std::size_t>(unit) : 0;
}
const RateUnit& Rate(int unit) {
  return kRates[UnitIndex(unit)];
}

bool Fault(Game& game, std::int32_t tab, std::string& at, std::string setting, std::string title,
           std::string text) {
  game.ConfigureTab = tab;
  at = std::move(setting);
  Tell(game, std::move(title), std::move(text));
  return false;
}

bool CheckPlacardLimits(Game& game, std::string& at) {
  const std::string title = "Configuration Limits";
  if (game.MinPlacardBet.Raw() <= 0) {
    return Fault(game, kBetsTab, at, "MinPlacardBet", title,
                 "The minimum bet must be greater than zero.");
  }
  if (game.MaxPlacardBet.Raw() <= 0) {
    return Fault(game, kBetsTab, at, "MaxPlacardBet", title,
                 "The maximum bet must be greater than zero.");
  }
  if (game.MaxPlacardBet < game.MinPlacardBet) {
    return Fault(game, kBetsTab, at, "MaxPlacardBet", title,
                 "The maximum bet must be greater than\nor equal to the minimum bet.");
  }
  return true;
}

bool CheckDenominations(Game& game, std::string& at) {
  const std::string title = "Check Values";
  for (int chip = kFirstChip; chip <= kLastChip; ++chip) {
    const MoneyAmount value = game.BetAmount[chip];
    const std::string setting = "BetAmount(" + std::to_string(chip) + ')';
    if (value.Raw() <= 0) {
      return Fault(game, kChecksTab, at, setting, title, "Check values must be greater than zero.");
    }
    if (chip > kFirstChip && value < game.BetAmount[chip - 1]) {
      return Fault(game, kChecksTab, at, setting, title,
                   "Checks must be listed in ascending order with the \n"
                   "smallest valued check in the leftmost position.");
    }
    if (!IsMultipleOf(value, BettingUnit(game))) {
      return Fault(game, kChecksTab, at, setting, title,
                   "All checks must be wholly divisible by the smallest check.");
    }
  }
  return true;
}

bool CheckPayoffs(Game& game, std::string& at) {
  const PayoffFault fault = FindPayoffFault(game);
  if (fault.title.empty()) return true;
  if (!fault.of_field) game.PayoffsScroll = std::min(fault.grid_row, kLastPayoffScroll);
  const int bet = fault.of_field ? 0 : kPayoffGrid[static_cast<std::size_t>(fault.grid_row - 1)];
  const std::string setting = fault.of_field ? "FieldPayTable(" + std::to_string(fault.grid_row)
                                             : "PayTable(" + std::to_string(bet);
  return Fault(game, kPayoffsTab, at, setting + ",1)", fault.title,
               "The loss on any payoff cannot exceed the amount wagered.");
}

void LeaveConfigure(Game& game) {
  const MoneyAmount bankroll = game.BetAmount[kBankroll];
  const bool no_roll_yet = RollCounts(game, 0) == 0;
  if (no_roll_yet || bankroll > game.BankrollHigh) game.BankrollHigh = bankroll;
  if (no_roll_yet || bankroll < game.BankrollLow) game.BankrollLow = bankroll;
  SettlePhantoms(game);
  SetFieldCommonDenominator(game);
  if (game.AutoAdjustBetAmounts != kAdjustManually) AdjustAllBets(game);
  RebuildAllChips(game);
  game.RedrawTable = true;
  ShowTableChange(game, kChangedAll);
}

// The vig of a family of bets, with its settings.
struct VigFamily {
  int first_bet;
  std::string_view title;
  bool HouseRules::*all_bets;
  std::int32_t HouseRules::*rounding;
};
constexpr VigFamily kBuyVig = {kBuy, "Buy Bet Vig", &HouseRules::BuyVigAllBets,
                               &HouseRules::BuyVigRounding};
constexpr VigFamily kLayVig = {kLay, "Lay Bet Vig", &HouseRules::LayVigAllBets,
                               &HouseRules::LayVigRounding};

MoneyAmount VigOf(Game& game, int bet) {
  const MoneyAmount amount = game.BetAmount[bet];
  if (IsBuy(bet)) {
    ComputeBuyVig(game, bet, amount);
    return game.BuyVigAmount;
  }
  ComputeLayVig(game, bet, amount);
  return game.LayVigAmount;
}

void ChargeVigAnew(Game& game, int first_bet) {
  for (int bet = first_bet; bet < first_bet + kSlotCount; ++bet) {
    if (game.BetAmount[bet].Raw() != 0) StandingVig(game, bet) = VigOf(game, bet);
  }
}

void SumTotalOnTable(Game& game) {
  game.TotalOnTable = {};
  for (int bet = 1; bet <= kBetCount; ++bet) {
    game.TotalOnTable += game.BetAmount[bet];
    if (ChargesVigUpFront(game, bet)) game.TotalOnTable += StandingVig(game, bet);
  }
}

bool BetsExceedBankroll(const Game& game) {
  return game.TotalOnTable > game.BetAmount[kBankroll];
}

// What is written into a setting.
struct Entry {
  MoneyAmount money;       // of a field
  std::int64_t whole = 0;  // of a list
  bool on = false;         // of a box
  std::string_view text;
  int index = 0;  // of an element
};

struct Control {
  enum Kind { kBox, kList, kField, kWord } kind = kBox;
  std::int64_t first = 0;  // of a list
  std::int64_t last = 0;
  int decimals = 0;  // of a field
  bool negative = false;
};
constexpr Control Box() {
  return {};
}
constexpr Control List(std::int64_t last, std::int64_t first = 0) {
  return {Control::kList, first, last};
}
constexpr Control Field(int decimals, bool negative = false) {
  return {Control::kField, 0, 0, decimals, negative};
}
constexpr Control Word() {
  return {Control::kWord};
}

// Which elements a setting has; column 0 means that it has no second index.
struct Elements {
  int first = 0;
  int last = -1;
  int column = 0;
  bool (*editable)(int) = nullptr;

  constexpr bool Any() const { return last >= first; }
  bool Has(int index) const {
    return index >= first && index <= last && (editable == nullptr || editable(index));
  }
};

using Effect = void (*)(Game&, const Entry&);
using SoundList = std::vector<std::string> Preferences::*;
struct Setting {
  std::string_view name;
  Control control;
  // A plain value is written; everything else is an effect.
  std::variant<MoneyAmount Game::*, std::int32_t Game::*, bool Game::*, Effect> write;
  Elements elements = {};
  bool settles_phantoms = false;  // the phantom dollar is paid by this rule
  SoundList choices = nullptr;    // the list is as long as the sounds found
};

bool IsInPayoffGrid(int bet) {
  for (const int row : kPayoffGrid) {
    if (row == bet) return true;
  }
  return false;
}

bool IsOnWorkList(int bet) {
  return WorkList().Has(bet);
}

PayRow& BetRow(Game& game, const Entry& entry) {
  return game.PayTable[static_cast<std::size_t>(entry.index)];
}
PayRow& FieldRow(Game& game, const Entry& entry) {
  return game.FieldPayTable[static_cast<std::size_t>(entry.index)];
}

template <typename Element, std::size_t kSize>
Element& ElementOf(std::array<Element, kSize>& table, const Entry& entry) {
  return table[static_cast<std::size_t>(entry.index)];
}

MoneyAmount FractionOf(MoneyAmount percentage) {
  return Quotient(percentage, MoneyAmount(100));
}

void SetColorPrinting(Game& game, const Entry& entry) {
  const bool on = entry.whole != 0;
  const Preferences with_color;
  game.PrintColorWin = on ? with_color.PrintColorWin : 0;
  game.PrintColorLoss = on ? with_color.PrintColorLoss : 0;
  game.PrintColorOther = on ? with_color.PrintColorOther : 0;
}

constexpr std::int64_t kLongestDelay = 99;  // seconds
constexpr Elements kOptionCells = {0, 7};
constexpr Elements PayoffColumn(int column) {
  return {1, kBetCount, column, IsInPayoffGrid};
}
constexpr Elements FieldColumn(int column) {
  return {1, kFieldRows - 1, column};
}
constexpr std::int64_t kInt32Min = std::numeric_limits<std::int32_t>::min();
constexpr std::int64_t kInt32Max = std::numeric_limits<std::int32_t>::max();

// clang-format off
constexpr auto kSettings = std::to_array<Setting>({
    // Bets
    {"MinPlacardBet", Field(2), &Game::MinPlacardBet},
    {"MaxPlacardBet", Field(2), &Game::MaxPlacardBet},
    {"MaxOddsBet", Field(2), &Game::MaxOddsBet},
    {"MaxPropBetPayoff", Field(2), &Game::MaxPropBetPayoff},
    {"OddsAllowed", Field(2),
     [](Game& game, const Entry& entry) { ElementOf(game.OddsAllowed, entry) = entry.money; },
     {0, 4}},
    {"OddsCalcMethod", List(kSingleOddsTimes), &Game::OddsCalcMethod},
    {"AllowPutBets", Box(), &Game::AllowPutBets, {}, true},
    {"BuyVigPct", Field(4),
     [](Game& game, const Entry& entry) { game.BuyVigPct = FractionOf(entry.money); }, {}, true},
    {"LayVigPct", Field(4),
     [](Game& game, const Entry& entry) { game.LayVigPct = FractionOf(entry.money); }, {}, true},
    {"BuyVigAllBets", Box(),
     [](Game& game, const Entry& entry) {
       ChangeVigSetting(game, VigSetting::kBuyAllBets, entry.on);
     }, {}, true},
    {"LayVigAllBets", Box(),
     [](Game& game, const Entry& entry) {
       ChangeVigSetting(game, VigSetting::kLayAllBets, entry.on);
     }, {}, true},
    {"BuyVigRounding", List(kRoundUp),
     [](Game& game, const Entry& entry) {
       ChangeVigSetting(game, VigSetting::kBuyRounding, static_cast<std::int32_t>(entry.whole));
     }, {}, true},
    {"LayVigRounding", List(kRoundUp),
     [](Game& game, const Entry& entry) {
       ChangeVigSetting(game, VigSetting::kLayRounding, static_cast<std::int32_t>(entry.whole));
     }, {}, true},
    // Payoffs
    {"PayTable", Field(4, true),
     [](Game& game, const Entry& entry) { EnterNumerator(BetRow(game, entry), entry.money); },
     PayoffColumn(1), true},
    {"PayTable", Word(),
     [](Game& game, const Entry& entry) { EnterWord(BetRow(game, entry), entry.on); },
     PayoffColumn(2), true},
    {"PayTable", Field(2),
     [](Game& game, const Entry& entry) { EnterDenominator(BetRow(game, entry), entry.money); },
     PayoffColumn(3), true},
    {"FieldPayTable", Field(4, true),
     [](Game& game, const Entry& entry) { EnterNumerator(FieldRow(game, entry), entry.money); },
     FieldColumn(1), true},
    {"FieldPayTable", Word(),
     [](Game& game, const Entry& entry) { EnterWord(FieldRow(game, entry), entry.on); },
     FieldColumn(2), true},
    {"FieldPayTable", Field(2),
     [](Game& game, const Entry& entry) { EnterDenominator(FieldRow(game, entry), entry.money); },
     FieldColumn(3), true},
    {"PayoffsScroll", List(kLastPayoffScroll, 1), &Game::PayoffsScroll},
    // Checks and dice
    {"BetAmount", Field(2),
     [](Game& game, const Entry& entry) { game.BetAmount.Set(entry.index, entry.money); },
     {kFirstChip, kLastChip}},
    {"UseCentsSymbol", Box(), &Game::UseCentsSymbol},
    {"DiceAction", List(kDiceRemain), &Game::DiceAction},
    {"RollsPerTimeUnit", List(kRateUnits - 1), &Game::RollsPerTimeUnit},
    {"RollsPerHour", Field(4),
     [](Game& game, const Entry& entry) {
       SetRollsPerHour(game, entry.text, game.RollsPerTimeUnit);
     }},
    {"ChipPicture", List(7, 1), &Game::ChipPicture},
    {"DicePicture", List(5, 1), &Game::DicePicture},
    // Bankroll
    {"BankrollInitType", List(kCarryBankrollAndNet), &Game::BankrollInitType},
    {"BankrollInitAmount", Field(2, true), &Game::BankrollInitAmount},
    {"AllowNegBankroll", Box(),
     [](Game& game, const Entry& entry) { SetAllowNegBankroll(game, entry.on); }},
    {"ATMAmount", Field(2), &Game::ATMAmount},
    // Misc.
    {"NotifyFlags", List(31), &Game::NotifyFlags},
    {"SnapMouse", Box(), &Game::SnapMouse},
    {"PrintColorWin", List(15), SetColorPrinting},
    {"PrintColorLoss", List(15), SetColorPrinting},
    {"PrintColorOther", List(15), SetColorPrinting},
    {"RngSelected", List(kRngCount - 1), &Game::RngSelected},
    {"UserSeedMode", Box(), &Game::UserSeedMode},
    {"ReSeedNewGames", Box(), &Game::ReSeedNewGames},
    // Colors
    {"TableColors", List(0xFFFFFF),
     [](Game& game, const Entry& entry) {
       SetTableColor(game, entry.index, static_cast<std::int32_t>(entry.whole));
     }, {0, kTableColorCount - 1}},
    {"TextureRow", List(kFelts - 1),
     [](Game& game, const Entry& entry) {
       SetFelt(game, static_cast<std::int32_t>(entry.whole));
     }},
    // Probability and Advantage
    {"UseSkewedProbability", Box(), &Game::UseSkewedProbability},
    {"ProbabilityDisplay", List(3), &Game::ProbabilityDisplay},
    {"RollsOutOf", Field(4),
     [](Game& game, const Entry& entry) {
       if (entry.money.Raw() > 0) game.RollsOutOf = entry.money.ToDouble();
     }},
    {"IncludeZeroOutcomes", Box(), &Game::IncludeZeroOutcomes},
    {"ShowMiscData", Box(), &Game::ShowMiscData},
    {"AdvantageScroll", List(kLastAdvantageScroll, 1), &Game::AdvantageScroll},
    // Comps and sound
    {"CompRate", Field(2), &Game::CompRate},
    {"BaseComps", List(2), &Game::BaseComps},
    {"CompsUseTrueProbs", Box(), &Game::CompsUseTrueProbs},
    {"CompBetMask", List(kInt32Max, kInt32Min),
     [](Game& game, const Entry& entry) {
       ElementOf(game.CompBetMask, entry) = static_cast<std::int32_t>(entry.whole);
     }, {1, 3}},
    {"AllSoundOff", Box(), &Game::AllSoundOff},
    {"AutoBetSoundOff", Box(), &Game::AutoBetSoundOff},
    {"StickPersonChoice", List(0),
     [](Game& game, const Entry& entry) {
       game.StickPersonChoice = static_cast<std::int32_t>(entry.whole);
       BuildStickCalls(game);
     }, {}, false, &Preferences::StickPersonList},
    {"DiceSoundChoice", List(0), &Game::DiceSoundChoice, {}, false, &Preferences::DiceSoundList},
    {"ChipSoundChoice", List(0), &Game::ChipSoundChoice, {}, false, &Preferences::ChipSoundList},
    {"WinSoundChoice", List(0), &Game::WinSoundChoice, {}, false, &Preferences::WinSoundList},
    {"ConfigureTab", List(kAdvantageTab), &Game::ConfigureTab},
    // Auto-Play
    {"HandleWinningBets", List(kHandleRules - 1), &Game::HandleWinningBets},
    {"HandleLosingBets", List(kHandleRules - 1), &Game::HandleLosingBets},
    {"HandleChoiceTag", List(3),
     [](Game& game, const Entry& entry) {
       ElementOf(game.HandleChoiceTag, entry) = static_cast<std::int32_t>(entry.whole);
     }, kOptionCells},
    {"HandleAmount", Field(4),
     [](Game& game, const Entry& entry) { ElementOf(game.HandleAmount, entry) = entry.money; },
     kOptionCells},
    {"HandleUnits", List(6),
     [](Game& game, const Entry& entry) {
       ElementOf(game.HandleUnits, entry) = MoneyAmount::FromWhole(entry.whole);
     }, kOptionCells},
    {"AutoAdjustBetAmounts", List(kColorCorrection),
     [](Game& game, const Entry& entry) {
       SetAutoAdjust(game, static_cast<std::int32_t>(entry.whole));
     }},
    {"LayBias", List(kDecrease), &Game::LayBias},
    {"PlaceBias", List(kDecrease), &Game::PlaceBias},
    {"DoBias", List(kDecrease), &Game::DoBias},
    {"AutoTakeFullOdds", Box(),
     [](Game& game, const Entry& entry) { SetAutoTakeFullOdds(game, entry.on); }},
    {"AutoRemovePlaceBets", Box(), &Game::AutoRemovePlaceBets},
    {"AutoArrangeChips", Box(),
     [](Game& game, const Entry& entry) {
       game.AutoArrangeChips = entry.on;
       if (entry.on) RebuildAllChips(game);
     }},
    {"AutoRollDice", Box(),
     [](Game& game, const Entry& entry) { SetAutoRollDice(game, entry.on); }},
    {"NumAutoRolls", Field(0),
     [](Game& game, const Entry& entry) { SetNumAutoRolls(game, entry.money.FloorWhole()); }},
    {"AutoRollDelay", Field(4),
     [](Game& game, const Entry& entry) {
       game.AutoRollDelay = static_cast<std::int32_t>(
           std::min(entry.money, MoneyAmount::FromWhole(kLongestDelay)).RoundWhole());
     }},
    {"AutoStopOn", Box(),
     [](Game& game, const Entry& entry) { ElementOf(game.AutoStopOn, entry) = entry.on; },
     {0, kAutoStops - 1}},
    {"WorkOnComeOut", Box(),
     [](Game& game, const Entry& entry) {
       BetSet bet;
       bet.Add(entry.index);
       MarkWorkOnComeOut(game, bet, entry.on ? BetMark::kYes : BetMark::kNo);
     },
     {1, kBetCount, 0, IsOnWorkList}},
});
// clang-format on

// A name as typed: "BetAmount(95)", "PayTable(36,1)".
struct Name {
  std::string_view text;
  std::vector<int> indices;
  bool well_formed = true;
};

std::optional<std::int64_t> WholeNumber(std::string_view text) {
  std::int64_t value = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  if (result.ec != std::errc() || result.ptr != text.data() + text.size()) return {};
  return value;
}

Name ReadName(std::string_view typed) {
  Name name;
  const std::size_t open = typed.find('(');
  name.text = Trim(typed.substr(0, open));
  if (open == std::string_view::npos) return name;
  std::string_view rest = TrimRight(typed.substr(open + 1));
  name.well_formed = !rest.empty() && rest.back() == ')';
  if (!name.well_formed) return name;
  rest.remove_suffix(1);
  for (std::size_t end = 0; end != std::string_view::npos;) {
    end = rest.find(',');
    const auto index = WholeNumber(Trim(rest.substr(0, end)));
    name.well_formed = name.well_formed && index && *index >= 0 && *index <= kInt32Max;
    if (!name.well_formed) return name;
    name.indices.push_back(static_cast<int>(*index));
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
  }
  return name;
}

bool Matches(const Setting& setting, const Name& name) {
  const std::size_t indices = !setting.elements.Any() ? 0 : setting.elements.column == 0 ? 1 : 2;
  if (name.indices.size() != indices) return false;
  if (indices > 0 && !setting.elements.Has(name.indices[0])) return false;
  return indices < 2 || name.indices[1] == setting.elements.column;
}

NumberRule RuleOf(const Control& control) {
  return {control.decimals, control.negative};
}
bool FieldHolds(std::string_view text, const Control& control) {
  return KeysPass(text, RuleOf(control)) &&
         text.find_first_of("0123456789") != std::string_view::npos;
}

std::optional<bool> Truth(std::string_view text) {
  for (const std::string_view yes : {"true", "-1", "yes", "on", "1"}) {
    if (EqualIgnoringCase(text, yes)) return true;
  }
  for (const std::string_view no : {"false", "0", "no", "off"}) {
    if (EqualIgnoringCase(text, no)) return false;
  }
  return {};
}

// "to" or "for", also by a letter as typed into the cell, or by what the row stores.
std::optional<bool> IsTo(std::string_view text) {
  if (EqualIgnoringCase(text, "to") || EqualIgnoringCase(text, "t")) return true;
  if (EqualIgnoringCase(text, "for") || EqualIgnoringCase(text, "f")) return false;
  return Truth(text);
}

std::int64_t LastOf(const Game& game, const Setting& setting) {
  return setting.choices == nullptr ? setting.control.last
                                    : static_cast<std::int64_t>((game.*setting.choices).size());
}

// Reads a value; false when the control cannot hold it.
bool ReadEntry(const Game& game, const Setting& setting, Entry& entry) {
  const Control& control = setting.control;
  switch (control.kind) {
    case Control::kBox:
    case Control::kWord: {
      const auto truth = control.kind == Control::kBox ? Truth(entry.text) : IsTo(entry.text);
      entry.on = truth.value_or(false);
      return truth.has_value();
    }
    case Control::kList: {
      const auto whole = WholeNumber(entry.text);
      entry.whole = whole.value_or(0);
      return whole && *whole >= control.first && *whole <= LastOf(game, setting);
    }
    case Control::kField:
      entry.money = ParseMoney(entry.text);
      return FieldHolds(entry.text, control);
  }
  return false;
}

std::string WhatItTakes(const Game& game, const Setting& setting) {
  const Control& control = setting.control;
  switch (control.kind) {
    case Control::kBox:
      return "true or false";
    case Control::kWord:
      return "\"to\" or \"for\"";
    case Control::kList:
      return "a whole number from " + std::to_string(control.first) + " to " +
             std::to_string(LastOf(game, setting));
    case Control::kField:
      break;
  }
  return std::string("a number") + (control.negative ? "" : " without a sign") +
         (control.decimals == 0
              ? " or decimals"
              : ", with at most " + std::to_string(control.decimals) + " decimals");
}

std::string WhichElements(const Setting& setting) {
  const Elements& elements = setting.elements;
  std::string text(setting.name);
  if (!elements.Any()) return text + " has no index.";
  text += elements.column == 0 ? " needs an index" : " needs a row and a column of 1 to 3, the row";
  text += " from " + std::to_string(elements.first) + " to " + std::to_string(elements.last);
  return text + (elements.editable == nullptr ? "." : " that the screen offers.");
}

void Write(Game& game, const Setting& setting, const Entry& entry) {
  if (setting.settles_phantoms) SettlePhantoms(game);
  if (const auto* money = std::get_if<MoneyAmount Game::*>(&setting.write)) {
    game.*(*money) = entry.money;
  } else if (const auto* whole = std::get_if<std::int32_t Game::*>(&setting.write)) {
    game.*(*whole) = static_cast<std::int32_t>(entry.whole);
  } else if (const auto* box = std::get_if<bool Game::*>(&setting.write)) {
    game.*(*box) = entry.on;
  } else {
    std::get<Effect>(setting.write)(game, entry);
  }
  game.GameChanged = true;
}

}  // namespace

bool CheckLimits(Game& game) {
  LeavingConfigure screen;
  return CheckLimits(game, screen);
}

bool CheckLimits(Game& game, LeavingConfigure& screen) {
  if (!CheckPlacardLimits(game, screen.fault)) return false;
  if (screen.typed_rate && !SetRollsPerHour(game, *screen.typed_rate, game.RollsPerTimeUnit)) {
    game.ConfigureTab = kChecksTab;
    screen.fault = "RollsPerHour";
    return false;
  }
  if (!CheckDenominations(game, screen.fault) || !CheckPayoffs(game, screen.fault)) return false;
  try {
    LeaveConfigure(game);
  } catch (const MoneyOverflow&) {
    game.LastErrorText = "Overflow, Error #6 occurred, at: Check Limits";
  }
  return true;
}

std::string_view RateUnitText(int unit) {
  return kRateUnitTexts[UnitIndex(unit)];
}

std::optional<MoneyAmount> RollsPerHourOf(std::string_view entry, int unit) {
  const RateUnit& rate = Rate(unit);
  const MoneyAmount value = ParseMoney(entry);
  if (value.Raw() <= 0 || value > MoneyAmount::FromWhole(rate.limit)) return {};
  const MoneyAmount rolls = rate.rolls_per_time ? value.Times(rate.multiplier)
                                                : Quotient(MoneyAmount(rate.multiplier), value);
  return std::max(rolls, kSlowestRate);
}

bool SetRollsPerHour(Game& game, std::string_view entry, int unit) {
  if (const auto rolls = RollsPerHourOf(entry, unit)) {
    game.RollsPerHour = *rolls;
    return true;
  }
  const std::string text(RateUnitText(unit));
  Tell(game, "Simulated Roll Rate",
       ParseMoney(entry).Raw() <= 0 ? "The simulated " + text + " must be greater than zero."
                                    : "The maximum simulated " + text + " rate is " +
                                          FormatNumber(Rate(unit).limit, "#,#") + ".");
  return false;
}

std::string ShowRollsPerHour(const Game& game, int unit) {
  const RateUnit& rate = Rate(unit);
  const MoneyAmount multiplier = MoneyAmount(rate.multiplier);
  MoneyAmount shown;
  if (rate.rolls_per_time) {
    shown = Quotient(game.RollsPerHour, multiplier);
  } else if (game.RollsPerHour.Raw() != 0) {
    shown = Quotient(multiplier, game.RollsPerHour);
  }
  return shown.Raw() == 0 ? "<.0001" : PlainNumber(shown);
}

FieldKey NumericKeyFilter(const FieldKey& field, char key, int decimals, bool allow_negative,
                          std::size_t max_length) {
  constexpr std::size_t kLongestWhole = 13;  // a digit more is still taken
  FieldKey result = field;
  const std::size_t cursor = std::min(field.cursor, field.text.size());
  if (key == '\b') {
    if (cursor > 0) {
      result.text.erase(cursor - 1, 1);
      result.cursor = cursor - 1;
    }
    return result;
  }
  const std::string& text = field.text;
  const bool has_minus = !text.empty() && text[0] == '-';
  const std::size_t point = text.find('.');
  const bool has_point = point != std::string::npos;
  const auto places = static_cast<std::size_t>(decimals > 0 ? decimals : 0);

  if (max_length > 0 && text.size() >= max_length) return field;
  if (has_minus && cursor == 0) return field;
  if (key == '-') {
    if (!allow_negative || cursor != 0) return field;
  } else if (key == '.') {
    if (places == 0 || has_point || text.size() - cursor > places) return field;
  } else if (key < '0' || key > '9') {
    return field;
  } else if (has_point && cursor > point) {
    if (text.size() - point - 1 >= places) return field;
  } else {
    const std::size_t whole = (has_point ? point : text.size()) - (has_minus ? 1 : 0);
    if (whole > kLongestWhole) return field;
  }
  result.text.insert(cursor, 1, key);
  result.cursor = cursor + 1;
  return result;
}

bool KeysPass(std::string_view text, const NumberRule& rule) {
  FieldKey field;
  for (const char key : text) {
    const std::size_t before = field.text.size();
    field = NumericKeyFilter(field, key, rule.decimals, rule.negative);
    if (field.text.size() == before) return false;
  }
  return true;
}

void ChangeVigSetting(Game& game, VigSetting setting, std::int32_t value) {
  const bool of_buy = setting == VigSetting::kBuyRounding || setting == VigSetting::kBuyAllBets;
  const bool rounds = setting == VigSetting::kBuyRounding || setting == VigSetting::kLayRounding;
  const VigFamily& family = of_buy ? kBuyVig : kLayVig;
  const auto write = [&](std::int32_t to) {
    if (rounds) {
      game.*family.rounding = to;
    } else {
      game.*family.all_bets = to != 0;
    }
  };
  const auto apply = [&](std::int32_t to) {
    write(to);
    if (rounds && game.*family.all_bets) ChargeVigAnew(game, family.first_bet);
    SumTotalOnTable(game);
  };

  SettlePhantoms(game);
  const std::int32_t old = rounds ? game.*family.rounding : game.*family.all_bets;
  const auto old_lay_vig = game.LayVigPaid;
  const auto old_buy_vig = game.BuyVigPaid;
  const MoneyAmount old_total = game.TotalOnTable;
  try {
    apply(value);
    if (!BetsExceedBankroll(game) || game.AllowNegBankroll) return;
    Tell(game, std::string(family.title),
         "You're not allowed to change this setting at this time since the added up-front vig will "
         "cause the amount of your current bets to exceed your current bankroll.\n\n");
    apply(old);
  } catch (const MoneyOverflow&) {
    game.LastErrorText = "Overflow, Error #6 occurred, at: Change Vig Setting";
    write(old);
    game.LayVigPaid = old_lay_vig;
    game.BuyVigPaid = old_buy_vig;
    game.TotalOnTable = old_total;
  }
}

void SetAllowNegBankroll(Game& game, bool allow) {
  const std::string title = "Bankroll";
  if (!allow && game.BetAmount[kBankroll].Raw() < 0) {
    Tell(game, title,
         "Before you can un-check this box you must first establish a non-negative bankroll by "
         "either:\n\n -- Winning some more money, or\n -- Making a withdrawal from the ATM.");
  } else if (!allow && BetsExceedBankroll(game)) {
    Tell(game, title,
         "The amount of your current bets exceeds your current bankroll.  Therefore, before you "
         "can un-check this box you must either:\n\n -- Reduce the amount of your current bets, or "
         "\n -- Make at least a $" +
             FormatMoney(game.TotalOnTable - game.BetAmount[kBankroll]) +
             " withdrawal from the ATM.");
  } else {
    game.AllowNegBankroll = allow;
  }
}

void SetDefaultDenominations(Game& game) {
  for (int chip = 0; chip < kChipCount; ++chip) {
    game.BetAmount.Set(kFirstChip + chip,
                       MoneyAmount(kDefaultDenominations[static_cast<std::size_t>(chip)]));
  }
}

void RestoreDefaultDenominations(Game& game) {
  if (AskYesNo(game, "Confirm?",
               "Do you want to restore all checks to their original Feltmaster values?")) {
    SetDefaultDenominations(game);
  }
}

void RestoreDefaultPayoffs(Game& game) {
  if (AskYesNo(game, "Confirm?",
               "Do you want to restore all payoffs to their original Feltmaster settings?")) {
    SettlePhantoms(game);
    DefaultPayoffs(game);
  }
}

void SeedGenerator(Game& game) {
  SeedRng(game, 0);
  Tell(game, "RNG Seeded", "The random number generator has now been seeded.");
}

std::optional<NumberRule> NumberRuleOf(std::string_view name) {
  const Name asked = ReadName(name);
  for (const Setting& setting : kSettings) {
    if (setting.control.kind == Control::kField && setting.name == asked.text &&
        Matches(setting, asked)) {
      return RuleOf(setting.control);
    }
  }
  return {};
}

std::string Configure(Game& game, std::string_view name, std::string_view value) {
  const Name asked = ReadName(name);
  const Setting* same_name = nullptr;
  for (const Setting& setting : kSettings) {
    if (!EqualIgnoringCase(setting.name, asked.text)) continue;
    same_name = &setting;
    if (!asked.well_formed || !Matches(setting, asked)) continue;

    Entry entry;
    entry.text = Trim(value);
    if (!asked.indices.empty()) entry.index = asked.indices[0];
    if (!ReadEntry(game, setting, entry)) {
      return std::string(Trim(name)) + " takes " + WhatItTakes(game, setting) + ", not \"" +
             std::string(value) + "\".";
    }
    try {
      Write(game, setting, entry);
    } catch (const MoneyOverflow&) {
      game.LastErrorText = "Overflow, Error #6 occurred, at: Configure";
    }
    return {};
  }
  if (same_name != nullptr) return WhichElements(*same_name);
  return "\"" + std::string(name) + "\" is not a setting of the Configure or Auto-Play screen.";
}

}  // namespace feltmaster
