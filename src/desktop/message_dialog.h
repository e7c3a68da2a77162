#pragma once

#include <QWidget>
#include <string_view>

#include "game/game.h"
#include "surface/surface.h"

namespace feltmaster {

// Shows a message over the middle of `parent` and waits for the answer, which is 0 when the dialog
// was closed without a button.
MessageReply ShowMessageDialog(QWidget* parent, Game& game, const MessageRequest& request);

// The notice over `parent`, which waits for nothing: it takes the place of the one before; an empty
// text takes it away.
void ShowNoticeWindow(QWidget* parent, std::string_view title, std::string_view text);

}  // namespace feltmaster
