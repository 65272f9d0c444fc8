// A whole game as text a person can read and a program can check: tags,
// the start, then the moves by round. docs/record-format.md describes it.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/record.h"
#include "core/setup.h"

namespace varkesh {

// What a record file holds.
struct GameRecord {
  Setup setup;
  std::string date;  // "2026.11.25", or empty when unknown
  Record record;
  bool operator==(const GameRecord&) const = default;
};

struct RecordProblem {
  int line = 0;
  std::string reason;
  std::string Text() const { return "line " + std::to_string(line) + ": " + reason; }
};

// The text of a record. standardStart is the board a new game starts from;
// a record that starts there says so, any other gives its start position
// in full. Events that do not fit the position are left out. Nothing when
// the start cannot be written (terrain off the layout, values naming no team).
std::optional<std::string> WriteRecordText(const GameRecord& game, const Board* standardStart);

// Reads a record, replaying every event to check it. On a problem returns
// it and leaves game as it was.
std::optional<RecordProblem> ReadRecordText(std::string_view text, const Board* standardStart,
                                            GameRecord& game);

// One event as the record writes it.
struct EventText {
  int round = 0;
  int team = kNoTeam;              // who played it
  std::string move;                // "Qi2xi12#", "Pe14-e15=2", "resigns(Black)"
  std::vector<std::string> notes;  // "Black falls", "White and Black win"
};

// The events of a record that fit, in order.
std::vector<EventText> DescribeEvents(const Record& record);

// Today's date as records write it, in UTC.
std::string RecordDateToday();

// The position at the end of a record, and the match it makes to play on.
Position FinalPosition(const Record& record);

}  // namespace varkesh
