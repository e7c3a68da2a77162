// The editor of Dice Roll Files with every call of the system failing: the file is the old one or
// the new one, whole, and what the command says is so.
#include <gtest/gtest.h>

#include <functional>

#include "files/roll_editor.h"
#include "files/roll_fixture.h"
#include "files/roll_recorder.h"
#include "support/failing_calls.h"

namespace feltmaster {
namespace {

class RollFaults : public RollFixture {
 protected:
  // `edit` gives whether it was done; `target` is the file that it changes.
  void CheckWholeOrOld(const std::string& target, const std::function<bool()>& edit) {
    std::string rolls(70'000, Byte(2, 3));
    for (std::size_t i = 0; i < rolls.size(); i += 7) rolls[i] = Byte(6, 1);
    const auto prepare = [&] {
      Write("a.rol", rolls);
      Write(target, target == "a.rol" ? rolls : "old");
      Write("b.rol", std::string(40'000, Byte(5, 5)));
      Write("data/copyfile.rll", std::string(9, Byte(4, 4)));
      Write("in.txt", "12 34 56");
      ASSERT_TRUE(OpenDiceRollFile(*game_, Path("a.rol")));
      game_->DiceRollNext = 30'010;
      game_->DiceRollSelectEnd = 35'000;
      surface_.messages.clear();
    };
    prepare();
    const std::string old_bytes = Bytes(target);
    ASSERT_TRUE(edit());
    const std::string new_bytes = Bytes(target);
    ASSERT_NE(old_bytes, new_bytes);
    bool done = false;
    const int calls = FailEachCall(
        prepare, [&] { done = edit(); },
        [&](const FailedCall& failed) {
          ASSERT_EQ(Bytes(target) == new_bytes, done) << failed.name;
          ASSERT_EQ(Bytes(target) == old_bytes, !done) << failed.name;
        });
    EXPECT_GE(calls, 6);
    EXPECT_TRUE(done);
  }
};

TEST_F(RollFaults, EditingLeavesTheFileWhole) {
  game_->InsertRolls = kInsert;
  CheckWholeOrOld("a.rol", [&] { return EnterRoll(*game_, {1, 1}); });
  CheckWholeOrOld("a.rol", [&] { return DeleteRolls(*game_); });
  CheckWholeOrOld("a.rol", [&] { return PasteRolls(*game_); });
  CheckWholeOrOld("a.rol",
                  [&] { return PasteRollsFrom(*game_, Path("b.rol")) == RollFileResult::kDone; });
  CheckWholeOrOld("a.rol",
                  [&] { return PasteRollText(*game_, Path("in.txt")) == RollFileResult::kDone; });
}

TEST_F(RollFaults, CopiesAreWholeOrOld) {
  CheckWholeOrOld("data/copyfile.rll", [&] { return CopyRolls(*game_); });
  CheckWholeOrOld("c.rol",
                  [&] { return CopyRollsTo(*game_, Path("c.rol")) == RollFileResult::kDone; });
  game_->PrintRollNumbers = 0;
  CheckWholeOrOld("c.txt",
                  [&] { return CopyRollsToText(*game_, Path("c.txt")) == RollFileResult::kDone; });
}

}  // namespace
}  // namespace feltmaster
