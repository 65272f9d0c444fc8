// Plays the game's short wave sounds without waiting for them.
#pragma once

#include <memory>
#include <string>

class QSoundEffect;

namespace varkesh {

class SoundPlayer {
 public:
  SoundPlayer();
  ~SoundPlayer();
  SoundPlayer(const SoundPlayer&) = delete;
  SoundPlayer& operator=(const SoundPlayer&) = delete;

  // Starts the file and returns at once, cutting off the sound still playing.
  // A missing file, or a machine without sound output, plays nothing.
  void PlaySoundFile(const std::string& path);

 private:
  std::unique_ptr<QSoundEffect> effect_;
};

}  // namespace varkesh
