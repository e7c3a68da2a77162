#include "table/table_commands.h"

#include <array>
#include <filesystem>

#include "autobet/message.h"
#include "automation/auto_play.h"
#include "automation/table_guards.h"
#include "engine/entry_box.h"
#include "engine/place_bet.h"
#include "engine/table_effects.h"
#include "files/file_commands.h"
#include "files/roll_recorder.h"
#include "surface/surface.h"
#include "table/calls.h"
#include "table/layout.h"
#include "table/table_input.h"

namespace feltmaster {

namespace {

using Procedure = void (*)(Game&);
using Rule = bool (*)(const Game&);

template <bool (*kCommand)(Game&)>
void Run(Game& game) {
  kCommand(game);
}

// A chain of rolls does not go on into another game.
template <bool (*kCommand)(Game&)>
void RunAtRest(Game& game) {
  game.KeepRolling = false;
  kCommand(game);
}

template <BetCall kCall>
void ChooseBetCall(Game& game) {
  ChooseCall(game, kCall);
}
template <BetCall kCall>
bool Waits(const Game& game) {
  return game.CallBetMode == static_cast<std::int32_t>(kCall);
}

void CallAllOn(Game& game) {
  CallAllBets(game, kCallOn);
}
void CallAllOff(Game& game) {
  CallAllBets(game, kCallOff);
}

void SwitchRollYourOwn(Game& game) {
  game.RollYourOwnNumbers = !game.RollYourOwnNumbers;
  game.GameChanged = true;
}

template <bool Preferences::*kSetting>
bool IsOn(const Game& game) {
  return game.*kSetting;
}

constexpr MenuCommand Procedural(Menu menu, std::string_view name, std::string_view caption,
                                 Procedure carry_out, Rule checked = nullptr) {
  return {.menu = menu,
          .name = name,
          .caption = caption,
          .shortcut = {},
          .carry_out = carry_out,
          .checked = checked};
}
constexpr MenuCommand Window(Menu menu, std::string_view name, std::string_view caption,
                             WindowCommand window) {
  return {.menu = menu, .name = name, .caption = caption, .shortcut = {}, .window = window};
}
// Not while a script or Hyper-Drive runs: it would pull the ground from under them.
constexpr MenuCommand Alone(MenuCommand command) {
  command.interrupts = true;
  return command;
}
// It replaces the game, which a chain of rolls must not go on with.
constexpr MenuCommand AtRest(MenuCommand command) {
  command.ends_chain = true;
  return command;
}
constexpr MenuCommand NewGroup(MenuCommand command) {
  command.starts_group = true;
  return command;
}
constexpr MenuCommand WithKey(MenuCommand command, std::string_view shortcut) {
  command.shortcut = shortcut;
  return command;
}

constexpr auto kTitles = std::to_array<MenuTitle>({
    {Menu::kGame, "mnuGame", "&Game"},
    {Menu::kAction, "mnuAction", "&Action"},
    {Menu::kStatistics, "mnuStatistics", "&Statistics"},
    {Menu::kHelp, "mnuHelp", "&Help"},
});

constexpr Menu kG = Menu::kGame;
constexpr Menu kA = Menu::kAction;
constexpr Menu kS = Menu::kStatistics;
constexpr Menu kH = Menu::kHelp;
using enum WindowCommand;

constexpr auto kMenuTable = std::to_array<MenuCommand>({
    AtRest(Alone(Procedural(kG, "mnuNew", "&New", RunAtRest<NewGame>))),
    AtRest(Alone(Procedural(kG, "mnuOpen", "&Open ...", RunAtRest<OpenGameCommand>))),
    Procedural(kG, "mnuSave", "&Save", Run<SaveGameCommand>),
    Procedural(kG, "mnuSaveAs", "Save &As ...", Run<SaveGameAsCommand>),
    NewGroup(Procedural(kG, "mnuShowPath", "Show &Path", ShowPath)),
    Alone(Window(kG, "mnuHotKeys", "&Hot-Keys ...", kHotKeys)),
    Alone(Window(kG, "mnuConfigure", "&Configure ...", kConfigure)),
    NewGroup(Window(kG, "mnuExit", "E&xit", kCloseTable)),

    Alone(WithKey(
        Procedural(kA, "mnuRollDice", "&Roll the Dice  (Right mouse button)", RollCommand), "F5")),
    NewGroup(Window(kA, "mnuDiceRollFiles", "&Dice Roll Files ...", kDiceRollFiles)),
    Window(kA, "mnuAutoPlay", "Auto-&Play ...", kAutoPlay),
    Alone(Window(kA, "mnuAutoBet", "Auto-&Bet ...", kAutoBet)),
    NewGroup(Alone(Procedural(kA, "mnuBuyBet", "B&uy Place bet", ChooseBetCall<BetCall::kBuyIt>,
                              Waits<BetCall::kBuyIt>))),
    Alone(Procedural(kA, "mnuCallOn", "Call bet &ON", ChooseBetCall<BetCall::kTurnOn>,
                     Waits<BetCall::kTurnOn>)),
    Alone(Procedural(kA, "mnuCallOff", "Call bet O&FF", ChooseBetCall<BetCall::kTurnOff>,
                     Waits<BetCall::kTurnOff>)),
    Alone(Procedural(kA, "mnuCallAllOn", "Call &all bets ON", CallAllOn)),
    Alone(Procedural(kA, "mnuCallAllOff", "Ca&ll all bets OFF", CallAllOff)),
    Alone(Procedural(kA, "mnuRemoveBet", "Re&move bet", ChooseBetCall<BetCall::kRemove>,
                     Waits<BetCall::kRemove>)),
    Alone(Procedural(kA, "mnuRemoveAllBets", "Remo&ve all bets", RemoveAllBets)),
    NewGroup(Procedural(kA, "mnuKeyInBetAmounts", "&Key-in bet amounts", SwitchKeyIn,
                        IsOn<&Game::KeyInBetAmounts>)),
    Procedural(kA, "mnuDisplayBetAmounts", "D&isplay bets as numbers", SwitchNumbers,
               IsOn<&Game::DisplayBetAmounts>),
    [] {
      MenuCommand command = Procedural(kA, "mnuRollYourOwnNumbers", "Roll your o&wn numbers",
                                       SwitchRollYourOwn, IsOn<&Game::RollYourOwnNumbers>);
      command.window = kRollYourOwn;
      return command;
    }(),
    Procedural(kA, "mnuDisplayHopBets", "Display &Hop bets", SwitchPanel, IsOn<&Game::ShowHopBets>),

    Window(kS, "mnuGamesLog", "&Games Log ...", kGamesLog),
    Window(kS, "mnuSummary", "&Summary ...", kSummary),
    Window(kS, "mnuBankroll", "&Bankroll / Hyper-Drive ...", kBankrollGraph),
    NewGroup(Window(kS, "mnuRollTotals", "Roll &Totals ...", kRollTotals)),
    Window(kS, "mnuRollFreqs", "Roll &Frequencies ...", kRollFreqs),
    Window(kS, "mnuBetResults", "Bet R&esults ...", kBetResults),
    Window(kS, "mnuBetTrends", "Bet T&rends ...", kBetTrends),
    NewGroup(Window(kS, "mnuStackValues", "&Chip Stacks ...", kChipStacks)),
    Window(kS, "mnuFlagValues", "F&lags ...", kFlags),

    WithKey(Window(kH, "mnuContents", "&Contents ...", kHelpContents), "F1"),
    Window(kH, "mnuSearch", "&Search ...", kHelpSearch),
    NewGroup(Window(kH, "mnuAbout", "&About Feltmaster ...", kAbout)),
});

// The letter behind the '&', which must be there once.
constexpr char AccessKey(std::string_view caption) {
  const std::size_t mark = caption.find('&');
  if (mark == std::string_view::npos || mark + 1 >= caption.size()) return '\0';
  if (caption.find('&', mark + 1) != std::string_view::npos) return '\0';
  const char key = caption[mark + 1];
  return key >= 'a' && key <= 'z' ? static_cast<char>(key - 'a' + 'A') : key;
}
static_assert([] {
  for (std::size_t i = 0; i < kMenuTable.size(); ++i) {
    const MenuCommand& command = kMenuTable[i];
    if (AccessKey(command.caption) == '\0') return false;
    for (std::size_t j = 0; j < i; ++j) {
      const MenuCommand& other = kMenuTable[j];
      const bool same_key = AccessKey(other.caption) == AccessKey(command.caption);
      if (other.menu == command.menu && same_key) return false;
    }
  }
  return true;
}());

std::string TitleWithFile(const Game& game) {
  const std::string file = std::filesystem::path(game.GameFileName).filename().string();
  return file.empty() ? "Feltmaster" : "Feltmaster (" + file + ')';
}

}  // namespace

std::span<const MenuTitle> MenuTitles() {
  return kTitles;
}

std::span<const MenuCommand> MenuCommands() {
  return kMenuTable;
}

void OpenMenu(Game& game, Menu menu) {
  if (menu != Menu::kGame && menu != Menu::kAction) return;
  if (game.AutoBetRunning) AskToEndScript(game);
  if (game.HyperDriveActive) AskToStopHyperDrive(game);
}

WindowCommand Choose(Game& game, const MenuCommand& command) {
  if (command.interrupts && !TableListens(game)) return kNone;
  if (command.carry_out != nullptr) command.carry_out(game);
  return command.window;
}

void AfterConfigure(Game& game) {
  game.GameChanged = true;
  game.surface->RefreshOpenScreens();
}

std::string TableTitle(const Game& game, bool minimised) {
  if (!minimised) return TitleWithFile(game);
  if (game.HyperDriveActive) return "Feltmaster Hyper-Drive Active";
  return game.HyperDriveStopText.empty() ? "Feltmaster" : "Hyper-Drive Stopped";
}

void TableRestored(Game& game) {
  if (game.HyperDriveActive || game.HyperDriveStopText.empty()) return;
  Tell(game, "Hyper-Drive Stopped", game.HyperDriveStopText);
  if (game.HyperDriveStopText == kEndOfDiceRolls) DiceRollStopped(game);
  game.HyperDriveStopText.clear();
}

void SwitchPanel(Game& game) {
  game.ShowHopBets = !game.ShowHopBets;
  game.RedrawTable = true;
  if (HiddenByPanel(game, game.EntryBoxBet)) {
    CommitEnteredBet(game);
    const Pixel place = kBetPlace[static_cast<std::size_t>(game.EntryBoxBet)];
    MoveEntryBox(game, HitTest(game, place).bet);
  }
  ShowTableChange(game, kChangedAll);
}

void SwitchKeyIn(Game& game) {
  if (game.KeyInBetAmounts && !CommitEnteredBet(game)) return;
  game.KeyInBetAmounts = !game.KeyInBetAmounts;
  ResetEntryBox(game);
}

void SwitchNumbers(Game& game) {
  game.DisplayBetAmounts = !game.DisplayBetAmounts;
  game.RefreshBetAmounts = true;
  ShowTableChange(game, kChangedAmounts | kChangedChips);
}

}  // namespace feltmaster
