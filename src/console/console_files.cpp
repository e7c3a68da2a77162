#include <filesystem>
#include <optional>
#include <string>

#include "base/number_format.h"
#include "base/text.h"
#include "console/console_command.h"
#include "console/dealer_words.h"
#include "console/json_text.h"
#include "console/report_printing.h"
#include "dice/probability.h"
#include "files/file_commands.h"
#include "files/games_log.h"
#include "files/roll_recorder.h"
#include "view/bet_results_table.h"
#include "view/roll_frequencies.h"
namespace feltmaster {

namespace {

Reply Open(Console& console, Arguments& args) {
  Game& game = console.Table;
  const std::string file = args.Rest("FILE");
  if (args.Failed()) return Refused(args);
  game.FileStatus = 1;
  if (OpenNamedGame(game, file, SomebodyAnswers(console))) {
    return Done({}, file + " is open. " + BankrollInWords(game, game.BetAmount[kBankroll]));
  }
  if (game.FileStatus < 0) {
    return Refused("FILE " + Quoted(file) +
                   " cannot be opened: " + DescriptionIn(game.LastErrorText));
  }
  return Done({}, "The game goes on.\n");
}

Reply Save(Console& console, Arguments& args) {
  Game& game = console.Table;
  const std::string file = args.Rest("FILE");
  if (args.Failed()) return Refused(args);
  game.LastErrorText.clear();
  if (SaveNamedGame(game, file, SomebodyAnswers(console))) {
    return Done({}, "The game is saved in " + file + ".\n");
  }
  if (game.LastErrorText.empty()) return Done({}, "The game is not saved.\n");
  // The dialog has told why.
  return Refused("The game is not saved: FILE " + Quoted(file) + " cannot be written");
}

Reply PrbOpen(Console& console, Arguments& args) {
  Game& game = console.Table;
  const std::string file = args.Rest("FILE");
  if (args.Failed()) return Refused(args);
  if (OpenProbabilityFile(game, file)) {
    return Done({}, "The dice of " + file +
                        (game.UseSkewedProbability ? " are on the table.\n"
                                                   : "; prb on brings them to the table.\n"));
  }
  if (game.FileStatus < 0) {
    return Refused("FILE " + Quoted(file) +
                   " cannot be read: " + DescriptionIn(game.LastErrorText));
  }
  return Done();
}
Reply PrbSave(Console& console, Arguments& args) {
  const std::string file = args.Rest("FILE");
  if (args.Failed()) return Refused(args);
  if (!SaveProbabilityFile(console.Table, file)) {
    return Refused("FILE " + Quoted(file) +
                   " cannot be written: " + DescriptionIn(console.Table.LastErrorText));
  }
  return Done();
}
Reply UsePrb(Console& console, Arguments& args, bool use) {
  args.End();
  if (args.Failed()) return Refused(args);
  console.Table.UseSkewedProbability = use;
  return Done();
}
Reply PrbOn(Console& console, Arguments& args) {
  return UsePrb(console, args, true);
}
Reply PrbOff(Console& console, Arguments& args) {
  return UsePrb(console, args, false);
}

constexpr Command kPrbWords[] = {
    {"open", "FILE", "reads a Probability File", PrbOpen},
    {"save", "FILE", "writes one", PrbSave},
    {"on", "", "the dice obey it", PrbOn},
    {"off", "", "the dice are true", PrbOff},
};

Reply Prb(Console& console, Arguments& args) {
  return GoOn(console, args, kPrbWords, "The word after prb");
}

std::string RecorderInWords(Game& game) {
  return game.DiceRollFileName + ": next roll is #" + std::to_string(game.DiceRollNext) + " of " +
         std::to_string(DiceRollTotal(game)) + ".\n";
}

Reply UseRolls(Console& console, Arguments& args, DiceRollMode mode) {
  Game& game = console.Table;
  const std::string file = args.Rest("FILE");
  if (args.Failed()) return Refused(args);
  std::error_code none;
  if (mode == kPlayback && !std::filesystem::exists(file, none)) {
    return Refused("FILE " + Quoted(file) + " does not exist");
  }
  game.FileStatus = 1;
  if (!OpenDiceRollFile(game, file)) {
    if (game.FileStatus >= 0) return Done();
    return Refused("FILE " + Quoted(file) +
                   " cannot be opened: " + DescriptionIn(game.LastErrorText));
  }
  return Done({}, SetDiceRollMode(game, mode) ? RecorderInWords(game) : std::string());
}
Reply RecordRolls(Console& console, Arguments& args) {
  return UseRolls(console, args, kRecording);
}
Reply PlayBackRolls(Console& console, Arguments& args) {
  return UseRolls(console, args, kPlayback);
}
Reply Recorder(Console& console, Arguments& args) {
  if (!args.Take("off")) return Refused("recorder goes on with off.");
  args.End();
  if (args.Failed()) return Refused(args);
  SetDiceRollMode(console.Table, kRecorderOff);
  return Done();
}

std::string ReportNames() {
  return NamesOf(PrintCommands(), &PrintCommand::name);
}

// What the words before the file choose, in place of what the screen has selected.
void ChooseForReport(const PrintCommand& command, Game& game, Arguments& args) {
  if (command.name == "frequencies" && args.NumberIsNext()) {
    game.RollFreqsListIndex = static_cast<std::int32_t>(args.Number("N", 0, kFrequencyEntries - 1));
  }
  if (command.name != "results") return;
  BetResultsChoice choice = ReadBetResultsSelection(game.BetResultsSelection);
  if (args.Take("phantom")) {
    choice.phantom = true;
  } else if (args.Take("actual")) {
    choice.phantom = false;
  }
  if (args.Take("all")) choice.bets = kLayoutBets;
  game.BetResultsSelection = BetResultsSelectionOf(choice);
}

Reply Report(Console& console, Arguments& args) {
  Game& game = console.Table;
  const std::string name = args.Word("NAME");
  if (args.Failed()) return Refused(args.Error() + " It is one of " + ReportNames() + '.');
  ReportOrder order;
  order.command = FindPrintCommand(name);
  if (order.command == nullptr) {
    return Refused("NAME " + Quoted(name) + " is none of " + ReportNames() + '.');
  }
  const std::int32_t entry = game.RollFreqsListIndex;
  const std::string bets = game.BetResultsSelection;
  ChooseForReport(*order.command, game, args);
  order.file = args.Rest("FILE");
  std::string fault = args.Failed() ? args.Error() : FaultOfReportFile(order.file);
  order.confirm = SomebodyAnswers(console) ? Confirm::kAsk : Confirm::kAsked;
  if (fault.empty()) fault = PrintInto(console, order);
  game.RollFreqsListIndex = entry;
  game.BetResultsSelection = bets;
  if (!fault.empty()) return Refused(std::move(fault));

  const std::size_t pages = console.Surface.PagesPrinted;
  return Done(JsonOf(static_cast<std::int64_t>(pages)),
              pages == 0
                  ? "Nothing is printed.\n"
                  : std::to_string(pages) + (pages == 1 ? " page" : " pages") + " printed.\n");
}

Reply GamesReply(const Game& game) {
  GamesLogReader log;
  const std::optional<LogFault> fault = log.Open(game.GamesLogFile);
  const std::int32_t games = fault ? 0 : log.Count();
  return Done(JsonOf(games), CountText(games) + (games == 1 ? " game" : " games") + " in " +
                                 game.GamesLogFile + ".\n");
}
Reply LogAdd(Console& console) {
  Game& game = console.Table;
  if (!LogFinishedGame(game) && !console.Surface.Messages.empty()) {
    return Refused("The game is not logged: " + Quoted(game.GamesLogFile) + " cannot be written");
  }
  return GamesReply(game);
}
Reply Log(Console& console, Arguments& args) {
  Game& game = console.Table;
  const std::string file = args.Rest("FILE");
  if (args.Failed()) return Refused(args);
  if (EqualIgnoringCase(file, "add")) return LogAdd(console);
  std::error_code ignored;
  std::optional<LogFault> fault;
  if (!std::filesystem::exists(file, ignored)) fault = MakeEmptyLog(file);
  if (fault) game.LastErrorText = fault->error.At("Open Games File");
  if (fault || (!OpenGamesLog(game, file) && game.FileStatus < 0)) {
    return Refused("FILE " + Quoted(file) +
                   " cannot be used: " + DescriptionIn(game.LastErrorText));
  }
  return GamesReply(game);
}

constexpr Command kFileCommands[] = {
    {"open", "FILE", "opens a game file", Open},
    {"save", "FILE", "saves the game", Save},
    {"record", "FILE", "records the rolls in a Dice Roll File", RecordRolls},
    {"playback", "FILE", "plays the rolls of a Dice Roll File", PlayBackRolls},
    {"recorder", "off", "stops recording or playback", Recorder},
    {"prb", "open FILE|save FILE|on|off", "the probabilities of the dice", Prb, kPrbWords},
    {"log", "FILE|add", "takes a file as the Games Log, or logs the game in progress", Log},
    {"report", "NAME FILE.pdf", "prints a report into a file, .pdf, .svg or .txt", Report},
};

}  // namespace

CommandTable FileCommands() {
  return kFileCommands;
}

}  // namespace feltmaster
