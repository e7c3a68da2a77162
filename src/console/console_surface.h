#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "game/game.h"
#include "surface/null_surface.h"

namespace feltmaster {

// An answer queued for a dialog. A number answers a dialog with fields, confirmed by OK.
struct QueuedAnswer {
  MessageAnswer button = kAnswerOk;
  bool typed = false;
  std::string input1;
  std::string input2;
};
// "ok", "yes", "no", "cancel", a number, or two numbers joined by a comma.
std::optional<QueuedAnswer> ReadAnswer(std::string_view text);

// What the surface has shown, for the answer of the command that raised it.
struct ShownMessage {
  std::string title;
  std::string text;
  std::int32_t options = 0;
  std::int32_t answer = 0;
};
struct ShownSettle {
  std::string title;
  std::vector<std::pair<std::string, std::string>> rows;
  std::int32_t button = 0;
};

// A table in a terminal. Dialogs take their answers from the queues, then from the person at the
// terminal if there is one, else their default button. Nothing waits, nothing sounds, and the table
// counts as visible. Seeded, its clock stands at the seed and moves on by a millisecond at each
// reading, so that a run can be repeated; unseeded it is the time of day.
class ConsoleSurface : public NullSurface {
 public:
  ConsoleSurface(Game& table, std::optional<std::int32_t> seed);

  void LetEventsThrough() override;
  void Wait(double, const bool&) override { LetEventsThrough(); }
  std::int32_t MillisecondClock() override;
  double SecondsSinceMidnight() override;
  bool TableMinimised() override { return false; }
  CalendarTime Now() override;
  MessageReply ShowMessage(const MessageRequest& request) override;
  void ShowNotice(std::string_view title, std::string_view text) override;
  SettleReply ShowSettle(const SettleRequest& request) override;
  bool ShowStep(const StepRequest& request) override;
  void AnimateDice() override;
  void RefreshOpenScreens() override;
  std::string AskFile(const FileRequest& request) override;
  bool HasPrinter() override { return true; }
  std::optional<FileError> Print(const Document& document) override;

  std::deque<QueuedAnswer> Answers;
  std::deque<int> SettleButtons;
  std::vector<ShownMessage> Messages;
  std::vector<ShownSettle> Settles;

  // The file that takes what is printed. A report that comes by itself, such as a full page of
  // graphs, goes to the data folder as report-1.pdf, report-2.pdf and so on.
  std::string PrintFile;
  std::size_t PagesPrinted = 0;

  // Where dialogs and rolls are told as they come; null for nowhere.
  std::ostream* Paper = nullptr;
  // Asks the person at the terminal; nothing means that there is no answer. May be empty.
  std::function<std::optional<std::string>(const std::string& prompt)> Ask;
  // Called when events are let through; true when the person asks for the chain to stop.
  std::function<bool()> Interrupted;
  bool WasInterrupted = false;  // since somebody last set it to false

 private:
  QueuedAnswer AnswerTo(const MessageRequest& request);
  int ButtonFor(const SettleRequest& request);

  Game& table_;
  bool seeded_;
  bool rolled_in_sight_ = false;  // dice were thrown, and what they did is still to be told
};

}  // namespace feltmaster
