#include "desktop/screens.h"

#include <QEventLoop>
#include <QWindow>
#include <algorithm>
#include <array>

#include "desktop/frm_auto_play.h"
#include "desktop/frm_autobet.h"
#include "desktop/frm_bankroll.h"
#include "desktop/frm_bet_results.h"
#include "desktop/frm_bet_trends.h"
#include "desktop/frm_configure.h"
#include "desktop/frm_dice_roll_files.h"
#include "desktop/frm_flags.h"
#include "desktop/frm_games.h"
#include "desktop/frm_hot_keys.h"
#include "desktop/frm_roll_freqs.h"
#include "desktop/frm_roll_totals.h"
#include "desktop/frm_ryon.h"
#include "desktop/frm_stack_values.h"
#include "desktop/frm_summary.h"
#include "desktop/help_window.h"

namespace feltmaster {

namespace {

struct ScreenKind {
  WindowCommand command;
  ScreenWindow* (*make)(Screens&);
  std::optional<Screen> place;
  bool modal;
};

template <typename T>
constexpr ScreenKind Kind(WindowCommand command, bool modal = false) {
  return {command, [](Screens& screens) -> ScreenWindow* { return new T(screens); },
          T::kTraits.place, modal};
}

// In the order in which they are reopened. A screen is a class over ScreenWindow with its
// ScreenTraits as kTraits.
constexpr auto kKinds = std::to_array<ScreenKind>({
    Kind<ConfigureScreen>(WindowCommand::kConfigure, true),
    Kind<AutoBetScreen>(WindowCommand::kAutoBet, true),
    Kind<RyonScreen>(WindowCommand::kRollYourOwn),
    Kind<SummaryScreen>(WindowCommand::kSummary),
    Kind<BankrollScreen>(WindowCommand::kBankrollGraph),
    Kind<RollTotalsScreen>(WindowCommand::kRollTotals),
    Kind<RollFrequenciesScreen>(WindowCommand::kRollFreqs),
    Kind<BetResultsScreen>(WindowCommand::kBetResults),
    Kind<BetTrendsScreen>(WindowCommand::kBetTrends),
    Kind<HelpWindow>(WindowCommand::kHelpContents),
    Kind<StackValuesScreen>(WindowCommand::kChipStacks),
    Kind<FlagsScreen>(WindowCommand::kFlags),
    Kind<AutoPlayScreen>(WindowCommand::kAutoPlay),
    Kind<HotKeysScreen>(WindowCommand::kHotKeys, true),
    Kind<GamesScreen>(WindowCommand::kGamesLog),
    Kind<DiceRollFilesScreen>(WindowCommand::kDiceRollFiles),
});

const ScreenKind* KindOf(WindowCommand command) {
  for (const ScreenKind& kind : kKinds) {
    if (kind.command == command) return &kind;
  }
  return nullptr;
}

}  // namespace

std::vector<WindowCommand> Screens::All() {
  std::vector<WindowCommand> all;
  for (const ScreenKind& kind : kKinds) all.push_back(kind.command);
  return all;
}

Screens::~Screens() {
  for (auto& [command, window] : open_) {
    if (!window) continue;
    window->hide();  // a field that is left now is still read by a whole screen
    delete window;
  }
}

ScreenWindow* Screens::Find(WindowCommand which) const {
  const auto found = open_.find(which);
  if (found == open_.end() || found->second.isNull()) return nullptr;
  // One that was closed in a chain of rolls is deleted when the chain has ended.
  return found->second->isVisible() ? found->second.data() : nullptr;
}

void Screens::Open(WindowCommand which) {
  ScreenWindow* window = Find(which);
  const ScreenKind* kind = KindOf(which);
  if (kind == nullptr) return;
  const bool is_new = window == nullptr;
  if (is_new) {
    window = kind->make(*this);
    open_[which] = window;
  }
  if (modal_ && modal_ != window) BelongTo(*window, *modal_);
  if (!kind->modal || !is_new) {
    window->ShowInPlace();
    return;
  }
  modal_ = window;
  window->setWindowModality(Qt::ApplicationModal);
  QEventLoop until_closed;
  QObject::connect(window, &QObject::destroyed, &until_closed, &QEventLoop::quit);
  for (auto& [command, other] : open_) {
    if (other) other->StepAside(true);
  }
  window->ShowInPlace();
  until_closed.exec();
  for (auto& [command, other] : open_) {
    if (!other) continue;
    BelongTo(*other, *table_);
    other->StepAside(false);
  }
}

void Screens::BelongTo(ScreenWindow& window, QWidget& owner) {
  window.winId();  // makes the native window
  owner.winId();
  window.windowHandle()->setTransientParent(owner.window()->windowHandle());
}

void Screens::Close(WindowCommand which) {
  if (ScreenWindow* open = Find(which)) open->close();
}

int Screens::OpenCount() const {
  return static_cast<int>(std::count_if(open_.begin(), open_.end(), [](const auto& entry) {
    return entry.second && entry.second->isVisible();
  }));
}

void Screens::Refresh() {
  for (auto& [command, window] : open_) {
    if (window && window->isVisible()) window->Refresh();
  }
}

void Screens::ReopenKept() {
  for (const ScreenKind& kind : kKinds) {
    if (!kind.modal && kind.place && game_.PlacementOf(*kind.place).open) Open(kind.command);
  }
}

void Screens::CloseAll() {
  closing_ = true;
  for (auto& [command, window] : open_) {
    if (window) window->close();
  }
  closing_ = false;
}

}  // namespace feltmaster
