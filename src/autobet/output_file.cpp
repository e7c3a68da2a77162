#include "autobet/output_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <memory>
#include <string>
#include <utility>

#include "autobet/message.h"
#include "base/descriptor.h"
#include "base/record_file.h"

namespace feltmaster {
namespace {

std::error_code LastError() {
  return {errno == 0 ? EIO : errno, std::generic_category()};
}

// Closed by its last owner, with what was written last.
class OutputFile {
 public:
  explicit OutputFile(Descriptor file) : file_(std::move(file)) {}
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;
  ~OutputFile() { Flush(); }

  std::error_code Write(std::string_view text) {
    constexpr std::size_t kEnough = 1 << 16;
    pending_ += text;
    return pending_.size() < kEnough ? std::error_code() : Flush();
  }
  // What reached the disk of a write that failed is taken back and kept for the next: a line comes
  // into the file whole and once.
  std::error_code Flush() {
    if (pending_.empty()) return {};
    const off_t end = ::lseek(file_.Number(), 0, SEEK_END);
    if (!WriteAll(file_.Number(), pending_)) {
      const std::error_code error = LastError();
      if (end < 0 || ::ftruncate(file_.Number(), end) != 0) pending_.clear();
      return error;
    }
    pending_.clear();
    return {};
  }
  std::error_code Close() {
    if (const std::error_code error = Flush()) {
      pending_.clear();
      return error;
    }
    // A pipe or a device has nothing to flush.
    if (::fsync(file_.Number()) != 0 && errno != EINVAL && errno != EROFS) return LastError();
    return file_.Close() == 0 ? std::error_code() : LastError();
  }

 private:
  Descriptor file_;
  std::string pending_;
};

OutputFile* OpenFile(const Game& game) {
  return static_cast<OutputFile*>(game.ScriptOutput.get());
}

}  // namespace

std::error_code OpenScriptOutput(Game& game, const std::string& name, OutputMode mode) {
  if (const std::error_code error = CloseScriptOutput(game)) return error;
  const int how = mode == OutputMode::kClear ? O_TRUNC : O_APPEND;
  Descriptor file(::open(name.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | how, 0666));
  if (!file.IsOpen()) return LastError();
  game.ScriptOutput = std::make_shared<OutputFile>(std::move(file));
  game.ScriptOutputFile = name;
  return {};
}

std::error_code WriteScriptOutput(Game& game, std::string_view text) {
  OutputFile* file = OpenFile(game);
  if (file == nullptr) return std::make_error_code(std::errc::bad_file_descriptor);
  return file->Write(text);
}

std::error_code FlushScriptOutput(Game& game) {
  OutputFile* file = OpenFile(game);
  return file == nullptr ? std::error_code() : file->Flush();
}

std::error_code CloseScriptOutput(Game& game) {
  OutputFile* file = OpenFile(game);
  const std::error_code error = file == nullptr ? std::error_code() : file->Close();
  game.ScriptOutput.reset();
  return error;
}

namespace {

void TellFault(Game& game, const std::error_code& error) {
  if (!error) return;
  game.LastErrorText = FileError{error.value(), error.message()}.At("Write Output File");
  TellNotSaved(game, "Output File", game.ScriptOutputFile);
}

}  // namespace

void SettleScriptOutput(Game& game) {
  TellFault(game, FlushScriptOutput(game));
}

void EndScriptOutput(Game& game) {
  TellFault(game, CloseScriptOutput(game));
}

}  // namespace feltmaster
