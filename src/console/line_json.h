#pragma once

#include <string>

#include "console/json_text.h"
#include "game/script.h"

namespace feltmaster {

enum class LineFields { kStored, kAll };  // of a script file; and those of the editor

// A line of a script with the names and values of its fields.
inline std::string LineAsJson(const ScriptLine& line, LineFields fields) {
  JsonObject json;
  json.Add("LineKind", line.LineKind)
      .Add("LineCode", line.LineCode)
      .Add("LineName", line.LineName)
      .Add("LineAmount", line.LineAmount)
      .Add("LineSubject", line.LineSubject)
      .Add("LineSubjectStack", line.LineSubjectStack)
      .Add("LineReserved1", line.LineReserved1)
      .Add("LineTarget", line.LineTarget)
      .Add("LineTargetStack", line.LineTargetStack)
      .Add("LineReserved2", line.LineReserved2);
  if (fields == LineFields::kAll) {
    json.Add("LineSelected", line.LineSelected).Add("LineShade", line.LineShade);
  }
  return json.Add("LineText", line.LineText).Text();
}

}  // namespace feltmaster
