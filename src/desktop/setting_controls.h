#pragma once

#include <QGroupBox>
#include <QWidget>
#include <functional>
#include <initializer_list>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "game/game.h"
#include "view/settings_rows.h"

class QGridLayout;

namespace feltmaster {

// The controls of settings on a screen, made from the tables of settings: each shows what the game
// holds and writes it at once, through the same door as "configure".
class SettingControls {
 public:
  // `changed` is called after a control has written.
  SettingControls(Game& game, std::function<void()> changed);

  // The box, list, field, label or group of options of this name ("chkSnapMouse"). A group of
  // options is a widget over a QGridLayout with one option in each row.
  QWidget* Make(std::string_view control);
  // A framed group with a row for each control; what does not bear its caption has it in front.
  QGroupBox* Group(const QString& title, std::initializer_list<std::string_view> controls);
  // A control of the screen's own making, with what shows the setting in it.
  void Add(std::string_view control, QWidget* widget, std::function<void()> show);
  // As a control of this name does.
  void Write(std::string_view control, const std::string& value);

  // All show what the game holds now.
  void Show();
  // The control of "BetAmount(95)"; null when this screen has none.
  QWidget* ControlOf(const std::string& setting) const;

 private:
  QWidget* MakeBox(const SettingControl& control);
  QWidget* MakeOptions(const SettingControl& control);
  QWidget* MakeList(const SettingControl& control);
  QWidget* MakeField(const SettingControl& control);

  Game& game_;
  std::function<void()> changed_;
  std::vector<std::function<void()>> shows_;
  std::map<std::string, QWidget*> of_setting_;
  const QWidget* typed_into_ = nullptr;
};

// The row of the tables of settings for a control. There must be one.
const SettingControl& SettingOfControl(std::string_view control);

// A group of options, as Make gives it: its layout, for what stands beside an option.
QGridLayout* OptionRows(QWidget* options);

}  // namespace feltmaster
