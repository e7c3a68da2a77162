#include "desktop/sound_player.h"

#include <QAudioDevice>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QMediaDevices>
#include <QSoundEffect>
#include <QTimer>
#include <QUrl>

#include "base/text.h"
#include "desktop/qt_text.h"

namespace feltmaster {

namespace {

constexpr std::size_t kKeptClips = 64;  // decoded clips stay for the next time
constexpr int kLongestWait = 30'000;    // milliseconds; a device may never say that it is done

bool IsStickCall(const std::string& file) {
  return Lower(file).ends_with(".stk");
}

}  // namespace

SoundPlayer::SoundPlayer() : device_(!QMediaDevices::defaultAudioOutput().isNull()) {}

SoundPlayer::~SoundPlayer() = default;

QSoundEffect* SoundPlayer::Effect(const std::string& file) {
  std::unique_ptr<QSoundEffect>& effect = effects_[file];
  if (effect) return effect.get();
  if (effects_.size() > kKeptClips) {
    std::erase_if(effects_, [&](const auto& kept) {
      return kept.first != file && kept.second && !kept.second->isPlaying();
    });
  }
  effect = std::make_unique<QSoundEffect>();
  effect->setVolume(static_cast<float>(volume_));
  effect->setSource(QUrl::fromLocalFile(ToQt(file)));
  const bool call = IsStickCall(file);
  QSoundEffect* made = effect.get();
  const auto next = [this, made, file, call] {
    const bool ended = !made->isPlaying() || made->status() == QSoundEffect::Error;
    if (call && ended && !calls_.empty() && calls_.front() == file) {
      calls_.pop_front();
      // Not from inside the signal: the effect that gave it may be asked to play again.
      QTimer::singleShot(0, &context_, [this] { SpeakNext(); });
    }
  };
  QObject::connect(made, &QSoundEffect::playingChanged, &context_, next);
  QObject::connect(made, &QSoundEffect::statusChanged, &context_, [made, next] {
    if (made->status() == QSoundEffect::Error) next();
  });
  return made;
}

void SoundPlayer::SpeakNext() {
  while (!calls_.empty()) {
    QSoundEffect* effect = Effect(calls_.front());
    if (effect->status() != QSoundEffect::Error) {
      effect->play();
      return;
    }
    calls_.pop_front();
  }
}

void SoundPlayer::Play(const std::string& file, bool wait) {
  if (file.empty()) {
    Stop();
    return;
  }
  if (!device_) return;
  QSoundEffect* effect = Effect(file);
  if (effect->status() == QSoundEffect::Error) return;
  if (IsStickCall(file)) {
    calls_.push_back(file);
    if (calls_.size() == 1) SpeakNext();
  } else {
    effect->setLoopCount(1);
    effect->play();
  }
  if (!wait) return;
  QElapsedTimer waited;
  waited.start();
  QEventLoop until_heard;
  QTimer look;
  QObject::connect(&look, &QTimer::timeout, [&] {
    const bool busy = effect->isPlaying() || effect->status() == QSoundEffect::Loading;
    if (!busy || waited.elapsed() > kLongestWait) until_heard.quit();
  });
  look.start(20);
  until_heard.exec();
}

void SoundPlayer::Loop(const std::string& file) {
  if (!device_ || file.empty()) return;
  QSoundEffect* effect = Effect(file);
  effect->setLoopCount(QSoundEffect::Infinite);
  effect->play();
}

void SoundPlayer::Stop() {
  calls_.clear();
  for (auto& [file, effect] : effects_) {
    if (effect) effect->stop();
  }
}

void SoundPlayer::SetVolume(int percent) {
  volume_ = percent / 100.0;
  for (auto& [file, effect] : effects_) {
    if (effect) effect->setVolume(static_cast<float>(volume_));
  }
}

}  // namespace feltmaster
