#pragma once

#include "autobet/compiled_script.h"
#include "game/game.h"

namespace feltmaster {

struct ConditionAnswer {
  bool is_true = false;
  bool is_new = false;  // it has become so by this roll
};

// Asks the question of a condition line. block_kind is the kind of the line that opened the block:
// it decides how far some comparisons of two ranges look.
ConditionAnswer EvaluateCondition(Game& game, const CompiledLine& line, std::int32_t block_kind);

}  // namespace feltmaster
