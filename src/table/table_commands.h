#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "game/game.h"

// The menu of the table, as one table of commands: the window builds its menu bar from it.
namespace feltmaster {

enum class Menu : std::uint8_t { kGame, kAction, kStatistics, kHelp };
struct MenuTitle {
  Menu menu;
  std::string_view name;     // "mnuGame"
  std::string_view caption;  // '&' stands before the access key
};
std::span<const MenuTitle> MenuTitles();

// What the front end does by itself: it shows a window, or closes the table's.
enum class WindowCommand : std::uint8_t {
  kNone,
  kHotKeys,
  kConfigure,  // modal; then AfterConfigure
  kCloseTable,
  kDiceRollFiles,
  kAutoPlay,
  kAutoBet,  // modal
  kRollYourOwn,
  kGamesLog,
  kSummary,
  kBankrollGraph,
  kRollTotals,
  kRollFreqs,
  kBetResults,
  kBetTrends,
  kChipStacks,
  kFlags,
  kHelpContents,
  kHelpSearch,
  kAbout,
};

struct MenuCommand {
  Menu menu;
  std::string_view name;      // of the entry, as "mnuRollDice"
  std::string_view caption;   // '&' stands before the access key
  std::string_view shortcut;  // "F5", or empty
  void (*carry_out)(Game&) = nullptr;
  WindowCommand window = WindowCommand::kNone;  // when there is no procedure, or after it
  bool (*checked)(const Game&) = nullptr;       // the entry shows a check while this holds
  bool interrupts = false;                      // not while a script or Hyper-Drive runs
  bool starts_group = false;                    // a rule stands above it
  bool ends_chain = false;                      // waits until the chain of rolls has ended
};
std::span<const MenuCommand> MenuCommands();

// The player opens a menu, which may raise questions. The menu opens in any case.
void OpenMenu(Game& game, Menu menu);

// Chosen from the menu or by its shortcut: asks what goes before it and carries it out. Gives the
// window that the front end shows then. A front end that lets events through in a chain of rolls
// keeps a command that ends the chain until the last roll is done.
WindowCommand Choose(Game& game, const MenuCommand& command);

// The Configure screen has closed.
void AfterConfigure(Game& game);

// "Feltmaster", with the name of the game file behind it, or what a minimised window tells.
std::string TableTitle(const Game& game, bool minimised);

// The window has come back from being minimised: what stopped Hyper-Drive meanwhile is told.
void TableRestored(Game& game);

// The Hop bets take the place of the hard ways and props, or the other way round. An entry box over
// the panel stays where it is and takes the bet that is there now.
void SwitchPanel(Game& game);
void SwitchKeyIn(Game& game);
void SwitchNumbers(Game& game);

}  // namespace feltmaster
