// The sound effects, synthesized: soft bell-like tones written as 16-bit
// mono wave files. Every note fades in and out, so nothing clicks.
#include <QFile>
#include <QtEndian>
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

#include "pack_entries.h"

namespace {

constexpr int kSampleRate = 22050;

struct Note {
  double start;      // seconds
  double length;     // seconds
  double frequency;  // hertz
  double loudness;   // 0 to 1; the loudest note sets the level of the sound
};

// A tone with a little of its octave and twelfth, rising in 8 ms and dying
// away like a struck bell, with a short fade at its very end.
double NoteSample(const Note& note, double t) {
  if (t < 0 || t >= note.length) return 0.0;
  constexpr double kAttack = 0.008, kRelease = 0.02;
  double envelope = std::min(1.0, t / kAttack) * std::exp(-3.2 * t / note.length) *
                    std::min(1.0, (note.length - t) / kRelease);
  double phase = 2 * M_PI * note.frequency * t;
  double tone = std::sin(phase) + 0.3 * std::sin(2 * phase) + 0.12 * std::sin(3 * phase);
  return note.loudness * envelope * tone;
}

// Mixes the notes and scales the loudest moment to a comfortable level, so
// that a chord never clips.
std::vector<std::int16_t> Render(const std::vector<Note>& notes) {
  double end = 0;
  for (const Note& note : notes) end = std::max(end, note.start + note.length);
  std::vector<double> mix(static_cast<std::size_t>(end * kSampleRate) + 1);
  double peak = 1e-9;
  for (std::size_t i = 0; i < mix.size(); ++i) {
    double t = static_cast<double>(i) / kSampleRate;
    for (const Note& note : notes) mix[i] += NoteSample(note, t - note.start);
    peak = std::max(peak, std::abs(mix[i]));
  }
  double loudest = 0;
  for (const Note& note : notes) loudest = std::max(loudest, note.loudness);
  const double scale = 26000 * loudest / peak;
  std::vector<std::int16_t> samples(mix.size());
  for (std::size_t i = 0; i < mix.size(); ++i)
    samples[i] = static_cast<std::int16_t>(std::lround(mix[i] * scale));
  return samples;
}

template <class T>
void Put(QByteArray& bytes, T value) {
  T little = qToLittleEndian(value);
  bytes.append(reinterpret_cast<const char*>(&little), sizeof little);
}

QByteArray WaveFile(const std::vector<std::int16_t>& samples) {
  const auto dataSize = static_cast<std::uint32_t>(samples.size() * sizeof(std::int16_t));
  QByteArray bytes;
  bytes.append("RIFF");
  Put<std::uint32_t>(bytes, 36 + dataSize);
  bytes.append("WAVEfmt ");
  Put<std::uint32_t>(bytes, 16);
  Put<std::uint16_t>(bytes, 1);  // PCM
  Put<std::uint16_t>(bytes, 1);  // mono
  Put<std::uint32_t>(bytes, kSampleRate);
  Put<std::uint32_t>(bytes, kSampleRate * 2);
  Put<std::uint16_t>(bytes, 2);
  Put<std::uint16_t>(bytes, 16);
  bytes.append("data");
  Put<std::uint32_t>(bytes, dataSize);
  for (std::int16_t sample : samples) Put<std::int16_t>(bytes, sample);
  return bytes;
}

PackEntry SaveSound(const QDir& out, const QString& entry, const std::vector<Note>& notes) {
  QString file = entry + ".wav";
  QFile wave(out.filePath(file));
  if (!wave.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
      wave.write(WaveFile(Render(notes))) < 0)
    qFatal("varkesh-packgen: cannot write %s", qPrintable(out.filePath(file)));
  return {entry, file};
}

}  // namespace

std::vector<PackEntry> WriteSounds(const QDir& out) {
  // Notes of A major around middle C.
  constexpr double kA4 = 440.0, kCs5 = 554.37, kE5 = 659.25, kA5 = 880.0, kE4 = 329.63,
                   kCs4 = 277.18, kA3 = 220.0, kD5 = 587.33, kFs5 = 739.99;
  return {
      SaveSound(out, "sfx_click", {{0, 0.07, kE5 * 2, 0.5}}),
      SaveSound(out, "sfx_capture", {{0, 0.16, kE5, 0.7}, {0.08, 0.22, kA4, 0.7}}),
      SaveSound(out, "sfx_capturequeen",
                {{0, 0.3, kD5, 0.7}, {0.07, 0.3, kFs5, 0.7}, {0.14, 0.36, kA5, 0.7}}),
      SaveSound(out, "sfx_captureking",
                {{0, 0.45, kA3, 0.8},
                 {0, 0.45, kCs4, 0.7},
                 {0, 0.45, kE4, 0.7},
                 {0.15, 0.45, kA4, 0.9},
                 {0.15, 0.45, kCs5, 0.8},
                 {0.15, 0.45, kE5, 0.8}}),
      SaveSound(out, "sfx_newgame",
                {{0, 0.22, kA4, 0.6},
                 {0.1, 0.22, kCs5, 0.6},
                 {0.2, 0.22, kE5, 0.6},
                 {0.3, 0.4, kA5, 0.7}}),
      // A player away from the window hears that it is their turn.
      SaveSound(out, "sfx_yourturn", {{0, 0.12, kCs5, 0.5}, {0.12, 0.26, kA5, 0.5}}),
  };
}
