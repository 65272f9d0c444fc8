#include <cstdio>

#include "cli.h"
#include "record_file.h"

namespace varkesh::cli {

namespace {

constexpr const char* kUsage =
    "record FILE\n"
    "  Prints the record of a saved game (.vsh or plain game text), or a record file\n"
    "  normalised. A damaged record exits 1 with its line number and the reason.";

}  // namespace

int CmdRecord(const Args& args) {
  const Options options = ParseOptions(args, {}, {}, kUsage);
  if (options.positional.size() != 1) Usage(kUsage);
  const std::string& path = options.positional[0];
  const std::optional<Board> standard = StandardStartBoard();
  const Board* start = standard ? &*standard : nullptr;
  const std::string text = RecordText(ReadRecordFile(path, start), start, path);
  std::fwrite(text.data(), 1, text.size(), stdout);
  return 0;
}

}  // namespace varkesh::cli
