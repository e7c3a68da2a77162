#include "engine/sounds.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <functional>
#include <system_error>
#include <utility>

#include "base/text.h"

namespace feltmaster {

namespace {

namespace fs = std::filesystem;

using Names = std::vector<std::string>;

constexpr std::array<std::string_view, 5> kEndings = {".stk", ".dce", ".win", ".chp", ".wav"};

std::string NameOf(const std::string& path) {
  return fs::path(path).filename().string();
}

bool IsBefore(const std::string& a, const std::string& b) {
  return Lower(a) < Lower(b);
}

// In order, and each once in whatever case: the first of them.
template <typename Projection>
void PutInOrder(Names& names, Projection projection) {
  std::ranges::stable_sort(names, IsBefore, projection);
  const auto [first, last] = std::ranges::unique(names, EqualIgnoringCase, projection);
  names.erase(first, last);
}

bool EndsWith(const std::string& file, std::string_view ending) {
  return file.size() > ending.size() &&
         EqualIgnoringCase(std::string_view(file).substr(file.size() - ending.size()), ending);
}

bool IsClip(const std::string& path) {
  return std::ranges::any_of(kEndings, [&](std::string_view end) { return EndsWith(path, end); });
}

Names ClipsIn(const std::vector<std::string>& folders) {
  Names clips;
  for (const std::string& folder : folders) {
    Names here;
    std::error_code error;
    fs::directory_iterator entry(folder, error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
      std::error_code ignored;
      const std::string path = entry->path().string();
      if (IsClip(path) && entry->is_regular_file(ignored)) here.push_back(path);
    }
    std::ranges::sort(here);
    clips.insert(clips.end(), here.begin(), here.end());
  }
  PutInOrder(clips, NameOf);
  return clips;
}

Names NamesWithEnding(const Names& clips, std::string_view ending) {
  Names names;
  for (const std::string& clip : clips) {
    if (EndsWith(clip, ending)) names.push_back(NameOf(clip));
  }
  return names;
}

// "Casey" of "Casey07.stk"; empty when there are no two digits.
std::string PersonOf(const std::string& file) {
  constexpr std::size_t kTail = 6;
  if (file.size() <= kTail) return {};
  const auto is_digit = [&](std::size_t i) { return file[i] >= '0' && file[i] <= '9'; };
  const std::size_t number = file.size() - kTail;
  return is_digit(number) && is_digit(number + 1) ? file.substr(0, number) : std::string();
}

Names Persons(const Names& calls) {
  Names persons;
  for (const std::string& call : calls) {
    if (std::string person = PersonOf(call); !person.empty()) persons.push_back(std::move(person));
  }
  PutInOrder(persons, std::identity());
  return persons;
}

// The clip chosen at first, or the first one where the list is too short for it.
std::int32_t FirstChoice(const Names& list, std::int32_t wanted) {
  if (list.empty()) return 0;
  return list.size() >= static_cast<std::size_t>(wanted) ? wanted : 1;
}

}  // namespace

void FindSounds(Game& game, const std::vector<std::string>& folders) {
  const Names clips = ClipsIn(folders);
  game.SoundFiles = clips;
  game.StickPersonList = Persons(NamesWithEnding(clips, ".stk"));
  game.DiceSoundList = NamesWithEnding(clips, ".dce");
  game.WinSoundList = NamesWithEnding(clips, ".win");
  game.ChipSoundList = NamesWithEnding(clips, ".chp");
  game.StickPersonChoice = FirstChoice(game.StickPersonList, 1);
  game.DiceSoundChoice = FirstChoice(game.DiceSoundList, 4);
  game.WinSoundChoice = FirstChoice(game.WinSoundList, 2);
  game.ChipSoundChoice = FirstChoice(game.ChipSoundList, 4);
  BuildStickCalls(game);
}

std::string SoundFile(const Game& game, std::string_view name) {
  const auto found = std::ranges::find_if(game.SoundFiles, [&](const std::string& path) {
    return EqualIgnoringCase(NameOf(path), name);
  });
  return found != game.SoundFiles.end() ? *found : game.AppPath + std::string(name);
}

void BuildStickCalls(Game& game) {
  const auto choice = static_cast<std::size_t>(std::max(game.StickPersonChoice, 0));
  const bool somebody = choice >= 1 && choice <= game.StickPersonList.size();
  for (int clip = 1; clip <= kStickClips; ++clip) {
    const std::string number = (clip < 10 ? "0" : "") + std::to_string(clip);
    game.StickCallFiles[static_cast<std::size_t>(clip)] =
        somebody ? SoundFile(game, game.StickPersonList[choice - 1] + number + ".stk")
                 : std::string();
  }
}

}  // namespace feltmaster
