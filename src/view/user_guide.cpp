#include "view/user_guide.h"

#include <algorithm>
#include <array>
#include <cctype>

#include "base/record_file.h"
#include "base/text.h"

namespace feltmaster {

namespace {

constexpr std::size_t kLongestChapter = 4 << 20;
constexpr std::string_view kFirstPage = "README.md";

// Numbers that stand in messages are told there; those of windows may change.
constexpr auto kTopics = std::to_array<HelpTopic>({
    {0, kFirstPage},
    {105, "file_formats.md#game-files"},
    {110, "hot_keys.md", "frmHotKeys"},
    {120, "auto_play.md", "frmAutoPlay"},
    {210, "dice_roll_files.md", "frmDiceRollFiles"},
    {240, "chip_stacks.md", "frmStackValues"},
    {500, "table.md#a-bet-that-has-won"},
    {501, "table.md#a-bet-that-has-lost"},
    {550, "script_language.md#messages-and-questions"},
    {554, "script_language.md#labels-go-to-and-gosub"},
    {556, "script_language.md#the-structure-of-a-script"},
    {558, "flags.md"},
    {600, "script_editor.md#script-files"},
    {620, "script_editor.md#editing"},
    {630, "script_editor.md#show-steps"},
    {640, "script_language.md#the-structure-of-a-script"},
    {700, "statistics.md#summary", "frmSummary"},
    {710, "bankroll.md", "frmBankroll"},
    {720, "statistics.md#roll-totals", "frmRollTotals"},
    {730, "statistics.md#roll-frequencies", "frmRollFreqs"},
    {740, "statistics.md#bet-results", "frmBetResults"},
    {750, "statistics.md#bet-trends", "frmBetTrends"},
    {800, "reports.md#printing"},
    {1010, "table.md", "frmTable"},
    {1020, "configure.md", "frmConfigure"},
    {1030, "script_editor.md", "frmAutoBet"},
    {1040, "flags.md", "frmFlags"},
    {1070, "games_log.md", "frmGames"},
    {1080, "own_numbers.md", "frmRYON"},
});

struct Line {
  std::string_view text;
  bool code = false;
};

// Lines of a text, with those of its code told from the others: they are fenced off, or stand four
// blanks to the right behind a blank line.
std::vector<Line> LinesOf(std::string_view text) {
  std::vector<Line> lines;
  bool fenced = false;
  bool behind_blank = true;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    const bool fence = line.starts_with("```");
    const bool indented = line.starts_with("    ") && behind_blank;
    lines.push_back({line, fenced || fence || indented});
    if (fence) fenced = !fenced;
    behind_blank = Trim(line).empty() || indented;
  }
  return lines;
}

// How many '#' stand before a heading; 0 for another line.
int LevelOf(const Line& line) {
  if (line.code) return 0;
  const std::size_t level = line.text.find_first_not_of('#');
  return level > 0 && level != std::string_view::npos && line.text[level] == ' '
             ? static_cast<int>(level)
             : 0;
}

GuideChapter ReadChapter(const std::string& folder, const std::string& file) {
  GuideChapter chapter{file, file, {}};
  std::string text;
  if (ReadWholeFile(folder + file, kLongestChapter, text)) return chapter;
  for (const Line& line : LinesOf(text)) {
    if (const int level = LevelOf(line); level > 0) {
      const std::string heading(Trim(line.text.substr(static_cast<std::size_t>(level))));
      chapter.sections.push_back({heading, AnchorOf(heading), level, {}});
    } else if (!chapter.sections.empty()) {
      chapter.sections.back().text.append(line.text).append("\n");
    }
  }
  if (!chapter.sections.empty()) chapter.title = chapter.sections[0].heading;
  return chapter;
}

std::vector<std::string> SplitWords(std::string_view text) {
  std::vector<std::string> words;
  std::string word;
  for (const char c : std::string(text) + ' ') {
    if (c != ' ' && c != '\t') {
      word += c;
    } else if (!word.empty()) {
      words.push_back(Lower(word));
      word.clear();
    }
  }
  return words;
}

std::size_t CountOf(std::string_view word, std::string_view text) {
  std::size_t count = 0;
  for (std::size_t at = text.find(word); at != std::string_view::npos;
       at = text.find(word, at + word.size())) {
    ++count;
  }
  return count;
}

// A line without the marks of Markdown: the words of a link without its target.
std::string PlainText(std::string_view line) {
  std::string plain;
  for (std::size_t at = 0; at < line.size(); ++at) {
    const char c = line[at];
    if (c == ']' && at + 1 < line.size() && line[at + 1] == '(') {
      at = std::min(line.find(')', at), line.size());
    } else if (c == '|') {
      plain += ' ';
    } else if (std::string_view("*`[]!").find(c) == std::string_view::npos) {
      plain += c;
    }
  }
  return std::string(Trim(plain));
}

std::string FirstLineWith(std::string_view text, const std::vector<std::string>& words) {
  for (const Line& line : LinesOf(text)) {
    const std::string low = Lower(line.text);
    for (const std::string& word : words) {
      if (low.find(word) != std::string::npos) return PlainText(line.text);
    }
  }
  return {};
}

}  // namespace

UserGuide ReadUserGuide(const std::string& folder) {
  UserGuide guide{folder, {}};
  if (folder.empty()) return guide;
  guide.chapters.push_back(ReadChapter(folder, std::string(kFirstPage)));
  const auto is_known = [&guide](const std::string& file) {
    return std::any_of(guide.chapters.begin(), guide.chapters.end(),
                       [&file](const GuideChapter& known) { return known.file == file; });
  };
  const std::vector<GuideSection> contents = guide.chapters[0].sections;
  for (const GuideSection& section : contents) {
    for (const Line& line : LinesOf(section.text)) {
      const std::vector<std::string> links = LinksOf(line.text);
      if (!line.text.starts_with("- [") || links.empty()) continue;
      const std::string file = links[0].substr(0, links[0].find('#'));
      if (!file.ends_with(".md") || is_known(file)) continue;
      GuideChapter chapter = ReadChapter(folder, file);
      if (!chapter.sections.empty()) guide.chapters.push_back(std::move(chapter));
    }
  }
  return guide;
}

std::string AnchorOf(std::string_view heading) {
  std::string anchor;
  for (const char c : Lower(heading)) {
    const auto byte = static_cast<unsigned char>(c);
    if (std::isalnum(byte) || c == '-' || c == '_' || byte >= 0x80) anchor += c;
    if (c == ' ') anchor += '-';
  }
  return anchor;
}

std::vector<GuideHit> SearchUserGuide(const UserGuide& guide, std::string_view words) {
  struct Ranked {
    GuideHit hit;
    std::size_t rank;
  };
  constexpr std::size_t kInHeading = 1000;
  std::vector<Ranked> found;
  const std::vector<std::string> wanted = SplitWords(words);
  if (wanted.empty()) return {};
  for (std::size_t c = 0; c < guide.chapters.size(); ++c) {
    for (std::size_t s = 0; s < guide.chapters[c].sections.size(); ++s) {
      const GuideSection& section = guide.chapters[c].sections[s];
      const std::string heading = Lower(section.heading);
      const std::string text = Lower(section.text);
      std::size_t rank = 0;
      const bool all = std::all_of(wanted.begin(), wanted.end(), [&](const std::string& word) {
        const std::size_t here = kInHeading * CountOf(word, heading) + CountOf(word, text);
        rank += here;
        return here > 0;
      });
      if (all) found.push_back({{c, s, FirstLineWith(section.text, wanted)}, rank});
    }
  }
  std::stable_sort(found.begin(), found.end(),
                   [](const Ranked& a, const Ranked& b) { return a.rank > b.rank; });
  std::vector<GuideHit> hits;
  for (Ranked& ranked : found) hits.push_back(std::move(ranked.hit));
  return hits;
}

std::span<const HelpTopic> HelpTopics() {
  return kTopics;
}

std::string_view GuidePlaceOf(std::int32_t topic) {
  const auto* const found =
      std::find_if(kTopics.begin(), kTopics.end(),
                   [topic](const HelpTopic& candidate) { return candidate.number == topic; });
  return found == kTopics.end() ? kFirstPage : found->place;
}

std::int32_t HelpTopicOf(std::string_view window) {
  const auto* const found =
      std::find_if(kTopics.begin(), kTopics.end(), [window](const HelpTopic& candidate) {
        return !window.empty() && candidate.window == window;
      });
  return found == kTopics.end() ? 0 : found->number;
}

std::vector<std::string> LinksOf(std::string_view markdown) {
  std::vector<std::string> links;
  for (const Line& line : LinesOf(markdown)) {
    if (line.code) continue;
    for (std::size_t at = line.text.find("]("); at != std::string_view::npos;
         at = line.text.find("](", at + 2)) {
      const std::size_t end = line.text.find(')', at);
      if (end == std::string_view::npos) break;
      links.emplace_back(line.text.substr(at + 2, end - at - 2));
    }
  }
  return links;
}

}  // namespace feltmaster
