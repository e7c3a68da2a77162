#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "console/arguments.h"
#include "console/console_program.h"

namespace feltmaster {
namespace {

using nlohmann::json;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

std::string Title(const json& answer, std::size_t message = 0) {
  return answer["messages"].at(message)["title"];
}
std::string Text(const json& answer, std::size_t message = 0) {
  return answer["messages"].at(message)["text"];
}

TEST(Console, AnEveningAtTheTable) {
  const auto answers = PlaySteps({
      {"atm withdraw 300"},
      {"bet \"Pass Line\" 10", 10},
      {"roll 1 3", {{"point", 4}, {"decided", json::array()}}},
      {"odds 51", 20},
      {"bet \"place 6\" 12", 12},
      {"roll 3 3",  // comes down
       json::parse(R"({"decided":[{"bet":35,"name":"Place 6","amount":12,"net":14}]})")},
      {"settle 1"},
      {"roll 2 2", json::parse(R"({"dice":[2,2], "point":0, "net":50, "bankroll":364, "decided":[
           {"bet":51,"name":"Pass Line","amount":10,"net":10},
           {"bet":52,"name":"Pass Line Odds","amount":20,"net":40}]})")},
      {"get BetAmount(51)", 10},
      {"roll 3 4", {{"bankroll", 374}}},  // a come-out 7 pays the line again
  });
  EXPECT_FALSE(answers[0].contains("settles"));
  EXPECT_EQ(answers[5]["settles"][0]["rows"],
            json::parse(R"([["Place 6 bet:","$12"],["Payoff at 7 to 6:","$14"]])"));
  EXPECT_EQ(answers[5]["settles"][0]["button"], 0);
  EXPECT_EQ(answers[7]["settles"].size(), 2u);
  EXPECT_EQ(answers[7]["settles"][0]["button"], 1);  // queued: the same bet
  // Nothing is read behind a "quit", "#" begins a remark, and an empty line is none.
  EXPECT_EQ(Play({"# a remark", "", "quit", "get BetAmount(0)"}).size(), 1u);
}

TEST(Console, SaysInWordsWhatHappened) {
  const ProgramRun run = RunProgram("console",
                                    "atm withdraw 100\n"
                                    "bet \"Field\" 5\n"
                                    "roll 1 1\n"
                                    "bet 53 5\n"
                                    "roll 5 2\n"
                                    "roll\n");
  EXPECT_EQ(run.exit_code, 0);
  EXPECT_THAT(run.output, StartsWith("Bankroll $100, up $100.\n"
                                     "Field: $5. On the table $5, bankroll $100.\n"
                                     "1 and 1: aces\n"
                                     "  [* * * Winner * * *]\n"
                                     "  Field bet: $5\n"
                                     "  Payoff at 2 to 1: $10\n"
                                     "  (Take Bet and Winnings)\n"
                                     "The point is 2.\n"
                                     "  Field, $5: wins $10\n"
                                     "Bankroll $110, up $10.\n"
                                     "Come: $5. On the table $5, bankroll $110.\n"
                                     "5 and 2: seven\n"));
  EXPECT_THAT(run.output, HasSubstr("Seven out, new shooter.\n  Come, $5: wins $5\n"));
}

TEST(Console, WhatIsNotUnderstoodNamesTheArgumentAndChangesNothing) {
  struct Case {
    std::string command;
    std::string named;
  };
  const std::vector<Case> cases = {
      {"shuffle", "shuffle"},
      {"bet", "BET is missing"},
      {"bet 36", "AMOUNT is missing"},
      {"bet 36 6 6", "6"},
      {"bet 0 5", "BET \"0\""},
      {"bet 89 5", "BET \"89\""},
      {"bet 200 5", "BET \"200\""},
      {"bet \"Place 7\" 5", "BET \"Place 7\""},
      {"bet 36 1e3", "AMOUNT \"1e3\""},
      {"bet 36 1.23456", "AMOUNT \"1.23456\""},
      {"bet 36 --5", "AMOUNT \"--5\""},
      {"bet 36 .", "AMOUNT \".\""},
      {"bet 36 1000000000000000", "AMOUNT"},
      {"bet 36 99999999999999999999999", "AMOUNT"},
      {"enter 36 -6", "AMOUNT \"-6\""},
      {"atm withdraw -5", "AMOUNT \"-5\""},
      {"atm borrow 5", "withdraw or deposit"},
      {"roll 3", "D2"},
      {"roll 0 4", "D1 \"0\""},
      {"roll 4 7", "D2 \"7\""},
      {"rolls 0", "N \"0\""},
      {"rolls many", "N \"many\""},
      {"hyper -1", "N \"-1\""},
      {"odds 36", "BET 36"},
      {"drag 36", "TO is missing"},
      {"answer", "A is missing"},
      {"answer yes maybe", "A \"maybe\""},
      {"settle 1 7", "\"7\""},
      {"get BetAmounts", "NAME \"BetAmounts\""},
      {"get BetAmount(201)", "index 201 of BetAmount"},
      {"get BetAmount(-1)", "index -1 of BetAmount"},
      {"get EstablishedAmount(10)", "index 10 of EstablishedAmount"},
      {"get BetWagers(1,51,8)", "index 8 of BetWagers"},
      {"get BetWagers(1,51,2,3)", "BetWagers"},
      {"get Point(1)", "Point(1)"},
      {"get BetAmount(5", "BetAmount"},
      {"set BetAmount 5", "BetAmount needs 1 index"},
      {"set Point", "VALUE is missing"},
      {"set Point 7", "VALUE 7"},
      {"set Die1 4.5", "VALUE \"4.5\""},
      {"set AllowPutBets maybe", "VALUE \"maybe\""},
      {"set MinPlacardBet five", "VALUE \"five\""},
      {"set ScriptLineCount 3", "ScriptLineCount"},
      {"configure NoSuchThing 1", "NoSuchThing"},
      {"configure MinPlacardBet lots", "MinPlacardBet"},
      {"call FlipTable", "PROCEDURE \"FlipTable\""},
      {"call ComputeMinBet 95", "BET"},
      {"call ComputeBuyVig 95 5", "BET \"95\""},
      {"call SetProbabilityCell 7 1 500", "Row 7 of Col 1"},
      {"call ValueOf 1600 100", "stack \"100\""},
      {"show money", "SCREEN \"money\""},
      {"script fields 1", "N"},
      {"script add When pigs fly", "TEXT"},
      {"script load /nowhere/at/all.bet", "FILE \"/nowhere/at/all.bet\""},
      {"flag Rich true", "NAME \"Rich\""},
      {"prb open /nowhere/at/all.prb", "FILE \"/nowhere/at/all.prb\""},
      {"help bluffing", "COMMAND \"bluffing\""},
      {"quit now", "\"now\""},
  };
  std::vector<std::string> commands = {"atm withdraw 100", "bet 36 12", "set LastErrorText x",
                                       "state"};
  for (const Case& one : cases) commands.push_back(one.command);
  commands.push_back("set LastErrorText x");
  commands.push_back("state");
  const auto answers = Play(commands);
  ASSERT_EQ(answers.size(), commands.size());
  for (std::size_t i = 0; i < cases.size(); ++i) {
    const json& answer = answers[4 + i];
    EXPECT_EQ(answer["ok"], false) << cases[i].command;
    EXPECT_THAT(answer.value("error", ""), HasSubstr(cases[i].named)) << cases[i].command;
    EXPECT_THAT(answer.value("error", ""), EndsWith(".")) << cases[i].command;
    EXPECT_FALSE(answer.contains("value")) << cases[i].command;
  }
  const json& before = answers[3]["value"];
  const json& after = answers.back()["value"];
  for (const auto& [name, value] : before.items()) {
    if (name == "FileStatus") continue;  // the result of the last open, also of one that failed
    EXPECT_EQ(after[name], value) << name;
  }
}

TEST(Console, SurvivesRubbish) {
  const std::string nul(1, '\0');
  std::string input = "bet " + nul + " 5\n";
  input += "\xff\xfe\x80 \xc3\n";
  input += "echo \xff\xfe ok \xe2\x82\xac\n";
  input += std::string(1'000'000, 'x') + '\n';
  input += "bet 36 " + std::string(1'000'000, '9') + '\n';
  input += "get BetAmount(" + std::string(100'000, '1') + ")\n";
  input += "get " + std::string(100'000, '(') + "\n";
  input += "bet \"" + std::string(100'000, 'a') + "\n";
  input += "answer " + std::string(100'000, '-') + "\n";
  input += "script add " + std::string(100'000, '\'') + "\n";
  input += "\t \r\n";
  input += "  # a remark\n";
  input += "set MsgText \x01\x02\"\\\n";
  input += "get MsgText\n";
  input += "get Point";  // without a line end
  const ProgramRun run = RunProgram("console --json --seed 3", input);
  EXPECT_EQ(run.exit_code, 1);
  const auto answers = run.Answers();
  ASSERT_EQ(answers.size(), 13u);
  EXPECT_EQ(answers[0]["ok"], false);
  EXPECT_EQ(answers[2]["value"], "\xef\xbf\xbd\xef\xbf\xbd ok \xe2\x82\xac");
  EXPECT_LT(answers[3].dump().size(), 500u);
  EXPECT_EQ(answers[11]["value"], "\x01\x02\"\\");
  EXPECT_EQ(answers[12]["value"], 0);
}

TEST(Console, ASeedRepeatsTheWholeSession) {
  const std::string session =
      "atm withdraw 1000\nbet 51 10\nrolls 40\nauto 20\nhyper 2000\nanswer no\nnew\n"
      "bet 54 5\nrolls 30\ncall SeedRng 0\ncall DrawDice\nstate\nshow settings\n";
  const ProgramRun first = RunProgram("console --json --seed 42", session);
  EXPECT_EQ(first.exit_code, 0);

  // The state names its data folder; all else is the same, byte for byte.
  const auto without_folder = [](std::string text) {
    const std::size_t start = text.find("\"AppPath\"");
    return text.erase(start, text.find("\"GameFileName\"") - start)
        .erase(text.find("\"GamesLogFile\""), 60);
  };
  const ProgramRun second = RunProgram("console --json --seed 42", session);
  EXPECT_EQ(without_folder(first.output), without_folder(second.output));
  EXPECT_NE(without_folder(first.output),
            without_folder(RunProgram("console --json --seed 43", session).output));
}

TEST(Console, RngSelectsBeforeTheFirstCommand) {
  std::vector<std::string> games;
  for (int rng = 1; rng <= 8; ++rng) {
    const auto answers = Play({"get RngSelected", "rolls 1", "rolls 1", "rolls 1", "rolls 1"},
                              "--seed 9 --rng " + std::to_string(rng));
    EXPECT_EQ(answers[0]["value"], rng - 1);
    std::string dice;
    for (std::size_t i = 1; i < 5; ++i) dice += answers[i]["value"]["dice"].dump();
    games.push_back(dice);
  }
  std::ranges::sort(games);
  EXPECT_EQ(std::ranges::adjacent_find(games), games.end());
}

TEST(Console, QueuedAnswersGoToTheQuestionsInOrder) {
  const auto answers = PlaySteps({
      {"configure BankrollInitType 1"},
      {"answer 250.5"},
      {"bet 1 20"},  // 2: a mere notice leaves the queue alone
      {"set GameChanged false"},
      {"new"},  // 4
      {"get BetAmount(0)", 250.5},
      {"roll 2 2"},
      {"answer cancel"},
      {"new"},  // 8: given up
      {"get Point", 4},
      {"answer no ok"},  // the field keeps what it opened with
      {"new"},           // 11
      {"get BetAmount(0)", 250.5},
      {"get Point", 0},
  });
  EXPECT_EQ(answers[2]["messages"].size(), 1u);
  EXPECT_EQ(answers[2]["messages"][0]["answer"], 1);
  EXPECT_EQ(answers[4]["messages"].size(), 1u);
  EXPECT_EQ(Title(answers[4]), "Set Beginning Bankroll");
  EXPECT_EQ(Title(answers[8]), "Save Game?");
  EXPECT_EQ(answers[8]["messages"][0]["answer"], 2);
  EXPECT_EQ(answers[11]["messages"].size(), 2u);
  EXPECT_EQ(answers[11]["messages"][0]["answer"], 7);
}

// A seed that the selected generator does not take is asked for until it is valid.
TEST(Console, TheSeedDialogEndsAlsoWithNobodyToAnswerIt) {
  const auto answers = Play(
      {"configure UserSeedMode true", "set LastSeed 2000000", "call SeedRng 0", "get LastSeed"},
      "--seed 1 --rng 3");
  ASSERT_EQ(answers.size(), 4u);
  EXPECT_EQ(Title(answers[2]), "RNG Seed");
  EXPECT_LE(answers[2]["messages"].size(), 2u);
  EXPECT_EQ(answers[3]["value"], 1);
}

TEST(Console, ChainsOfRolls) {
  const auto answers = PlaySteps({
      {"rolls 25", {{"rolls", 25}}},
      {"auto 10", 10},
      {"hyper 500", {{"rolls", 500}, {"stop", "Stopped by roll count on Auto-Play screen."}}},
      {"get RollCounts(0)", 535},
      {"roll"},  // one roll, though Auto-Roll is on
      {"get RollCounts(0)", 536},
      {"get AutoRollDice", true},
      {"set BetAmount(0) 9999990"},
      {"set AutoStopOn(9) true"},
      {"roll 3 3"},
      {"bet 58 5"},
      {"roll 3 3", {{"net", 45}}},  // 11: breaks the bank, and play stops
      {"rolls 5", {{"rolls", 0}, {"decided", json::array()}}},
      {"hyper", {{"rolls", 0}}},
  });
  EXPECT_THAT(Text(answers[11]), StartsWith("Congratulations!"));
}

TEST(Console, AmountsAreExact) {
  const ProgramRun run = RunProgram("console --json",
                                    "set BankrollSum 922337203685477.5807\nget BankrollSum\n"
                                    "set BankrollSum -922337203685477.5808\nget BankrollSum\n"
                                    "set BankrollSum .1\nget BankrollSum\n"
                                    "set BankrollSum -12.5000\nget BankrollSum\n"
                                    "set BankrollSum 100000000000\nget BankrollSum\n"
                                    "set BankrollSum 922337203685477.5808\n"
                                    "get BuyVigPct\n");
  const auto lines = run.Lines();
  ASSERT_EQ(lines.size(), 12u);
  EXPECT_THAT(lines[1], HasSubstr("\"value\":922337203685477.5807}"));
  EXPECT_THAT(lines[3], HasSubstr("\"value\":-922337203685477.5808}"));
  EXPECT_THAT(lines[5], HasSubstr("\"value\":0.1}"));
  EXPECT_THAT(lines[7], HasSubstr("\"value\":-12.5}"));
  EXPECT_THAT(lines[9], HasSubstr("\"value\":100000000000}"));
  EXPECT_THAT(lines[10], HasSubstr("\"ok\":false"));
  EXPECT_THAT(lines[11], HasSubstr("\"value\":0.05}"));
}

TEST(Console, TablesBeginWhereTheyBeginInTheProgram) {
  const auto answers = PlaySteps({{"get BetAmount"},
                                  {"get StackSlots", {101, 102, 103, 104}},
                                  {"get PayTable(36)", {7, -1, 6}},
                                  {"get OddsAllowed", {2, 2, 2, 2, 2.5}},
                                  {"get EstablishedAmount"},
                                  {"get BetWagers(0)"},
                                  {"get allowputbets", false},
                                  {"get ScriptFlags", json::array()},
                                  {"get FieldPayTable"},
                                  {"get RefLineRoll", json::array({174, 349})},
                                  {"get BetName(52)", "Pass Line Odds"}});
  EXPECT_EQ(answers[0]["value"].size(), 201u);
  EXPECT_EQ(answers[0]["value"][97], 25);
  EXPECT_EQ(answers[4]["value"].size(), 41u);
  EXPECT_EQ(answers[5]["value"].size(), 101u);
  EXPECT_EQ(answers[5]["value"][36].size(), 8u);
  EXPECT_EQ(answers[8]["value"].size(), 21u);
}

TEST(Console, BetsAreOrderedAboutByTheirCommands) {
  PlaySteps({{"configure AutoAdjustBetAmounts 0"},
             {"bet 36 12"},
             {"buy \"Place 8\""},
             {"get BetAmount(46)", 12},
             {"off 46"},
             {"get BetState(46)", -1},
             {"on all"},
             {"drag 46 101"},  // onto Chip-Stack 1
             {"get BetAmount(101)", 12},
             {"bet \"Chip-Stack # 1\" -2", -2},
             {"enter 101 -7.5", -7.5},
             {"bet 54 5"},
             {"drag 54 rail"},
             {"get TotalOnTable", 0},
             {"bet 55 6"},
             {"bet 56 6"},
             {"remove 55", 0},
             {"remove all", 0},
             {"call ComputeMinBet 51", 1},
             {"call ComputeMaxBet 51", 1000},
             {"call ComputeBuyVig 43 100", 5}});
}

TEST(Console, ScriptsAreComposedCheckedSavedAndRun) {
  const std::string folder = std::filesystem::temp_directory_path() /
                             ("feltmaster-script-test-" + std::to_string(getpid()));
  std::filesystem::create_directories(folder);
  const std::string file = folder + "/six.bet";
  const auto answers = PlaySteps({
      {"script add Do this . . ."},
      {"script check", false},  // 1: no action follows
      {"script add Bet $ 6 on Place 6"},
      {"script add Set flag \"Done\" to True"},
      {"script check", true},
      {"script list"},  // 5
      {"script run"},
      {"get BetAmount(35)", 6},
      {"get ScriptFlags",
       json::parse(R"([{"FlagName":"Done","FlagValue":true,"FlagChanged":true}])")},
      {"flag done false"},
      {"show flags", json::parse(R"([["Done - False"]])")},
      {"script save " + file, 3},
      {"script clear", 0},
      {"get ScriptUnsaved"},
      {"script load " + file, 3},
      {"script fields 2",
       {{"LineKind", 30}, {"LineCode", 10}, {"LineTarget", 35}, {"LineAmount", 6}}},
      {"script active on"},
      {"get ScriptActive", 1},
      {"script add Begin"},
      {"script add begin"},  // 19: the name is taken
      {"get ScriptLineCount", 4},
  });
  std::filesystem::remove_all(folder);
  EXPECT_EQ(Title(answers[1]), "Missing Action Lines");
  EXPECT_EQ(answers[5]["value"][1], "          Bet $ 6 on Place 6");
  EXPECT_EQ(Title(answers[19]), "Log Label");
}

TEST(Console, ExitCodesAndTheDataFolder) {
  EXPECT_EQ(RunProgram("console --json", "roll\n").exit_code, 0);
  EXPECT_EQ(RunProgram("console --json", "roll\nnonsense\nroll\n").exit_code, 1);
  // The table opens where there is a display; elsewhere one sentence tells what to do.
  for (const char* display : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) unsetenv(display);
  for (const std::string options :
       {"", "evening.crp", "console --rng 9", "console --seed 0", "console --seed x",
        "console --shout", "console --data-dir /dev/null", "console nowhere.crp", "play",
        "--shout"}) {
    const ProgramRun run = RunProgram(options);
    EXPECT_EQ(run.exit_code, 2) << options;
    EXPECT_EQ(run.output, "") << options;
    EXPECT_EQ(std::ranges::count(run.complaints, '\n'), 1) << run.complaints;
  }
  for (const std::string options : {"--help", "console --help", "--version"}) {
    const ProgramRun run = RunProgram(options);
    EXPECT_EQ(run.exit_code, 0) << options;
    EXPECT_THAT(run.output, HasSubstr("eltmaster")) << options;
  }
  const auto answers = Play({"get AppPath"});
  const std::string folder = answers[0]["value"];
  EXPECT_THAT(folder, EndsWith("/"));
  EXPECT_FALSE(std::filesystem::exists(folder));
}

TEST(Console, EveryCommandTellsAboutItself) {
  const auto all = RunProgram("console", "help\n").Lines();
  ASSERT_GT(all.size(), 35u);
  std::string input;
  for (std::size_t i = 0; i + 1 < all.size(); ++i) {
    const std::string usage = all[i].substr(2);
    input += "help " + usage.substr(0, usage.find(' ')) + '\n';
  }
  EXPECT_EQ(RunProgram("console --json", input).exit_code, 0);
}

TEST(Arguments, AmountsAsInAMoneyField) {
  const auto raw = [](std::string_view text) {
    MoneyAmount amount;
    return ReadAmount(text, amount) ? amount.Raw() : -1;
  };
  EXPECT_EQ(raw("5"), 50'000);
  EXPECT_EQ(raw("0005.10"), 51'000);
  EXPECT_EQ(raw(".5"), 5'000);
  EXPECT_EQ(raw("5."), 50'000);
  EXPECT_EQ(raw("-0.0002"), -2);
  for (const std::string_view text : {"", "-", ".", "-.", "+5", "5 ", "1,000", "$5", "0x5", "5-",
                                      "1.2.3", "1.00000", "922337203685477.5808"}) {
    EXPECT_EQ(raw(text), -1) << text;
  }
}

}  // namespace
}  // namespace feltmaster
