// Reads every include below a source folder and fails when one does not keep to the plan of the
// house: an include points to a lower floor or to its own, never up and never in a circle between
// files; the logic stands on the standard library alone; Qt stays in the windows.
//
//   floors SRC      prints "file:line: fault" for each fault; the exit code is 1 if there is any,
//                   2 if there was nothing to read

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace {

namespace fs = std::filesystem;

enum Floor { kBase, kData, kLogic, kInput, kFrontEnd };

struct Folder {
  std::string_view Name;
  Floor Stands;
  bool UsesNeighbours;  // may include the other folders of its floor
};

constexpr auto kFolders = std::to_array<Folder>({
    {"base", kBase, false},
    {"game", kData, false},
    {"surface", kData, false},
    {"dice", kLogic, true},
    {"config", kLogic, true},
    {"stats", kLogic, true},
    {"engine", kLogic, true},
    {"autobet", kLogic, true},
    {"automation", kLogic, true},
    {"files", kLogic, true},
    {"view", kLogic, true},
    {"reports", kLogic, true},
    {"table", kInput, false},
    {"console", kFrontEnd, true},
    {"desktop", kFrontEnd, true},
});
constexpr std::string_view kWindows = "desktop";

constexpr auto kTestLibraries = std::to_array<std::string_view>({"gtest/", "gmock/", "benchmark/"});

// Headers of C++20; those of C are known by their C++ names only.
// clang-format off
constexpr auto kStandardHeaders = std::to_array<std::string_view>({
    "algorithm", "any", "array", "atomic", "barrier", "bit", "bitset", "cassert", "cctype",
    "cerrno", "cfenv", "cfloat", "charconv", "chrono", "cinttypes", "climits", "clocale", "cmath",
    "codecvt", "compare", "complex", "concepts", "condition_variable", "coroutine", "csetjmp",
    "csignal", "cstdarg", "cstddef", "cstdint", "cstdio", "cstdlib", "cstring", "ctime", "cuchar",
    "cwchar", "cwctype", "deque", "exception", "execution", "filesystem", "format", "forward_list",
    "fstream", "functional", "future", "initializer_list", "iomanip", "ios", "iosfwd", "iostream",
    "istream", "iterator", "latch", "limits", "list", "locale", "map", "memory", "memory_resource",
    "mutex", "new", "numbers", "numeric", "optional", "ostream", "queue", "random", "ranges",
    "ratio", "regex", "scoped_allocator", "semaphore", "set", "shared_mutex", "source_location",
    "span", "sstream", "stack", "stdexcept", "stop_token", "streambuf", "string", "string_view",
    "strstream", "syncstream", "system_error", "thread", "tuple", "type_traits", "typeindex",
    "typeinfo", "unordered_map", "unordered_set", "utility", "valarray", "variant", "vector",
    "version"});
// clang-format on

static_assert(std::ranges::is_sorted(kStandardHeaders));

// What the standard library has no word for: flushing a file to its disk. Only base may use it.
constexpr auto kPosixHeaders =
    std::to_array<std::string_view>({"fcntl.h", "sys/file.h", "sys/stat.h", "unistd.h"});

struct Include {
  int Line;
  char Opening;        // '<' or '"'; 0 when a macro names the file
  std::string Target;  // what stands between the brackets
};

using Tree = std::map<std::string, std::vector<Include>>;  // by path from the source folder

constexpr std::string_view kBlank = " \t\r";

std::string_view WithoutLeadingBlanks(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(kBlank), text.size()));
  return text;
}

// An include in a block comment or a raw string counts too: a check that can be talked round by
// what stands on other lines is not worth having.
std::optional<Include> ParseInclude(std::string_view line, int number) {
  constexpr std::string_view kDirective = "include";
  line = WithoutLeadingBlanks(line);
  if (!line.starts_with('#')) return std::nullopt;
  line = WithoutLeadingBlanks(line.substr(1));
  if (!line.starts_with(kDirective)) return std::nullopt;
  line = WithoutLeadingBlanks(line.substr(kDirective.size()));
  if (line.empty()) return std::nullopt;
  const char opening = line.front();
  const size_t end = line.find(opening == '<' ? '>' : '"', 1);
  if ((opening != '<' && opening != '"') || end == std::string_view::npos) {
    return Include{number, '\0', std::string(line)};
  }
  return Include{number, opening, std::string(line.substr(1, end - 1))};
}

Tree ReadTree(const fs::path& source) {
  Tree tree;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(source)) {
    if (!entry.is_regular_file()) continue;
    std::vector<Include>& includes = tree[entry.path().lexically_relative(source).generic_string()];
    std::ifstream file(entry.path());
    std::string line;
    for (int number = 1; std::getline(file, line); ++number) {
      if (const auto include = ParseInclude(line, number)) includes.push_back(*include);
    }
  }
  return tree;
}

const Folder* FolderOf(std::string_view path) {
  const std::string_view name = path.substr(0, path.find('/'));
  const auto* found = std::ranges::find(kFolders, name, &Folder::Name);
  return path.find('/') == std::string_view::npos || found == kFolders.end() ? nullptr : found;
}

bool IsStandard(std::string_view header) {
  return std::ranges::binary_search(kStandardHeaders, header);
}

bool IsQt(std::string_view header) {  // <QString>, <QtWidgets/QLabel>, <qglobal.h>
  return header.starts_with('Q') || (header.starts_with('q') && header.ends_with(".h"));
}

bool IsOfTests(std::string_view header) {
  return std::ranges::any_of(kTestLibraries,
                             [&](std::string_view library) { return header.starts_with(library); });
}

bool IsMadeByQtsTools(std::string_view header) {
  return header.ends_with(".moc") || header.starts_with("ui_");
}

bool MayUse(const Folder& from, const Folder& to) {
  return from.Name == to.Name || to.Stands < from.Stands ||
         (to.Stands == from.Stands && from.UsesNeighbours);
}

// The files that include Qt, by themselves or through others.
std::set<std::string> FilesOnQt(const Tree& tree) {
  std::set<std::string> on_qt;
  size_t before;
  do {
    before = on_qt.size();
    for (const auto& [path, includes] : tree) {
      for (const Include& include : includes) {
        if (include.Opening == '<' ? IsQt(include.Target) : on_qt.contains(include.Target)) {
          on_qt.insert(path);
        }
      }
    }
  } while (on_qt.size() != before);
  return on_qt;
}

class Checker {
 public:
  Checker(const fs::path& source, const Tree& tree)
      : source_(source), tree_(tree), on_qt_(FilesOnQt(tree)) {}

  // How many faults there are, after printing them.
  int Run() {
    for (const auto& [path, includes] : tree_) {
      const Folder* folder = FolderOf(path);
      if (!folder) Tell(path, 1, "stands in no folder of the plan");
      for (const Include& include : includes) {
        const std::string fault = folder ? Fault(*folder, include) : "";
        if (!fault.empty()) Tell(path, include.Line, fault);
      }
      FollowCircles(path);
    }
    return faults_;
  }

 private:
  void Tell(const std::string& path, int line, const std::string& fault) {
    std::cout << (source_ / path).generic_string() << ':' << line << ": " << fault << '\n';
    ++faults_;
  }

  std::string Fault(const Folder& from, const Include& include) const {
    const std::string& target = include.Target;
    const bool in_windows = from.Name == kWindows;
    if (include.Opening == '<') {
      if (IsStandard(target)) return "";
      if (from.Stands == kBase && std::ranges::binary_search(kPosixHeaders, target)) return "";
      const std::string shown = "<" + target + ">";
      if (from.Stands < kFrontEnd) return shown + " is not of the standard library";
      if (IsOfTests(target)) return shown + " belongs to the tests";
      if (IsQt(target) && !in_windows) return shown + " belongs to " + std::string(kWindows);
      if (tree_.contains(target)) return shown + " is our own: write it in quotes";
      return "";
    }
    if (include.Opening != '"') return "the file is named by a macro: " + target;
    if (in_windows && IsMadeByQtsTools(target)) return "";
    const std::string shown = '"' + target + '"';
    if (!tree_.contains(target)) return shown + " is no path from the source folder";
    const Folder* to = FolderOf(target);
    if (to && !MayUse(from, *to)) {
      return shown + (to->Stands > from.Stands ? " stands on a higher floor" : " is a neighbour");
    }
    if (!in_windows && on_qt_.contains(target)) return shown + " brings in Qt";
    return "";
  }

  // Walks down from a file, telling each include that leads back to a file on the way.
  void FollowCircles(const std::string& path) {
    if (!walked_.insert(path).second) return;
    way_.push_back(path);
    for (const Include& include : tree_.at(path)) {
      if (include.Opening != '"' || !tree_.contains(include.Target)) continue;
      const auto start = std::ranges::find(way_, include.Target);
      if (start == way_.end()) {
        FollowCircles(include.Target);
        continue;
      }
      std::string circle = "closes a circle: ";
      for (auto file = start; file != way_.end(); ++file) circle += *file + " > ";
      Tell(path, include.Line, circle + include.Target);
    }
    way_.pop_back();
  }

  const fs::path source_;
  const Tree& tree_;
  const std::set<std::string> on_qt_;
  std::set<std::string> walked_;
  std::vector<std::string> way_;
  int faults_ = 0;
};

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2 || !fs::is_directory(argv[1])) {
    std::cerr << "usage: floors SRC\n";
    return 2;
  }
  const Tree tree = ReadTree(argv[1]);
  if (tree.empty()) {
    std::cerr << argv[1] << " holds no file\n";
    return 2;
  }
  return Checker(argv[1], tree).Run() == 0 ? 0 : 1;
}
