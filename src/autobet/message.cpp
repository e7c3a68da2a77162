#include "autobet/message.h"

#include <array>
#include <utility>

#include "base/number_format.h"
#include "base/record_file.h"
#include "surface/surface.h"

namespace feltmaster {
namespace {

constexpr std::string_view kInterruptTitle = "Auto-Bet Active";
// A dialog sets the start of the run so far back that the run does not wait once more.
constexpr double kPacingCredit = 0.6;

struct HideRow {
  std::int32_t option;
  std::int32_t notice;
};
constexpr std::array<HideRow, 4> kHideRows = {{
    {kHideActions, kNoticeActions},
    {kHideLimits, kNoticeLimits},
    {kHideCharges, kNoticeCharges},
    {kHideScript, kNoticeScript},
}};

void StopAutomatics(Game& game) {
  game.AutoBetRunning = false;
  game.KeepRolling = false;
}

void HideNotices(Game& game) {
  for (const HideRow& row : kHideRows) {
    if ((game.MsgOptions & row.option) != 0) game.NotifyFlags &= ~row.notice;
  }
  game.surface->RefreshOpenScreens();
}

void TakeAnswer(Game& game, const MessageReply& reply) {
  if (reply.answer != 0) {
    game.MsgAnswer = reply.answer;
    if (reply.answer == kAnswerYes && game.AutoBetRunning && game.MsgTitle == kInterruptTitle) {
      StopAutomatics(game);
      if (game.HyperDriveActive) game.HyperDriveStopText = "Auto-Betting interrupted.";
    }
    if (reply.hide) HideNotices(game);
  }
  if ((game.MsgOptions & kOneInput) != 0) {
    game.MsgInputText = reply.input1;
    game.BetRequest = ParseMoney(reply.input1);
    game.MsgInput2 = ParseMoney(reply.input2);
  }
  EndPacing(game);
}

}  // namespace

void EndPacing(Game& game) {
  game.ScriptStartTime = game.surface->SecondsSinceMidnight() - kPacingCredit;
}

void ShowMessage(Game& game) {
  if (game.surface->TableMinimised()) {
    // Nobody can answer.
    if (game.MsgOptions != 0 && game.MsgOptions != kButtonOk) StopAutomatics(game);
  } else {
    MessageRequest request;
    request.title = game.MsgTitle;
    request.text = game.MsgText;
    request.options = game.MsgOptions;
    request.help = game.MsgHelpId;
    request.input_default = game.MsgInputDefault;
    request.input2_default = game.MsgInput2Default;
    request.input_length = game.MsgInputLength;
    TakeAnswer(game, game.surface->ShowMessage(request));
  }
  game.MsgInputDefault.clear();
  game.MsgInput2Default.clear();
  game.MsgInputLength = 0;
}

void ShowNotice(Game& game, std::string title, std::string text) {
  game.MsgTitle = std::move(title);
  game.MsgText = std::move(text);
  game.MsgOptions = 0;
  if (!game.surface->TableMinimised()) game.surface->ShowNotice(game.MsgTitle, game.MsgText);
}

void Tell(Game& game, std::string title, std::string text, std::int32_t options,
          std::int32_t help) {
  game.MsgTitle = std::move(title);
  game.MsgText = std::move(text);
  game.MsgOptions = options;
  game.MsgHelpId = help;
  ShowMessage(game);
}

bool AskYesNo(Game& game, std::string title, std::string text, std::int32_t options,
              std::int32_t help) {
  // What an unanswered question leaves behind.
  game.MsgAnswer = (options & kButtonCancel) != 0 ? kAnswerCancel : kAnswerNo;
  Tell(game, std::move(title), std::move(text), options, help);
  return game.MsgAnswer == kAnswerYes;
}

void TellNotSaved(Game& game, std::string_view what, const std::string& path) {
  Tell(game, "Unable to Save " + std::string(what),
       path + "\ncould not be saved: " + DescriptionIn(game.LastErrorText) + '.',
       kButtonOk | kPictureStop);
}

}  // namespace feltmaster
