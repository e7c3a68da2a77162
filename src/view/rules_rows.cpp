#include "view/rules_rows.h"

#include <array>
#include <cmath>

#include "base/number_format.h"
#include "config/advantage.h"
#include "config/payoffs.h"

namespace feltmaster {

namespace {

Row PayoffRow(std::string label, const PayRow& row) {
  return {std::move(label), PlainNumber(ShownNumerator(row)), row.PayIsTo ? "to" : "for",
          PlainNumber(row.PayDenominator)};
}

// "4 (1-3)", by the row of FieldPayTable.
std::array<std::string, kFieldRows> FieldRowLabels() {
  std::array<std::string, kFieldRows> labels;
  for (int low = 1; low <= 6; ++low) {
    for (int high = low; high <= 6; ++high) {
      labels[static_cast<std::size_t>(FieldRowOfDice(low, high))] =
          std::to_string(low + high) + " (" + std::to_string(low) + '-' + std::to_string(high) +
          ')';
    }
  }
  return labels;
}

// A length of time in hours as hours, minutes and seconds.
std::string ClockText(double hours) {
  double seconds = std::round(hours * 3600 * 100) / 100;
  const double whole_hours = std::floor(seconds / 3600);
  seconds -= whole_hours * 3600;
  const double minutes = std::floor(seconds / 60);
  seconds -= minutes * 60;
  return FormatNumber(whole_hours, "0") + ':' + FormatNumber(minutes, "00") + ':' +
         FormatNumber(seconds, "00.0#");
}

}  // namespace

Rows PayoffRows(const Game& game) {
  Rows rows;
  for (const int bet : kPayoffGrid) {
    rows.push_back(PayoffRow(PayoffLabel(bet), game.PayTable[static_cast<std::size_t>(bet)]));
  }
  const auto labels = FieldRowLabels();
  for (std::size_t row = 1; row < kFieldRows; ++row) {
    rows.push_back(PayoffRow(labels[row], game.FieldPayTable[row]));
  }
  return rows;
}

Rows AdvantageRows(const Game& game) {
  Rows rows;
  if (game.ShowMiscData) {
    rows.push_back({"", "Rolls/Dec", "Decs/Roll", "Decs/Hour", "Decs/Min", "Time/Dec"});
  } else {
    rows.push_back({"All figures shown in percentage", "EV/Roll", "StDev/Roll", "EV/Dec",
                    "StDev/Dec", "EV/Hour"});
  }
  const double rate = game.RollsPerHour.ToDouble();
  const auto figure = [](double value) { return FormatNumber(value, "0.00;-0.00;0.00"); };
  for (int bet = 1; bet <= kBetCount; ++bet) {
    const Advantage worth = FigureAdvantage(game, bet);
    const double rolls = worth.rolls_per_decision;
    Row row = {PayoffLabel(bet)};
    if (!game.ShowMiscData) {
      for (const double value :
           {worth.ev_per_roll * 100, worth.deviation_per_roll * 100, worth.ev_per_decision * 100,
            worth.deviation_per_decision * 100, worth.ev_per_roll * 100 * rate}) {
        row.push_back(figure(value));
      }
    } else if (rolls == 0) {
      row.insert(row.end(), 5, "0.00");
    } else {
      for (const double value : {rolls, 1 / rolls, rate / rolls, rate / 60 / rolls}) {
        row.push_back(figure(value));
      }
      row.push_back(rate == 0 ? "0.00" : ClockText(rolls / rate));
    }
    rows.push_back(row);
  }
  return rows;
}

}  // namespace feltmaster
