#pragma once

#include <QGroupBox>
#include <functional>
#include <map>
#include <vector>

#include "autobet/line_draft.h"
#include "desktop/log_button.h"

class QLineEdit;
class QListWidget;

namespace feltmaster {

// Where conditions, or actions, are composed: the lists to choose from, and the sentence that
// results, with the fields of its operands in it.
class LineComposer : public QGroupBox {
 public:
  enum class Kind : std::uint8_t { kCondition, kAction };
  LineComposer(Kind kind, Game& game, QWidget* parent);

  LogButton* Button() const { return button_; }
  const LineDraft& Draft() const { return draft_; }
  // Puts another draft into the lists and fields.
  void Load(const LineDraft& draft);
  // A label was logged: a jump goes there.
  void TakeLabel(const std::string& label);
  // Labels or flags have changed.
  void ShowChoice();
  // The fields are shown as parts of a line that waits for its place.
  void ShowWaiting(bool waits);
  void FocusPart(DraftPart part);
  // The draft was changed by the player.
  std::function<void()> edited = [] {};

 private:
  struct ListRow {
    const char* name;
    DraftList list;
    const char* describes;
    int share;  // of the width
  };
  struct PartRow {
    const char* name;
    DraftPart part;
    const char* describes;
  };
  static const std::vector<ListRow>& ListsOf(Kind kind);
  static const std::vector<PartRow>& PartRowsOf(Kind kind);

  QWidget* MakePart(const PartRow& row);
  QLineEdit* MakeField(const PartRow& row);
  void ShowLists();
  void ShowSentence();
  void AskForFile();
  void Change(const std::function<void()>& change);

  Game& game_;
  LineDraft draft_;
  std::vector<std::pair<DraftList, QListWidget*>> lists_;
  std::map<DraftPart, QWidget*> parts_;
  QWidget* sentence_ = nullptr;
  LogButton* button_ = nullptr;
  bool showing_ = false;  // the lists and fields are being written, not read
};

}  // namespace feltmaster
