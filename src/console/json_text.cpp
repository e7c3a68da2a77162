#include "console/json_text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <nlohmann/json.hpp>

#include "base/number_format.h"

namespace feltmaster {

namespace {

template <typename T>
std::string PlainDecimal(T number) {
  if (!std::isfinite(number)) return "null";
  std::array<char, 400> digits{};  // the longest double has 309 digits before the point
  const auto end =
      std::to_chars(digits.data(), digits.data() + digits.size(), number, std::chars_format::fixed);
  return std::string(digits.data(), end.ptr);
}

}  // namespace

std::string JsonOf(std::string_view text) {
  return nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}
std::string JsonOf(const std::string& text) {
  return JsonOf(std::string_view(text));
}
std::string JsonOf(const char* text) {
  return JsonOf(std::string_view(text));
}
std::string JsonOf(bool value) {
  return value ? "true" : "false";
}
std::string JsonOf(std::int64_t number) {
  return std::to_string(number);
}
std::string JsonOf(std::int32_t number) {
  return std::to_string(number);
}
std::string JsonOf(MoneyAmount amount) {
  return PlainNumber(amount);
}
std::string JsonOf(double number) {
  return PlainDecimal(number);
}
std::string JsonOf(float number) {
  return PlainDecimal(number);
}

std::string JsonList(const std::vector<std::string>& values) {
  std::string text = "[";
  for (const std::string& value : values) {
    if (text.size() > 1) text += ',';
    text += value;
  }
  return text + ']';
}

JsonObject& JsonObject::AddJson(std::string_view name, std::string_view json) {
  if (text_.size() > 1) text_ += ',';
  text_ += JsonOf(name);
  text_ += ':';
  text_ += json;
  return *this;
}

}  // namespace feltmaster
