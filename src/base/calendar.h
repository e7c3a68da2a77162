#pragma once

#include <chrono>
#include <string>

namespace feltmaster {

// A day and a time of day, as a calendar and a clock on the wall show them.
struct CalendarTime {
  int year = 2000;
  int month = 1;  // 1 to 12
  int day = 1;
  int hour = 0;
  int minute = 0;
  int second = 0;

  bool operator==(const CalendarTime&) const = default;
};

CalendarTime LocalCalendar(std::chrono::system_clock::time_point moment);

// "05-Nov-26".
std::string MediumDate(const CalendarTime& time);
// "08:04:09".
std::string ClockTime(const CalendarTime& time);
// "2026-11-05T08:04:09".
std::string IsoTime(const CalendarTime& time);

}  // namespace feltmaster
