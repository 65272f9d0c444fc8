#include "persist/settings.h"

#include <cctype>
#include <charconv>
#include <climits>
#include <cmath>

namespace varkesh {

namespace {

const QString kSection = QStringLiteral("Settings");

QString ToQt(const std::string& text) {
  return QString::fromStdString(text);
}

std::optional<int> StoredNumber(const SettingsStore& store, const std::string& key) {
  std::string text = store.Read(key);
  if (text.empty()) return std::nullopt;
  double value = NumericValue(text);
  if (value >= INT_MAX) return INT_MAX;
  if (value <= INT_MIN) return INT_MIN;
  return static_cast<int>(std::lround(value));
}

void ApplyMark(const SettingsStore& store, const std::string& key, bool& mark) {
  std::string text = store.Read(key);
  if (!text.empty()) mark = NumericValue(text) != 0;
}

std::string MarkText(bool mark) {
  return mark ? "-1" : "0";
}

}  // namespace

SettingsStore::SettingsStore()
    : settings_(std::make_unique<QSettings>(QStringLiteral("Varkesh"), QStringLiteral("Varkesh"))) {
}

SettingsStore::SettingsStore(const std::string& filePath)
    : settings_(std::make_unique<QSettings>(ToQt(filePath), QSettings::IniFormat)) {}

// The one place where case is set aside: the key as the store spells it.
std::optional<QString> SettingsStore::StoredKey(const std::string& key) const {
  settings_->beginGroup(kSection);
  const QStringList keys = settings_->childKeys();
  settings_->endGroup();
  for (const QString& stored : keys)
    if (stored.compare(ToQt(key), Qt::CaseInsensitive) == 0) return kSection + '/' + stored;
  return std::nullopt;
}

std::string SettingsStore::Read(const std::string& key) const {
  std::optional<QString> stored = StoredKey(key);
  return stored ? settings_->value(*stored).toString().toStdString() : std::string();
}

void SettingsStore::Write(const std::string& key, const std::string& value) {
  QString wanted = kSection + '/' + ToQt(key);
  std::optional<QString> stored = StoredKey(key);
  if (stored && *stored != wanted) settings_->remove(*stored);
  settings_->setValue(wanted, ToQt(value));
  // The program may end without unwinding; what was written must be on disk.
  settings_->sync();
}

double NumericValue(const std::string& text) {
  std::string_view rest(text);
  while (!rest.empty() && (rest.front() == ' ' || rest.front() == '\t')) rest.remove_prefix(1);
  bool negative = !rest.empty() && rest.front() == '-';
  if (!rest.empty() && (rest.front() == '-' || rest.front() == '+')) rest.remove_prefix(1);
  if (rest.empty() ||
      !(std::isdigit(static_cast<unsigned char>(rest.front())) || rest.front() == '.'))
    return 0;
  double value = 0;
  auto [end, error] =
      std::from_chars(rest.data(), rest.data() + rest.size(), value, std::chars_format::fixed);
  if (error != std::errc() || !std::isfinite(value)) return 0;
  return negative ? -value : value;
}

WindowPlacement ReadWindowPlacement(const SettingsStore& store, const std::string& prefix) {
  WindowPlacement placement;
  placement.top = StoredNumber(store, prefix + "Top");
  placement.left = StoredNumber(store, prefix + "Left");
  placement.height = StoredNumber(store, prefix + "Height");
  placement.width = StoredNumber(store, prefix + "Width");
  placement.state = StoredNumber(store, prefix + "Window");
  return placement;
}

void WriteWindowPlacement(SettingsStore& store, const std::string& prefix, int top, int left,
                          int height, int width, int state) {
  store.Write(prefix + "Window", std::to_string(state));
  store.Write(prefix + "Top", std::to_string(top));
  store.Write(prefix + "Left", std::to_string(left));
  store.Write(prefix + "Height", std::to_string(height));
  store.Write(prefix + "Width", std::to_string(width));
}

OptionMarks ReadOptionMarks(const SettingsStore& store, OptionMarks marks) {
  ApplyMark(store, "Sfx", marks.sfx);
  ApplyMark(store, "Indicator", marks.indicator);
  ApplyMark(store, "ShowComp", marks.showComp);
  ApplyMark(store, "Hints", marks.hints);
  std::string history = store.Read("History");
  if (!history.empty()) marks.history = history == "0" ? 0 : history == "1" ? 1 : 3;
  const std::string turnBoard = store.Read("TurnBoard");
  if (!turnBoard.empty()) marks.turnBoard = turnBoard;
  if (const std::optional<int> thinking = StoredNumber(store, "ThinkingTime"))
    marks.thinkingTimeMs = *thinking;
  return marks;
}

void WriteOptionMarks(SettingsStore& store, const OptionMarks& marks) {
  store.Write("Sfx", MarkText(marks.sfx));
  store.Write("Indicator", MarkText(marks.indicator));
  store.Write("ShowComp", MarkText(marks.showComp));
  store.Write("Hints", MarkText(marks.hints));
  store.Write("History", marks.history == 0 ? "0" : marks.history == 1 ? "1" : "3");
  if (!marks.turnBoard.empty()) store.Write("TurnBoard", marks.turnBoard);
  if (marks.thinkingTimeMs > 0) store.Write("ThinkingTime", std::to_string(marks.thinkingTimeMs));
}

bool TakeFirstRun(SettingsStore& store) {
  if (!store.Read("First").empty()) return false;
  store.Write("First", "Done");
  return true;
}

}  // namespace varkesh
