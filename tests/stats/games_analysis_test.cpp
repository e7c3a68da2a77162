#include "stats/games_analysis.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

#include "base/number_format.h"
#include "files/games_log.h"
#include "files/glg_file.h"
#include "support/started_game.h"
#include "view/games_screen.h"

namespace feltmaster {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::int64_t kDollar = 10'000;
constexpr int kShown = 8;

class GamesAnalysisTest : public StartedGame<> {
 protected:
  GamesAnalysisTest() { game_->GamesLogFile = Path("games.glg"); }
  void Write(const std::vector<GlgGame>& games) {
    InScratchFolder::Write(game_->GamesLogFile, GlgBytes(games));
  }
  // Games with these nets, in ten-thousandths, each with a handle of $100.
  void WriteNets(const std::vector<std::int64_t>& nets) {
    std::vector<GlgGame> games;
    for (const std::int64_t net : nets) {
      GlgGame game{};
      game[5] = 100 * kDollar;
      game[8] = net;
      games.push_back(game);
    }
    Write(games);
  }
  GamesAnalysis Analyze(int value = kNetValue) {
    game_->GamesValueBox = game_->GamesDeviationBox = {};
    auto analysis = AnalyzeGames(*game_, value);
    EXPECT_TRUE(analysis.has_value());
    return analysis.value_or(GamesAnalysis());
  }
  std::string Figure(const GamesAnalysis& analysis, std::size_t row) {
    return GamesFigures(analysis)[row].text;
  }
};

// Everything by sorting and by long doubles.
struct Plain {
  std::vector<std::int64_t> values;  // sorted
  double mean = 0;
  double median = 0;
  double variance = 0;
  double skew = 0;
  double kurtosis = 0;

  explicit Plain(std::vector<std::int64_t> of) : values(std::move(of)) {
    std::sort(values.begin(), values.end());
    const auto n = static_cast<long double>(values.size());
    if (values.empty()) return;
    long double sum = 0;
    for (const std::int64_t x : values) sum += static_cast<long double>(x);
    const long double center = sum / n;
    long double moments[3] = {};
    for (const std::int64_t x : values) {
      const long double d = static_cast<long double>(x) - center;
      moments[0] += d * d;
      moments[1] += d * d * d;
      moments[2] += d * d * d * d;
    }
    mean = static_cast<double>(center / kDollar);
    variance = static_cast<double>(moments[0] / n / kDollar / kDollar);
    const long double sigma = std::sqrt(moments[0] / n);
    if (sigma > 0) {
      skew = static_cast<double>(moments[1] / n / (sigma * sigma * sigma));
      kurtosis = static_cast<double>(moments[2] / n / (sigma * sigma * sigma * sigma) - 3);
    }
    const std::size_t half = values.size() / 2;
    const std::int64_t twice =
        values.size() % 2 == 1 ? 2 * values[half] : values[half - 1] + values[half];
    median = static_cast<double>(twice) / 2 / kDollar;
  }
};

TEST_F(GamesAnalysisTest, AgreesWithAPlainComputation) {
  std::mt19937_64 random(7);
  const auto uniform = [&](std::int64_t low, std::int64_t high) {
    return std::uniform_int_distribution<std::int64_t>(low, high)(random);
  };
  for (int round = 0; round < 300; ++round) {
    const auto count = static_cast<std::size_t>(uniform(0, round < 150 ? 12 : 3000));
    const std::int64_t spread = std::int64_t{1} << uniform(0, 40);
    const bool skewed = uniform(0, 1) == 1;
    std::vector<GlgGame> games(count);
    for (GlgGame& game : games) {
      for (std::int64_t& value : game) {
        value = uniform(-spread, spread);
        if (skewed && uniform(0, 20) > 0) value /= 1 << 12;  // most in one column
      }
    }
    Write(games);
    game_->GamesViewChoice = static_cast<std::int32_t>(uniform(0, 7));
    game_->GamesBarWidth = kGamesBarWidths[static_cast<std::size_t>(uniform(0, 3))];
    const std::int64_t breaks[2] = {uniform(-spread, spread), uniform(-spread, spread)};
    game_->GamesBreakLow = MoneyAmount::FromRaw(std::min(breaks[0], breaks[1]));
    game_->GamesBreakHigh = MoneyAmount::FromRaw(std::max(breaks[0], breaks[1]));
    const auto slot = static_cast<std::size_t>(uniform(0, 31));

    std::vector<std::int64_t> included;
    std::array<int, 3> outcomes{};
    std::int64_t net = 0;
    std::int64_t handle = 0;
    for (const GlgGame& game : games) {
      const std::size_t outcome = game[8] > game_->GamesBreakHigh.Raw()  ? 0
                                  : game[8] < game_->GamesBreakLow.Raw() ? 2
                                                                         : 1;
      ++outcomes[outcome];
      if ((game_->GamesViewChoice & 1 << outcome) == 0) continue;
      included.push_back(game[slot]);
      net += game[8];
      handle += game[5];
    }
    const Plain plain(included);
    const GamesAnalysis a = Analyze(static_cast<int>(slot));
    SCOPED_TRACE(round);
    ASSERT_EQ(a.games, static_cast<int>(count));
    for (std::size_t i = 0; i < 3; ++i) ASSERT_EQ(a.outcomes[i], outcomes[i]);
    ASSERT_EQ(a.included, static_cast<int>(included.size()));
    ASSERT_EQ(a.net.Raw(), net);
    ASSERT_EQ(a.handle.Raw(), handle);
    if (included.empty()) {
      for (std::size_t row = 0; row < 14; ++row) ASSERT_EQ(Figure(a, row), "0") << row;
      continue;
    }
    ASSERT_EQ(a.low.Raw(), plain.values.front());
    ASSERT_EQ(a.high.Raw(), plain.values.back());
    ASSERT_EQ(a.range, a.high - a.low);
    ASSERT_NEAR(a.mean.ToDouble(), plain.mean, 0.0000501);
    ASSERT_NEAR(a.median.ToDouble(), plain.median, 0.0000501);
    const std::size_t half = included.size() / 2;
    ASSERT_EQ(a.median_is_average,
              included.size() % 2 == 0 && plain.values[half - 1] != plain.values[half]);
    ASSERT_NEAR(a.variance, plain.variance, 1e-8 + 1e-9 * plain.variance);
    ASSERT_NEAR(a.deviation.ToDouble(), std::sqrt(plain.variance), 0.0001);
    double cubes = 0;
    double fourths = 0;
    for (const std::int64_t x : included) {
      const double distance = static_cast<double>(x - a.mean.Raw());
      const double z =
          a.deviation.Raw() > 0 ? distance / static_cast<double>(a.deviation.Raw()) : 0;
      cubes += z * z * z;
      fourths += z * z * z * z;
    }
    const auto games_included = static_cast<double>(included.size());
    const bool spreads = a.deviation.Raw() > 0;
    ASSERT_NEAR(a.skew.ToDouble(), cubes / games_included, 0.00011);
    ASSERT_NEAR(a.kurtosis.ToDouble(), spreads ? fourths / games_included - 3 : 0, 0.00011);
    if (plain.variance > 100) {  // with less, the four places of Mean and Std Dev tell
      ASSERT_NEAR(a.skew.ToDouble(), plain.skew, 0.001 + 0.001 * std::fabs(plain.skew));
      ASSERT_NEAR(a.kurtosis.ToDouble(), plain.kurtosis, 0.001 * (5 + plain.kurtosis));
    }
    ASSERT_EQ(a.in_range, a.included);

    // Columns and bars.
    std::array<int, 525> columns{};
    for (const std::int64_t x : plain.values) {
      if (a.range.Raw() == 0) {
        ++columns[262];
        continue;
      }
      const long double exact = static_cast<long double>(x - a.low.Raw()) * 524 / a.range.Raw();
      ++columns[static_cast<std::size_t>(std::nearbyint(exact))];
    }
    int most = 0;
    int mode = 0;
    for (int first = 0; first < 525; first += game_->GamesBarWidth) {
      int sum = 0;
      for (int i = first; i < first + game_->GamesBarWidth; ++i) {
        ASSERT_EQ(a.GamesBuckets[static_cast<std::size_t>(i)].games,
                  columns[static_cast<std::size_t>(i)]);
        sum += columns[static_cast<std::size_t>(i)];
      }
      if (sum > most) mode = first;
      most = std::max(most, sum);
    }
    ASSERT_EQ(a.mode.first, mode);
    ASSERT_EQ(a.mode.total.games, most);

    // A range of the player's own, also one that stands the wrong way round.
    game_->GamesValueBox = {PlainNumber(MoneyAmount::FromRaw(uniform(-spread, spread))),
                            PlainNumber(MoneyAmount::FromRaw(uniform(-spread, spread)))};
    game_->GamesDeviationBox = {};
    const std::int64_t from = ParseMoney(game_->GamesValueBox[0]).Raw();
    const std::int64_t to = ParseMoney(game_->GamesValueBox[1]).Raw();
    const auto inside = std::count_if(included.begin(), included.end(), [&](std::int64_t x) {
      return to >= from ? x >= from && x <= to : x >= from || x <= to;
    });
    const auto ranged = AnalyzeGames(*game_, static_cast<int>(slot));
    ASSERT_EQ(ranged->in_range, inside);
  }
}

TEST_F(GamesAnalysisTest, TheLabelsOfASmallLog) {
  WriteNets({30000, 10000});
  GamesAnalysis a = Analyze();
  EXPECT_THAT(
      RowsOf(GamesFigures(a)),
      ElementsAre(Row{"Sum", "4.0"}, Row{"Mean", "2.0"}, Row{"   Median *", "2.0"},
                  Row{"Mode", "1.0"}, Row{"High", "3.0"}, Row{"Mid", "2.0"}, Row{"Low", "1.0"},
                  Row{"Range", "2.0"}, Row{"Variance", "1.0"}, Row{"Std Dev", "1.0"},
                  Row{"Skew", "0"}, Row{"Kurtosis", "-2.0"}, Row{"Net $", "4.0"},
                  Row{"Handle $", "200.0"}, Row{"Advantage", "2.0 %"}));
  EXPECT_THAT(game_->GamesValueBox, ElementsAre("1", "3"));
  EXPECT_THAT(game_->GamesDeviationBox, ElementsAre("-1.", "1."));
  EXPECT_EQ(GamesInRange(a).games, "2 games");
  EXPECT_EQ(GamesInRange(a).percent, "100.0%");
  EXPECT_EQ(game_->GamesMeanColumn, 262);
  EXPECT_THAT(game_->GamesPointers, ElementsAre(0, 524));

  // Standard deviations lead to values, values to standard deviations.
  game_->GamesValueBox = {"", "2.5"};
  game_->GamesDeviationBox = {"0.5", ""};
  a = *AnalyzeGames(*game_, kNetValue);
  EXPECT_THAT(game_->GamesValueBox, ElementsAre("2.5", "2.5"));
  EXPECT_THAT(game_->GamesDeviationBox, ElementsAre("0.5", "0.5"));
  EXPECT_EQ(GamesInRange(a).games, "0 games");
  EXPECT_EQ(GamesInRange(a).percent, "0%");
  // The two tails.
  game_->GamesValueBox = {"2", "1.5"};
  game_->GamesDeviationBox = {};
  EXPECT_EQ(GamesInRange(*AnalyzeGames(*game_, kNetValue)).percent, "100.0%");

  // All alike.
  WriteNets({-50000, -50000, -50000});
  a = Analyze();
  EXPECT_EQ(a.GamesBuckets[262].games, 3);
  EXPECT_EQ(a.GamesBuckets[262].mark, 12);
  EXPECT_EQ(Figure(a, 2), "-5.0");
  EXPECT_EQ(Figure(a, 9), "0");
  EXPECT_EQ(Figure(a, 10), "0");
  EXPECT_EQ(a.in_range, 3);
  EXPECT_THAT(game_->GamesPointers, ElementsAre(524, 524));
  EXPECT_THAT(PaintGamesHistogram(*game_, a).marks, IsEmpty());

  // The lower of two equal bars is the mode; it shows its range.
  WriteNets({0, 100, 90000, 1000000, 1000100, 500000});
  game_->GamesBarWidth = 25;
  a = Analyze();
  EXPECT_EQ(Figure(a, 3), "0 to 0.01");
  EXPECT_EQ(a.mode.total.games, 2);
}

TEST_F(GamesAnalysisTest, HistogramAndPointers) {
  // Columns 0, 131, 262, 393 and 524 of a scale from 0 to 524.
  std::vector<std::int64_t> nets;
  const auto add = [&](std::int64_t column, int games) {
    nets.insert(nets.end(), static_cast<std::size_t>(games), column * kDollar);
  };
  add(0, 1), add(131, 2), add(262, 4), add(393, 2), add(524, 1);
  WriteNets(nets);
  game_->GamesBarWidth = 5;
  GamesAnalysis a = Analyze();
  const GamesHistogram picture = PaintGamesHistogram(*game_, a);
  EXPECT_THAT(picture.range, ElementsAre(HistogramBox{0, 0, 525, 223}));
  EXPECT_THAT(picture.bars,
              ElementsAre(HistogramBox{0, 223 - 56, 5, 223}, HistogramBox{130, 223 - 112, 135, 223},
                          HistogramBox{260, 0, 265, 223}, HistogramBox{390, 223 - 112, 395, 223},
                          HistogramBox{520, 223 - 56, 525, 223}));
  EXPECT_EQ(picture.mean, 262);
  EXPECT_EQ(picture.highest, "4");
  // The deviation is 143.5033, so that marks stand at whole multiples of it about the mean.
  EXPECT_THAT(picture.marks,
              ElementsAre(HistogramLine{118, 8}, HistogramLine{262, 9}, HistogramLine{406, 8}));

  MoveGamesPointer(*game_, a, 0, 133);  // snaps to the bar of two games
  MoveGamesPointer(*game_, a, 1, 391);
  EXPECT_THAT(game_->GamesPointers, ElementsAre(130, 394));
  EXPECT_THAT(game_->GamesValueBox, ElementsAre("131", "393"));
  EXPECT_EQ(GamesInRange(a).games, "8 games");
  EXPECT_EQ(GamesInRange(a).percent, "80.0%");
  EXPECT_EQ(a.in_range, AnalyzeGames(*game_, kNetValue)->in_range);

  MoveGamesPointer(*game_, a, 1, 1000);                      // held at the end of the scale
  EXPECT_THAT(game_->GamesPointers, ElementsAre(131, 524));  // the analysis put it at its value
  StepGamesPointer(*game_, a, -1, false);                    // the next bar, in which no game is
  EXPECT_EQ(game_->GamesPointers[1], 519);
  EXPECT_EQ(game_->GamesValueBox[1], "519");
  MoveGamesPointer(*game_, a, 0, 0);
  StepGamesPointer(*game_, a, 1, true);
  EXPECT_EQ(game_->GamesPointers[0], 5);
  MoveGamesPointer(*game_, a, 0, 524);
  MoveGamesPointer(*game_, a, 1, 0);
  EXPECT_EQ(a.in_range, 2);  // the tails
  EXPECT_THAT(PaintGamesHistogram(*game_, a).range,
              ElementsAre(HistogramBox{0, 0, 5, 223}, HistogramBox{520, 0, 525, 223}));

  game_->GamesViewChoice = kShown;
  EXPECT_TRUE(PaintGamesHistogram(*game_, Analyze()).empty);
  EXPECT_EQ(Analyze().outcomes[0], 9);
}

TEST_F(GamesAnalysisTest, TheDataListShowsWhatPassesTheFilter) {
  std::vector<std::int64_t> nets;
  for (std::int64_t i = 1; i <= 100; ++i) nets.push_back((i % 2 == 0 ? i : -i) * 12345);
  WriteNets(nets);
  game_->GamesViewChoice = 1;  // games won
  game_->GamesTopLine = 67;
  Analyze();
  const std::vector<GameLine> lines = GamesRawData(*game_, kNetValue);
  ASSERT_EQ(lines.size(), 16u);
  EXPECT_EQ(lines[0].number, 68);
  EXPECT_EQ(lines[0].value, "83.946");
  EXPECT_EQ(lines[15].number, 98);
  EXPECT_EQ(RawDataScroll(*game_), 20000);
  EXPECT_EQ(GameAtScroll(*game_, 1), 1);
  EXPECT_EQ(GameAtScroll(*game_, 30000), 100);
  game_->GamesTopLine = 99;
  EXPECT_EQ(GamesRawData(*game_, kNetValue).size(), 1u);
  game_->GamesBreakLow = MoneyAmount(-100);
  game_->GamesBreakHigh = MoneyAmount(2500);
  EXPECT_THAT(OutcomeCaptions(*game_), ElementsAre("> 2,500", "-100 - 2,500", "< -100"));
}

// Amounts beyond all sums end the analysis with a message, and leave the screen as it was.
TEST_F(GamesAnalysisTest, AmountsBeyondAllSumsAreTold) {
  WriteNets({INT64_MAX, INT64_MAX});
  game_->GamesCount = 77;
  EXPECT_FALSE(AnalyzeGames(*game_, kNetValue));
  ASSERT_EQ(surface_.messages.size(), 1u);
  EXPECT_EQ(surface_.messages[0].text,
            game_->GamesLogFile + "\nOverflow, Error #6 occurred, at: Open Games");
  EXPECT_EQ(game_->GamesCount, 77);
  EXPECT_THAT(game_->GamesValueBox, ElementsAre("", ""));
  GlgGame boundless{};  // no amount says how many times its handle this game has won
  boundless[5] = 1;
  boundless[8] = INT64_MAX / 2;
  Write({boundless});
  EXPECT_FALSE(AnalyzeGames(*game_, kNetValue));
  EXPECT_EQ(surface_.messages.size(), 2u);
}

TEST_F(GamesAnalysisTest, ALongAnalysisTellsHowFarItIsAndCanBeStopped) {
  WriteNets(std::vector<std::int64_t>(200'000, kDollar));
  int told = 0;
  double last = -1;
  const auto analysis = AnalyzeGames(*game_, kNetValue, [&](double share) {
    ++told;
    EXPECT_GE(share, last);
    EXPECT_LE(share, 1);
    last = share;
    return true;
  });
  ASSERT_TRUE(analysis);
  EXPECT_EQ(analysis->included, 200'000);
  EXPECT_GT(told, 20);
  EXPECT_FALSE(AnalyzeGames(*game_, kNetValue, [](double) { return false; }));
  EXPECT_THAT(surface_.messages, IsEmpty());
}

}  // namespace
}  // namespace feltmaster
