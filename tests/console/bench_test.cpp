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
  int code = -1;
  CLI::App app;
  AddBenchVerb(app, code);
  testing::internal::CaptureStdout();
  app.parse("bench --json --case rng8 --case rng1");
  const auto results = nlohmann::json::parse(testing::internal::GetCapturedStdout());
  EXPECT_EQ(code, 0);
  ASSERT_EQ(results["cases"].size(), 2U);
  EXPECT_EQ(results["cases"][0]["name"], "rng1");
  EXPECT_EQ(results["cases"][1]["name"], "rng8");
  EXPECT_EQ(results["cases"][1]["signature"].get<std::string>().size(), 16U);
  EXPECT_GT(results["cases"][1]["seconds"], 0);

  testing::internal::CaptureStderr();
  CLI::App other;
  AddBenchVerb(other, code);
  other.parse("bench --case rng9");
  EXPECT_EQ(code, 2);
  EXPECT_NE(testing::internal::GetCapturedStderr().find("rng9"), std::string::npos);
}

}  // namespace
}  // namespace feltmaster
