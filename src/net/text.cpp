#include "net/text.h"

namespace varkesh::net {

namespace {

constexpr const char* kReplacement = "\xEF\xBF\xBD";

// Length of the valid UTF-8 sequence at bytes[i], or 0.
std::size_t SequenceLength(std::string_view bytes, std::size_t i) {
  const auto byte = [&](std::size_t k) { return static_cast<unsigned char>(bytes[k]); };
  const unsigned char lead = byte(i);
  std::size_t length = 0;
  unsigned lowest = 0, value = 0;
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead <= 0xDF) {
    length = 2;
    lowest = 0x80;
    value = lead & 0x1Fu;
  } else if (lead >= 0xE0 && lead <= 0xEF) {
    length = 3;
    lowest = 0x800;
    value = lead & 0x0Fu;
  } else if (lead >= 0xF0 && lead <= 0xF4) {
    length = 4;
    lowest = 0x10000;
    value = lead & 0x07u;
  } else {
    return 0;
  }
  if (i + length > bytes.size()) return 0;
  for (std::size_t k = 1; k < length; ++k) {
    if ((byte(i + k) & 0xC0u) != 0x80u) return 0;
    value = (value << 6) | (byte(i + k) & 0x3Fu);
  }
  // Overlong forms, surrogates and code points past U+10FFFF are not text.
  if (value < lowest || (value >= 0xD800 && value <= 0xDFFF) || value > 0x10FFFF) return 0;
  return length;
}

unsigned CodePoint(std::string_view sequence) {
  const unsigned char lead = static_cast<unsigned char>(sequence[0]);
  if (sequence.size() == 1) return lead;
  unsigned value = lead & (0xFFu >> (sequence.size() + 1));
  for (std::size_t k = 1; k < sequence.size(); ++k)
    value = (value << 6) | (static_cast<unsigned char>(sequence[k]) & 0x3Fu);
  return value;
}

bool IsShownControl(unsigned char c) {
  return c == '\t' || c == '\r' || c == '\n';
}

}  // namespace

std::string ShowableText(std::string_view bytes) {
  std::string shown;
  shown.reserve(bytes.size());
  for (std::size_t i = 0; i < bytes.size();) {
    const unsigned char c = static_cast<unsigned char>(bytes[i]);
    std::size_t length = SequenceLength(bytes, i);
    if (length == 0 || (c < 0x20 && !IsShownControl(c)) || c == 0x7F) {
      shown += kReplacement;
      i += length == 0 ? 1 : length;
      continue;
    }
    shown.append(bytes.substr(i, length));
    i += length;
  }
  return shown;
}

std::string ToWireText(std::string_view text) {
  std::string wire;
  wire.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) {
    const std::size_t length = SequenceLength(text, i);
    if (length == 0) {
      wire += text[i++];
      continue;
    }
    const unsigned code = CodePoint(text.substr(i, length));
    wire += code <= 0xFFu ? static_cast<char>(code) : '?';
    i += length;
  }
  return wire;
}

std::string FromWireText(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size());
  for (const char byte : bytes) {
    const unsigned char c = static_cast<unsigned char>(byte);
    if (c < 0x80) {
      text += byte;
    } else {
      text += static_cast<char>(0xC0u | (c >> 6));
      text += static_cast<char>(0x80u | (c & 0x3Fu));
    }
  }
  return text;
}

std::string FirstCharacters(std::string_view text, std::size_t count) {
  std::size_t end = 0;
  for (std::size_t taken = 0; taken < count && end < text.size(); ++taken) {
    const std::size_t length = SequenceLength(text, end);
    end += length == 0 ? 1 : length;
  }
  return std::string(text.substr(0, end));
}

}  // namespace varkesh::net
