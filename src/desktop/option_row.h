#pragma once

#include <QHBoxLayout>
#include <QString>
#include <QToolButton>
#include <functional>

#include "desktop/amount_field.h"
#include "game/game.h"
#include "surface/surface.h"

namespace feltmaster {

// The controls behind "Same Bet:" and "Bet:", where what becomes of a decided bet is put together:
// an operator, an amount and its units. Each press on a button steps its value. They carry the
// number of their option, 5 to 12, in their names: "txtModifyAmount5".
class OptionRow : public QHBoxLayout {
 public:
  struct Steps {
    bool same_bet = false;    // with an operator and percent
    bool chip_units = false;  // steps through the units of the chips too
  };
  OptionRow(QWidget* parent, const Game& game, int option, Steps steps);

  void Show(const SettleRequest::Option& value);
  SettleRequest::Option Value() const { return value_; }
  void SetEnabled(bool enabled);
  AmountField& Field() { return *field_; }

  // Somebody changed the value.
  std::function<void()> Changed;

 private:
  QToolButton* AddButton(QWidget* parent, const char* name, int option, const char* spoken);
  void StepOperator();
  void StepUnits();
  void TakeAmount();
  void ShowValue();
  QString UnitsText() const;
  void Tell();

  const Game& game_;
  Steps steps_;
  SettleRequest::Option value_;
  QToolButton* operator_ = nullptr;
  AmountField* field_ = nullptr;
  QToolButton* units_ = nullptr;
};

}  // namespace feltmaster
