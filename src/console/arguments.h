#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/money.h"
#include "game/game.h"
#include "view/state_record.h"

namespace feltmaster {

// The arguments of one command, read from left to right. The first that cannot be read is kept as
// one sentence that names it, and all that follow give empty values; a command reads all of its
// arguments, asks Failed, and only then acts.
class Arguments {
 public:
  explicit Arguments(std::string_view text) : rest_(text) {}

  bool AtEnd();
  // Takes the next word if it is this one; case is ignored.
  bool Take(std::string_view word);
  bool NumberIsNext();  // the next word is of digits alone

  std::string Word(std::string_view what);
  // The rest of the line, as it is or without the double quotes around it.
  std::string RawRest(std::string_view what);
  std::string Rest(std::string_view what);
  std::int64_t Number(std::string_view what, std::int64_t low, std::int64_t high);
  // As typed into a money field: digits, one point with up to four decimals, a minus in front.
  MoneyAmount Amount(std::string_view what, bool may_be_negative = true);
  bool Switch(std::string_view what);  // true, false, -1 or 0
  double Real(std::string_view what);
  // 1 to 88 or 100 to 199, or a name in double quotes.
  int BetOrStack(const Game& game, std::string_view what = "BET");
  int LayoutBet(const Game& game, std::string_view what = "BET");  // 1 to 88
  // NAME or NAME(i,j) as it stands.
  std::string NameWord();
  // The same as a variable of the state record, and how many indices there are.
  const StateName* Name(const Game& game, StateIndex& index, int& indices);
  // The value of a variable of that type.
  StateValue Value(StateType type);

  void End();  // nothing may follow
  void Fail(std::string sentence);
  bool Failed() const { return !error_.empty(); }
  const std::string& Error() const { return error_; }

 private:
  std::string_view NextWord(bool& quoted);
  void SkipBlanks();

  std::string_view rest_;
  std::string error_;
};

// A text as it stands in an error sentence: in double quotes, and not too long.
std::string Quoted(std::string_view text);

// Nothing when the text is no amount, or none that fits.
bool ReadAmount(std::string_view text, MoneyAmount& amount);

}  // namespace feltmaster
