#include "view/figure.h"

#include <array>

#include "base/number_format.h"
#include "stats/roll_statistics.h"

namespace feltmaster {

Rows RowsOf(const Figures& figures) {
  Rows rows;
  for (const Figure& figure : figures) rows.push_back({figure.caption, figure.text});
  return rows;
}

Tone ToneOf(MoneyAmount amount) {
  return amount.Raw() < 0 ? Tone::kLoss : Tone::kWin;
}

std::string CountText(std::int64_t count) {
  return FormatNumber(count, kCountPicture);
}
std::string CountText(MoneyAmount count) {
  return FormatNumber(count, kCountPicture);
}

std::string RateText(MoneyAmount value) {
  return FormatNumber(value, value.IsWhole() ? kCountPicture : "#,#.0###;-#,#;0");
}

std::string StandardText(double value) {
  return FormatNumber(value, "#,##0.00");
}

MoneyAmount SimulatedHours(const Game& game) {
  if (game.RollsPerHour.Raw() <= 0) return {};
  return Quotient(MoneyAmount::FromWhole(RollCounts(game, 0)), game.RollsPerHour);
}

int PaletteColor(Tone tone) {
  constexpr std::array<int, 4> kColors = {0, 9, 12, 1};  // by Tone
  return kColors[static_cast<std::size_t>(tone)];
}

}  // namespace feltmaster
