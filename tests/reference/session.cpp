// Random sessions, and commands in words.
#include "reference/session.h"

#include <array>
#include <cstddef>
#include <initializer_list>

#include "game/bets.h"

namespace reference {
namespace {

// A generator of its own, so that a seed means the same session with every library.
class Chance {
 public:
  explicit Chance(std::uint64_t seed) : state_(seed) {}

  std::uint64_t Word() {
    state_ += 0x9E3779B97F4A7C15u;
    std::uint64_t z = state_;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
    return z ^ (z >> 31);
  }
  int Below(int bound) { return static_cast<int>(Word() % static_cast<std::uint64_t>(bound)); }
  int Between(int low, int high) { return low + Below(high - low + 1); }
  bool OneIn(int n) { return Below(n) == 0; }
  template <typename Value>
  Value Of(std::initializer_list<Value> values) {
    return values.begin()[static_cast<std::size_t>(Below(static_cast<int>(values.size())))];
  }

 private:
  std::uint64_t state_;
};

constexpr std::array<Raw, 5> kUnits = {10'000, 2'500, 50'000, 10'000, 15'000};

class Script {
 public:
  Script(std::uint64_t seed, const SessionKind& kind) : chance_(seed), fractions_(kind.fractions) {
    Opening();
    // Some sessions bet a lot, some roll a lot; in some the seven is rare, so that many bets stand.
    const int commands_per_roll = chance_.Of({0, 1, 1, 2, 4});
    const int sevens_kept = chance_.Of({1, 1, 4, 20});
    for (int roll = 0; roll < kind.rolls; ++roll) {
      for (int i = chance_.Below(commands_per_roll * 2 + 1); i > 0; --i) {
        Bet();
        if (kind.settles) Add({Verb::kSettle});
      }
      if (chance_.OneIn(12)) Rule();
      if (chance_.OneIn(150)) Graph();
      Dice(sevens_kept);
      if (kind.settles || chance_.OneIn(70)) Add({Verb::kSettle});
    }
    Add({Verb::kSettle});
  }

  std::vector<Command> Commands() && { return std::move(commands_); }

 private:
  void Add(const Command& command) { commands_.push_back(command); }
  void Set(Setting setting, Raw value, int cell = 0) {
    Add({Verb::kSet, static_cast<int>(setting), cell, value, 0});
  }

  void Opening() {
    const int chips = chance_.Of({0, 0, 0, 1, 2, 3, 4});
    unit_ = kUnits[static_cast<std::size_t>(chips)];
    Add({Verb::kDenominations, chips, 0, 0, 0});
    Add({Verb::kBankroll, 0, 0, chance_.Of<Raw>({0, 100, 1000, 5000, 250'000}) * kOne, 0});
    for (int i = chance_.Below(30); i > 0; --i) Rule();
    // A player who cannot go into debt and bets what there is.
    if (chance_.OneIn(4)) {
      Add({Verb::kBankroll, 0, 0, chance_.Of<Raw>({50, 200, 600}) * kOne, 0});
      Set(Setting::kAllowNegBankroll, 0);
    }
    for (int i = chance_.Below(4); i > 0; --i) Graph();
    // The commonest strategies leave bets standing.
    if (chance_.OneIn(2)) Set(Setting::kHandleWinningBets, 2);
    if (chance_.OneIn(3)) Set(Setting::kHandleLosingBets, 3);
  }

  void Dice(int sevens_kept) {
    int die1 = chance_.Between(1, 6);
    int die2 = chance_.Between(1, 6);
    if (die1 + die2 == 7 && !chance_.OneIn(sevens_kept)) die2 = die1;
    Add({Verb::kRoll, die1, die2, 0, 0});
  }

  int AnyBet() {
    switch (chance_.Below(10)) {
      case 0:
      case 1:
        return chance_.Of({51, 51, 52, 53, 53});
      case 2:
        return chance_.Between(1, 10);
      case 3:
        return chance_.Between(11, 30);
      case 4:
        return chance_.Between(31, 40);
      case 5:
        return chance_.Between(41, 50);
      case 6:
        return chance_.Between(54, 60);
      case 7:
        return chance_.Between(61, 71);
      default:
        return chance_.Between(1, 88);
    }
  }

  // Mostly amounts that players bet, some odd ones, some far too large.
  Raw AnyAmount() {
    switch (chance_.Below(8)) {
      case 0:
        return unit_ * chance_.Between(1, 5);
      case 1:
        return unit_ * chance_.Of({5, 6, 10, 12, 20, 25, 30, 40, 50, 60, 100});
      case 2:
        return unit_ * chance_.Between(1, 200);
      case 3:
        return kOne * chance_.Of({5, 10, 25, 100});
      case 4:
        return 100 * chance_.Between(1, 20'000);
      case 5:
        return unit_ * chance_.Of({1000, 5000, 100'000});
      default:
        return unit_ * chance_.Of({1, 2, 5, 10, 15, 25});
    }
  }

  // Now and then as much as brings the bankroll to its limit.
  Raw AtmAmount(Raw amount) { return chance_.OneIn(40) ? 19'999'000 * kOne : amount; }

  void Bet() {
    const int bet = AnyBet();
    const Raw amount = AnyAmount();
    switch (chance_.Below(40)) {
      case 0:
        return Add({Verb::kTakeFullOdds, chance_.OneIn(3) ? 52 : chance_.Between(21, 30)});
      case 1:
        return Add({Verb::kTakeAllOdds});
      case 2:
        return Add({Verb::kTakeDown, bet});
      case 3:
        return chance_.OneIn(4) ? Add({Verb::kMoveCome, chance_.Below(10)}) : Bet();
      case 4:
        return Add({Verb::kBuyPlace, chance_.OneIn(5) ? bet : chance_.Between(31, 40)});
      case 5:
      case 6:
        return Add({Verb::kCall, bet, chance_.Below(2)});
      case 7:
        return chance_.OneIn(3) ? Add({Verb::kCallAll, 0, chance_.Below(2)}) : Bet();
      case 8:
        return chance_.OneIn(3) ? Add({Verb::kRemoveAll}) : Bet();
      case 9:
        return Add({Verb::kAdjustAll});
      case 10:
      case 11:
        return Add({Verb::kKeyIn, bet, 0, chance_.OneIn(4) ? 0 : amount});
      case 12:
        return Add({Verb::kWithdraw, 0, 0, AtmAmount(amount)});
      case 13:
        return Add({Verb::kDeposit, 0, 0, AtmAmount(amount)});
      case 14:
        return Add(
            {Verb::kPlaceChips, chance_.Between(100, 199), 0, chance_.OneIn(2) ? amount : -amount});
      case 15:
      case 16:
      case 17:
      case 18:
        return Add({Verb::kPlaceChips, bet, 0, -amount});
      case 19:
        return Add({Verb::kPlaceBet, bet, 0, chance_.OneIn(2) ? amount : -amount});
      case 20:
        return Add({Verb::kPlaceChips, bet, 0, 0});
      case 21:
        return Add({Verb::kResetCounters, chance_.Below(91)});
      default:
        return Add({Verb::kPlaceChips, bet, 0, amount});
    }
  }

  void Rule() {
    switch (chance_.Below(34)) {
      case 0:
        return Set(Setting::kMinPlacardBet, chance_.Of<Raw>({10'000, 50'000, 100'000, 7'500}));
      case 1:
        return Set(Setting::kMaxPlacardBet,
                   kOne * chance_.Of<Raw>({20, 100, 500, 1000, 1000, 5000}));
      case 2:
        return Set(Setting::kMaxOddsBet, kOne * chance_.Of<Raw>({5, 100, 777, 2000, 5000}));
      case 3:
      case 4:
        return Set(
            Setting::kOddsAllowed,
            chance_.Of<Raw>({0, 5'000, 10'000, 20'000, 25'000, 30'000, 40'000, 50'000, 1'000'000}),
            chance_.Below(5));
      case 5:
      case 6:
        return Set(Setting::kOddsCalcMethod, chance_.Below(6));
      case 7:
        return Set(Setting::kAllowPutBets, chance_.Below(2));
      case 8:
        return Set(Setting::kLayVigPct, chance_.Of<Raw>({0, 100, 400, 500, 500, 666, 1000}));
      case 9:
        return Set(Setting::kBuyVigPct, chance_.Of<Raw>({0, 100, 400, 500, 500, 475, 1000}));
      case 10:
        return Set(Setting::kAllowNegBankroll, chance_.Below(2));
      case 11:
      case 12:
        return Set(Setting::kHandleWinningBets, chance_.Below(8));
      case 13:
      case 14:
        return Set(Setting::kHandleLosingBets, chance_.Below(8));
      case 15:
        return Set(Setting::kHandleChoiceTag, chance_.Below(4), chance_.Between(4, 5));
      case 16:
        return Set(Setting::kHandleAmount,
                   chance_.Of<Raw>({0, 5'000, 10'000, 20'000, 33'300, 50'000, 500'000, 1'500'000}),
                   chance_.Between(4, 7));
      case 17: {
        // "%" is offered to the "Same Bet:" options alone.
        const int cell = chance_.Between(4, 7);
        const Raw units = chance_.Of<Raw>({0, 1, 2, 3, 4, 5, 6});
        return Set(Setting::kHandleUnits, cell >= 6 && units == 1 ? 0 : units, cell);
      }
      case 18:
        return Set(Setting::kAutoAdjust, chance_.Below(3));
      case 19:
        return Set(Setting::kLayBias, chance_.Below(3));
      case 20:
        return Set(Setting::kPlaceBias, chance_.Below(3));
      case 21:
        return Set(Setting::kDoBias, chance_.Below(3));
      case 22:
        return Set(Setting::kAutoTakeFullOdds, chance_.Below(2));
      case 23:
        return Set(Setting::kAutoRemovePlaceBets, chance_.Below(2));
      case 24:
        return Set(Setting::kAutoRolls, chance_.Of<Raw>({0, 1, 2, 30}));
      case 25:
      case 26: {
        const int bet = AnyBet();
        const bool listed = !(bet >= 11 && bet <= 20) && !(bet >= 51 && bet <= 53);
        return listed ? Add({Verb::kWorkOnComeOut, bet, chance_.Below(2)}) : Rule();
      }
      case 27:
        return Add({Verb::kChangeVig, chance_.Between(0, 1), 0, chance_.Below(3)});
      case 28:
      case 29:
        return Add({Verb::kChangeVig, chance_.Between(2, 3), 0, chance_.Below(2)});
      case 30:
        return PayRow();
      case 31:
        return FieldRow();
      case 32:
        return Add({Verb::kFieldPreset, chance_.Below(12)});
      default:
        return chance_.OneIn(3) ? Add({Verb::kDefaultPayoffs}) : Rule();
    }
  }

  Raw AnyDenominator() {
    const Raw whole = kOne * chance_.Of<Raw>({1, 1, 2, 3, 5, 6, 7, 11});
    if (!fractions_ || !chance_.OneIn(3)) return whole;
    return chance_.Of<Raw>({5'000, 12'000, 15'000, 24'000});
  }

  void PayRow() {
    const int row = AnyBet();
    // What the payoffs screen does not offer.
    if (row == 51 || row == 52 || row == 54 || (row >= 67 && row <= 69)) return PayRow();
    const Raw denominator = AnyDenominator();
    Raw numerator = chance_.Of<Raw>(
        {5'000, 10'000, 12'500, 17'500, 19'500, 20'000, 60'000, 70'000, 110'000, 300'000});
    // Limits are figured from the payoffs of the proposition bets, and odds at 0 to 1 would outlive
    // their point: those rows win something.
    const bool wins = row >= 57 || (row >= 21 && row <= 30);
    if (!wins && chance_.OneIn(10)) numerator = chance_.Of<Raw>({0, -denominator, -1'000});
    Add({Verb::kPayRow, row, chance_.Below(2), numerator, denominator});
  }

  void FieldRow() {
    const Raw denominator = AnyDenominator();
    const Raw numerator =
        chance_.Of<Raw>({-denominator, -denominator / 2, 0, 10'000, 27'500, denominator});
    Add({Verb::kFieldRow, chance_.Between(1, 21), chance_.Below(2), numerator, denominator});
  }

  void Graph() {
    switch (chance_.Below(9)) {
      case 0:
        Set(Setting::kGraphShowAverage, chance_.Below(2));
        return Add({Verb::kRebuildAverages});
      case 1:
      case 2:
        Set(Setting::kGraphAverageRolls, chance_.Of<Raw>({0, 1, 2, 50, 120, 500, 525}));
        return chance_.OneIn(3) ? void() : Add({Verb::kRebuildAverages});
      case 3:
        return Set(Setting::kGraphAdjustType, chance_.Below(3));
      case 4:
        return Set(Setting::kGraphManualScale,
                   chance_.Of<Raw>({200, 1'000, 10'000, 40'000, 10'000'000}));
      case 5:
        return Set(Setting::kGraphRefLines, chance_.Below(2));
      case 6:
        return Set(Setting::kRefLineRoll, chance_.Below(525), chance_.Between(1, 2));
      case 7:
        return Add({Verb::kRescanGraph});
      default:
        return Add({Verb::kDrawGraph, 0, chance_.Below(2)});
    }
  }

  Chance chance_;
  bool fractions_;
  Raw unit_ = kOne;
  std::vector<Command> commands_;
};

std::string Money(Raw raw) {
  const Raw size = raw < 0 ? -raw : raw;
  std::string decimals = std::to_string(kOne + size % kOne).substr(1);
  while (!decimals.empty() && decimals.back() == '0') decimals.pop_back();
  return (raw < 0 ? "-" : "") + std::to_string(size / kOne) + (decimals.empty() ? "" : ".") +
         decimals;
}

std::string NameOf(int bet) {
  if (bet > 99) return "stack " + std::to_string(bet - 100);
  return std::string(feltmaster::kBetName[static_cast<std::size_t>(bet)]);
}

std::string NameOf(Setting setting) {
  static constexpr const char* kNames[] = {
      "MinPlacardBet",     "MaxPlacardBet",       "MaxOddsBet",
      "OddsAllowed",       "OddsCalcMethod",      "AllowPutBets",
      "LayVigPct",         "BuyVigPct",           "AllowNegBankroll",
      "HandleWinningBets", "HandleLosingBets",    "HandleChoiceTag",
      "HandleAmount",      "HandleUnits",         "AutoAdjust",
      "LayBias",           "PlaceBias",           "DoBias",
      "AutoTakeFullOdds",  "AutoRemovePlaceBets", "AutoRolls",
      "GraphShowAverage",  "GraphAverageRolls",   "GraphAdjustType",
      "GraphManualScale",  "GraphRefLines",       "RefLineRoll",
  };
  static_assert(std::size(kNames) == static_cast<std::size_t>(Setting::kCount));
  return kNames[static_cast<std::size_t>(setting)];
}

}  // namespace

std::string Describe(const Command& c) {
  const std::string on = c.b != 0 ? " on" : " off";
  switch (c.verb) {
    case Verb::kRoll:
      return "roll " + std::to_string(c.a) + "-" + std::to_string(c.b);
    case Verb::kPlaceChips:
      return "PlaceChips " + NameOf(c.a) + ", " + Money(c.x);
    case Verb::kPlaceBet:
      return "PlaceBet " + NameOf(c.a) + ", " + Money(c.x);
    case Verb::kTakeFullOdds:
      return "TakeFullOdds " + NameOf(c.a);
    case Verb::kTakeAllOdds:
      return "TakeAllFullOdds";
    case Verb::kTakeDown:
      return "TakeDownBetQuietly " + NameOf(c.a);
    case Verb::kMoveCome:
      return "MoveComeBet to " + NameOf(11 + c.a);
    case Verb::kBuyPlace:
      return "BuyPlaceBet " + NameOf(c.a);
    case Verb::kCall:
      return "CallBet " + NameOf(c.a) + on;
    case Verb::kCallAll:
      return "CallAllBets" + on;
    case Verb::kRemoveAll:
      return "RemoveAllBets";
    case Verb::kAdjustAll:
      return "AdjustAllBets";
    case Verb::kKeyIn:
      return "key in " + NameOf(c.a) + " = " + Money(c.x);
    case Verb::kWithdraw:
      return "withdraw " + Money(c.x);
    case Verb::kDeposit:
      return "deposit " + Money(c.x);
    case Verb::kWorkOnComeOut:
      return "WorkOnComeOut " + NameOf(c.a) + on;
    case Verb::kSet: {
      const auto setting = static_cast<Setting>(c.a);
      return NameOf(setting) + "(" + std::to_string(c.b) + ") := raw " + std::to_string(c.x);
    }
    case Verb::kChangeVig:
      return "ChangeVigSetting " + std::to_string(c.a) + " := " + std::to_string(c.x);
    case Verb::kPayRow:
      return "payoff of " + NameOf(c.a) + " := " + Money(c.x) + " : " + Money(c.y);
    case Verb::kFieldRow:
      return "Field row " + std::to_string(c.a) + " := " + Money(c.x) + " : " + Money(c.y);
    case Verb::kFieldPreset:
      return "Field preset " + std::to_string(c.a);
    case Verb::kDefaultPayoffs:
      return "DefaultPayoffs";
    case Verb::kDenominations:
      return "denominations " + std::to_string(c.a);
    case Verb::kBankroll:
      return "bankroll " + Money(c.x);
    case Verb::kResetCounters:
      return "ResetScriptCounters " + std::to_string(c.a);
    case Verb::kRescanGraph:
      return "RescanGraphRange";
    case Verb::kRebuildAverages:
      return "RebuildAverages";
    case Verb::kDrawGraph:
      return std::string("DrawGraph") + (c.b != 0 ? " rescale" : "");
    case Verb::kSettle:
      return "compare everything";
  }
  return {};
}

std::vector<Command> RandomSession(std::uint64_t seed, const SessionKind& kind) {
  return Script(seed, kind).Commands();
}

}  // namespace reference
