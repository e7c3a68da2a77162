#pragma once

#include <cstdint>
#include <string>

#include "config/configure.h"
#include "table/layout.h"

// The player's hand at the table: what a press, a key or a movement of the pointer does, with the
// guards of automation/table_guards.h in front. Every front end turns its events into these calls
// and nothing else. All of them may raise dialogs, and a press may roll, so a call can last as long
// as a run of rolls; while it lasts, the surface hands on further presses and keys from where it
// lets events through.
namespace feltmaster {

// ---- The pointer ------------------------------------------------------------------------------

// The pointer stands on a pixel of the picture, or has left it.
void MovePointer(Game& game, Pixel at);
void PointerLeaves(Game& game);

struct Modifiers {
  bool shift = false;
  bool ctrl = false;
  bool alt = false;
};

enum class MouseButton : std::uint8_t { kLeft, kRight };

// Left: bets with the selected tool (Ctrl takes off, Shift takes all down, Alt lifts the bet for a
// drag), selects a tool, carries out a command that waits for a bet. Right: rolls, and during
// Auto-Roll pauses and resumes.
void PressTable(Game& game, MouseButton button, Pixel at, Modifiers held = {});
// The left button is let go: what was lifted drops here.
void ReleaseTable(Game& game, Pixel at);

// What the pointer looks like, by what a press would do.
enum class PointerShape : std::uint8_t {
  kArrow,
  kBusy,      // a script or Hyper-Drive runs
  kHand,      // selects a tool, or presses a button of the table
  kText,      // moves the entry box
  kChip,      // puts the chip of `tool`
  kPile,      // puts the amount of the Chip-Stack of `tool`
  kTakeChip,  // takes the amount of `tool` off
  kTakeAll,   // takes the bet down
  kBuyIt,
  kTurnOn,
  kTurnOff,
  kLifted,  // drags a bet
};
struct PointerImage {
  PointerShape shape = PointerShape::kArrow;
  int tool = kNoTool;
  constexpr bool operator==(const PointerImage&) const = default;
};
PointerImage PointerAt(const Game& game, Pixel at, Modifiers held = {});

// ---- Keys -------------------------------------------------------------------------------------

enum class Key : std::uint8_t { kLeft, kRight, kUp, kDown, kEnter, kEscape, kCharacter };
struct KeyPress {
  Key key = Key::kCharacter;
  char character = '\0';  // of kCharacter
  bool ctrl = false;
};
// The arrow keys walk the entry box, Enter commits it, characters are typed into it; Ctrl and a
// character runs a Hot-Key. False when the table has no use for the key.
bool PressKey(Game& game, KeyPress key);

// What a key makes of the text in the entry box, for a front end whose box edits its own text; the
// text goes back by EditEntryBox.
FieldKey FilterEntryKey(const Game& game, const FieldKey& field, char key);

}  // namespace feltmaster
