#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "base/money.h"

namespace feltmaster {

enum LineKinds : std::int32_t {
  kWhen = 1,
  kWhile = 2,
  kAndWhen = 3,
  kAndWhile = 4,
  kOrWhen = 5,
  kOrWhile = 6,
  kXorWhen = 7,
  kXorWhile = 8,
  kThen = 11,
  kElse = 12,
  kDoThis = 13,
  kConditionLine = 20,
  kActionLine = 30,
  kLabelLine = 90,
  kCommentLine = 99,
};

inline constexpr std::size_t kLineNameSize = 80;
inline constexpr std::size_t kLineTextSize = 128;

struct ScriptLine {
  std::int32_t LineKind = 0;
  std::int32_t LineCode = 0;     // the action; of a condition line the comparison
  std::string LineName;          // at most 80 bytes, trailing blanks removed
  MoneyAmount LineAmount;        // flags: -1 True, 0 False
  std::int32_t LineSubject = 0;  // the condition; of an action line the value that it reads
  std::int32_t LineSubjectStack = 0;
  std::int32_t LineReserved1 = 0;
  std::int32_t LineTarget = 0;  // what is compared with; what the action works on
  std::int32_t LineTargetStack = 0;
  std::int32_t LineReserved2 = 0;
  bool LineSelected = false;   // of the editor, never stored
  std::int32_t LineShade = 0;  // of the editor, never stored
  std::string LineText;        // the printable line with its indentation, at most 128 bytes
};

struct ScriptFlag {
  std::string FlagName;
  bool FlagValue = false;
  bool FlagChanged = false;
};

struct CompiledScript;  // autobet/compiled_script.h

// Whoever changes ScriptLines calls ScriptLinesChanged (autobet/script_lines.h), which drops the
// compiled form.
struct ScriptState {
  std::vector<ScriptLine> ScriptLines;  // line 1 is element 0
  std::vector<ScriptFlag> ScriptFlags;  // flag 1 is element 0
  std::vector<std::string> ScriptLabels;
  std::string ScriptFileName;
  bool ScriptUnsaved = false;
  bool ScriptNeedsInit = false;
  std::int32_t ScriptActive = 0;  // 1 = active
  bool HotKeyRunning = false;
  bool ScriptFileMode = false;
  std::int32_t ScriptCursorLine = 1;
  bool AnyFlagChanged = false;  // some FlagChanged may be set
  std::shared_ptr<const CompiledScript> Compiled;
  std::vector<ScriptLine> ClipLines;  // the lines last cut or copied in the editor

  // One run of the interpreter.
  bool AutoBetRunning = false;
  std::int32_t CurrentLine = 0;
  bool ShowSteps = false;
  double ScriptStartTime = 0;  // seconds since midnight

  std::string ScriptOutputFile;
  std::shared_ptr<void> ScriptOutput;  // the open output file; autobet/output_file.h knows it
};

// The message dialog's arguments and results.
enum MessageAnswer : std::int32_t {
  kAnswerOk = 1,
  kAnswerCancel = 2,
  kAnswerYes = 6,
  kAnswerNo = 7
};

enum MessageOption : std::int32_t {
  kButtonOk = 1,
  kButtonYes = 2,
  kButtonNo = 4,
  kButtonCancel = 8,
  kButtonHelp = 16,
  kOneInput = 128,
  kTwoInputs = 192,
  kPictureOk = 256,
  kPictureStop = 512,
  kPictureQuestion = 1024,
  kDefaultYes = 4096,
  kDefaultNo = 8192,
  kDefaultCancel = 12288,
  kDefaultHelp = 16384,
  kHideActions = 65536,
  kHideLimits = 131072,
  kHideCharges = 262144,
  kHideScript = 524288,
};

struct MessageState {
  std::string MsgText;  // lines are parted by '\n'
  std::string MsgTitle;
  std::int32_t MsgHelpId = 0;
  std::int32_t MsgOptions = 0;
  std::int32_t MsgAnswer = 1;
  MoneyAmount MsgInput2;
  std::string MsgInputDefault;      // text the first field opens with
  std::string MsgInput2Default;     // and the second
  std::string MsgInputText;         // what stood in the first field, as typed
  std::int32_t MsgInputLength = 0;  // longest text of a field, 0 for no limit of its own
};

}  // namespace feltmaster
