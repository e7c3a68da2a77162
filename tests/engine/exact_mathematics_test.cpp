// What every bet is worth on a crapless table, from the mathematics, against what the engine pays
// over the 36 rolls, and the figures of the advantage against those payments.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <memory>
#include <numeric>
#include <vector>

#include "config/advantage.h"
#include "engine/amounts.h"
#include "engine/place_bet.h"
#include "engine/roll_cycle.h"
#include "engine/start_up.h"
#include "surface/null_surface.h"

namespace feltmaster {
namespace {

struct Fraction {
  std::int64_t top = 0;
  std::int64_t bottom = 1;

  friend Fraction operator+(Fraction a, Fraction b) {
    return Reduced(a.top * b.bottom + b.top * a.bottom, a.bottom * b.bottom);
  }
  friend Fraction operator*(Fraction a, Fraction b) {
    return Reduced(a.top * b.top, a.bottom * b.bottom);
  }
  friend bool operator==(const Fraction&, const Fraction&) = default;
  friend std::ostream& operator<<(std::ostream& out, Fraction f) {
    return out << f.top << '/' << f.bottom;
  }

  static Fraction Reduced(std::int64_t top, std::int64_t bottom) {
    const std::int64_t common = std::gcd(top, bottom);
    return {top / common, bottom / common};
  }
};

// A bet with an amount that every payoff of its own is whole on, how many of the 36 rolls decide it
// while it works, and what it is worth for each dollar and decision.
struct Worth {
  int bet = 0;
  int amount = 0;
  int ways = 0;
  Fraction mean;
};

std::vector<Worth> WorthOfBets(bool vig_on_all) {
  // By distance from the seven: 6 and 8, 5 and 9, 4 and 10, 3 and 11, 2 and 12.
  struct Number {
    int ways;
    Fraction place, buy_on_winners, lay_on_all;
  };
  static constexpr Number kByDistance[] = {
      {5, {-1, 66}, {-1, 44}, {-1, 24}},   {4, {-1, 25}, {-1, 50}, {-1, 30}},
      {3, {-1, 15}, {-1, 60}, {-1, 40}},   {2, {-1, 16}, {-1, 80}, {-1, 60}},
      {1, {-1, 14}, {-1, 140}, {-1, 120}},
  };
  std::vector<Worth> list;
  for (int slot = 0; slot < kSlotCount; ++slot) {
    const int total = NumberOfSlot(slot);
    const Number& number = kByDistance[std::abs(total - 7) - 1];
    const int ways = number.ways + 6;
    // Paid by winners alone, the vig of both sides is the same share of the bet.
    list.push_back(
        {kLay + slot, 600, ways, vig_on_all ? number.lay_on_all : number.buy_on_winners});
    list.push_back({kBuy + slot, 100, ways, vig_on_all ? Fraction{-1, 20} : number.buy_on_winners});
    list.push_back({kPlace + slot, 60, ways, number.place});
  }
  list.push_back({kField, 10, 36, {-1, 18}});
  list.push_back({kBig6, 10, 11, {-1, 11}});
  list.push_back({kBig8, 10, 11, {-1, 11}});
  for (const int hard : {kHard4, kHard10}) list.push_back({hard, 10, 9, {-1, 9}});
  for (const int hard : {kHard6, kHard8}) list.push_back({hard, 10, 11, {-1, 11}});
  for (const int bet : {kTwo, kTwelve}) list.push_back({bet, 10, 36, {-5, 36}});
  for (const int bet : {kThree, kEleven, kCraps, kCAndE}) list.push_back({bet, 10, 36, {-1, 9}});
  for (const int bet : {kSeven, kOver7, kUnder7}) list.push_back({bet, 10, 36, {-1, 6}});
  list.push_back({kHorn, 20, 36, {-1, 8}});
  list.push_back({kWorld, 20, 36, {-2, 15}});
  for (int hop = kHop13; hop <= kHop55; ++hop) {
    const bool pair = hop == kHop22 || hop == kHop33 || hop == kHop44 || hop == kHop55;
    list.push_back({hop, 10, 36, pair ? Fraction{-5, 36} : Fraction{-1, 9}});
  }
  return list;
}

// 6 of 36 win at once; a point of w ways then wins by w to 6.
Fraction WorthOfTheLine() {
  Fraction worth{6, 36};
  for (const int w : {1, 2, 3, 4, 5, 5, 4, 3, 2, 1}) {
    worth = worth + Fraction{w, 36} * Fraction{w - 6, w + 6};
  }
  return worth;
}

class Table {
 public:
  explicit Table(bool vig_on_all = true) : game_(std::make_unique<Game>()) {
    game_->surface = &surface_;
    StartUp(*game_, {.data_dir = "", .seed = 1});
    game_->BetAmount.Set(kBankroll, MoneyAmount(1'000'000));
    game_->MaxPlacardBet = MoneyAmount(100'000);
    game_->MaxOddsBet = MoneyAmount(100'000);
    game_->LayVigAllBets = game_->BuyVigAllBets = vig_on_all;
  }

  Game& State() { return *game_; }

  void Place(int bet, int amount) {
    game_->HyperDriveActive = true;
    game_->BetRequest = MoneyAmount(amount);
    PlaceChips(*game_, bet);
    game_->HyperDriveActive = false;
    ASSERT_EQ(game_->BetAmount[bet], MoneyAmount(amount))
        << kBetName[static_cast<std::size_t>(bet)];
  }
  void Roll(int die1, int die2) {
    game_->Die1 = die1;
    game_->Die2 = die2;
    game_->DiceAlreadySet = true;
    game_->HyperDriveActive = true;
    game_->KeepRolling = false;
    RollCycle(*game_);
  }
  // The net of a bet on the last roll, 0 when it was not decided.
  MoneyAmount NetOf(int bet) const {
    MoneyAmount net;
    for (std::int32_t i = 0; i < game_->Decisions.count; ++i) {
      const BetDecision& decision = game_->Decisions.list[static_cast<std::size_t>(i)];
      if (decision.bet == bet) net += decision.net;
    }
    return net;
  }

 private:
  NullSurface surface_;
  std::unique_ptr<Game> game_;
};

struct Ending {
  double net = 0;  // of one dollar put up
  double chance = 0;
};

// The figures of a bet by their definition. The line is judged by its ways out alone; of any other
// bet a roll that leaves it standing is an outcome of 0.
void ExpectFigures(const Game& game, int bet, const std::vector<Ending>& endings, double rolls) {
  SCOPED_TRACE(kBetName[static_cast<std::size_t>(bet)]);
  const bool line = bet == kPassLine || bet == kPassOdds;
  double mean = 0;
  for (const Ending& ending : endings) mean += ending.net * ending.chance;
  const double per_roll = mean / rolls;
  double variance = 0;
  double variance_roll = line ? 0 : per_roll * per_roll * (1 - 1 / rolls);
  for (const Ending& ending : endings) {
    variance += std::pow(ending.net - mean, 2) * ending.chance;
    variance_roll += std::pow(ending.net - per_roll, 2) * ending.chance / rolls;
  }
  constexpr double kSixPlaces = 5.1e-7;
  const Advantage figured = FigureAdvantage(game, bet);
  EXPECT_NEAR(figured.ev_per_roll, per_roll, kSixPlaces);
  EXPECT_NEAR(figured.ev_per_decision, mean, kSixPlaces);
  EXPECT_NEAR(figured.rolls_per_decision, rolls, line ? kSixPlaces : 0.00501);
  EXPECT_NEAR(figured.deviation_per_decision, std::sqrt(variance), kSixPlaces);
  EXPECT_NEAR(figured.deviation_per_roll, std::sqrt(variance_roll), kSixPlaces);
}

// The nets of one bet over the 36 rolls that can follow the table as it stands, from which the
// figures of the advantage follow when so much was put up for it, vig included.
MoneyAmount NetOverAllRolls(Table& table, int bet, MoneyAmount put_up = {}) {
  const Game before = table.State();
  MoneyAmount sum;
  std::vector<Ending> endings;
  for (int die1 = 1; die1 <= 6; ++die1) {
    for (int die2 = 1; die2 <= 6; ++die2) {
      table.Roll(die1, die2);
      const MoneyAmount net = table.NetOf(bet);
      table.State() = before;
      sum += net;
      if (net.Raw() != 0) endings.push_back({net.ToDouble() / put_up.ToDouble(), 0});
    }
  }
  const auto decided = static_cast<double>(endings.size());
  for (Ending& ending : endings) ending.chance = 1 / decided;
  if (put_up.Raw() != 0) ExpectFigures(table.State(), bet, endings, 36 / decided);
  return sum;
}

// With a point that leaves the bet alone: every bet works, and only its own rolls decide it.
int PointBeside(int bet) {
  return bet == kPlace + SlotOfNumber(9) || bet == kBuy + SlotOfNumber(9) ? 5 : 9;
}

void SetPoint(Table& table, int total) {
  total < 8 ? table.Roll(1, total - 1) : table.Roll(6, total - 6);
  ASSERT_EQ(table.State().Point, total);
}

void ExpectWorth(MoneyAmount net, const Worth& worth) {
  const Fraction exact = worth.mean * Fraction{worth.amount * worth.ways, 1};
  EXPECT_EQ(Fraction::Reduced(net.Raw(), MoneyAmount::kScale), exact)
      << kBetName[static_cast<std::size_t>(worth.bet)];
}

TEST(ExactMathematics, EveryBetOverAllRolls) {
  for (const bool vig_on_all : {true, false}) {
    for (const Worth& worth : WorthOfBets(vig_on_all)) {
      Table table(vig_on_all);
      SetPoint(table, PointBeside(worth.bet));
      table.Place(worth.bet, worth.amount);
      ExpectWorth(NetOverAllRolls(table, worth.bet, table.State().TotalOnTable), worth);
    }
  }
}

TEST(ExactMathematics, LineComeAndOddsOverAllRolls) {
  Fraction line;
  Fraction come;
  {
    Table table;
    table.Place(kPassLine, 10);
    line = Fraction::Reduced(NetOverAllRolls(table, kPassLine).Raw(), 360 * MoneyAmount::kScale);
    SetPoint(table, 5);
    table.Place(kComeBox, 10);
    come = Fraction::Reduced(NetOverAllRolls(table, kComeBox).Raw(), 360 * MoneyAmount::kScale);
    // Of the Come box the seven alone is a decision.
    ExpectFigures(table.State(), kComeBox, {{1, 1}}, 6);
  }
  for (const int total : kNumbers) {
    SCOPED_TRACE(total);
    const int ways = 6 - std::abs(total - 7);
    const Fraction reached{ways, 36};
    const auto worth_of = [&](Table& table, int bet) {
      const MoneyAmount net =
          NetOverAllRolls(table, bet, bet == kPassLine ? MoneyAmount() : MoneyAmount(10));
      return Fraction::Reduced(net.Raw(), (ways + 6) * 10 * MoneyAmount::kScale);
    };
    Table on_line;
    on_line.Place(kPassLine, 10);
    SetPoint(on_line, total);
    on_line.Place(kPassOdds, 20);
    line = line + reached * worth_of(on_line, kPassLine);
    EXPECT_EQ(NetOverAllRolls(on_line, kPassOdds), MoneyAmount(0));

    // The same for a Come bet, while another point is on.
    Table on_come;
    SetPoint(on_come, total == 6 ? 8 : 6);
    on_come.Place(kComeBox, 10);
    total < 8 ? on_come.Roll(1, total - 1) : on_come.Roll(6, total - 6);
    on_come.Place(BetOnNumber(kComeOdds, total), 20);
    come = come + reached * worth_of(on_come, BetOnNumber(kComePoint, total));
    EXPECT_EQ(NetOverAllRolls(on_come, BetOnNumber(kComeOdds, total), MoneyAmount(20)),
              MoneyAmount(0));
  }
  EXPECT_EQ(WorthOfTheLine(), (Fraction{-373, 6930}));
  EXPECT_EQ(line, WorthOfTheLine());
  EXPECT_EQ(come, WorthOfTheLine());
}

TEST(ExactMathematics, FiguresOfTheLineAndItsOdds) {
  std::vector<Ending> line = {{1, 6 / 36.0}};
  std::vector<Ending> odds;  // of the six points that are the commonest
  double line_rolls = 1;
  double odds_rolls = 0;
  for (const int point : kNumbers) {
    const double ways = 6 - std::abs(point - 7);
    line.push_back({1, ways / 36 * ways / (ways + 6)});
    line.push_back({-1, ways / 36 * 6 / (ways + 6)});
    line_rolls += ways / (ways + 6);
    if (point < 4 || point > 10) continue;
    odds.push_back({6 / ways, ways / 24 * ways / (ways + 6)});
    odds.push_back({-1, ways / 24 * 6 / (ways + 6)});
    odds_rolls += ways / 24 * 36 / (ways + 6);
  }
  Table table;
  ExpectFigures(table.State(), kPassLine, line, line_rolls);
  ExpectFigures(table.State(), kPassOdds, odds, odds_rolls);
}

}  // namespace
}  // namespace feltmaster
