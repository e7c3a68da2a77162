#pragma once

#include <QObject>
#include <deque>
#include <map>
#include <memory>
#include <string>

class QSoundEffect;

namespace feltmaster {

// Plays wave files, silently where there is no sound device. The calls of the stick person (.stk)
// are spoken one after the other; any other sound is heard at once, over what plays.
class SoundPlayer {
 public:
  SoundPlayer();
  ~SoundPlayer();
  SoundPlayer(const SoundPlayer&) = delete;
  SoundPlayer& operator=(const SoundPlayer&) = delete;

  // `wait` lets events through until the sound has ended. A file that cannot be played is passed
  // over.
  void Play(const std::string& file, bool wait);
  void Loop(const std::string& file);
  // Everything falls silent, the calls that wait too.
  void Stop();
  void SetVolume(int percent);

 private:
  QSoundEffect* Effect(const std::string& file);
  void SpeakNext();

  QObject context_;  // of the connections
  std::map<std::string, std::unique_ptr<QSoundEffect>> effects_;
  std::deque<std::string> calls_;  // the first is being spoken
  double volume_ = 1;
  bool device_ = false;
};

}  // namespace feltmaster
