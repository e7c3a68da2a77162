#pragma once

#include <array>
#include <string>

#include "game/auto_play.h"
#include "game/bankroll.h"
#include "game/dice_state.h"
#include "game/games_log.h"
#include "game/hot_keys.h"
#include "game/preferences.h"
#include "game/rules.h"
#include "game/screens.h"
#include "game/script.h"
#include "game/statistics.h"
#include "game/table.h"

namespace feltmaster {

class Surface;

struct ChipStackState {
  std::array<std::string, 100> ChipStackName;                        // at most 80 bytes each
  std::array<std::int32_t, 5> StackSlots = {0, 101, 102, 103, 104};  // 1 to 4, the piles shown
  // BetName(101) to (104), by the pile: the name that messages use.
  std::array<std::string, 5> StackPileName = {"", "Chip-Stack # 1", "Chip-Stack # 2",
                                              "Chip-Stack # 3", "Chip-Stack # 4"};
};

struct FileNames {
  std::string AppPath;  // the data folder, with its final separator
  std::string GameFileName;
  std::string FileDialogPath;  // the folder and the name with which the file dialog opens
  std::string FileDialogName;
  std::int32_t FileStatus = 0;  // of the last open: 1 done, 0 refused, -1 a file error
  std::string LastErrorText;
};

// The whole state of one game. A fresh Game holds the defaults of every setting but those that
// procedures fill in (StartUp in engine/start_up.h does that).
struct Game : TableState,
              HouseRules,
              AutoPlaySettings,
              RngState,
              ProbabilityState,
              DiceRollFileState,
              RollStatistics,
              BetResults,
              BankrollState,
              Preferences,
              ScriptState,
              HotKeyState,
              MessageState,
              ChipStackState,
              ScreenState,
              GamesLogState,
              FileNames {
  RollDecisions Decisions;  // of the last roll
  SettleDisplay Settle;
  Surface* surface = nullptr;  // never null once StartUp has run
};

}  // namespace feltmaster
