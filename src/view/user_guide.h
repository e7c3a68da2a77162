#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace feltmaster {

// The user's guide: a folder of chapters in Markdown. README.md is its first page, and each line
// there that begins with "- [" lists a chapter.

// A heading and what stands below it, up to the next one.
struct GuideSection {
  std::string heading;
  std::string anchor;  // as links name it: "the-range-boxes"
  int level = 1;
  std::string text;  // Markdown, without the heading
};
struct GuideChapter {
  std::string file;  // "the_game.md"
  std::string title;
  std::vector<GuideSection> sections;
};
struct UserGuide {
  std::string folder;                  // with its final separator
  std::vector<GuideChapter> chapters;  // the first page is the first of them
};

// What cannot be read is left out.
UserGuide ReadUserGuide(const std::string& folder);

// The name by which a link reaches a heading: small letters, digits, '-' for blanks.
std::string AnchorOf(std::string_view heading);

// The section in which all words occur, whatever their case. Those that have them in the heading
// come first, then those in which they are found more often.
struct GuideHit {
  std::size_t chapter = 0;
  std::size_t section = 0;
  std::string line;  // the first that has one of the words, as plain text
};
std::vector<GuideHit> SearchUserGuide(const UserGuide& guide, std::string_view words);

// Where the guide tells of a help topic: "file.md#anchor" or "file.md"; the first page for a number
// that is no topic.
std::string_view GuidePlaceOf(std::int32_t topic);
struct HelpTopic {
  std::int32_t number;
  std::string_view place;
  std::string_view window = {};  // "frmSummary", whose own topic it is
};
std::span<const HelpTopic> HelpTopics();

// The topic of a window by its name; 0 when it has none.
std::int32_t HelpTopicOf(std::string_view window);

// Targets of the links and pictures of a text, as they are written there.
std::vector<std::string> LinksOf(std::string_view markdown);

}  // namespace feltmaster
