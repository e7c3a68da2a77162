#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/calendar.h"
#include "base/money.h"
#include "base/record_file.h"

namespace feltmaster {

struct Document;  // reports/document.h

// A message or question for the player. `options` is the bit set of buttons, fields, picture,
// default and Hide box (game/script.h, MessageOption); the help topic belongs to the Help button.
struct MessageRequest {
  std::string_view title;
  std::string_view text;  // lines are parted by '\n'
  std::int32_t options = 0;
  std::int32_t help = 0;
  std::string_view input_default;
  std::string_view input2_default;
  std::int32_t input_length = 0;  // longest text of a field, 0 for no limit of its own
};
struct MessageReply {
  std::int32_t answer = 1;  // 1 OK, 6 Yes, 7 No, 2 Cancel; 0 when closed without a button
  std::string input1;
  std::string input2;
  bool hide = false;  // the Hide box was ticked
};

// A decided bet that asks what to do with it.
struct SettleRequest {
  struct Row {
    std::string label;
    std::string amount;
    bool bold = false;
  };
  std::string_view title;
  std::vector<Row> rows;
  std::vector<std::string> captions;  // of buttons 0 to 6
  bool won = true;
  bool only_take_down = false;  // buttons 1 to 6 and the option rows are disabled
  int default_button = 0;
  // The two option rows, "Same Bet:" and "Bet:"; the surface may change them.
  struct Option {
    int math_operator = 0;  // 0 "+", 1 "-", 2 "x", 3 "/"
    MoneyAmount amount;
    int units = 0;  // 0 "$", 1 "%", 2 to 6 a chip unit
  };
  Option options[2];
  std::int32_t help = 0;
};
struct SettleReply {
  int button = 0;
  SettleRequest::Option options[2];
  bool stop_rolling = false;  // F2 or the right mouse button while the dialog was up
};

// One report of the step-through.
struct StepRequest {
  std::int32_t line = 0;
  std::string_view text;
  std::string_view status;
};

struct FileRequest {
  std::string_view caption;
  std::string_view pattern;
  bool for_saving = false;
  std::string_view start_name;
  std::string_view folder = {};
};

// What of the table picture has changed.
enum TableChange : std::uint32_t {
  kChangedAmounts = 1,
  kChangedChips = 2,
  kChangedPuck = 4,
  kChangedDice = 8,
  kChangedBanner = 16,
  kChangedPrompt = 32,
  kChangedStatus = 64,  // the status lines
  kChangedEntryBox = 128,
  kChangedTool = 256,  // the selected tool
  kChangedAll = 511,
};

// The only road from the logic to the machine. In Hyper-Drive the logic calls no more of it than
// LetEventsThrough, Throttle, RefreshOpenScreens and the clocks, dialogs that a script asks for,
// and the printing of full pages of the bankroll graph.
class Surface {
 public:
  virtual ~Surface() = default;

  // Pending events run; a command that arrives may clear KeepRolling or AutoBetRunning.
  virtual void LetEventsThrough() = 0;
  // Waits, letting events through all the while, for so many seconds or until `goes_on` is false.
  virtual void Wait(double seconds, const bool& goes_on) = 0;
  // The pause of Hyper-Drive after a roll: about 10 ms at 0, twice as long for each step up to 10.
  virtual void Throttle(int setting) = 0;

  virtual std::int32_t MillisecondClock() = 0;  // wraps as a signed 32-bit number
  virtual double SecondsSinceMidnight() = 0;
  virtual CalendarTime Now() = 0;
  // 0 up to but not 1; for what is no roll of the game.
  virtual double PlainUniform() = 0;

  virtual bool TableMinimised() = 0;
  virtual MessageReply ShowMessage(const MessageRequest& request) = 0;
  // A notice without buttons that stays until the next one takes its place; an empty text takes it
  // away.
  virtual void ShowNotice(std::string_view title, std::string_view text) = 0;
  virtual SettleReply ShowSettle(const SettleRequest& request) = 0;
  // False when the player cancels the step-through.
  virtual bool ShowStep(const StepRequest& request) = 0;
  // The name as typed or chosen, with or without a folder; empty when the player gave up.
  virtual std::string AskFile(const FileRequest& request) = 0;

  // Plays a wave file; waits for its end if asked to. Calls of the stick person (.stk) are heard
  // one after the other, other sounds at once. An empty name stops what plays.
  virtual void PlaySound(std::string_view file, bool wait) = 0;
  virtual int Volume() = 0;  // 0 to 100
  virtual void SetVolume(int volume) = 0;

  virtual void TableChanged(std::uint32_t what) = 0;
  virtual void ShowBanner(std::string_view text) = 0;  // empty takes it away
  // The five frames of tumbling dice; returns when the dice lie.
  virtual void AnimateDice() = 0;
  virtual void ShowerOfChips() = 0;
  virtual void RefreshOpenScreens() = 0;

  // Without a printer nothing prints by itself.
  virtual bool HasPrinter() = 0;
  // Prints a finished report; the error when it could not be.
  virtual std::optional<FileError> Print(const Document& document) = 0;

  virtual void SetClipboard(std::string_view text) = 0;
  virtual std::string Clipboard() = 0;
  virtual void OpenHelp(std::int32_t topic) = 0;
};

}  // namespace feltmaster
