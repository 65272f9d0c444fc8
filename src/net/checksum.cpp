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
  Fingerprint print;
  for (const Square& square : game.board.squares) {
    print.Add(square.team);
    print.Add(square.piece);
    print.Add(square.terrain);
    print.Add(square.realm);
  }
  for (const Dungeon& dungeon : game.dungeons) {
    print.Add(dungeon.PrisonerCount());
    for (const DungeonPiece& prisoner : dungeon.prisoners) {
      print.Add(prisoner.team);
      print.Add(prisoner.piece);
    }
  }
  for (const HistoryMove& move : game.history) {
    for (int value : {move.fromX, move.fromY, move.toX, move.toY, move.team}) print.Add(value);
    print.Add(move.wasCapture);
  }
  print.AddAll(game.castleRight);
  print.AddAll(game.kingdomFallen);
  for (int value : {game.currentTeam, game.roundNumber, game.gameType, game.kingCaptureRule})
    print.Add(value);
  print.AddAll(game.playerKinds);
  print.AddAll(game.seatNode);
  return print.Value();
}

}  // namespace varkesh::net
