#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>

namespace feltmaster {

// A test with a folder of its own, which goes when it ends. A name without a folder in front lies
// there.
class InScratchFolder : public testing::Test {
 protected:
  InScratchFolder();
  ~InScratchFolder() override;

  std::string Path(std::string_view name) const { return (folder_ / name).string(); }
  // Gives the path.
  std::string Write(std::string_view name, std::string_view bytes) const;
  std::string Bytes(std::string_view name) const;  // empty when there is no such file

  const std::filesystem::path folder_;
};

}  // namespace feltmaster
