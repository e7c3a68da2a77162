#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace feltmaster {

struct BenchResult {
  std::string name;
  std::int32_t rolls = 0;
  double seconds = 0;           // the best of a few equal runs
  std::uint64_t signature = 0;  // StateHash of the game as it ended

  double RollsPerSecond() const { return rolls / seconds; }
};

// The names of the fixed cases, in their order. Every case plays a fixed number of rolls from a
// fixed seed, so its signature changes only with the game itself.
std::vector<std::string_view> BenchCaseNames();

BenchResult RunBenchCase(std::string_view name);

// One number for a list of results: their names and signatures.
std::uint64_t CombinedSignature(const std::vector<BenchResult>& results);

}  // namespace feltmaster
