#include "desktop/user_settings.h"

#include <QSettings>
#include <algorithm>

#include "desktop/qt_text.h"

namespace feltmaster {

namespace {
constexpr const char* kUnlimited = "unlimited";
constexpr const char* kVolume = "volume";
constexpr const char* kGreets = "about_at_start";
}  // namespace

UserSettings::UserSettings(const std::string& data_folder) {
  if (data_folder.empty()) return;
  file_ = std::make_unique<QSettings>(ToQt(data_folder + "desktop.ini"), QSettings::IniFormat);
  unlimited_ = file_->value(kUnlimited, 0).toInt() != 0;
  greets_ = file_->value(kGreets, 1).toInt() != 0;
  volume_ = std::clamp(file_->value(kVolume, volume_).toInt(), 0, 100);
}

UserSettings::~UserSettings() = default;

void UserSettings::Keep(const char* name, int value) {
  if (file_) file_->setValue(name, value);
}

void UserSettings::SetUnlimited(bool unlimited) {
  unlimited_ = unlimited;
  Keep(kUnlimited, unlimited ? 1 : 0);
}

void UserSettings::SetVolume(int volume) {
  volume_ = std::clamp(volume, 0, 100);
  Keep(kVolume, volume_);
}

void UserSettings::SetGreets(bool greets) {
  greets_ = greets;
  Keep(kGreets, greets ? 1 : 0);
}

}  // namespace feltmaster
