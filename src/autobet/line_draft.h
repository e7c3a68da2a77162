#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "autobet/vocabulary.h"
#include "game/game.h"

namespace feltmaster {

// A condition or action that is being composed: the rows chosen from the lists, and what was typed
// into the fields beside them.
struct LineDraft {
  const ConditionRow* condition = nullptr;    // of a condition line
  const ComparisonRow* comparison = nullptr;  // null when the condition is complete without
  const ActionRow* action = nullptr;          // of an action line
  const PickRow* value = nullptr;             // of listOf
  const PickRow* target = nullptr;            // of listTo or listCompare
  std::string amount = {};
  std::string stack = {};         // a Chip-Stack, or the rolls of an average
  std::string target_stack = {};  // the same beside `target`
  std::string name = {};
  bool truth = true;
};

// Drafts with the first row of each list chosen.
LineDraft ConditionDraft(const ConditionRow& row = kConditions.front());
LineDraft ActionDraft(const ActionRow& row = kActions.front());
// What has to be chosen and typed to compose this condition or action line once more. Nothing for
// other lines and for codes that no list has.
std::optional<LineDraft> DraftOf(const ScriptLine& line);

// The lists that rows are chosen from.
enum class DraftList : std::uint8_t {
  kLineRows,
  kComparisonRows,
  kValueRows,
  kTargetRows,
  kLabelRows
};

// The captions of a list, as far as the draft needs it now; empty when it is not shown.
std::vector<std::string> RowsOf(const LineDraft& draft, DraftList list, const Game& game);
// The chosen row, from 0; -1 when there is none.
int ChosenRow(const LineDraft& draft, DraftList list, const Game& game);
// Chooses a row. What was chosen and typed otherwise stays where it still fits.
void ChooseRow(LineDraft& draft, DraftList list, int row, const Game& game);

// What a draft shows, from left to right: captions, words, and fields with what stands in them.
enum class DraftPart : std::uint8_t {
  kCaption,
  kStack,         // field: a Chip-Stack, or the rolls of an average
  kAverageWords,  // "roll average )" behind the condition's own
  kComparison,
  kFlag,    // field
  kName,    // field: a name, message or file
  kTruth,   // "is True" or the like, turned over by a press
  kAmount,  // field
  kTimes,   // "time", "rolls" and the like
  kLabel,
  kOperator,
  kValue,
  kOn,  // "on", "to", "from the ATM" and the like
  kTarget,
  kTargetStack,  // field
};
struct ShownPart {
  DraftPart part;
  std::string text;
  Field field = Field::kNone;  // that a text field holds, or that is shown by it
};
std::vector<ShownPart> PartsOf(const LineDraft& draft);

// The text of a field that a part types into.
std::string& TextOf(LineDraft& draft, DraftPart part);
// A field that is left: an empty amount is 0 or "each", an empty number 0 or "all".
void SettleField(LineDraft& draft, DraftPart part);
// Whether a field takes this text, typed from its left end.
bool FieldTakes(const LineDraft& draft, const ShownPart& part, std::string_view text);
// The caption of the file dialog for the file that an action names; empty for other actions.
std::string_view FileCaptionOf(const LineDraft& draft);

// Why a line was refused.
struct DraftFault {
  std::string text;
  std::string title;
  std::int32_t help = 0;
  std::optional<DraftPart> at;  // where the player goes on; a label that is missing has no part
};
std::optional<DraftFault> FaultOf(const LineDraft& draft, const Game& game);
// The finished line of a draft without a fault.
ScriptLine LineOf(const LineDraft& draft);

ScriptLine StartLine(const StartRow& row);
// A label, or, when the text begins with "'", a comment.
std::optional<DraftFault> LabelFault(std::string_view text, const Game& game);
ScriptLine LabelLine(std::string_view text);

}  // namespace feltmaster
