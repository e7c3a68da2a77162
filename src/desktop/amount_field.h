#pragma once

#include <QLineEdit>

#include "config/configure.h"

namespace feltmaster {

// A field for a number. Whatever is typed, pasted or dropped passes the key filter of the number
// fields; getting the focus selects the whole text.
class AmountField : public QLineEdit {
 public:
  // `length` is the longest text, 0 for no limit of its own.
  AmountField(QWidget* parent, int decimals, bool allow_negative, int length = 0);
  void SetRule(const NumberRule& rule);

 protected:
  void focusInEvent(QFocusEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  bool just_entered_ = false;  // by the press that is on its way
};

}  // namespace feltmaster
