#include "desktop/number_field.h"

#include <QEvent>
#include <QPalette>
#include <QValidator>

#include "base/number_format.h"
#include "desktop/paint_tools.h"
#include "desktop/qt_text.h"
#include "view/palette.h"

namespace feltmaster {

namespace {

class KeyValidator : public QValidator {
 public:
  KeyValidator(const NumberRule& rule, QObject* parent) : QValidator(parent), rule_(rule) {}
  State validate(QString& input, int&) const override {
    return KeysPass(FromQt(input), rule_) ? Acceptable : Invalid;
  }

 private:
  NumberRule rule_;
};

}  // namespace

QColor InkOf(int palette_number, const QColor& ground) {
  const Rgb color = PaletteRgb(palette_number);
  return Legible(QColor(color.red, color.green, color.blue), ground);
}

QColor AmountInk(MoneyAmount amount, const QPalette& palette) {
  if (amount.Raw() == 0) return palette.color(QPalette::Text);
  return InkOf(amount.Raw() > 0 ? kBlueInk : kRedInk, palette.color(QPalette::Base));
}

NumberField::NumberField(const NumberRule& rule, QWidget* parent) : QLineEdit(parent) {
  constexpr int kDigits = 14;
  setMinimumWidth(fontMetrics().averageCharWidth() * kDigits);
  setMaximumWidth(fontMetrics().averageCharWidth() * kDigits * 2);
  SetRule(rule);
  connect(this, &QLineEdit::textChanged, this, [this] { Color(); });
}

void NumberField::SetRule(const NumberRule& rule) {
  const QValidator* before = validator();
  setValidator(new KeyValidator(rule, this));
  delete before;
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
  QPalette colored = palette();
  QPalette plain;  // of the application: what is at 0 must not keep an ink
  const QColor ink = AmountInk(ParseMoney(FromQt(text())), plain);
  if (colored.color(QPalette::Active, QPalette::Text) == ink) return;
  colored.setColor(QPalette::Active, QPalette::Text, ink);
  colored.setColor(QPalette::Inactive, QPalette::Text, ink);
  setPalette(colored);
}

void NumberField::changeEvent(QEvent* event) {
  QLineEdit::changeEvent(event);
  if (event->type() == QEvent::EnabledChange) Color();
}

}  // namespace feltmaster
