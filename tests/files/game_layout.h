#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "view/state_record.h"

namespace game_layout {

// The game file as its description has it, place by place, without a look at the program's own
// table: which variable of the state record stands where, in what form, and between which bounds
// it is kept as it is.
enum class Form {
  kAmount,   // 8 bytes, ten-thousandths
  kWhole,    // 8 bytes, a number times 10,000
  kSwitch,   // 8 bytes, -10,000 or 0
  kLong,     // 4 bytes
  kInteger,  // 2 bytes
  kMark,     // 2 bytes, -1 or 0
  kText,     // 80 bytes, blanks behind
};

struct Element {
  std::string name;
  feltmaster::StateIndex index{};
  Form form = Form::kAmount;
  std::size_t offset = 0;  // in the file
  std::int64_t low = 0;
  std::int64_t high = 0;
};
std::vector<Element> Elements();

// Numbers in the bytes of a file, least significant byte first.
std::int64_t NumberAt(const std::string& bytes, std::size_t offset, int size);
void PutNumber(std::string& bytes, std::size_t offset, int size, std::int64_t value);
int SizeOf(Form form);

// The form in which a value of the state record stands in the file, and the other way.
std::int64_t Stored(Form form, const feltmaster::StateValue& value);
feltmaster::StateValue Meaning(Form form, feltmaster::StateType type, std::int64_t stored);

}  // namespace game_layout
