#include "files/roll_text.h"

#include <utility>

#include "autobet/message.h"

namespace feltmaster {

RollTextParts PartsOfRollText(const Game& game) {
  return {game.PrintRollNumbers != 0, game.PrintDieNumbers != 0, game.PrintNumbersCalled != 0};
}

std::string RollText(const RollTextParts& parts, std::int64_t number, Dice dice) {
  std::string line;
  if (parts.RollNumber) line += std::to_string(number) + ' ';
  if (parts.DieNumbers) {
    line += '(' + std::to_string(dice.Die1) + '-' + std::to_string(dice.Die2) + ')';
  }
  if (parts.NumberCalled) {
    if (parts.DieNumbers) {
      line += ' ';
    } else if (parts.RollNumber) {
      line += "- ";
    }
    line += std::to_string(dice.Total());
  }
  return line;
}

std::int64_t FirstRollNumber(Game& game, std::string title, std::int64_t first) {
  if (game.PrintRollNumbers == 0 || first == 1) return first;
  const bool renumber = AskYesNo(game, std::move(title),
                                 "The rolls you've selected do not begin with roll #1.  Would you "
                                 "like to renumber them in the output starting with #1?",
                                 kButtonYes | kButtonNo | kPictureQuestion);
  return renumber ? 1 : first;
}

std::optional<FileError> HandOnRollText(const PlainFile& file, RollRange range,
                                        const RollTextParts& parts, std::int64_t first_number,
                                        const ByteSink& sink, const WorkProgress& progress) {
  std::int64_t number = first_number;
  std::string lines;
  const auto write_lines = [&](std::string_view rolls) {
    lines.clear();
    for (const char roll : rolls) lines += RollText(parts, number++, DiceOf(roll)) + '\n';
    return sink(lines);
  };
  return HandOnRolls(file, range, write_lines, progress);
}

std::string RollTextReader::Take(std::string_view text) {
  std::string rolls;
  for (const char c : text) {
    if (c < '1' || c > '6') continue;
    const std::int32_t die = c - '0';
    if (const std::int32_t first = std::exchange(die1_, die1_ == 0 ? die : 0)) {
      rolls += RollByte({first, die});
    }
  }
  return rolls;
}

}  // namespace feltmaster
