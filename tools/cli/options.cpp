#include <algorithm>
#include <charconv>
#include <sstream>

#include "cli.h"

namespace varkesh::cli {

namespace {

// Options may be named with or without their leading "--".
std::string_view Bare(std::string_view name) {
  if (name.substr(0, 2) == "--") name.remove_prefix(2);
  return name;
}

bool Names(const std::vector<std::string>& list, std::string_view name) {
  return std::any_of(list.begin(), list.end(),
                     [&](const std::string& entry) { return Bare(entry) == name; });
}

}  // namespace

bool Options::Has(const std::string& name) const {
  return std::any_of(named.begin(), named.end(),
                     [&](const auto& option) { return option.first == Bare(name); });
}

std::string Options::Value(const std::string& name, const std::string& fallback) const {
  // The last of repeated options wins, as a later word overrides an earlier one.
  for (auto option = named.rbegin(); option != named.rend(); ++option)
    if (option->first == Bare(name)) return option->second;
  return fallback;
}

Options ParseOptions(const Args& args, const std::vector<std::string>& valued,
                     const std::vector<std::string>& flags, const std::string& usageLine) {
  Options options;
  for (std::size_t i = 0; i < args.size(); ++i) {
    const std::string& word = args[i];
    if (word.substr(0, 2) != "--") {
      options.positional.push_back(word);
      continue;
    }
    std::string name(Bare(word));
    if (Names(flags, name)) {
      options.named.emplace_back(name, "");
    } else if (Names(valued, name) && i + 1 < args.size()) {
      options.named.emplace_back(name, args[++i]);
    } else {
      Usage(usageLine);
    }
  }
  return options;
}

int ParseInt(const std::string& text, const std::string& usageLine) {
  int value = 0;
  auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (text.empty() || error != std::errc() || end != text.data() + text.size()) Usage(usageLine);
  return value;
}

int ParseBetween(const std::string& text, int low, int high, const std::string& usageLine) {
  int value = ParseInt(text, usageLine);
  if (value < low || value > high) Usage(usageLine);
  return value;
}

PerTeam<int> ParsePlayers(const std::string& text, int lowestKind, const std::string& usageLine) {
  PerTeam<int> players{};
  std::istringstream fields(text);
  std::string field;
  std::size_t count = 0;
  while (std::getline(fields, field, ',')) {
    if (count == players.size()) Usage(usageLine);
    players[count++] = ParseBetween(field, lowestKind, kDefensive, usageLine);
  }
  if (count != players.size() || text.back() == ',') Usage(usageLine);
  return players;
}

}  // namespace varkesh::cli
