#include "support/scripted_outside.h"

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

ScriptedOutside::ScriptedOutside()
    : enabled_{{Menu::Resign, false}},
      checked_{{Menu::OptionsSfx, true},
               {Menu::OptionIndicator, true},
               {Menu::OptionsShowComp, true},
               {Menu::OptionsHints, true},
               {Menu::History0, true}} {
  AttachNetLink(this);
}

ScriptedOutside::~ScriptedOutside() = default;

bool ScriptedOutside::IsMenuEnabled(Menu menu) const {
  auto found = enabled_.find(menu);
  return found == enabled_.end() || found->second;
}

void ScriptedOutside::SetMenuChecked(Menu menu, bool checked) {
  checked_[menu] = checked;
}

void ScriptedOutside::ShowMessage(const std::string& title, const std::string& text) {
  messages.push_back({title, text, false});
}

bool ScriptedOutside::AskYesNo(const std::string& title, const std::string& text) {
  messages.push_back({title, text, true});
  return TakeFront(yesNoAnswers, true);
}

NewGameChoice ScriptedOutside::RunNewGameDialog(const PerTeam<int>& lastPlayers,
                                                const std::string& proposedName) {
  newGameDialogs.push_back({lastPlayers, proposedName});
  return TakeFront(newGameChoices, NewGameChoice{});
}

int ScriptedOutside::RunPawnOptionsDialog(const std::vector<std::string>& lines) {
  pawnOptionDialogs.push_back(lines);
  return TakeFront(pawnOptionPicks, -1);
}

int ScriptedOutside::RunConcedeDialog(const std::vector<int>& teams) {
  concedeDialogs.push_back(teams);
  return TakeFront(concedePicks, teams.empty() ? 0 : teams.front());
}

std::string ScriptedOutside::LoadFileDialog(const std::string&, const std::string&,
                                            const std::string&) {
  return TakeFront(loadPaths, std::string());
}

std::string ScriptedOutside::SaveFileDialog(const std::string&, const std::string&,
                                            const std::string&, const std::string&) {
  return TakeFront(savePaths, std::string());
}

void ScriptedOutside::SetTurnLabel(const std::string& text) {
  turnLabel = text;
}
void ScriptedOutside::SetPieceLabel(const std::string& text) {
  pieceLabel = text;
}
void ScriptedOutside::SetGameDescription(const std::string& text) {
  gameDescription = text;
}
void ScriptedOutside::SetMenuEnabled(Menu menu, bool enabled) {
  enabled_[menu] = enabled;
}

bool ScriptedOutside::IsMenuChecked(Menu menu) const {
  auto found = checked_.find(menu);
  return found != checked_.end() && found->second;
}

void ScriptedOutside::ShowPauseButton(bool visible) {
  pauseButtonVisible = visible;
}
void ScriptedOutside::PlaySound(const std::string& entry) {
  sounds.push_back(entry);
}

std::string ScriptedOutside::ExtractEntry(const std::string& entry) {
  auto found = entryPaths.find(entry);
  if (found != entryPaths.end()) return found->second;
  return pack_.ExtractEntry(engine.appPath, entry);
}

void ScriptedOutside::SendToAll(const std::string& message, int skipNode) {
  sent.push_back({true, skipNode, message});
}

void ScriptedOutside::SendToClient(int node, const std::string& message) {
  sent.push_back({false, node, message});
}

void ScriptedOutside::Yield() {
  ++yieldCount;
  clock += yieldStep;
}

double ScriptedOutside::Now() {
  return clock;
}
GeneralEngine& ScriptedOutside::Engine() {
  return engine;
}

}  // namespace varkesh
