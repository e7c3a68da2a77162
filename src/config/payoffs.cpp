#include "config/payoffs.h"

#include <array>
#include <cstdint>
#include <span>

#include "stats/bet_results.h"

namespace feltmaster {

namespace {

constexpr bool kTo = true;
constexpr bool kFor = false;

constexpr PayRow Pays(std::int64_t numerator, std::int64_t denominator, bool is_to = kTo) {
  return {MoneyAmount::FromWhole(numerator), is_to, MoneyAmount::FromWhole(denominator)};
}

struct Odds {
  std::int8_t numerator;
  std::int8_t denominator;
};
// By number slot: what one chance of a 7 before the number is worth, and what the house gives for
// a Place bet on it.
constexpr std::array<Odds, kSlotCount> kTrueOdds = {
    {{6, 1}, {3, 1}, {2, 1}, {3, 2}, {6, 5}, {6, 5}, {3, 2}, {2, 1}, {3, 1}, {6, 1}}};
constexpr std::array<Odds, kSlotCount> kPlaceOdds = {
    {{11, 2}, {11, 4}, {9, 5}, {7, 5}, {7, 6}, {7, 6}, {7, 5}, {9, 5}, {11, 4}, {11, 2}}};

struct RowsPay {
  int first;
  int last;
  PayRow pay;
};

// The rows that do not pay even money; the four families by number are told above.
constexpr auto kHouseRows = std::to_array<RowsPay>({
    {kHard4, kHard4, Pays(7, 1)},
    {kHard6, kHard8, Pays(9, 1)},
    {kHard10, kHard10, Pays(7, 1)},
    {kTwo, kTwo, Pays(30, 1)},
    {kThree, kThree, Pays(15, 1)},
    {kSeven, kSeven, Pays(4, 1)},
    {kEleven, kEleven, Pays(15, 1)},
    {kTwelve, kTwelve, Pays(30, 1)},
    {kCraps, kCraps, Pays(7, 1)},
    // The denominator is the number of parts into which the bet is split.
    {kCAndE, kCAndE, Pays(1, 2)},
    {kHorn, kHorn, Pays(1, 4)},
    {kWorld, kWorld, Pays(1, 5)},
    {kHop13, kHop55, Pays(15, 1)},
    {kHop22, kHop22, Pays(30, 1)},
    {kHop33, kHop33, Pays(30, 1)},
    {kHop44, kHop44, Pays(30, 1)},
    {kHop55, kHop55, Pays(30, 1)},
});

// Rows of FieldPayTable, one for each unordered pair, by total: 1-1, 1-2, 1-3, 2-2, 1-4, ...
constexpr int kFieldLast = kFieldRows - 1;
constexpr std::array<std::array<std::int8_t, 6>, 6> kFieldRow = {{
    {1, 2, 3, 5, 7, 10},
    {2, 4, 6, 8, 11, 13},
    {3, 6, 9, 12, 14, 16},
    {5, 8, 12, 15, 17, 18},
    {7, 11, 14, 17, 19, 20},
    {10, 13, 16, 18, 20, 21},
}};

// The presets: first what all rows take, then the rows that differ.
constexpr auto kFieldRowsOfField = std::to_array<RowsPay>({
    {1, 21, Pays(1, 1)},
    {5, 15, Pays(-1, 1)},
    {1, 1, Pays(2, 1)},
    {21, 21, Pays(2, 1)},
});
constexpr auto kPassLineRows = std::to_array<RowsPay>({
    {1, 21, Pays(-1, 11)},
    {1, 2, Pays(-1, 1)},
    {3, 4, Pays(-1, 3)},
    {5, 6, Pays(-1, 5)},
    {10, 12, Pays(1, 1)},
    {16, 17, Pays(-1, 5)},
    {18, 19, Pays(-1, 3)},
    {20, 20, Pays(1, 1)},
    {21, 21, Pays(-1, 1)},
});
constexpr auto kDontPassRows = std::to_array<RowsPay>({
    {1, 21, Pays(1, 11)},
    {1, 2, Pays(1, 1)},
    {3, 4, Pays(1, 3)},
    {5, 6, Pays(1, 5)},
    {10, 12, Pays(-1, 1)},
    {16, 17, Pays(1, 5)},
    {18, 19, Pays(1, 3)},
    {20, 20, Pays(-1, 1)},
    {21, 21, Pays(0, 1)},
});
constexpr auto kPlace6Rows = std::to_array<RowsPay>({
    {1, 21, Pays(0, 1)},
    {7, 9, Pays(7, 6)},
    {10, 12, Pays(-1, 1)},
});
constexpr auto kPlaceLose8Rows = std::to_array<RowsPay>({
    {1, 21, Pays(0, 1)},
    {10, 12, Pays(4, 5)},
    {13, 15, Pays(-5, 5)},
});
constexpr auto kBuy10Rows = std::to_array<RowsPay>({
    {1, 21, Pays(0, 1)},
    {10, 12, Pays(-1, 1)},
    {18, 19, Pays(39, 21)},
});
constexpr auto kLay4Rows = std::to_array<RowsPay>({
    {1, 21, Pays(0, 1)},
    {3, 4, Pays(-1, 1)},
    {10, 12, {MoneyAmount::FromRaw(4'750), kTo, MoneyAmount(1)}},
});
constexpr auto kHard8Rows = std::to_array<RowsPay>({
    {1, 21, Pays(0, 1)},
    {10, 14, Pays(-1, 1)},
    {15, 15, Pays(9, 1)},
});
constexpr auto kHornRows = std::to_array<RowsPay>({
    {1, 21, Pays(-1, 1)},
    {1, 1, Pays(27, 4, kFor)},
    {2, 2, Pays(12, 4, kFor)},
    {20, 20, Pays(12, 4, kFor)},
    {21, 21, Pays(27, 4, kFor)},
});
constexpr auto kWorldRows = std::to_array<RowsPay>({
    {1, 21, Pays(-1, 1)},
    {1, 1, Pays(26, 5, kFor)},
    {2, 2, Pays(11, 5, kFor)},
    {10, 12, Pays(0, 5, kFor)},
    {20, 20, Pays(11, 5, kFor)},
    {21, 21, Pays(26, 5, kFor)},
});
constexpr auto kHop13Rows = std::to_array<RowsPay>({
    {1, 21, Pays(-1, 1)},
    {3, 3, Pays(15, 1)},
});
constexpr auto kCraplessRows = std::to_array<RowsPay>({
    {1, 21, Pays(-1, 11)},
    {1, 1, Pays(-5, 7)},
    {2, 2, Pays(-1, 2)},
    {3, 4, Pays(-1, 3)},
    {5, 6, Pays(-1, 5)},
    {10, 12, Pays(1, 1)},
    {16, 17, Pays(-1, 5)},
    {18, 19, Pays(-1, 3)},
    {20, 20, Pays(-1, 2)},
    {21, 21, Pays(-5, 7)},
});

// In the order of FieldPreset.
constexpr std::array<std::span<const RowsPay>, 12> kFieldPresets = {
    kFieldRowsOfField, kPassLineRows, kDontPassRows, kPlace6Rows, kPlaceLose8Rows, kBuy10Rows,
    kLay4Rows,         kHard8Rows,    kHornRows,     kWorldRows,  kHop13Rows,      kCraplessRows,
};
static_assert(kFieldPresets.size() ==
              static_cast<std::size_t>(FieldPreset::kAsCraplessPassLine) + 1);

template <std::size_t kSize>
void Fill(std::array<PayRow, kSize>& table, std::span<const RowsPay> rows) {
  for (const RowsPay& row : rows) {
    for (int i = row.first; i <= row.last; ++i) table[static_cast<std::size_t>(i)] = row.pay;
  }
}

constexpr bool InPayoffGrid(int bet) {
  return bet != kPassLine && bet != kPassOdds && bet != kField && bet != kCAndE && bet != kHorn &&
         bet != kWorld;
}
constexpr std::array<int, kPayoffGridRows> PayoffGrid() {
  std::array<int, kPayoffGridRows> grid{};
  std::size_t rows = 0;
  for (int bet = 1; bet <= kBetCount; ++bet) {
    if (InPayoffGrid(bet)) grid[rows++] = bet;
  }
  return grid;
}

// numerator < -denominator, without a sum or a sign that could leave the range of an amount.
bool LosesMoreThanItsStake(const PayRow& row) {
  const bool negative = row.PayNumerator.Raw() < 0;
  if (negative == (row.PayDenominator.Raw() < 0)) return negative;
  return row.PayNumerator + row.PayDenominator < MoneyAmount();
}

}  // namespace

const std::array<int, kPayoffGridRows> kPayoffGrid = PayoffGrid();

constexpr std::array<FieldPresetEntry, 12> kFieldPresetMenu = {{
    {"mnuSFField", "&Field w/ 2x on Two and Twelve"},
    {"mnuSFPass", "&Pass Line"},
    {"mnuSFDontPass", "&Don't Pass (bar 12)"},
    {"mnuSFPlace6", "Place &6"},
    {"mnuSFPlaceLose8", "Place to &Lose 8"},
    {"mnuSFBuy10", "Buy &10 (5 % vig)"},
    {"mnuSFLay4", "Lay &4 (5% vig on win only)"},
    {"mnuSFHard8", "H&ard 8"},
    {"mnuSFHorn", "&Horn"},
    {"mnuSFWorld", "&World"},
    {"mnuSFHop13", "Hop 1-&3"},
    {"mnuSFCrapless", "&Crapless Craps Pass Line"},
}};
static_assert(kFieldPresetMenu.size() == kFieldPresets.size());
static_assert(PayoffGrid().back() == kBetCount);

void DefaultPayoffs(Game& game) {
  SettlePhantoms(game);
  for (int bet = 1; bet <= kBetCount; ++bet) {
    game.PayTable[static_cast<std::size_t>(bet)] = Pays(1, 1);
  }
  for (std::size_t slot = 0; slot < kSlotCount; ++slot) {
    const PayRow odds = Pays(kTrueOdds[slot].numerator, kTrueOdds[slot].denominator);
    game.PayTable[kLay + slot] = {odds.PayDenominator, kTo, odds.PayNumerator};
    game.PayTable[kComeOdds + slot] = odds;
    game.PayTable[kBuy + slot] = odds;
    game.PayTable[kPlace + slot] = Pays(kPlaceOdds[slot].numerator, kPlaceOdds[slot].denominator);
  }
  Fill(game.PayTable, kHouseRows);
  if (game.Point != 0) CopyPointOddsRow(game);
  Fill(game.FieldPayTable, kFieldRowsOfField);
}

void CopyPointOddsRow(Game& game) {
  game.PayTable[kPassOdds] =
      game.PayTable[static_cast<std::size_t>(BetOnNumber(kComeOdds, game.Point))];
}

int FieldRowOfDice(int die1, int die2) {
  return kFieldRow[static_cast<std::size_t>(die1 - 1)][static_cast<std::size_t>(die2 - 1)];
}

void SetFieldPayoffs(Game& game, FieldPreset preset) {
  SettlePhantoms(game);
  Fill(game.FieldPayTable, kFieldPresets[static_cast<std::size_t>(preset)]);
}

std::string PayoffLabel(int bet) {
  const std::string number =
      bet <= kBuy ? std::to_string(NumberOfSlot((bet - 1) % kSlotCount)) : "";
  if (IsComePoint(bet)) return "Pass/Come " + number;
  if (IsComeOdds(bet)) return "Pass/Come " + number + " Odds";
  if (bet == kPassLine) return "Passline/Come";
  if (bet == kPassOdds) return "Passline/Come Odds";
  if (bet == kComeBox) return "Passline/Come (c.o.)";
  return std::string(kBetName[static_cast<std::size_t>(bet)]);
}

PayoffFault FindPayoffFault(const Game& game) {
  const std::string complaint = "Payoff ratio error on ";
  for (int row = 1; row <= kPayoffGridRows; ++row) {
    const int bet = kPayoffGrid[static_cast<std::size_t>(row - 1)];
    if (!LosesMoreThanItsStake(game.PayTable[static_cast<std::size_t>(bet)])) continue;
    // Odds go by the name of the bet here, not by the label of their row.
    const bool by_label = IsComePoint(bet) || bet == kComeBox;
    return {complaint + (by_label ? PayoffLabel(bet)
                                  : std::string(kBetName[static_cast<std::size_t>(bet)])),
            false, row};
  }
  for (int row = 1; row <= kFieldLast; ++row) {
    if (LosesMoreThanItsStake(game.FieldPayTable[static_cast<std::size_t>(row)])) {
      return {complaint + "Field", true, row};
    }
  }
  return {};
}

void SetFieldCommonDenominator(Game& game) {
  MoneyAmount common;
  for (int row = 1; row <= kFieldLast; ++row) {
    const PayRow& pay = game.FieldPayTable[static_cast<std::size_t>(row)];
    if (pay.PayNumerator.Raw() == 0) continue;
    if (common.Raw() == 0) common = pay.PayDenominator;
    if (common != pay.PayDenominator) {
      common = MoneyAmount(1);
      break;
    }
  }
  game.PayTable[kField].PayDenominator = common;
}

MoneyAmount ShownNumerator(const PayRow& row) {
  return row.PayIsTo ? row.PayNumerator : row.PayNumerator + row.PayDenominator;
}

void EnterNumerator(PayRow& row, MoneyAmount shown) {
  row.PayNumerator = row.PayIsTo ? shown : shown - row.PayDenominator;
}

void EnterWord(PayRow& row, bool is_to) {
  const MoneyAmount shown = ShownNumerator(row);
  row.PayIsTo = is_to;
  EnterNumerator(row, shown);
}

void EnterDenominator(PayRow& row, MoneyAmount denominator) {
  if (denominator.Raw() <= 0) return;
  const MoneyAmount shown = ShownNumerator(row);
  row.PayDenominator = denominator;
  EnterNumerator(row, shown);
}

}  // namespace feltmaster
