#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "game/game.h"

namespace feltmaster {

// The checks of leaving the Configure screen: the limits, the denominations and the payoffs. The
// first fault shows its message, sets ConfigureTab and gives false; on true the effects of leaving
// the screen have taken place (bankroll extremes, common denominator of the Field, bets
// readjusted).
bool CheckLimits(Game& game);
// The same for a screen that holds a rate that was typed and not yet taken, and that wants to know
// which setting is at fault.
struct LeavingConfigure {
  std::optional<std::string> typed_rate;
  std::string fault;  // "BetAmount(96)", "FieldPayTable(3,1)"
};
bool CheckLimits(Game& game, LeavingConfigure& screen);

// Units of the simulated roll rate, by index: rolls per hour, minute, second; hours, minutes,
// seconds per roll. The entry is shown as "<.0001" where four decimals show nothing. A rate of zero
// or beyond the limit of its unit is refused with a message.
inline constexpr int kRateUnits = 6;
inline constexpr std::array<std::string_view, kRateUnits> kRateUnitTexts = {
    "Rolls / hr", "Rolls / min", "Rolls / sec", "Hrs / roll", "Mins / roll", "Secs / roll"};
std::string_view RateUnitText(int unit);  // one out of range is the first
// The rate that an entry stands for; nothing when it would be refused.
std::optional<MoneyAmount> RollsPerHourOf(std::string_view entry, int unit);
bool SetRollsPerHour(Game& game, std::string_view entry, int unit);
std::string ShowRollsPerHour(const Game& game, int unit);

// What a number field makes of a key ('\b' is Backspace): the text as it stands with the selection
// removed, and the place of the cursor in it. Gives the new text, or the old one when the key is
// dropped. max_length 0 means no limit but that of 14 digits in front of the point.
struct FieldKey {
  std::string text;
  std::size_t cursor = 0;
};
FieldKey NumericKeyFilter(const FieldKey& field, char key, int decimals, bool allow_negative,
                          std::size_t max_length = 0);

// What the field of a setting lets through, by the name of the setting. Of one without a field, or
// one that does not exist, nothing.
struct NumberRule {
  int decimals = 0;
  bool negative = false;
};
std::optional<NumberRule> NumberRuleOf(std::string_view name);
// Whether every key of a text gets through, typed from left to right.
bool KeysPass(std::string_view text, const NumberRule& rule);

// The vig settings; a change that the bankroll does not carry is refused with a message and undone.
enum class VigSetting { kBuyRounding, kLayRounding, kBuyAllBets, kLayAllBets };
void ChangeVigSetting(Game& game, VigSetting setting, std::int32_t value);

// The box " Allow negative bankroll amounts"; unchecking it can be refused with a message.
void SetAllowNegBankroll(Game& game, bool allow);

void SetDefaultDenominations(Game& game);
void RestoreDefaultDenominations(Game& game);  // asks first
void RestoreDefaultPayoffs(Game& game);        // asks first

// Seeds the selected generator, from the clock or as the player answers, and says so.
void SeedGenerator(Game& game);

// Writes a setting by its name as its control on the Configure or Auto-Play screen does, with that
// control's checks and effects. The value is text as typed: true or false for a box, the index for
// a list, a number for a field. As on the screens the vig rates are percentages, RollsPerHour is in
// the unit chosen by RollsPerTimeUnit, and PayTable(bet,1) is the number shown. Gives the reason
// when the name is no setting or the value is not one that the control can hold; nothing has
// changed then. A refusal by the house is no such reason: it shows as a message.
std::string Configure(Game& game, std::string_view name, std::string_view value);

}  // namespace feltmaster
