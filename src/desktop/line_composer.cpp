#include "desktop/line_composer.h"

#include <QBoxLayout>
#include <QCompleter>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QMouseEvent>
#include <QStringListModel>
#include <QValidator>

#include "desktop/amount_field.h"
#include "desktop/flow_layout.h"
#include "desktop/qt_text.h"
#include "files/file_dialog.h"

namespace feltmaster {

namespace {

std::optional<ShownPart> Shown(const LineDraft& draft, DraftPart part) {
  for (ShownPart& shown : PartsOf(draft)) {
    if (shown.part == part) return shown;
  }
  return std::nullopt;
}

class PartValidator : public QValidator {
 public:
  PartValidator(const LineDraft& draft, DraftPart part, QObject* parent)
      : QValidator(parent), draft_(draft), part_(part) {}
  State validate(QString& text, int&) const override {
    const std::optional<ShownPart> shown = Shown(draft_, part_);
    return !shown || FieldTakes(draft_, *shown, FromQt(text)) ? Acceptable : Invalid;
  }

 private:
  const LineDraft& draft_;
  DraftPart part_;
};

// A field of the sentence.
class PartField : public WholeTextField {
 public:
  PartField(QWidget* parent, bool is_number) : WholeTextField(parent), is_number_(is_number) {}

  // A press; a blank at the begin of the text or elsewhere; a double press.
  std::function<bool()> pressed = [] { return false; };
  std::function<bool(bool at_begin)> blank = [](bool) { return false; };
  std::function<void()> pressed_twice = [] {};

 protected:
  void mousePressEvent(QMouseEvent* event) override {
    WholeTextField::mousePressEvent(event);
    pressed();
  }
  void mouseDoubleClickEvent(QMouseEvent* event) override {
    WholeTextField::mouseDoubleClickEvent(event);
    pressed_twice();
  }
  void keyPressEvent(QKeyEvent* event) override {
    const bool is_blank = event->text() == " ";
    if (is_blank && blank(cursorPosition() == 0 || selectedText() == text())) return;
    // A word such as "each" stands for a number; a number is typed over it.
    if (is_number_ && !text().isEmpty() && text().front().isLetter()) selectAll();
    WholeTextField::keyPressEvent(event);
  }

 private:
  bool is_number_;
};

int Letters(const QWidget& widget, int count) {
  return widget.fontMetrics().horizontalAdvance('n') * count;
}

int WidthOf(const QWidget& field, DraftPart part) {
  switch (part) {
    case DraftPart::kStack:
    case DraftPart::kTargetStack:
      return Letters(field, 6);
    case DraftPart::kAmount:
      return Letters(field, 12);
    default:
      return Letters(field, 28);
  }
}

bool IsField(DraftPart part) {
  return part == DraftPart::kStack || part == DraftPart::kTargetStack ||
         part == DraftPart::kAmount || part == DraftPart::kFlag || part == DraftPart::kName;
}

}  // namespace

const std::vector<LineComposer::ListRow>& LineComposer::ListsOf(Kind kind) {
  static const std::vector<ListRow> kConditionLists = {
      {"listCondition", DraftList::kLineRows, "Conditions", 5},
      {"listWhat", DraftList::kComparisonRows, "What is asked", 4},
      {"listCompare", DraftList::kTargetRows, "What it is compared with", 4},
  };
  static const std::vector<ListRow> kActionLists = {
      {"listAction", DraftList::kLineRows, "Actions", 5},
      {"listLabels", DraftList::kLabelRows, "Labels", 4},
      {"listOf", DraftList::kValueRows, "Values", 4},
      {"listTo", DraftList::kTargetRows, "What it works on", 4},
  };
  return kind == Kind::kCondition ? kConditionLists : kActionLists;
}

const std::vector<LineComposer::PartRow>& LineComposer::PartRowsOf(Kind kind) {
  static const std::vector<PartRow> kConditionParts = {
      {"lblCondition", DraftPart::kCaption, "Condition"},
      {"txtConditionStackNum", DraftPart::kStack, "Number of the Chip-Stack, or of the rolls"},
      {"lblDescribeRolls", DraftPart::kAverageWords, ""},
      {"lblWhat", DraftPart::kComparison, "What is asked"},
      {"txtConditionFlag", DraftPart::kFlag, "Flag"},
      {"txtConditionName", DraftPart::kName, "Name"},
      {"lblConditionTF", DraftPart::kTruth, "True or false"},
      {"txtConditionAmount", DraftPart::kAmount, "Amount"},
      {"lblCompare", DraftPart::kTarget, "What it is compared with"},
      {"txtCompareStackNum", DraftPart::kTargetStack, "Number of the Chip-Stack, or of the rolls"},
      {"lblDescribeTxtNumTimes", DraftPart::kTimes, ""},
  };
  static const std::vector<PartRow> kActionParts = {
      {"lblAction", DraftPart::kCaption, "Action"},
      {"lblLabel", DraftPart::kLabel, "Label"},
      {"txtActionFlag", DraftPart::kFlag, "Flag"},
      {"lblActionTF", DraftPart::kTruth, "True or false"},
      {"txtActionAmount", DraftPart::kAmount, "Amount"},
      {"lblOperator", DraftPart::kOperator, ""},
      {"lblOf", DraftPart::kValue, "Value"},
      {"txtActionOfStackNum", DraftPart::kStack, "Number of the Chip-Stack, or of the rolls"},
      {"lblOn", DraftPart::kOn, ""},
      {"txtActionName", DraftPart::kName, "Text, name or file"},
      {"lblTo", DraftPart::kTarget, "What it works on"},
      {"txtActionToStackNum", DraftPart::kTargetStack, "Number of the Chip-Stack"},
  };
  return kind == Kind::kCondition ? kConditionParts : kActionParts;
}

LineComposer::LineComposer(Kind kind, Game& game, QWidget* parent)
    : QGroupBox(parent),
      game_(game),
      draft_(kind == Kind::kCondition ? ConditionDraft() : ActionDraft()) {
  const bool is_condition = kind == Kind::kCondition;
  setTitle(is_condition ? "Condition" : "Action");
  auto* const column = new QVBoxLayout(this);
  auto* const row = new QHBoxLayout;
  for (const ListRow& list : ListsOf(kind)) {
    auto* const box = new QListWidget(this);
    box->setObjectName(list.name);
    box->setAccessibleName(list.describes);
    box->setUniformItemSizes(true);
    box->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    box->setTextElideMode(Qt::ElideRight);
    box->setMinimumWidth(Letters(*box, 14));
    box->setMinimumHeight(box->fontMetrics().height() * 4);
    connect(box, &QListWidget::currentRowChanged, this, [this, which = list.list](int chosen) {
      if (chosen < 0) return;
      Change([&] { ChooseRow(draft_, which, chosen, game_); });
    });
    row->addWidget(box, list.share);
    lists_.emplace_back(list.list, box);
  }
  column->addLayout(row, 1);

  auto* const bottom = new QHBoxLayout;
  sentence_ = new QWidget(this);
  auto* const flow = new FlowLayout(sentence_);
  flow->setContentsMargins(0, 0, 0, 0);
  flow->setSpacing(Letters(*this, 1));
  for (const PartRow& part : PartRowsOf(kind)) parts_[part.part] = MakePart(part);
  // Room for two rows, so that a longer sentence does not push the lists about.
  const int row_height = parts_.at(DraftPart::kAmount)->sizeHint().height();
  sentence_->setMinimumHeight(2 * row_height + flow->spacing());
  bottom->addWidget(sentence_, 1);
  button_ = is_condition ? new LogButton("cmdLogCondition", "Con&dition", this)
                         : new LogButton("cmdLogAction", "&Action", this);
  bottom->addWidget(button_, 0, Qt::AlignTop);
  column->addLayout(bottom);
  ShowChoice();
}

QWidget* LineComposer::MakePart(const PartRow& row) {
  QWidget* made = nullptr;
  if (IsField(row.part)) {
    made = MakeField(row);
  } else if (row.part == DraftPart::kTruth) {
    auto* const button = new QPushButton(sentence_);
    button->setAutoDefault(false);
    button->setToolTip("Press to turn it over");
    connect(button, &QPushButton::clicked, this,
            [this] { Change([this] { draft_.truth = !draft_.truth; }); });
    made = button;
  } else {
    made = new QLabel(sentence_);
    static_cast<QLabel*>(made)->setTextFormat(Qt::PlainText);
  }
  made->setObjectName(row.name);
  if (*row.describes != '\0') made->setAccessibleName(row.describes);
  return made;
}

QLineEdit* LineComposer::MakeField(const PartRow& row) {
  const DraftPart part = row.part;
  const bool is_name = part == DraftPart::kFlag || part == DraftPart::kName;
  auto* const field = new PartField(sentence_, !is_name);
  field->setValidator(new PartValidator(draft_, part, field));
  field->setFixedWidth(WidthOf(*field, part));
  connect(field, &QLineEdit::textEdited, this, [this, part](const QString& text) {
    Change([&] { TextOf(draft_, part) = FromQt(text); });
  });
  connect(field, &QLineEdit::editingFinished, this, [this, part] {
    SettleField(draft_, part);
    ShowChoice();
  });
  if (part == DraftPart::kFlag) {
    auto* const flags = new QCompleter(new QStringListModel(field), field);
    flags->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
    flags->popup()->setObjectName("listFlags");
    flags->popup()->setAccessibleName("Flags of the script");
    flags->setWidget(field);
    connect(flags, qOverload<const QString&>(&QCompleter::activated), this,
            [this, field](const QString& flag) {
              field->setText(flag);
              Change([&] { draft_.name = FromQt(flag); });
            });
    field->pressed = [this, flags] {
      QStringList names;
      for (const ScriptFlag& flag : game_.ScriptFlags) names.append(ToQt(flag.FlagName));
      static_cast<QStringListModel*>(flags->model())->setStringList(names);
      if (!names.isEmpty()) flags->complete();
      return true;
    };
    field->blank = [field](bool at_begin) { return at_begin && field->pressed(); };
  } else if (part == DraftPart::kName) {
    field->pressed_twice = [this] { AskForFile(); };
    field->blank = [this](bool) {
      if (FileCaptionOf(draft_).empty()) return false;
      AskForFile();
      return true;
    };
  }
  return field;
}

void LineComposer::AskForFile() {
  const std::string_view caption = FileCaptionOf(draft_);
  if (caption.empty()) return;
  const std::optional<std::string> path = ShowFileDialog(game_, caption);
  if (path) Change([&] { draft_.name = *path; });
}

void LineComposer::Change(const std::function<void()>& change) {
  if (showing_) return;
  change();
  ShowChoice();
  edited();
}

void LineComposer::Load(const LineDraft& draft) {
  draft_ = draft;
  ShowChoice();
}

void LineComposer::TakeLabel(const std::string& label) {
  if (!RowsOf(draft_, DraftList::kLabelRows, game_).empty()) draft_.name = label;
  ShowChoice();
}

void LineComposer::ShowChoice() {
  if (showing_) return;
  showing_ = true;
  ShowLists();
  ShowSentence();
  showing_ = false;
}

void LineComposer::ShowLists() {
  for (const auto& [which, box] : lists_) {
    const std::vector<std::string> rows = RowsOf(draft_, which, game_);
    box->setVisible(!rows.empty());
    bool same = static_cast<std::size_t>(box->count()) == rows.size();
    for (int i = 0; same && i < box->count(); ++i) {
      same = box->item(i)->text() == ToQt(rows[static_cast<std::size_t>(i)]);
    }
    if (!same) {
      box->clear();
      for (const std::string& caption : rows) {
        box->addItem(ToQt(caption));
        box->item(box->count() - 1)->setToolTip(ToQt(caption));
      }
    }
    const int chosen = rows.empty() ? -1 : ChosenRow(draft_, which, game_);
    if (box->currentRow() == chosen) continue;
    box->setCurrentRow(chosen);
    if (chosen >= 0) box->scrollToItem(box->item(chosen));
  }
}

void LineComposer::ShowSentence() {
  QLayout* const flow = sentence_->layout();
  const std::vector<ShownPart> shown = PartsOf(draft_);
  for (auto& [part, widget] : parts_) {
    const bool is_shown = std::ranges::any_of(
        shown, [which = part](const ShownPart& other) { return other.part == which; });
    flow->removeWidget(widget);
    if (!is_shown) widget->hide();
  }
  for (const ShownPart& part : shown) {
    QWidget* const widget = parts_.at(part.part);
    if (auto* const field = qobject_cast<QLineEdit*>(widget)) {
      if (field->text() != ToQt(part.text)) field->setText(ToQt(part.text));
    } else if (auto* const button = qobject_cast<QPushButton*>(widget)) {
      button->setText(ToQt(part.text));
    } else {
      static_cast<QLabel*>(widget)->setText(ToQt(part.text));
    }
    flow->addWidget(widget);
    widget->show();
  }
  flow->update();
  // Tab goes through the sentence as it reads, whatever the order of the fields was before.
  QWidget* before = lists_.back().second;
  for (const ShownPart& part : shown) {
    setTabOrder(before, parts_.at(part.part));
    before = parts_.at(part.part);
  }
  if (button_ != nullptr) setTabOrder(before, button_);
}

void LineComposer::ShowWaiting(bool waits) {
  sentence_->setStyleSheet(
      waits ? "QLabel, QLineEdit, QPushButton { background-color: #c01c28; color: white; }" : "");
}

void LineComposer::FocusPart(DraftPart part) {
  parts_.at(part)->setFocus();
}

}  // namespace feltmaster
