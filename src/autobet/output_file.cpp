#include "autobet/output_file.h"

#include <memory>
#include <utility>

#include "autobet/message.h"
#include "base/append_file.h"
#include "base/record_file.h"

namespace feltmaster {
namespace {

AppendFile* OpenFile(const Game& game) {
  return static_cast<AppendFile*>(game.ScriptOutput.get());
}

void TellFault(Game& game, const std::error_code& error) {
  if (!error) return;
  game.LastErrorText = FileError{error.value(), error.message()}.At("Write Output File");
  TellNotSaved(game, "Output File", game.ScriptOutputFile);
}

}  // namespace

std::error_code OpenScriptOutput(Game& game, const std::string& name, OutputMode mode) {
  if (const std::error_code error = CloseScriptOutput(game)) return error;
  auto file = std::make_shared<AppendFile>();
  if (const std::error_code error = file->Open(name, mode == OutputMode::kClear)) return error;
  game.ScriptOutput = std::move(file);
  game.ScriptOutputFile = name;
  return {};
}

std::error_code WriteScriptOutput(Game& game, std::string_view text) {
  AppendFile* file = OpenFile(game);
  return file == nullptr ? std::make_error_code(std::errc::bad_file_descriptor) : file->Write(text);
}

std::error_code FlushScriptOutput(Game& game) {
  AppendFile* file = OpenFile(game);
  return file == nullptr ? std::error_code() : file->Flush();
}

std::error_code CloseScriptOutput(Game& game) {
  AppendFile* file = OpenFile(game);
  const std::error_code error = file == nullptr ? std::error_code() : file->Close();
  game.ScriptOutput.reset();
  return error;
}

void SettleScriptOutput(Game& game) {
  TellFault(game, FlushScriptOutput(game));
}

void EndScriptOutput(Game& game) {
  TellFault(game, CloseScriptOutput(game));
}

}  // namespace feltmaster
