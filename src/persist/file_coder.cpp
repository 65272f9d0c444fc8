#include "persist/file_coder.h"

#include <zlib.h>

#include <array>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace varkesh {

namespace {

// Magic, version, plain length and CRC-32 of the plain text, then the
// zlib stream. Numbers are little-endian.
constexpr std::string_view kMagic = "VRKS";
constexpr unsigned char kVersion = 1;
constexpr std::size_t kHeaderSize = kMagic.size() + 1 + 4 + 4;
// Far above any game; a larger length can only come from a spoilt header.
constexpr std::uint32_t kMaxPlainLength = 64u << 20;

constexpr const char* kForeign = "This file is not a Varkesh saved game";
constexpr const char* kDamaged = "This saved game is damaged";

void PutNumber(std::string& out, std::uint32_t value) {
  for (int i = 0; i < 4; ++i) out += static_cast<char>((value >> (8 * i)) & 0xFF);
}

std::uint32_t GetNumber(std::string_view bytes, std::size_t at) {
  std::uint32_t value = 0;
  for (int i = 3; i >= 0; --i)
    value = (value << 8) | static_cast<unsigned char>(bytes[at + static_cast<std::size_t>(i)]);
  return value;
}

std::uint32_t Checksum(std::string_view bytes) {
  return static_cast<std::uint32_t>(
      crc32_z(crc32_z(0L, Z_NULL, 0), reinterpret_cast<const Bytef*>(bytes.data()), bytes.size()));
}

}  // namespace

bool LooksCoded(std::string_view bytes) {
  return bytes.substr(0, kMagic.size()) == kMagic;
}

std::string EncodeText(std::string_view plain) {
  if (plain.size() > kMaxPlainLength) throw std::runtime_error("The game text is too long to save");
  uLongf packedSize = compressBound(static_cast<uLong>(plain.size()));
  std::string packed(packedSize, '\0');
  if (compress2(reinterpret_cast<Bytef*>(packed.data()), &packedSize,
                reinterpret_cast<const Bytef*>(plain.data()), static_cast<uLong>(plain.size()),
                Z_BEST_COMPRESSION) != Z_OK)
    throw std::runtime_error("The game text could not be compressed");
  packed.resize(packedSize);

  std::string coded(kMagic);
  coded += static_cast<char>(kVersion);
  PutNumber(coded, static_cast<std::uint32_t>(plain.size()));
  PutNumber(coded, Checksum(plain));
  return coded + packed;
}

std::string DecodeText(std::string_view coded) {
  if (coded.size() < kHeaderSize || !LooksCoded(coded) ||
      static_cast<unsigned char>(coded[kMagic.size()]) != kVersion)
    throw std::runtime_error(kForeign);
  std::uint32_t length = GetNumber(coded, kMagic.size() + 1);
  std::uint32_t checksum = GetNumber(coded, kMagic.size() + 5);
  if (length > kMaxPlainLength) throw std::runtime_error(kDamaged);

  std::string_view packed = coded.substr(kHeaderSize);
  // One spare byte: a stream longer than the header says must not fit.
  std::string plain(static_cast<std::size_t>(length) + 1, '\0');
  uLongf plainSize = static_cast<uLongf>(plain.size());
  uLong packedSize = static_cast<uLong>(packed.size());
  int result = uncompress2(reinterpret_cast<Bytef*>(plain.data()), &plainSize,
                           reinterpret_cast<const Bytef*>(packed.data()), &packedSize);
  // Anything after the stream's end is a spoilt file too.
  if (result != Z_OK || plainSize != length || packedSize != packed.size())
    throw std::runtime_error(kDamaged);
  plain.resize(length);
  if (Checksum(plain) != checksum) throw std::runtime_error(kDamaged);
  return plain;
}

std::string ReadFileBytes(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("Cannot open the file '" + path + "'");
  std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  if (file.bad()) throw std::runtime_error("Cannot read the file '" + path + "'");
  return bytes;
}

void WriteFileBytes(const std::string& path, std::string_view bytes) {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  if (!file) throw std::runtime_error("Cannot create the file '" + path + "'");
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  if (!file) throw std::runtime_error("Cannot write the file '" + path + "'");
}

void EncodeFile(const std::string& plainPath, const std::string& codedPath) {
  WriteFileBytes(codedPath, EncodeText(ReadFileBytes(plainPath)));
}

void DecodeFile(const std::string& codedPath, const std::string& plainPath) {
  WriteFileBytes(plainPath, DecodeText(ReadFileBytes(codedPath)));
}

}  // namespace varkesh
