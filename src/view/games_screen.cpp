#include "view/games_screen.h"

#include <algorithm>
#include <cmath>
#include <filesystem>

#include "base/number_format.h"
#include "base/text.h"
#include "files/games_log.h"

namespace feltmaster {

namespace {

constexpr int kLastColumn = kHistogramColumns - 1;
constexpr std::int32_t kScrollEnd = 30'000;
constexpr std::int32_t kHistogramShown = 8;  // bit of GamesViewChoice

constexpr std::string_view kFourPlaces = "#,##0.0###;-#,##0.0###;0";
constexpr std::string_view kTwoPlaces = "#,##0.0#;-#,##0.0#;0";

Tone SignTone(MoneyAmount amount) {
  return amount.Raw() == 0 ? Tone::kNeutral : ToneOf(amount);
}

double Percentage(std::int32_t part, std::int32_t whole) {
  return 100.0 * part / whole;
}

std::string ModeText(const GamesBar& mode) {
  const std::string lowest = FormatNumber(mode.total.lowest, kFourPlaces);
  if (mode.total.lowest == mode.total.highest) return lowest;
  return lowest + " to " + FormatNumber(mode.total.highest, kFourPlaces);
}
// A range on both sides of zero has no colour.
Tone ModeTone(const GamesBar& mode) {
  const Tone low = SignTone(mode.total.lowest);
  return low == SignTone(mode.total.highest) ? low : Tone::kNeutral;
}

MoneyAmount RangeEnd(const GamesLogState& state, std::size_t pointer) {
  return ParseMoney(state.GamesValueBox[pointer]);
}
bool IsBand(const GamesLogState& state) {
  return RangeEnd(state, 1) >= RangeEnd(state, 0);
}
int PointerColumn(const GamesLogState& state, std::size_t pointer) {
  return std::clamp(static_cast<int>(std::lround(state.GamesPointers[pointer])), 0, kLastColumn);
}

void CountRange(const GamesLogState& state, GamesAnalysis& analysis) {
  const int width = BarWidth(state);
  const int first = PointerColumn(state, 0) / width * width;
  const int last = PointerColumn(state, 1) / width * width + width - 1;
  const bool band = IsBand(state);
  analysis.in_range = 0;
  for (int column = 0; column < kHistogramColumns; ++column) {
    const bool inside =
        band ? column >= first && column <= last : column >= first || column <= last;
    if (inside) {
      analysis.in_range += analysis.GamesBuckets[static_cast<std::size_t>(column)].games;
    }
  }
}

}  // namespace

std::string GamesCaption(const Game& game) {
  const std::string name = std::filesystem::path(game.GamesLogFile).filename().string();
  if (name.empty() || EqualIgnoringCase(name, kDefaultGamesLog)) return "Games Log";
  return "Games Log (" + name + ")";
}

std::array<std::string, kGameOutcomes> OutcomeCaptions(const GamesLogState& state) {
  if (state.GamesBreakLow.Raw() == 0 && state.GamesBreakHigh.Raw() == 0) {
    return {"Won", "Broke-even", "Lost"};
  }
  const std::string low = FormatMoney(state.GamesBreakLow);
  const std::string high = FormatMoney(state.GamesBreakHigh);
  return {"> " + high, low == high ? low : low + " - " + high, "< " + low};
}

std::array<OutcomeFigure, kGameOutcomes + 1> OutcomeFigures(const Game& game,
                                                            const GamesAnalysis& analysis) {
  std::array<OutcomeFigure, kGameOutcomes + 1> figures;
  const std::array<std::string, kGameOutcomes> captions = OutcomeCaptions(game);
  for (std::size_t i = 0; i < captions.size(); ++i) {
    const std::int32_t games = analysis.outcomes[i];
    figures[i] = {captions[i], CountText(games),
                  analysis.games == 0
                      ? "0"
                      : FormatNumber(Percentage(games, analysis.games), "0.0#;-0.0#;0")};
  }
  figures.back() = {"Total", CountText(analysis.games), analysis.games == 0 ? "0" : "100"};
  return figures;
}

Figures GamesFigures(const GamesAnalysis& a) {
  const auto amount = [](std::string caption, MoneyAmount value, std::string_view picture) {
    return Figure{std::move(caption), FormatNumber(value, picture), SignTone(value)};
  };
  // The middle of the scale; the sum may be beyond all amounts.
  const __int128 ends = static_cast<__int128>(a.low.Raw()) + a.high.Raw();
  const auto below = static_cast<std::int64_t>(ends >> 1);
  const auto mid = MoneyAmount::FromRaw(below + (ends % 2 != 0 && below % 2 != 0 ? 1 : 0));
  return {
      amount("Sum", a.sum, kFourPlaces),
      amount("Mean", a.mean, kTwoPlaces),
      amount(a.median_is_average ? "   Median *" : "Median", a.median, kFourPlaces),
      {"Mode", ModeText(a.mode), ModeTone(a.mode)},
      amount("High", a.high, kFourPlaces),
      amount("Mid", mid, kFourPlaces),
      amount("Low", a.low, kFourPlaces),
      amount("Range", a.range, kFourPlaces),
      {"Variance", FormatNumber(a.variance, kTwoPlaces),
       a.variance > 0 ? Tone::kWin : Tone::kNeutral},
      amount("Std Dev", a.deviation, kTwoPlaces),
      amount("Skew", a.skew, kTwoPlaces),
      amount("Kurtosis", a.kurtosis, kTwoPlaces),
      amount("Net $", a.net, kTwoPlaces),
      amount("Handle $", a.handle, kTwoPlaces),
      amount("Advantage", a.advantage, "#,##0.0# %;-#,##0.0# %;0 %"),
  };
}

RangeFigures GamesInRange(const GamesAnalysis& analysis) {
  const std::int32_t games = analysis.in_range;
  const bool none = games == 0 || analysis.included == 0;
  return {FormatNumber(std::int64_t{games}, "#,###;-#,###;0") + (games == 1 ? " game" : " games"),
          (none ? "0" : FormatNumber(Percentage(games, analysis.included), kTwoPlaces)) + "%"};
}

GamesHistogram PaintGamesHistogram(const Game& game, const GamesAnalysis& analysis) {
  GamesHistogram picture;
  picture.empty = analysis.included == 0;
  picture.mean = game.GamesMeanColumn;
  if (picture.empty) return picture;
  const auto box = [](int first, int last) {
    return HistogramBox{first, 0, last + 1, kHistogramHeight};
  };
  const int left = PointerColumn(game, 0);
  const int right = PointerColumn(game, 1);
  if (!IsBand(game)) {
    picture.range = {box(0, right), box(left, kLastColumn)};
  } else if (left <= right) {
    picture.range = {box(left, right)};
  }
  if (analysis.deviation.Raw() != 0) {
    for (int column = 0; column < kHistogramColumns; ++column) {
      const int color = analysis.GamesBuckets[static_cast<std::size_t>(column)].mark;
      if (color != 0) picture.marks.push_back({column, color});
    }
  }
  const int width = BarWidth(game);
  const std::int32_t highest = analysis.mode.total.games;
  for (int first = 0; first < kHistogramColumns; first += width) {
    const GamesBar bar = BarAt(analysis, first, width);
    if (bar.total.games == 0) continue;
    const double height =
        std::round(kHistogramHeight * static_cast<double>(bar.total.games) / highest);
    picture.bars.push_back(
        {first, kHistogramHeight - static_cast<int>(height), first + width, kHistogramHeight});
  }
  picture.highest = CountText(highest);
  return picture;
}

void MoveGamesPointer(Game& game, GamesAnalysis& analysis, int pointer, int column) {
  const auto moved = static_cast<std::size_t>(pointer);
  const int width = BarWidth(game);
  const GamesBar bar = BarAt(analysis, std::clamp(column, 0, kLastColumn), width);
  const int place = pointer == 0 ? bar.first : bar.first + width - 1;
  MoneyAmount value;
  if (bar.total.games > 0) {
    value = pointer == 0 ? bar.total.lowest : bar.total.highest;
  } else {
    value = analysis.low +
            Ratio(analysis.range, MoneyAmount::FromRaw(place), MoneyAmount::FromRaw(kLastColumn));
  }
  game.GamesPointerHeld = pointer;
  game.GamesPointers[moved] = place;
  game.GamesValueBox[moved] = PlainNumber(value);
  game.GamesDeviationBox[moved] = DeviationText(analysis, value);
  CountRange(game, analysis);
}

void StepGamesPointer(Game& game, GamesAnalysis& analysis, int step, bool by_bars) {
  const int pointer = game.GamesPointerHeld;
  const int width = BarWidth(game);
  const int from = PointerColumn(game, static_cast<std::size_t>(pointer));
  int column = from + step * (by_bars ? width : 1);
  // A pointer that would snap back to where it stands goes on to the next bar.
  if (column / width == from / width) column = from + step * width;
  MoveGamesPointer(game, analysis, pointer, column);
}

std::vector<GameLine> GamesRawData(Game& game, int value, std::size_t count) {
  std::vector<GameLine> lines;
  GamesLogReader log;
  if (const std::optional<LogFault> fault = log.Open(game.GamesLogFile)) {
    TellLogFault(game, game.GamesLogFile, *fault, "ErrorShowGamesRawData");
    return lines;
  }
  std::int32_t number = std::max(game.GamesTopLine, 1);
  log.GoTo(number);
  Record record;
  for (; lines.size() < count && log.Read(record); ++number) {
    if (!IsIncluded(game, OutcomeOf(game, ValueOfGame(record, kNetValue)))) continue;
    const MoneyAmount amount = ValueOfGame(record, value);
    lines.push_back({number, FormatMoney(amount), SignTone(amount)});
  }
  return lines;
}

std::int32_t RawDataScroll(const GamesLogState& state) {
  if (state.GamesCount <= 1) return 1;
  const double share = static_cast<double>(state.GamesTopLine - 1) / (state.GamesCount - 1);
  return std::clamp(static_cast<std::int32_t>(std::lround(share * kScrollEnd)), 1, kScrollEnd);
}

std::int32_t GameAtScroll(const GamesLogState& state, std::int32_t place) {
  if (state.GamesCount <= 1) return 1;
  const double share = static_cast<double>(std::clamp(place, 1, kScrollEnd) - 1) / (kScrollEnd - 1);
  return 1 + static_cast<std::int32_t>(std::lround(share * (state.GamesCount - 1)));
}

Rows GamesRows(Game& game, const GamesAnalysis& analysis) {
  Rows rows = {{GamesCaption(game)}, {NameOfGameValue(analysis.value)}};
  for (const OutcomeFigure& outcome : OutcomeFigures(game, analysis)) {
    rows.push_back({outcome.caption, outcome.games, outcome.percent});
  }
  const Rows figures = RowsOf(GamesFigures(analysis));
  rows.insert(rows.end(), figures.begin(), figures.end());
  rows.push_back({"Range", game.GamesValueBox[0], game.GamesValueBox[1]});
  rows.push_back({"Std Devs", game.GamesDeviationBox[0], game.GamesDeviationBox[1]});
  const RangeFigures range = GamesInRange(analysis);
  rows.push_back({range.games, range.percent});
  if ((game.GamesViewChoice & kHistogramShown) == 0) {
    for (const GameLine& line : GamesRawData(game, analysis.value)) {
      rows.push_back({CountText(line.number), line.value});
    }
    return rows;
  }
  const int width = BarWidth(game);
  for (int first = 0; first < kHistogramColumns; first += width) {
    const GamesBar bar = BarAt(analysis, first, width);
    if (bar.total.games == 0) continue;
    rows.push_back({FormatMoney(bar.total.lowest), FormatMoney(bar.total.highest),
                    CountText(bar.total.games)});
  }
  return rows;
}

}  // namespace feltmaster
