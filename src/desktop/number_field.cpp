#include "desktop/number_field.h"

#include <QApplication>
#include <QEvent>

#include "base/number_format.h"
#include "desktop/dialog_tools.h"
#include "desktop/qt_text.h"

namespace feltmaster {

NumberField::NumberField(const NumberRule& rule, QWidget* parent)
    : AmountField(parent, rule.decimals, rule.negative) {
  constexpr int kDigits = 14;
  setMinimumWidth(Letters(*this, kDigits));
  setMaximumWidth(Letters(*this, kDigits * 2));
  connect(this, &QLineEdit::textChanged, this, [this] { Color(); });
}

std::string NumberField::Typed() const {
  const std::string typed = FromQt(text());
  return typed.find_first_of("0123456789") == std::string::npos ? "0" : typed;
}

void NumberField::ShowNumber(const std::string& number) {
  if (hasFocus() && ParseMoney(Typed()) == ParseMoney(number)) return;
  if (text() != ToQt(number)) setText(ToQt(number));
  Color();
}

void NumberField::Color() {
  const MoneyAmount amount = ParseMoney(FromQt(text()));
  const int sign = amount.Raw() > 0 ? 1 : amount.Raw() < 0 ? -1 : 0;
  // The ink is reckoned from the application's colours: the field's own hold the last one.
  const QColor ink = MoneyColor(sign, QApplication::palette());
  QPalette colored = palette();
  if (colored.color(QPalette::Active, QPalette::Text) == ink) return;
  for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
    colored.setColor(group, QPalette::Text, ink);
  }
  setPalette(colored);
}

void NumberField::changeEvent(QEvent* event) {
  AmountField::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) Color();
}

}  // namespace feltmaster
