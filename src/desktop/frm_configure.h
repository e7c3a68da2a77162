#pragma once

#include <QTabWidget>
#include <functional>
#include <map>
#include <string_view>
#include <vector>

#include "desktop/configure_page.h"
#include "desktop/screen_window.h"

class QAction;
class QMenu;

namespace feltmaster {

// The Configure screen: ten tabs of settings, each written as soon as it is changed. It closes when
// its checks pass.
class ConfigureScreen : public ScreenWindow {
 public:
  static constexpr ScreenTraits kTraits{"frmConfigure", "Configure"};
  explicit ConfigureScreen(Screens& screens);
  ~ConfigureScreen() override;

  void Refresh() override;

 protected:
  bool MayClose() override;

 private:
  // An entry of a menu, seen on some of the tabs (a bit each).
  struct Entry {
    unsigned tabs;
    QAction* action;
    bool Game::*checked;
  };

  void BuildMenus();
  QAction* AddEntry(unsigned tabs, std::string_view menu, std::string_view name,
                    std::string_view caption, std::function<void()> carry_out);
  // The menus that belong to the tab.
  void ShowMenus();
  void TabChosen(int tab);
  void Changed();
  ConfigurePage& Page() const { return *pages_[static_cast<std::size_t>(shown_)]; }

  QTabWidget* tabs_ = new QTabWidget;
  std::vector<ConfigurePage*> pages_;
  std::map<std::string_view, QMenu*> menus_;
  std::vector<Entry> entries_;
  int shown_ = 0;  // the tab
};

}  // namespace feltmaster
