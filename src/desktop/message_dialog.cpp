#include "desktop/message_dialog.h"

#include <QApplication>
#include <QBoxLayout>
#include <QCheckBox>
#include <QDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPushButton>
#include <array>
#include <cstddef>
#include <utility>

#include "desktop/amount_field.h"
#include "desktop/dialog_tools.h"
#include "desktop/message_picture.h"
#include "desktop/qt_text.h"
#include "game/script.h"

namespace feltmaster {

namespace {

constexpr int kDecimals = 4;  // of a typed amount
constexpr std::int32_t kHideBits = kHideActions | kHideLimits | kHideCharges | kHideScript;

struct ButtonRow {
  MessageOption option;
  const char* caption;
  std::int32_t answer;  // 0 leaves the dialog open
};
constexpr std::array<ButtonRow, 5> kButtons = {{{kButtonOk, "&OK", kAnswerOk},
                                                {kButtonYes, "&Yes", kAnswerYes},
                                                {kButtonNo, "&No", kAnswerNo},
                                                {kButtonCancel, "&Cancel", kAnswerCancel},
                                                {kButtonHelp, "&Help", 0}}};

// The number of the default button; none of the buttons where there is none, as with a Hide box.
std::size_t DefaultButton(std::int32_t options) {
  return static_cast<std::size_t>(static_cast<std::uint32_t>(options) / kDefaultYes);
}

// Lines as long as they read well; longer ones are broken.
QLabel* MessageLabel(QWidget* parent, std::string_view text) {
  constexpr int kLineLetters = 64;
  auto* const label = new QLabel(ToQt(text), parent);
  label->setObjectName("lblMsg");
  label->setTextFormat(Qt::PlainText);
  const int limit = Letters(*label, kLineLetters);
  if (label->sizeHint().width() > limit) {
    label->setWordWrap(true);
    label->setFixedWidth(limit);
    label->setMinimumHeight(label->heightForWidth(limit));
  }
  return label;
}

// The picture with the text beside it.
QBoxLayout* MessageRow(QWidget* parent, std::string_view text, MessagePicture picture) {
  auto* const row = new QHBoxLayout;
  row->setSpacing(Letters(*parent, 3));
  row->addWidget(new PictureWidget(parent, picture), 0, Qt::AlignTop);
  row->addWidget(MessageLabel(parent, text), 1, Qt::AlignVCenter);
  return row;
}

void SetMargins(QLayout& layout, const QWidget& dialog) {
  const int margin = Letters(dialog, 3);
  layout.setContentsMargins(margin, margin, margin, margin);
  layout.setSpacing(Letters(dialog, 2.5));
}

class MessageDialog : public GameDialog {
 public:
  MessageDialog(QWidget* parent, Game& game, const MessageRequest& request)
      : GameDialog(parent, game, "frmMessage", request.help), options_(request.options) {
    setWindowTitle(ToQt(request.title));
    setAccessibleDescription(ToQt(request.text));
    auto* const column = new QVBoxLayout(this);
    SetMargins(*column, *this);
    column->addLayout(MessageRow(this, request.text, PictureOf(options_)));
    AddFields(*column, request);
    AddHideBox(*column);
    AddButtons(*column);
    ChooseFocus();
  }

  MessageReply Ask() {
    exec();
    MessageReply reply;
    reply.answer = answer_;
    if (fields_[0] != nullptr) reply.input1 = FromQt(fields_[0]->text());
    if (fields_[1] != nullptr) reply.input2 = FromQt(fields_[1]->text());
    reply.hide = hide_ != nullptr && hide_->isChecked();
    return reply;
  }

 protected:
  // Esc is Cancel where there is such a button; otherwise it closes as the window's frame does.
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() == Qt::Key_Escape && (options_ & kButtonCancel) != 0) {
      Press(kAnswerCancel);
    } else {
      GameDialog::keyPressEvent(event);
    }
  }

  void mousePressEvent(QMouseEvent* event) override {
    const QWidget* const pressed = childAt(event->position().toPoint());
    const bool picture = pressed != nullptr && pressed->objectName() == "picture";
    if (picture && PictureOf(options_) == MessagePicture::kProgram && game_.AutoBetRunning) {
      QMessageBox::information(this, "Auto-Bet",
                               "Auto-Bet line #" + QString::number(game_.CurrentLine));
    }
  }

 private:
  void AddFields(QBoxLayout& column, const MessageRequest& request) {
    if ((options_ & kOneInput) == 0) return;
    const bool two = (options_ & kTwoInputs) == kTwoInputs;
    // A field with a limit of its own takes a seed: a whole number without a sign.
    const bool whole = request.input_length > 0;
    auto* const row = new QHBoxLayout;
    row->addStretch(1);
    for (std::size_t i = 0; i < (two ? 2u : 1u); ++i) {
      auto* const field = new AmountField(this, whole ? 0 : kDecimals, !whole,
                                          static_cast<int>(request.input_length));
      field->setObjectName(i == 0 ? "txtInput0" : "txtInput1");
      field->setAccessibleName(i == 0 ? "Value" : "Second value");
      field->setAccessibleDescription(ToQt(request.text));
      field->setText(ToQt(i == 0 ? request.input_default : request.input2_default));
      field->setMinimumWidth(Letters(*field, 20));
      row->addWidget(field);
      row->addStretch(1);
      fields_[i] = field;
    }
    column.addLayout(row);
  }

  void AddHideBox(QBoxLayout& column) {
    if ((options_ & kHideBits) == 0) return;
    hide_ = new QCheckBox("Hide", this);
    hide_->setObjectName("chkHide");
    hide_->setAccessibleName("Hide");
    hide_->setToolTip("Do not show notices of this kind any more");
    column.addWidget(hide_, 0, Qt::AlignHCenter);
  }

  void AddButtons(QBoxLayout& column) {
    auto* const row = new QHBoxLayout;
    row->addStretch(1);
    for (std::size_t i = 0; i < kButtons.size(); ++i) {
      if ((options_ & kButtons[i].option) == 0) continue;
      auto* const button = new QPushButton(kButtons[i].caption, this);
      button->setObjectName("cmdButton" + QString::number(i));
      button->setAccessibleName(QString(kButtons[i].caption).remove('&'));
      button->setMinimumWidth(Letters(*button, 14));
      connect(button, &QPushButton::clicked, this, [this, i] { Press(kButtons[i].answer); });
      SnapTo(*button);
      row->addWidget(button);
      buttons_[i] = button;
    }
    row->addStretch(1);
    column.addLayout(row);
  }

  void ChooseFocus() {
    const std::size_t number = DefaultButton(options_);
    QPushButton* const by_default = number < buttons_.size() ? buttons_[number] : nullptr;
    if (by_default != nullptr) by_default->setDefault(true);
    if (fields_[0] != nullptr) {
      fields_[0]->setFocus();
    } else if (by_default != nullptr) {
      by_default->setFocus();
    } else {
      for (QPushButton* const button : buttons_) {
        if (button != nullptr) return button->setFocus();
      }
    }
  }

  void Press(std::int32_t answer) {
    if (answer == 0) return OpenHelp();
    answer_ = answer;
    accept();
  }

  std::int32_t options_;
  std::int32_t answer_ = 0;
  std::array<AmountField*, 2> fields_{};
  QCheckBox* hide_ = nullptr;
  std::array<QPushButton*, kButtons.size()> buttons_{};
};

}  // namespace

MessageReply ShowMessageDialog(QWidget* parent, Game& game, const MessageRequest& request) {
  MessageDialog dialog(parent, game, request);
  dialog.adjustSize();
  CentreOverTable(dialog, parent);
  return dialog.Ask();
}

void ShowNoticeWindow(QWidget* parent, std::string_view title, std::string_view text) {
  constexpr const char* kName = "frmNotice";
  QWidget* const table = TableOf(parent);  // the opener may be the notice before
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    if (window->objectName() == kName) delete window;
  }
  if (text.empty()) return;
  auto* const notice = new QDialog(table);
  notice->setObjectName(kName);
  notice->setWindowTitle(ToQt(title));
  notice->setAccessibleDescription(ToQt(text));
  notice->setAttribute(Qt::WA_ShowWithoutActivating);
  auto* const column = new QVBoxLayout(notice);
  SetMargins(*column, *notice);
  column->addLayout(MessageRow(notice, text, MessagePicture::kProgram));
  notice->adjustSize();
  CentreOverTable(*notice, table);
  notice->show();
  // The work that it tells of may let no events through for a while.
  QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

}  // namespace feltmaster
