#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>

#include "config/payoffs.h"
#include "console/house_settings.h"
#include "console/text_table.h"
#include "console/verbs.h"
#include "view/rules_rows.h"

namespace feltmaster {

namespace {

using Json = nlohmann::ordered_json;

struct PayoffsOptions {
  std::vector<std::string> settings;
  bool json = false;
};

Json PayRowJson(const PayRow& row) {
  return {{"pays", ShownNumerator(row).ToDouble()},
          {"word", row.PayIsTo ? "to" : "for"},
          {"on", row.PayDenominator.ToDouble()},
          {"net", row.PayNumerator.ToDouble()}};
}

std::string PayoffsJson(const Game& game) {
  Json bets = Json::array();
  for (const int bet : kPayoffGrid) {
    Json entry = {{"bet", bet}, {"name", PayoffLabel(bet)}};
    entry.update(PayRowJson(game.PayTable[static_cast<std::size_t>(bet)]));
    bets.push_back(entry);
  }
  Json field = Json::array();
  for (int low = 1; low <= 6; ++low) {
    for (int high = low; high <= 6; ++high) {
      Json entry = {{"dice", {low, high}}};
      entry.update(
          PayRowJson(game.FieldPayTable[static_cast<std::size_t>(FieldRowOfDice(low, high))]));
      field.push_back(entry);
    }
  }
  return Json({{"bets", bets}, {"field", field}}).dump(2) + '\n';
}

std::string PayoffsText(const Game& game) {
  const Rows rows = PayoffRows(game);
  const auto field = rows.begin() + kPayoffGridRows;
  return TextTable(Rows(rows.begin(), field)) + "\nField\n" + TextTable(Rows(field, rows.end()));
}

// Gives the complaint, or an empty text.
std::string RunPayoffs(const PayoffsOptions& options) {
  const auto game = std::make_unique<Game>();
  if (std::string fault = OpenHouse(*game, options.settings); !fault.empty()) return fault;
  std::cout << (options.json ? PayoffsJson(*game) : PayoffsText(*game)) << std::flush;
  return std::cout ? "" : "cannot write standard output.";
}

constexpr const char* kExamples =
    R"(A bet that pays "7 to 6" wins 7 on 6 staked and keeps the stake; one that pays "7 for 6" gets 7 back
in all. "Pass/Come 4" pays the Pass Line and Come bets once 4 is their number.

Examples:
  feltmaster payoffs
  feltmaster payoffs --set "PayTable(57,1)=8"
  feltmaster payoffs --set "FieldPayTable(21,1)=3" --json

The number of a bet is its index in PayTable; the rows of FieldPayTable are the 21 pairs of dice in
the order in which they are listed.
)";

}  // namespace

void AddPayoffsVerb(Verb program) {
  const Verb verb = program.Sub("payoffs", "Lists what each bet and each roll of the Field pays");
  verb.Footer(kExamples);
  const auto options = std::make_shared<PayoffsOptions>();
  verb.Add("--set", options->settings,
           "A payoff or other setting, such as \"PayTable(36,1)=8\"; may be repeated")
      .Takes("NAME=VALUE");
  verb.Flag("--json", options->json, "Prints the payoffs as JSON");
  verb.RunsOrComplains([options] { return RunPayoffs(*options); });
}

}  // namespace feltmaster
