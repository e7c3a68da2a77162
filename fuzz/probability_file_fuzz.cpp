// Any bytes as a Probability File: refused, or a table from which dice can be drawn and edited.
#include "dice/probability.h"
#include "dice/rng.h"
#include "table.h"

using namespace feltmaster;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string path = fuzz::FileWith("dice.prb", fuzz::TextOf(data, size));
  fuzz::Table table;
  if (!LoadProbabilityFile(table.Play, path)) return 0;
  const std::string saved = (fuzz::ScratchFolder() / "saved.prb").string();
  fuzz::Require(SaveProbabilityFile(table.Play, saved), "a Probability File is saved");
  const std::string first = fuzz::BytesOf(saved);
  fuzz::Require(LoadProbabilityFile(table.Play, saved), "a saved Probability File loads");
  fuzz::Require(SaveProbabilityFile(table.Play, saved) && fuzz::BytesOf(saved) == first,
                "the same dice, the same bytes");
  table.Play.UseSkewedProbability = true;
  fuzz::PlayOn(table.Play);
  for (int cell = 0; cell < 12 && size > 24; ++cell) {
    SetProbabilityCell(table.Play, data[cell] % 8, data[cell + 12] % 14, data[cell] * 391.0, true);
  }
  fuzz::PlayOn(table.Play);
  return 0;
}
