#include "autobet/line_meaning.h"

#include "base/text.h"

namespace feltmaster {

std::string MeaningOf(const ScriptLine& line) {
  return std::string(Trim(line.LineText));
}

}  // namespace feltmaster
