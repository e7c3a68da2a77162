#include "autobet/output_file.h"

#include <cerrno>
#include <cstdio>
#include <memory>

namespace feltmaster {
namespace {

// Closed by its last owner, with what was written last.
struct OutputFile {
  explicit OutputFile(std::FILE* opened) : file(opened) {}
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;
  ~OutputFile() { std::fclose(file); }

  std::FILE* file;
};

std::FILE* OpenFile(const Game& game) {
  return game.ScriptOutput ? static_cast<OutputFile*>(game.ScriptOutput.get())->file : nullptr;
}

std::error_code LastError() {
  return {errno == 0 ? EIO : errno, std::generic_category()};
}

}  // namespace

std::error_code OpenScriptOutput(Game& game, const std::string& name, OutputMode mode) {
  if (const std::error_code error = CloseScriptOutput(game)) return error;
  errno = 0;
  std::FILE* file = std::fopen(name.c_str(), mode == OutputMode::kClear ? "wb" : "ab");
  if (file == nullptr) return LastError();
  game.ScriptOutput = std::make_shared<OutputFile>(file);
  game.ScriptOutputFile = name;
  return {};
}

std::error_code WriteScriptOutput(Game& game, std::string_view text) {
  std::FILE* file = OpenFile(game);
  if (file == nullptr) return std::make_error_code(std::errc::bad_file_descriptor);
  errno = 0;
  if (std::fwrite(text.data(), 1, text.size(), file) != text.size()) return LastError();
  return {};
}

std::error_code CloseScriptOutput(Game& game) {
  const std::error_code error = FlushScriptOutput(game);
  game.ScriptOutput.reset();
  return error;
}

std::error_code FlushScriptOutput(Game& game) {
  std::FILE* file = OpenFile(game);
  errno = 0;
  if (file != nullptr && std::fflush(file) != 0) return LastError();
  return {};
}

}  // namespace feltmaster
