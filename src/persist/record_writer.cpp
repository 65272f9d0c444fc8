#include <ctime>

#include "core/new_game_data.h"
#include "core/resign.h"
#include "core/rules.h"
#include "persist/position_string.h"
#include "persist/record_names.h"
#include "persist/record_text.h"

namespace varkesh {

using namespace record_text;

namespace {

std::string Quoted(const std::string& value) {
  std::string text = "\"";
  for (char c : value) {
    if (c == '"' || c == '\\') text += '\\';
    text += c;
  }
  return text + '"';
}

void AddTag(std::string& text, const std::string& key, const std::string& value) {
  text += '[' + key + ' ' + Quoted(value) + "]\n";
}

std::string OptionText(int option) {
  if (option == kOptionNone) return "";
  if (option == kOptionClosed) return "=stay";
  if (option == kOptionComputer) return "=auto";
  return "=" + std::to_string(option + 1);
}

// What a position gained by an event: kingdoms fallen, the end.
void NoteAftermath(const Position& before, const Position& after, EventText& text) {
  for (int team = kWhite; team <= kRed; ++team)
    if (TeamEntry(after.kingdomFallen, team) && !TeamEntry(before.kingdomFallen, team))
      text.notes.push_back(std::string(TeamName(team)) + " falls");
  if (after.Finished() && !before.Finished())
    text.notes.push_back(ResultText(after) + (after.coWinner != kNoTeam ? " win" : " wins"));
}

// One event described and played; nothing, with the position unchanged,
// when it does not fit.
std::optional<EventText> PlayAndDescribe(const RecordEvent& event, Position& position) {
  const Position before = position;
  EventText text;
  text.round = position.roundNumber;
  text.team = position.currentTeam;
  if (event.kind == RecordEvent::Kind::Resign) {
    const ResignEffects effects = Resign(position, event.concedeTeam);
    if (!effects.done) {
      position = before;
      return std::nullopt;
    }
    text.move = "resigns";
    if (effects.concedeTeam != kNoTeam)
      text.move += std::string("(") + TeamName(effects.concedeTeam) + ')';
  } else {
    const Move& move = event.move;
    if (!IsLegal(position, move)) return std::nullopt;
    const int piece = position.board.at(move.fromX, move.fromY).piece;
    const MoveEffects effects = ApplyMove(position, move);
    text.move = PieceLetter(piece) + SquareName(move.fromX, move.fromY);
    text.move += IsCapture(effects.outcome) ? 'x' : '-';
    // The computer's rule chooses nothing where no option was due.
    const bool due = effects.pawn != PawnOutcome::NotDue;
    text.move += SquareName(move.toX, move.toY) + (due ? OptionText(move.option) : "");
    if (effects.outcome == MoveOutcome::KingTaken) text.move += '#';
  }
  NoteAftermath(before, position, text);
  return text;
}

}  // namespace

std::optional<std::string> WriteRecordText(const GameRecord& game, const Board* standardStart) {
  const Record& record = game.record;
  const Position& start = record.start;
  std::string startText = kStandardStart;
  if (!standardStart ||
      !(StartPosition(*standardStart, start.gameType, start.kingCaptureRule) == start)) {
    std::optional<std::string> line = WritePositionString(start);
    if (!line) return std::nullopt;
    startText = *line;
  }

  std::string moves;
  Position position = start;
  int lineRound = 0;
  for (const RecordEvent& event : record.events) {
    const std::optional<EventText> described = PlayAndDescribe(event, position);
    if (!described) break;
    if (described->round != lineRound) {
      if (lineRound != 0) moves += '\n';
      moves += std::to_string(described->round) + '.';
      lineRound = described->round;
    }
    moves += std::string(" ") + TeamName(described->team) + ' ' + described->move;
    for (const std::string& note : described->notes) moves += " {" + note + '}';
  }
  if (lineRound != 0) moves += '\n';

  std::string text;
  AddTag(text, "Name", game.setup.gameName);
  if (!game.date.empty()) AddTag(text, "Date", game.date);
  AddTag(text, "GameType", NameIn(kGameTypeNames, start.gameType - 1));
  AddTag(text, "Rule", NameIn(kRuleNames, start.kingCaptureRule - 1));
  for (int team = kWhite; team <= kRed; ++team) {
    const int kind = TeamEntry(game.setup.playerKinds, team);
    AddTag(text, TeamName(team), NameIn(kPlayerNames, kind));
    if (kind != kHuman)
      AddTag(text, std::string(TeamName(team)) + "Level",
             LevelName(TeamEntry(game.setup.levels, team)));
  }
  AddTag(text, "Result", ResultText(position));
  AddTag(text, "Start", startText);
  return text + '\n' + moves;
}

std::string RecordDateToday() {
  const std::time_t now = std::time(nullptr);
  std::tm parts{};
  gmtime_r(&now, &parts);
  char text[16];
  std::strftime(text, sizeof text, "%Y.%m.%d", &parts);
  return text;
}

std::vector<EventText> DescribeEvents(const Record& record) {
  std::vector<EventText> texts;
  Position position = record.start;
  for (const RecordEvent& event : record.events) {
    std::optional<EventText> text = PlayAndDescribe(event, position);
    if (!text) break;
    texts.push_back(std::move(*text));
  }
  return texts;
}

Position FinalPosition(const Record& record) {
  Position position;
  Replay(record, static_cast<int>(record.events.size()), position);
  return position;
}

}  // namespace varkesh
