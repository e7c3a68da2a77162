#include "autobet/script_record.h"

#include <string>

#include "base/number_format.h"
#include "base/text.h"

namespace feltmaster {

double ScriptVersion(const Record& header) {
  constexpr std::size_t kVersionSize = 4;
  const std::string title = header.Text(kAtText, kLineTextSize);
  return NumericPrefix(title.substr(title.size() > kVersionSize ? title.size() - kVersionSize : 0));
}

Record ScriptHeader(std::int64_t line_count) {
  Record header;
  header.SetText(kAtText, kLineTextSize, kScriptFormat);
  header.SetMoney(kAtAmount, MoneyAmount::FromWhole(line_count));
  return header;
}

}  // namespace feltmaster
