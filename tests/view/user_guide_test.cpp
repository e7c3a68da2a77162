#include "view/user_guide.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>

#include "console/console_program.h"

namespace feltmaster {
namespace {

namespace fs = std::filesystem;

const std::string kGuide = FELTMASTER_SOURCE_DIR "/docs/guide/";

std::string Contents(const fs::path& path) {
  std::ifstream file(path);
  std::stringstream text;
  text << file.rdbuf();
  return text.str();
}

const UserGuide& TheGuide() {
  static const UserGuide guide = ReadUserGuide(kGuide);
  return guide;
}

// Whether "file", "file.md#anchor" or "#anchor" is there.
bool Leads(const GuideChapter& from, const std::string& link) {
  const std::size_t mark = std::min(link.find('#'), link.size());
  const std::string file = mark == 0 ? from.file : link.substr(0, mark);
  if (mark == link.size()) return fs::exists(kGuide + file);
  const auto& chapters = TheGuide().chapters;
  const auto to = std::find_if(chapters.begin(), chapters.end(),
                               [&](const GuideChapter& chapter) { return chapter.file == file; });
  if (to == chapters.end()) return false;
  return std::any_of(to->sections.begin(), to->sections.end(), [&](const GuideSection& section) {
    return section.anchor == link.substr(mark + 1);
  });
}

TEST(UserGuideTest, EveryLinkAndPictureIsThereAndEveryChapterIsListed) {
  std::size_t links = 0;
  std::set<std::string> listed;
  for (const GuideChapter& chapter : TheGuide().chapters) {
    listed.insert(chapter.file);
    for (const GuideSection& section : chapter.sections) {
      for (const std::string& link : LinksOf(section.text)) {
        ++links;
        EXPECT_TRUE(link.starts_with("http") || Leads(chapter, link))
            << chapter.file << ": " << link;
      }
    }
  }
  EXPECT_GT(links, 30U);
  for (const fs::directory_entry& entry : fs::directory_iterator(kGuide)) {
    if (entry.path().extension() != ".md") continue;
    EXPECT_TRUE(listed.contains(entry.path().filename().string())) << entry.path();
  }
  for (const fs::directory_entry& entry : fs::directory_iterator(kGuide + "images")) {
    EXPECT_LE(fs::file_size(entry), 150 * 1024U) << entry.path();
  }
}

// The numbers are told from the source: constants called kHelp..., k...Help, and screens' traits.
TEST(UserGuideTest, EveryTopicOfTheProgramHasItsPlace) {
  for (const HelpTopic& topic : HelpTopics()) {
    EXPECT_TRUE(Leads(TheGuide().chapters[0], std::string(topic.place))) << topic.number;
  }
  const std::regex number(R"(k\w*Help\w*\s*=\s*(\d+)|return (\d{3}) ?[;:]|ScreenTraits kTraits = )"
                          R"(\{"\w+",\s*"[^"]*",\s*(\d+))");
  std::size_t found = 0;
  for (const auto& entry : fs::recursive_directory_iterator(FELTMASTER_SOURCE_DIR "/src")) {
    if (!entry.is_regular_file()) continue;
    const std::string text = Contents(entry.path());
    for (std::sregex_iterator at(text.begin(), text.end(), number), end; at != end; ++at) {
      const std::smatch& match = *at;
      if (match[2].matched && entry.path().filename() != "file_dialog.cpp") continue;
      const auto group = static_cast<std::size_t>(match[1].matched ? 1 : match[2].matched ? 2 : 3);
      const int topic = std::stoi(match[group].str());
      if (topic < 100 || topic > 9999) continue;  // no topic, or a button
      ++found;
      EXPECT_NE(GuidePlaceOf(topic), GuidePlaceOf(0)) << entry.path() << ": " << match.str();
    }
  }
  EXPECT_GE(found, 10U);
}

TEST(UserGuideTest, TheSearchFindsWhatAllWordsShare) {
  const auto hits = SearchUserGuide(TheGuide(), "  GOSUB label ");
  ASSERT_FALSE(hits.empty());
  const GuideChapter& chapter = TheGuide().chapters[hits[0].chapter];
  EXPECT_EQ(chapter.file, "script_language.md");
  EXPECT_EQ(chapter.sections[hits[0].section].heading, "Labels, Go to and Gosub");
  EXPECT_THAT(hits[0].line, testing::Not(testing::HasSubstr("`")));
  EXPECT_TRUE(SearchUserGuide(TheGuide(), "gosub zebra").empty());
  EXPECT_TRUE(SearchUserGuide(TheGuide(), " ").empty());
}

TEST(UserGuideTest, TheVocabularyChapterIsThatOfTheProgram) {
  const std::string chapter = RunProgram("script words --markdown").output;
  EXPECT_EQ(chapter, Contents(kGuide + "vocabulary.md"));
  EXPECT_EQ(chapter.find("no known meaning"), std::string::npos);
}

}  // namespace
}  // namespace feltmaster
