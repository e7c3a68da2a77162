// Any bytes as a script of the sibling program, in either of its layouts: refused, or converted to
// a script that loads.
#include "autobet/script_conversion.h"
#include "autobet/script_file.h"
#include "table.h"

using namespace feltmaster;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string source = fuzz::FileWith("sibling.bet", fuzz::TextOf(data, size));
  const std::string target = (fuzz::ScratchFolder() / "converted.bet").string();
  std::filesystem::remove(target);
  ConversionCount count;
  if (ConvertScriptFile(source, target, count)) {
    fuzz::Require(!std::filesystem::exists(target), "a refused script leaves no file");
    return 0;
  }
  fuzz::Table table;
  fuzz::Require(LoadScript(table.Play, target), "a converted script loads");
  fuzz::Require(std::ssize(table.Play.ScriptLines) <= count.kept, "no line comes from nowhere");
  table.Play.ScriptActive = 1;
  fuzz::PlayOn(table.Play);
  return 0;
}
