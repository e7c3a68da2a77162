#include "desktop/step_dialog.h"

#include <QBoxLayout>
#include <QFontDatabase>
#include <QFrame>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>

#include "desktop/dialog_tools.h"

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
    // The screens that are opened from here can be used; the table waits.
    setWindowModality(Qt::WindowModal);
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
    text_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
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
    text_->setText(TextOf(request.text));
    status_->setText(TextOf(request.status));
    setAccessibleDescription(text_->text() + '\n' + status_->text());
  }

 private:
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
              [open_screen, screen] { open_screen(screen); });
    }
    connect(add(bar, "mnuHelp", "&Help"), &QAction::triggered, this, [this] { OpenHelp(); });
    return bar;
  }

  QLabel* line_ = nullptr;
  QLabel* text_ = nullptr;
  QLabel* status_ = nullptr;
};

}  // namespace

bool ShowStepDialog(QWidget* parent, Game& game, const StepRequest& request,
                    const std::function<void(WindowCommand)>& open_screen) {
  QWidget* const owner = OwnerOf(parent);
  auto* dialog =
      static_cast<StepDialog*>(owner->findChild<QDialog*>(kName, Qt::FindDirectChildrenOnly));
  const bool is_first = dialog == nullptr;
  if (is_first) dialog = new StepDialog(owner, game, open_screen);
  dialog->Take(request);
  if (is_first) {
    dialog->adjustSize();
    CentreOver(*dialog, parent);
  }
  const bool goes_on = dialog->exec() == QDialog::Accepted;
  if (!goes_on) delete dialog;
  return goes_on;
}

}  // namespace feltmaster
