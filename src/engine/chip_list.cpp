#include "engine/chip_list.h"

#include <algorithm>

#include "engine/table_effects.h"

namespace feltmaster {

namespace {

void RemoveChips(Game& game, int slot) {
  std::erase_if(game.ChipList, [slot](const TableChip& chip) { return chip.bet == slot; });
}

// At the end of the list; a stack for which there is no room is shown by the marker.
void LayStack(Game& game, int slot) {
  const std::optional<Pixel> place = PlaceOf(game, slot);
  if (!place) return;
  ChipsOfStack chips = ChipsFor(game, game.BetAmount[slot]);
  const std::size_t room = kMaxTableChips - std::min(game.ChipList.size(), kMaxTableChips);
  if (static_cast<std::size_t>(chips.count) > room) chips = {room > 0 ? 1 : 0, {kMarkerChip}};
  for (int i = 0; i < chips.count; ++i) {
    game.ChipList.push_back(
        {slot, chips.chip[static_cast<std::size_t>(i)], place->x + kChipStep * i, place->y});
  }
}

}  // namespace

ChipsOfStack ChipsFor(const Game& game, MoneyAmount amount) {
  constexpr ChipsOfStack kMarker = {1, {kMarkerChip}};
  ChipsOfStack chips;
  MoneyAmount rest = amount;
  for (std::int32_t chip = kChipCount; chip >= 1; --chip) {
    const MoneyAmount denomination = game.BetAmount[kFirstChip - 1 + chip];
    if (denomination.Raw() <= 0) continue;
    while (rest >= denomination) {
      if (chips.count == kMostChipsOfStack) return kMarker;
      chips.chip[static_cast<std::size_t>(chips.count++)] = chip;
      rest -= denomination;
    }
  }
  return rest.Raw() == 0 ? chips : kMarker;
}

int PileOfStack(const Game& game, int stack) {
  for (int pile = 1; pile <= kPileCount; ++pile) {
    if (game.StackSlots[static_cast<std::size_t>(pile)] == stack) return pile;
  }
  return 0;
}

std::optional<Pixel> PlaceOf(const Game& game, int slot) {
  if (IsLayoutBet(slot)) return kBetPlace[static_cast<std::size_t>(slot)];
  const int pile = PileOfStack(game, slot);
  if (pile == 0) return std::nullopt;
  return kPilePlace[static_cast<std::size_t>(pile)];
}

void LayChipsAnew(Game& game, int slot) {
  RemoveChips(game, slot);
  LayStack(game, slot);
  ArrangeChips(game);
  ShowBets(game);
}

void RebuildAllChips(Game& game) {
  if (game.HyperDriveActive) return;
  game.ChipList.clear();
  const BetSet bets = game.BetAmount.Standing() & kLayoutBets;
  bets.ForEach([&game](int bet) { LayStack(game, bet); });
  game.BetAmount.Stacked().ForEach([&game](int stack) { LayStack(game, kFirstStack + stack); });
  ShowBets(game);
}

void AddChip(Game& game, int bet, Pixel at) {
  if (game.HyperDriveActive) return;
  if (game.ChipList.size() >= kMaxTableChips) {
    RebuildChips(game, bet);
    return;
  }
  game.ChipList.push_back({bet, game.ChipColor, at.x, at.y});
  if (game.ChipList.size() > kFullChipList) game.AutoArrangeChips = true;
  ShowBets(game);
}

void ArrangeChips(Game& game) {
  RemoveChips(game, 0);
  std::ranges::stable_sort(game.ChipList, {}, &TableChip::bet);
}

}  // namespace feltmaster
