#include "console/console_surface.h"

#include <chrono>
#include <ctime>
#include <limits>
#include <ostream>
#include <random>
#include <system_error>

#include "base/text.h"
#include "console/dealer_words.h"
#include "console/document_file.h"
#include "reports/document.h"
#include "reports/report_pages.h"

namespace feltmaster {

namespace {

struct Button {
  MessageOption option;
  MessageAnswer answer;
  std::string_view name;
};
constexpr Button kButtons[] = {
    {kButtonOk, kAnswerOk, "ok"},
    {kButtonYes, kAnswerYes, "yes"},
    {kButtonNo, kAnswerNo, "no"},
    {kButtonCancel, kAnswerCancel, "cancel"},
};

bool Offers(std::int32_t options, MessageAnswer answer) {
  for (const Button& button : kButtons) {
    if (button.answer == answer) return (options & button.option) != 0;
  }
  return false;
}
std::string_view NameOfAnswer(std::int32_t answer) {
  for (const Button& button : kButtons) {
    if (button.answer == answer) return button.name;
  }
  return "closed";
}
bool HasFields(std::int32_t options) {
  return (options & kOneInput) != 0;
}
int ButtonCount(std::int32_t options) {
  int count = 0;
  for (const Button& button : kButtons) count += (options & button.option) != 0 ? 1 : 0;
  return count;
}

// The default button, told by the bits above the pictures; a set with a Hide box has none. Without
// a default the first button counts.
MessageAnswer DefaultAnswer(std::int32_t options) {
  constexpr std::int32_t kStep = kDefaultYes;
  const std::int32_t number = options / kStep;
  if (number >= 0 && number < static_cast<std::int32_t>(std::size(kButtons))) {
    const Button& button = kButtons[number];
    if ((options & button.option) != 0) return button.answer;
  }
  for (const Button& button : kButtons) {
    if ((options & button.option) != 0) return button.answer;
  }
  return kAnswerOk;
}

bool IsNumber(std::string_view text) {
  if (text.starts_with('-')) text.remove_prefix(1);
  std::size_t digits = 0;
  std::size_t points = 0;
  for (const char c : text) {
    if (c >= '0' && c <= '9') {
      ++digits;
    } else if (c == '.') {
      ++points;
    } else {
      return false;
    }
  }
  return digits > 0 && points <= 1;
}

// Lines of a dialog stand indented, so that they are told apart from the answers of commands.
void PrintDialog(std::ostream& paper, std::string_view title, std::string_view text) {
  paper << "  [" << title << "]\n";
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    paper << "  " << text.substr(0, end) << '\n';
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  }
}

std::string WithoutAccessKey(std::string_view caption) {
  std::string text;
  for (const char c : caption) {
    if (c != '&') text += c;
  }
  return text;
}

std::uint64_t AnySeed() {
  std::random_device device;
  return (std::uint64_t{device()} << 32) ^ device();
}

}  // namespace

std::optional<QueuedAnswer> ReadAnswer(std::string_view text) {
  for (const Button& button : kButtons) {
    if (EqualIgnoringCase(text, button.name)) return QueuedAnswer{button.answer, false, {}, {}};
  }
  const std::size_t comma = text.find(',');
  const std::string_view first = text.substr(0, comma);
  if (!IsNumber(first)) return std::nullopt;
  QueuedAnswer answer{kAnswerOk, true, std::string(first), {}};
  if (comma != std::string_view::npos) {
    if (!IsNumber(text.substr(comma + 1))) return std::nullopt;
    answer.input2 = text.substr(comma + 1);
  }
  return answer;
}

ConsoleSurface::ConsoleSurface(Game& table, std::optional<std::int32_t> seed)
    : NullSurface(seed ? static_cast<std::uint64_t>(*seed) : AnySeed()),
      table_(table),
      seeded_(seed.has_value()) {
  if (seed) SetClock(*seed);
}

void ConsoleSurface::LetEventsThrough() {
  if (!Interrupted || !Interrupted()) return;
  WasInterrupted = true;
  table_.KeepRolling = false;
  table_.AutoBetRunning = false;
}

std::int32_t ConsoleSurface::MillisecondClock() {
  if (!seeded_) {
    // The time of day, from 1: always a number that every generator takes as its seed.
    return static_cast<std::int32_t>(SecondsSinceMidnight() * 1000) + 1;
  }
  const std::int32_t now = clock_;
  // Stays positive: a negative reading would seed nothing.
  clock_ = clock_ == std::numeric_limits<std::int32_t>::max() ? 1 : clock_ + 1;
  return now;
}

double ConsoleSurface::SecondsSinceMidnight() {
  constexpr double kDay = 86'400;
  if (seeded_) {
    const double seconds = MillisecondClock() / 1000.0;
    return seconds - kDay * static_cast<double>(static_cast<int>(seconds / kDay));
  }
  using std::chrono::duration;
  using std::chrono::system_clock;
  const auto now = system_clock::now();
  const std::time_t time = system_clock::to_time_t(now);
  const double fraction = duration<double>(now - system_clock::from_time_t(time)).count();
  std::tm local{};
  localtime_r(&time, &local);
  const double seconds = local.tm_hour * 3600 + local.tm_min * 60 + local.tm_sec + fraction;
  return seconds < kDay ? seconds : 0;  // a leap second
}

// Seeded, the day begins when the clock does. Looking at the calendar does not move the clock on.
CalendarTime ConsoleSurface::Now() {
  if (!seeded_) return LocalCalendar(std::chrono::system_clock::now());
  const std::int32_t seconds = clock_ / 1000 % (24 * 3600);
  return {.hour = seconds / 3600, .minute = seconds / 60 % 60, .second = seconds % 60};
}

void ConsoleSurface::ShowNotice(std::string_view title, std::string_view text) {
  if (text.empty()) return;
  if (Paper != nullptr) PrintDialog(*Paper, title, text);
  Messages.push_back({std::string(title), std::string(text), 0, 0});
}

std::optional<FileError> ConsoleSurface::Print(const Document& document) {
  std::string path = PrintFile;
  if (path.empty()) path = FreeReportName(table_.AppPath);
  const std::optional<FileError> error = WriteDocument(document, path);
  if (error) return error;
  PagesPrinted += document.pages.size();
  if (Paper != nullptr && PrintFile.empty()) *Paper << "  Printed in " << path << ".\n";
  return {};
}

QueuedAnswer ConsoleSurface::AnswerTo(const MessageRequest& request) {
  const std::int32_t options = request.options;
  const QueuedAnswer by_default{DefaultAnswer(options), false, std::string(request.input_default),
                                std::string(request.input2_default)};
  // A mere notice leaves the answers in the queue to the questions behind it, unless "ok" is meant.
  const bool notice = !HasFields(options) && ButtonCount(options) <= 1;
  if (!Answers.empty()) {
    QueuedAnswer answer = Answers.front();
    const bool fits = answer.typed ? HasFields(options) : Offers(options, answer.button);
    if (notice && !(fits && !answer.typed)) return by_default;
    Answers.pop_front();
    if (!fits) return by_default;
    if (!answer.typed) answer.input1 = request.input_default;
    if (answer.input2.empty()) answer.input2 = request.input2_default;
    return answer;
  }
  if (notice || !Ask) return by_default;
  while (const auto line = Ask("  (" + std::string(NameOfAnswer(by_default.button)) + ")? ")) {
    const std::string_view typed = Trim(*line);
    if (typed.empty()) return by_default;
    if (auto answer = ReadAnswer(typed)) {
      if (answer->input2.empty()) answer->input2 = request.input2_default;
      if (answer->typed && HasFields(options)) return *answer;
      if (!answer->typed && Offers(options, answer->button)) {
        answer->input1 = request.input_default;
        return *answer;
      }
    }
  }
  return by_default;
}

MessageReply ConsoleSurface::ShowMessage(const MessageRequest& request) {
  if (Paper != nullptr) PrintDialog(*Paper, request.title, request.text);
  const bool had_answers = !Answers.empty();
  QueuedAnswer answer = AnswerTo(request);
  // The seed dialog comes back until it holds a valid seed; with nobody to type one, that is for
  // ever.
  if (!had_answers && !Ask && request.text.starts_with("Your seed value is out of limits.")) {
    answer.input1 = "1";
  }
  if (Paper != nullptr && ButtonCount(request.options) > 1) {
    *Paper << "  (" << NameOfAnswer(answer.button) << ")\n";
  }
  Messages.push_back(
      {std::string(request.title), std::string(request.text), request.options, answer.button});
  MessageReply reply;
  reply.answer = answer.button;
  reply.input1 = answer.input1;
  reply.input2 = answer.input2;
  return reply;
}

int ConsoleSurface::ButtonFor(const SettleRequest& request) {
  const int last = request.only_take_down ? 0 : 6;
  const int by_default = request.default_button <= last ? request.default_button : 0;
  if (!SettleButtons.empty()) {
    const int button = SettleButtons.front();
    SettleButtons.pop_front();
    return button <= last ? button : by_default;
  }
  if (!Ask) return by_default;
  while (const auto line =
             Ask("  (0 to " + std::to_string(last) + ", " + std::to_string(by_default) + ")? ")) {
    const std::string_view typed = Trim(*line);
    if (typed.empty()) return by_default;
    if (typed.size() == 1 && typed[0] >= '0' && typed[0] <= '0' + last) return typed[0] - '0';
  }
  return by_default;
}

SettleReply ConsoleSurface::ShowSettle(const SettleRequest& request) {
  ShownSettle shown;
  shown.title = request.title;
  for (const SettleRequest::Row& row : request.rows) shown.rows.emplace_back(row.label, row.amount);
  if (Paper != nullptr) {
    PrintDialog(*Paper, request.title, {});
    for (const auto& [label, amount] : shown.rows) *Paper << "  " << label << ' ' << amount << '\n';
    const std::size_t offered = request.only_take_down ? 1 : request.captions.size();
    for (std::size_t i = 0; Ask && i < offered && i < request.captions.size(); ++i) {
      *Paper << "  " << i << "  " << WithoutAccessKey(request.captions[i]) << '\n';
    }
  }
  shown.button = ButtonFor(request);
  const auto taken = static_cast<std::size_t>(shown.button);
  if (Paper != nullptr && taken < request.captions.size()) {
    *Paper << "  (" << WithoutAccessKey(request.captions[taken]) << ")\n";
  }
  Settles.push_back(shown);

  SettleReply reply;
  reply.button = shown.button;
  reply.options[0] = request.options[0];
  reply.options[1] = request.options[1];
  return reply;
}

std::string ConsoleSurface::AskFile(const FileRequest& request) {
  if (!Ask) return {};
  return Ask("  " + std::string(request.caption) + " (" + std::string(request.pattern) + "): ")
      .value_or(std::string());
}

bool ConsoleSurface::ShowStep(const StepRequest& request) {
  if (Paper != nullptr) {
    *Paper << "  Line #" << request.line << ' ' << Trim(request.text) << "\n    "
           << Trim(request.status) << '\n';
  }
  return true;
}

void ConsoleSurface::AnimateDice() {
  if (Paper != nullptr) *Paper << DiceInWords(table_);
  rolled_in_sight_ = true;
}

// The screens are refreshed when a roll is settled.
void ConsoleSurface::RefreshOpenScreens() {
  if (Paper != nullptr && rolled_in_sight_) *Paper << RollInWords(table_);
  rolled_in_sight_ = false;
}

}  // namespace feltmaster
