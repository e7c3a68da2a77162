#include "console/program_folders.h"

#include <cstdlib>
#include <system_error>

namespace feltmaster {

namespace fs = std::filesystem;

namespace {

// A variable that is not set counts as empty.
std::string Variable(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? std::string() : std::string(value);
}

}  // namespace

fs::path DataFolder() {
  if (const std::string home = Variable("FELTMASTER_HOME"); !home.empty()) {
    return fs::absolute(home);
  }
  const fs::path data = Variable("XDG_DATA_HOME");
  if (data.is_absolute()) return data / "feltmaster";
  return fs::absolute(fs::path(Variable("HOME")) / ".local" / "share" / "feltmaster");
}

std::string ShippedFolder(const std::string& name) {
  std::error_code fault;
  const fs::path program = fs::read_symlink("/proc/self/exe", fault);
  const fs::path installed = program.parent_path().parent_path() / "share" / "feltmaster" / name;
  for (const fs::path& folder : {installed, fs::path(FELTMASTER_SOURCE_DIR) / name}) {
    if (fs::is_directory(folder, fault)) return (folder / "").string();
  }
  return {};
}

std::string GuideFolder() {
  const std::string installed = ShippedFolder("guide");
  return installed.empty() ? ShippedFolder("docs/guide") : installed;
}

}  // namespace feltmaster
