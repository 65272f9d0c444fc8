#include "net/wire.h"

#include <climits>

namespace varkesh::net {

Message SplitMessage(std::string_view message) {
  std::size_t brace = message.find('}');
  if (brace == std::string_view::npos) return {message, {}};
  return {message.substr(0, brace), message.substr(brace + 1)};
}

std::vector<std::string_view> SplitFields(std::string_view payload) {
  std::vector<std::string_view> fields;
  std::size_t start = 0;
  while (true) {
    std::size_t separator = payload.find(kFieldSeparator, start);
    if (separator == std::string_view::npos) break;
    fields.push_back(payload.substr(start, separator - start));
    start = separator + 1;
  }
  fields.push_back(payload.substr(start));
  return fields;
}

std::pair<std::string_view, std::string_view> SplitFirstField(std::string_view payload) {
  std::size_t separator = payload.find(kFieldSeparator);
  if (separator == std::string_view::npos) return {payload, {}};
  return {payload.substr(0, separator), payload.substr(separator + 1)};
}

int FieldNumber(std::string_view field) {
  std::size_t i = 0;
  bool negative = false;
  if (i < field.size() && field[i] == '-') {
    negative = true;
    ++i;
  }
  long long value = 0;
  for (; i < field.size() && field[i] >= '0' && field[i] <= '9'; ++i) {
    // Saturate rather than overflow: a peer may send any number of digits.
    if (value <= INT_MAX) value = value * 10 + (field[i] - '0');
  }
  if (negative) value = -value;
  if (value > INT_MAX) return INT_MAX;
  if (value < INT_MIN) return INT_MIN;
  return static_cast<int>(value);
}

int FieldNumberAt(std::string_view payload, std::size_t index) {
  std::vector<std::string_view> fields = SplitFields(payload);
  return index < fields.size() ? FieldNumber(fields[index]) : 0;
}

std::string NumberMessage(std::string_view verb, std::initializer_list<int> numbers) {
  std::string message(verb);
  message += '}';
  bool first = true;
  for (int number : numbers) {
    if (!first) message += kFieldSeparator;
    message += std::to_string(number);
    first = false;
  }
  return message;
}

std::optional<std::string> TakeMessage(std::string& buffer) {
  std::size_t end = buffer.find(kMessageEnd);
  if (end == std::string::npos) return std::nullopt;
  std::string message = buffer.substr(0, end);
  buffer.erase(0, end + 1);
  return message;
}

}  // namespace varkesh::net
