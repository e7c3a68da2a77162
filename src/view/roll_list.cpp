#include "view/roll_list.h"

#include <algorithm>
#include <filesystem>

#include "files/roll_editor.h"
#include "files/roll_recorder.h"

namespace feltmaster {

namespace {

RollLine LineOf(const Game& game, std::int64_t number, const RollRange& selected) {
  RollLine line;
  line.Cells = {std::to_string(number), "", "", ""};
  line.IsNext = number == game.DiceRollNext;
  line.IsSelected = number >= selected.First && number < selected.End();
  return line;
}

void Fill(const Game& game, RollLine& line, Dice dice) {
  line.Cells[1] = std::to_string(dice.Die1);
  line.Cells[2] = std::to_string(dice.Die2);
  line.Cells[3] = std::to_string(dice.Total());
  line.IsHighlighted =
      dice.AreGood() &&
      game.RollHighlight[static_cast<std::size_t>(dice.Die2)][static_cast<std::size_t>(dice.Die1)];
}

}  // namespace

std::string RollFileCaption(const Game& game) {
  if (game.DiceRollFileName.empty()) return "Dice Roll Files";
  return "Dice Roll Files (" + std::filesystem::path(game.DiceRollFileName).filename().string() +
         ")";
}

Row RollListHeaders() {
  return {"Roll #", "Die 1", "Die 2", "Number called"};
}

std::vector<RollLine> RollLines(Game& game) {
  std::vector<RollLine> lines;
  const PlainFile* file = DiceRollFile(game);
  if (file == nullptr) return lines;
  const std::int64_t total = TotalRolls(*file);
  const RollRange selected = SelectedRolls(game);
  const std::int64_t first = std::max(game.DiceRollTopLine, 1);
  const std::int64_t shown =
      std::clamp<std::int64_t>(total + 1 - first, 0, std::max(game.DiceRollPageLines, 1));
  std::int64_t number = first;
  const auto take = [&](std::string_view rolls) -> std::optional<FileError> {
    for (const char roll : rolls) {
      lines.push_back(LineOf(game, number++, selected));
      Fill(game, lines.back(), DiceOf(roll));
    }
    return std::nullopt;
  };
  if (const auto error = HandOnRolls(*file, {first, shown}, take)) {
    game.LastErrorText = error->At("Show Dice Rolls");
  }
  if (number == total + 1 && number - first < game.DiceRollPageLines) {
    lines.push_back(LineOf(game, number, selected));
  }
  return lines;
}

RollCounters CountersOfRolls(Game& game) {
  return {std::to_string(DiceRollTotal(game)), std::to_string(SelectedRolls(game).Count),
          std::to_string(game.DiceRollLast), std::to_string(game.DiceRollNext)};
}

}  // namespace feltmaster
