#include "engine/sound.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>

namespace varkesh {
namespace {

// Whatever the machine's sound output, playing neither waits nor fails.
TEST(Sound, PlayingReturnsAtOnceAndMissingFilesAreIgnored) {
  SoundPlayer player;
  QElapsedTimer timer;
  timer.start();
  player.PlaySoundFile("/no/such/folder/sfx_click.wav");
  player.PlaySoundFile(VARKESH_PACK_DIR "/sfx_captureking.wav");
  player.PlaySoundFile(VARKESH_PACK_DIR "/sfx_click.wav");  // cuts the first one off
  EXPECT_LT(timer.elapsed(), 500);
}

}  // namespace
}  // namespace varkesh
