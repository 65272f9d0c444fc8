#include "engine/sound.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>

namespace varkesh {
namespace {

// Whatever the machine's sound output, playing neither waits nor fails. The
// first sound starts the machine's sound output, which may take a while, so
// the wait is timed from the second: the King's capture lasts 0.6 s, longer
// than the bound, and would pass it only if playing waited for the end.
TEST(Sound, PlayingReturnsAtOnceAndMissingFilesAreIgnored) {
  SoundPlayer player;
  player.PlaySoundFile("/no/such/folder/sfx_click.wav");
  player.PlaySoundFile(VARKESH_PACK_DIR "/sfx_click.wav");
  QElapsedTimer timer;
  timer.start();
  player.PlaySoundFile(VARKESH_PACK_DIR "/sfx_captureking.wav");
  player.PlaySoundFile(VARKESH_PACK_DIR "/sfx_click.wav");  // cuts the first one off
  EXPECT_LT(timer.elapsed(), 500);
}

}  // namespace
}  // namespace varkesh
