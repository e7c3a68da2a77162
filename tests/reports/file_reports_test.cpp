#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <memory>

#include "engine/start_up.h"
#include "files/roll_recorder.h"
#include "reports/page_layout.h"
#include "reports/print_commands.h"
#include "reports/printer_surface.h"
#include "reports/text_writer.h"

namespace feltmaster {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;
using Message = RecordingSurface::Message;

// Reports on files.
class FileReports : public testing::Test {
 protected:
  FileReports() {
    fs::create_directories(folder_);
    game_->surface = &surface_;
    StartUp(*game_, {.data_dir = "", .seed = 7});
  }
  ~FileReports() override { fs::remove_all(folder_); }

  std::string Path(const std::string& name) const { return (folder_ / name).string(); }
  bool Print(std::string_view name, Confirm confirm = Confirm::kAsk) {
    surface_.printed.clear();
    surface_.messages.clear();
    return FindPrintCommand(name)->print(*game_, confirm);
  }

  void OpenRolls(std::size_t count) {
    std::ofstream(Path("luck.rol"), std::ios::binary) << std::string(count, '\x6C');  // 3-3
    ASSERT_TRUE(OpenDiceRollFile(*game_, Path("luck.rol")));
  }

  const fs::path folder_ =
      fs::temp_directory_path() / ("feltmaster_file_reports_" + std::to_string(getpid()));
  PrinterSurface surface_;
  std::unique_ptr<Game> game_ = std::make_unique<Game>();
};

TEST_F(FileReports, DiceRolls) {
  EXPECT_FALSE(Print("rolls"));
  EXPECT_THAT(surface_.messages,
              ElementsAre(Message{"Print Dice Rolls", "There are no dice rolls to print.", 1, 0}));
  OpenRolls(5000);
  for (const std::int32_t size : {3, 6, 20, 200}) {
    game_->RollPrintFontSize = size;
    surface_.Answer(kAnswerYes);
    ASSERT_TRUE(Print("rolls"));
    const Document& document = surface_.printed[0];
    const std::string pages = std::to_string(document.pages.size());
    EXPECT_THAT(surface_.messages[0].text, HasSubstr("Number of rolls to be printed: 5000"));
    EXPECT_THAT(surface_.messages[0].text, HasSubstr("this should result in " + pages +
                                                     (pages == "1" ? " page." : " pages.")));
    std::size_t rolls = 0;
    for (std::size_t i = 0; i < document.pages.size(); ++i) {
      const PlacedPage page = LayOut(document.pages[i]);
      EXPECT_EQ(page.texts[0].text, "Feltking Dice Roll File: luck.rol");
      EXPECT_EQ(page.texts[1].text, "05-Nov-26, 08:04:09");
      EXPECT_THAT(page.texts.back().text, StartsWith("Page " + std::to_string(i + 1)));
      for (const PlacedText& text : page.texts) {
        rolls += text.text.ends_with(" (3-3) 6") ? 1 : 0;
        EXPECT_LE(text.x + text.width, kPageWidth - kPageMargin + 0.01) << text.text;
        EXPECT_LE(text.y, kPageHeight - kPageMargin) << text.text;
      }
    }
    EXPECT_EQ(rolls, 5000u) << size;
  }
  game_->PrintDieNumbers = game_->PrintNumbersCalled = 0;
  EXPECT_FALSE(Print("rolls"));
  EXPECT_EQ(surface_.messages[0].title, "Print Dice Rolls");
}

}  // namespace
}  // namespace feltmaster
