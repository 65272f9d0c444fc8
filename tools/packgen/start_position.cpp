#include <QFile>
#include <QTextStream>
#include <array>
#include <cstdio>
#include <cstdlib>

#include "pack_entries.h"

namespace {

struct Placement {
  char piece;  // letter of the new game data
  int x;
  int y;
};

// White's half of the start position; the other teams are quarter turns of it.
// All seven Pawns stand on the moat, where their double step opens files at
// once: the centre and the two squares at distance 2 from it sit in front of
// the Queen and the Rooks, which get open lines the moment those Pawns go.
// The Bishops stand on (9,14) and (7,15), a light and a dark square, the first
// free as soon as (8,13) or (10,13) moves. The Knight on (7,14) is the one
// piece that can leave the keep on the first move. The King stands enclosed on
// (8,15), every neighbour its own; the castle move jumps it to the tip (8,16),
// the keep's deepest square, with the Castle Pawn stepping in front of it.
constexpr std::array<Placement, 16> kWhiteLayout{{
    {'P', 5, 13},
    {'P', 6, 13},
    {'P', 7, 13},
    {'P', 8, 13},
    {'P', 9, 13},
    {'P', 10, 13},
    {'P', 11, 13},
    {'R', 6, 14},
    {'N', 7, 14},
    {'Q', 8, 14},
    {'B', 9, 14},
    {'R', 10, 14},
    {'B', 7, 15},
    {'K', 8, 15},
    {'N', 9, 15},
    {'C', 8, 16},
}};

// White, Blue, Black, Red: the turn order, clockwise from the bottom.
constexpr char kTeamLetters[] = {'W', 'B', 'K', 'R'};

// A quarter turn clockwise about (8, 8), with Y growing downward.
Placement TurnClockwise(Placement p) {
  return {p.piece, 16 - p.y, p.x};
}

}  // namespace

std::vector<PackEntry> WriteStartPosition(const QDir& out) {
  const QString fileName = "newgamedata.txt";
  QFile file(out.filePath(fileName));
  if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
    std::fprintf(stderr, "varkesh-packgen: cannot write %s\n", qPrintable(file.fileName()));
    std::exit(1);
  }
  QTextStream records(&file);
  std::array<Placement, 16> layout = kWhiteLayout;
  for (char team : kTeamLetters) {
    for (Placement& placement : layout) {
      records << '"' << team << placement.piece << "\"," << placement.x << ',' << placement.y
              << '\n';
      placement = TurnClockwise(placement);
    }
  }
  return {{"newgamedata", fileName}};
}
