#include "flow/headless_outside.h"

namespace varkesh {

namespace {

template <class T>
T TakeFront(std::deque<T>& queue, T fallback) {
  if (queue.empty()) return fallback;
  T value = std::move(queue.front());
  queue.pop_front();
  return value;
}

}  // namespace

HeadlessOutside::HeadlessOutside(std::vector<Menu> checked) : enabled_{{Menu::Resign, false}} {
  for (Menu menu : checked) checked_[menu] = true;
}

HeadlessOutside::~HeadlessOutside() = default;

bool HeadlessOutside::IsMenuEnabled(Menu menu) const {
  auto found = enabled_.find(menu);
  return found == enabled_.end() || found->second;
}

void HeadlessOutside::SetMenuChecked(Menu menu, bool checked) {
  checked_[menu] = checked;
}

void HeadlessOutside::Print(const std::string& line) const {
  if (printEvent) printEvent(line);
}

void HeadlessOutside::ShowMessage(const std::string& title, const std::string& text) {
  if (title == "Varkesh Error") faultReported = true;
  boxes.push_back({title, text, false});
  Print("box " + title + ": " + text);
}

bool HeadlessOutside::AskYesNo(const std::string& title, const std::string& text) {
  boxes.push_back({title, text, true});
  Print("box " + title + ": " + text);
  return TakeFront(yesNoAnswers, true);
}

NewGameChoice HeadlessOutside::RunNewGameDialog(const PerTeam<int>& lastPlayers,
                                                const std::string& proposedName) {
  newGameDialogs.push_back({lastPlayers, proposedName});
  return TakeFront(newGameChoices, NewGameChoice{});
}

int HeadlessOutside::RunPawnOptionsDialog(const std::vector<std::string>& lines) {
  pawnOptionDialogs.push_back(lines);
  const int pick = TakeFront(pawnOptionPicks, -1);
  return pick < static_cast<int>(lines.size()) ? pick : -1;
}

int HeadlessOutside::RunConcedeDialog(const std::vector<int>& teams) {
  concedeDialogs.push_back(teams);
  return TakeFront(concedePicks, teams.empty() ? 0 : teams.front());
}

std::string HeadlessOutside::LoadFileDialog(const std::string&, const std::string&,
                                            const std::string&) {
  return TakeFront(loadPaths, std::string());
}

std::string HeadlessOutside::SaveFileDialog(const std::string&, const std::string&,
                                            const std::string&, const std::string&) {
  return TakeFront(savePaths, std::string());
}

void HeadlessOutside::SetTurnLabel(const std::string& text) {
  if (text == turnLabel) return;
  turnLabel = text;
  Print("turn " + text);
}

void HeadlessOutside::SetPieceLabel(const std::string& text) {
  pieceLabel = text;
}

void HeadlessOutside::SetGameDescription(const std::string& text) {
  if (text == gameDescription) return;
  gameDescription = text;
  Print("game " + text);
}

void HeadlessOutside::SetMenuEnabled(Menu menu, bool enabled) {
  enabled_[menu] = enabled;
}

bool HeadlessOutside::IsMenuChecked(Menu menu) const {
  auto found = checked_.find(menu);
  return found != checked_.end() && found->second;
}

void HeadlessOutside::ShowPauseButton(bool visible) {
  pauseButtonVisible = visible;
}

void HeadlessOutside::PlaySound(const std::string& entry) {
  sounds.push_back(entry);
}

std::string HeadlessOutside::ExtractEntry(const std::string& entry) {
  auto found = entryPaths.find(entry);
  if (found != entryPaths.end()) return found->second;
  return pack_.ExtractEntry(engine.appPath, entry);
}

void HeadlessOutside::Yield() {
  ++yieldCount;
  clock += yieldStep;
  if (serveEvents) serveEvents();
}

double HeadlessOutside::Now() {
  return manualClock ? clock : EngineClock(engine);
}

GeneralEngine& HeadlessOutside::Engine() {
  return engine;
}

}  // namespace varkesh
