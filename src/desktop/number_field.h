#pragma once

#include <string>

#include "desktop/amount_field.h"

namespace feltmaster {

// A field that shows an amount of the game, in blue above 0 and in red below.
class NumberField : public AmountField {
 public:
  explicit NumberField(const NumberRule& rule, QWidget* parent = nullptr);

  // The text as typed; without a digit it stands for 0.
  std::string Typed() const;
  // What the player is typing stays while it says the same.
  void ShowNumber(const std::string& number);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void Color();
};

}  // namespace feltmaster
