#include "config/configure.h"

#include <gtest/gtest.h>

#include <random>
#include <set>
#include <string>

#include "config/answering_surface.h"
#include "config/payoffs.h"
#include "config/table_colors.h"
#include "engine/place_bet.h"
#include "engine/start_up.h"
#include "stats/bet_results.h"

namespace feltmaster {
namespace {

using namespace money_literals;

struct Table {
  Table() {
    game.surface = &surface;
    StartUp(game, {"", 1});
    game.BetAmount.Set(kBankroll, 1000_usd);
  }
  // The title and text of the one dialog that the check raised.
  std::string CheckTells() {
    surface.dialogs.clear();
    const bool passed = CheckLimits(game);
    EXPECT_EQ(passed, surface.dialogs.empty());
    return passed ? "" : surface.dialogs.at(0).title + "|" + surface.dialogs.at(0).text;
  }
  std::string Checks(std::initializer_list<double> values) {
    int chip = kFirstChip;
    for (const double value : values) game.BetAmount.Set(chip++, MoneyAmount::FromDouble(value));
    return CheckTells();
  }
  void Bet(int bet, MoneyAmount amount) {
    game.BetRequest = amount;
    PlaceBet(game, bet);
    ASSERT_EQ(game.BetAmount[bet], amount);
    surface.dialogs.clear();  // the notice of the vig
  }

  Game game;
  AnsweringSurface surface;
};

TEST(CheckLimits, TellsTheFirstFault) {
  Table table;
  Game& game = table.game;
  EXPECT_EQ(table.CheckTells(), "");

  game.MinPlacardBet = game.MaxPlacardBet = {};
  EXPECT_EQ(table.CheckTells(), "Configuration Limits|The minimum bet must be greater than zero.");
  EXPECT_EQ(game.ConfigureTab, 6);
  game.MinPlacardBet = 10_usd;
  EXPECT_EQ(table.CheckTells(), "Configuration Limits|The maximum bet must be greater than zero.");
  game.MaxPlacardBet = 9.99_usd;
  EXPECT_EQ(table.CheckTells(),
            "Configuration Limits|The maximum bet must be greater than\n"
            "or equal to the minimum bet.");
  game.BetAmount.Set(kFirstChip + 2, {});
  game.MaxPlacardBet = 10_usd;
  EXPECT_EQ(table.CheckTells(), "Check Values|Check values must be greater than zero.");
  EXPECT_EQ(game.ConfigureTab, 0);
  SetDefaultDenominations(game);
  EXPECT_EQ(table.CheckTells(), "");
}

TEST(CheckLimits, ChecksRiseInMultiplesOfTheSmallest) {
  Table table;
  const std::string rising =
      "Check Values|Checks must be listed in ascending order with the \n"
      "smallest valued check in the leftmost position.";
  const std::string divisible =
      "Check Values|All checks must be wholly divisible by the smallest check.";
  EXPECT_EQ(table.Checks({1, 1, 5, 25, 100}), "");
  EXPECT_EQ(table.Checks({1.5, 3, 4.5, 6, 7.5}), "");
  EXPECT_EQ(table.Checks({0.25, 0.5, 1, 1, 1}), "");
  EXPECT_EQ(table.Checks({2, 5, 10, 20, 50}), divisible);
  EXPECT_EQ(table.Checks({5, 1, 10, 20, 50}), rising);
  EXPECT_EQ(table.Checks({1, 5, 25, 100, 99}), rising);
  EXPECT_EQ(table.Checks({1, 5, 25, 100, 100.5}), divisible);
}

TEST(CheckLimits, ShowsTheFaultyPayoff) {
  Table table;
  Game& game = table.game;
  const std::string text = "|The loss on any payoff cannot exceed the amount wagered.";
  game.FieldPayTable[3].PayNumerator = MoneyAmount(-2);
  EXPECT_EQ(table.CheckTells(), "Payoff ratio error on Field" + text);
  EXPECT_EQ(game.ConfigureTab, 7);
  EXPECT_EQ(game.PayoffsScroll, 1);
  game.PayTable[kHop13].PayNumerator = MoneyAmount(-2);  // row 66 of the grid
  EXPECT_EQ(table.CheckTells(), "Payoff ratio error on Hop 1-3" + text);
  EXPECT_EQ(game.PayoffsScroll, 62);
  game.PayTable[kPlace].PayNumerator = MoneyAmount(-20);
  EXPECT_EQ(table.CheckTells(), "Payoff ratio error on Place 2" + text);
  EXPECT_EQ(game.PayoffsScroll, 31);
}

TEST(CheckLimits, LeavingTakesEffect) {
  Table table;
  Game& game = table.game;
  game.BankrollHigh = 5000_usd;
  game.BankrollLow = 4000_usd;
  SetFieldPayoffs(game, FieldPreset::kAsPlaceLose8);
  EXPECT_EQ(table.CheckTells(), "");
  EXPECT_EQ(game.BankrollHigh, 1000_usd);  // no roll yet
  EXPECT_EQ(game.BankrollLow, 1000_usd);
  EXPECT_EQ(game.PayTable[kField].PayDenominator, 5_usd);

  game.EventCounts[0] = 10;
  game.BetAmount.Set(kBankroll, 900_usd);
  EXPECT_EQ(table.CheckTells(), "");
  EXPECT_EQ(game.BankrollHigh, 1000_usd);
  EXPECT_EQ(game.BankrollLow, 900_usd);

  // Bets take the size that pays in whole units.
  game.BetAmount.Set(kPlace + 4, 7_usd);
  game.TotalOnTable = 7_usd;
  game.RedrawTable = false;
  game.AutoAdjustBetAmounts = kAdjustManually;
  EXPECT_EQ(table.CheckTells(), "");
  EXPECT_EQ(game.BetAmount[kPlace + 4], 7_usd);
  EXPECT_TRUE(game.RedrawTable);
  game.AutoAdjustBetAmounts = kColorCorrection;
  EXPECT_EQ(table.CheckTells(), "");
  EXPECT_TRUE(IsMultipleOf(game.BetAmount[kPlace + 4], 6_usd));
}

TEST(RollRate, ConvertsByItsUnit) {
  const struct {
    const char* entry;
    int unit;
    std::int64_t raw;  // of RollsPerHour
    const char* shown;
  } kCases[] = {
      {"120", 0, 1'200'000, "120"}, {"3600000", 0, 36'000'000'000, "3600000"},
      {"2", 1, 1'200'000, "2"},     {"1000", 2, 36'000'000'000, "1000"},
      {"4", 3, 2'500, "4"},         {"0.5", 4, 1'200'000, "0.5"},
      {"30", 5, 1'200'000, "30"},   {"3600000", 5, 10, "3600000"},
      {"60000", 4, 10, "60000"},    {"0.0001", 0, 1, "0.0001"},
  };
  for (const auto& c : kCases) {
    Table table;
    EXPECT_TRUE(SetRollsPerHour(table.game, c.entry, c.unit));
    EXPECT_EQ(table.game.RollsPerHour.Raw(), c.raw) << c.entry << " " << c.unit;
    EXPECT_EQ(ShowRollsPerHour(table.game, c.unit), c.shown);
  }
  Game slow;
  slow.RollsPerHour = MoneyAmount::FromRaw(1);
  EXPECT_EQ(ShowRollsPerHour(slow, 1), "<.0001");
  slow.RollsPerHour = {};
  EXPECT_EQ(ShowRollsPerHour(slow, 4), "<.0001");
}

TEST(RollRate, IsRefusedBeyondItsLimit) {
  const struct {
    const char* entry;
    int unit;
    const char* text;
  } kCases[] = {
      {"4000000", 0, "The maximum simulated Rolls / hr rate is 3,600,000."},
      {"60000.0001", 1, "The maximum simulated Rolls / min rate is 60,000."},
      {"1001", 2, "The maximum simulated Rolls / sec rate is 1,000."},
      {"100000", 3, "The maximum simulated Hrs / roll rate is 1,000."},
      {"60001", 4, "The maximum simulated Mins / roll rate is 60,000."},
      {"3600001", 5, "The maximum simulated Secs / roll rate is 3,600,000."},
      {"0", 0, "The simulated Rolls / hr must be greater than zero."},
      {"", 4, "The simulated Mins / roll must be greater than zero."},
  };
  for (const auto& c : kCases) {
    Table table;
    EXPECT_FALSE(SetRollsPerHour(table.game, c.entry, c.unit));
    EXPECT_EQ(table.game.RollsPerHour, 120_usd);
    ASSERT_EQ(table.surface.dialogs.size(), 1u);
    EXPECT_EQ(table.surface.dialogs[0].text, c.text);
  }
}

TEST(NumericKeyFilter, LetsNumbersThrough) {
  const struct {
    const char* text;
    std::size_t cursor;
    char key;
    int decimals;
    bool negative;
    std::size_t longest;
    const char* result;
  } kCases[] = {
      {"12", 2, '3', 2, false, 0, "123"},
      {"12", 0, '3', 2, false, 0, "312"},
      {"12", 2, 'x', 2, false, 0, "12"},
      {"12", 1, '\b', 2, false, 0, "2"},
      {"12", 0, '\b', 2, false, 0, "12"},
      {"12", 2, '.', 0, false, 0, "12"},
      {"12", 2, '.', 2, false, 0, "12."},
      {"1.2", 3, '.', 2, false, 0, "1.2"},
      {"1234", 1, '.', 2, false, 0, "1234"},  // three digits behind it
      {"1234", 2, '.', 2, false, 0, "12.34"},
      {"1.23", 4, '4', 2, false, 0, "1.23"},
      {"1.23", 2, '4', 2, false, 0, "1.23"},
      {"1.23", 1, '4', 2, false, 0, "14.23"},  // ahead of the point
      {"", 0, '-', 2, true, 0, "-"},
      {"", 0, '-', 2, false, 0, ""},
      {"5", 0, '-', 2, true, 0, "-5"},
      {"5", 1, '-', 2, true, 0, "5"},
      {"-5", 0, '-', 2, true, 0, "-5"},
      {"-5", 0, '1', 2, true, 0, "-5"},  // nothing ahead of the sign
      {"-5", 0, '.', 2, true, 0, "-5"},
      {"-5", 1, '1', 2, true, 0, "-15"},
      {"1234567890123", 13, '4', 2, false, 0, "12345678901234"},
      {"12345678901234", 14, '5', 2, false, 0, "12345678901234"},
      {"12345678901234", 14, '.', 2, false, 0, "12345678901234."},
      {"-1234567890123", 14, '4', 2, true, 0, "-12345678901234"},
      {"123456", 6, '7', 0, false, 6, "123456"},
      {"12345", 5, '6', 0, false, 6, "123456"},
      {"123456", 6, '\b', 0, false, 6, "12345"},
      {"12", 99, '3', 2, false, 0, "123"},
  };
  for (const auto& c : kCases) {
    const FieldKey result =
        NumericKeyFilter({c.text, c.cursor}, c.key, c.decimals, c.negative, c.longest);
    EXPECT_EQ(result.text, c.result) << c.text << " at " << c.cursor << " " << c.key;
    EXPECT_EQ(static_cast<int>(result.cursor) -
                  static_cast<int>(std::min(c.cursor, std::string(c.text).size())),
              static_cast<int>(result.text.size()) - static_cast<int>(std::string(c.text).size()))
        << c.text << " at " << c.cursor << " " << c.key;
  }
}

TEST(VigSettings, AreUndoneWhenTheBankrollDoesNotCarryThem) {
  Table table;
  Game& game = table.game;
  game.BuyVigAllBets = false;
  table.Bet(kBuy + 2, 30_usd);
  game.BetAmount.Set(kBankroll, 30_usd);
  game.AllowNegBankroll = false;
  ChangeVigSetting(game, VigSetting::kBuyAllBets, true);
  ASSERT_EQ(table.surface.dialogs.size(), 1u);
  EXPECT_EQ(table.surface.dialogs[0].title, "Buy Bet Vig");
  EXPECT_EQ(table.surface.dialogs[0].text,
            "You're not allowed to change this setting at this time since the added up-front vig "
            "will cause the amount of your current bets to exceed your current bankroll.\n\n");
  EXPECT_FALSE(game.BuyVigAllBets);
  EXPECT_EQ(game.TotalOnTable, 30_usd);

  game.BuyVigAllBets = true;
  game.BetAmount.Set(kBankroll, 31_usd);
  ChangeVigSetting(game, VigSetting::kBuyRounding, kRoundUp);
  EXPECT_EQ(game.BuyVigRounding, kRoundNormally);
  EXPECT_EQ(game.BuyVigPaid[2], 1_usd);
  EXPECT_EQ(game.TotalOnTable, 31_usd);
  game.AllowNegBankroll = true;
  ChangeVigSetting(game, VigSetting::kBuyRounding, kRoundUp);
  EXPECT_EQ(game.TotalOnTable, 32_usd);
}

TEST(AllowNegBankroll, IsKeptWhileItIsNeeded) {
  Table table;
  Game& game = table.game;
  game.BetAmount.Set(kBankroll, MoneyAmount(-1));
  SetAllowNegBankroll(game, false);
  EXPECT_TRUE(game.AllowNegBankroll);
  EXPECT_EQ(table.surface.dialogs.at(0).text,
            "Before you can un-check this box you must first establish a non-negative bankroll by "
            "either:\n\n -- Winning some more money, or\n -- Making a withdrawal from the ATM.");
  game.BetAmount.Set(kBankroll, 10_usd);
  game.TotalOnTable = 12.5_usd;
  SetAllowNegBankroll(game, false);
  EXPECT_TRUE(game.AllowNegBankroll);
  EXPECT_EQ(table.surface.dialogs.at(1).text,
            "The amount of your current bets exceeds your current bankroll.  Therefore, before you "
            "can un-check this box you must either:\n\n -- Reduce the amount of your current bets, "
            "or \n -- Make at least a $2.50 withdrawal from the ATM.");
  game.TotalOnTable = 10_usd;
  SetAllowNegBankroll(game, false);
  EXPECT_FALSE(game.AllowNegBankroll);
  SetAllowNegBankroll(game, true);
  EXPECT_TRUE(game.AllowNegBankroll);
}

TEST(Denominations, AreRestoredUnlessTheAnswerIsNo) {
  Table table;
  table.game.BetAmount.Set(kFirstChip, 2_usd);
  table.surface.Answer(kAnswerNo);
  RestoreDefaultDenominations(table.game);
  EXPECT_EQ(table.game.BetAmount[kFirstChip], 2_usd);
  table.surface.Answer(kAnswerYes);
  RestoreDefaultDenominations(table.game);
  EXPECT_EQ(table.game.BetAmount[kFirstChip], 1_usd);
  EXPECT_EQ(table.surface.dialogs.at(0).title, "Confirm?");
}

TEST(Payoffs, AreRestoredUnlessTheAnswerIsNo) {
  Table table;
  DefaultPayoffs(table.game);
  const auto house = table.game.PayTable;
  table.game.PayTable[kHard8].PayNumerator = 8_usd;
  table.surface.Answer(kAnswerNo);
  RestoreDefaultPayoffs(table.game);
  EXPECT_EQ(table.game.PayTable[kHard8].PayNumerator, 8_usd);
  table.surface.Answer(kAnswerYes);
  RestoreDefaultPayoffs(table.game);
  EXPECT_EQ(table.game.PayTable, house);
  EXPECT_EQ(table.surface.dialogs.at(1).text,
            "Do you want to restore all payoffs to their original Feltmaster settings?");
}

TEST(TableColors, AFreshTableIsTheTraditionalGreenOne) {
  Table table;
  const Preferences fresh;
  SetTablePreset(table.game, kTablePresets[5]);
  EXPECT_EQ(table.game.TableColors[0], 0xBB6700);
  SetTablePreset(table.game, kTablePresets[1]);
  EXPECT_EQ(table.game.TextureRow, 6);
  SetTablePreset(table.game, kTablePresets[0]);
  EXPECT_EQ(table.game.TableColors, fresh.TableColors);
  EXPECT_EQ(table.game.TextureRow, fresh.TextureRow);
  EXPECT_EQ(FeltSampleAt(369, 250), std::nullopt);
  EXPECT_EQ(FeltSampleAt(370, 250), 0);
  EXPECT_EQ(FeltSampleAt(426, 289), 4);
  EXPECT_EQ(FeltSampleAt(538, 310), 8);
  EXPECT_EQ(FeltSampleAt(539, 310), std::nullopt);
}

TEST(Configure, WritesAsTheControlsDo) {
  Table table;
  Game& game = table.game;
  game.GameChanged = false;
  const auto set = [&game](const char* name, const char* value) {
    EXPECT_EQ(Configure(game, name, value), "") << name << " " << value;
  };
  set("MinPlacardBet", "5");
  EXPECT_EQ(game.MinPlacardBet, 5_usd);
  EXPECT_TRUE(game.GameChanged);
  set("oddsallowed( 2 )", " 3.45 ");
  EXPECT_EQ(game.OddsAllowed[2], 3.45_usd);
  set("BankrollInitAmount", "-100.25");
  EXPECT_EQ(game.BankrollInitAmount, MoneyAmount::FromRaw(-1'002'500));
  set("BuyVigPct", "4.125");
  EXPECT_EQ(game.BuyVigPct, MoneyAmount::FromRaw(412));  // 0.04125, half to even
  set("BetAmount(96)", "10");
  EXPECT_EQ(game.BetAmount[96], 10_usd);
  set("DiceAction", "3");
  EXPECT_EQ(game.DiceAction, 3);
  set("AllowPutBets", "YES");
  EXPECT_TRUE(game.AllowPutBets);
  set("AllowPutBets", "0");
  EXPECT_FALSE(game.AllowPutBets);
  set("AutoStopOn(9)", "-1");
  EXPECT_TRUE(game.AutoStopOn[9]);
  set("HandleAmount(4)", "12.5");
  EXPECT_EQ(game.HandleAmount[4], 12.5_usd);
  set("HandleUnits(4)", "1");
  EXPECT_EQ(game.HandleUnits[4], 1_usd);
  set("AutoRollDelay", "250");
  EXPECT_EQ(game.AutoRollDelay, 99);
  set("AutoRollDelay", "2.5");
  EXPECT_EQ(game.AutoRollDelay, 2);
  set("NumAutoRolls", "200000000");
  EXPECT_EQ(game.NumAutoRolls, 100'000'000);
  EXPECT_EQ(game.AutoRollsRemaining, 100'000'000);
  set("WorkOnComeOut(36)", "true");
  EXPECT_TRUE(game.WorkOnComeOut.Has(36));
  EXPECT_EQ(game.BetState[36], kWorking);  // on the come-out the rule applies at once
  set("RollsPerTimeUnit", "5");
  set("RollsPerHour", "30");
  EXPECT_EQ(game.RollsPerHour, 120_usd);
  set("PrintColorLoss", "0");
  EXPECT_EQ(game.PrintColorWin + game.PrintColorLoss + game.PrintColorOther, 0);
  set("PrintColorWin", "9");
  EXPECT_EQ(game.PrintColorOther, 13);
  set("CompBetMask(3)", "-1");
  EXPECT_EQ(game.CompBetMask[3], -1);
  EXPECT_TRUE(table.surface.dialogs.empty());
}

TEST(Configure, EditsPayoffsAsShown) {
  Table table;
  Game& game = table.game;
  const PayRow& place6 = game.PayTable[kPlace + 4];
  EXPECT_EQ(Configure(game, "PayTable(35,2)", "for"), "");
  EXPECT_EQ(place6, (PayRow{1_usd, false, 6_usd}));
  EXPECT_EQ(Configure(game, "PayTable(35,1)", "13"), "");
  EXPECT_EQ(place6, (PayRow{7_usd, false, 6_usd}));
  EXPECT_EQ(Configure(game, "PayTable(35, 3)", "4"), "");
  EXPECT_EQ(place6, (PayRow{9_usd, false, 4_usd}));
  EXPECT_EQ(Configure(game, "PayTable(35,3)", "0"), "");  // the old one comes back
  EXPECT_EQ(place6, (PayRow{9_usd, false, 4_usd}));
  EXPECT_EQ(Configure(game, "FieldPayTable(21,1)", "3"), "");
  EXPECT_EQ(game.FieldPayTable[21].PayNumerator, 3_usd);
}

TEST(Configure, NamesTheArgumentThatItRefuses) {
  Table table;
  Game& game = table.game;
  game.ScriptFlags.clear();
  const struct {
    const char* name;
    const char* value;
    const char* told;  // a part of the sentence
  } kCases[] = {
      {"Bankroll", "5", "\"Bankroll\""},
      {"", "5", "not a setting"},
      {"BetAmount(36)", "5", "BetAmount needs an index from 95 to 99"},
      {"BetAmount", "5", "BetAmount needs an index"},
      {"MinPlacardBet(1)", "5", "MinPlacardBet has no index"},
      {"OddsAllowed(5)", "5", "OddsAllowed"},
      {"OddsAllowed(-1)", "5", "OddsAllowed"},
      {"OddsAllowed(1", "5", "OddsAllowed"},
      {"OddsAllowed(1,)", "5", "OddsAllowed"},
      {"OddsAllowed()", "5", "OddsAllowed"},
      {"OddsAllowed(99999999999999999999)", "5", "OddsAllowed"},
      {"PayTable(54,1)", "1", "PayTable"},
      {"PayTable(36,4)", "1", "PayTable"},
      {"PayTable(36,2)", "at", "\"to\" or \"for\""},
      {"WorkOnComeOut(51)", "1", "WorkOnComeOut"},
      {"MinPlacardBet", "-5", "MinPlacardBet takes a number without a sign"},
      {"MinPlacardBet", "5.001", "at most 2 decimals"},
      {"MinPlacardBet", "5x", "not \"5x\""},
      {"MinPlacardBet", "", "not \"\""},
      {"MinPlacardBet", "1e3", "MinPlacardBet"},
      {"MinPlacardBet", "1,000", "MinPlacardBet"},
      {"MinPlacardBet", "999999999999999", "MinPlacardBet"},
      {"BankrollInitAmount", "-", "BankrollInitAmount takes a number, with"},
      {"NumAutoRolls", "1.5", "without a sign or decimals"},
      {"DiceAction", "4", "DiceAction takes a whole number from 0 to 3"},
      {"DiceAction", "1.0", "DiceAction"},
      {"ChipPicture", "0", "from 1 to 7"},
      {"StickPersonChoice", "1", "from 0 to 0"},
      {"AllowPutBets", "maybe", "AllowPutBets takes true or false, not \"maybe\"."},
  };
  game.GameChanged = false;
  for (const auto& c : kCases) {
    const std::string told = Configure(game, c.name, c.value);
    EXPECT_NE(told.find(c.told), std::string::npos) << c.name << " " << c.value << ": " << told;
  }
  EXPECT_FALSE(game.GameChanged);
  EXPECT_EQ(game.MinPlacardBet, 1_usd);

  game.StickPersonList = {"anna", "ben"};
  EXPECT_EQ(Configure(game, "StickPersonChoice", "2"), "");
  EXPECT_NE(Configure(game, "StickPersonChoice", "3"), "");
}

// A refusal by the house is told by its dialog, not as a fault of the argument.
TEST(Configure, LetsTheHouseRefuse) {
  Table table;
  table.game.BetAmount.Set(kBankroll, MoneyAmount(-1));
  EXPECT_EQ(Configure(table.game, "AllowNegBankroll", "false"), "");
  EXPECT_EQ(table.surface.dialogs.size(), 1u);
  EXPECT_EQ(Configure(table.game, "RollsPerHour", "4000000"), "");
  EXPECT_EQ(table.surface.dialogs.size(), 2u);
  EXPECT_EQ(table.game.RollsPerHour, 120_usd);
}

// The phantom dollars of the rolls so far keep the payoff under which they were rolled.
TEST(Configure, SettlesPhantomsBeforeAPayoffChanges) {
  Table table;
  Game& game = table.game;
  game.Die1 = 1;
  game.Die2 = 2;
  game.DiceTotal = 3;
  BeginRollResults(game);
  RecordPhantomDecisions(game, PairOfDice(1, 2));
  const MoneyAmount won = 15_usd;
  EXPECT_EQ(Configure(game, "PayTable(62,1)", "7"), "");
  EXPECT_EQ(ResultCell(game, ResultKind::kWins, kPhantom, kThree, kResultTotal), won);
}

TEST(Configure, SurvivesAnyText) {
  Table table;
  constexpr std::string_view kAlphabet = "BetAmount(95,1)-.0e \xFF";
  std::mt19937 random(31);
  for (int i = 0; i < 20'000; ++i) {
    std::string name = i % 2 == 0 ? "PayTable(" : "";
    std::string value;
    for (std::size_t n = random() % 12; n > 0; --n) name += kAlphabet[random() % kAlphabet.size()];
    for (std::size_t n = random() % 30; n > 0; --n) value += kAlphabet[random() % kAlphabet.size()];
    Configure(table.game, name, value);
  }
}

}  // namespace
}  // namespace feltmaster
