#include "console/command_line.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace feltmaster {
namespace {

using Words = std::vector<std::string>;

struct Outcome {
  int exit_code;
  Words settings, only, files;
  std::string err;
};

// A program with one verb, "play", that ends with 7, or with an exception if told to.
Outcome Play(const Words& words) {
  CommandLine line("");
  Outcome outcome;
  bool broken = false;
  const Verb play = line.Program().Sub("play", "");
  play.Add("--set", outcome.settings, "");
  play.Add("--only", outcome.only, "").SplitAt(',');
  play.Add("FILE", outcome.files, "").Required();
  play.Flag("--broken", broken, "");
  play.Runs([&] { return broken ? throw std::runtime_error("broken\nin two") : 7; });
  EXPECT_TRUE(line.HasVerb("play"));
  EXPECT_FALSE(line.HasVerb("pla"));
  testing::internal::CaptureStderr();
  outcome.exit_code = line.Run(words);
  outcome.err = testing::internal::GetCapturedStderr();
  return outcome;
}

TEST(CommandLine, AnOptionTakesOneWordAndAPlaceTheRest) {
  const Outcome outcome =
      Play({"play", "--set", "A=1", "one", "--only", "won,lost", "two", "--set", "B=2", "three"});
  EXPECT_EQ(outcome.exit_code, 7) << outcome.err;
  EXPECT_EQ(outcome.settings, (Words{"A=1", "B=2"}));
  EXPECT_EQ(outcome.only, (Words{"won", "lost"}));
  EXPECT_EQ(outcome.files, (Words{"one", "two", "three"}));
}

TEST(CommandLine, TellsAFaultInOneLine) {
  EXPECT_EQ(Play({"play", "one", "--broken"}).err, "feltmaster: broken in two\n");
  for (const Words& wrong : {Words{"play"},
                             {"play", "one", "--nosuch"},
                             {"play", "one", "--set"},
                             {"play", "one", "--broken"}}) {
    const Outcome outcome = Play(wrong);
    EXPECT_EQ(outcome.exit_code, 2);
    EXPECT_TRUE(outcome.err.starts_with("feltmaster: ")) << outcome.err;
    EXPECT_EQ(outcome.err.find('\n'), outcome.err.size() - 1) << outcome.err;
  }
}

}  // namespace
}  // namespace feltmaster
