#include "ai/search/zobrist.h"

#include <array>

namespace varkesh::search {

namespace {

// Piece kinds from -7 (frozen King) to 7, so 15 slots a team and square.
constexpr int kKindSlots = 15;
constexpr int kTeamSlots = kTeamCount + 1;
// A dungeon's prisoners are told apart by kind and owner, and by place up to
// this many; later places share the last key.
constexpr int kPrisonerPlaces = 32;

struct Keys {
  std::array<std::uint64_t, kSquareCount * kTeamSlots * kKindSlots> pieces{};
  std::array<std::uint64_t, kTeamCount * kPrisonerPlaces * kTeamSlots * 8> prisoners{};
  std::array<std::uint64_t, kTeamCount> castle{};
  std::array<std::uint64_t, kTeamCount> fallen{};
  std::array<std::uint64_t, kTeamSlots> turn{};
};

constexpr std::uint64_t SplitMix(std::uint64_t& state) {
  std::uint64_t z = (state += 0x9E3779B97F4A7C15ull);
  z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
  z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
  return z ^ (z >> 31);
}

Keys MakeKeys() {
  Keys keys;
  std::uint64_t state = 0x5641524B45534821ull;
  for (auto& key : keys.pieces) key = SplitMix(state);
  for (auto& key : keys.prisoners) key = SplitMix(state);
  for (auto& key : keys.castle) key = SplitMix(state);
  for (auto& key : keys.fallen) key = SplitMix(state);
  for (auto& key : keys.turn) key = SplitMix(state);
  return keys;
}

const Keys& TheKeys() {
  static const Keys keys = MakeKeys();
  return keys;
}

std::size_t PieceSlot(int index, int team, int piece) {
  return (static_cast<std::size_t>(index) * kTeamSlots + static_cast<std::size_t>(team)) *
             kKindSlots +
         static_cast<std::size_t>(piece + 7);
}

bool InTable(int team, int piece) {
  return team >= 0 && team < kTeamSlots && piece >= -7 && piece <= 7;
}

}  // namespace

std::uint64_t PositionKey(const Position& position) {
  const Keys& keys = TheKeys();
  std::uint64_t key = 0;
  const auto& squares = position.board.squares;
  for (const SquareSet& set : position.pieces)
    set.ForEach([&](int index) {
      const Square& square = squares[static_cast<std::size_t>(index)];
      if (InTable(square.team, square.piece))
        key ^= keys.pieces[PieceSlot(index, square.team, square.piece)];
    });
  for (std::size_t t = 0; t < kTeamCount; ++t) {
    if (position.castleRight[t]) key ^= keys.castle[t];
    // A frozen kingdom's pieces never move again once it falls, so the
    // fall alone tells such positions apart.
    if (position.kingdomFallen[t]) key ^= keys.fallen[t];
  }
  for (std::size_t captor = 0; captor < kTeamCount; ++captor) {
    const auto& prisoners = position.dungeons[captor].prisoners;
    for (int i = 1; i <= prisoners.Count(); ++i) {
      const DungeonPiece& prisoner = prisoners[i];
      if (prisoner.team < 0 || prisoner.team >= kTeamSlots || prisoner.piece < 0 ||
          prisoner.piece > 7)
        continue;
      const std::size_t place =
          static_cast<std::size_t>(i < kPrisonerPlaces ? i : kPrisonerPlaces) - 1;
      const std::size_t slot = ((captor * kPrisonerPlaces + place) * kTeamSlots +
                                static_cast<std::size_t>(prisoner.team)) *
                                   8 +
                               static_cast<std::size_t>(prisoner.piece);
      key ^= keys.prisoners[slot];
    }
  }
  if (position.currentTeam >= 0 && position.currentTeam < kTeamSlots)
    key ^= keys.turn[static_cast<std::size_t>(position.currentTeam)];
  return key;
}

std::vector<std::uint64_t> RecordKeys(const Record& record) {
  Position position = record.start;
  std::vector<std::uint64_t> keys{PositionKey(position)};
  keys.reserve(record.events.size() + 1);
  // As the record replays: the first event that does not play ends it.
  for (const RecordEvent& event : record.events) {
    if (!PlayEvent(position, event)) break;
    keys.push_back(PositionKey(position));
  }
  return keys;
}

}  // namespace varkesh::search
