#pragma once

#include <QLineEdit>

#include "config/configure.h"

namespace feltmaster {

// A field that is typed over: getting the focus selects its whole text.
class WholeTextField : public QLineEdit {
 public:
  explicit WholeTextField(QWidget* parent) : QLineEdit(parent) {}

 protected:
  void focusInEvent(QFocusEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  bool just_entered_ = false;  // by the press that is on its way
};

// A field for a number. Whatever is typed, pasted or dropped passes the key filter of the number
// fields.
class AmountField : public WholeTextField {
 public:
  // `length` is the longest text, 0 for no limit of its own.
  AmountField(QWidget* parent, int decimals, bool allow_negative, int length = 0);
  void SetRule(const NumberRule& rule);
};

}  // namespace feltmaster
