#include "table/scene.h"

#include "base/number_format.h"
#include "engine/chip_list.h"
#include "engine/entry_box.h"

namespace feltmaster {

namespace {

constexpr std::array<std::string_view, 5> kPrompts = {
    "", "Click on bet to call ON", "Click on bet to call OFF", "Click on bet to buy",
    "Click on bet to remove"};

class SceneBuilder {
 public:
  SceneBuilder(const Game& game, const TableView& view) : game_(game), view_(view) {}

  Scene Build() {
    Add(SpriteKind::kPuck, PuckPlace(game_.Point), game_.Point);
    if (game_.DisplayBetAmounts) {
      AddFigures();
    } else {
      AddChips();
    }
    AddPileFigures();
    AddMarks();
    for (const DieOnTable& die : view_.dice) {
      Sprite& sprite = Add(SpriteKind::kDie, die.at, die.face);
      sprite.turn = die.turn;
      sprite.height = die.height;
    }
    Add(SpriteKind::kTool, {kSelectedToolBox.left, kSelectedToolBox.top}, game_.ChipColor);
    if (game_.DiceRollFileMode != kRecorderOff) {
      Add(SpriteKind::kRecorder, {kRecorderBox.left, kRecorderBox.top}, game_.DiceRollFileMode);
    }
    AddPrompt();
    AddStatusLines();
    if (EntryBoxOpen(game_) && !view_.entry_box_is_a_window) {
      if (const auto place = PlaceOf(game_, game_.EntryBoxBet)) {
        Add(SpriteKind::kEntryBox, *place).text.push_back({TextInEntryBox(game_)});
      }
    }
    return std::move(scene_);
  }

 private:
  Sprite& Add(SpriteKind kind, Pixel at, int value = 0) {
    return scene_.emplace_back(Sprite{kind, at, value});
  }

  // C and E stands beside the panel and is never hidden by it.
  bool Shown(int slot) const {
    return IsLayoutBet(slot) ? !NotShown(game_, slot) : PileOfStack(game_, slot) != 0;
  }

  void AddChips() {
    for (const TableChip& chip : game_.ChipList) {
      if (chip.bet != 0 && Shown(chip.bet)) {
        Add(SpriteKind::kChip, {chip.x, chip.y}, chip.chip);
      }
    }
  }

  void AddFigures() {
    (game_.BetAmount.Standing() & kLayoutBets).ForEach([this](int bet) {
      if (!Shown(bet)) return;
      Add(SpriteKind::kFigures, NumberPlace(bet))
          .text.push_back({FormatMoney(game_.BetAmount[bet]), StatusColor::kBlue});
    });
  }

  // A negative Chip-Stack has no chips; with bets as numbers the others are numbers too.
  void AddPileFigures() {
    for (int pile = 1; pile <= kPileCount; ++pile) {
      const auto index = static_cast<std::size_t>(pile);
      const MoneyAmount amount = game_.BetAmount[game_.StackSlots[index]];
      if (amount.Raw() < 0 || (game_.DisplayBetAmounts && amount.Raw() > 0)) {
        Add(SpriteKind::kPileFigures, kPilePlace[index])
            .text.push_back(
                {FormatMoney(amount), amount.Raw() < 0 ? StatusColor::kRed : StatusColor::kBlue});
      }
    }
  }

  void AddMarks() {
    (game_.BetAmount.Standing() & kLayoutBets).ForEach([this](int bet) {
      if (IsBuy(bet)) Add(SpriteKind::kMark, VigMarkPlace(bet), kMarkBuy);
      if (IsLay(bet)) Add(SpriteKind::kMark, VigMarkPlace(bet), kMarkLay);
    });
    for (int bet = 1; bet <= kBetCount; ++bet) {
      const int state = game_.BetState[bet];
      if ((state != kCalledOn && state != kCalledOff) || HiddenByPanel(game_, bet)) continue;
      Add(SpriteKind::kMark, CallMarkPlace(bet), state == kCalledOn ? kMarkOn : kMarkOff);
    }
  }

  void AddPrompt() {
    const std::string_view prompt = PromptOf(game_.CallBetMode);
    const std::string text = prompt.empty() ? view_.banner : std::string(prompt);
    if (!text.empty()) Add(SpriteKind::kPrompt, kPromptTop).text.push_back({text});
  }

  void AddStatusLines() {
    const StatusDisplay display = StatusLines(game_, BetOfStatus(game_));
    for (std::size_t line = 0; line < display.left.size(); ++line) {
      const int top = kStatusBox.top + static_cast<int>(line) * kStatusLineHeight;
      Add(SpriteKind::kStatusLine, {kStatusLeftColumn, top}).text = display.left[line];
      Add(SpriteKind::kStatusLine, {kStatusRightColumn, top}).text = display.right[line];
    }
  }

  const Game& game_;
  const TableView& view_;
  Scene scene_;
};

}  // namespace

std::array<DieOnTable, 2> DiceAtRest(const Game& game) {
  return {{{kDiceRest[0], game.Die1}, {kDiceRest[1], game.Die2}}};
}

std::string_view PromptOf(int call_bet_mode) {
  const bool known = call_bet_mode > 0 && call_bet_mode < static_cast<int>(kPrompts.size());
  return kPrompts[known ? static_cast<std::size_t>(call_bet_mode) : 0];
}

Scene SceneOf(const Game& game, const TableView& view) {
  return SceneBuilder(game, view).Build();
}

}  // namespace feltmaster
