#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "base/money.h"

namespace feltmaster {

// Bits of NotifyFlags: which notices the player wants to see.
enum Notice : std::int32_t {
  kNoticeActions = 1,
  kNoticeLimits = 2,
  kNoticeCharges = 4,
  kNoticeScript = 8,
  kNoticeScriptHyper = 16,
};

enum DiceActions : std::int32_t {
  kDiceStationary = 0,
  kDiceReturnAfterThrown = 1,
  kDiceReturnOnDecision = 2,
  kDiceRemain = 3,
};

// What the player likes, and what the screens remember.
struct Preferences {
  std::int32_t ConfigureTab = 0;
  std::int32_t ChipColor = 1;  // the selected tool
  std::int32_t ChipPicture = 1;
  std::int32_t DicePicture = 1;
  std::int32_t DiceAction = kDiceReturnAfterThrown;
  // 0xBBGGRR: felt, lines, four kinds of text, dice, pips.
  std::array<std::int32_t, 8> TableColors = {0x4A781B, 0xFFFFFF, 0x77BBFF, 0xFFFFFF,
                                             0xFFFFFF, 0xFFFFFF, 0x0000FF, 0xFFFFFF};
  std::int32_t TextureRow = 8;
  bool UseCentsSymbol = true;
  std::int32_t StickPersonChoice = 0;
  std::int32_t DiceSoundChoice = 0;
  std::int32_t ChipSoundChoice = 0;
  std::int32_t WinSoundChoice = 0;
  std::array<std::string, 19> StickCallFiles;  // 1 to 18
  std::vector<std::string> StickPersonList, DiceSoundList, WinSoundList, ChipSoundList;
  std::vector<std::string> SoundFiles;  // the paths of the clips found
  bool AutoBetSoundOff = false;
  bool AllSoundOff = false;
  std::int32_t NotifyFlags = kNoticeActions | kNoticeLimits | kNoticeCharges | kNoticeScript;
  std::int32_t PrintColorWin = 9;
  std::int32_t PrintColorLoss = 12;
  std::int32_t PrintColorOther = 13;
  bool SnapMouse = true;
  std::int32_t RollsPerTimeUnit = 0;  // the unit in which the simulated rate is shown, 0 to 5

  bool IncludeZeroOutcomes = false;
  bool ShowMiscData = false;
  std::int32_t AdvantageScroll = 1;
  std::int32_t PayoffsScroll = 1;
  std::int32_t PayoffsCell = 0;  // where the editor of the payoffs stood; kept in no file

  // Words 1 to 3, a bit a bet: 1 to 31, 32 to 62, 63 to 88. All count but 13 to 18, 25 to 30, 44
  // and 47.
  std::array<std::int32_t, 4> CompBetMask = {0, static_cast<std::int32_t>(0xC0FC0FFF),
                                             static_cast<std::int32_t>(0xFFFF6FFF),
                                             static_cast<std::int32_t>(0xFFFFFFFF)};
  std::int32_t BaseComps = 0;
  bool CompsUseTrueProbs = true;
  MoneyAmount CompRate = MoneyAmount(30);  // percent

  std::int32_t RollTotalsDisplay = 0;
  std::int32_t RollTotalsBackColor = 11;
  std::int32_t RollTotalsGraphColor = 0;
  std::int32_t RollTotalsHScroll = 0;
  std::int32_t RollTotalsVScroll = 0;
  bool ShowSkewedPercent = false;
  std::int32_t RollFreqsListIndex = 0;
  std::int32_t GamesViewChoice = 7;     // bits 0 to 2 what is included, bit 3 the histogram
  std::int32_t GamesDisplayChoice = 0;  // the variable, 0 to 31
  // The screen's memory from one opening to the next, kept in no file; see
  // view/bet_results_table.h.
  std::string BetResultsSelection;

  bool KeyInBetAmounts = false;
  bool DisplayBetAmounts = false;
  bool RollYourOwnNumbers = false;
  bool ShowHopBets = false;
  bool ShowLineNumbers = false;
  bool StackDisplayZero = false;
  std::int32_t StackListScroll = 0;
  std::int32_t RyonPanelState = 4;
  std::int32_t RyonButtonColor = 0;
};

}  // namespace feltmaster
