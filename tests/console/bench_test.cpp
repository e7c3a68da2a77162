#include <gtest/gtest.h>

#include <iostream>
#include <nlohmann/json.hpp>
#include <string>

#include "console/bench_cases.h"
#include "console/verbs.h"

namespace feltmaster {
namespace {

TEST(Bench, CasesRepeatTheirSignatures) {
  const auto names = BenchCaseNames();
  EXPECT_EQ(names.size(), 13U);
  const BenchResult first = RunBenchCase("rng8");
  EXPECT_EQ(RunBenchCase("rng8").signature, first.signature);
  EXPECT_GT(first.rolls, 0);
  EXPECT_GT(first.seconds, 0);
  EXPECT_NE(CombinedSignature({first}), CombinedSignature({first, first}));
}

TEST(Bench, PrintsItsCasesAsJson) {
  CommandLine line("");
  AddBenchVerb(line.Program());
  testing::internal::CaptureStdout();
  EXPECT_EQ(line.Run({"bench", "--json", "--case", "rng8", "--case", "rng1"}), 0);
  const auto results = nlohmann::json::parse(testing::internal::GetCapturedStdout());
  ASSERT_EQ(results["cases"].size(), 2U);
  EXPECT_EQ(results["cases"][0]["name"], "rng1");
  EXPECT_EQ(results["cases"][1]["name"], "rng8");
  EXPECT_EQ(results["cases"][1]["signature"].get<std::string>().size(), 16U);
  EXPECT_GT(results["cases"][1]["seconds"], 0);

  testing::internal::CaptureStderr();
  CommandLine other("");
  AddBenchVerb(other.Program());
  EXPECT_EQ(other.Run({"bench", "--case", "rng9"}), 2);
  EXPECT_NE(testing::internal::GetCapturedStderr().find("rng9"), std::string::npos);
}

}  // namespace
}  // namespace feltmaster
