#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <random>

#include "desktop/screens.h"
#include "desktop/sound_player.h"
#include "desktop/user_settings.h"
#include "surface/surface.h"

namespace feltmaster {

class HelpWindow;
class TableCanvas;

// The machine with a person at its screen.
class DesktopSurface : public Surface {
 public:
  // The settings are those of the data folder; empty keeps none. The guide may be missing.
  DesktopSurface(Game& game, const std::string& data_folder, std::string guide_folder = {});
  ~DesktopSurface() override;

  // The table's window and the picture in it, and the screens. Until they are set nothing is shown.
  void SetWindows(QWidget* table, TableCanvas* canvas, Screens* screens);

  UserSettings& Settings() { return settings_; }
  const std::string& GuideFolder() const { return guide_folder_; }

  // Whether the logic is in the middle of something and lets events through: a chain of rolls or a
  // script that goes on when they are done.
  bool LogicGoesOn() const { return letting_through_ > 0; }

  void LetEventsThrough() override;
  void Wait(double seconds, const bool& goes_on) override;
  void Throttle(int setting) override;
  std::int32_t MillisecondClock() override;
  double SecondsSinceMidnight() override;
  CalendarTime Now() override;
  double PlainUniform() override;
  bool TableMinimised() override;
  MessageReply ShowMessage(const MessageRequest& request) override;
  void ShowNotice(std::string_view title, std::string_view text) override;
  SettleReply ShowSettle(const SettleRequest& request) override;
  bool ShowStep(const StepRequest& request) override;
  std::string AskFile(const FileRequest& request) override;
  void PlaySound(std::string_view file, bool wait) override;
  int Volume() override { return settings_.Volume(); }
  void SetVolume(int volume) override;
  void TableChanged(std::uint32_t what) override;
  void ShowBanner(std::string_view text) override;
  void AnimateDice() override;
  void ShowerOfChips() override;
  void RefreshOpenScreens() override;
  bool HasPrinter() override { return true; }  // if need be, a file
  std::optional<FileError> Print(const Document& document) override;
  void SetClipboard(std::string_view text) override;
  std::string Clipboard() override;
  void OpenHelp(std::int32_t topic) override;
  // The guide with the cursor in its search box.
  void SearchHelp();

 private:
  // The window over which a dialog belongs.
  QWidget* DialogParent() const;
  // Before a dialog: the picture behind it shows how things stand.
  QWidget* ReadyForDialog();
  void RefreshScreensNow();
  // Null while there is no table.
  HelpWindow* OpenGuide();
  // Later when drawing them has taken long: the rolls of Hyper-Drive go first.
  void RefreshScreensRested();

  Game& game_;
  UserSettings settings_;
  std::string guide_folder_;
  SoundPlayer sounds_;
  QWidget* table_ = nullptr;
  TableCanvas* canvas_ = nullptr;
  Screens* screens_ = nullptr;
  std::mt19937_64 plain_;

  int letting_through_ = 0;      // how deep
  QElapsedTimer since_events_;   // events were let through
  int rolls_since_look_ = 0;     // at the clock, in Hyper-Drive without a throttle
  QElapsedTimer since_screens_;  // the open screens were refreshed
  qint64 drawing_ = 0;           // milliseconds for events since then, most of them for drawing
  QTimer stale_screens_;
};

}  // namespace feltmaster
