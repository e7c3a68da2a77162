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
  const auto answers = Play({
      "# the shooter comes out",  //
      "",                         //
      "atm withdraw 300",         // 0
      "bet \"Pass Line\" 10",     // 1
      "roll 1 3",                 // 2: the point is 4
      "odds 51",                  // 3: double odds
      "bet \"place 6\" 12",       // 4
      "roll 3 3",                 // 5: wins 14 and comes down
      "settle 1",                 // 6
      "roll 2 2",                 // 7: 10 on the line, 40 on the odds
      "get BetAmount(51)",        // 8
      "roll 3 4",                 // 9: a come-out 7 pays the line again
      "quit",                     // 10
      "get BetAmount(0)",         // never read
  });
  ASSERT_EQ(answers.size(), 11u);
  for (const json& answer : answers) EXPECT_EQ(answer["ok"], true) << answer;
  EXPECT_FALSE(answers[0].contains("value"));
  EXPECT_EQ(answers[1]["value"], 10);
  EXPECT_EQ(answers[2]["value"]["point"], 4);
  EXPECT_EQ(answers[2]["value"]["decided"], json::array());
  EXPECT_EQ(answers[3]["value"], 20);
  EXPECT_EQ(answers[5]["value"]["decided"],
            json::parse(R"([{"bet":35,"name":"Place 6","amount":12,"net":14}])"));
  EXPECT_EQ(answers[5]["settles"][0]["rows"],
            json::parse(R"([["Place 6 bet:","$12"],["Payoff at 7 to 6:","$14"]])"));
  EXPECT_EQ(answers[5]["settles"][0]["button"], 0);
  const json& won = answers[7]["value"];
  EXPECT_EQ(won["dice"], json::parse("[2,2]"));
  EXPECT_EQ(won["point"], 0);
  EXPECT_EQ(won["net"], 50);
  EXPECT_EQ(won["bankroll"], 364);
  EXPECT_EQ(won["decided"], json::parse(R"([{"bet":51,"name":"Pass Line","amount":10,"net":10},
      {"bet":52,"name":"Pass Line Odds","amount":20,"net":40}])"));
  EXPECT_EQ(answers[7]["settles"].size(), 2u);
  EXPECT_EQ(answers[7]["settles"][0]["button"], 1);  // queued: the same bet
  EXPECT_EQ(answers[8]["value"], 10);
  EXPECT_EQ(answers[9]["value"]["bankroll"], 374);
  EXPECT_FALSE(answers[10].contains("settles"));
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

// The house refuses in a message; the command was understood all the same.
TEST(Console, TheHouseRefusesInMessages) {
  const auto answers = Play({
      "bet \"Come\" 5",     // 0: needs a point
      "bet 52 5",           // 1: needs a Pass Line bet
      "bet 51 5",           // 2
      "roll 2 2",           // 3
      "bet 51 5",           // 4: no Put bets
      "remove 51",          // 5: contract bet
      "off 51",             // 6: cannot be called
      "enter 54 1500",      // 7: cut at the maximum
      "set NotifyFlags 0",  // 8
      "bet \"Come 6\" 5",   // 9: refused without a word
  });
  ASSERT_EQ(answers.size(), 10u);
  for (const json& answer : answers) EXPECT_EQ(answer["ok"], true) << answer;
  EXPECT_EQ(answers[0]["value"], 0);
  EXPECT_EQ(Title(answers[0]), "Come Bet");
  EXPECT_EQ(Text(answers[0]), "You may not make a Come bet until \na point is established.");
  EXPECT_EQ(answers[0]["messages"][0]["answer"], 1);
  EXPECT_EQ(Title(answers[1]), "Pass Line Odds Bet");
  EXPECT_EQ(answers[4]["value"], 0);
  EXPECT_THAT(Text(answers[4]), StartsWith("You may not directly make or increase an"));
  EXPECT_EQ(answers[5]["value"], 5);
  EXPECT_THAT(Text(answers[5]), HasSubstr("decrease or remove your Pass Line bet"));
  EXPECT_EQ(Text(answers[6]), "You may not call this bet ON or OFF.");
  EXPECT_EQ(answers[7]["value"], 1000);
  EXPECT_THAT(Text(answers[7]), StartsWith("Maximum bet here is: $1,000"));
  EXPECT_EQ(answers[9]["value"], 0);
  EXPECT_EQ(answers[9]["messages"], json::array());
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

TEST(Console, AGameBegunLaterIsSeededAfresh) {
  std::vector<std::string> commands(20, "roll");
  commands.insert(commands.end(), {"answer no", "new"});
  commands.insert(commands.end(), 20, "roll");
  const auto answers = Play(commands, "--seed 5");
  std::string first;
  std::string second;
  for (std::size_t i = 0; i < 20; ++i) {
    first += answers[i]["value"]["dice"].dump();
    second += answers[i + 22]["value"]["dice"].dump();
  }
  EXPECT_NE(first, second);
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
  const auto answers = Play({
      "configure BankrollInitType 1",  // 0
      "answer 250.5",                  // 1
      "bet 1 20",                      // 2: a mere notice leaves the queue alone
      "set GameChanged false",         // 3
      "new",                           // 4
      "get BetAmount(0)",              // 5
      "roll 2 2",                      // 6
      "answer cancel",                 // 7
      "new",                           // 8: given up
      "get Point",                     // 9
      "answer no ok",                  // 10: the field keeps what it opened with
      "new",                           // 11
      "get BetAmount(0)",              // 12
      "get Point",                     // 13
  });
  ASSERT_EQ(answers.size(), 14u);
  EXPECT_EQ(answers[2]["messages"].size(), 1u);
  EXPECT_EQ(answers[2]["messages"][0]["answer"], 1);
  EXPECT_EQ(answers[4]["messages"].size(), 1u);
  EXPECT_EQ(Title(answers[4]), "Set Beginning Bankroll");
  EXPECT_EQ(answers[5]["value"], 250.5);
  EXPECT_EQ(Title(answers[8]), "Save Game?");
  EXPECT_EQ(answers[8]["messages"][0]["answer"], 2);
  EXPECT_EQ(answers[9]["value"], 4);
  EXPECT_EQ(answers[11]["messages"].size(), 2u);
  EXPECT_EQ(answers[11]["messages"][0]["answer"], 7);
  EXPECT_EQ(answers[12]["value"], 250.5);
  EXPECT_EQ(answers[13]["value"], 0);
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
  const auto answers = Play({
      "rolls 25",                  // 0
      "auto 10",                   // 1
      "hyper 500",                 // 2
      "get RollCounts(0)",         // 3
      "roll",                      // 4: one roll, though Auto-Roll is on
      "get RollCounts(0)",         // 5
      "get AutoRollDice",          // 6
      "set BetAmount(0) 9999990",  // 7
      "set AutoStopOn(9) true",    // 8
      "roll 3 3",                  // 9
      "bet 58 5",                  // 10
      "roll 3 3",                  // 11: breaks the bank
      "rolls 5",                   // 12: play has stopped
      "hyper",                     // 13
  });
  ASSERT_EQ(answers.size(), 14u);
  EXPECT_EQ(answers[0]["value"]["rolls"], 25);
  EXPECT_EQ(answers[1]["value"], 10);
  EXPECT_EQ(answers[2]["value"]["rolls"], 500);
  EXPECT_EQ(answers[2]["value"]["stop"], "Stopped by roll count on Auto-Play screen.");
  EXPECT_EQ(answers[3]["value"], 535);
  EXPECT_EQ(answers[5]["value"], 536);
  EXPECT_EQ(answers[6]["value"], true);
  EXPECT_EQ(answers[11]["value"]["net"], 45);
  EXPECT_THAT(Text(answers[11]), StartsWith("Congratulations!"));
  EXPECT_EQ(answers[12]["value"]["rolls"], 0);
  EXPECT_EQ(answers[12]["value"]["decided"], json::array());
  EXPECT_EQ(answers[13]["value"]["rolls"], 0);
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
  const auto answers = Play({
      "get BetAmount",          // 0
      "get StackSlots",         // 1
      "get PayTable(36)",       // 2
      "get OddsAllowed",        // 3
      "get EstablishedAmount",  // 4
      "get BetWagers(0)",       // 5
      "get allowputbets",       // 6
      "get ScriptFlags",        // 7
      "get FieldPayTable",      // 8
      "get RefLineRoll",        // 9
      "get BetName(52)",        // 10
  });
  EXPECT_EQ(answers[0]["value"].size(), 201u);
  EXPECT_EQ(answers[0]["value"][97], 25);
  EXPECT_EQ(answers[1]["value"], json::parse("[101,102,103,104]"));
  EXPECT_EQ(answers[2]["value"], json::parse("[7,-1,6]"));
  EXPECT_EQ(answers[3]["value"], json::parse("[2,2,2,2,2.5]"));
  EXPECT_EQ(answers[4]["value"].size(), 41u);
  EXPECT_EQ(answers[5]["value"].size(), 101u);
  EXPECT_EQ(answers[5]["value"][36].size(), 8u);
  EXPECT_EQ(answers[6]["value"], false);
  EXPECT_EQ(answers[7]["value"], json::array());
  EXPECT_EQ(answers[8]["value"].size(), 21u);
  EXPECT_EQ(answers[9]["value"], json::parse("[174,349]"));
  EXPECT_EQ(answers[10]["value"], "Pass Line Odds");
}

TEST(Console, BetsAreOrderedAboutByTheirCommands) {
  const auto answers = Play({
      "configure AutoAdjustBetAmounts 0",  // 0
      "bet 36 12",                         // 1
      "buy \"Place 8\"",                   // 2
      "get BetAmount(46)",                 // 3
      "off 46",                            // 4
      "get BetState(46)",                  // 5
      "on all",                            // 6
      "drag 46 101",                       // 7: onto Chip-Stack 1
      "get BetAmount(101)",                // 8
      "bet \"Chip-Stack # 1\" -2",         // 9
      "enter 101 -7.5",                    // 10
      "bet 54 5",                          // 11
      "drag 54 rail",                      // 12
      "get TotalOnTable",                  // 13
      "bet 55 6",                          // 14
      "bet 56 6",                          // 15
      "remove all",                        // 16
      "call ComputeMaxBet 51",             // 17
      "call ComputeBuyVig 43 100",         // 18
  });
  ASSERT_EQ(answers.size(), 19u);
  EXPECT_EQ(answers[3]["value"], 12);
  EXPECT_EQ(answers[5]["value"], -1);
  EXPECT_EQ(answers[8]["value"], 12);
  EXPECT_EQ(answers[9]["value"], -2);
  EXPECT_EQ(answers[10]["value"], -7.5);
  EXPECT_EQ(answers[13]["value"], 0);
  EXPECT_EQ(answers[16]["value"], 0);
  EXPECT_EQ(answers[17]["value"], 1000);
  EXPECT_EQ(answers[18]["value"], 5);
}

TEST(Console, ScriptsAreComposedCheckedSavedAndRun) {
  const std::string folder = std::filesystem::temp_directory_path() /
                             ("feltmaster-script-test-" + std::to_string(getpid()));
  std::filesystem::create_directories(folder);
  const std::string file = folder + "/six.bet";
  const auto answers = Play({
      "script add Do this . . .",              // 0
      "script check",                          // 1: no action follows
      "script add Bet $ 6 on Place 6",         // 2
      "script add Set flag \"Done\" to True",  // 3
      "script check",                          // 4
      "script list",                           // 5
      "script run",                            // 6
      "get BetAmount(35)",                     // 7
      "get ScriptFlags",                       // 8
      "flag done false",                       // 9
      "show flags",                            // 10
      "script save " + file,                   // 11
      "script clear",                          // 12
      "get ScriptUnsaved",                     // 13
      "script load " + file,                   // 14
      "script fields 2",                       // 15
      "script active on",                      // 16
      "get ScriptActive",                      // 17
      "script add Begin",                      // 18
      "script add begin",                      // 19: the name is taken
      "get ScriptLineCount",                   // 20
  });
  std::filesystem::remove_all(folder);
  ASSERT_EQ(answers.size(), 21u);
  for (const json& answer : answers) EXPECT_EQ(answer["ok"], true) << answer;
  EXPECT_EQ(answers[1]["value"], false);
  EXPECT_EQ(Title(answers[1]), "Missing Action Lines");
  EXPECT_EQ(answers[4]["value"], true);
  EXPECT_EQ(answers[5]["value"][1], "          Bet $ 6 on Place 6");
  EXPECT_EQ(answers[7]["value"], 6);
  EXPECT_EQ(answers[8]["value"],
            json::parse(R"([{"FlagName":"Done","FlagValue":true,"FlagChanged":true}])"));
  EXPECT_EQ(answers[10]["value"], json::parse(R"([["Done - False"]])"));
  EXPECT_EQ(answers[11]["value"], 3);
  EXPECT_EQ(answers[12]["value"], 0);
  EXPECT_EQ(answers[14]["value"], 3);
  EXPECT_EQ(answers[15]["value"]["LineKind"], 30);
  EXPECT_EQ(answers[15]["value"]["LineCode"], 10);
  EXPECT_EQ(answers[15]["value"]["LineTarget"], 35);
  EXPECT_EQ(answers[15]["value"]["LineAmount"], 6);
  EXPECT_EQ(answers[17]["value"], 1);
  EXPECT_EQ(Title(answers[19]), "Log Label");
  EXPECT_EQ(answers[20]["value"], 4);
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
