#include "persist/file_coder.h"

#include <zlib.h>

#include <array>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace varkesh {

namespace {

// Magic, version, plain length and CRC-32 of the plain bytes, then the
// zlib stream. Numbers are little-endian. In version 1 the plain bytes are
// the game text; in version 2 they are the texts, each led by its length.
constexpr std::string_view kMagic = "VRKS";
constexpr unsigned char kTextOnly = 1;
constexpr unsigned char kVersion = 2;
constexpr std::size_t kMaxParts = 16;
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

namespace {

std::string Compress(std::string_view plain, unsigned char version) {
  if (plain.size() > kMaxPlainLength) throw std::runtime_error("The game text is too long to save");
  uLongf packedSize = compressBound(static_cast<uLong>(plain.size()));
  std::string packed(packedSize, '\0');
  if (compress2(reinterpret_cast<Bytef*>(packed.data()), &packedSize,
                reinterpret_cast<const Bytef*>(plain.data()), static_cast<uLong>(plain.size()),
                Z_BEST_COMPRESSION) != Z_OK)
    throw std::runtime_error("The game text could not be compressed");
  packed.resize(packedSize);

  std::string coded(kMagic);
  coded += static_cast<char>(version);
  PutNumber(coded, static_cast<std::uint32_t>(plain.size()));
  PutNumber(coded, Checksum(plain));
  return coded + packed;
}

// The plain bytes and the version they are in.
std::pair<std::string, unsigned char> Uncompress(std::string_view coded) {
  if (coded.size() < kHeaderSize || !LooksCoded(coded)) throw std::runtime_error(kForeign);
  const unsigned char version = static_cast<unsigned char>(coded[kMagic.size()]);
  if (version != kTextOnly && version != kVersion) throw std::runtime_error(kForeign);
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
  return {std::move(plain), version};
}

}  // namespace

std::string EncodeTexts(const std::vector<std::string>& parts) {
  std::string plain;
  for (const std::string& part : parts) {
    if (part.size() > kMaxPlainLength)
      throw std::runtime_error("The game text is too long to save");
    PutNumber(plain, static_cast<std::uint32_t>(part.size()));
    plain += part;
  }
  return Compress(plain, kVersion);
}

std::vector<std::string> DecodeTexts(std::string_view coded) {
  auto [plain, version] = Uncompress(coded);
  if (version == kTextOnly) return {std::move(plain)};
  std::vector<std::string> parts;
  std::string_view rest = plain;
  while (!rest.empty()) {
    if (rest.size() < 4 || parts.size() == kMaxParts) throw std::runtime_error(kDamaged);
    const std::uint32_t length = GetNumber(rest, 0);
    if (length > rest.size() - 4) throw std::runtime_error(kDamaged);
    parts.emplace_back(rest.substr(4, length));
    rest.remove_prefix(4 + static_cast<std::size_t>(length));
  }
  if (parts.empty()) throw std::runtime_error(kDamaged);
  return parts;
}

std::string EncodeText(std::string_view plain) {
  return EncodeTexts({std::string(plain)});
}

std::string DecodeText(std::string_view coded) {
  return DecodeTexts(coded).front();
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
