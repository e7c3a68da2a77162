#include <algorithm>
#include <cmath>
#include <cstdio>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>

#include "base/number_format.h"
#include "console/bench_cases.h"
#include "console/verbs.h"

namespace feltmaster {

namespace {

struct BenchOptions {
  std::vector<std::string> cases;
  bool json = false;
};

std::string SignatureText(std::uint64_t signature) {
  char text[17];
  std::snprintf(text, sizeof text, "%016llx", static_cast<unsigned long long>(signature));
  return text;
}

// The first case is what the others are compared with.
void PrintHead() {
  std::printf("%-10s %12s %9s %14s %8s  %s\n", "case", "rolls", "seconds", "rolls/s", "x dice",
              "signature");
}
void PrintRow(const BenchResult& result, const BenchResult* dice) {
  std::string ratio = "-";
  if (dice != nullptr)
    ratio = FormatNumber(dice->RollsPerSecond() / result.RollsPerSecond(), "0.0");
  std::printf("%-10s %12s %9.3f %14s %8s  %s\n", result.name.c_str(),
              FormatNumber(std::int64_t{result.rolls}, "#,##0").c_str(), result.seconds,
              FormatNumber(std::round(result.RollsPerSecond()), "#,##0").c_str(), ratio.c_str(),
              SignatureText(result.signature).c_str());
  std::fflush(stdout);
}

void PrintJson(const std::vector<BenchResult>& results) {
  nlohmann::ordered_json cases = nlohmann::ordered_json::array();
  for (const BenchResult& result : results) {
    cases.push_back({{"name", result.name},
                     {"rolls", result.rolls},
                     {"seconds", result.seconds},
                     {"signature", SignatureText(result.signature)}});
  }
  const nlohmann::ordered_json json = {{"cases", cases}};
  std::cout << json.dump(2) << std::endl;
}

int RunBench(const BenchOptions& options) {
  const std::vector<std::string_view> names = BenchCaseNames();
  for (const std::string& name : options.cases) {
    if (std::find(names.begin(), names.end(), name) != names.end()) continue;
    std::cerr << "feltmaster bench: --case takes one of";
    for (const std::string_view known : names) std::cerr << ' ' << known;
    std::cerr << ", not \"" << name << "\".\n";
    return 2;
  }
  std::vector<BenchResult> results;
  if (!options.json) PrintHead();
  for (const std::string_view name : names) {
    const bool wanted =
        options.cases.empty() ||
        std::find(options.cases.begin(), options.cases.end(), name) != options.cases.end();
    if (!wanted) continue;
    results.push_back(RunBenchCase(name));
    if (!options.json) {
      PrintRow(results.back(), results.front().name == "dice" ? &results.front() : nullptr);
    }
  }
  if (options.json) {
    PrintJson(results);
  } else {
    std::printf("signature  %s\n", SignatureText(CombinedSignature(results)).c_str());
  }
  return 0;
}

constexpr const char* kNotes =
    R"(Every case plays a fixed number of rolls from a fixed seed, three times at least and for more than
half a second, and tells the best time of these equal runs, in seconds of one processor. The
signature is a hash over the whole game as it ended: it changes only when the game does.

  dice           nothing but the two dice of RNG #1
  bare           an empty table with all its statistics
  line           the Pass Line with full odds, by Auto-Play alone
  ironcross      the script strategies/iron_cross.txt
  long           a script of 60 lines with Total and Any conditions
  rng1 to rng8   the dice of one generator

Examples:
  feltmaster bench
  feltmaster bench --case ironcross --case long --json
)";

}  // namespace

void AddBenchVerb(Verb program) {
  const Verb verb = program.Sub("bench", "Measures rolls per second in fixed cases");
  verb.Footer(kNotes);
  const auto options = std::make_shared<BenchOptions>();
  verb.Add("--case", options->cases, "Only this case; may be repeated").Takes("NAME");
  verb.Flag("--json", options->json, "Prints the results as JSON");
  verb.Runs([options] { return RunBench(*options); });
}

}  // namespace feltmaster
