#include "desktop/settle_dialog.h"

#include <QApplication>
#include <QBoxLayout>
#include <QFrame>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <algorithm>
#include <array>
#include <cstddef>

#include "desktop/dialog_tools.h"
#include "desktop/option_row.h"
#include "desktop/qt_text.h"

namespace feltmaster {

namespace {

constexpr std::size_t kButtons = 7;
constexpr std::size_t kFirstOptionButton = 5;
constexpr int kSameBetOption = 5;  // the number that its controls carry

QString Spoken(const QString& caption) {
  return QString(caption).remove('&');
}

QFont Bold(QFont font) {
  font.setBold(true);
  return font;
}

class SettleDialog : public GameDialog {
 public:
  SettleDialog(QWidget* parent, Game& game, const SettleRequest& request)
      : GameDialog(parent, game, "frmSettleBet", request.help) {
    reply_.button = request.default_button;
    setWindowFlag(Qt::WindowCloseButtonHint, false);
    setWindowTitle(ToQt(request.title));
    auto* const column = new QVBoxLayout(this);
    const int margin = Letters(*this, 3);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(Letters(*this, 2));
    column->addWidget(Heading(request));
    column->addWidget(Rows(request));
    AddButtons(*column, request);
    AddHint(*column);
    QPushButton* const by_default = buttons_[static_cast<std::size_t>(
        request.only_take_down ? 0 : std::clamp(request.default_button, 0, 6))];
    by_default->setDefault(true);
    by_default->setFocus();
    SnapTo(*by_default);
    // Enter in an option row takes the button in front of it.
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
      for (std::size_t i = 0; now != nullptr && i < options_.size(); ++i) {
        if (options_[i]->indexOf(now) >= 0) buttons_[kFirstOptionButton + i]->setDefault(true);
      }
    });
  }

  SettleReply Ask() {
    exec();
    for (std::size_t i = 0; i < 2; ++i) reply_.options[i] = options_[i]->Value();
    return reply_;
  }

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    switch (event->key()) {
      case Qt::Key_F2:
        return StopRolling();
      case Qt::Key_Escape:
        return;
      default:
        GameDialog::keyPressEvent(event);
    }
  }
  void mousePressEvent(QMouseEvent* event) override {
    if (event->button() == Qt::RightButton) StopRolling();
  }

 private:
  QLabel* Heading(const SettleRequest& request) {
    auto* const heading = new QLabel(ToQt(request.title), this);
    QFont font = Bold(heading->font());
    font.setPointSizeF(font.pointSizeF() * 1.25);
    heading->setFont(font);
    heading->setAlignment(Qt::AlignCenter);
    return heading;
  }

  // What was bet and what came of it, amounts below each other.
  QWidget* Rows(const SettleRequest& request) {
    auto* const frame = new QFrame(this);
    frame->setFrameShape(QFrame::StyledPanel);
    frame->setBackgroundRole(QPalette::Base);
    frame->setAutoFillBackground(true);
    auto* const grid = new QGridLayout(frame);
    const int margin = Letters(*this, 2);
    grid->setContentsMargins(margin, margin, margin, margin);
    grid->setHorizontalSpacing(Letters(*this, 4));
    grid->setColumnStretch(0, 1);
    QString spoken;
    for (std::size_t i = 0; i < request.rows.size(); ++i) {
      const SettleRequest::Row& row = request.rows[i];
      const int line = static_cast<int>(i);
      const QString number = QString::number(i);
      auto* const label = new QLabel(ToQt(row.label), frame);
      label->setObjectName("lblWonBetType" + number);
      auto* const amount = new QLabel(ToQt(row.amount), frame);
      amount->setObjectName("lblWonBet" + number);
      if (row.bold) {
        label->setFont(Bold(label->font()));
        amount->setFont(Bold(amount->font()));
        SetMoneyColor(*amount);
      }
      grid->addWidget(label, line, 0);
      grid->addWidget(amount, line, 1, Qt::AlignRight);
      spoken += label->text() + ' ' + amount->text() + '\n';
    }
    setAccessibleDescription(spoken);
    return frame;
  }

  void SetMoneyColor(QLabel& amount) {
    const QString text = amount.text();
    const bool zero = std::none_of(text.begin(), text.end(),
                                   [](QChar letter) { return letter >= '1' && letter <= '9'; });
    const QColor color = MoneyColor(zero ? 0 : text.contains('-') ? -1 : 1, palette());
    QPalette colors = amount.palette();
    colors.setColor(QPalette::Text, color);  // on the ground of a list
    amount.setPalette(colors);
  }

  void AddButtons(QBoxLayout& column, const SettleRequest& request) {
    auto* const grid = new QGridLayout;
    grid->setColumnStretch(1, 1);
    grid->setColumnMinimumWidth(0, Letters(*this, 15));
    for (std::size_t i = 0; i < kButtons; ++i) {
      const QString caption = i < request.captions.size() ? ToQt(request.captions[i]) : QString();
      auto* const button = new QPushButton(caption, this);
      button->setObjectName("cmdHandle" + QString::number(i));
      button->setAccessibleName(Spoken(caption));
      button->setEnabled(i == 0 || !request.only_take_down);
      connect(button, &QPushButton::clicked, this, [this, i] { Choose(i); });
      buttons_[i] = button;
      const int line = static_cast<int>(i);
      if (i < kFirstOptionButton) {
        grid->addWidget(button, line, 0, 1, 2);
      } else {
        grid->addWidget(button, line, 0);
        grid->addLayout(AddOption(request, i - kFirstOptionButton), line, 1);
      }
    }
    column.addLayout(grid);
  }

  OptionRow* AddOption(const SettleRequest& request, std::size_t i) {
    const int option = kSameBetOption + static_cast<int>(i);
    auto* const row = new OptionRow(this, game_, option, {.same_bet = i == 0, .chip_units = true});
    row->Show(request.options[i]);
    row->SetEnabled(!request.only_take_down);
    options_[i] = row;
    return row;
  }

  // A run of rolls can be ended here, without closing the dialog.
  void AddHint(QBoxLayout& column) {
    hint_ = new QLabel("F2 or the right mouse button stops rolling", this);
    hint_->setObjectName("lblStopRolling");
    hint_->setAlignment(Qt::AlignCenter);
    hint_->setEnabled(false);
    hint_->setVisible(game_.AutoRollDice && game_.KeepRolling);
    column.addWidget(hint_);
  }

  void StopRolling() {
    reply_.stop_rolling = true;
    hint_->setEnabled(true);
    hint_->setText("Rolling stops");
  }

  void Choose(std::size_t button) {
    reply_.button = static_cast<int>(button);
    accept();
  }

  SettleReply reply_;
  std::array<QPushButton*, kButtons> buttons_{};
  std::array<OptionRow*, 2> options_{};
  QLabel* hint_ = nullptr;
};

}  // namespace

SettleReply ShowSettleDialog(QWidget* parent, Game& game, const SettleRequest& request) {
  SettleDialog dialog(parent, game, request);
  dialog.adjustSize();
  CentreOverTable(dialog, parent);
  return dialog.Ask();
}

}  // namespace feltmaster
