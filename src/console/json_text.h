#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/money.h"

namespace feltmaster {

// The text of JSON values. Amounts are written from their digits, never by way of a double.
std::string JsonOf(std::string_view text);  // bytes that are no UTF-8 become U+FFFD
std::string JsonOf(const std::string& text);
std::string JsonOf(const char* text);
std::string JsonOf(bool value);
std::string JsonOf(std::int64_t number);
std::string JsonOf(std::int32_t number);
std::string JsonOf(MoneyAmount amount);
// Plain decimals, as short as they read back the same; null when the number is not finite.
std::string JsonOf(double number);
std::string JsonOf(float number);

// [a,b,...] of values that are JSON already.
std::string JsonList(const std::vector<std::string>& values);

// {"name":value,...} in the order of Add.
class JsonObject {
 public:
  template <typename T>
  JsonObject& Add(std::string_view name, const T& value) {
    return AddJson(name, JsonOf(value));
  }
  JsonObject& AddJson(std::string_view name, std::string_view json);
  std::string Text() const { return text_ + '}'; }

 private:
  std::string text_ = "{";
};

}  // namespace feltmaster
