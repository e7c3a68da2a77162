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
constexpr auto kProbabilityChoices = std::to_array<std::string_view>(
    {" Show as percentage", " Show as +/- from true %",
     " Show as # rolls out of:", " Show as +/- from true rolls out of:"});
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

template <std::int32_t kBit>
std::string NoticeBox(Game& game) {
  return Box((game.NotifyFlags & kBit) != 0);
}

template <int kColor>
std::string ColorText(Game& game) {
  char text[16];
  const auto color = static_cast<unsigned>(game.TableColors[kColor]) & 0xFFFFFF;
  std::snprintf(text, sizeof text, "%06X", color);
  return text;
}

// A sound list begins with "none".
template <auto kChoice, auto kList>
std::string SoundText(Game& game) {
  const std::vector<std::string>& list = game.*kList;
  const std::int32_t choice = game.*kChoice;
  if (choice < 1 || choice > static_cast<std::int32_t>(list.size())) return "none";
  const std::string& file = list[static_cast<std::size_t>(choice - 1)];
  return file.substr(file.rfind('/') + 1);
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
  return game.ProbabilityFileName.empty() ? "untitled" : game.ProbabilityFileName;
}
std::string DiceKindText(Game& game) {
  return game.DiceProbability[0][0][0] == 0 ? "Percentage Dice" : "Free Form Dice";
}

// ---- The screens --------------------------------------------------------------------------------

constexpr SettingControl kChecksTab[] = {
    {"Check Denominations", "BetAmount", 95},
    {"Check Denominations", "BetAmount", 96},
    {"Check Denominations", "BetAmount", 97},
    {"Check Denominations", "BetAmount", 98},
    {"Check Denominations", "BetAmount", 99},
    {" Use \u00A2 symbol for checks < 1", "UseCentsSymbol"},
    {" Dice Action: ", "DiceAction", -1, kDiceActionChoices},
    {" Sim roll rate: ", "RollsPerHour", -1, {}, RollRateText},
    {"Check design", "ChipPicture"},
    {"Dice design", "DicePicture"},
};
constexpr SettingControl kSoundTab[] = {
    {" Disable all game sounds", "AllSoundOff"},
    {" Disable Auto-Bet sounds", "AutoBetSoundOff"},
    {"Stick person",
     "StickPersonChoice",
     -1,
     {},
     SoundText<&Game::StickPersonChoice, &Game::StickPersonList>},
    {"Dice sound",
     "DiceSoundChoice",
     -1,
     {},
     SoundText<&Game::DiceSoundChoice, &Game::DiceSoundList>},
    {"Chip sound",
     "ChipSoundChoice",
     -1,
     {},
     SoundText<&Game::ChipSoundChoice, &Game::ChipSoundList>},
    {"Win sound", "WinSoundChoice", -1, {}, SoundText<&Game::WinSoundChoice, &Game::WinSoundList>},
};
constexpr SettingControl kCompsTab[] = {
    {"Comp rate:",
     "CompRate",
     -1,
     {},
     [](Game& game) { return PlainNumber(game.CompRate) + " %"; }},
    {"Figure comps based on:", "BaseComps", -1, kCompChoices},
    {" Always figure with the true dice probabilities", "CompsUseTrueProbs"},
    {"Bets figured in comps", "CompBetMask", -1, {}, CompBetText},
};
constexpr SettingControl kColorsTab[] = {
    {" Felt ", "TableColors", 0, {}, ColorText<0>},
    {" Lines", "TableColors", 1, {}, ColorText<1>},
    {" Text (Passline, Come, C)", "TableColors", 2, {}, ColorText<2>},
    {" Text (Place)", "TableColors", 3, {}, ColorText<3>},
    {" Text (Big 6/8, Props, E)", "TableColors", 4, {}, ColorText<4>},
    {" Text (Field)", "TableColors", 5, {}, ColorText<5>},
    {" Dice", "TableColors", 6, {}, ColorText<6>},
    {" Dice pips", "TableColors", 7, {}, ColorText<7>},
    {"Felt sample", "TextureRow"},
};
constexpr SettingControl kMiscTab[] = {
    {"Random number generator", "RngSelected", -1, kRngChoices},
    {"Seeding", "UserSeedMode", -1, kSeedChoices},
    {"Re-seed new games", "ReSeedNewGames"},
    {" Actions not allowed", "NotifyFlags", -1, {}, NoticeBox<kNoticeActions>},
    {" Betting limits reached", "NotifyFlags", -1, {}, NoticeBox<kNoticeLimits>},
    {" Charges and/or change", "NotifyFlags", -1, {}, NoticeBox<kNoticeCharges>},
    {" Auto-Bet messages normal play", "NotifyFlags", -1, {}, NoticeBox<kNoticeScript>},
    {" Auto-Bet messages Hyper-Drive", "NotifyFlags", -1, {}, NoticeBox<kNoticeScriptHyper>},
    {" Snap mouse-pointer", "SnapMouse"},
    {" Color printer", "PrintColorWin", -1, {}, ColorPrinterText},
};
constexpr SettingControl kBankrollTab[] = {
    {"For every new game:", "BankrollInitType", -1, kBankrollChoices},
    {" Start bankroll with:", "BankrollInitAmount"},
    {" Allow negative bankroll amounts", "AllowNegBankroll"},
    {"ATM amount", "ATMAmount"},
    {"Current Bankroll:", "BetAmount", kBankroll},
    {"Amount Invested:", "AmountInvested"},
    {"Won/Lost:", "", -1, {}, NetText},
};
constexpr SettingControl kBetsTab[] = {
    {"Minimum bet", "MinPlacardBet"},
    {"Maximum bet", "MaxPlacardBet"},
    {"Odds allowed: 2 and 12", "OddsAllowed", 0},
    {"Odds allowed: 3 and 11", "OddsAllowed", 1},
    {"Odds allowed: 4 and 10", "OddsAllowed", 2},
    {"Odds allowed: 5 and 9", "OddsAllowed", 3},
    {"Odds allowed: 6 and 8", "OddsAllowed", 4},
    {"Max odds bet", "MaxOddsBet"},
    {"Max prop bet payoff", "MaxPropBetPayoff"},
    {"Odds calculation method:", "OddsCalcMethod", -1, kOddsChoices},
    {" Allow \"Put\" bets", "AllowPutBets"},
    {"Buy vig", "BuyVigPct", -1, {}, [](Game& game) { return Percent(game.BuyVigPct); }},
    {"Buy vig", "BuyVigAllBets", -1, kBuyVigChoices},
    {"Buy vig", "BuyVigRounding", -1, kRoundingChoices},
    {"Lay vig", "LayVigPct", -1, {}, [](Game& game) { return Percent(game.LayVigPct); }},
    {"Lay vig", "LayVigAllBets", -1, kLayVigChoices},
    {"Lay vig", "LayVigRounding", -1, kRoundingChoices},
};
constexpr SettingControl kProbabilityTab[] = {
    {" Use the probabilities depicted here.", "UseSkewedProbability"},
    {"Probability File", "ProbabilityFileName", -1, {}, ProbabilityNameText},
    {"Kind of dice", "DiceProbability", -1, {}, DiceKindText},
    {"Display", "ProbabilityDisplay", -1, kProbabilityChoices},
    {"Rolls out of", "RollsOutOf"},
};
constexpr SettingControl kAdvantageTab[] = {
    {"Count zero outcomes as decisions", "IncludeZeroOutcomes"},
    {"Show misc. roll, dec, and time data", "ShowMiscData"},
};
constexpr SettingControl kAutoPlayScreen[] = {
    {"Winning bets", "HandleWinningBets", -1, kWinChoices},
    {"Winning bets: Same Bet:",
     "HandleAmount",
     kAutoWonSame - kFirstHandleOption,
     {},
     OptionText<kAutoWonSame>},
    {"Winning bets: Bet:",
     "HandleAmount",
     kAutoWonBet - kFirstHandleOption,
     {},
     OptionText<kAutoWonBet>},
    {"Losing bets", "HandleLosingBets", -1, kLossChoices},
    {"Losing bets: Same Bet:",
     "HandleAmount",
     kAutoLostSame - kFirstHandleOption,
     {},
     OptionText<kAutoLostSame>},
    {"Losing bets: Bet:",
     "HandleAmount",
     kAutoLostBet - kFirstHandleOption,
     {},
     OptionText<kAutoLostBet>},
    {"Bet amounts", "AutoAdjustBetAmounts", -1, kAdjustChoices},
    {"Lay bets", "LayBias", -1, kLayBiasChoices},
    {"Place bets", "PlaceBias", -1, kPlaceBiasChoices},
    {"\"Do\" odds", "DoBias", -1, kDoBiasChoices},
    {" Auto-Take Full Odds", "AutoTakeFullOdds"},
    {" Auto-Remove Place Bets", "AutoRemovePlaceBets"},
    {" Auto-Arrange Chips", "AutoArrangeChips"},
    {"Auto-Roll Dice", "AutoRollDice"},
    {"Rolls:", "NumAutoRolls"},
    {"Left:", "AutoRollsRemaining"},
    {"Delay:", "AutoRollDelay"},
    {"Auto-Stop Rolling on:", "AutoStopOn", -1, {}, StopText},
    {"Work on come-out", "WorkOnComeOut", -1, {}, WorkText},
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

std::size_t ChoiceOf(const StateValue& value) {
  if (const bool* on = std::get_if<bool>(&value)) return *on ? 1 : 0;
  return static_cast<std::size_t>(std::get<std::int64_t>(value));
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

std::string ShownSetting(Game& game, const SettingControl& control) {
  if (control.show != nullptr) return control.show(game);
  const StateName* entry = FindStateName(control.name);
  if (entry == nullptr) return {};
  const StateValue value = entry->read(game, {std::max(control.index, 0)});
  if (control.choices.empty()) return ValueText(value);
  const std::size_t choice = ChoiceOf(value);
  return choice < control.choices.size() ? std::string(Trim(control.choices[choice]))
                                         : ValueText(value);
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
