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
  AmountValidator(QObject* parent, const NumberRule& rule) : QValidator(parent), rule_(rule) {}

  State validate(QString& text, int&) const override {
    return KeysPass(FromQt(text), rule_) ? Acceptable : Invalid;
  }

 private:
  NumberRule rule_;
};

}  // namespace

AmountField::AmountField(QWidget* parent, int decimals, bool allow_negative, int length)
    : WholeTextField(parent) {
  SetRule({decimals, allow_negative});
  if (length > 0) setMaxLength(length);
  setAlignment(Qt::AlignRight);
  setInputMethodHints(Qt::ImhFormattedNumbersOnly);
}

void AmountField::SetRule(const NumberRule& rule) {
  const QValidator* before = validator();
  setValidator(new AmountValidator(this, rule));
  delete before;
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
