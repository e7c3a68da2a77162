#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "engine/start_up.h"
#include "support/recording_surface.h"

namespace feltmaster {

// A table with a data folder of its own, and its Dice Roll Files as plain bytes. The bytes are made
// and read here by the layout alone.
class RollFixture : public testing::Test {
 protected:
  void SetUp() override {
    const auto* test = testing::UnitTest::GetInstance()->current_test_info();
    folder_ = std::filesystem::path(testing::TempDir()) /
              (std::string(test->test_suite_name()) + test->name() + std::to_string(getpid()));
    std::filesystem::remove_all(folder_);
    std::filesystem::create_directories(folder_ / "data");
    game_ = NewTable(surface_, 1);
  }
  void TearDown() override { std::filesystem::remove_all(folder_); }

  std::unique_ptr<Game> NewTable(Surface& surface, std::int32_t seed) {
    auto game = std::make_unique<Game>();
    game->surface = &surface;
    StartUp(*game, {.data_dir = (folder_ / "data" / "").string(), .seed = seed});
    return game;
  }
  std::string Path(const std::string& name) const { return (folder_ / name).string(); }
  std::string Bytes(const std::string& name) const {
    std::ifstream file(Path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  void Write(const std::string& name, const std::string& bytes) const {
    std::ofstream(Path(name), std::ios::binary) << bytes;
  }
  static char Byte(int die1, int die2) { return static_cast<char>((die2 << 5) | (die1 << 2)); }
  // The last message, which is taken away.
  RecordingSurface::Message Said() {
    if (surface_.messages.empty()) return {"nothing", "", 0, 0};
    RecordingSurface::Message last = surface_.messages.back();
    surface_.messages.clear();
    return last;
  }

  std::filesystem::path folder_;
  RecordingSurface surface_;
  std::unique_ptr<Game> game_;
};

}  // namespace feltmaster
