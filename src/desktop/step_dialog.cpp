#include "desktop/step_dialog.h"

#include <QApplication>
#include <QBoxLayout>
#include <QFontDatabase>
#include <QFrame>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QPushButton>
#include <QWindow>
#include <utility>
#include <vector>

#include "desktop/dialog_tools.h"
#include "desktop/qt_text.h"

namespace feltmaster {

namespace {

constexpr std::int32_t kHelp = 630;
constexpr const char* kName = "frmSteps";

struct ScreenEntry {
  const char* caption;
  WindowCommand screen;
};
constexpr ScreenEntry kScreens[] = {
    {"&Summary ...", WindowCommand::kSummary},
    {"&Bankroll ...", WindowCommand::kBankrollGraph},
    {"Roll &Totals ...", WindowCommand::kRollTotals},
    {"Roll &Frequencies ...", WindowCommand::kRollFreqs},
    {"Bet R&esults ...", WindowCommand::kBetResults},
    {"Bet T&rends ...", WindowCommand::kBetTrends},
    {"&Chip Stack Values ...", WindowCommand::kChipStacks},
    {"F&lag Values ...", WindowCommand::kFlags},
};

class StepDialog : public GameDialog {
 public:
  StepDialog(QWidget* parent, Game& game, const std::function<void(WindowCommand)>& open_screen)
      : GameDialog(parent, game, kName, kHelp) {
    setWindowTitle("Auto-Bet Step-Through");
    setModal(true);  // when it is shown, before it waits
    auto* const column = new QVBoxLayout(this);
    const int margin = Letters(*this, 3);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(Letters(*this, 2));
    column->setMenuBar(Menus(open_screen));
    line_ = AddLabel(*column, "lblLineNum", this);

    auto* const frame = new QFrame(this);
    frame->setFrameShape(QFrame::StyledPanel);
    frame->setBackgroundRole(QPalette::Base);
    frame->setAutoFillBackground(true);
    auto* const inside = new QVBoxLayout(frame);
    text_ = AddLabel(*inside, "lblAutoBetStep", frame);
    QFont typed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    typed.setPointSizeF(font().pointSizeF());
    text_->setFont(typed);
    column->addWidget(frame);

    constexpr int kStatusLines = 3;  // the longest needs them; the dialog keeps its height
    status_ = AddLabel(*column, "lblStatus", this);
    status_->setMinimumHeight(status_->fontMetrics().lineSpacing() * kStatusLines);
    status_->setAlignment(Qt::AlignLeft | Qt::AlignTop);

    column->setStretchFactor(status_, 1);

    auto* const next = new QPushButton("&Next", this);
    next->setObjectName("cmdNextAutoBet");
    next->setAccessibleName("Next");
    next->setMinimumWidth(Letters(*next, 14));
    next->setDefault(true);
    next->setFocus();
    connect(next, &QPushButton::clicked, this, &QDialog::accept);
    SnapTo(*next);
    column->addWidget(next, 0, Qt::AlignHCenter);
    setMinimumWidth(Letters(*this, 72));
  }

  void Take(const StepRequest& request) {
    line_->setText("Line #" + QString::number(request.line));
    text_->setText(ToQt(request.text));
    status_->setText(ToQt(request.status));
    setAccessibleDescription(text_->text() + '\n' + status_->text());
  }

  bool Ask() {
    show();
    AdoptScreens();
    const bool goes_on = exec() == QDialog::Accepted;
    for (const auto& [screen, parent] : adopted_) {
      if (screen) screen->setTransientParent(parent);
    }
    adopted_.clear();
    return goes_on;
  }

 private:
  // The screens can be used while the table waits: what descends from a modal window is not held up
  // by it.
  void AdoptScreens() {
    for (QWindow* const screen : QGuiApplication::topLevelWindows()) {
      QWindow* const parent = screen->transientParent();
      if (parent == nullptr || screen->isModal() || screen->type() != Qt::Window) continue;
      if (parent == windowHandle() || !screen->isVisible()) continue;
      adopted_.emplace_back(screen, parent);
      screen->setTransientParent(windowHandle());
    }
  }

  QLabel* AddLabel(QBoxLayout& column, const char* name, QWidget* parent) {
    auto* const label = new QLabel(parent);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    column.addWidget(label);
    return label;
  }

  QMenuBar* Menus(const std::function<void(WindowCommand)>& open_screen) {
    auto* const bar = new QMenuBar(this);
    bar->setNativeMenuBar(false);
    bar->setAccessibleName("Menu");
    const auto add = [](QWidget* menu, const char* name, const char* caption) {
      QAction* const action = menu->addAction(caption);
      action->setObjectName(name);
      return action;
    };
    connect(add(bar, "mnuCancel", "&Cancel"), &QAction::triggered, this, &QDialog::reject);
    QMenu* const screens = bar->addMenu("&Statistics");
    screens->setObjectName("mnuStatistics");
    for (std::size_t i = 0; i < std::size(kScreens); ++i) {
      const WindowCommand screen = kScreens[i].screen;
      const QByteArray name = "mnuStatistics" + QByteArray::number(i);
      connect(add(screens, name.constData(), kScreens[i].caption), &QAction::triggered, this,
              [this, open_screen, screen] {
                open_screen(screen);
                AdoptScreens();
              });
    }
    connect(add(bar, "mnuHelp", "&Help"), &QAction::triggered, this, [this] { OpenHelp(); });
    return bar;
  }

  std::vector<std::pair<QPointer<QWindow>, QWindow*>> adopted_;
  QLabel* line_ = nullptr;
  QLabel* text_ = nullptr;
  QLabel* status_ = nullptr;
};

}  // namespace

bool ShowStepDialog(QWidget* parent, Game& game, const StepRequest& request,
                    const std::function<void(WindowCommand)>& open_screen) {
  StepDialog* dialog = nullptr;
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    if (window->objectName() == kName) dialog = static_cast<StepDialog*>(window);
  }
  const bool is_first = dialog == nullptr;
  if (is_first) {
    dialog = new StepDialog(parent->isModal() ? parent : TableOf(parent), game, open_screen);
  }
  dialog->Take(request);
  if (is_first) {
    dialog->adjustSize();
    CentreOverTable(*dialog, parent);
  }
  const bool goes_on = dialog->Ask();
  if (!goes_on) delete dialog;
  return goes_on;
}

}  // namespace feltmaster
