#pragma once

#include <string>
#include <string_view>

#include "game/game.h"

namespace feltmaster {

// Shows MsgText under MsgTitle with MsgOptions; the answer stands in MsgAnswer, typed values in
// BetRequest and MsgInput2. With the table minimised nothing is shown: a plain notice passes, a
// question stops the script and the rolling.
void ShowMessage(Game& game);

// Sets the message's arguments and shows it.
void Tell(Game& game, std::string title, std::string text, std::int32_t options = kButtonOk,
          std::int32_t help = 0);
// A notice that stays while the work goes on; the surface's ShowNotice takes it away.
void ShowNotice(Game& game, std::string title, std::string text);
// Tell, and whether the answer was Yes.
bool AskYesNo(Game& game, std::string title, std::string text,
              std::int32_t options = kButtonYes | kButtonNo | kPictureQuestion | kDefaultYes,
              std::int32_t help = 0);

// That a file could not be written, and the reason, with which LastErrorText begins.
void TellNotSaved(Game& game, std::string_view what, const std::string& path);

// The run in progress does not wait at its end: a dialog or a sound has taken the time.
void EndPacing(Game& game);

}  // namespace feltmaster
