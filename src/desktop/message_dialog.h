#pragma once

#include <QWidget>

#include "game/game.h"
#include "surface/surface.h"

namespace feltmaster {
MessageReply ShowMessageDialog(QWidget* parent, Game& game, const MessageRequest& request);
void ShowNoticeWindow(QWidget* parent, std::string_view title, std::string_view text);
}  // namespace feltmaster
