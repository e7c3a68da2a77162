#include "view/settings_rows.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <map>
#include <memory>

#include "automation/auto_play.h"
#include "base/number_format.h"
#include "base/text.h"
#include "config/comps.h"
#include "config/configure.h"
#include "config/payoffs.h"
#include "view/figure.h"
#include "view/probability_grid.h"
#include "view/rules_rows.h"
#include "view/state_record.h"

namespace feltmaster {

namespace {

// The columns of the rows.
enum SettingColumn { kSettingTab, kSettingCaption, kSettingValue, kSettingName };

using Choices = std::span<const std::string_view>;

// ---- Lists and options --------------------------------------------------------------------------

constexpr auto kDiceActionChoices = std::to_array<std::string_view>(
    {" Stationary", " Return after thrown", " Return on decision", " Remain on table"});
constexpr auto kCompChoices = std::to_array<std::string_view>(
    {" Theoretical house vig", " Total comp action", " Average comp action and time"});
constexpr auto kRngChoices = std::to_array<std::string_view>(
    {"RNG #1", "RNG #2", "RNG #3", "RNG #4", "RNG #5", "RNG #6 (#1 and #5)", "RNG #7 (#2 and #4)",
     "RNG #8 (#1 single call)"});
constexpr auto kSeedChoices = std::to_array<std::string_view>({"Seed normally", "User seed"});
constexpr auto kBankrollChoices =
    std::to_array<std::string_view>({" Start bankroll with:", " Prompt for starting bankroll",
                                     " Carry forward bankroll from previous game",
                                     " Carry forward bankroll and net from previous game"});
constexpr auto kOddsChoices = std::to_array<std::string_view>(
    {"Auto select", "X Flat - No Push", "X Flat w/ Minor Push", "X Flat w/ Color Push",
     "X Flat - Single Odds", "Flat - Single Odds X"});
constexpr auto kBuyVigChoices =
    std::to_array<std::string_view>({" Charge winning Buy bets only", " Charge all Buy bets"});
constexpr auto kLayVigChoices =
    std::to_array<std::string_view>({" Charge winning Lay bets only", " Charge all Lay bets"});
constexpr auto kRoundingChoices =
    std::to_array<std::string_view>({"Rounded normally", "Rounded down", "Rounded up"});
constexpr auto kWinChoices = std::to_array<std::string_view>(
    {" Manual", " Take Bet and Winnings", " Same Bet - Take Winnings", " Press 1 Unit",
     " Press Double", " Parlay", " Same Bet:", " Bet:"});
constexpr auto kLossChoices = std::to_array<std::string_view>(
    {" Manual", " No Bet/Take Remainder (if any)", " Bet Remainder (if any)", " Same Bet",
     " Same Bet Plus 1 Unit", " Double Bet:", " Same Bet:", " Bet:"});
constexpr auto kAdjustChoices = std::to_array<std::string_view>(
    {" Manual", " Auto w/ Minor Correction", " Auto w/ Color Correction"});
constexpr auto kLayBiasChoices = std::to_array<std::string_view>(
    {"Lay bets bias: nearest", "Lay bets bias: increase", "Lay bets bias: decrease"});
constexpr auto kPlaceBiasChoices = std::to_array<std::string_view>(
    {"Place bets bias: nearest", "Place bets bias: increase", "Place bets bias: decrease"});
constexpr auto kDoBiasChoices = std::to_array<std::string_view>(
    {"\"Do\" odds bias: nearest", "\"Do\" odds bias: increase", "\"Do\" odds bias: decrease"});
constexpr auto kStops = std::to_array<std::string_view>(
    {"Any winning roll", "Any losing roll", "A 2", "Any 3", "Any 4", "A Hard 4", "Any 5", "Any 6",
     "A Hard 6", "Any 7", "Any 8", "A Hard 8", "Any 9", "Any 10", "A Hard 10", "Any 11", "A 12"});
static_assert(kStops.size() == kAutoStops && kWinChoices.size() == kHandleRules);
static_assert(kLossChoices.size() == kHandleRules);

// ---- Values that are shown in their own way -----------------------------------------------------

std::string Box(bool on) {
  return on ? "true" : "false";
}

std::string Percent(MoneyAmount fraction) {
  return PlainNumber(fraction.Times(100)) + " %";
}

template <int kColor>
std::string ColorText(Game& game) {
  char text[16];
  const auto color = static_cast<unsigned>(game.TableColors[kColor]) & 0xFFFFFF;
  std::snprintf(text, sizeof text, "%06X", color);
  return text;
}

std::string Joined(const std::vector<std::string>& names) {
  std::string text;
  for (const std::string& name : names) text += (text.empty() ? "" : ", ") + name;
  return text.empty() ? "none" : text;
}

// The bets of a list that are ticked, or, if that is shorter, those that are not.
std::string BetListText(const BetSet& listed, const BetSet& ticked) {
  std::vector<std::string> yes;
  std::vector<std::string> no;
  listed.ForEach([&](int bet) {
    (ticked.Has(bet) ? yes : no).emplace_back(kBetName[static_cast<std::size_t>(bet)]);
  });
  if (no.empty()) return "all";
  return yes.size() <= no.size() ? Joined(yes) : "all but " + Joined(no);
}

std::string CompBetText(Game& game) {
  return BetListText(kLayoutBets, CompBets(game));
}
std::string WorkText(Game& game) {
  return BetListText(WorkList(), game.WorkOnComeOut);
}
std::string StopText(Game& game) {
  std::vector<std::string> stops;
  for (std::size_t i = 0; i < kStops.size(); ++i) {
    if (game.AutoStopOn[i]) stops.emplace_back(kStops[i]);
  }
  return Joined(stops);
}

// "+ 5 %": a row of the "Same Bet:" and "Bet:" options.
template <HandleOption kOption>
std::string OptionText(Game& game) {
  constexpr auto kCell = static_cast<std::size_t>(kOption - kFirstHandleOption);
  constexpr bool kPlain = kOption == kAutoWonBet || kOption == kAutoLostBet;
  const std::string amount = PlainNumber(game.HandleAmount[kCell]);
  const std::string units = HandleUnitsText(game, kOption);
  const std::string with_unit = units == "$" ? "$" + amount : amount + ' ' + units;
  return kPlain ? with_unit : std::string(HandleOperatorText(game, kOption)) + ' ' + with_unit;
}

std::string RollRateText(Game& game) {
  return ShowRollsPerHour(game, game.RollsPerTimeUnit) + ' ' +
         std::string(RateUnitText(game.RollsPerTimeUnit));
}
std::string ColorPrinterText(Game& game) {
  return Box(game.PrintColorWin != 0);
}
std::string NetText(Game& game) {
  return FormatMoney(game.BetAmount[kBankroll] - game.AmountInvested);
}
std::string ProbabilityNameText(Game& game) {
  return std::string(ProbabilityFileLabel(game));
}
std::string KindOfDiceText(Game& game) {
  return std::string(DiceKindText(game));
}

// ---- The screens --------------------------------------------------------------------------------

using SoundList = std::vector<std::string> Preferences::*;
constexpr SettingControl Sound(std::string_view caption, std::string_view control,
                               std::string_view name, SoundList sounds) {
  SettingControl made{caption, control, name};
  made.sounds = sounds;
  return made;
}
constexpr SettingControl Notice(std::string_view caption, std::string_view control,
                                std::int32_t bit) {
  SettingControl made{caption, control, "NotifyFlags"};
  made.bit = bit;
  return made;
}

constexpr SettingControl kChecksTab[] = {
    {"Check Denominations", "txtDenomination0", "BetAmount", 95},
    {"Check Denominations", "txtDenomination1", "BetAmount", 96},
    {"Check Denominations", "txtDenomination2", "BetAmount", 97},
    {"Check Denominations", "txtDenomination3", "BetAmount", 98},
    {"Check Denominations", "txtDenomination4", "BetAmount", 99},
    {" Use \u00A2 symbol for checks < 1", "chkUseCentsSymbol", "UseCentsSymbol"},
    {" Dice Action: ", "optDiceAction", "DiceAction", -1, kDiceActionChoices},
    {" Sim roll rate: ", "txtRollsPerHour", "RollsPerHour", -1, {}, RollRateText},
    {"Rate shown as", "cmbRollsPerTime", "RollsPerTimeUnit", -1, kRateUnitTexts},
    {"Check design", "picChipsSelected", "ChipPicture"},
    {"Dice design", "picDiceSelected", "DicePicture"},
};
constexpr SettingControl kSoundTab[] = {
    {" Disable all game sounds", "chkDisableAllSound", "AllSoundOff"},
    {" Disable Auto-Bet sounds", "chkAutoBetSounds", "AutoBetSoundOff"},
    Sound("Stick person", "cmbStickPerson", "StickPersonChoice", &Preferences::StickPersonList),
    Sound("Dice sound", "cmbDiceSound", "DiceSoundChoice", &Preferences::DiceSoundList),
    Sound("Chip sound", "cmbChipSound", "ChipSoundChoice", &Preferences::ChipSoundList),
    Sound("Win sound", "cmbWinSound", "WinSoundChoice", &Preferences::WinSoundList),
};
constexpr SettingControl kCompsTab[] = {
    {"Comp rate:",
     "txtCompRate",
     "CompRate",
     -1,
     {},
     [](Game& game) { return PlainNumber(game.CompRate) + " %"; }},
    {"Figure comps based on:", "optBaseComps", "BaseComps", -1, kCompChoices},
    {" Always figure with the true dice probabilities", "chkCompsUseTrueProbs",
     "CompsUseTrueProbs"},
    {"Bets figured in comps", "lstCompBets", "CompBetMask", -1, {}, CompBetText},
};
constexpr SettingControl kColorsTab[] = {
    {" Felt ", "optTableColors0", "TableColors", 0, {}, ColorText<0>},
    {" Lines", "optTableColors1", "TableColors", 1, {}, ColorText<1>},
    {" Text (Passline, Come, C)", "optTableColors2", "TableColors", 2, {}, ColorText<2>},
    {" Text (Place)", "optTableColors3", "TableColors", 3, {}, ColorText<3>},
    {" Text (Big 6/8, Props, E)", "optTableColors4", "TableColors", 4, {}, ColorText<4>},
    {" Text (Field)", "optTableColors5", "TableColors", 5, {}, ColorText<5>},
    {" Dice", "optTableColors6", "TableColors", 6, {}, ColorText<6>},
    {" Dice pips", "optTableColors7", "TableColors", 7, {}, ColorText<7>},
    {"Felt sample", "picFelts", "TextureRow"},
};
constexpr SettingControl kMiscTab[] = {
    {"Random number generator", "cmbRNG", "RngSelected", -1, kRngChoices},
    {"Seeding", "optSeedRNG", "UserSeedMode", -1, kSeedChoices},
    {"Re-seed new games", "chkReSeed", "ReSeedNewGames"},
    Notice(" Actions not allowed", "chkNotify0", kNoticeActions),
    Notice(" Betting limits reached", "chkNotify1", kNoticeLimits),
    Notice(" Charges and/or change", "chkNotify2", kNoticeCharges),
    Notice(" Auto-Bet messages normal play", "chkNotify3", kNoticeScript),
    Notice(" Auto-Bet messages Hyper-Drive", "chkNotify4", kNoticeScriptHyper),
    {" Snap mouse-pointer", "chkSnapMouse", "SnapMouse"},
    {" Color printer", "chkColorPrint", "PrintColorWin", -1, {}, ColorPrinterText},
};
constexpr SettingControl kBankrollTab[] = {
    {"For every new game:", "optBankrollInitType", "BankrollInitType", -1, kBankrollChoices},
    {" Start bankroll with:", "txtBankrollInitAmount", "BankrollInitAmount"},
    {" Allow negative bankroll amounts", "chkAllowNegBankroll", "AllowNegBankroll"},
    {"ATM amount", "txtAddSub", "ATMAmount"},
    {"Current Bankroll:", "lblCurrentBankroll", "BetAmount", kBankroll},
    {"Amount Invested:", "lblInvestedBankroll", "AmountInvested"},
    {"Won/Lost:", "lblNet", "", -1, {}, NetText},
};
constexpr SettingControl kBetsTab[] = {
    {"Minimum bet", "txtMinPlacardBet", "MinPlacardBet"},
    {"Maximum bet", "txtMaxPlacardBet", "MaxPlacardBet"},
    {"Odds allowed: 2 and 12", "txtOddsAllowed2", "OddsAllowed", 0},
    {"Odds allowed: 3 and 11", "txtOddsAllowed3", "OddsAllowed", 1},
    {"Odds allowed: 4 and 10", "txtOddsAllowed4", "OddsAllowed", 2},
    {"Odds allowed: 5 and 9", "txtOddsAllowed5", "OddsAllowed", 3},
    {"Odds allowed: 6 and 8", "txtOddsAllowed6", "OddsAllowed", 4},
    {"Max odds bet", "txtMaxOddsBet", "MaxOddsBet"},
    {"Max prop bet payoff", "txtMaxPropBetPayoff", "MaxPropBetPayoff"},
    {"Odds calculation method:", "cmbOddsCalcMethod", "OddsCalcMethod", -1, kOddsChoices},
    {" Allow \"Put\" bets", "chkAllowPutBets", "AllowPutBets"},
    {"Buy vig",
     "txtBuyVigPct",
     "BuyVigPct",
     -1,
     {},
     [](Game& game) { return Percent(game.BuyVigPct); }},
    {"Buy vig", "optBuyVig", "BuyVigAllBets", -1, kBuyVigChoices},
    {"Buy vig rounding", "cmbRoundBuyVig", "BuyVigRounding", -1, kRoundingChoices},
    {"Lay vig",
     "txtLayVigPct",
     "LayVigPct",
     -1,
     {},
     [](Game& game) { return Percent(game.LayVigPct); }},
    {"Lay vig", "optLayVig", "LayVigAllBets", -1, kLayVigChoices},
    {"Lay vig rounding", "cmbRoundLayVig", "LayVigRounding", -1, kRoundingChoices},
};
constexpr SettingControl kProbabilityTab[] = {
    {" Use the probabilities depicted here.", "chkUseSkewedProbability", "UseSkewedProbability"},
    {"Probability File", "lblPrbFileName", "ProbabilityFileName", -1, {}, ProbabilityNameText},
    {"Kind of dice", "lblDiceKind", "DiceProbability", -1, {}, KindOfDiceText},
    {"Display", "optProbability", "ProbabilityDisplay", -1, kProbabilityDisplayCaptions},
    {"Rolls out of", "txtRollsOutOf", "RollsOutOf"},
};
constexpr SettingControl kAdvantageTab[] = {
    {"Count zero outcomes as decisions", "mnuIncludeZeroOutcomes", "IncludeZeroOutcomes"},
    {"Show misc. roll, dec, and time data", "mnuShowMiscData", "ShowMiscData"},
};
constexpr SettingControl kAutoPlayScreen[] = {
    {"Winning bets", "optHandleWinningBets", "HandleWinningBets", -1, kWinChoices},
    {"Winning bets: Same Bet:",
     "txtModifyAmount9",
     "HandleAmount",
     kAutoWonSame - kFirstHandleOption,
     {},
     OptionText<kAutoWonSame>},
    {"Winning bets: Bet:",
     "txtModifyAmount11",
     "HandleAmount",
     kAutoWonBet - kFirstHandleOption,
     {},
     OptionText<kAutoWonBet>},
    {"Losing bets", "optHandleLosingBets", "HandleLosingBets", -1, kLossChoices},
    {"Losing bets: Same Bet:",
     "txtModifyAmount10",
     "HandleAmount",
     kAutoLostSame - kFirstHandleOption,
     {},
     OptionText<kAutoLostSame>},
    {"Losing bets: Bet:",
     "txtModifyAmount12",
     "HandleAmount",
     kAutoLostBet - kFirstHandleOption,
     {},
     OptionText<kAutoLostBet>},
    {"Bet amounts", "optAutoAdjustBetAmounts", "AutoAdjustBetAmounts", -1, kAdjustChoices},
    {"Lay bets", "cmbLayBias", "LayBias", -1, kLayBiasChoices},
    {"Place bets", "cmbPlaceBias", "PlaceBias", -1, kPlaceBiasChoices},
    {"\"Do\" odds", "cmbDoBias", "DoBias", -1, kDoBiasChoices},
    {" Auto-Take Full Odds", "chkAutoTakeFullOdds", "AutoTakeFullOdds"},
    {" Auto-Remove Place Bets", "chkAutoRemovePlaceBets", "AutoRemovePlaceBets"},
    {" Auto-Arrange Chips", "chkAutoArrangeChips", "AutoArrangeChips"},
    {"Auto-Roll Dice", "chkAutoRollDice", "AutoRollDice"},
    {"Rolls:", "txtNumAutoRolls", "NumAutoRolls"},
    {"Left:", "lblAutoRollsRemaining", "AutoRollsRemaining"},
    {"Delay:", "txtDelayRoll", "AutoRollDelay"},
    {"Auto-Stop Rolling on:", "listAutoStop", "AutoStopOn", -1, {}, StopText},
    {"Work on come-out", "lstWorkOnComeOut", "WorkOnComeOut", -1, {}, WorkText},
};

constexpr std::string_view kPayoffsCaption = "Payoffs";
constexpr SettingTab kTabs[] = {
    {"Checks/Dice", kChecksTab},
    {"Sound", kSoundTab},
    {"Comps", kCompsTab},
    {"Colors", kColorsTab},
    {"Misc.", kMiscTab},
    {"Bankroll", kBankrollTab},
    {"Bets", kBetsTab},
    {kPayoffsCaption, {}},
    {"Probability", kProbabilityTab},
    {"Advantage", kAdvantageTab},
    {"Auto-Play", kAutoPlayScreen},
};

std::string ValueText(const StateValue& value) {
  struct Text {
    std::string operator()(bool on) const { return Box(on); }
    std::string operator()(std::int64_t number) const { return std::to_string(number); }
    std::string operator()(MoneyAmount amount) const { return PlainNumber(amount); }
    std::string operator()(double number) const {
      std::string text = FormatNumber(number, "0.######");
      if (text.ends_with('.')) text.pop_back();
      return text;
    }
    std::string operator()(const std::string& text) const { return text; }
    std::string operator()(const ScriptFlag& flag) const { return flag.FlagName; }
  };
  return std::visit(Text(), value);
}

StateValue Stored(Game& game, const SettingControl& control) {
  const StateName* entry = FindStateName(control.name);
  return entry == nullptr ? StateValue(std::string())
                          : entry->read(game, {std::max(control.index, 0)});
}

// The payoffs that are not those of a fresh table.
void AddChangedPayoffs(const Game& game, Rows& rows) {
  const auto house = std::make_unique<Game>();
  DefaultPayoffs(*house);
  const Rows original = PayoffRows(*house);
  const Rows in_force = PayoffRows(game);
  const std::size_t before = rows.size();
  for (std::size_t i = 0; i < in_force.size(); ++i) {
    if (in_force[i] == original[i]) continue;
    const bool of_field = i >= kPayoffGridRows;
    const std::string name =
        of_field ? "FieldPayTable(" + std::to_string(i - kPayoffGridRows + 1) + ",1)"
                 : "PayTable(" + std::to_string(kPayoffGrid[i]) + ",1)";
    const Row& row = in_force[i];
    rows.push_back({std::string(kPayoffsCaption), (of_field ? "Field " : "") + row[0],
                    row[1] + ' ' + row[2] + ' ' + row[3], name});
  }
  if (rows.size() == before) {
    rows.push_back({std::string(kPayoffsCaption), "All payoffs", "Feltmaster's own", ""});
  }
}

}  // namespace

std::span<const SettingTab> SettingTabs() {
  return kTabs;
}

const SettingControl* FindAutoPlayControl(std::string_view name) {
  const auto* const control = std::ranges::find(kAutoPlayScreen, name, &SettingControl::name);
  return control == std::end(kAutoPlayScreen) ? nullptr : control;
}

std::span<const std::string_view> AutoStopTexts() {
  return kStops;
}

std::string NameOfSetting(const SettingControl& control) {
  std::string name(control.name);
  return control.index < 0 ? name : name + '(' + std::to_string(control.index) + ')';
}

std::vector<std::string> ChoicesOf(const Game& game, const SettingControl& control) {
  std::vector<std::string> choices(control.choices.begin(), control.choices.end());
  if (control.sounds != nullptr) {
    choices = game.*control.sounds;
    choices.insert(choices.begin(), "none");
  }
  return choices;
}

std::int64_t ChosenValue(Game& game, const SettingControl& control) {
  const StateValue value = Stored(game, control);
  if (const bool* on = std::get_if<bool>(&value)) return *on ? 1 : 0;
  const std::int64_t* whole = std::get_if<std::int64_t>(&value);
  if (whole == nullptr) return 0;
  if (control.bit != 0) return (*whole & control.bit) != 0 ? 1 : 0;
  return control.control.starts_with("chk") ? *whole != 0 : *whole;
}

std::string ShownSetting(Game& game, const SettingControl& control) {
  if (control.show != nullptr) return control.show(game);
  if (control.bit != 0) return Box(ChosenValue(game, control) != 0);
  const std::vector<std::string> choices = ChoicesOf(game, control);
  const auto choice = static_cast<std::size_t>(ChosenValue(game, control));
  if (choice < choices.size()) return std::string(Trim(choices[choice]));
  return control.sounds != nullptr ? choices[0] : ValueText(Stored(game, control));
}

std::string FieldText(Game& game, const SettingControl& control) {
  const std::string shown = ShownSetting(game, control);
  return shown.substr(0, shown.find(' '));
}

std::string WriteSetting(Game& game, const SettingControl& control, std::string_view value) {
  if (control.bit == 0) return Configure(game, NameOfSetting(control), value);
  const std::int32_t others = game.NotifyFlags & ~control.bit;
  const std::int32_t flags = value == "1" ? others | control.bit : others;
  return Configure(game, NameOfSetting(control), std::to_string(flags));
}

Figures BankrollFigures(const Game& game) {
  const MoneyAmount bankroll = game.BetAmount[kBankroll];
  const MoneyAmount net = bankroll - game.AmountInvested;
  const std::string_view outcome = net.Raw() > 0 ? "Won:" : net.Raw() < 0 ? "Lost:" : "Won/Lost:";
  return {{"Current Bankroll:", FormatMoney(bankroll), ToneOf(bankroll)},
          {"Amount Invested:", FormatMoney(game.AmountInvested)},
          {std::string(outcome), FormatMoney(net), ToneOf(net)}};
}

Rows SettingRows(Game& game) {
  Rows rows;
  for (const SettingTab& tab : kTabs) {
    if (tab.caption == kPayoffsCaption) AddChangedPayoffs(game, rows);
    for (const SettingControl& control : tab.controls) {
      rows.push_back({std::string(tab.caption), std::string(Trim(control.caption)),
                      ShownSetting(game, control), NameOfSetting(control)});
    }
  }
  return rows;
}

Rows ChangedSettingRows(Game& game, Game& other) {
  // Several controls may show parts of one setting, and a payoff is listed only where it differs.
  const auto key = [](const Row& row) {
    return std::pair(row[kSettingCaption], row[kSettingName]);
  };
  std::map<std::pair<std::string, std::string>, std::string> there;
  for (const Row& row : SettingRows(other)) there[key(row)] = row[kSettingValue];
  Rows changed;
  for (const Row& row : SettingRows(game)) {
    const auto same = there.find(key(row));
    const std::string usual = same == there.end() ? "Feltmaster's own" : same->second;
    if (row[kSettingName].empty() || row[kSettingValue] == usual) continue;
    changed.push_back({row[kSettingCaption], row[kSettingValue], usual, row[kSettingName]});
  }
  return changed;
}

}  // namespace feltmaster
