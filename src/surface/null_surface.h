#pragma once

#include <string>

#include "surface/surface.h"

namespace feltmaster {

// A table with nobody at it: silent, minimised, and it answers as nobody would. Its clock moves
// on by one at each reading, and its plain generator repeats itself from the seed given.
class NullSurface : public Surface {
 public:
  explicit NullSurface(std::uint64_t seed = 1) : plain_state_(seed) {}

  void LetEventsThrough() override {}
  void Wait(double, const bool&) override {}
  void Throttle(int) override {}
  std::int32_t MillisecondClock() override {
    const std::int32_t now = clock_;
    clock_ = static_cast<std::int32_t>(static_cast<std::uint32_t>(clock_) + 1);
    return now;
  }
  double SecondsSinceMidnight() override { return 0; }
  CalendarTime Now() override { return {}; }
  double PlainUniform() override;
  bool TableMinimised() override { return true; }
  MessageReply ShowMessage(const MessageRequest&) override { return {}; }
  void ShowNotice(std::string_view, std::string_view) override {}
  SettleReply ShowSettle(const SettleRequest& request) override;
  bool ShowStep(const StepRequest&) override { return true; }
  std::string AskFile(const FileRequest&) override { return {}; }
  void PlaySound(std::string_view, bool) override {}
  int Volume() override { return 0; }
  void SetVolume(int) override {}
  void TableChanged(std::uint32_t) override {}
  void ShowBanner(std::string_view) override {}
  void AnimateDice() override {}
  void ShowerOfChips() override {}
  void RefreshOpenScreens() override {}
  bool HasPrinter() override { return false; }
  std::optional<FileError> Print(const Document&) override;
  void SetClipboard(std::string_view) override {}
  std::string Clipboard() override { return {}; }
  void OpenHelp(std::int32_t) override {}

  void SetClock(std::int32_t milliseconds) { clock_ = milliseconds; }

 protected:
  std::int32_t clock_ = 1;

 private:
  std::uint64_t plain_state_;
};

}  // namespace feltmaster
