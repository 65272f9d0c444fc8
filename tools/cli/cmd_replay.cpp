#include <cstdio>

#include "cli.h"
#include "persist/game_text.h"
#include "record_file.h"

namespace varkesh::cli {

namespace {

constexpr const char* kUsage =
    "replay RECORD [--ply N]\n"
    "  Prints the plain game text after the first N plies of the record (all of them\n"
    "  unless given); a ply is a move with its pawn option, or a resignation. N past\n"
    "  the end is a usage error; a damaged record exits 1 with its line and the reason.";

}  // namespace

int CmdReplay(const Args& args) {
  const Options options = ParseOptions(args, {"ply"}, {}, kUsage);
  if (options.positional.size() != 1) Usage(kUsage);
  const std::string& path = options.positional[0];
  const std::optional<Board> standard = StandardStartBoard();
  const GameRecord game = ReadRecordFile(path, standard ? &*standard : nullptr);
  const int events = static_cast<int>(game.record.events.size());
  const int plies =
      options.Has("ply") ? ParseBetween(options.Value("ply"), 0, events, kUsage) : events;
  Position position;
  if (Replay(game.record, plies, position) != plies)
    BadInput("varkesh-cli: " + path + ": ply " + std::to_string(plies) +
             " does not follow from the record's start");
  const std::string text = WriteGameText(position, game.setup);
  std::fwrite(text.data(), 1, text.size(), stdout);
  return 0;
}

}  // namespace varkesh::cli
