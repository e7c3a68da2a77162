#include "console/house_settings.h"

#include "config/configure.h"
#include "engine/start_up.h"

namespace feltmaster {

std::string ReadHouseSetting(const std::string& text, HouseSettings& settings) {
  const std::size_t sign = text.find('=');
  if (sign == std::string::npos || sign == 0) {
    return "--set takes NAME=VALUE, not \"" + text + "\".";
  }
  settings.emplace_back(text.substr(0, sign), text.substr(sign + 1));
  return {};
}

MessageReply SetUpSurface::ShowMessage(const MessageRequest& request) {
  const bool asks = (request.options & (kButtonYes | kOneInput)) != 0;
  if (!asks && refusal_.empty()) refusal_ = OneLine(request.text);
  return {};
}

std::string SetUpSurface::OneLine(std::string_view text) {
  std::string line;
  for (const char c : text) {
    const bool blank = c == '\n' || c == '\r' || c == ' ';
    if (!blank) line += c;
    if (blank && !line.empty() && line.back() != ' ') line += ' ';
  }
  while (!line.empty() && line.back() == ' ') line.pop_back();
  return line;
}

std::string ApplyHouseSettings(Game& table, const SetUpSurface& surface,
                               const HouseSettings& settings) {
  for (const auto& [name, value] : settings) {
    const std::string option = "--set " + name + "=" + value + ": ";
    const std::string fault = Configure(table, name, value);
    if (!fault.empty()) return option + fault;
    if (!surface.Refusal().empty()) return option + surface.Refusal();
  }
  return CheckLimits(table) ? std::string() : "--set: " + surface.Refusal();
}

std::string OpenHouse(Game& table, const std::vector<std::string>& settings) {
  HouseSettings read;
  for (const std::string& text : settings) {
    if (std::string fault = ReadHouseSetting(text, read); !fault.empty()) return fault;
  }
  SetUpSurface surface;
  table.surface = &surface;
  StartUp(table, {.data_dir = "", .seed = 1});
  std::string fault = ApplyHouseSettings(table, surface, read);
  table.surface = nullptr;
  return fault;
}

}  // namespace feltmaster
