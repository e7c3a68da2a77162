#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <map>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "console/progress_bar.h"
#include "console/result_file.h"
#include "console/svg_chart.h"
#include "console/verbs.h"
#include "support/scratch_folder.h"

namespace feltmaster {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;

struct Outcome {
  int code = 0;
  std::string out;
  std::string err;
};

// What the command line does with these arguments.
Outcome Simulate(std::vector<std::string> arguments) {
  Outcome outcome;
  CommandLine line("");
  AddSimulateVerb(line.Program());
  arguments.insert(arguments.begin(), "simulate");
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  outcome.code = line.Run(arguments);
  std::cout.flush();
  outcome.out = testing::internal::GetCapturedStdout();
  outcome.err = testing::internal::GetCapturedStderr();
  return outcome;
}

class SimulateVerb : public InScratchFolder {
 protected:
  SimulateVerb() { Write("field.txt", " Do this . . .\n     Bet $ 5 on Field\n"); }

  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder_)) {
      names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
  }
};

TEST_F(SimulateVerb, WritesWhatItFound) {
  const Outcome outcome =
      Simulate({Path("field.txt"), "--games", "50", "--rolls", "1,000", "--seed", "11",
                "--bankroll", "200", "--stop-win", "100", "--set", "MinPlacardBet=5", "--json",
                Path("out.json"), "--csv", Path("out.csv"), "--chart", Path("out.svg")});
  EXPECT_EQ(outcome.code, 0) << outcome.err;
  EXPECT_EQ(outcome.err, "");
  const json results = json::parse(Bytes(Path("out.json")));
  EXPECT_EQ(results["complete"], true);
  EXPECT_EQ(results["games"], 50);
  EXPECT_EQ(results["experiment"]["seed"], 11);
  EXPECT_EQ(results["experiment"]["settings"][0]["value"], "5");

  // The rows add up to the totals.
  std::istringstream rows(Bytes(Path("out.csv")));
  std::string row;
  std::getline(rows, row);
  std::vector<std::string> heads;
  std::istringstream head_line(row);
  for (std::string head; std::getline(head_line, head, ',');) heads.push_back(head);
  double rolls = 0, net = 0, handle = 0, won = 0, stopped = 0, games = 0;
  while (std::getline(rows, row)) {
    std::map<std::string, std::string> cell;
    std::istringstream line(row);
    std::string value;
    for (const std::string& head : heads) {
      ASSERT_TRUE(std::getline(line, value, ',')) << row;
      cell[head] = value;
    }
    ++games;
    EXPECT_EQ(cell["game"], std::to_string(static_cast<int>(games)));
    rolls += std::stod(cell["rolls"]);
    net += std::stod(cell["net"]);
    handle += std::stod(cell["handle"]);
    won += std::stod(cell["net"]) > 0;
    stopped += cell["end"] == "stop_win";
    EXPECT_GE(std::stod(cell["lowest"]), 0);
  }
  EXPECT_EQ(games, 50);
  EXPECT_EQ(results["rolls"], rolls);
  EXPECT_EQ(results["net"]["total"], net);
  EXPECT_DOUBLE_EQ(results["net"]["mean"], net / 50);
  EXPECT_EQ(results["handle"], handle);
  EXPECT_EQ(results["ends"]["stop_win"], stopped);
  EXPECT_DOUBLE_EQ(results["shares"]["won"], won / 50);
  EXPECT_NEAR(results["expected_per_handle"], -2.0 / 36, 1e-6);

  for (const char* words : {"50 games", "--seed 11", "95% interval", "stopped by win",
                            "risk of ruin", "rolls per second", "Field"}) {
    EXPECT_NE(outcome.out.find(words), std::string::npos) << words;
  }
  EXPECT_EQ(Bytes(Path("out.svg")).rfind("<?xml", 0), 0U);
  EXPECT_EQ(Names(), (std::vector<std::string>{"field.txt", "out.csv", "out.json", "out.svg"}));
}

TEST_F(SimulateVerb, PlaysAtOnceWithoutAnything) {
  const Outcome outcome = Simulate({"--rolls", "20000", "--json", "-"});
  EXPECT_EQ(outcome.code, 0);
  const json results = json::parse(outcome.out);
  EXPECT_EQ(results["rolls"], 20000);
  EXPECT_GT(results["handle"], 0);
  // The seed that it took from the clock is told, and repeats the run.
  const std::string seed = results["experiment"]["seed"].dump();
  EXPECT_EQ(Simulate({"--rolls", "20000", "--json", "-", "--seed", seed}).out, outcome.out);
}

TEST_F(SimulateVerb, RefusesInOneSentenceAndWritesNothing) {
  std::ofstream(Path("foreign.bet"), std::ios::binary) << std::string("\x89PNG\r\n\x1a\n\0\0", 10);
  std::ofstream(Path("empty.txt"));
  std::ofstream(Path("wrong.txt")) << " Do this . . .\n     Bet $ on Field\n";
  std::ofstream(Path("loose.txt")) << " then . . .\n     Bet $ 5 on Field\n";
  const auto before = Names();

  const std::string field = Path("field.txt");
  struct Case {
    std::vector<std::string> arguments;
    std::string named;  // in the sentence
  };
  const Case cases[] = {
      {{"--nonsense"}, "--nonsense"},
      {{"--rolls", "0"}, "--rolls"},
      {{"--rolls", "100000001"}, "--rolls"},
      {{"--rolls", "ten"}, "--rolls"},
      {{"--rolls", ""}, "--rolls"},
      {{"--rolls", "99999999999999999999999"}, "--rolls"},
      {{"--hours", "0"}, "--hours"},
      {{"--hours", "1e3"}, "--hours"},
      {{"--hours", "0.00001"}, "--hours"},
      {{"--shooters", "-1"}, "--shooters"},
      {{"--games", "0"}, "--games"},
      {{"--games", "10000001"}, "--games"},
      {{"--first-game", "0"}, "--first-game"},
      {{"--bankroll", "0"}, "--bankroll"},
      {{"--bankroll", "10000000"}, "--bankroll"},
      {{"--bankroll", "-5"}, "--bankroll"},
      {{"--stop-win", "a lot"}, "--stop-win"},
      {{"--stop-loss", "1.23456"}, "--stop-loss"},
      {{"--rng", "9"}, "--rng"},
      {{"--seed", "-3"}, "--seed"},
      {{"--jobs", "0"}, "--jobs"},
      {{"--set", "MinPlacardBet"}, "--set"},
      {{"--set", "=5"}, "--set"},
      {{"--set", "NoSuchSetting=5"}, "NoSuchSetting"},
      {{"--set", "MinPlacardBet=lots"}, "MinPlacardBet"},
      {{"--set", "MinPlacardBet=0"}, "minimum bet must be greater than zero"},
      {{"--set", "MinPlacardBet=5000"}, "maximum bet must be greater than or equal"},
      {{"--rng", "2", "--set", "RngSelected=3"}, "RngSelected"},
      {{"--bankroll", "100", "--set", "BankrollInitAmount=200"}, "BankrollInitAmount"},
      {{Path("missing.txt")}, "missing.txt"},
      {{folder_.string()}, folder_.string()},
      {{Path("foreign.bet")}, "foreign.bet"},
      {{Path("empty.txt")}, "empty.txt"},
      {{Path("wrong.txt")}, "wrong.txt"},
      {{Path("loose.txt")}, "loose.txt"},
      {{""}, "SCRIPT"},
      {{field, "--csv", Path("no/such/folder.csv")}, "folder.csv"},
      {{field, "--csv", folder_.string()}, folder_.string()},
      {{field, "--chart", field}, "field.txt"},
      {{field, "--csv", Path("a.out"), "--json", Path("a.out")}, "a.out"},
      {{field, "--csv", "-", "--json", "-"}, "same file"},
      {{field, "--csv", Path("good.csv"), "--json", Path("no/such/folder.json")}, "folder.json"},
  };
  for (const Case& one : cases) {
    SCOPED_TRACE(testing::PrintToString(one.arguments));
    const Outcome outcome = Simulate(one.arguments);
    EXPECT_EQ(outcome.code, 2);
    EXPECT_EQ(outcome.out, "");
    EXPECT_NE(outcome.err.find(one.named), std::string::npos) << outcome.err;
    EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1) << outcome.err;
    EXPECT_EQ(Names(), before);
  }
  EXPECT_EQ(Bytes(field), " Do this . . .\n     Bet $ 5 on Field\n");
}

TEST_F(SimulateVerb, TellsAFailureOfTheScriptWithItsLine) {
  std::ofstream(Path("bad.txt")) << " Do this . . .\n     Bet $ 5 on Field\n"
                                    "     Output to file. New line.\n";
  const Outcome outcome = Simulate({Path("bad.txt"), "--games", "3", "--csv", Path("out.csv")});
  EXPECT_EQ(outcome.code, 1);
  EXPECT_NE(outcome.err.find("bad.txt, line 3: "), std::string::npos) << outcome.err;
  EXPECT_NE(outcome.err.find("3 of 3 games"), std::string::npos) << outcome.err;
  EXPECT_NE(Bytes(Path("out.csv")).find("\n3,"), std::string::npos);
}

TEST_F(SimulateVerb, TellsWhenStandardOutputIsFull) {
  std::ofstream full("/dev/full");
  if (!full) GTEST_SKIP() << "no /dev/full here";
  const Outcome outcome = Simulate({"--rolls", "100", "--json", "/dev/full"});
  EXPECT_EQ(outcome.code, 2);
  EXPECT_NE(outcome.err.find("/dev/full"), std::string::npos) << outcome.err;
}

TEST_F(SimulateVerb, ResultFilesAppearWholeOrNotAtAll) {
  std::ofstream(Path("kept")) << "old";
  fs::permissions(Path("kept"), fs::perms(0640));
  fs::create_symlink("kept", Path("link"));
  {
    ResultFile file;
    ASSERT_EQ(file.Open(Path("link")), "");
    file.Stream() << "half";
    EXPECT_EQ(file.Finish(), "");
    EXPECT_EQ(Bytes(Path("kept")), "old");
  }
  EXPECT_EQ(Names(), (std::vector<std::string>{"field.txt", "kept", "link"}));
  EXPECT_EQ(Bytes(Path("kept")), "old");
  {
    ResultFile file;
    ASSERT_EQ(file.Open(Path("link")), "");
    file.Stream() << "new";
    EXPECT_EQ(file.Finish(), "");
    EXPECT_EQ(file.PutInPlace(), "");
  }
  EXPECT_EQ(Bytes(Path("kept")), "new");
  EXPECT_TRUE(fs::is_symlink(Path("link")));
  EXPECT_EQ(fs::status(Path("kept")).permissions(), fs::perms(0640));
  EXPECT_EQ(Names(), (std::vector<std::string>{"field.txt", "kept", "link"}));
}

// Ctrl-C while a hundred million rolls are played.
TEST_F(SimulateVerb, InterruptionTellsWhatThereIs) {
#ifndef FELTMASTER_PROGRAM
  GTEST_SKIP() << "the program is not built";
#else
  const std::string goal = Path("out.json");
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    const int nowhere = open("/dev/null", O_WRONLY);
    dup2(nowhere, STDOUT_FILENO);
    execl(FELTMASTER_PROGRAM, "feltmaster", "simulate", "--rolls", "100000000", "--games", "20",
          "--json", goal.c_str(), static_cast<char*>(nullptr));
    _exit(127);
  }
  // The draft of the result stands beside its place from just before the first roll on.
  while (Names().size() < 2 && waitpid(child, nullptr, WNOHANG) == 0) {
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  std::this_thread::sleep_for(std::chrono::milliseconds(150));
  EXPECT_FALSE(fs::exists(goal));
  kill(child, SIGINT);
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  ASSERT_TRUE(WIFEXITED(status));
  EXPECT_EQ(WEXITSTATUS(status), 130);
  const json results = json::parse(Bytes(goal));
  EXPECT_EQ(results["complete"], false);
  EXPECT_GT(results["rolls"], 0);
  EXPECT_EQ(Names(), (std::vector<std::string>{"field.txt", "out.json"}));
#endif
}

// Every element is closed, every text is free of what would open one.
void ExpectWellFormed(const std::string& document) {
  std::vector<std::string> open;
  for (std::size_t at = document.find('<'); at != std::string::npos; at = document.find('<', at)) {
    const std::size_t end = document.find('>', at);
    ASSERT_NE(end, std::string::npos);
    const std::string tag = document.substr(at + 1, end - at - 1);
    at = end;
    if (tag[0] == '?' || tag.back() == '/') continue;
    if (tag[0] != '/') {
      open.push_back(tag.substr(0, tag.find(' ')));
      continue;
    }
    ASSERT_FALSE(open.empty());
    EXPECT_EQ(open.back(), tag.substr(1));
    open.pop_back();
  }
  EXPECT_TRUE(open.empty());
}

TEST_F(SimulateVerb, ChartsAreWellFormed) {
  const std::string odd = Path("a <b> & \"c\".txt");
  fs::copy_file(Path("field.txt"), odd);
  for (const char* games : {"1", "2", "300"}) {
    const Outcome outcome =
        Simulate({odd, "--games", games, "--rolls", "50", "--chart", Path("out.svg")});
    ASSERT_EQ(outcome.code, 0) << outcome.err;
    const std::string document = Bytes(Path("out.svg"));
    ExpectWellFormed(document);
    EXPECT_NE(document.find("a &lt;b&gt; &amp; &quot;c&quot;.txt"), std::string::npos);
    EXPECT_EQ(document.find("nan"), std::string::npos);
    EXPECT_EQ(document.find("inf"), std::string::npos);
  }
}

TEST(RoundTicks, AreRoundAndInside) {
  EXPECT_EQ(RoundTicks(-300, 250, 6), (std::vector<double>{-300, -200, -100, 0, 100, 200}));
  EXPECT_EQ(RoundTicks(0, 1.08, 6).back(), 1);
  EXPECT_EQ(RoundTicks(7, 7, 6).size(), 1U);
}

TEST(ProgressLine, FitsTheTerminal) {
  for (const double fraction : {-1.0, 0.0, 0.001, 0.5, 0.999, 1.0, 2.0}) {
    for (const std::size_t width : {0U, 5U, 20U, 40U, 80U, 200U}) {
      EXPECT_LE(ProgressLine({fraction, 123'456'789, 12.5}, width).size(), width);
    }
  }
  const std::string half = ProgressLine({0.5, 10'000'000, 30}, 80);
  EXPECT_NE(half.find("50%  333,333 rolls/s  30 s left"), std::string::npos) << half;
  EXPECT_NE(ProgressLine({0.25, 1, 2000}, 80).find("1:40:00 left"), std::string::npos);
}

}  // namespace
}  // namespace feltmaster
