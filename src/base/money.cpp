#include "base/money.h"

#include <cmath>

namespace feltmaster {

MoneyAmount MoneyAmount::FromDouble(double value) {
  const double scaled = std::nearbyint(value * double{kScale});
  // 2^63 is the first double that does not fit; the comparison also fails for NaN.
  if (!(scaled >= -9223372036854775808.0 && scaled < 9223372036854775808.0)) throw MoneyOverflow();
  return FromRaw(static_cast<std::int64_t>(scaled));
}

}  // namespace feltmaster
