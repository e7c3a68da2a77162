#include "engine/sounds.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <system_error>
#include <utility>

#include "base/text.h"

namespace feltmaster {

namespace {

namespace fs = std::filesystem;

using Names = std::vector<std::string>;

bool IsBefore(const std::string& a, const std::string& b) {
  const std::string low_a = Lower(a);
  const std::string low_b = Lower(b);
  return low_a != low_b ? low_a < low_b : a < b;
}

// In order, and each once in whatever case.
void PutInOrder(Names& names) {
  std::ranges::stable_sort(names, IsBefore);
  const auto [first, last] = std::ranges::unique(
      names, [](const std::string& a, const std::string& b) { return EqualIgnoringCase(a, b); });
  names.erase(first, last);
}

Names FilesIn(const std::vector<std::string>& folders) {
  Names names;
  for (const std::string& folder : folders) {
    std::error_code error;
    fs::directory_iterator entry(folder, error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
      std::error_code ignored;
      if (entry->is_regular_file(ignored)) names.push_back(entry->path().filename().string());
    }
  }
  PutInOrder(names);
  return names;
}

Names WithEnding(const Names& files, std::string_view ending) {
  Names names;
  for (const std::string& file : files) {
    const bool longer = file.size() > ending.size();
    if (longer && EqualIgnoringCase(file.substr(file.size() - ending.size()), ending)) {
      names.push_back(file);
    }
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
  PutInOrder(persons);
  return persons;
}

// The clip chosen at first, or the first one where the list is too short for it.
std::int32_t FirstChoice(const Names& list, std::int32_t wanted) {
  if (list.empty()) return 0;
  return list.size() >= static_cast<std::size_t>(wanted) ? wanted : 1;
}

}  // namespace

void FindSounds(Game& game, std::vector<std::string> folders) {
  game.SoundFolders = std::move(folders);
  const Names files = FilesIn(game.SoundFolders);
  game.StickPersonList = Persons(WithEnding(files, ".stk"));
  game.DiceSoundList = WithEnding(files, ".dce");
  game.WinSoundList = WithEnding(files, ".win");
  game.ChipSoundList = WithEnding(files, ".chp");
  game.StickPersonChoice = FirstChoice(game.StickPersonList, 1);
  game.DiceSoundChoice = FirstChoice(game.DiceSoundList, 4);
  game.WinSoundChoice = FirstChoice(game.WinSoundList, 2);
  game.ChipSoundChoice = FirstChoice(game.ChipSoundList, 4);
  BuildStickCalls(game);
}

std::string SoundFile(const Game& game, std::string_view name) {
  for (const std::string& folder : game.SoundFolders) {
    std::string path = folder + std::string(name);
    std::error_code ignored;
    if (fs::exists(path, ignored)) return path;
  }
  return (game.SoundFolders.empty() ? std::string() : game.SoundFolders.front()) +
         std::string(name);
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
