#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <QImage>
#include <filesystem>

#include "console/console_program.h"
#include "desktop/offscreen.h"

namespace feltmaster {
namespace {

using testing::HasSubstr;

QImage Shot(const std::string& options) {
  const ProgramRun run = RunProgram("table --shot - " + options);
  EXPECT_EQ(run.exit_code, 0) << run.complaints;
  EXPECT_EQ(run.complaints, "");
  return QImage::fromData(QByteArray::fromStdString(run.output));
}

TEST(TableVerbTest, DrawsAGameIntoAFile) {
  namespace fs = std::filesystem;
  const fs::path folder =
      fs::temp_directory_path() / ("feltmaster-table-verb-" + std::to_string(getpid()));
  fs::create_directories(folder);
  const std::string game = (folder / "evening.crp").string();
  Play({"bet \"Pass Line\" 25", "roll 2 3", "save " + game});

  const QImage empty = Shot("--scale 1");
  EXPECT_EQ(empty.size(), QSize(640, 440));
  const QImage evening = Shot("--scale 1 --game " + game);
  const QRect line(340, 350, 40, 22);
  EXPECT_GT(Difference(empty.copy(line), evening.copy(line)), 20);
  const QRect puck(215, 10, 39, 39);  // ON, over the 5
  EXPECT_GT(Difference(empty.copy(puck), evening.copy(puck)), 20);
  const QRect panel(511, 100, 125, 270);
  EXPECT_EQ(empty.copy(panel), evening.copy(panel));
  EXPECT_NE(empty.copy(panel), Shot("--scale 1 --panel hop").copy(panel));
  EXPECT_NE(empty, Shot("--scale 1 --preset woodgrain"));
  EXPECT_EQ(Shot("--scale 1.5").size(), QSize(960, 660));

  const std::string picture = (folder / "evening.jpg").string();
  EXPECT_EQ(RunProgram("table --shot " + picture + " --game " + game).exit_code, 0);
  EXPECT_EQ(QImage(QString::fromStdString(picture), "JPG").size(), QSize(1280, 880));
  fs::remove_all(folder);
}

// Laid out before they are drawn: no scroll bar where there is room.
TEST(ScreensVerbTest, DrawsEveryScreenAsItIsSeen) {
  namespace fs = std::filesystem;
  const fs::path folder =
      fs::temp_directory_path() / ("feltmaster-screens-verb-" + std::to_string(getpid()));
  EXPECT_EQ(RunProgram("screens --shots " + folder.string()).exit_code, 0);
  EXPECT_GE(std::distance(fs::directory_iterator(folder), {}), 20);
  const QImage summary(QString::fromStdString((folder / "frmSummary.png").string()));
  ASSERT_FALSE(summary.isNull());
  const int in_margin = summary.height() - 4;
  for (int x = 0; x < summary.width(); ++x) {
    ASSERT_EQ(summary.pixel(x, in_margin), summary.pixel(2, in_margin)) << x;
  }
  fs::remove_all(folder);
}

TEST(TableVerbTest, RefusesInOneSentence) {
  for (const auto& [options, complaint] : std::vector<std::pair<std::string, std::string>>{
           {"", "--shot is required"},
           {"--shot /no/such/folder/x.png", "cannot write /no/such/folder/x.png"},
           {"--shot - --game /no/such/game.crp", "/no/such/game.crp cannot be opened"},
           {"--shot - --scale 0", "--scale"},
           {"--shot - --preset pink", "--preset"},
           {"--shot - --set BuyVigPct=fish", "BuyVigPct"}}) {
    const ProgramRun run = RunProgram("table " + options);
    EXPECT_EQ(run.exit_code, 2) << options;
    EXPECT_EQ(run.output, "");
    EXPECT_THAT(run.complaints, HasSubstr(complaint));
    EXPECT_EQ(std::count(run.complaints.begin(), run.complaints.end(), '\n'), 1);
  }
}

}  // namespace
}  // namespace feltmaster
