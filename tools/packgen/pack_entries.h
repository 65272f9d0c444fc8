// The generators of the pack's entries. Each writes its files into the
// output folder and names them, so that the packer can list them.
#pragma once

#include <QDir>
#include <QString>
#include <vector>

struct PackEntry {
  QString name;  // the entry name the program asks for, e.g. "newgamedata"
  QString file;  // the file written in the output folder
};

// The start position as records of the new game data.
std::vector<PackEntry> WriteStartPosition(const QDir& out);
// The artwork and the sounds.
std::vector<PackEntry> WriteBoardArt(const QDir& out);
std::vector<PackEntry> WritePieceArt(const QDir& out);
std::vector<PackEntry> WriteMarkerArt(const QDir& out);
std::vector<PackEntry> WriteHintArt(const QDir& out);
std::vector<PackEntry> WriteTitleArt(const QDir& out);
std::vector<PackEntry> WriteVictoryArt(const QDir& out);
std::vector<PackEntry> WriteSounds(const QDir& out);

// The desktop icon at the theme sizes and as SVG, in out/icons; false on failure.
bool WriteIcons(const QDir& out);
