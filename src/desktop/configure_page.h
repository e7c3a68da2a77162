#pragma once

#include <QWidget>
#include <functional>
#include <string>

#include "config/configure.h"
#include "desktop/setting_controls.h"

namespace feltmaster {

// What a page of the Configure screen is made with.
struct ConfigureHost {
  Game& game;
  std::function<void()> changed;  // a setting was written: everything shows it
};

// One tab of the Configure screen.
class ConfigurePage : public QWidget {
 public:
  explicit ConfigurePage(const ConfigureHost& host)
      : host_(host), controls_(host.game, host.changed) {}

  // Shows what the game holds now.
  virtual void ShowModel() { controls_.Show(); }
  // What was typed and is not taken yet is taken, before another page is shown.
  virtual void Commit() {}
  // The same before the screen closes.
  virtual void Leave(LeavingConfigure&) { Commit(); }
  // To the setting at which a check has found fault.
  virtual void GoTo(const std::string& setting);

 protected:
  Game& TheGame() const { return host_.game; }
  void Changed() const { host_.changed(); }
  SettingControls& Controls() { return controls_; }

 private:
  ConfigureHost host_;
  SettingControls controls_;
};

// The ten, in the order of the tabs.
ConfigurePage* MakeChecksPage(const ConfigureHost& host);
ConfigurePage* MakeSoundPage(const ConfigureHost& host);
ConfigurePage* MakeCompsPage(const ConfigureHost& host);
ConfigurePage* MakeColorsPage(const ConfigureHost& host);
ConfigurePage* MakeMiscPage(const ConfigureHost& host);
ConfigurePage* MakeBankrollPage(const ConfigureHost& host);
ConfigurePage* MakeBetsPage(const ConfigureHost& host);
ConfigurePage* MakePayoffsPage(const ConfigureHost& host);
ConfigurePage* MakeProbabilityPage(const ConfigureHost& host);
ConfigurePage* MakeAdvantagePage(const ConfigureHost& host);

}  // namespace feltmaster
