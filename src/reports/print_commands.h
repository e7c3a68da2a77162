#pragma once

#include <span>
#include <string_view>

#include "game/game.h"
#include "reports/document.h"

namespace feltmaster {

// Whether the player is asked before a report is printed.
enum class Confirm { kAsk, kAsked };

// The Print command of a screen.
struct PrintCommand {
  std::string_view name;  // one word, as it is typed
  std::string_view help;
  // Gives false when the player gave up, or it was refused or failed; the player has been told why.
  bool (*print)(Game& game, Confirm confirm);
};
std::span<const PrintCommand> PrintCommands();
// Case is ignored. Null when there is no such report.
const PrintCommand* FindPrintCommand(std::string_view name);

// "Confirm ready to print?"
bool ConfirmPrint(Game& game);

// Sends a finished report; a failure is kept under `place` in LastErrorText and told.
bool SendToPrinter(Game& game, const Document& document, std::string_view place);

}  // namespace feltmaster
