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
