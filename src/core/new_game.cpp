#include "core/new_game.h"

#include <array>
#include <string_view>

namespace varkesh {

namespace {

constexpr std::array<std::string_view, 15> kFirstWords = {
    "Castle",   "Dungeon",     "King's",     "Queen's",  "Rook's",
    "Bishop's", "Battlefield", "Warrior's",  "Knight's", "Pawn's",
    "Moat",     "Enemy",       "Defender's", "Remote",   "Attacker's"};

constexpr std::array<std::string_view, 15> kSecondWords = {
    "Assault", "Pawn", "King", "Queen", "Knight", "Bishop",   "Castle",  "Dungeon",
    "Rook",    "Plan", "Keep", "Enemy", "Ally",   "Attacker", "Defender"};

template <std::size_t N>
std::string_view Draw(Random& random, const std::array<std::string_view, N>& words) {
  return words[static_cast<std::size_t>(random.Below(static_cast<int>(N)))];
}

}  // namespace

std::string RandomGameName(Random& random) {
  std::string_view first;
  std::string_view second;
  do {
    first = Draw(random, kFirstWords);
    second = Draw(random, kSecondWords);
  } while (first.substr(0, 4) == second.substr(0, 4));
  return std::string(first) + " " + std::string(second);
}

}  // namespace varkesh
