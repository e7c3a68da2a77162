#include "desktop/option_row.h"

#include <QPalette>
#include <algorithm>
#include <string>

#include "base/number_format.h"
#include "desktop/dialog_tools.h"
#include "desktop/qt_text.h"
#include "engine/handle_bet.h"

namespace feltmaster {

namespace {

constexpr const char* kOperators[] = {"+", "-", "x", "/"};
constexpr const char* kSpokenOperators[] = {"plus", "minus", "times", "divided by"};
constexpr int kOperatorCount = 4;
constexpr int kMinus = 1;

enum Units : int { kDollars = 0, kPercent = 1, kFirstChipUnit = 2 };
constexpr int kDecimals = 4;

QString Numbered(const char* name, int option) {
  return name + QString::number(option);
}

}  // namespace

OptionRow::OptionRow(QWidget* parent, const Game& game, int option, Steps steps)
    : game_(game), steps_(steps) {
  const QString of = steps.same_bet ? " of Same Bet" : " of Bet";
  if (steps.same_bet) {
    operator_ = AddButton(parent, "cmdMathOperator", option, "Operator");
    operator_->setMinimumWidth(Letters(*operator_, 5));
    QObject::connect(operator_, &QToolButton::clicked, operator_, [this] { StepOperator(); });
  }
  field_ = new AmountField(parent, kDecimals, false);
  field_->setObjectName(Numbered("txtModifyAmount", option));
  field_->setAccessibleName("Amount" + of);
  field_->setMinimumWidth(Letters(*field_, 9));
  QObject::connect(field_, &QLineEdit::textEdited, field_, [this] { TakeAmount(); });
  addWidget(field_, 1);
  units_ = AddButton(parent, "cmdUnits", option, "Units");
  units_->setMinimumWidth(Letters(*units_, 13));
  QObject::connect(units_, &QToolButton::clicked, units_, [this] { StepUnits(); });
  Show({});
}

QToolButton* OptionRow::AddButton(QWidget* parent, const char* name, int option,
                                  const char* spoken) {
  auto* const button = new QToolButton(parent);
  button->setObjectName(Numbered(name, option));
  button->setAccessibleDescription(spoken);
  button->setFocusPolicy(Qt::StrongFocus);
  button->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Expanding);
  addWidget(button);
  return button;
}

void OptionRow::Show(const SettleRequest::Option& value) {
  value_ = value;
  value_.math_operator = std::clamp(value.math_operator, 0, kOperatorCount - 1);
  value_.units = std::clamp<int>(value.units, kDollars, kFirstChipUnit + kChipCount - 1);
  field_->setText(QString::fromStdString(PlainNumber(value_.amount)));
  ShowValue();
}

void OptionRow::SetEnabled(bool enabled) {
  for (int i = 0; i < count(); ++i) itemAt(i)->widget()->setEnabled(enabled);
}

void OptionRow::StepOperator() {
  value_.math_operator = (value_.math_operator + 1) % kOperatorCount;
  Tell();
}

void OptionRow::StepUnits() {
  const int last = steps_.chip_units ? kFirstChipUnit + kChipCount - 1 : static_cast<int>(kPercent);
  value_.units = value_.units >= last ? static_cast<int>(kDollars) : value_.units + 1;
  if (value_.units == kPercent && !steps_.same_bet) {
    value_.units = steps_.chip_units ? kFirstChipUnit : kDollars;
  }
  Tell();
}

void OptionRow::TakeAmount() {
  value_.amount = ParseMoney(FromQt(field_->text()));
  Tell();
}

void OptionRow::Tell() {
  ShowValue();
  if (Changed) Changed();
}

void OptionRow::ShowValue() {
  const bool minus = steps_.same_bet && value_.math_operator == kMinus;
  const int sign = value_.amount.Raw() == 0 ? 0 : minus ? -1 : 1;
  QPalette palette = field_->palette();
  palette.setColor(QPalette::Active, QPalette::Text,
                   MoneyColor(sign, field_->parentWidget()->palette()));
  palette.setColor(QPalette::Inactive, QPalette::Text,
                   MoneyColor(sign, field_->parentWidget()->palette()));
  field_->setPalette(palette);
  if (operator_ != nullptr) {
    operator_->setText(kOperators[value_.math_operator]);
    operator_->setAccessibleName(kSpokenOperators[value_.math_operator]);
  }
  units_->setText(UnitsText());
  units_->setAccessibleName(units_->text());
}

QString OptionRow::UnitsText() const {
  if (value_.units == kDollars) return "$";
  if (value_.units == kPercent) return "%";
  // Without a bet of its own a row counts in the chips themselves.
  const MoneyAmount unit = steps_.chip_units
                               ? ChipUnit(game_, value_.units)
                               : game_.BetAmount[kFirstChip + value_.units - kFirstChipUnit];
  return QString::fromStdString("$" + FormatMoney(unit) + " Units");
}

}  // namespace feltmaster
