#include "view/roll_list.h"

#include <algorithm>
#include <filesystem>
#include <utility>

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

bool IsHighlighted(const Game& game, Dice dice) {
  return dice.AreGood() && game.RollHighlight[static_cast<std::size_t>(dice.Die2)]
                                             [static_cast<std::size_t>(dice.Die1)];
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

Row RollCells(std::int64_t number, Dice dice) {
  return {std::to_string(number), std::to_string(dice.Die1), std::to_string(dice.Die2),
          std::to_string(dice.Total())};
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
      const Dice dice = DiceOf(roll);
      RollLine line = LineOf(game, number, selected);
      line.Cells = RollCells(number, dice);
      line.IsHighlighted = IsHighlighted(game, dice);
      lines.push_back(std::move(line));
      ++number;
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
