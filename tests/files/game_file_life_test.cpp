// Games that go on from their files: a game saved in the middle of its rolls against one that never
// was, the same bytes from every further saving, and files that no game has written.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <limits>
#include <memory>
#include <random>
#include <string>

#include "autobet/run_script.h"
#include "autobet/script_file.h"
#include "automation/hyper_drive.h"
#include "console/console_commands.h"
#include "engine/start_up.h"
#include "files/game_file.h"
#include "files/game_layout.h"
#include "reference/session.h"
#include "stats/bankroll_history.h"
#include "support/recording_surface.h"
#include "support/scratch_folder.h"
#include "view/state_hash.h"
#include "view/state_record.h"

namespace feltmaster {

static bool operator==(const ScriptFlag& a, const ScriptFlag& b) {
  return a.FlagName == b.FlagName && a.FlagValue == b.FlagValue;
}

namespace {

using reference::Command;

// Scripts that remember: flags, Chip-Stacks, averages over the history.
constexpr std::array kScripts = {"hot_hand", "long_watch", "martingale_line", "press_and_regress"};

class GameFileLife : public InScratchFolder {
 protected:
  std::unique_ptr<Game> NewTable() {
    auto game = std::make_unique<Game>();
    game->surface = &surface_;
    StartUp(*game, {.data_dir = (folder_ / "").string(), .seed = 1});
    return game;
  }
  void TakeScript(Game& game, std::size_t which) const {
    const std::string text =
        std::string(FELTMASTER_SOURCE_DIR "/strategies/") + kScripts[which % kScripts.size()];
    ASSERT_EQ(LoadScriptOrText(game, text + ".txt"), std::nullopt);
    ASSERT_TRUE(SaveScript(game, Path("s.bet")));
    game.ScriptActive = 1;
    RunInitialisationCycle(game);
  }

  RecordingSurface surface_;
};

// Of a roll that is over, and of the generators: a file keeps neither.
void ForgetTheMoment(Game& game) {
  static_cast<RngState&>(game) = RngState();
  game.Decisions.count = 0;
  game.HyperDriveStopText.clear();
  for (ScriptFlag& flag : game.ScriptFlags) flag.FlagChanged = false;
  game.AnyFlagChanged = false;
  game.PayTable[0] = {};  // the row of the bet decided last
  // Of the dialog of decided bets; a file has room for the units of six options.
  game.HandleUnits[6] = game.HandleUnits[7] = {};
  game.StackPileName = {};  // opening writes the number without a blank before it
}

// The variables in which two games differ, or nothing.
std::string Difference(Game& a, Game& b) {
  ForgetTheMoment(a);
  ForgetTheMoment(b);
  if (StateHash(a) == StateHash(b)) return {};
  constexpr std::size_t kEnough = 1500;
  std::string names;
  for (const StateName& entry : StateRecord()) {
    std::array<StateBounds, kMaxStateRank> bounds{};
    for (int i = 0; i < entry.rank; ++i)
      bounds[static_cast<std::size_t>(i)] = BoundsOf(a, entry, i);
    for (int i = bounds[0].first; i <= bounds[0].last; ++i) {
      for (int j = bounds[1].first; j <= bounds[1].last; ++j) {
        for (int k = bounds[2].first; k <= bounds[2].last; ++k) {
          const StateValue one = entry.read(a, {i, j, k});
          const StateValue other = entry.read(b, {i, j, k});
          if (one == other) continue;
          names += std::string(entry.name) + '(' + std::to_string(i) + ',' + std::to_string(j) +
                   ',' + std::to_string(k) + ") ";
          if (names.size() > kEnough) return names;
        }
      }
    }
  }
  return names.empty() ? "something that has no name" : names;
}

TEST_F(GameFileLife, GoesOnAsIfNeverSaved) {
  std::mt19937 random(8);
  for (std::uint64_t seed = 1; seed <= 24; ++seed) {
    SCOPED_TRACE(seed);
    const std::vector<Command> session = reference::RandomSession(
        seed, {.rolls = seed % 6 == 0 ? 1600 : 220, .fractions = seed % 2 == 0});
    std::unique_ptr<Game> never = NewTable();
    std::unique_ptr<Game> saved = NewTable();
    for (Game* game : {never.get(), saved.get()}) {
      if (seed % 5 != 0) TakeScript(*game, seed);  // some games have none
    }
    std::size_t next_save = random() % session.size();
    for (std::size_t i = 0; i < session.size(); ++i) {
      Perform(session[i], *never);
      Perform(session[i], *saved);
      if (i != next_save) continue;
      next_save += 1 + random() % session.size();
      ASSERT_TRUE(SaveGame(*saved, Path("a.crp")));
      RebuildAverages(*never);  // as it is done at every opening
      saved = NewTable();
      surface_.messages.clear();
      ASSERT_TRUE(OpenGame(*saved, Path("a.crp"), true));
      ASSERT_TRUE(surface_.messages.empty()) << surface_.messages[0].text;
      ASSERT_TRUE(SaveGame(*saved, Path("b.crp")));
      ASSERT_EQ(Bytes(Path("a.crp")), Bytes(Path("b.crp")));
      ASSERT_EQ(Difference(*never, *saved), "") << "when it was opened, after " << i;
    }
    // Where no average was shown, its places hold what stood there before.
    for (Game* game : {never.get(), saved.get()}) RebuildAverages(*game);
    ASSERT_EQ(Difference(*never, *saved), "") << "at the end";
    ASSERT_TRUE(SaveGame(*never, Path("a.crp")));
    ASSERT_TRUE(SaveGame(*saved, Path("b.crp")));
    ASSERT_TRUE(Bytes(Path("a.crp")) == Bytes(Path("b.crp")));
  }
}

// The same in Hyper-Drive, with the dice of a generator and the counts of Auto-Roll.
TEST_F(GameFileLife, HyperDriveGoesOn) {
  std::unique_ptr<Game> game = NewTable();
  TakeScript(*game, 0);
  game->NumAutoRolls = 700;
  game->AutoRollsRemaining = 700;
  ToggleHyperDrive(*game);
  ASSERT_EQ(game->EventCounts[0], 700);
  ASSERT_TRUE(SaveGame(*game, Path("a.crp")));
  std::unique_ptr<Game> other = NewTable();
  ASSERT_TRUE(OpenGame(*other, Path("a.crp"), true));
  static_cast<RngState&>(*other) = *game;
  for (Game* table : {game.get(), other.get()}) {
    table->AutoRollsRemaining = 700;
    ToggleHyperDrive(*table);
  }
  EXPECT_EQ(Difference(*game, *other), "");
}

// --- Files that no game has written --------------------------------------------------------------

TEST_F(GameFileLife, ARefusedFileChangesNothing) {
  std::unique_ptr<Game> game = NewTable();
  for (const Command& command : reference::RandomSession(3, {.rolls = 60})) {
    Perform(command, *game);
  }
  ASSERT_TRUE(SaveGame(*game, Path("good.crp")));
  const std::string good = Bytes(Path("good.crp"));
  game->GameFileName = "mine.crp";
  game->GameChanged = true;
  const std::uint64_t before = StateHash(*game);

  std::string other_title = good;
  other_title.replace(0, 37, "Feltmaster Game File, Data Format 4.9");
  for (const std::string& bytes :
       {other_title, std::string(), std::string("x"), std::string(1000, '\0')}) {
    Write(Path("bad.crp"), bytes);
    surface_.messages.clear();
    EXPECT_FALSE(OpenGame(*game, Path("bad.crp"), true));
    EXPECT_EQ(game->FileStatus, 0);
    ASSERT_EQ(surface_.messages.size(), 1u);
    EXPECT_EQ(surface_.messages[0].title, "Unable to Open Feltmaster Game File");
    EXPECT_EQ(surface_.messages[0].text,
              Path("bad.crp") +
                  "\nis either from a different version, has been corrupted, or is not a true "
                  "Feltmaster game file.");
    EXPECT_EQ(surface_.messages[0].help, 105);
    EXPECT_FALSE(OpenGame(*game, Path("bad.crp"), false));
    EXPECT_EQ(surface_.messages.size(), 1u);  // nothing is told where nobody chose the file
  }
  for (const std::string& path : {Path("none.crp"), folder_.string(), std::string("/dev/zero")}) {
    EXPECT_FALSE(OpenGame(*game, path, true));
    EXPECT_EQ(game->FileStatus, -1);
    EXPECT_THAT(game->LastErrorText, testing::EndsWith("\n occurred, at: Open Game"));
  }
  EXPECT_EQ(StateHash(*game), before);
  EXPECT_EQ(game->GameFileName, "mine.crp");
  EXPECT_TRUE(game->GameChanged);
}

TEST_F(GameFileLife, AShortFileGivesZerosAndAnyTitleWithTheFormatWillDo) {
  std::unique_ptr<Game> game = NewTable();
  game->BankrollInitAmount = MoneyAmount(77);
  game->BetAmount.Set(kBankroll, MoneyAmount(500));
  ASSERT_TRUE(SaveGame(*game, Path("a.crp")));
  std::string bytes = Bytes(Path("a.crp")).substr(0, 15 * 256 - 7);
  bytes.replace(0, 92, std::string("My Data Format 5.0!").append(73, ' '));
  Write(Path("a.crp"), bytes);
  std::unique_ptr<Game> other = NewTable();
  ASSERT_TRUE(OpenGame(*other, Path("a.crp"), true));
  EXPECT_EQ(other->FileStatus, 1);
  EXPECT_EQ(other->BankrollInitAmount, MoneyAmount(77));
  EXPECT_EQ(other->BetAmount[kBankroll], MoneyAmount(0));
  EXPECT_EQ(other->PayTable[57].PayDenominator, MoneyAmount(0));
}

// Everything that a player may do with a table, whatever is on it.
void UseEverything(Console& console, std::mt19937_64& random) {
  Game& game = console.Table;
  for (const char* line :
       {"show bets", "show status", "show summary", "show totals", "show frequencies 5",
        "show results", "show trends", "show bankroll", "show stacks", "show flags",
        "show advantage", "show payoffs", "show comps", "show settings", "state",
        "call ComputeMaxBet 31", "call FigureAdvantage 53", "call MovingAverage false 1 525"}) {
    CarryOut(console, line);
  }
  for (int i = 0; i < 6; ++i) {
    CarryOut(console, "bet " + std::to_string(random() % 88 + 1) + " 10");
    CarryOut(console, "roll");
  }
  CarryOut(console, "odds all");
  CarryOut(console, "atm withdraw 100");
  game.NumAutoRolls = 3;
  CarryOut(console, "hyper 3");
  CarryOut(console, "new");
  CarryOut(console, "roll");
}

TEST_F(GameFileLife, SurvivesAnyNumbers) {
  std::mt19937_64 random(99);
  std::unique_ptr<Game> rich = NewTable();
  TakeScript(*rich, 0);
  for (const Command& command : reference::RandomSession(5, {.rolls = 700})) {
    Perform(command, *rich);
  }
  for (int i = 0; i < 40; ++i) rich->ChipList.push_back({i, i % 6 + 1, i, i});
  ASSERT_TRUE(SaveGame(*rich, Path("rich.crp")));
  const std::string good = Bytes(Path("rich.crp"));

  const auto extreme = [&](int size) -> std::int64_t {
    constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
    const std::int64_t numbers[] = {kMost,   -kMost - 1,     0,       -1,     1,       10'000,
                                    -10'000, 99'999'990'000, 1 << 30, 20'000, 320'000, kMost / 2};
    const double reals[] = {NAN, INFINITY, -INFINITY, 1e300, -1e-300};
    if (random() % 4 == 0) return std::bit_cast<std::int64_t>(reals[random() % 5]);
    if (random() % 4 == 0 && size < 8) return static_cast<std::int64_t>(random());
    return numbers[random() % 12];
  };
  constexpr int kRounds = 120;
  for (int round = 0; round < kRounds; ++round) {
    SCOPED_TRACE(round);
    std::string bytes = good;
    // Whole records of noise, or single places with the worst of numbers.
    for (int i = round % 3; i > 0; --i) {
      const std::size_t record = 5 + random() % (bytes.size() / 256 - 5);
      for (std::size_t at = 0; at < 256; ++at)
        bytes[record * 256 + at] = static_cast<char>(random());
    }
    const auto& elements = game_layout::Elements();
    for (int i = 0; i < (round % 7 + 1) * 40; ++i) {
      const game_layout::Element& element = elements[random() % elements.size()];
      if (element.form == game_layout::Form::kText) continue;
      const int size = SizeOf(element.form);
      game_layout::PutNumber(bytes, element.offset, size, extreme(size));
    }
    if (round % 10 == 9) bytes.resize(random() % bytes.size());
    if (bytes.size() > 256) bytes.replace(0, 15, "Data Format 5.0");
    Write(Path("bad.crp"), bytes);

    const auto console = std::make_unique<Console>(1);
    StartUp(console->Table, {.data_dir = (folder_ / "").string(), .seed = 1});
    if (!OpenGame(console->Table, Path("bad.crp"), true)) continue;
    // What has been taken in is kept as it is from now on.
    ASSERT_TRUE(SaveGame(console->Table, Path("once.crp")));
    std::unique_ptr<Game> again = NewTable();
    ASSERT_TRUE(OpenGame(*again, Path("once.crp"), true));
    ASSERT_TRUE(SaveGame(*again, Path("twice.crp")));
    ASSERT_TRUE(Bytes(Path("once.crp")) == Bytes(Path("twice.crp")));
    UseEverything(*console, random);
  }
}

}  // namespace
}  // namespace feltmaster
