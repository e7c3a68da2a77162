#pragma once

#include <QColor>
#include <QLineEdit>
#include <string>

#include "config/configure.h"

namespace feltmaster {

// A stored colour number as ink on this ground.
QColor InkOf(int palette_number, const QColor& ground);
// The ink of an amount: blue above 0, red below, the plain ink of the palette at 0.
QColor AmountInk(MoneyAmount amount, const QPalette& palette);

// A field for a number: keys and pasted text go through the numeric key filter, and the number is
// written in the ink of an amount.
class NumberField : public QLineEdit {
 public:
  explicit NumberField(const NumberRule& rule, QWidget* parent = nullptr);

  void SetRule(const NumberRule& rule);
  // The text as typed; without a digit it stands for 0.
  std::string Typed() const;
  // Shows a number. What the player is typing stays while it says the same.
  void ShowNumber(const std::string& number);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void Color();
};

}  // namespace feltmaster
