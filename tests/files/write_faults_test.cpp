// Every write path with every call of the system failing: what stands on the disk afterwards is the
// old file or the new one, whole, and the player hears of it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <string>

#include "autobet/hot_keys.h"
#include "autobet/output_file.h"
#include "autobet/script_conversion.h"
#include "autobet/script_file.h"
#include "console/result_file.h"
#include "dice/probability.h"
#include "engine/start_up.h"
#include "files/game_file.h"
#include "files/games_log.h"
#include "files/glg_file.h"
#include "support/failing_calls.h"
#include "support/recording_surface.h"
#include "support/scratch_folder.h"
#include "view/state_hash.h"

namespace feltmaster {
namespace {

namespace fs = std::filesystem;
using ::testing::AnyOf;
using ::testing::HasSubstr;

class WriteFaults : public InScratchFolder {
 protected:
  WriteFaults() {
    fs::create_directories(folder_ / "data");
    game_->surface = &surface_;
    StartUp(*game_, {.data_dir = (folder_ / "data" / "").string(), .seed = 1});
  }
  void SetLines(std::size_t count) {
    ScriptLine remark;
    remark.LineKind = kCommentLine;
    remark.LineText = remark.LineName = "a remark";
    SetScript(*game_, std::vector<ScriptLine>(count, remark), {});
    game_->ScriptUnsaved = true;
  }
  int FilesIn(const fs::path& folder) const {
    return static_cast<int>(std::distance(fs::directory_iterator(folder), {}));
  }

  // `save` gives whether it was done. `change` makes the next file another one than this.
  void CheckWholeOrOld(const std::string& name, const std::function<void()>& change,
                       const std::function<bool(const std::string&)>& save) {
    const std::string path = Path(name);
    ASSERT_TRUE(save(path));
    const std::string old_bytes = Bytes(path);
    change();
    ASSERT_TRUE(save(path + ".expected"));
    const std::string new_bytes = Bytes(path + ".expected");
    ASSERT_TRUE(old_bytes != new_bytes);
    const int files = FilesIn(folder_);
    bool saved = false;
    const int calls = FailEachCall(
        [&] {
          std::ofstream(path, std::ios::binary) << old_bytes;
          for (const auto& entry : fs::directory_iterator(folder_)) {
            if (entry.path().string().find(".new") != std::string::npos) fs::remove(entry);
          }
          game_->LastErrorText.clear();
        },
        [&] { saved = save(path); },
        [&](const FailedCall& failed) {
          ASSERT_TRUE(Bytes(path) == (saved ? new_bytes : old_bytes));
          if (!saved) {
            EXPECT_THAT(game_->LastErrorText, HasSubstr("No space left on device"));
          }
          if (failed.failure == Failure::kOnce && failed.name != "unlink") {
            EXPECT_EQ(FilesIn(folder_), files) << "Half a file is left behind.";
          }
        });
    EXPECT_GE(calls, 6);  // open, write, fsync, close, rename, the folder
    EXPECT_TRUE(saved);
  }

  RecordingSurface surface_;
  std::unique_ptr<Game> game_ = std::make_unique<Game>();
};

TEST_F(WriteFaults, GameScriptAndProbabilityFiles) {
  CheckWholeOrOld(
      "game.crp", [&] { game_->Point = 6; },
      [&](const std::string& path) { return SaveGame(*game_, path); });
  SetLines(4);
  CheckWholeOrOld(
      "script.bet", [&] { SetLines(2); },
      [&](const std::string& path) { return SaveScript(*game_, path); });
  CheckWholeOrOld(
      "dice.prb", [&] { SetProbabilityCell(*game_, 1, 6, 40'000, true); },
      [&](const std::string& path) { return SaveProbabilityFile(*game_, path); });
}

// Results of the command line, among them charts, CSV and exported logs.
TEST_F(WriteFaults, AFileOfResults) {
  int lines = 20'000;  // more than is written at once
  CheckWholeOrOld(
      "games.csv", [&] { lines = 30'000; },
      [&](const std::string& path) {
        ResultFile file;
        game_->LastErrorText = file.Open(path);
        if (!game_->LastErrorText.empty()) return false;
        for (int i = 0; i < lines; ++i) file.Stream() << i << '\n';
        game_->LastErrorText = file.Finish();
        if (game_->LastErrorText.empty()) game_->LastErrorText = file.PutInPlace();
        return game_->LastErrorText.empty();
      });
  ResultFile full;
  ASSERT_EQ(full.Open("/dev/full"), "");
  full.Stream() << "lost";
  EXPECT_EQ(full.Finish(), "cannot write /dev/full: No space left on device.");
}

// default.crp takes the script and the dice along in files of their own: each of the three is whole
// after any failure, and what could not be kept is still known as unsaved.
TEST_F(WriteFaults, TheDefaultGameAndItsCompanions) {
  const std::string data = game_->AppPath;
  std::string old_game, old_dice;
  const auto prepare = [&] {
    SetLines(1);
    DefaultProbabilities(*game_);
    SetProbabilityCell(*game_, 1, 1, 50'000, true);
    ASSERT_TRUE(SaveGame(*game_, data + "default.crp"));
    old_game = Bytes(data + "default.crp");
    old_dice = Bytes(data + "default.prb");
    SetLines(2);
    SetProbabilityCell(*game_, 1, 2, 10'000, true);
    ASSERT_TRUE(game_->ProbabilityChanged);
    surface_.messages.clear();
  };
  bool saved = false;
  FailEachCall(
      prepare, [&] { saved = SaveGame(*game_, data + "default.crp"); },
      [&](const FailedCall&) {
        const std::string game = Bytes(data + "default.crp");
        ASSERT_EQ(game.size(), old_game.size());
        if (!saved) {
          ASSERT_TRUE(game == old_game);
        }
        ASSERT_EQ(Bytes(data + "default.bet").size(), game_->ScriptUnsaved ? 512u : 768u);
        ASSERT_EQ(Bytes(data + "default.prb") == old_dice, game_->ProbabilityChanged);
        const bool all = saved && !game_->ScriptUnsaved && !game_->ProbabilityChanged;
        EXPECT_EQ(surface_.messages.empty(), all);
      });
  EXPECT_TRUE(saved);
}

// The list of Hot-Keys goes over the start of its file; what stands behind it stays.
TEST_F(WriteFaults, HotKeys) {
  const std::string list = game_->AppPath + "HotKeys.dta";
  game_->HotKeys = {{'1', "one.bet", "first"}, {'2', "two.bet", "second"}};
  ASSERT_TRUE(SaveHotKeys(*game_));
  const std::string old_bytes = Bytes(list) + std::string(256, 'x');
  game_->HotKeys = {{'Z', "last.bet", ""}};
  bool saved = false;
  const int calls = FailEachCall(
      [&] {
        std::ofstream(list, std::ios::binary) << old_bytes;
        surface_.messages.clear();
      },
      [&] { saved = SaveHotKeys(*game_); },
      [&](const FailedCall&) {
        const std::string now = Bytes(list);
        ASSERT_EQ(now == old_bytes, !saved);
        ASSERT_EQ(now.substr(512), old_bytes.substr(512));
        ASSERT_EQ(surface_.messages.empty(), saved);
        if (!saved) {
          ASSERT_EQ(surface_.messages[0].text,
                    list + "\ncould not be saved: No space left on device.");
        }
      });
  EXPECT_GE(calls, 8);  // the old list is read first
  EXPECT_TRUE(saved);
}

// A disk that does not read is no short file: what was on the table stays there.
TEST_F(WriteFaults, AFileThatCannotBeRead) {
  SetLines(200);
  SetProbabilityCell(*game_, 1, 6, 40'000, true);
  ASSERT_TRUE(SaveScript(*game_, Path("s.bet")));
  ASSERT_TRUE(SaveProbabilityFile(*game_, Path("d.prb")));
  ASSERT_TRUE(SaveGame(*game_, Path("g.crp")));
  const auto read_dice = game_->DiceProbability;
  std::unique_ptr<Game> table;
  const auto has_script = [&] { return table->ScriptLines.size() == 200; };
  const auto has_dice = [&] { return table->DiceProbability == read_dice; };
  struct Load {
    std::function<bool()> load;
    std::function<bool()> all_there;
  };
  const Load loads[] = {
      {[&] { return LoadScript(*table, Path("s.bet")); }, has_script},
      {[&] { return LoadProbabilityFile(*table, Path("d.prb")); }, has_dice},
      {[&] { return OpenGame(*table, Path("g.crp"), true); },
       [&] { return !surface_.messages.empty() || (has_script() && has_dice()); }},
  };
  for (const auto& [load, all_there] : loads) {
    bool loaded = false;
    std::uint64_t before = 0;
    const int calls = FailEachCall(
        [&] {
          table = std::make_unique<Game>();
          table->surface = &surface_;
          StartUp(*table, {.data_dir = "", .seed = 1});
          before = StateHash(*table);
          surface_.messages.clear();
        },
        [&] { loaded = load(); },
        [&](const FailedCall&) {
          if (loaded) {
            ASSERT_TRUE(all_there());
          } else {
            ASSERT_EQ(table->FileStatus, -1);
            ASSERT_EQ(StateHash(*table), before);
            ASSERT_TRUE(table->ScriptLines.empty());
          }
        });
    EXPECT_GE(calls, 1);
    EXPECT_TRUE(loaded);
  }
}

TEST_F(WriteFaults, OutputFileOfAScript) {
  const std::string path = Path("out.txt");
  const std::string old_text = "one line\n";
  const std::string added = "and\tanother\n";
  bool whole = false;
  FailEachCall(
      [&] {
        game_->ScriptOutput.reset();
        std::ofstream(path) << old_text;
      },
      [&] {
        whole = !OpenScriptOutput(*game_, path, OutputMode::kAppend) &&
                !WriteScriptOutput(*game_, added) && !CloseScriptOutput(*game_);
      },
      [&](const FailedCall& failed) {
        const std::string text = Bytes(path);
        if (whole) {
          ASSERT_EQ(text, old_text + added);
        } else if (failed.failure == Failure::kOnce) {
          ASSERT_THAT(text, AnyOf(old_text, old_text + added));
        } else {
          ASSERT_TRUE(text.starts_with(old_text));  // nobody is left to take the rest back
        }
      });
  EXPECT_TRUE(whole);
}

// A line that did not get through for want of room comes with the next.
TEST_F(WriteFaults, AnOutputFileGoesOnWhenThereIsRoomAgain) {
  const std::string path = Path("out.txt");
  FailEachCall(
      [&] {
        ASSERT_FALSE(OpenScriptOutput(*game_, path, OutputMode::kClear));
        ASSERT_FALSE(WriteScriptOutput(*game_, "first\n"));
      },
      [&] { FlushScriptOutput(*game_); },
      [&](const FailedCall& failed) {
        if (failed.failure == Failure::kForGood) return;
        ASSERT_FALSE(WriteScriptOutput(*game_, "second\n"));
        ASSERT_FALSE(CloseScriptOutput(*game_));
        EXPECT_EQ(Bytes(path), "first\nsecond\n");
      });
}

TEST_F(WriteFaults, AConversionOverAnOlderFile) {
  Record header;
  header.SetText(0, 128, "Feltking Auto-Bet File");
  header.SetMoney(216, MoneyAmount(0));
  header.SetMoney(208, MoneyAmount(5));
  const std::string source = Path("old.bet");
  std::ofstream(source, std::ios::binary) << header.Bytes();
  const std::string target = Path("new.bet");
  const std::string older(1024, 'o');
  bool done = false;
  FailEachCall([&] { std::ofstream(target, std::ios::binary) << older; },
               [&] {
                 ConversionCount count;
                 done = !ConvertScriptFile(source, target, count);
               },
               [&](const FailedCall&) {
                 const std::string bytes = Bytes(target);
                 ASSERT_EQ(bytes == older, !done);
                 ASSERT_EQ(bytes.substr(256), older.substr(256));
               });
}

// A Games Log is changed where it lies: it holds the games of before or of after, also where the
// program was killed in the middle, and what did not come through has been told.
TEST_F(WriteFaults, AGamesLogHoldsTheOldGamesOrTheNewOnes) {
  const std::string log = Path("log.glg");
  const std::string part = Path("part.glg");
  const std::vector<GlgGame> old_games = {{10'000}, {20'000}, {30'000}};
  const std::vector<GlgGame> part_games = {{40'000}, {50'000}};
  Write(part, GlgBytes(part_games));
  game_->EventCounts[0] = 9;

  struct Change {
    std::function<bool()> make;
    std::vector<std::int64_t> rolls;  // of the games of after
  };
  const Change changes[] = {
      {[&] { return UpdateGamesPlayed(*game_, log); }, {10'000, 20'000, 30'000, 90'000}},
      {[&] { return !AppendLog(part, log); }, {10'000, 20'000, 30'000, 40'000, 50'000}},
      {[&] { return !DeleteFromLog(log, 2, 2); }, {10'000, 30'000}},
      {[&] { return !CopyLog(part, log); }, {40'000, 50'000}},
  };
  for (const Change& change : changes) {
    bool done = false;
    const int calls = FailEachCall(
        [&] {
          Write(log, GlgBytes(old_games));
          surface_.messages.clear();
        },
        [&] { done = change.make(); },
        [&](const FailedCall& failed) {
          const GlgLog now = ReadGlg(Bytes(log));
          std::vector<std::int64_t> rolls;
          for (int i = 0; i < now.count; ++i) {
            rolls.push_back(now.games.at(static_cast<std::size_t>(i))[0]);
          }
          const std::vector<std::int64_t> before = {10'000, 20'000, 30'000};
          for (const auto& message : surface_.messages) {
            EXPECT_THAT(message.text, HasSubstr(log + "\nNo space left on device, Error #28"));
          }
          if (done) {
            ASSERT_EQ(rolls, change.rolls);
          } else if (failed.failure == Failure::kOnce) {
            ASSERT_EQ(rolls, before);
          } else {
            ASSERT_THAT(rolls, AnyOf(before, change.rolls));
          }
        });
    EXPECT_GE(calls, 5);
    EXPECT_TRUE(done);
  }
}

// What the player reads.
TEST_F(WriteFaults, TheReasonIsTold) {
  struct Case {
    std::string path;
    std::string reason;
  };
  fs::create_directory(folder_ / "folder.crp");
  std::ofstream(Path("plain")) << "x";
  ASSERT_EQ(mkfifo(Path("pipe").c_str(), 0600), 0);
  const Case cases[] = {
      {"/dev/full", "No space left on device"},
      {Path("pipe"), "No such device or address"},
      {Path("folder.crp"), "Is a directory"},
      {Path("no/such/a.crp"), "No such file or directory"},
      {Path("plain/a.crp"), "Not a directory"},
      {Path(std::string(300, 'n')), "File name too long"},
  };
  for (const Case& c : cases) {
    surface_.messages.clear();
    EXPECT_FALSE(SaveGame(*game_, c.path));
    ASSERT_EQ(surface_.messages.size(), 1u) << c.path;
    EXPECT_EQ(surface_.messages[0].title, "Unable to Save Game File");
    EXPECT_EQ(surface_.messages[0].text, c.path + "\ncould not be saved: " + c.reason + '.');
  }
  // A name as long as a name may be is none too long.
  EXPECT_TRUE(SaveGame(*game_, Path(std::string(251, 'n') + ".crp")));

  game_->ScriptOutputFile = Path("full.txt");
  ASSERT_FALSE(OpenScriptOutput(*game_, "/dev/full", OutputMode::kAppend));
  ASSERT_FALSE(WriteScriptOutput(*game_, "lost"));
  surface_.messages.clear();
  EndScriptOutput(*game_);
  ASSERT_EQ(surface_.messages.size(), 1u);
  EXPECT_EQ(surface_.messages[0].text, "/dev/full\ncould not be saved: No space left on device.");
}

}  // namespace
}  // namespace feltmaster
