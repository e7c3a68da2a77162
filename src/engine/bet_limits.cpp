#include "engine/bet_limits.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <initializer_list>
#include <limits>
#include <numeric>
#include <optional>

#include "engine/amounts.h"

namespace feltmaster {
namespace {

const PayRow& RowOf(const Game& game, int bet) {
  return game.PayTable[static_cast<std::size_t>(bet)];
}

MoneyAmount FloorToBettingUnit(const Game& game, MoneyAmount amount) {
  return FloorToUnit(amount, BettingUnit(game));
}

[[gnu::noinline]] void WorkOutPlacard(Game& game, MoneyAmount unit) {
  PlacardLimits& limits = game.Placard;
  limits.minimum = FloorToUnit(game.MinPlacardBet, unit);
  if (limits.minimum < game.MinPlacardBet) limits.minimum += unit;
  limits.maximum = FloorToUnit(game.MaxPlacardBet, unit);
  limits.unit = unit;
  limits.min_placard = game.MinPlacardBet;
  limits.max_placard = game.MaxPlacardBet;
}

// The limits of the placard in whole betting units.
const PlacardLimits& PlacardInUnits(Game& game) {
  const PlacardLimits& limits = game.Placard;
  const MoneyAmount unit = BettingUnit(game);
  const bool known = limits.unit == unit && limits.min_placard == game.MinPlacardBet &&
                     limits.max_placard == game.MaxPlacardBet && unit.Raw() != 0;
  if (!known) [[unlikely]]
    WorkOutPlacard(game, unit);
  return limits;
}

// Whether row a pays more than row b, compared exactly.
bool PaysMore(const PayRow& a, const PayRow& b) {
  if (a.PayDenominator.Raw() == 0 || b.PayDenominator.Raw() == 0) throw MoneyDivisionByZero();
  const __int128 left = static_cast<__int128>(a.PayNumerator.Raw()) * b.PayDenominator.Raw();
  const __int128 right = static_cast<__int128>(b.PayNumerator.Raw()) * a.PayDenominator.Raw();
  const bool turned = (a.PayDenominator.Raw() < 0) != (b.PayDenominator.Raw() < 0);
  return turned ? left < right : left > right;
}

const PayRow& BestRow(const Game& game, std::initializer_list<int> bets) {
  const PayRow* best = &RowOf(game, *bets.begin());
  for (const int bet : bets) {
    if (PaysMore(RowOf(game, bet), *best)) best = &RowOf(game, bet);
  }
  return *best;
}

// A prop bet may win about three times the table maximum, and each part of a split bet as much. A
// row that wins nothing sets no limit.
MoneyAmount MaxByPayoff(const Game& game, std::int64_t parts, const PayRow& row) {
  const std::int64_t numerator = row.PayNumerator.Raw();
  const std::int64_t denominator = row.PayDenominator.Raw();
  if (denominator == 0) throw MoneyDivisionByZero();
  if (numerator == 0 || (numerator < 0) != (denominator < 0)) return game.MaxPlacardBet;
  return Ratio(game.MaxPlacardBet.Times(3 * parts), row.PayDenominator, row.PayNumerator);
}

MoneyAmount MaxPropBet(const Game& game, int bet) {
  switch (bet) {
    case kCAndE:
      return MaxByPayoff(game, 2, BestRow(game, {kCraps, kEleven}));
    case kHorn:
      return MaxByPayoff(game, 4, BestRow(game, {kTwo, kThree, kEleven, kTwelve}));
    case kWorld:
      return MaxByPayoff(game, 5, BestRow(game, {kTwo, kThree, kSeven, kEleven, kTwelve}));
    default:
      return MaxByPayoff(game, 1, RowOf(game, bet));
  }
}

// The entry of OddsAllowed of each number slot.
constexpr std::array<std::uint8_t, kSlotCount> kOddsGroup = {0, 1, 2, 3, 4, 4, 3, 2, 1, 0};

MoneyAmount OddsMultipleOf(const Game& game, int number) {
  const int slot = SlotOfNumber(number);
  return game.OddsAllowed[kOddsGroup[static_cast<std::size_t>(slot)]];
}

std::int32_t OddsMethodFor(const Game& game) {
  if (game.OddsCalcMethod != kAutoSelect) return game.OddsCalcMethod;
  const MoneyAmount multiple = game.OddsMultiple;
  if (!multiple.IsWhole() || multiple < MoneyAmount(1)) return kFlatNoPush;
  if (multiple == MoneyAmount(1)) return kFlatSingleOdds;
  return multiple == MoneyAmount(3) ? kSingleOddsTimes : kFlatColorPush;
}

// The odds over one flat bet: what the multiple allows, and the bound that a push stays under.
struct OddsOffer {
  MoneyAmount flat;
  MoneyAmount allowed;
  MoneyAmount bound;
  MoneyAmount numerator;
  MoneyAmount denominator;
};

MoneyAmount PushToProperUnit(const Game& game, const OddsOffer& odds) {
  const MoneyAmount proper = Product(BettingUnit(game), odds.denominator);
  MoneyAmount amount = FloorToUnit(odds.allowed, proper);
  if (amount < odds.allowed && amount + proper < odds.bound) amount += proper;
  return amount.Raw() == 0 ? odds.allowed : amount;
}

std::int64_t Magnitude(std::int64_t value) {
  if (value == std::numeric_limits<std::int64_t>::min()) throw MoneyOverflow();
  return value < 0 ? -value : value;
}

// The first of allowed, allowed + 1, allowed + 2, ... whose payoff is a whole number of chips;
// nothing when none is.
//
// The payoff a / denominator * numerator is whole chips exactly where a is a multiple of
//   step = denominator * chip / gcd(numerator, denominator * chip),
// so it is enough to look at the multiples of step. How far they lie from a whole dollar repeats
// after kScale / gcd(step, kScale) of them, which bounds the search for any setting.
template <typename Integer>
std::optional<MoneyAmount> FirstInWholeChips(std::int64_t allowed, std::int64_t numerator,
                                             Integer chips) {
  const Integer step = chips / std::gcd(numerator, static_cast<std::int64_t>(chips % numerator));
  const std::int64_t period =
      MoneyAmount::kScale /
      std::gcd(MoneyAmount::kScale, static_cast<std::int64_t>(step % MoneyAmount::kScale));
  Integer candidate = (allowed + step - 1) / step * step;
  for (std::int64_t i = 0; i < period; ++i, candidate += step) {
    if (candidate > std::numeric_limits<std::int64_t>::max()) break;
    if ((candidate - allowed) % MoneyAmount::kScale == 0) {
      return MoneyAmount::FromRaw(static_cast<std::int64_t>(candidate));
    }
  }
  return std::nullopt;
}

std::optional<MoneyAmount> FirstInWholeChips(const OddsOffer& odds, MoneyAmount chip) {
  const std::int64_t allowed = odds.allowed.Raw();
  const std::int64_t numerator = Magnitude(odds.numerator.Raw());
  const __int128 chips =
      static_cast<__int128>(Magnitude(odds.denominator.Raw())) * Magnitude(chip.Raw());
  if (chips == 0) throw MoneyDivisionByZero();
  if (numerator == 0) return odds.allowed;
  // A whole search over such amounts stays within 64 bits.
  constexpr std::int64_t kSmallChips = std::int64_t{1} << 48;
  constexpr std::int64_t kSmallAmount = std::int64_t{1} << 60;
  if (chips < kSmallChips && -kSmallAmount < allowed && allowed < kSmallAmount) {
    return FirstInWholeChips(allowed, numerator, static_cast<std::int64_t>(chips));
  }
  return FirstInWholeChips(allowed, numerator, chips);
}

MoneyAmount PushToChips(const OddsOffer& odds, MoneyAmount chip) {
  if (UnitsIn(odds.flat, chip) <= 1) return odds.allowed;
  return FirstInWholeChips(odds, chip).value_or(odds.allowed);
}

// The large chips push only where the flat bet is a round sum.
MoneyAmount PushToColor(const Game& game, const OddsOffer& odds) {
  static constexpr std::array<MoneyAmount, kChipCount> kRoundFlat = {
      MoneyAmount(), MoneyAmount(), MoneyAmount(5), MoneyAmount(25), MoneyAmount(100)};
  for (int chip = kChipCount - 1; chip > 0; --chip) {
    const MoneyAmount round = kRoundFlat[static_cast<std::size_t>(chip)];
    if (round.Raw() != 0 && !IsMultipleOf(odds.flat, round)) continue;
    const MoneyAmount amount = PushToChips(odds, game.BetAmount[kFirstChip + chip]);
    if (amount > odds.allowed && amount < odds.bound) return amount;
  }
  return PushToChips(odds, BettingUnit(game));
}

// The chips that a stack of `count` has to grow to, to be paid in whole chips.
MoneyAmount ChipsToPay(std::int64_t count, MoneyAmount denominator) {
  const MoneyAmount chips = MoneyAmount::FromWhole(count);
  if (chips.Times(2) <= denominator) return MoneyAmount();
  if (IsMultipleOf(chips, denominator)) return chips;
  return denominator.Times(UnitsIn(chips, denominator) + 1);
}

// The largest odds that any one colour of chips makes of an amount.
MoneyAmount LargestSingleOdds(const Game& game, MoneyAmount amount, MoneyAmount denominator) {
  MoneyAmount largest;
  for (int slot = kFirstChip; slot <= kLastChip; ++slot) {
    const MoneyAmount chip = game.BetAmount[slot];
    largest = std::max(largest, Product(ChipsToPay(UnitsIn(amount, chip), denominator), chip));
  }
  return largest;
}

MoneyAmount OddsByMethod(const Game& game, const OddsOffer& odds) {
  switch (OddsMethodFor(game)) {
    case kFlatMinorPush:
      return PushToProperUnit(game, odds);
    case kFlatColorPush:
      return PushToColor(game, odds);
    case kFlatSingleOdds:
      return std::max(odds.allowed, LargestSingleOdds(game, odds.allowed, odds.denominator));
    case kSingleOddsTimes:
      return std::max(odds.allowed, Product(LargestSingleOdds(game, odds.flat, odds.denominator),
                                            game.OddsMultiple));
    default:
      return odds.allowed;
  }
}

// The row by whose denominator a bet pays, now that it has its point.
const PayRow& PayingRow(const Game& game, int bet) {
  if (bet == kPassLine) {
    return RowOf(game, game.Point == 0 ? kComeBox : BetOnNumber(kComePoint, game.Point));
  }
  if (bet == kPassOdds && game.Point != 0) {
    return RowOf(game, BetOnNumber(kComeOdds, game.Point));
  }
  return RowOf(game, bet);
}

bool IsOdds(int bet) {
  return bet == kPassOdds || IsComeOdds(bet);
}

// Makes a betting unit the smallest amount that pays off in such units. False, and nothing done,
// when the denominator has a fraction that does not divide the unit.
bool ToProperUnit(MoneyAmount& unit, MoneyAmount denominator) {
  if (denominator.IsWhole()) {
    unit = unit.Times(denominator.FloorWhole());
    return true;
  }
  const MoneyAmount fraction = denominator - MoneyAmount::FromWhole(denominator.FloorWhole());
  if (!IsMultipleOf(unit, fraction)) return false;
  unit = denominator.Times(UnitsIn(unit, fraction));
  return true;
}

// The proper unit in the largest chips of which the amount holds more than one and that it can pay
// for, or `proper` when there are none.
MoneyAmount ColorUnit(const Game& game, MoneyAmount amount, MoneyAmount denominator,
                      MoneyAmount proper) {
  for (int slot = kLastChip; slot >= kFirstChip; --slot) {
    const MoneyAmount chip = game.BetAmount[slot];
    if (chip.Raw() <= 0 || chip >= amount || !IsMultipleOf(amount, chip)) continue;
    const MoneyAmount unit = Product(chip, denominator);
    if (unit <= amount) return unit;
  }
  return proper;
}

std::int32_t BiasOf(const Game& game, int bet) {
  if (IsLay(bet)) return game.LayBias;
  if (IsPlace(bet)) return game.PlaceBias;
  return IsOdds(bet) ? game.DoBias : std::int32_t{kNearest};
}

// Which of two changes comes nearest to what was meant. `change` is the change so far.
MoneyAmount ChosenChange(std::int32_t bias, MoneyAmount amount, MoneyAmount change, MoneyAmount up,
                         MoneyAmount down) {
  const MoneyAmount none;
  if (bias == kIncrease) return change < none ? down : up;
  if (bias == kDecrease) {
    const bool rises =
        change != none && (down <= none || change <= none) && (up != none || change >= none);
    return rises ? up : down;
  }
  if (change != none) {
    if (up != none && IsMultipleOf(amount + up, change)) return up;
    if (down != none && IsMultipleOf(amount + down, change)) return down;
  }
  if (down <= none && change > none) return up;
  if (up >= none && change < none) return down;
  return Abs(up - change) <= Abs(change - down) ? up : down;
}

enum class Rounding { kAsSet, kAlwaysMinor };

// Brings a bet that does not pay off in betting units to a multiple of its proper unit. False when
// the limits leave no room for a correction by colour.
[[gnu::noinline]] bool CorrectChange(Game& game, int bet, BetNotes& notes, Rounding rounding,
                                     MoneyAmount proper, MoneyAmount denominator) {
  const MoneyAmount amount = game.BetAmount[bet];
  const MoneyAmount change = game.BetChange;
  MoneyAmount& up = game.OddsChangeUp;
  MoneyAmount& down = game.OddsChangeDown;
  const bool by_color = rounding == Rounding::kAsSet &&
                        game.AutoAdjustBetAmounts == kColorCorrection &&
                        !(IsOdds(bet) && amount + change == game.MaxBetHere);
  down = FloorToUnit(amount + change, proper) - amount;
  up = down + proper;
  if (by_color && denominator > MoneyAmount(1)) {
    proper = ColorUnit(game, change.Raw() == 0 ? amount : Abs(change), denominator, proper);
    if (!IsMultipleOf(amount + change, proper)) {
      up = FloorToUnit(amount + change, proper) + proper - amount;
    }
    down = FloorToUnit(amount + down, proper) - amount;
  }

  const bool too_high = amount + up > game.MaxBetHere;
  const bool too_low = amount + down < game.MinBetHere;
  if (too_high && too_low) {
    if (change.Raw() < 0) {
      notes.Clear();
      game.BetChange = -amount;
    } else if (by_color) {
      return false;
    } else {
      notes.Add(BetNotes::kNoProperOdds);
      game.BetChange = game.MaxBetHere - amount;
    }
    return true;
  }

  MoneyAmount chosen = ChosenChange(BiasOf(game, bet), amount, change, up, down);
  if (chosen == down && too_low) chosen = !too_high && change.Raw() > 0 ? up : -amount;
  if (amount + chosen > game.MaxBetHere) chosen = down;
  if (amount + chosen < game.MinBetHere && chosen != -amount) chosen = up;

  if (notes.TellMaximum() || too_high) notes.Add(BetNotes::kProperMaximum, amount + chosen);
  if (notes.TellMinimum() || (change.Raw() < 0 && chosen.Raw() == 0)) {
    if (chosen == -amount) {
      notes.Clear();
    } else {
      notes.Add(BetNotes::kProperMinimum, amount + chosen);
    }
  }
  game.BetChange = chosen;
  return true;
}

// False when another kind of rounding has to be tried.
bool TryAdjust(Game& game, int bet, BetNotes& notes, Rounding rounding) {
  const MoneyAmount denominator = PayingRow(game, bet).PayDenominator;
  if (bet == kField && denominator.Raw() == 0) return true;  // a Field that decides nothing
  game.OddsChangeUp = game.OddsChangeDown = game.BetChange;
  MoneyAmount proper = BettingUnit(game);
  if (!ToProperUnit(proper, denominator)) notes.Add(BetNotes::kNoProperOdds);
  if (IsMultipleOf(game.BetAmount[bet] + game.BetChange, proper)) return true;
  return CorrectChange(game, bet, notes, rounding, proper, denominator);
}

void SetMinimum(Game& game, int bet, const PlacardLimits& placard) {
  game.MinBetHere = bet >= kHard4 ? placard.unit : placard.minimum;
}

// Of the bets that the placard does not limit by itself: odds, and from the hard ways on.
[[gnu::noinline]] MoneyAmount OwnMaximum(Game& game, int bet) {
  if (bet >= kHard4) return FloorToBettingUnit(game, MaxPropBet(game, bet));
  const PayRow& row = RowOf(game, bet);
  ComputeMaxOdds(game, bet, bet == kPassOdds ? kPassLine : bet - kComeOdds + kComePoint,
                 row.PayNumerator, row.PayDenominator);
  return game.MaxBetHere;
}

void SetMaximum(Game& game, int bet, const PlacardLimits& placard) {
  MoneyAmount most = placard.maximum;
  if (bet >= kHard4 || IsOdds(bet)) most = std::min(most, OwnMaximum(game, bet));
  // No rule makes a bet negative, whatever a game file sets.
  game.MaxBetHere = std::max(most, MoneyAmount());
}

MoneyAmount RoundVig(MoneyAmount vig, MoneyAmount unit, std::int32_t rounding) {
  const MoneyAmount floor = FloorToUnit(vig, unit);
  const MoneyAmount rest = vig - floor;
  switch (rounding) {
    case kRoundDown:
      return floor;
    case kRoundUp:
      return rest.Raw() == 0 ? vig : floor + unit;
    default:
      return rest.Times(2) <= unit ? floor : floor + unit;
  }
}

// A vig that is charged at all is at least one betting unit.
MoneyAmount ChargedVig(const Game& game, MoneyAmount vig, MoneyAmount amount, MoneyAmount rate,
                       std::int32_t rounding) {
  const MoneyAmount unit = BettingUnit(game);
  vig = RoundVig(vig, unit, rounding);
  return amount.Raw() > 0 && rate.Raw() > 0 ? std::max(vig, unit) : vig;
}

}  // namespace

void ComputeLimits(Game& game, int bet) {
  const PlacardLimits& placard = PlacardInUnits(game);
  SetMinimum(game, bet, placard);
  SetMaximum(game, bet, placard);
}

void ComputeMinBet(Game& game, int bet) {
  SetMinimum(game, bet, PlacardInUnits(game));
}

void ComputeMaxBet(Game& game, int bet) {
  SetMaximum(game, bet, PlacardInUnits(game));
}

void ComputeMaxOdds(Game& game, int bet, int flat_bet, MoneyAmount numerator,
                    MoneyAmount denominator) {
  const int number = bet == kPassOdds ? game.Point : NumberOfSlot(bet - kComeOdds);
  if (number != 0) game.OddsMultiple = OddsMultipleOf(game, number);

  OddsOffer odds;
  odds.flat = game.BetAmount[flat_bet];
  odds.allowed = Product(game.OddsMultiple, odds.flat);
  odds.bound = odds.allowed + odds.flat;
  odds.numerator = numerator;
  odds.denominator = denominator;
  game.MaxBetHere = std::min(OddsByMethod(game, odds), FloorToBettingUnit(game, game.MaxOddsBet));
  game.MaxBetHere = FloorToBettingUnit(game, game.MaxBetHere);
}

void AutoAdjustBet(Game& game, int bet, BetNotes& notes) {
  if (game.BetChange <= -game.BetAmount[bet]) return;
  if (!TryAdjust(game, bet, notes, Rounding::kAsSet)) {
    TryAdjust(game, bet, notes, Rounding::kAlwaysMinor);
  }
}

void ComputeBuyVig(Game& game, int bet, MoneyAmount amount) {
  game.BuyVigAmount = MoneyAmount();
  if (!IsBuy(bet)) return;
  game.BuyVigAmount = ChargedVig(game, Product(amount, game.BuyVigPct), amount, game.BuyVigPct,
                                 game.BuyVigRounding);
}

void ComputeLayVig(Game& game, int bet, MoneyAmount amount) {
  game.LayVigAmount = MoneyAmount();
  if (!IsLay(bet)) return;
  const PayRow& row = RowOf(game, bet);
  // One rounding at the end: the rate as a count of ten-thousandths, their scale divided out.
  const MoneyAmount vig = Ratio(amount.Times(game.LayVigPct.Raw()), row.PayNumerator,
                                row.PayDenominator.Times(MoneyAmount::kScale));
  game.LayVigAmount =
      ChargedVig(game, std::max(vig, MoneyAmount()), amount, game.LayVigPct, game.LayVigRounding);
}

MoneyAmount VigOf(Game& game, int bet, MoneyAmount amount) {
  if (IsLay(bet)) {
    ComputeLayVig(game, bet, amount);
    return game.LayVigAmount;
  }
  if (IsBuy(bet)) {
    ComputeBuyVig(game, bet, amount);
    return game.BuyVigAmount;
  }
  return MoneyAmount();
}

}  // namespace feltmaster
