#include "net/checksum.h"

#include <cstdint>

namespace varkesh::net {

namespace {

// FNV-1a over 32-bit values: quick, and any one changed field shows.
class Fingerprint {
 public:
  void Add(int value) {
    std::uint32_t bits = static_cast<std::uint32_t>(value);
    for (int byte = 0; byte < 4; ++byte) {
      hash_ = (hash_ ^ (bits & 0xFFu)) * 16777619u;
      bits >>= 8;
    }
  }
  template <class T>
  void AddAll(const PerTeam<T>& values) {
    for (const T& value : values) Add(static_cast<int>(value));
  }
  int Value() const { return static_cast<int>(hash_ & 0x7FFFFFFFu); }

 private:
  std::uint32_t hash_ = 2166136261u;
};

}  // namespace

int GameChecksum(const Game& game) {
  return GameChecksum(game, game.match.setup.playerKinds, game.net.seatNode);
}

int GameChecksum(const Game& game, const PerTeam<int>& kinds, const PerTeam<int>& seats) {
  Fingerprint print;
  for (const Square& square : game.match.position.board.squares) {
    print.Add(square.team);
    print.Add(square.piece);
    print.Add(square.terrain);
    print.Add(square.realm);
  }
  for (const Dungeon& dungeon : game.match.position.dungeons) {
    print.Add(dungeon.PrisonerCount());
    for (const DungeonPiece& prisoner : dungeon.prisoners) {
      print.Add(prisoner.team);
      print.Add(prisoner.piece);
    }
  }
  for (const HistoryMove& move : game.match.position.history) {
    for (int value : {move.fromX, move.fromY, move.toX, move.toY, move.team}) print.Add(value);
    print.Add(move.wasCapture);
  }
  print.AddAll(game.match.position.castleRight);
  print.AddAll(game.match.position.kingdomFallen);
  for (int value : {game.match.position.currentTeam, game.match.position.roundNumber,
                    game.match.position.gameType, game.match.position.kingCaptureRule})
    print.Add(value);
  print.AddAll(kinds);
  print.AddAll(seats);
  return print.Value();
}

}  // namespace varkesh::net
