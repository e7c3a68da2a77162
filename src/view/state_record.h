#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "base/money.h"
#include "game/game.h"

namespace feltmaster {

// Every variable of a game by its name: what a person can read and write without knowing how the
// record is laid out. Tables keep the lowest index they have in the program.

enum class StateType { kSwitch, kWhole, kMoney, kReal, kText, kFlag };

// The alternatives in the order of StateType.
using StateValue = std::variant<bool, std::int64_t, MoneyAmount, double, std::string, ScriptFlag>;

inline constexpr int kMaxStateRank = 3;
using StateIndex = std::array<int, kMaxStateRank>;

struct StateBounds {
  int first = 0;
  int last = 0;
};

struct StateName {
  std::string_view name;
  StateType type = StateType::kWhole;
  int rank = 0;  // how many indices an element has; 0 for a single value
  std::array<StateBounds, kMaxStateRank> bounds{};
  // Of a table that grows: its length, in place of the last index of the first bounds.
  int (*length)(const Game& game) = nullptr;
  bool setting = false;  // survives a new game and is the player's to choose

  // The index is in bounds. Reading settles what is computed when it is asked for.
  StateValue (*read)(Game& game, const StateIndex& index) = nullptr;
  // Writes without any check of the rules. False when the variable cannot hold the value: it would
  // lead an index outside its table, or there is no such state. Null when nobody may write.
  bool (*write)(Game& game, const StateIndex& index, const StateValue& value) = nullptr;
};

std::span<const StateName> StateRecord();
// Case is ignored. Null when there is no such name.
const StateName* FindStateName(std::string_view name);

// The bounds of an index of a table, counted from 0; last is below first when the table is empty.
StateBounds BoundsOf(const Game& game, const StateName& entry, int index);

}  // namespace feltmaster
