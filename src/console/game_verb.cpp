#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

#include "base/number_format.h"
#include "base/text.h"
#include "console/json_text.h"
#include "console/text_table.h"
#include "console/verbs.h"
#include "engine/amounts.h"
#include "engine/start_up.h"
#include "files/game_file.h"
#include "stats/roll_statistics.h"
#include "surface/null_surface.h"
#include "view/figure.h"
#include "view/settings_rows.h"
#include "view/table_rows.h"

namespace feltmaster {

namespace {

constexpr int kDone = 0;
constexpr int kNotStarted = 2;

struct GameOptions {
  std::string file;
  bool json = false;
};

int Refuse(std::string_view sentence) {
  std::cerr << "feltmaster game show: " << OneLine(sentence) << '\n';
  return kNotStarted;
}

// A saved game, beside a table as it is when the program is new.
struct Shelf {
  Shelf() {
    for (Game* game : {&saved, &fresh}) {
      game->surface = &surface;
      StartUp(*game, {.data_dir = "", .seed = 1});
    }
  }

  NullSurface surface;
  Game saved;
  Game fresh;
  std::vector<Companion> companions;
};

std::string_view FoundWords(CompanionFound found) {
  switch (found) {
    case CompanionFound::kThere:
      return "as it was";
    case CompanionFound::kAltered:
      return "changed since";
    default:
      return "not found";
  }
}

Figures Digest(Game& game) {
  const MoneyAmount net = game.BetAmount[kBankroll] - game.AmountInvested;
  Figures figures = {
      {"Rolls", CountText(std::int64_t{RollCounts(game, 0)})},
      {"Hands", CountText(std::int64_t{game.GameCounters[kHandsCompleted]})},
      {"Point", game.Point == 0 ? "none, a come-out roll" : std::to_string(game.Point)},
      {"Dice", std::to_string(game.Die1) + '-' + std::to_string(game.Die2)},
      {"Bankroll", FormatMoney(game.BetAmount[kBankroll])},
      {net.Raw() < 0 ? "Lost so far" : "Won so far", FormatMoney(Abs(net))},
      {"Highest bankroll", FormatMoney(game.BankrollHigh)},
      {"Lowest bankroll", FormatMoney(game.BankrollLow)},
      {"On the table", FormatMoney(game.TotalOnTable)}};
  if (game.AutoRollsRemaining > 0) {
    figures.push_back({"Auto-Rolls to come", CountText(std::int64_t{game.AutoRollsRemaining})});
  }
  return figures;
}

std::string Heading(std::string_view words) {
  return "\n" + std::string(words) + "\n";
}

// The Chip-Stacks that hold something or have a name.
Rows StacksInUse(const Game& game) {
  Rows rows;
  for (int stack = 0; stack < kStackCount; ++stack) {
    const MoneyAmount amount = game.BetAmount[kFirstStack + stack];
    const std::string& name = game.ChipStackName[static_cast<std::size_t>(stack)];
    if (amount.Raw() == 0 && name.empty()) continue;
    rows.push_back(
        {"#" + std::to_string(stack) + (name.empty() ? "" : " " + name), FormatMoney(amount)});
  }
  return rows;
}

std::string ScriptLine(const Game& game) {
  if (game.ScriptLines.empty()) return game.ScriptActive == 1 ? "active, without lines" : "none";
  return CountText(static_cast<std::int64_t>(game.ScriptLines.size())) + " lines, " +
         (game.ScriptActive == 1 ? "active" : "not active");
}

std::string ShowText(Shelf& shelf, const std::string& file) {
  Game& game = shelf.saved;
  std::string text = file + "\n\n" + TextTable(RowsOf(Digest(game)));
  if (const Rows bets = BetRows(game); !bets.empty()) {
    text += Heading("Bets") + TextTable(bets);
  }
  if (const Rows stacks = StacksInUse(game); !stacks.empty()) {
    text += Heading("Chip-Stacks") + TextTable(stacks);
  }
  text += Heading("Auto-Bet script") + ScriptLine(game) + '\n';
  for (const Row& flag : FlagRows(game)) text += flag.front() + '\n';
  Rows files;
  for (const Companion& companion : shelf.companions) {
    if (companion.path.empty()) continue;
    files.push_back({std::string(companion.what), companion.path,
                     companion.is_stamped ? std::string(FoundWords(companion.found)) : ""});
  }
  if (!files.empty()) text += Heading("Files in use") + TextTable(files);
  const Rows settings = ChangedSettingRows(game, shelf.fresh);
  text += Heading("Settings that differ from those of a new table");
  if (settings.empty()) return text + "none\n";
  Rows rows = {{"", "here", "new table"}};
  for (const Row& row : settings) rows.push_back({row[0], row[1], row[2]});
  return text + TextTable(rows);
}

std::string ShowJson(Shelf& shelf, const std::string& file) {
  Game& game = shelf.saved;
  std::vector<std::string> bets;
  (game.BetAmount.Standing() & kLayoutBets).ForEach([&](int bet) {
    bets.push_back(JsonObject()
                       .Add("bet", bet)
                       .Add("name", NameOfBet(game, bet))
                       .Add("amount", game.BetAmount[bet])
                       .Add("state", game.BetState[bet])
                       .Text());
  });
  std::vector<std::string> stacks;
  for (int stack = 0; stack < kStackCount; ++stack) {
    const MoneyAmount amount = game.BetAmount[kFirstStack + stack];
    const std::string& name = game.ChipStackName[static_cast<std::size_t>(stack)];
    if (amount.Raw() == 0 && name.empty()) continue;
    stacks.push_back(
        JsonObject().Add("stack", stack).Add("amount", amount).Add("name", name).Text());
  }
  std::vector<std::string> flags;
  for (const ScriptFlag& flag : game.ScriptFlags) {
    flags.push_back(
        JsonObject().Add("FlagName", flag.FlagName).Add("FlagValue", flag.FlagValue).Text());
  }
  std::vector<std::string> files;
  for (const Companion& companion : shelf.companions) {
    if (companion.path.empty()) continue;
    JsonObject object;
    object.Add("kind", companion.what).Add("path", companion.path);
    if (companion.is_stamped) {
      object.Add("date", companion.stamp).Add("found", FoundWords(companion.found));
    }
    files.push_back(object.Text());
  }
  std::vector<std::string> settings;
  for (const Row& row : ChangedSettingRows(game, shelf.fresh)) {
    settings.push_back(
        JsonObject().Add("name", row[3]).Add("value", row[1]).Add("new_table", row[2]).Text());
  }
  return JsonObject()
             .Add("file", file)
             .Add("rolls", RollCounts(game, 0))
             .Add("hands", game.GameCounters[kHandsCompleted])
             .Add("point", game.Point)
             .AddJson("dice", JsonList({JsonOf(game.Die1), JsonOf(game.Die2)}))
             .Add("bankroll", game.BetAmount[kBankroll])
             .Add("invested", game.AmountInvested)
             .Add("highest_bankroll", game.BankrollHigh)
             .Add("lowest_bankroll", game.BankrollLow)
             .Add("on_table", game.TotalOnTable)
             .AddJson("bets", JsonList(bets))
             .AddJson("stacks", JsonList(stacks))
             .AddJson("script",
                      JsonObject()
                          .Add("lines", static_cast<std::int64_t>(game.ScriptLines.size()))
                          .Add("active", game.ScriptActive == 1)
                          .AddJson("flags", JsonList(flags))
                          .Text())
             .AddJson("files", JsonList(files))
             .AddJson("settings", JsonList(settings))
             .Text() +
         '\n';
}

int ShowGame(const GameOptions& options) {
  const auto shelf = std::make_unique<Shelf>();
  if (!ReadGame(shelf->saved, options.file, shelf->companions)) {
    const Game& game = shelf->saved;
    if (game.FileStatus == 0) {
      return Refuse(options.file +
                    " is either from a different version, has been corrupted, or is not a true "
                    "Feltmaster game file.");
    }
    return Refuse(options.file + " cannot be read: " + DescriptionIn(game.LastErrorText) + '.');
  }
  std::cout << (options.json ? ShowJson(*shelf, options.file) : ShowText(*shelf, options.file))
            << std::flush;
  return std::cout ? kDone : Refuse("Standard output cannot be written.");
}

}  // namespace

void AddGameVerb(Verb program) {
  const Verb verb = program.Sub("game", "Tells what is in a saved game");
  verb.RequireSub();
  const auto options = std::make_shared<GameOptions>();
  const Verb show = verb.Sub("show", "Tells what is in a saved game");
  show.Add("FILE", options->file, "A game file, .crp").Required().Takes("");
  show.Flag("--json", options->json, "Prints one object");
  show.Footer(
      "The game is read and left as it is. The script and the files that were in use are told\n"
      "with what has become of them since the game was saved.\n\n"
      "Examples:\n"
      "  feltmaster game show evening.crp\n"
      "  feltmaster game show --json evening.crp | jq .bankroll");
  show.Runs([options] { return ShowGame(*options); });
}

}  // namespace feltmaster
