#include "tests/kit/Doubles.h"

#include <algorithm>

namespace ovalia::kit {

void FakeSettings::put(TextView application, TextView section, TextView key, TextView value) {
  auto& pairs = sections_[{Text(application), Text(section)}];
  const auto found = std::ranges::find(pairs, Text(key), &std::pair<Text, Text>::first);
  if (found == pairs.end())
    pairs.emplace_back(key, value);
  else
    found->second = value;
}

std::optional<Text> FakeSettings::stored(TextView application, TextView section, TextView key) const {
  const auto found = sections_.find({Text(application), Text(section)});
  if (found == sections_.end()) return {};
  for (const auto& [name, value] : found->second)
    if (name == key) return value;
  return {};
}

Text FakeSettings::get(TextView application, TextView section, TextView key, TextView fallback) {
  faults_.visit("Settings.get");
  asked.emplace_back(key);
  return stored(application, section, key).value_or(Text(fallback));
}

void FakeSettings::save(TextView application, TextView section, TextView key, TextView value) {
  faults_.visit("Settings.save");
  saved.push_back(Text(section) + u"|" + Text(key) + u"=" + Text(value));
  put(application, section, key, value);
}

std::vector<std::pair<Text, Text>> FakeSettings::all(TextView application, TextView section) {
  faults_.visit("Settings.all");
  const auto found = sections_.find({Text(application), Text(section)});
  if (found == sections_.end()) return {};
  return found->second;
}

Date FakeClock::now() { return dateFrom(time).value(); }

bool FakeClipboard::has(int format) {
  faults_.visit("Clipboard.has");
  return (format == filesFormat && holdsFiles) || (format == bitmapFormat && holdsBitmap);
}

bool FakeClipboard::open() {
  faults_.visit("Clipboard.open");
  steps.push_back("open");
  if (refusesToOpen) return false;
  isOpen = true;
  return true;
}

void FakeClipboard::empty() {
  faults_.visit("Clipboard.empty");
  steps.push_back("empty");
  holdsFiles = holdsBitmap = false;
  fileList.clear();
}

bool FakeClipboard::setFiles(std::span<const Text> paths) {
  faults_.visit("Clipboard.setFiles");
  steps.push_back("setFiles");
  if (refusesFiles) return false;
  fileList.assign(paths.begin(), paths.end());
  holdsFiles = true;
  return true;
}

bool FakeClipboard::setDropEffect(int effect) {
  faults_.visit("Clipboard.setDropEffect");
  steps.push_back("setDropEffect " + std::to_string(effect));
  return true;
}

std::vector<Text> FakeClipboard::files() {
  faults_.visit("Clipboard.files");
  steps.push_back("files");
  return fileList;
}

void FakeClipboard::close() {
  faults_.visit("Clipboard.close");
  steps.push_back("close");
  isOpen = false;
}

Shell::RecycleResult FakeShell::recycle(TextView path) {
  faults_.visit("Shell.recycle");
  recycled.emplace_back(path);
  if (nextRecycle) return std::exchange(nextRecycle, std::nullopt).value();
  if (!files_.isPlainFile(path)) return {.code = 2, .lastError = 2};
  files_.remove(path);
  return {};
}

void FakeShell::saveScreenPicture(TextView path) {
  faults_.visit("Shell.saveScreenPicture");
  files_.write(path, u"BM");
}

Shell::SystemVersion FakeShell::systemVersion() {
  faults_.visit("Shell.systemVersion");
  return system;
}

std::optional<Shell::FileVersion> FakeShell::fileVersion(TextView path) {
  faults_.visit("Shell.fileVersion");
  const auto found = versions.find(path);
  if (found == versions.end()) return {};
  return found->second;
}

}  // namespace ovalia::kit
