#include "desktop/frm_configure.h"

#include <QAction>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QShortcut>
#include <algorithm>
#include <array>

#include "config/payoffs.h"
#include "config/table_colors.h"
#include "desktop/frm_axis.h"
#include "desktop/qt_text.h"
#include "desktop/screen_menus.h"
#include "engine/table_effects.h"
#include "files/probability_commands.h"
#include "reports/print_commands.h"
#include "view/settings_rows.h"

namespace feltmaster {

namespace {

enum Tab : int {
  kChecks,
  kSound,
  kComps,
  kColors,
  kMisc,
  kBankrollTab,
  kBets,
  kPayoffs,
  kProbability,
  kAdvantage,
  kTabCount,
};
constexpr std::array<ConfigurePage* (*)(const ConfigureHost&), kTabCount> kPages = {
    MakeChecksPage,   MakeSoundPage, MakeCompsPage,   MakeColorsPage,      MakeMiscPage,
    MakeBankrollPage, MakeBetsPage,  MakePayoffsPage, MakeProbabilityPage, MakeAdvantagePage};

// "&Set Field payoffs to" lies in another menu.
struct MenuTraits {
  std::string_view name;
  std::string_view caption;
  std::string_view within = {};
};
constexpr auto kMenus =
    std::to_array<MenuTraits>({{"mnuFile", "&File"},
                               {"mnuOptions", "&Options"},
                               {"mnuOptionsPayoffs", "&Options"},
                               {"mnuSetSuperField", "&Set Field payoffs to", "mnuOptionsPayoffs"},
                               {"mnuOptionsColors", "&Options"},
                               {"mnuOptionsAdvantage", "&Options"}});

constexpr unsigned On(Tab tab) {
  return 1u << tab;
}
template <auto kProcedure>
void Do(Game& game, QWidget*) {
  kProcedure(game);
}
void PrintRules(Game& game, QWidget*) {
  FindPrintCommand("advantage")->print(game, Confirm::kAsk);
}
void ComputeAxes(Game& game, QWidget* screen) {
  ShowAxisScreen(screen, game);
}
template <auto kSwitch>
void Turn(Game& game, QWidget*) {
  game.*kSwitch = !(game.*kSwitch);
}

struct Command {
  unsigned tabs;
  std::string_view menu;
  std::string_view name;
  std::string_view caption;
  const char* shortcut;
  void (*carry_out)(Game& game, QWidget* screen);
  bool Game::*checked = nullptr;
};
constexpr auto kCommands = std::to_array<Command>({
    {On(kProbability), "mnuFile", "mnuNew", "&New", "Ctrl+N", Do<NewProbabilitiesCommand>},
    {On(kProbability), "mnuFile", "mnuOpen", "&Open...", "Ctrl+O", Do<OpenProbabilitiesCommand>},
    {On(kProbability), "mnuFile", "mnuSave", "&Save", "Ctrl+S", Do<SaveProbabilitiesCommand>},
    {On(kProbability), "mnuFile", "mnuSaveAs", "Save &As...", "", Do<SaveProbabilitiesAsCommand>},
    {On(kPayoffs) | On(kAdvantage), "mnuFile", "mnuPrintAdvPay", "&Print...", "Ctrl+P", PrintRules},
    {On(kChecks), "mnuOptions", "mnuRestoreDefaultDenoms", "&Restore default denominations", "",
     Do<RestoreDefaultDenominations>},
    {On(kProbability), "mnuOptions", "mnuAxes", "Compute percentage dice about an a&xis", "",
     ComputeAxes},
    {On(kPayoffs), "mnuOptionsPayoffs", "mnuRestoreDefaultPayoffs", "&Restore default payoffs", "",
     Do<RestoreDefaultPayoffs>},
    {On(kAdvantage), "mnuOptionsAdvantage", "mnuIncludeZeroOutcomes",
     "Count &zero outcomes as decisions", "", Turn<&Game::IncludeZeroOutcomes>,
     &Game::IncludeZeroOutcomes},
    {On(kAdvantage), "mnuOptionsAdvantage", "mnuShowMiscData",
     "Show misc. roll, dec, and time data", "", Turn<&Game::ShowMiscData>, &Game::ShowMiscData},
});

}  // namespace

ConfigureScreen::ConfigureScreen(Screens& screens) : ScreenWindow(screens, kTraits) {
  const ConfigureHost host{TheGame(), [this] { Changed(); }};
  tabs_->setObjectName(QStringLiteral("tabConfigure"));
  for (std::size_t tab = 0; tab < kPages.size(); ++tab) {
    pages_.push_back(kPages[tab](host));
    tabs_->addTab(pages_.back(), ToQt(SettingTabs()[tab].caption));
  }
  setCentralWidget(tabs_);
  BuildMenus();
  AddHelpMenu(*this, TheGame());
  shown_ = TheGame().ConfigureTab;
  tabs_->setCurrentIndex(shown_);
  connect(tabs_, &QTabWidget::currentChanged, this, [this](int tab) { TabChosen(tab); });
  // As shortcuts, because a list would take the keys for its own.
  for (const auto& [keys, step] : {std::pair{"Ctrl+Tab", 1}, {"Ctrl+Shift+Tab", kTabCount - 1}}) {
    connect(new QShortcut(QKeySequence(QString::fromLatin1(keys)), this), &QShortcut::activated,
            this, [this, step = step] { tabs_->setCurrentIndex((shown_ + step) % kTabCount); });
  }
  ShowMenus();
}

// What loses the focus commits, which needs all of this.
ConfigureScreen::~ConfigureScreen() {
  if (QWidget* focus = focusWidget()) focus->clearFocus();
}

void ConfigureScreen::BuildMenus() {
  for (const MenuTraits& traits : kMenus) {
    QMenu* menu = traits.within.empty() ? menuBar()->addMenu(ToQt(traits.caption))
                                        : menus_[traits.within]->addMenu(ToQt(traits.caption));
    menu->setObjectName(ToQt(traits.name));
    menus_[traits.name] = menu;
  }
  for (const Command& command : kCommands) {
    QAction* action = AddEntry(command.tabs, command.menu, command.name, command.caption,
                               [this, &command] { command.carry_out(TheGame(), this); });
    action->setShortcut(QKeySequence(QString::fromLatin1(command.shortcut)));
    action->setCheckable(command.checked != nullptr);
    entries_.back().checked = command.checked;
  }
  for (std::size_t i = 0; i < kFieldPresetMenu.size(); ++i) {
    AddEntry(On(kPayoffs), "mnuSetSuperField", kFieldPresetMenu[i].name,
             kFieldPresetMenu[i].caption,
             [this, i] { SetFieldPayoffs(TheGame(), static_cast<FieldPreset>(i)); });
  }
  for (const TablePreset& preset : kTablePresets) {
    AddEntry(On(kColors), "mnuOptionsColors", preset.entry, preset.caption,
             [this, &preset] { SetTablePreset(TheGame(), preset); });
  }
}

QAction* ConfigureScreen::AddEntry(unsigned tabs, std::string_view menu, std::string_view name,
                                   std::string_view caption, std::function<void()> carry_out) {
  QAction* action = menus_[menu]->addAction(ToQt(caption));
  action->setObjectName(ToQt(name));
  connect(action, &QAction::triggered, this, [this, carry_out = std::move(carry_out)] {
    Page().Commit();
    carry_out();
    TheGame().GameChanged = true;
    Changed();
  });
  entries_.push_back({tabs, action, nullptr});
  return action;
}

void ConfigureScreen::ShowMenus() {
  const unsigned here = 1u << shown_;
  for (const Entry& entry : entries_) {
    entry.action->setVisible((entry.tabs & here) != 0);
    if (entry.checked != nullptr) entry.action->setChecked(TheGame().*entry.checked);
  }
  for (const auto& [name, menu] : menus_) {
    const auto seen = [&](const Entry& entry) {
      return entry.action->isVisible() && entry.action->parent() == menu;
    };
    menu->menuAction()->setVisible(std::ranges::any_of(entries_, seen));
  }
}

void ConfigureScreen::Refresh() {
  Page().ShowModel();
  ShowMenus();
}

void ConfigureScreen::Changed() {
  ShowTableChange(TheGame(), kChangedAll);
  Refresh();
}

void ConfigureScreen::TabChosen(int tab) {
  Page().Commit();
  shown_ = tab;
  Configure(TheGame(), "ConfigureTab", std::to_string(tab));
  Refresh();
}

std::int32_t ConfigureScreen::HelpTopic() const {
  constexpr std::int32_t kFirstTab = 1100;
  return kFirstTab + shown_;
}

bool ConfigureScreen::MayClose() {
  LeavingConfigure leaving;
  for (ConfigurePage* page : pages_) page->Leave(leaving);
  if (CheckLimits(TheGame(), leaving)) return true;
  tabs_->setCurrentIndex(TheGame().ConfigureTab);
  Refresh();
  Page().GoTo(leaving.fault);
  return false;
}

// ---- The pages --------------------------------------------------------------------------------

void ConfigurePage::GoTo(const std::string& setting) {
  QWidget* control = controls_.ControlOf(setting);
  if (control == nullptr) return;
  control->setFocus();
  if (auto* field = qobject_cast<QLineEdit*>(control)) field->selectAll();
}

}  // namespace feltmaster
