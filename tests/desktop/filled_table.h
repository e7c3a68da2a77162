#pragma once

#include "desktop/at_the_table.h"

namespace feltmaster {

// A table at which every screen has something to show: rolls, bets won and lost, a script with a
// flag, Hot-Keys, Chip-Stacks, a Dice Roll File and a log of games.
class FilledTable : public AtTheTable {
 protected:
  // A change of its own for every file, script and list, whatever was there before.
  void Fill();
  // The modal screens come up without their modality, so that the test goes on.
  ScreenWindow& Open(WindowCommand which);
  static void Trigger(QWidget& screen, const char* entry);
  std::string Path(const char* name) const { return (folder_ / name).string(); }
  std::string Bytes(const char* name) const;

  ~FilledTable() override;

 private:
  std::vector<QPointer<ScreenWindow>> modal_;
};

}  // namespace feltmaster
