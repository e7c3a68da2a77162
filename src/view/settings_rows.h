#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "game/game.h"
#include "view/figure.h"
#include "view/rows.h"

namespace feltmaster {

// The controls of the Configure screen, tab by tab, and those of the Auto-Play screen, with the
// captions they bear and the values they show.

struct SettingControl {
  std::string_view caption;
  // "chkSnapMouse". The first three letters tell the kind: chk a box, opt a group of options, cmb a
  // list, txt a field; anything else is drawn, or only shown.
  std::string_view control;
  std::string_view name;  // of the state record, as "configure" takes it
  int index = -1;         // of an element of a table
  // The entries of a list or of a group of options, by value.
  std::span<const std::string_view> choices = {};
  // What is shown where it is not simply the value or its choice.
  std::string (*show)(Game& game) = nullptr;
  // The entries of a list of sounds, behind "none".
  std::vector<std::string> Preferences::*sounds = nullptr;
  std::int32_t bit = 0;  // of a box that is one of a set of flags
};

struct SettingTab {
  std::string_view caption;
  std::span<const SettingControl> controls;
};

// The ten tabs in the order of ConfigureTab, then Auto-Play.
std::span<const SettingTab> SettingTabs();

// A control of the Auto-Play screen by the name of its setting; null when there is none.
const SettingControl* FindAutoPlayControl(std::string_view name);
// What can stop Auto-Roll, by position.
std::span<const std::string_view> AutoStopTexts();

// "OddsAllowed(0)": the name under which the value is read and written.
std::string NameOfSetting(const SettingControl& control);
std::string ShownSetting(Game& game, const SettingControl& control);
// What stands in the field of a setting: the value as shown, without its unit.
std::string FieldText(Game& game, const SettingControl& control);
// The entries of a list or of a group of options, and which of them is chosen; of a box 1 or 0.
std::vector<std::string> ChoicesOf(const Game& game, const SettingControl& control);
std::int64_t ChosenValue(Game& game, const SettingControl& control);
// As the control does: the text of a field, the index in a list or 1 and 0 of a box. Gives what
// Configure gives.
std::string WriteSetting(Game& game, const SettingControl& control, std::string_view value);

// The bankroll, what was brought to the table, and the difference.
Figures BankrollFigures(const Game& game);

// Every setting: tab, caption, value as shown, name. Of the payoffs only those that are not the
// house's own.
Rows SettingRows(Game& game);

// The settings in which a game differs from another: caption, value here, value there, name.
Rows ChangedSettingRows(Game& game, Game& other);

}  // namespace feltmaster
