#include "desktop/filled_table.h"

#include <QAction>
#include <fstream>
#include <variant>

#include "autobet/hot_keys.h"
#include "autobet/script_file.h"
#include "autobet/script_lines.h"
#include "autobet/script_text.h"
#include "desktop/frm_autobet.h"
#include "desktop/frm_configure.h"
#include "desktop/frm_hot_keys.h"
#include "engine/roll_cycle.h"
#include "files/games_log.h"
#include "files/roll_editor.h"
#include "files/roll_recorder.h"
#include "game/bets.h"
#include "stats/roll_statistics.h"
#include "surface/null_surface.h"

namespace feltmaster {

namespace {

constexpr const char* kScript =
    "When . . .\nOn each roll\nthen . . .\nBet $ 5 on Field\nSet flag \"Hot\" to True\n"
    "Bet $ 6 on Place 6\n";

ScreenWindow* MakeModal(WindowCommand which, Screens& screens) {
  switch (which) {
    case WindowCommand::kAutoBet:
      return new AutoBetScreen(screens);
    case WindowCommand::kConfigure:
      return new ConfigureScreen(screens);
    case WindowCommand::kHotKeys:
      return new HotKeysScreen(screens);
    default:
      return nullptr;
  }
}

}  // namespace

FilledTable::~FilledTable() {
  for (const QPointer<ScreenWindow>& screen : modal_) delete screen.data();
}

void FilledTable::Fill() {
  Game& game = *game_;
  if (RollCounts(game, 0) == 0) {
    game.AllowNegBankroll = true;
    game.HandleWinningBets = 1;
    game.HandleLosingBets = 3;
    game.BetAmount.Set(kPassLine, MoneyAmount(10));
    NullSurface quick;
    game.surface = &quick;
    for (const auto& [die1, die2] : {std::pair{2, 2}, {3, 3}, {2, 2}, {5, 6}, {3, 4}}) {
      game.Die1 = die1;
      game.Die2 = die2;
      game.DiceAlreadySet = true;
      RollCycle(game);
    }
    game.surface = surface_.get();
  }
  game.BetResultsSelection = std::string(kBetCount, 'S') + "0";

  SetScript(game, std::get<std::vector<ScriptLine>>(ComposeScript(kScript)), "");
  game.ScriptUnsaved = true;
  game.ScriptFlags.clear();
  AddFlag(game, "Hot");
  AddFlag(game, "Low");

  game.HotKeys.clear();
  for (const char key : {'1', 'A', 'Z'}) {
    AddHotKey(game, key, Path("iron.bet"), "across");
    PlaceHotKey(game, 1);
  }
  for (int stack = 0; stack < 60; stack += 3) {
    game.BetAmount.Set(kFirstStack + stack, MoneyAmount(5 * (stack - 12)));
    game.ChipStackName[static_cast<std::size_t>(stack)] = "Stack " + std::to_string(stack);
  }

  std::ofstream(Path("rolls.rol")) << std::string(40, '\x64');
  std::ofstream(Path(kRollClipboard.data())) << '\x24';
  EXPECT_EQ(OpenDiceRollFile(game, Path("rolls.rol")), true);

  game.GamesLogFile = Path("default.glg");
  std::filesystem::remove(game.GamesLogFile);
  GamesLogAppender log;
  EXPECT_FALSE(log.Open(game.GamesLogFile));
  std::string games;
  for (int i = 1; i <= 60; ++i) {
    Record record;
    record.SetMoney(kNetValue * sizeof(std::int64_t), MoneyAmount(i % 2 == 0 ? -i : i));
    games += record.Bytes();
  }
  EXPECT_FALSE(log.Add(games));
  EXPECT_FALSE(log.Finish(false));
  game.GamesDisplayChoice = kNetValue;
  game.GamesTopLine = 1;
}

ScreenWindow& FilledTable::Open(WindowCommand which) {
  Screens& screens = window_->AllScreens();
  ScreenWindow* screen = MakeModal(which, screens);
  if (screen != nullptr) {
    modal_.emplace_back(screen);
    screen->ShowInPlace();
  } else {
    screens.Open(which);
    screen = screens.Find(which);
  }
  QApplication::processEvents();
  return *screen;
}

void FilledTable::Trigger(QWidget& screen, const char* entry) {
  if (auto* const action = Find<QAction>(screen, entry)) {
    EXPECT_TRUE(action->isEnabled()) << entry;
    action->trigger();
  }
}

std::string FilledTable::Bytes(const char* name) const {
  std::ifstream file(Path(name), std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace feltmaster
