#include "config/advantage.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <numeric>
#include <optional>
#include <string>
#include <vector>

#include "config/payoffs.h"
#include "dice/probability.h"

namespace feltmaster {
namespace {

// An exact fraction.
struct Fraction {
  std::int64_t n = 0;
  std::int64_t d = 1;

  Fraction(std::int64_t numerator = 0, std::int64_t denominator = 1)
      : n(numerator), d(denominator) {
    const std::int64_t common = std::gcd(n, d);
    n /= common;
    d /= common;
    if (d < 0) n = -n, d = -d;
  }
  Fraction operator+(Fraction o) const { return {n * o.d + o.n * d, d * o.d}; }
  Fraction operator-(Fraction o) const { return {n * o.d - o.n * d, d * o.d}; }
  Fraction operator*(Fraction o) const { return {n * o.n, d * o.d}; }
  Fraction operator/(Fraction o) const { return {n * o.d, d * o.n}; }
  double Value() const { return static_cast<double>(n) / static_cast<double>(d); }
};

Fraction Ways(int total) {
  return Fraction(total == 7 ? 6 : total < 7 ? total - 1 : 13 - total, 36);
}
// Chances of a 7 against one of the number.
Fraction TrueOdds(int number) {
  return Ways(7) / Ways(number);
}

// How a bet of one unit ends: what it nets and with which chance, and how many rolls that takes.
struct Ending {
  Fraction net;
  Fraction chance;
};
struct Story {
  std::vector<Ending> endings;
  Fraction rolls;  // expected rolls of one bet
};

// A bet that stands until a roll decides it, or that every roll decides.
Story Standing(const std::function<std::optional<Fraction>(int, int)>& decides) {
  Story story;
  Fraction decided;
  for (int first = 1; first <= 6; ++first) {
    for (int second = 1; second <= 6; ++second) {
      if (const auto net = decides(first, second); net && net->n != 0) {
        story.endings.push_back({*net, Fraction(1, 36)});
        decided = decided + Fraction(1, 36);
      }
    }
  }
  for (Ending& ending : story.endings) ending.chance = ending.chance / decided;
  story.rolls = Fraction(1) / decided;
  return story;
}

Story OnNumber(int number, Fraction win, Fraction on_seven = Fraction(-1)) {
  return Standing([=](int a, int b) -> std::optional<Fraction> {
    if (a + b == 7) return on_seven;
    if (a + b == number) return win;
    return {};
  });
}

// The stories of all bets at the house's rules, told by name.
Story StoryOf(const std::string& name) {
  const auto starts = [&name](const char* with) { return name.rfind(with, 0) == 0; };
  const auto number = [&name] { return std::stoi(name.substr(name.find(' ') + 1)); };
  const auto one_roll = [](std::function<Fraction(int, int)> net) {
    return Standing([=](int a, int b) -> std::optional<Fraction> { return net(a, b); });
  };
  const auto single = [&](int wins_on, int pays) {
    return one_roll([=](int a, int b) { return a + b == wins_on ? Fraction(pays) : Fraction(-1); });
  };
  const auto pays_of_total = [](int total) -> int {
    return total == 2 || total == 12 ? 30 : total == 3 || total == 11 ? 15 : total == 7 ? 4 : 0;
  };

  if (starts("Lay")) {
    // Of 1 + v put up, v is vig: 5 % of what can be won.
    const Fraction odds = Fraction(1) / TrueOdds(number());
    const Fraction vig = odds / Fraction(20);
    return OnNumber(number(), Fraction(-1), (odds - vig) / (Fraction(1) + vig));
  }
  if (starts("Buy")) {
    return OnNumber(number(),
                    (TrueOdds(number()) - Fraction(1, 20)) / (Fraction(1) + Fraction(1, 20)));
  }
  if (starts("Place")) {
    const int distance = std::abs(number() - 7);
    const Fraction kPays[] = {{}, {7, 6}, {7, 5}, {9, 5}, {11, 4}, {11, 2}};
    return OnNumber(number(), kPays[distance]);
  }
  if (name == "Pass Line") {
    Story story{{{Fraction(1), Ways(7)}}, Ways(7)};
    for (const int point : kNumbers) {
      const Fraction either = Ways(point) + Ways(7);
      story.endings.push_back({Fraction(1), Ways(point) * Ways(point) / either});
      story.endings.push_back({Fraction(-1), Ways(point) * Ways(7) / either});
      story.rolls = story.rolls + Ways(point) * (Fraction(1) + Fraction(1) / either);
    }
    return story;
  }
  if (name == "Pass Line Odds") {
    Story story;
    for (const int point : {4, 5, 6, 8, 9, 10}) {
      const Fraction share = Ways(point) / Fraction(24, 36);
      const Fraction either = Ways(point) + Ways(7);
      story.endings.push_back({TrueOdds(point), share * Ways(point) / either});
      story.endings.push_back({Fraction(-1), share * Ways(7) / either});
      story.rolls = story.rolls + share / either;
    }
    return story;
  }
  if (name == "Come") return OnNumber(0, {}, Fraction(1));
  if (starts("Come")) {
    const bool odds = name.find("Odds") != std::string::npos;
    return OnNumber(number(), odds ? TrueOdds(number()) : Fraction(1));
  }
  if (starts("Big")) return OnNumber(number(), Fraction(1));
  if (name == "Field") {
    return one_roll([](int a, int b) {
      const int total = a + b;
      if (total == 2 || total == 12) return Fraction(2);
      return Fraction(total >= 5 && total <= 8 ? -1 : 1);
    });
  }
  if (starts("Hard")) {
    const int hard = number();
    return Standing([=](int a, int b) -> std::optional<Fraction> {
      if (a + b == 7 || (a + b == hard && a != b)) return Fraction(-1);
      if (a + b == hard) return Fraction(hard == 4 || hard == 10 ? 7 : 9);
      return {};
    });
  }
  if (name == "Two") return single(2, 30);
  if (name == "Three") return single(3, 15);
  if (name == "Seven") return single(7, 4);
  if (name == "Eleven") return single(11, 15);
  if (name == "Twelve") return single(12, 30);
  if (name == "Craps") {
    return one_roll([](int a, int b) {
      const int t = a + b;
      return Fraction(t == 2 || t == 3 || t == 12 ? 7 : -1);
    });
  }
  if (name == "C and E") {
    return one_roll([](int a, int b) {
      const int t = a + b;
      if (t == 11) return Fraction(15 - 1, 2);
      return t == 2 || t == 3 || t == 12 ? Fraction(7 - 1, 2) : Fraction(-1);
    });
  }
  if (name == "Horn" || name == "World") {
    const bool world = name == "World";
    return one_roll([=](int a, int b) {
      const int parts = world ? 5 : 4;
      const int pays = a + b == 7 && !world ? 0 : pays_of_total(a + b);
      return pays == 0 ? Fraction(-1) : Fraction(pays - (parts - 1), parts);
    });
  }
  if (name == "Over 7") return one_roll([](int a, int b) { return Fraction(a + b > 7 ? 1 : -1); });
  if (name == "Under 7") return one_roll([](int a, int b) { return Fraction(a + b < 7 ? 1 : -1); });
  const int low = name[4] - '0';
  const int high = name[6] - '0';
  return one_roll([=](int a, int b) {
    const bool wins = (a == low && b == high) || (a == high && b == low);
    return Fraction(wins ? (low == high ? 30 : 15) : -1);
  });
}

double SixPlaces(double value) {
  return std::round(value * 1e6) / 1e6;
}

Game HouseGame() {
  Game game;
  DefaultPayoffs(game);
  DefaultProbabilities(game);
  return game;
}

TEST(Advantage, AgreesWithExactEnumerationOfEveryBet) {
  const Game game = HouseGame();
  for (int bet = 1; bet <= kBetCount; ++bet) {
    const std::string name(kBetName[static_cast<std::size_t>(bet)]);
    const Story story = StoryOf(name);
    Fraction mean;
    for (const Ending& ending : story.endings) mean = mean + ending.net * ending.chance;
    const double per_roll = (mean / story.rolls).Value();
    double variance = 0;
    double variance_roll = 0;
    for (const Ending& ending : story.endings) {
      variance += std::pow(ending.net.Value() - mean.Value(), 2) * ending.chance.Value();
      variance_roll +=
          std::pow(ending.net.Value() - per_roll, 2) * ending.chance.Value() / story.rolls.Value();
    }
    // The line is judged by its ways out alone; of any other bet a roll that leaves it standing is
    // an outcome of 0.
    if (bet != kPassLine && bet != kPassOdds) {
      variance_roll += per_roll * per_roll * (1 - 1 / story.rolls.Value());
    }

    const Advantage figured = FigureAdvantage(game, bet);
    EXPECT_NEAR(figured.ev_per_roll, SixPlaces(per_roll), 1e-9) << name;
    EXPECT_NEAR(figured.ev_per_decision, SixPlaces(mean.Value()), 1e-9) << name;
    EXPECT_NEAR(figured.rolls_per_decision, story.rolls.Value(),
                bet == kPassLine || bet == kPassOdds ? 5.1e-7 : 0.00501)
        << name;
    EXPECT_NEAR(figured.deviation_per_decision, SixPlaces(std::sqrt(variance)), 1e-9) << name;
    EXPECT_NEAR(figured.deviation_per_roll, SixPlaces(std::sqrt(variance_roll)), 1e-9) << name;
  }
}

TEST(Advantage, KnownFigures) {
  Game game = HouseGame();
  const Advantage place6 = FigureAdvantage(game, kPlace + 4);
  EXPECT_EQ(place6.ev_per_decision, -0.015152);
  EXPECT_EQ(place6.rolls_per_decision, 3.27);
  // 40 on Lay 4 with 1 of vig: 19 is won on 41 put up, or 41 lost.
  EXPECT_EQ(FigureAdvantage(game, kLay + 2).ev_per_decision, -0.02439);
  game.LayVigAllBets = game.BuyVigAllBets = false;
  EXPECT_EQ(FigureAdvantage(game, kLay + 2).ev_per_decision, -0.016667);
  EXPECT_EQ(FigureAdvantage(game, kBuy + 7).ev_per_decision, -0.016667);
}

TEST(Advantage, ZeroOutcomesCountAsDecisionsWhenAsked) {
  Game game = HouseGame();
  game.IncludeZeroOutcomes = true;
  for (const int bet : {kPlace + 4, kHard4, kWorld, kBuy, kLay}) {
    const Advantage figured = FigureAdvantage(game, bet);
    EXPECT_EQ(figured.ev_per_decision, figured.ev_per_roll);
    EXPECT_EQ(figured.deviation_per_decision, figured.deviation_per_roll);
    EXPECT_EQ(figured.rolls_per_decision, 1);
  }
}

TEST(Advantage, SkewedDiceCount) {
  Game game = HouseGame();
  game.UseSkewedProbability = true;
  EXPECT_NEAR(FigureAdvantage(game, kField).ev_per_decision, -1 / 18.0, 1e-4);
  SetProbabilityCell(game, kTotalRow, 6, 100'000, true);
  EXPECT_NEAR(FigureAdvantage(game, kSeven).ev_per_roll, 4, 1e-3);
  EXPECT_EQ(FigureAdvantage(game, kPlace).ev_per_decision, -1);
  EXPECT_NEAR(FigureAdvantage(game, kPassLine).ev_per_decision, 1, 1e-3);
  game.UseSkewedProbability = false;
  EXPECT_EQ(FigureAdvantage(game, kSeven).rolls_per_decision, 1);
}

TEST(Advantage, DiceThatNeverDecideGiveZeros) {
  Game game = HouseGame();
  game.UseSkewedProbability = true;
  for (auto& row : game.DiceProbability[1]) row.fill(0);
  for (PayRow& row : game.FieldPayTable) row.PayDenominator = {};
  for (int bet = 0; bet <= kBetCount + 1; ++bet) {
    const Advantage figured = FigureAdvantage(game, bet);
    EXPECT_EQ(figured.ev_per_roll, 0) << bet;
    EXPECT_EQ(figured.ev_per_decision, 0) << bet;
    EXPECT_EQ(figured.rolls_per_decision, 0) << bet;
    EXPECT_EQ(figured.deviation_per_roll, 0) << bet;
    EXPECT_EQ(figured.deviation_per_decision, 0) << bet;
  }
}

}  // namespace
}  // namespace feltmaster
