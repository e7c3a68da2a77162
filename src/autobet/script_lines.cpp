#include "autobet/script_lines.h"

#include <algorithm>
#include <unordered_set>

#include "autobet/codes.h"
#include "base/text.h"

namespace feltmaster {

namespace {

bool NamesFlag(const ScriptLine& line) {
  return (line.LineKind == kConditionLine && line.LineSubject == kFlagSubject) ||
         (line.LineKind == kActionLine && line.LineCode == kActionSetFlag);
}

}  // namespace

bool SameLine(const ScriptLine& a, const ScriptLine& b) {
  return a.LineKind == b.LineKind && a.LineCode == b.LineCode && a.LineName == b.LineName &&
         a.LineAmount == b.LineAmount && a.LineSubject == b.LineSubject &&
         a.LineSubjectStack == b.LineSubjectStack && a.LineTarget == b.LineTarget &&
         a.LineTargetStack == b.LineTargetStack && a.LineReserved1 == b.LineReserved1 &&
         a.LineReserved2 == b.LineReserved2 && a.LineText == b.LineText;
}

std::string ScriptNameKey(std::string_view name) {
  return Lower(Trim(name));
}

bool IsJump(const ScriptLine& line) {
  return line.LineKind == kActionLine &&
         (line.LineCode == kActionGoTo || line.LineCode == kActionGosub);
}

void AddFlag(Game& game, std::string_view name) {
  const std::string key = ScriptNameKey(name);
  const bool known =
      std::any_of(game.ScriptFlags.begin(), game.ScriptFlags.end(),
                  [&](const ScriptFlag& flag) { return ScriptNameKey(flag.FlagName) == key; });
  if (!known && !key.empty()) game.ScriptFlags.push_back({std::string(TrimRight(name))});
}

void AddLabel(Game& game, std::string_view name) {
  const std::string key = ScriptNameKey(name);
  const bool known =
      std::any_of(game.ScriptLabels.begin(), game.ScriptLabels.end(),
                  [&](const std::string& label) { return ScriptNameKey(label) == key; });
  if (!known) game.ScriptLabels.emplace_back(name);
}

void RegisterNames(Game& game, const ScriptLine& line) {
  if (line.LineKind == kLabelLine) AddLabel(game, line.LineName);
  if (NamesFlag(line)) AddFlag(game, line.LineName);
}

void RegisterNames(Game& game, const std::vector<ScriptLine>& lines) {
  std::unordered_set<std::string> flags = {""};
  std::unordered_set<std::string> labels;
  for (const ScriptFlag& flag : game.ScriptFlags) flags.insert(ScriptNameKey(flag.FlagName));
  for (const std::string& label : game.ScriptLabels) labels.insert(ScriptNameKey(label));
  for (const ScriptLine& line : lines) {
    if (line.LineKind == kLabelLine && labels.insert(ScriptNameKey(line.LineName)).second) {
      game.ScriptLabels.push_back(line.LineName);
    } else if (NamesFlag(line) && flags.insert(ScriptNameKey(line.LineName)).second) {
      game.ScriptFlags.push_back({std::string(TrimRight(line.LineName))});
    }
  }
}

void InsertLine(Game& game, std::size_t position, const ScriptLine& line) {
  const std::size_t end = game.ScriptLines.size() + 1;
  position = std::clamp(position, std::size_t{1}, end);
  for (ScriptLine& other : game.ScriptLines) other.LineSelected = false;
  const auto place = game.ScriptLines.begin() + static_cast<std::ptrdiff_t>(position - 1);
  ScriptLine& placed = *game.ScriptLines.insert(place, line);
  placed.LineSelected = true;
  placed.LineShade = 0;
  RegisterNames(game, placed);
  game.ScriptCursorLine = static_cast<std::int32_t>(position);
  game.ScriptNeedsInit = true;
  game.ScriptUnsaved = true;
  ScriptLinesChanged(game);
}

void ScriptLinesChanged(Game& game) {
  game.Compiled.reset();
}

}  // namespace feltmaster
