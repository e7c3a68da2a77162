#include "desktop/frm_autobet.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QBoxLayout>
#include <QCheckBox>
#include <QCompleter>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QSplitter>
#include <QStringListModel>
#include <algorithm>
#include <filesystem>

#include "autobet/message.h"
#include "autobet/script_file.h"
#include "desktop/qt_text.h"
#include "desktop/screens.h"
#include "files/script_commands.h"
#include "reports/print_commands.h"
#include "surface/surface.h"

namespace feltmaster {

namespace {

constexpr std::int32_t kHelpOnLabels = 554;
constexpr std::int32_t kHelpOnStructure = 556;
constexpr std::int32_t kHelpOnSoundScript = 640;
constexpr std::int32_t kHelpOnFind = 620;
constexpr const char* kWaitingStyle =
    "QLabel, QLineEdit { background-color: #c01c28; color: white; }";

std::string TitleOf(const Game& game) {
  if (game.ScriptFileName.empty()) return "Auto-Bet";
  return "Auto-Bet (" + std::filesystem::path(game.ScriptFileName).filename().string() + ')';
}

QString Counted(std::int32_t count, const char* one, const char* many) {
  return QStringLiteral("%1 %2").arg(count).arg(QLatin1String(count == 1 ? one : many));
}

}  // namespace

// ---- Menus ------------------------------------------------------------------------------------

std::vector<AutoBetScreen::MenuTable> AutoBetScreen::Menus() {
  using Self = AutoBetScreen;
  const auto key = [](auto... texts) {
    return QList<QKeySequence>{QKeySequence(QString::fromLatin1(texts))...};
  };
  const auto has_selection = [](const Self& screen) {
    return screen.FocusedField() != nullptr || screen.editor_.SelectedCount() > 0;
  };
  const auto lines_selected = [](const Self& screen) { return screen.editor_.SelectedCount() > 0; };
  return {
      {"mnuFile",
       "&File",
       {
           {"mnuNew", "&New", key("Ctrl+N"), &Self::New},
           {"mnuOpen", "&Open ...", key("Ctrl+O"), &Self::Open},
           {"mnuSave", "&Save", key("Ctrl+S"), &Self::Save},
           {"mnuSaveAs", "Save &As ...", key("Ctrl+Shift+S"), &Self::SaveAs},
           {.name = "mnuPrint",
            .caption = "&Print ...",
            .keys = key("Ctrl+P"),
            .carry_out = &Self::Print,
            .starts_group = true},
       }},
      {"mnuEdit",
       "&Edit",
       {
           {"mnuUndo", "&Undo", key("Ctrl+Z"), &Self::Undo,
            [](const Self& screen) {
              return screen.FocusedField() != nullptr || screen.editor_.CanUndo();
            }},
           {"mnuRedo", "&Redo", key("Ctrl+Y", "Ctrl+Shift+Z"), &Self::Redo,
            [](const Self& screen) {
              return screen.FocusedField() != nullptr || screen.editor_.CanRedo();
            }},
           {"mnuCut", "Cu&t", key("Ctrl+X"), &Self::Cut, has_selection, nullptr, true},
           {"mnuCopy", "&Copy", key("Ctrl+C"), &Self::Copy, has_selection},
           {"mnuPaste", "&Paste", key("Ctrl+V"), &Self::Paste,
            [](const Self& screen) {
              return screen.FocusedField() != nullptr || !screen.game_.ClipLines.empty();
            }},
           {"mnuDelete", "&Delete", key("Del"), &Self::Delete, has_selection},
           {"mnuSelectAll", "Select &All", key("Ctrl+A"), &Self::SelectAll},
           {"mnuEditAsText", "&Edit Line as Text", key("F2"), &Self::EditAsText, nullptr, nullptr,
            true},
           {"mnuPasteText", "Pa&ste Text", key("Ctrl+Shift+V"), &Self::PasteText},
           {"mnuCopyToAutoBetFile",
            "Copy to Auto-&Bet File ...",
            {},
            &Self::CopyToFile,
            lines_selected,
            nullptr,
            true},
           {"mnuCopyToTextFile", "Copy to Te&xt File ...", {}, &Self::CopyToText, lines_selected},
           {"mnuPasteFrom", "Paste fro&m Auto-Bet File ...", {}, &Self::PasteFrom},
           {"mnuFind", "&Find ...", key("Ctrl+F"), &Self::Find, nullptr, nullptr, true},
           {"mnuFindNext", "Find &Next", key("F3"), &Self::FindNext},
           {"mnuFindPrevious", "Find Pre&vious", key("Shift+F3"), &Self::FindPrevious},
       }},
      {"mnuOptions",
       "&Options",
       {
           {"mnuShowSteps",
            "Show &Steps During Play",
            {},
            &Self::SwitchSteps,
            nullptr,
            [](const Self& screen) { return screen.game_.ShowSteps; }},
           {"mnuShowLoggedMessagesNormal",
            "Show Logged &Messages During Normal Play",
            {},
            &Self::SwitchMessages,
            nullptr,
            [](const Self& screen) { return (screen.game_.NotifyFlags & kNoticeScript) != 0; }},
           {"mnuShowLoggedMessagesHyper",
            "Show Logged Messages During &Hyper-Drive",
            {},
            &Self::SwitchMessagesHyper,
            nullptr,
            [](const Self& screen) {
              return (screen.game_.NotifyFlags & kNoticeScriptHyper) != 0;
            }},
           {"mnuShowLineNumbers",
            "Show &Line Numbers",
            {},
            &Self::SwitchLineNumbers,
            nullptr,
            [](const Self& screen) { return screen.game_.ShowLineNumbers; }},
           {.name = "mnuCheckBets",
            .caption = "Check &Bets",
            .keys = key("F7"),
            .carry_out = &Self::Check,
            .starts_group = true},
       }},
  };
}

void AutoBetScreen::BuildMenus() {
  for (const MenuTable& table : Menus()) {
    QMenu* menu = menuBar()->addMenu(QString::fromLatin1(table.caption));
    menu->setObjectName(QString::fromLatin1(table.name));
    connect(menu, &QMenu::aboutToShow, this, [this] { ShowCommands(); });
    for (const Command& command : table.commands) {
      if (command.starts_group) menu->addSeparator();
      QAction* action = menu->addAction(QString::fromLatin1(command.caption));
      action->setObjectName(QString::fromLatin1(command.name));
      action->setCheckable(command.checked != nullptr);
      action->setShortcuts(command.keys);
      connect(action, &QAction::triggered, this, [this, carry_out = command.carry_out] {
        (this->*carry_out)();
        ShowAll();
      });
      commands_.emplace_back(action, command);
    }
  }
  QMenu* statistics = menuBar()->addMenu("&Statistics");
  statistics->setObjectName("mnuStatistics");
  for (const MenuCommand& command : MenuCommands()) {
    if (command.menu != Menu::kStatistics) continue;
    if (command.starts_group) statistics->addSeparator();
    QAction* action = statistics->addAction(ToQt(command.caption));
    action->setObjectName(ToQt(command.name));
    connect(action, &QAction::triggered, this,
            [this, which = command.window] { AllScreens().Open(which); });
  }
  QMenu* help = menuBar()->addMenu("&Help");
  help->setObjectName("mnuHelp");
  QAction* contents = help->addAction("&Auto-Bet");
  contents->setObjectName("mnuHelpAutoBet");
  contents->setShortcut(QKeySequence("F1"));
  connect(contents, &QAction::triggered, this, [this] { game_.surface->OpenHelp(HelpTopic()); });
}

// ---- The window -------------------------------------------------------------------------------

AutoBetScreen::AutoBetScreen(Screens& screens)
    : ScreenWindow(screens, kTraits), game_(TheGame()), editor_(game_) {
  auto* const split = new QSplitter(this);
  split->addWidget(BuildComposers());
  split->addWidget(BuildScript());
  split->setStretchFactor(0, 5);
  split->setStretchFactor(1, 4);
  split->setChildrenCollapsible(false);
  split->setSizes({500, 400});
  setCentralWidget(split);
  BuildMenus();
  list_->menu = menuBar()->findChild<QMenu*>("mnuEdit");
  qApp->installEventFilter(this);
  list_->setFocus();
  ShowAll();
}

QSize AutoBetScreen::PreferredSize() const {
  return QSize(fontMetrics().horizontalAdvance('n') * 165, fontMetrics().height() * 52);
}

AutoBetScreen::~AutoBetScreen() {
  qApp->removeEventFilter(this);
}

QWidget* AutoBetScreen::BuildComposers() {
  auto* const area = new QWidget(this);
  auto* const column = new QVBoxLayout(area);
  column->addWidget(BuildStartArea());
  condition_ = new LineComposer(LineComposer::Kind::kCondition, game_, area);
  action_ = new LineComposer(LineComposer::Kind::kAction, game_, area);
  column->addWidget(condition_, 1);
  column->addWidget(action_, 1);
  column->addWidget(BuildLabelArea());
  for (LineComposer* composer : {condition_, action_}) {
    composer->Button()->compose = [this, composer] { return LogDraft(*composer); };
    composer->edited = [this] { StopWaiting(); };
  }
  return area;
}

QWidget* AutoBetScreen::BuildStartArea() {
  auto* const box = new QGroupBox("Start of a block", this);
  auto* const row = new QHBoxLayout(box);
  row->addWidget(BuildStartList("listStartCondition", "lblStartCondition", true,
                                new LogButton("cmdStartCondition", "Start Co&ndition", box)),
                 1);
  row->addWidget(BuildStartList("listStartAction", "lblStartAction", false,
                                new LogButton("cmdStartAction", "Start Ac&tion", box)),
                 1);
  return box;
}

QWidget* AutoBetScreen::BuildStartList(const char* list_name, const char* label_name,
                                       bool conditions, LogButton* button) {
  auto* const area = new QWidget(this);
  auto* const grid = new QGridLayout(area);
  grid->setContentsMargins(0, 0, 0, 0);
  auto* const list = new QListWidget(area);
  list->setObjectName(list_name);
  list->setAccessibleName(conditions ? "Starts of conditions" : "Starts of actions");
  for (const StartRow& row : kStartRows) {
    if ((row.kind < kThen) != conditions) continue;
    auto* const item = new QListWidgetItem(ToQt(row.caption), list);
    item->setData(Qt::UserRole, row.kind);
  }
  list->setFixedHeight(list->sizeHintForRow(0) * 4 + 2 * list->frameWidth());
  auto* const label = new QLabel(area);
  label->setObjectName(label_name);
  connect(list, &QListWidget::currentRowChanged, this, [this, list, label] {
    label->setText(list->currentItem()->text());
    StopWaiting();
  });
  list->setCurrentRow(0);
  button->compose = [this, list, area] {
    return Wait(StartLine(*FindStart(list->currentItem()->data(Qt::UserRole).toInt())), area);
  };
  grid->addWidget(list, 0, 0, 1, 2);
  grid->addWidget(label, 1, 0);
  grid->addWidget(button, 1, 1);
  grid->setColumnStretch(0, 1);
  areas_.push_back(area);
  return area;
}

QWidget* AutoBetScreen::BuildLabelArea() {
  auto* const area = new QGroupBox("Label or comment", this);
  auto* const row = new QHBoxLayout(area);
  label_ = new QLineEdit(area);
  label_->setObjectName("txtLabel");
  label_->setAccessibleName("Label or comment");
  label_->setPlaceholderText("A label, or a comment behind a '");
  label_->setMaxLength(static_cast<int>(kLineNameSize));
  // A blank at the begin is refused.
  connect(label_, &QLineEdit::textEdited, this, [this](const QString& text) {
    if (text.startsWith(' ')) label_->setText(text.mid(1));
    StopWaiting();
  });
  auto* const button = new LogButton("cmdLogLabel", "&Label", area);
  button->compose = [this] { return LogLabel(); };
  connect(label_, &QLineEdit::returnPressed, button, &QPushButton::click);
  row->addWidget(label_, 1);
  row->addWidget(button);
  areas_.push_back(area);
  return area;
}

QWidget* AutoBetScreen::BuildScript() {
  auto* const area = new QWidget(this);
  auto* const column = new QVBoxLayout(area);
  auto* const head = new QHBoxLayout;
  active_ = new QCheckBox("Acti&ve", area);
  active_->setObjectName("chkAutoBetsActivated");
  active_->setToolTip("The script runs at each roll");
  connect(active_, &QCheckBox::clicked, this, [this] { SwitchActive(); });
  head->addWidget(active_);
  head->addStretch(1);
  for (const auto& [label, name] : {std::pair(&unsaved_, "lblUnsaved"),
                                    {&selected_count_, "lblNumLinesSelected"},
                                    {&line_count_, "lblNumAutoBetLines"}}) {
    *label = new QLabel(area);
    (*label)->setObjectName(name);
    head->addWidget(*label);
    head->addSpacing(fontMetrics().horizontalAdvance('n'));
  }
  column->addLayout(head);
  list_ = new LineList(game_, editor_, area);
  list_->changed = [this] { ShowAll(); };
  list_->chosen = [this](const ScriptLine& line) { LoadLine(line); };
  column->addWidget(list_, 1);
  column->addWidget(BuildTypedLine());
  return area;
}

QWidget* AutoBetScreen::BuildTypedLine() {
  auto* const area = new QWidget(this);
  auto* const column = new QVBoxLayout(area);
  column->setContentsMargins(0, 0, 0, 0);
  typed_ = new QLineEdit(area);
  typed_->setObjectName("txtTypedLine");
  typed_->setAccessibleName("Line as text");
  typed_->setPlaceholderText("Type a line, such as:  Bet $ 10 on Pass Line");
  typed_->setClearButtonEnabled(true);
  suggestions_ = new QStringListModel(typed_);
  completer_ = new QCompleter(suggestions_, typed_);
  completer_->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
  completer_->setMaxVisibleItems(12);
  completer_->popup()->setObjectName("listSuggestions");
  completer_->popup()->setAccessibleName("What the line can go on with");
  typed_->setCompleter(completer_);
  // What can follow the chosen piece is offered at once.
  const auto offer_more = [this] {
    Suggest();
    completer_->complete();
  };
  connect(completer_, qOverload<const QString&>(&QCompleter::activated), this, offer_more,
          Qt::QueuedConnection);
  connect(typed_, &QLineEdit::textEdited, this, [this](const QString& text) {
    if (text.isEmpty()) retyped_row_ = 0;
    ShowFault({});
    Suggest();
  });
  connect(typed_, &QLineEdit::returnPressed, this, [this] {
    // With a row of the list chosen, the key takes that row into the line; the list has it next.
    const QAbstractItemView& list = *completer_->popup();
    if (!list.isVisible() || !list.currentIndex().isValid()) TakeTypedLine();
  });
  typed_fault_ = new QLabel(area);
  typed_fault_->setObjectName("lblTypedFault");
  QPalette fault_colors = typed_fault_->palette();
  fault_colors.setColor(QPalette::WindowText, QColor(0xc0, 0x1c, 0x28));
  typed_fault_->setPalette(fault_colors);
  typed_fault_->setWordWrap(true);
  typed_fault_->setTextFormat(Qt::PlainText);
  typed_fault_->hide();
  column->addWidget(typed_);
  column->addWidget(typed_fault_);
  return area;
}

// ---- Showing ----------------------------------------------------------------------------------

void AutoBetScreen::Refresh() {
  ShadeLines(game_);
  ShowAll();
}

void AutoBetScreen::ShowAll() {
  setWindowTitle(ToQt(TitleOf(game_)));
  unsaved_->setText(game_.ScriptUnsaved ? "Not saved" : "");
  if (game_.ScriptCursorLine != retyped_row_) retyped_row_ = 0;
  active_->setChecked(game_.ScriptActive == 1);
  line_count_->setText(Counted(editor_.Rows().Count(), "line", "lines"));
  const std::int32_t selected = editor_.SelectedCount();
  selected_count_->setText(selected == 0 ? QString() : QStringLiteral("%1 selected").arg(selected));
  if (!editor_.PendingLine()) StopWaiting();
  if (game_.ScriptLabels.size() > labels_) action_->TakeLabel(game_.ScriptLabels.back());
  labels_ = game_.ScriptLabels.size();
  condition_->ShowChoice();
  action_->ShowChoice();
  list_->ShowLines();
  ShowCommands();
}

void AutoBetScreen::ShowCommands() {
  for (const auto& [action, command] : commands_) {
    if (command.checked != nullptr) action->setChecked(command.checked(*this));
    if (command.usable != nullptr) action->setEnabled(command.usable(*this));
  }
}

// ---- Logging ----------------------------------------------------------------------------------

bool AutoBetScreen::Wait(ScriptLine line, QWidget* area) {
  StopWaiting();
  list_->setFocus();  // first: a field that is left is put in order
  editor_.SetPending(std::move(line));
  setCursor(Qt::UpArrowCursor);
  if (auto* const composer = dynamic_cast<LineComposer*>(area)) {
    composer->ShowWaiting(true);
  } else {
    area->setStyleSheet(kWaitingStyle);
  }
  list_->ShowLines();
  return true;
}

void AutoBetScreen::StopWaiting() {
  if (list_ == nullptr) return;
  editor_.CancelPending();
  unsetCursor();
  condition_->ShowWaiting(false);
  action_->ShowWaiting(false);
  for (QWidget* area : areas_) {
    if (!area->styleSheet().isEmpty()) area->setStyleSheet({});
  }
  list_->ShowLines();
}

bool AutoBetScreen::Refuse(const DraftFault& fault, LineComposer* composer) {
  Tell(game_, fault.title, fault.text, kButtonOk, fault.help);
  if (composer != nullptr && fault.at) {
    composer->FocusPart(*fault.at);
  } else {
    label_->setFocus();
  }
  return false;
}

bool AutoBetScreen::LogDraft(LineComposer& composer) {
  StopWaiting();
  if (const auto fault = FaultOf(composer.Draft(), game_)) return Refuse(*fault, &composer);
  return Wait(LineOf(composer.Draft()), &composer);
}

bool AutoBetScreen::LogLabel() {
  StopWaiting();
  const std::string text = FromQt(label_->text());
  if (const auto fault = LabelFault(text, game_)) return Refuse(*fault, nullptr);
  return Wait(LabelLine(text), label_->parentWidget());
}

bool AutoBetScreen::eventFilter(QObject* watched, QEvent* event) {
  // A press elsewhere on the screen drops what waits; the log buttons do so by themselves.
  if (event->type() == QEvent::MouseButtonPress && editor_.PendingLine()) {
    const auto* widget = qobject_cast<QWidget*>(watched);
    const bool elsewhere = widget != nullptr && widget->window() == this && widget != list_ &&
                           !list_->isAncestorOf(widget);
    if (elsewhere) StopWaiting();
  }
  return ScreenWindow::eventFilter(watched, event);
}

void AutoBetScreen::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape && editor_.PendingLine()) {
    StopWaiting();
  } else if (event->key() == Qt::Key_Escape && typed_->hasFocus() && !typed_->text().isEmpty()) {
    retyped_row_ = 0;
    typed_->clear();
    ShowFault({});
  } else {
    ScreenWindow::keyPressEvent(event);
  }
}

void AutoBetScreen::LoadLine(const ScriptLine& line) {
  if (FindStart(line.LineKind) != nullptr) {
    auto* const list =
        findChild<QListWidget*>(line.LineKind < kThen ? "listStartCondition" : "listStartAction");
    for (int row = 0; row < list->count(); ++row) {
      if (list->item(row)->data(Qt::UserRole).toInt() == line.LineKind) list->setCurrentRow(row);
    }
  } else if (line.LineKind == kLabelLine || line.LineKind == kCommentLine) {
    label_->setText(ToQt(line.LineText).trimmed());
  } else if (const std::optional<LineDraft> draft = DraftOf(line)) {
    (line.LineKind == kConditionLine ? condition_ : action_)->Load(*draft);
  }
}

// ---- Typing lines -----------------------------------------------------------------------------

void AutoBetScreen::Suggest() {
  QStringList texts;
  const std::string typed = FromQt(typed_->text());
  if (!typed.empty()) {
    for (const std::string& text : Completions(typed, game_)) texts.append(ToQt(text));
  }
  suggestions_->setStringList(texts);
}

void AutoBetScreen::ShowFault(const std::string& text) {
  typed_fault_->setText(ToQt(text));
  typed_fault_->setVisible(!text.empty());
}

void AutoBetScreen::TakeTypedLine() {
  const std::string text = FromQt(typed_->text());
  const auto fault = retyped_row_ > 0 ? editor_.RetypeLine(text) : editor_.TypeLine(text);
  if (fault) {
    ShowFault("Expected " + fault->expected + '.');
    completer_->popup()->hide();
    typed_->setCursorPosition(
        static_cast<int>(QString::fromStdString(text.substr(0, fault->column - 1)).size()));
    return;
  }
  retyped_row_ = 0;
  ShowFault({});
  typed_->clear();
  KeepCursorInView();
  ShowAll();
}

void AutoBetScreen::EditAsText() {
  const std::int32_t row = editor_.Rows().Clamped(game_.ScriptCursorLine);
  if (row <= editor_.Rows().Count()) {
    typed_->setText(ToQt(editor_.Rows().Place(row)->LineText).trimmed());
    retyped_row_ = row;
  }
  ShowFault({});
  typed_->setFocus();
}

// ---- Files ------------------------------------------------------------------------------------

void AutoBetScreen::New() {
  if (NewScriptCommand(game_)) editor_.Restart();
}
void AutoBetScreen::Open() {
  if (OpenScriptCommand(game_)) editor_.Restart();
}
void AutoBetScreen::Save() {
  if (SaveScriptCommand(game_)) editor_.Saved();
}
void AutoBetScreen::SaveAs() {
  if (SaveScriptAsCommand(game_)) editor_.Saved();
}
void AutoBetScreen::Print() {
  FindPrintCommand("script")->print(game_, Confirm::kAsk);
}
void AutoBetScreen::CopyToFile() {
  CopyToScriptFileCommand(game_);
}
void AutoBetScreen::CopyToText() {
  CopyToTextFileCommand(game_);
}
void AutoBetScreen::PasteFrom() {
  editor_.Edit([this] { PasteFromScriptFileCommand(game_); });
}

bool AutoBetScreen::MayClose() {
  StopWaiting();
  if (game_.ScriptActive == 1) editor_.Check();
  ShowAll();
  const bool leaves = LeaveScriptEditor(game_);
  ShowAll();
  return leaves;
}

std::int32_t AutoBetScreen::HelpTopic() const {
  return label_->hasFocus() ? kHelpOnLabels : kTraits.help_topic;
}

// ---- Editing ----------------------------------------------------------------------------------

QLineEdit* AutoBetScreen::FocusedField() const {
  return qobject_cast<QLineEdit*>(focusWidget());
}

void AutoBetScreen::KeepCursorInView() {
  MoveCursor(editor_.Rows(), 0, list_->RowsShown());
}

void AutoBetScreen::Undo() {
  if (QLineEdit* field = FocusedField()) return field->undo();
  editor_.Undo();
  KeepCursorInView();
}
void AutoBetScreen::Redo() {
  if (QLineEdit* field = FocusedField()) return field->redo();
  editor_.Redo();
  KeepCursorInView();
}
void AutoBetScreen::Cut() {
  if (QLineEdit* field = FocusedField()) return field->cut();
  Copy();
  editor_.Cut();
}
void AutoBetScreen::Copy() {
  if (QLineEdit* field = FocusedField()) return field->copy();
  editor_.Copy();
  if (editor_.SelectedCount() > 0) game_.surface->SetClipboard(editor_.SelectedText());
}
void AutoBetScreen::Paste() {
  if (QLineEdit* field = FocusedField()) return field->paste();
  editor_.Paste();
  KeepCursorInView();
}
void AutoBetScreen::Delete() {
  if (QLineEdit* field = FocusedField()) return field->del();
  editor_.Delete();
}
void AutoBetScreen::SelectAll() {
  if (QLineEdit* field = FocusedField()) return field->selectAll();
  editor_.SelectAll();
}

void AutoBetScreen::PasteText() {
  const auto fault = editor_.PasteText(game_.surface->Clipboard());
  if (!fault) return;
  Tell(game_, "Paste Text",
       "The text on the clipboard is no script.\n\nLine " + std::to_string(fault->line) +
           ", column " + std::to_string(fault->column) + ": expected " + fault->expected + '.',
       kButtonOk | kPictureStop, kHelpOnStructure);
}

// ---- Finding ----------------------------------------------------------------------------------

void AutoBetScreen::TellNotFound() {
  Tell(game_, "Search Results", "Text not found.", kButtonOk, kHelpOnFind);
}

void AutoBetScreen::Find() {
  QInputDialog ask(this);
  ask.setObjectName("frmFind");
  ask.setWindowTitle("Find");
  ask.setLabelText(
      "Enter the text you'd like to find.\n\nDon't worry about upper or lower case letters.\n\n"
      "If found, the line will appear at the top of the screen.");
  ask.setTextValue(ToQt(editor_.FindText()));
  if (ask.exec() != QDialog::Accepted || ask.textValue().isEmpty()) return;
  editor_.StartFind(FromQt(ask.textValue()));
  FindNext();
}

void AutoBetScreen::FindNext() {
  if (FocusedField() != nullptr) return FindInField(true);
  if (!editor_.FindNext()) TellNotFound();
}

void AutoBetScreen::FindPrevious() {
  if (FocusedField() != nullptr) return FindInField(false);
  if (!editor_.FindPrevious()) TellNotFound();
}

void AutoBetScreen::FindInField(bool forward) {
  QLineEdit* const field = FocusedField();
  const QString wanted = ToQt(editor_.FindText());
  const QString text = field->text();
  const int from = field->selectionStart();
  qsizetype at = -1;
  if (forward) {
    at = text.indexOf(wanted, from < 0 ? 0 : from + 1, Qt::CaseInsensitive);
    if (at < 0) at = text.indexOf(wanted, 0, Qt::CaseInsensitive);
  } else {
    if (from > 0) at = text.lastIndexOf(wanted, from - 1, Qt::CaseInsensitive);
    if (at < 0) at = text.lastIndexOf(wanted, -1, Qt::CaseInsensitive);
  }
  if (at < 0 || wanted.isEmpty()) return TellNotFound();
  field->setSelection(static_cast<int>(at), static_cast<int>(wanted.size()));
}

// ---- Options ----------------------------------------------------------------------------------

void AutoBetScreen::SwitchSteps() {
  game_.ShowSteps = !game_.ShowSteps;
}
void AutoBetScreen::SwitchMessages() {
  game_.NotifyFlags ^= kNoticeScript;
  game_.GameChanged = true;
}
void AutoBetScreen::SwitchMessagesHyper() {
  game_.NotifyFlags ^= kNoticeScriptHyper;
  game_.GameChanged = true;
}
void AutoBetScreen::SwitchLineNumbers() {
  game_.ShowLineNumbers = !game_.ShowLineNumbers;
}

void AutoBetScreen::SwitchActive() {
  game_.ScriptActive = active_->isChecked() ? 1 : 0;
  game_.ScriptNeedsInit = true;
  game_.GameChanged = true;
}

void AutoBetScreen::Check() {
  if (game_.ScriptLines.empty()) {
    Tell(game_, "Auto-Bet",
         "This feature checks to see that your Auto-Bet script is properly structured, but "
         "presently your script is empty.",
         kButtonOk, kHelpOnStructure);
    return;
  }
  if (editor_.Check()) {
    Tell(game_, "Auto-Bet", "Your script is properly structured.", kButtonOk | kPictureOk,
         kHelpOnSoundScript);
    return;
  }
  ShowAll();
  Tell(game_, game_.MsgTitle, game_.MsgText, kButtonOk | kPictureStop, game_.MsgHelpId);
}

}  // namespace feltmaster
