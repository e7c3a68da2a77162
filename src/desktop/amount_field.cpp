#include "desktop/amount_field.h"

#include <QFocusEvent>
#include <QValidator>
#include <string>

#include "config/configure.h"
#include "desktop/dialog_tools.h"
#include "desktop/qt_text.h"

namespace feltmaster {

namespace {

// A text is good when it could have been typed from its left end.
class AmountValidator : public QValidator {
 public:
  AmountValidator(QObject* parent, int decimals, bool allow_negative)
      : QValidator(parent), decimals_(decimals), allow_negative_(allow_negative) {}

  State validate(QString& text, int&) const override {
    const std::string wanted = FromQt(text);
    FieldKey typed;
    for (const char key : wanted) typed = NumericKeyFilter(typed, key, decimals_, allow_negative_);
    return typed.text == wanted ? Acceptable : Invalid;
  }

 private:
  int decimals_;
  bool allow_negative_;
};

}  // namespace

AmountField::AmountField(QWidget* parent, int decimals, bool allow_negative, int length)
    : WholeTextField(parent) {
  setValidator(new AmountValidator(this, decimals, allow_negative));
  if (length > 0) setMaxLength(length);
  setAlignment(Qt::AlignRight);
  setInputMethodHints(Qt::ImhFormattedNumbersOnly);
}

void WholeTextField::focusInEvent(QFocusEvent* event) {
  QLineEdit::focusInEvent(event);
  if (event->reason() == Qt::PopupFocusReason) return;
  just_entered_ = event->reason() == Qt::MouseFocusReason;
  selectAll();
}

void WholeTextField::mousePressEvent(QMouseEvent* event) {
  // It would put the cursor somewhere and drop the selection.
  if (!just_entered_) QLineEdit::mousePressEvent(event);
  just_entered_ = false;
}

}  // namespace feltmaster
