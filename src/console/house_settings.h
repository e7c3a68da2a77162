#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "game/game.h"
#include "surface/null_surface.h"

namespace feltmaster {

// The settings of --set: name and value, in their order.
using HouseSettings = std::vector<std::pair<std::string, std::string>>;

// Takes "NAME=VALUE" apart into `settings`; gives the complaint, one sentence, when it is none.
std::string ReadHouseSetting(const std::string& text, HouseSettings& settings);

// Listens while a table is made: a refusal of the house is a fault of the one who set it up.
class SetUpSurface final : public NullSurface {
 public:
  bool TableMinimised() override { return false; }
  MessageReply ShowMessage(const MessageRequest& request) override;
  const std::string& Refusal() const { return refusal_; }

  static std::string OneLine(std::string_view text);

 private:
  std::string refusal_;
};

// Changes the settings as the Configure screen does and checks them all as leaving it does. The
// surface must be that of the table. Gives what was refused, one sentence, or an empty text.
std::string ApplyHouseSettings(Game& table, const SetUpSurface& surface,
                               const HouseSettings& settings);

// Makes a fresh table under the settings of --set as they were typed. Gives a complaint as above.
std::string OpenHouse(Game& table, const std::vector<std::string>& settings);

}  // namespace feltmaster
