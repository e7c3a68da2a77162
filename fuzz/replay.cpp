// Runs a fuzzer without the fuzzing engine: every file of a folder of seeds, then as many blends of
// them as are asked for, which are the same at each run.
//
//   fuzz_game_file FOLDER [BLENDS]
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "table.h"

namespace {

namespace fs = std::filesystem;

std::vector<std::string> SeedsIn(const fs::path& folder) {
  std::vector<fs::path> paths;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder)) paths.push_back(entry);
  std::ranges::sort(paths);
  std::vector<std::string> seeds;
  for (const fs::path& path : paths) seeds.push_back(feltmaster::fuzz::BytesOf(path.string()));
  return seeds;
}

class Blender {
 public:
  explicit Blender(const std::vector<std::string>& seeds) : seeds_(seeds) {}

  std::string Next() {
    std::string bytes = Seed();
    for (std::size_t change = 1 + Below(6); change > 0; --change) Change(bytes);
    return bytes;
  }

 private:
  std::size_t Below(std::size_t count) { return count == 0 ? 0 : random_() % count; }
  const std::string& Seed() { return seeds_[Below(seeds_.size())]; }

  void Change(std::string& bytes) {
    static constexpr char kEdges[] = {0, 1, 0x7f, static_cast<char>(0x80), static_cast<char>(0xff)};
    const std::size_t at = Below(bytes.size());
    const std::size_t length = std::min(bytes.size() - at, 1 + Below(16));
    switch (Below(6)) {
      case 0:
        bytes.resize(at);
        break;
      case 1:
        for (std::size_t i = at; i < at + length; ++i) bytes[i] = static_cast<char>(random_());
        break;
      case 2:
        std::fill_n(bytes.begin() + static_cast<std::ptrdiff_t>(at), length,
                    kEdges[Below(std::size(kEdges))]);
        break;
      case 3:
        bytes.insert(at, bytes.substr(at, length));
        break;
      case 4:
        bytes.erase(at, length);
        break;
      default: {
        const std::string& other = Seed();
        const std::size_t from = Below(other.size());
        bytes.replace(at, length, other, from, length);
      }
    }
  }

  const std::vector<std::string>& seeds_;
  std::mt19937 random_{1};
};

void Run(const std::string& bytes) {
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

}  // namespace

int main(int count, char** arguments) {
  if (count < 2 || count > 3) {
    std::fprintf(stderr, "usage: %s FOLDER [BLENDS]\n", arguments[0]);
    return 2;
  }
  const std::vector<std::string> seeds = SeedsIn(arguments[1]);
  feltmaster::fuzz::Require(!seeds.empty(), "there are seeds");
  for (const std::string& seed : seeds) Run(seed);
  Blender blender(seeds);
  const int blends = count == 3 ? std::atoi(arguments[2]) : 0;
  for (int blend = 0; blend < blends; ++blend) {
    const std::string bytes = blender.Next();
    Run(bytes);
  }
  std::printf("%zu seeds, %d blends\n", seeds.size(), blends);
}
