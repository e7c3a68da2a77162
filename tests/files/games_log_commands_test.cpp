#include "files/games_log_commands.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "files/file_dialog.h"
#include "files/game_file.h"
#include "files/games_log.h"
#include "files/glg_file.h"
#include "support/started_game.h"

namespace feltmaster {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::int64_t kDollar = 10'000;

class WatchedSurface : public RecordingSurface {
 public:
  MessageReply ShowMessage(const MessageRequest& request) override {
    defaults = {std::string(request.input_default), std::string(request.input2_default)};
    return RecordingSurface::ShowMessage(request);
  }

  std::array<std::string, 2> defaults;
};

class GamesLogCommandsTest : public StartedGame<WatchedSurface> {
 protected:
  void WriteLog(const std::string& name, const std::vector<std::int64_t>& nets) {
    std::vector<GlgGame> games;
    for (const std::int64_t net : nets) games.push_back({}), games.back()[8] = net * kDollar;
    Write(Path(name), GlgBytes(games));
  }
  std::vector<std::int64_t> NetsIn(const std::string& name) const {
    const GlgLog log = ReadGlg(Bytes(Path(name)));
    std::vector<std::int64_t> nets;
    for (int i = 0; i < log.count; ++i) {
      nets.push_back(log.games[static_cast<std::size_t>(i)][8] / kDollar);
    }
    return nets;
  }
};

TEST_F(GamesLogCommandsTest, NewAsksForTheGamesOfAnUnnamedLog) {
  EXPECT_TRUE(NewLogCommand(*game_));  // there is no log yet
  EXPECT_THAT(surface_.messages, IsEmpty());
  EXPECT_EQ(Bytes(Path("default.glg")), GlgHeader(0));

  WriteLog("default.glg", {1, 2, 3});
  surface_.Answer(kAnswerCancel);
  EXPECT_FALSE(NewLogCommand(*game_));
  ASSERT_EQ(surface_.messages.size(), 1u);
  EXPECT_EQ(surface_.messages[0].title, "Save Games Log?");
  EXPECT_EQ(surface_.messages[0].text,
            "This log needs to be re-named \nif you want to save it.\n\n"
            "Do you want to re-name it now?");
  EXPECT_EQ(surface_.messages[0].options, 5134);
  surface_.Answer(kAnswerYes);  // and no name
  EXPECT_FALSE(NewLogCommand(*game_));
  EXPECT_THAT(NetsIn("default.glg"), ElementsAre(1, 2, 3));

  game_->GamesTopLine = 3;
  game_->GamesValueBox = {"1", "2"};
  game_->EventCounts[0] = 5;
  surface_.messages.clear();
  surface_.Answer(kAnswerYes);
  surface_.files = {"kept"};
  EXPECT_TRUE(NewLogCommand(*game_));
  EXPECT_EQ(surface_.asked.back(), "Save Games Log As *.glg");
  EXPECT_THAT(NetsIn("kept.glg"), ElementsAre(1, 2, 3));
  EXPECT_EQ(Bytes(Path("default.glg")), GlgHeader(0));
  EXPECT_EQ(game_->GamesLogFile, Path("default.glg"));
  EXPECT_EQ(game_->GamesTopLine, 1);
  EXPECT_THAT(game_->GamesValueBox, ElementsAre("", ""));
  ASSERT_EQ(surface_.messages.size(), 2u);
  EXPECT_EQ(surface_.messages[1].title, "Game in progress will be added to new Games Log");
  EXPECT_EQ(surface_.messages[1].text,
            "Note:  There's currently a game in progress which will be added to this new Games "
            "Log when it's finished.\n\nIf you don't want this to happen, then you should first "
            "select \"New\" from the Game menu on the main game table, then return here to start "
            "a new Games Log again.");

  // A log with a name of its own needs no question.
  surface_.messages.clear();
  game_->EventCounts[0] = 0;
  game_->GamesLogFile = Path("kept.glg");
  EXPECT_TRUE(NewLogCommand(*game_));
  EXPECT_THAT(surface_.messages, IsEmpty());
  EXPECT_THAT(NetsIn("kept.glg"), ElementsAre(1, 2, 3));
}

TEST_F(GamesLogCommandsTest, OpenSaveAsAndMerge) {
  WriteLog("a.glg", {1, 2});
  WriteLog("b.glg", {3});
  Write(Path("no.glg"), "no log at all");
  surface_.files = {"no.glg", "a"};  // the dialog stays open for another name
  EXPECT_TRUE(OpenLogCommand(*game_));
  EXPECT_EQ(game_->GamesLogFile, Path("a.glg"));
  ASSERT_EQ(surface_.messages.size(), 1u);
  EXPECT_EQ(surface_.messages[0].title, "Unable to Open Feltmaster Games File");
  EXPECT_FALSE(OpenLogCommand(*game_));

  surface_.messages.clear();
  surface_.files = {"no.glg", "a.glg", "b.glg"};
  EXPECT_TRUE(MergeLogCommand(*game_));
  EXPECT_THAT(NetsIn("a.glg"), ElementsAre(1, 2, 3));
  EXPECT_THAT(NetsIn("b.glg"), ElementsAre(3));
  ASSERT_EQ(surface_.messages.size(), 2u);
  EXPECT_EQ(surface_.messages[1].text, Path("a.glg") + "\nis the log in use.");

  surface_.messages.clear();
  surface_.Answer(kAnswerNo);
  surface_.Answer(kAnswerYes);
  surface_.files = {"b.glg", "b.glg"};
  EXPECT_TRUE(SaveLogAsCommand(*game_));
  EXPECT_EQ(surface_.messages[0].text,
            Path("b.glg") + "\nis already on file.\n\nDo you want to overwrite it?");
  EXPECT_EQ(game_->GamesLogFile, Path("b.glg"));
  EXPECT_EQ(Bytes(Path("b.glg")), Bytes(Path("a.glg")));

  surface_.Answer(kAnswerYes);
  EXPECT_TRUE(DeleteChosenFile(*game_, "Open Games Log", Path("b.glg")));
  EXPECT_EQ(game_->GamesLogFile, Path("default.glg"));
}

TEST_F(GamesLogCommandsTest, DeletingGames) {
  const auto deletes = [&](const std::string& first, const std::string& second) {
    WriteLog("default.glg", {1, 2, 3, 4, 5});
    surface_.messages.clear();
    surface_.Type(first, second);
    return DeleteGamesCommand(*game_);
  };
  game_->GamesDeviationBox = {"1", "2"};
  EXPECT_TRUE(deletes("2", "0"));
  EXPECT_THAT(NetsIn("default.glg"), ElementsAre(1, 3, 4, 5));
  EXPECT_EQ(surface_.messages[0].title, "Delete Games");
  EXPECT_EQ(surface_.messages[0].text,
            "Enter the game number or range of game \nnumbers that you'd like to delete:");
  EXPECT_EQ(surface_.messages[0].options, 201);
  EXPECT_THAT(surface_.defaults, ElementsAre("0", "0"));
  EXPECT_THAT(game_->GamesDeviationBox, ElementsAre("", ""));
  EXPECT_TRUE(deletes("0", "5"));
  EXPECT_THAT(NetsIn("default.glg"), ElementsAre(1, 2, 3, 4));
  EXPECT_TRUE(deletes("4", "2"));
  EXPECT_THAT(NetsIn("default.glg"), ElementsAre(1, 5));
  for (const auto& [first, second] :
       {std::pair("0", "0"), std::pair("6", "0"), std::pair("2", "6"), std::pair("-1", "2")}) {
    EXPECT_FALSE(deletes(first, second));
    ASSERT_EQ(surface_.messages.size(), 2u);
    EXPECT_EQ(surface_.messages[1].title, "Delete Games");
    EXPECT_EQ(surface_.messages[1].text, "No games deleted.  Entry out of range.");
    EXPECT_THAT(NetsIn("default.glg"), ElementsAre(1, 2, 3, 4, 5));
  }
  surface_.Answer(kAnswerCancel);
  EXPECT_FALSE(DeleteGamesCommand(*game_));
}

TEST_F(GamesLogCommandsTest, BreakPoints) {
  surface_.Type("200", "-50.5");
  EXPECT_TRUE(SetBreakPointCommand(*game_));
  EXPECT_EQ(surface_.messages[0].title, "Set Break-point");
  EXPECT_EQ(surface_.messages[0].text,
            "Enter the break-point or range that you'd \nlike to use to sort this data:");
  EXPECT_EQ(game_->GamesBreakLow.Raw(), -505'000);
  EXPECT_EQ(game_->GamesBreakHigh.Raw(), 2'000'000);
  surface_.Answer(kAnswerCancel);
  EXPECT_FALSE(SetBreakPointCommand(*game_));
  EXPECT_THAT(surface_.defaults, ElementsAre("-50.5", "200"));
}

TEST_F(GamesLogCommandsTest, FindGoesRoundTheLog) {
  WriteLog("default.glg", {7, -1, 7, -1, 7, 3});
  const auto find = [&](FindDirection direction) {
    return FindGameCommand(*game_, kNetValue, direction) ? game_->GamesTopLine : 0;
  };
  game_->GamesViewChoice = 15;
  surface_.Type("7.0");
  EXPECT_EQ(find(FindDirection::kAsk), 3);
  EXPECT_EQ(surface_.messages[0].title, "Find");
  EXPECT_EQ(surface_.messages[0].text,
            "If found, the line will appear at the top of the data box.\n\n"
            "Enter the value you'd like to find for:\n\n$ Bets Won/Lost (Net)");
  EXPECT_EQ(game_->GamesViewChoice, 7);
  EXPECT_EQ(find(FindDirection::kNext), 5);
  EXPECT_EQ(find(FindDirection::kNext), 1);
  EXPECT_EQ(find(FindDirection::kPrevious), 5);
  EXPECT_EQ(find(FindDirection::kPrevious), 3);
  surface_.Type("-1");
  EXPECT_EQ(find(FindDirection::kAsk), 4);
  game_->GamesViewChoice = 1;  // games won
  surface_.messages.clear();
  EXPECT_EQ(find(FindDirection::kNext), 0);
  ASSERT_EQ(surface_.messages.size(), 1u);
  EXPECT_EQ(surface_.messages[0].title, "Search Results");
  EXPECT_EQ(surface_.messages[0].text, "Value not found.");
  surface_.Type("");
  EXPECT_EQ(find(FindDirection::kAsk), 0);
  EXPECT_EQ(surface_.messages.size(), 2u);  // an empty answer ends it
  Write(Path("default.glg"), GlgHeader(0));
  EXPECT_EQ(find(FindDirection::kPrevious), 0);
}

TEST_F(GamesLogCommandsTest, AGameFileNamesItsLog) {
  WriteLog("a.glg", {1});
  const std::string in_use = game_->GamesLogFile;
  ASSERT_TRUE(OpenGamesLog(*game_, Path("a.glg")));
  ASSERT_TRUE(SaveGame(*game_, Path("game.crp")));
  game_->GamesLogFile = in_use;
  ASSERT_TRUE(OpenGame(*game_, Path("game.crp"), true));
  EXPECT_EQ(game_->GamesLogFile, Path("a.glg"));

  Write(Path("a.glg"), "no log");
  game_->GamesLogFile = in_use;
  surface_.messages.clear();
  ASSERT_TRUE(OpenGame(*game_, Path("game.crp"), true));
  EXPECT_EQ(game_->GamesLogFile, in_use);
  ASSERT_EQ(surface_.messages.size(), 1u);
  EXPECT_EQ(surface_.messages[0].title, "Unable to Open Feltmaster Games File");

  // A log that is gone with its folder gives way to the default log when a game is logged.
  game_->GamesLogFile = Path("gone/x.glg");
  game_->EventCounts[0] = 4;
  EXPECT_TRUE(LogFinishedGame(*game_));
  EXPECT_EQ(game_->GamesLogFile, in_use);
  EXPECT_EQ(ReadGlg(Bytes(in_use)).count, 1);
}

}  // namespace
}  // namespace feltmaster
