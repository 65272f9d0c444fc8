// What the record commands share: the standard start from the pack, and a
// record read from a record file or a saved game.
#pragma once

#include <optional>
#include <string>

#include "cli.h"
#include "core/match.h"
#include "persist/record_text.h"

namespace varkesh::cli {

// The board a new game starts from, or nothing when the pack cannot be read.
std::optional<Board> StandardStartBoard();

// A record file, or a saved game (coded or plain) as a record dated by the
// file. A damaged record is a bad input (exit 1) naming its line and reason.
GameRecord ReadRecordFile(const std::string& path, const Board* standardStart);

// The text of a record; a start that a record cannot hold is a bad input.
std::string RecordText(const GameRecord& game, const Board* standardStart, const std::string& what);

// Writes the record of a game played here, dated today; a file that cannot
// be written is a bad input.
void WriteRecordFile(const Match& match, const std::string& path);

// The folder given with --records, which must exist; empty when none is.
std::string RecordsFolderOption(const Options& options, const std::string& usageLine);
// Where game G's record goes in folder: folder/game-G.vrec.
std::string GameRecordPath(const std::string& folder, int game);

}  // namespace varkesh::cli
