// varkesh-packgen OUTDIR: writes every entry of the resource pack into OUTDIR
// together with pack.qrc, the list from which rcc builds r.opk, and the
// desktop icons in OUTDIR/icons.
#include <QFile>
#include <QGuiApplication>
#include <QTextStream>
#include <cstdio>

#include "pack_entries.h"

int main(int argc, char** argv) {
  QGuiApplication app(argc, argv);  // fonts for the art need a GUI application
  if (argc != 2) {
    std::fprintf(stderr, "usage: varkesh-packgen OUTDIR\n");
    return 2;
  }
  QDir out(QString::fromLocal8Bit(argv[1]));
  if (!out.mkpath(".")) {
    std::fprintf(stderr, "varkesh-packgen: cannot create %s\n", argv[1]);
    return 1;
  }

  std::vector<PackEntry> entries = WriteStartPosition(out);
  for (auto write : {WriteBoardArt, WritePieceArt, WriteMarkerArt, WriteHintArt, WriteTitleArt,
                     WriteVictoryArt, WriteSounds}) {
    std::vector<PackEntry> more = write(out);
    entries.insert(entries.end(), more.begin(), more.end());
  }

  if (!WriteIcons(out)) {
    std::fprintf(stderr, "varkesh-packgen: cannot write the icons\n");
    return 1;
  }

  QFile qrc(out.filePath("pack.qrc"));
  if (!qrc.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
    std::fprintf(stderr, "varkesh-packgen: cannot write pack.qrc\n");
    return 1;
  }
  QTextStream list(&qrc);
  list << "<!DOCTYPE RCC><RCC version=\"1.0\">\n<qresource prefix=\"/pack\">\n";
  for (const PackEntry& entry : entries)
    list << "  <file alias=\"" << entry.name << "\">" << entry.file << "</file>\n";
  list << "</qresource>\n</RCC>\n";
  return 0;
}
