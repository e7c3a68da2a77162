#pragma once

#include <memory>
#include <string>

class QSettings;

namespace feltmaster {

// What belongs to the person at this desktop and not to a game: desktop.ini in the data folder.
class UserSettings {
 public:
  // Nothing is kept when the folder is empty.
  explicit UserSettings(const std::string& data_folder);
  ~UserSettings();

  // Hyper-Drive without its throttle.
  bool Unlimited() const { return unlimited_; }
  void SetUnlimited(bool unlimited);
  // Of the program's own sounds, 0 to 100.
  int Volume() const { return volume_; }
  void SetVolume(int volume);
  // Whether the start tells what the program is.
  bool Greets() const { return greets_; }
  void SetGreets(bool greets);

 private:
  void Keep(const char* name, int value);

  std::unique_ptr<QSettings> file_;
  bool unlimited_ = false;
  int volume_ = 80;
  bool greets_ = true;
};

}  // namespace feltmaster
