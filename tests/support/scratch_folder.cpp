#include "support/scratch_folder.h"

#include <unistd.h>

#include <fstream>
#include <sstream>
#include <utility>

namespace feltmaster {

namespace {

// Tests run side by side, each in a process of its own.
std::filesystem::path FolderOfThisTest() {
  const auto* test = testing::UnitTest::GetInstance()->current_test_info();
  return std::filesystem::path(testing::TempDir()) /
         (std::string(test->test_suite_name()) + '_' + test->name() + std::to_string(getpid()));
}

}  // namespace

InScratchFolder::InScratchFolder() : folder_(FolderOfThisTest()) {
  std::filesystem::remove_all(folder_);
  std::filesystem::create_directories(folder_);
}

InScratchFolder::~InScratchFolder() {
  std::filesystem::remove_all(folder_);
}

std::string InScratchFolder::Write(std::string_view name, std::string_view bytes) const {
  std::ofstream(Path(name), std::ios::binary) << bytes;
  return Path(name);
}

std::string InScratchFolder::Bytes(std::string_view name) const {
  std::ostringstream bytes;
  bytes << std::ifstream(Path(name), std::ios::binary).rdbuf();
  return std::move(bytes).str();
}

}  // namespace feltmaster
