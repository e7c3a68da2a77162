#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/money.h"

namespace feltmaster {

// Writes a number by a picture of up to three sections, "positive;negative;zero". '0' is a digit
// always shown, '#' a digit shown if there is one (so 0.5 by "#,#.00" is ".50"), ',' between digits
// groups by thousands, '%' multiplies by 100, all other characters stand as they are. Rounds half
// away from zero. Doubles are taken by their first 15 significant digits.
std::string FormatNumber(MoneyAmount value, std::string_view picture);
std::string FormatNumber(double value, std::string_view picture);
std::string FormatNumber(std::int64_t value, std::string_view picture);

// The money format of messages and displays: "#,#;-#,#;0" for whole amounts, else
// "#,#.00##;-#,#.00##;0.00".
std::string FormatMoney(MoneyAmount amount);

// Plain decimal without separators and with only the places it needs: "12.5", "-0.25", "1000".
std::string PlainNumber(MoneyAmount amount);

// The text of a money field: 0 if its numeric prefix is 0, else the amount. Blanks in front and
// thousands separators are passed over; what does not fit an amount is 0.
MoneyAmount ParseMoney(std::string_view text);

// The value of the longest numeric prefix of a text; 0 when there is none.
double NumericPrefix(std::string_view text);

}  // namespace feltmaster
