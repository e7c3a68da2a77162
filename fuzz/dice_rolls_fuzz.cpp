// Any bytes as a Dice Roll File and as a text of rolls: refused, or played, edited, written as text
// and read again.
#include <algorithm>
#include <string>

#include "files/roll_editor.h"
#include "files/roll_recorder.h"
#include "files/roll_text.h"
#include "table.h"
#include "view/roll_list.h"

using namespace feltmaster;

namespace {

// One command of the screen for each byte.
void Edit(Game& game, std::uint8_t byte) {
  const std::int32_t button = byte % kRollButtons;
  game.InsertRolls = byte & 1;
  switch (byte / kRollButtons) {
    case 0:
      EnterRoll(game, DiceOfButton(button));
      break;
    case 1:
      PressRoll(game, button, (byte & 1) != 0);
      break;
    case 2:
      MoveInRolls(game, button - kRollButtons / 2, (byte & 2) != 0);
      break;
    case 3:
      (byte & 1) != 0 ? CutRolls(game) : CopyRolls(game);
      break;
    case 4:
      PasteRolls(game);
      break;
    case 5:
      DeleteRolls(game);
      break;
    default:
      ScrollRolls(game, byte * 1000);
  }
}

void RequirePosition(Game& game) {
  const std::int32_t behind = DiceRollTotal(game) + 1;
  fuzz::Require(game.DiceRollNext >= 1 && game.DiceRollNext <= behind &&
                    game.DiceRollSelectEnd >= 1 && game.DiceRollSelectEnd <= behind &&
                    game.DiceRollTopLine >= 1 && game.DiceRollTopLine <= behind,
                "the position is in the file");
  fuzz::Require(SelectedRolls(game).End() <= behind, "what is selected is there");
  fuzz::Require(RollLines(game).size() <= static_cast<std::size_t>(game.DiceRollPageLines),
                "the list has a page");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes = fuzz::TextOf(data, size);
  const std::string path = fuzz::FileWith("dice.rol", bytes);
  const std::string text = fuzz::FileWith("dice.txt", bytes);
  fuzz::Table table;
  Game& game = table.Play;
  std::filesystem::remove(game.AppPath + std::string(kRollClipboard));

  if (OpenDiceRollFile(game, path)) {
    SetDiceRollMode(game, kPlayback);
    fuzz::PlayOn(game);
    fuzz::RequireSoundState(game);
    fuzz::Require(fuzz::BytesOf(path) == bytes, "playback leaves the file as it is");
  }
  const std::string empty = fuzz::FileWith("new.rol", "");
  fuzz::Require(OpenDiceRollFile(game, empty), "an empty file is one of no rolls");
  fuzz::Require(PasteRollText(game, text) == RollFileResult::kDone, "every text can be pasted");
  const std::string rolls = fuzz::BytesOf(empty);
  const auto dice = static_cast<std::size_t>(
      std::ranges::count_if(bytes, [](char c) { return c >= '1' && c <= '6'; }));
  fuzz::Require(rolls.size() == dice / 2, "two dice are a roll");
  if (!rolls.empty()) {
    game.PrintRollNumbers = game.PrintNumbersCalled = 0;
    SelectAllRolls(game);
    const std::string written = fuzz::FileWith("out.txt", "");
    fuzz::Require(CopyRollsToText(game, written) == RollFileResult::kDone, "rolls are written");
    DeleteRolls(game);
    fuzz::Require(PasteRollText(game, written) == RollFileResult::kDone, "and read again");
    fuzz::Require(fuzz::BytesOf(empty) == rolls, "the same rolls");
  }
  for (std::size_t i = 0; i < std::min<std::size_t>(size, 20); ++i) {
    Edit(game, data[i]);
    RequirePosition(game);
  }
  return 0;
}
