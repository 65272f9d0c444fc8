#include "engine/sound.h"

#include <QAudioDevice>
#include <QFileInfo>
#include <QMediaDevices>
#include <QSoundEffect>
#include <QUrl>

namespace varkesh {

SoundPlayer::SoundPlayer() {
  // Without an output device the backend has nothing to open; asking it
  // anyway only costs time and warnings.
  if (!QMediaDevices::defaultAudioOutput().isNull()) effect_ = std::make_unique<QSoundEffect>();
}

SoundPlayer::~SoundPlayer() = default;

void SoundPlayer::PlaySoundFile(const std::string& path) {
  QString file = QString::fromStdString(path);
  if (!effect_ || !QFileInfo(file).isFile()) return;
  effect_->stop();
  effect_->setSource(QUrl::fromLocalFile(file));
  effect_->play();
}

}  // namespace varkesh
