// Any bytes as a script file: refused, or a script that can be run and that is kept as it is.
#include "autobet/run_script.h"
#include "autobet/script_file.h"
#include "autobet/script_lines.h"
#include "autobet/script_text.h"
#include "table.h"

using namespace feltmaster;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string path = fuzz::FileWith("script.bet", fuzz::TextOf(data, size));
  fuzz::Table table;
  if (!LoadScript(table.Play, path)) {
    fuzz::Require(table.Play.ScriptLines.empty(), "a refused script changes nothing");
    return 0;
  }
  for (const ScriptLine& line : table.Play.ScriptLines) LineTextOf(line);
  const std::string first = (fuzz::ScratchFolder() / "first.bet").string();
  const std::string second = (fuzz::ScratchFolder() / "second.bet").string();
  fuzz::Require(SaveScript(table.Play, first), "a script is saved");
  fuzz::Table other;
  fuzz::Require(LoadScript(other.Play, first), "a saved script loads");
  fuzz::Require(SaveScript(other.Play, second), "a loaded script is saved");
  fuzz::Require(fuzz::BytesOf(first) == fuzz::BytesOf(second), "the same script, the same bytes");
  table.Play.ScriptActive = 1;
  fuzz::PlayOn(table.Play);
  return 0;
}
