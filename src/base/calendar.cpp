#include "base/calendar.h"

#include <algorithm>
#include <array>
#include <ctime>
#include <string_view>

namespace feltmaster {

namespace {

std::string Digits(int number, std::size_t count) {
  std::string digits = std::to_string(number);
  if (digits.size() < count) digits.insert(0, count - digits.size(), '0');
  return digits.substr(digits.size() - count);
}

}  // namespace

CalendarTime LocalCalendar(std::chrono::system_clock::time_point moment) {
  const std::time_t time = std::chrono::system_clock::to_time_t(moment);
  std::tm local{};
  localtime_r(&time, &local);
  return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
          local.tm_hour,        local.tm_min,     local.tm_sec};
}

std::string MediumDate(const CalendarTime& time) {
  constexpr std::array<std::string_view, 12> kMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                        "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  const auto month = static_cast<std::size_t>(std::clamp(time.month, 1, 12) - 1);
  return Digits(time.day, 2) + '-' + std::string(kMonths[month]) + '-' + Digits(time.year, 2);
}

std::string ClockTime(const CalendarTime& time) {
  return Digits(time.hour, 2) + ':' + Digits(time.minute, 2) + ':' + Digits(time.second, 2);
}

std::string IsoTime(const CalendarTime& time) {
  return Digits(time.year, 4) + '-' + Digits(time.month, 2) + '-' + Digits(time.day, 2) + 'T' +
         ClockTime(time);
}

}  // namespace feltmaster
