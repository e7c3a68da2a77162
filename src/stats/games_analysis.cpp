#include "stats/games_analysis.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <exception>

#include "base/number_format.h"
#include "files/games_log.h"

namespace feltmaster {

namespace {

constexpr int kLastColumn = kHistogramColumns - 1;
constexpr int kMiddleColumn = kLastColumn / 2;
constexpr int kMarkOfDeviations = 8;
constexpr std::string_view kAnalysisPlace = "Open Games";

// The column of a value that lies so far above the lowest one, in ten-thousandths.
std::int64_t ColumnAt(__int128 offset, MoneyAmount range) {
  const __int128 scaled = offset * kLastColumn;
  const __int128 divisor = range.Raw();
  __int128 column = scaled / divisor;
  const __int128 rest = scaled % divisor;
  const __int128 twice = 2 * (rest < 0 ? -rest : rest);
  if (twice > divisor || (twice == divisor && column % 2 != 0)) column += scaled < 0 ? -1 : 1;
  constexpr __int128 kFar = std::int64_t{1} << 40;
  return static_cast<std::int64_t>(std::clamp(column, -kFar, kFar));
}
__int128 Offset(MoneyAmount value, MoneyAmount low) {
  return static_cast<__int128>(value.Raw()) - low.Raw();
}

// The column of a value between low and high.
int ColumnOf(MoneyAmount value, MoneyAmount low, MoneyAmount high) {
  if (low == high) return kMiddleColumn;
  if (value == low) return 0;
  if (value == high) return kLastColumn;
  return static_cast<int>(ColumnAt(Offset(value, low), high - low));
}

int MarkOfMean(MoneyAmount mean) {
  constexpr int kBlue = 9;
  constexpr int kRed = 12;
  constexpr int kDarkBlue = 1;
  return mean.Raw() > 0 ? kBlue : mean.Raw() < 0 ? kRed : kDarkBlue;
}

// The range of a log that the player looks at, and its two boxes.
struct RangeBoxes {
  std::array<std::string, 2> values;
  std::array<std::string, 2> deviations;

  // Blank boxes are filled from the other box of the same end, or from the ends of the scale.
  void Complete(const GamesAnalysis& a) {
    for (std::size_t i = 0; i < values.size(); ++i) {
      if (values[i].empty() && deviations[i].empty()) {
        values[i] = PlainNumber(i == 0 ? a.low : a.high);
      } else if (values[i].empty()) {
        const double distance = NumericPrefix(deviations[i]) * a.deviation.ToDouble();
        values[i] = PlainNumber(a.mean + MoneyAmount::FromDouble(distance));
      }
      if (deviations[i].empty()) deviations[i] = DeviationText(a, Value(i));
    }
  }
  MoneyAmount Value(std::size_t i) const { return ParseMoney(values[i]); }
  bool Holds(MoneyAmount low, MoneyAmount high, MoneyAmount x) const {
    return high >= low ? x >= low && x <= high : x >= low || x <= high;
  }
};

// What ends an analysis before its time.
struct GivenUp {};
struct LogFailed {
  LogFault fault;
};

class Analyst {
 public:
  Analyst(Game& game, int value, const GamesProgress& progress) : game_(game), progress_(progress) {
    result_.value = value;
    boxes_ = {game.GamesValueBox, game.GamesDeviationBox};
  }

  // Throws GivenUp, LogFailed and the faults of money.
  GamesAnalysis Analyze() {
    if (const std::optional<LogFault> fault = log_.Open(game_.GamesLogFile)) {
      throw LogFailed{*fault};
    }
    result_.games = log_.Count();
    FindRange();
    FillColumns();
    boxes_.Complete(result_);
    FindMedian();
    ReadMoments();
    FindMode();
    PlaceMarks();
    return result_;
  }

  void KeepState() {
    game_.GamesCount = result_.games;
    game_.GamesIncludedCount = result_.included;
    game_.GamesValueBox = boxes_.values;
    game_.GamesDeviationBox = boxes_.deviations;
    game_.GamesPointers = pointers_;
    game_.GamesMeanColumn = mean_column_;
    game_.GamesTopLine = std::clamp(game_.GamesTopLine, 1, std::max(result_.games, 1));
  }

 private:
  // Every game in order: visit(record, outcome, whether it is included).
  template <typename Visit>
  void Pass(double begin, double end, Visit&& visit) {
    constexpr std::int32_t kTellEvery = 4096;  // games
    log_.GoTo(1);
    Record record;
    for (std::int32_t done = 0; done < result_.games; ++done) {
      if (!log_.Read(record)) throw LogFailed{{false, SystemError(EIO)}};
      const GameOutcome outcome = OutcomeOf(game_, ValueOfGame(record, kNetValue));
      visit(record, outcome, IsIncluded(game_, outcome));
      if (progress_ && result_.games > kLongLog && done % kTellEvery == 0) {
        if (!progress_(begin + (end - begin) * done / result_.games)) throw GivenUp();
      }
    }
  }
  // The values of the included games in order.
  template <typename Visit>
  void PassIncluded(double begin, double end, Visit&& visit) {
    Pass(begin, end, [&](const Record& record, GameOutcome, bool included) {
      if (included) visit(ValueOfGame(record, result_.value));
    });
  }

  void FindRange() {
    GamesAnalysis& a = result_;
    Pass(0, 0.3, [&](const Record& record, GameOutcome outcome, bool included) {
      ++a.outcomes[static_cast<std::size_t>(outcome)];
      if (!included) return;
      const MoneyAmount x = ValueOfGame(record, a.value);
      a.low = a.included == 0 ? x : std::min(a.low, x);
      a.high = a.included == 0 ? x : std::max(a.high, x);
      ++a.included;
      a.sum += x;
      a.handle += ValueOfGame(record, kHandleValue);
      a.net += ValueOfGame(record, kNetValue);
    });
    a.range = a.high - a.low;
    if (a.included > 0) a.mean = PerGame(a.sum);
    if (a.handle.Raw() != 0) a.advantage = Quotient(a.net, a.handle);
  }

  MoneyAmount PerGame(MoneyAmount sum) const {
    return Quotient(sum, MoneyAmount::FromWhole(result_.included));
  }

  void FillColumns() {
    GamesAnalysis& a = result_;
    if (a.included == 0) return;
    double squares = 0;
    PassIncluded(0.3, 0.6, [&](MoneyAmount x) {
      const double distance = (x - a.mean).ToDouble();
      squares += distance * distance;
      a.GamesBuckets[static_cast<std::size_t>(ColumnOf(x, a.low, a.high))].Take(x);
    });
    a.variance = squares / a.included;
    a.deviation = MoneyAmount::FromDouble(std::sqrt(a.variance));
  }

  // Walks up the columns to the one in which the middle of the games lies. A column of several
  // values is spread over columns of its own, as often as it takes.
  void FindMedian() {
    GamesAnalysis& a = result_;
    if (a.included == 0) return;
    // Twice the middle position, so that it is whole.
    const std::int64_t middle = std::int64_t{a.included} + 1;
    std::array<GamesColumn, kHistogramColumns> columns = a.GamesBuckets;
    std::int64_t below = 0;  // games below the columns
    for (;;) {
      const GamesColumn* previous = nullptr;
      const GamesColumn* column = nullptr;
      std::int64_t count = below;
      for (const GamesColumn& candidate : columns) {
        if (candidate.games == 0) continue;
        if (2 * (count + candidate.games) >= middle) {
          column = &candidate;
          break;
        }
        count += candidate.games;
        previous = &candidate;
      }
      if (column == nullptr) throw LogFailed{{false, SystemError(EIO)}};  // it changed meanwhile
      if (previous != nullptr && 2 * (count + 1) > middle) {
        a.median = Quotient(previous->highest + column->lowest, MoneyAmount(2));
        a.median_is_average = true;
        return;
      }
      if (column->lowest == column->highest) {
        a.median = column->lowest;
        return;
      }
      const MoneyAmount low = column->lowest;
      const MoneyAmount high = column->highest;
      columns.fill({});
      below = 0;
      PassIncluded(0.6, 0.6, [&](MoneyAmount x) {
        if (x < low) ++below;
        if (x < low || x > high) return;
        columns[static_cast<std::size_t>(ColumnOf(x, low, high))].Take(x);
      });
    }
  }

  void ReadMoments() {
    GamesAnalysis& a = result_;
    if (a.included == 0) return;
    const MoneyAmount low = boxes_.Value(0);
    const MoneyAmount high = boxes_.Value(1);
    const double deviation = a.deviation.ToDouble();
    MoneyAmount cubes;
    MoneyAmount fourths;
    PassIncluded(0.6, 1, [&](MoneyAmount x) {
      if (boxes_.Holds(low, high, x)) ++a.in_range;
      if (deviation <= 0) return;
      const double z = (x - a.mean).ToDouble() / deviation;
      cubes += MoneyAmount::FromDouble(z * z * z);
      fourths += MoneyAmount::FromDouble(z * z * z * z);
    });
    if (deviation <= 0) return;
    a.skew = PerGame(cubes);
    a.kurtosis = PerGame(fourths) - MoneyAmount(3);
  }

  void FindMode() {
    const int width = BarWidth(game_);
    for (int first = 0; first < kHistogramColumns; first += width) {
      const GamesBar bar = BarAt(result_, first, width);
      if (bar.total.games > result_.mode.total.games) result_.mode = bar;
    }
  }

  void PlaceMarks() {
    GamesAnalysis& a = result_;
    const auto pointer = [&](std::size_t i) {
      if (a.range.Raw() == 0) return kLastColumn;
      const std::int64_t column = ColumnAt(Offset(boxes_.Value(i), a.low), a.range);
      return static_cast<int>(std::min<std::int64_t>(std::abs(column), kLastColumn));
    };
    pointers_ = {static_cast<double>(pointer(0)), static_cast<double>(pointer(1))};
    mean_column_ = a.low == a.high ? kMiddleColumn
                                   : static_cast<int>(ColumnAt(Offset(a.mean, a.low), a.range));
    if (a.included == 0) return;
    const auto mark = [&](std::int64_t column, int color) {
      a.GamesBuckets[static_cast<std::size_t>(column)].mark = color;
    };
    mark(mean_column_, MarkOfMean(a.mean));
    if (a.deviation.Raw() <= 0) return;
    for (const int side : {1, -1}) {
      __int128 offset = Offset(a.mean, a.low);
      for (;;) {
        offset += side * a.deviation.Raw();
        const std::int64_t column = ColumnAt(offset, a.range);
        if (column < 0 || column > kLastColumn) break;
        mark(column, kMarkOfDeviations);
      }
    }
  }

  Game& game_;
  const GamesProgress& progress_;
  GamesLogReader log_;
  GamesAnalysis result_;
  RangeBoxes boxes_;
  std::array<double, 2> pointers_{};
  int mean_column_ = 0;
};

}  // namespace

GameOutcome OutcomeOf(const GamesLogState& state, MoneyAmount net) {
  if (net > state.GamesBreakHigh) return kGameWon;
  return net < state.GamesBreakLow ? kGameLost : kGameEven;
}

bool IsIncluded(const Game& game, GameOutcome outcome) {
  return (game.GamesViewChoice >> outcome & 1) != 0;
}

void GamesColumn::Take(MoneyAmount value) {
  lowest = games == 0 ? value : std::min(lowest, value);
  highest = games == 0 ? value : std::max(highest, value);
  ++games;
}

int BarWidth(const GamesLogState& state) {
  constexpr std::int32_t kUsualWidth = 5;
  const auto& widths = kGamesBarWidths;
  const bool known = std::find(widths.begin(), widths.end(), state.GamesBarWidth) != widths.end();
  return known ? state.GamesBarWidth : kUsualWidth;
}

GamesBar BarAt(const GamesAnalysis& analysis, int column, int width) {
  GamesBar bar;
  bar.first = column - column % width;
  bar.width = width;
  for (int i = bar.first; i < bar.first + width; ++i) {
    const GamesColumn& part = analysis.GamesBuckets[static_cast<std::size_t>(i)];
    if (part.games == 0) continue;
    const bool first = bar.total.games == 0;
    bar.total.lowest = first ? part.lowest : std::min(bar.total.lowest, part.lowest);
    bar.total.highest = first ? part.highest : std::max(bar.total.highest, part.highest);
    bar.total.games += part.games;
  }
  return bar;
}

std::string DeviationText(const GamesAnalysis& analysis, MoneyAmount value) {
  if (analysis.deviation.Raw() <= 0) return "0";
  const double distance = (value - analysis.mean).ToDouble();
  return FormatNumber(distance / analysis.deviation.ToDouble(), "0.########;-0.########;0");
}

std::optional<GamesAnalysis> AnalyzeGames(Game& game, int value, const GamesProgress& progress) {
  FallBackToDefaultLog(game);
  Analyst analyst(game, value, progress);
  try {
    GamesAnalysis analysis = analyst.Analyze();
    analyst.KeepState();
    return analysis;
  } catch (const GivenUp&) {
    return std::nullopt;
  } catch (const LogFailed& failed) {
    TellLogFault(game, game.GamesLogFile, failed.fault, kAnalysisPlace);
  } catch (const std::exception& error) {
    constexpr int kOverflow = 6;
    TellLogFault(game, game.GamesLogFile, {false, {kOverflow, error.what()}}, kAnalysisPlace);
  }
  return std::nullopt;
}

}  // namespace feltmaster
