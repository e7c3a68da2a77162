#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "console/verbs.h"
#include "support/scratch_folder.h"

namespace feltmaster {
namespace {

struct Printout {
  int exit_code = 0;
  std::string out;
  std::string err;
};

class ScriptVerb : public InScratchFolder {
 protected:
  static Printout Script(std::vector<std::string> words) {
    Printout run;
    CommandLine line("");
    AddScriptVerb(line.Program());
    words.insert(words.begin(), "script");
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    run.exit_code = line.Run(words);
    run.out = testing::internal::GetCapturedStdout();
    run.err = testing::internal::GetCapturedStderr();
    return run;
  }
};

constexpr std::string_view kSound =
    "' Field only\n\nDo this . . .\n\n  bet $ 5 on field\n  Show message: \"A \\ \"b\" \";\n";

TEST_F(ScriptVerb, ListsWhatItCompiled) {
  const std::string text = Write("a.txt", kSound);
  const std::string listing =
      " ' Field only\n"
      " Do this . . .\n"
      "          Bet $ 5 on Field\n"
      "          Show message: \"A \\ \"b\" \";\n";
  EXPECT_EQ(Script({"list", text}).out, listing);
  const Printout compiled = Script({"compile", text, Path("a.bet")});
  EXPECT_EQ(compiled.exit_code, 0);
  EXPECT_EQ(compiled.out, Path("a.bet") + ": 4 lines.\n");
  EXPECT_EQ(Script({"list", Path("a.bet")}).out, listing);
  EXPECT_EQ(Script({"check", Path("a.bet")}).exit_code, 0);

  const std::string json = Script({"list", "--json", Path("a.bet")}).out;
  EXPECT_NE(json.find("{\"LineKind\":30,\"LineCode\":10,\"LineName\":\"\",\"LineAmount\":5,"),
            std::string::npos);
  EXPECT_NE(json.find("\"LineName\":\"A \\\\ \\\"b\\\" ;\""), std::string::npos) << json;

  // A .bet file is rewritten in its own place as well.
  EXPECT_EQ(Script({"compile", Path("a.bet"), Path("a.bet")}).exit_code, 0);
  EXPECT_EQ(Script({"list", Path("a.bet")}).out, listing);
}

TEST_F(ScriptVerb, TellsFaultsByLineOfTheFile) {
  const std::string unsound = Write("b.txt", "' no actions\n\nWhen\n\n  On each roll\n");
  const Printout fault = Script({"check", unsound});
  EXPECT_EQ(fault.exit_code, 1);
  EXPECT_EQ(fault.err, unsound + ":3: The Condition block has no Action block to go with it.\n");
  const Printout compiled = Script({"compile", unsound, Path("b.bet")});
  EXPECT_EQ(compiled.exit_code, 1);
  EXPECT_TRUE(std::filesystem::exists(Path("b.bet")));

  const std::string slip = Write("c.txt", "Do this\n  Bet $ 5 on Feild\n");
  for (const char* verb : {"check", "list"}) {
    const Printout run = Script({verb, slip});
    EXPECT_EQ(run.exit_code, 2);
    EXPECT_EQ(run.err.find("feltmaster: " + slip + ":2:14: expected a bet or Chip-Stack"), 0U)
        << run.err;
    EXPECT_EQ(run.out, "");
  }
}

TEST_F(ScriptVerb, WritesNothingWhenRefused) {
  const std::string slip = Write("c.txt", "Do this\n  Bet $ 5 on Feild\n");
  EXPECT_EQ(Script({"compile", slip, Path("c.bet")}).exit_code, 2);
  EXPECT_FALSE(std::filesystem::exists(Path("c.bet")));
  const std::string text = Write("a.txt", kSound);
  EXPECT_EQ(Script({"compile", text, text}).exit_code, 2);  // no .bet name: the text stays
  EXPECT_EQ(Script({"list", text}).exit_code, 0);
  EXPECT_EQ(Script({"compile", text, Path("none/a.bet")}).exit_code, 2);
  EXPECT_EQ(Script({"check", Path("none")}).err,
            "feltmaster: " + Path("none") + " cannot be read: No such file or directory.\n");
}

// What a transfer that broke off leaves still begins like a sound script.
TEST_F(ScriptVerb, RefusesAFileThatWasCutShort) {
  const std::string text = Write("a.txt", kSound);
  ASSERT_EQ(Script({"compile", text, Path("a.bet")}).exit_code, 0);
  for (const std::uintmax_t size : {256u, 512u, 1000u, 1024u}) {
    std::filesystem::resize_file(Path("a.bet"), size);
    const Printout run = Script({"check", Path("a.bet")});
    EXPECT_EQ(run.exit_code, 2) << size;
    EXPECT_NE(run.err.find("a.bet is cut short: it promises 4 lines"), std::string::npos)
        << run.err;
    ASSERT_EQ(Script({"compile", text, Path("a.bet")}).exit_code, 0);
  }
}

TEST_F(ScriptVerb, ListingObeysNoControlBytes) {
  std::string bytes(512, '\0');
  bytes.replace(0, 36, "Feltmaster AutoBets, Data Format 5.0");
  bytes.replace(214, 2, "\x10\x27");
  bytes.replace(256, 6, "\x1b[2J\r\n");
  EXPECT_EQ(Script({"list", Write("x.bet", bytes)}).out, "?[2J??\n");
}

TEST_F(ScriptVerb, PrintsItsWords) {
  const std::string all = Script({"words"}).out;
  EXPECT_NE(all.find("  Bet % of AMOUNT % of VALUE on TARGET\n"), std::string::npos);
  EXPECT_NE(all.find("  Bankroll ( ROLLS|all roll average ) COMPARISON\n"), std::string::npos);
  EXPECT_EQ(Script({"words", "hard 10 (5-5)"}).out,
            "Conditions\n  Hard 10 (5-5) COMPARISON\n\nROLL\n  hard 10 (5-5)\n");
  EXPECT_EQ(Script({"words", "don't pass"}).exit_code, 2);
}

}  // namespace
}  // namespace feltmaster
