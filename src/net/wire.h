// The bytes of a NetPlay message: a verb of four capital letters, "}", the
// payload, and the end mark (code 0). Fields of a payload are separated by
// code 1; numbers are plain decimal. Nothing here trusts its input.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "flow/game.h"

namespace varkesh::net {

inline constexpr char kMessageEnd = '\0';
// Between the fields of a message.
inline constexpr char kFieldSeparator = '\x01';
// Stands for a free node in the node list.
inline constexpr char kFreeNodeMark = '\xFF';
inline constexpr int kDefaultPort = 5337;
inline constexpr const char* kDefaultHost = "localhost";

// A message split at its first "}": the verb before it, the payload after.
// A message without "}" is all verb.
struct Message {
  std::string_view verb;
  std::string_view payload;
};
Message SplitMessage(std::string_view message);

// The fields of a payload; an empty payload is one empty field.
std::vector<std::string_view> SplitFields(std::string_view payload);
// The payload split at its first field separator only (chat and boot texts
// may hold anything after it).
std::pair<std::string_view, std::string_view> SplitFirstField(std::string_view payload);

// A field read by its leading digits (with a leading minus sign); a field
// without any reads as 0, and one beyond the range of int saturates.
int FieldNumber(std::string_view field);
// The n-th field (from 0) as a number, 0 when there are fewer fields.
int FieldNumberAt(std::string_view payload, std::size_t index);

// "VERB}" followed by the numbers joined by the field separator.
std::string NumberMessage(std::string_view verb, std::initializer_list<int> numbers);

// Takes the oldest whole message out of a receive buffer: the text before
// the first end mark, which leaves the buffer together with its mark.
// Nothing when the buffer holds no end mark yet.
std::optional<std::string> TakeMessage(std::string& buffer);

}  // namespace varkesh::net
