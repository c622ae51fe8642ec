#include "tests/kit/FakeFiles.h"

#include <gtest/gtest.h>

namespace ovalia::kit {
namespace {

// Single separators, none at the end; "" is the root.
Text plain(TextView path) {
  Text result;
  for (const char16_t c : path)
    if (c != u'\\' || !result.ends_with(u'\\')) result += c;
  if (result.ends_with(u'\\')) result.pop_back();
  return result;
}

Text keyOf(TextView path) { return lowerCase(plain(path)); }

Text parentOf(const Text& key) {
  const auto last = key.rfind(u'\\');
  return last == Text::npos ? Text{} : key.substr(0, last);
}

Text lastOf(const Text& path) { return path.substr(path.rfind(u'\\') + 1); }

bool wildcardMatch(TextView mask, TextView name) {
  if (mask.empty()) return name.empty();
  if (mask.front() == u'*')
    return wildcardMatch(mask.substr(1), name) || (!name.empty() && wildcardMatch(mask, name.substr(1)));
  return !name.empty() && (mask.front() == u'?' || mask.front() == name.front()) &&
         wildcardMatch(mask.substr(1), name.substr(1));
}

}  // namespace

FakeFiles::FakeFiles(FaultPanel& faults) : faults_(faults) {
  nodes_[u""] = {.name = u"", .folder = true};
  putFolder(temporary);
}

void FakeFiles::putFolder(TextView path) {
  const Text whole = plain(path);
  for (auto end = whole.find(u'\\', 1);; end = whole.find(u'\\', end + 1)) {
    const Text level = whole.substr(0, end);
    nodes_.try_emplace(lowerCase(level), Node{.name = lastOf(level), .folder = true});
    if (end == Text::npos) return;
  }
}

void FakeFiles::putFile(TextView path, Text content, Date modified) {
  const Text whole = plain(path);
  putFolder(parentOf(whole));
  nodes_[lowerCase(whole)] = {.name = lastOf(whole), .content = std::move(content), .modified = modified};
}

void FakeFiles::lock(TextView path) { existing(path).locked = true; }

void FakeFiles::addDrive(Text drive, int type, bool ready) {
  if (ready) nodes_[lowerCase(drive)] = {.name = drive, .folder = true};
  drives_[std::move(drive)] = {type, ready};
}

bool FakeFiles::exists(TextView path) const { return find(path) != nullptr; }

bool FakeFiles::isPlainFile(TextView path) const {
  const Node* node = find(path);
  return node && !node->folder;
}

Text FakeFiles::content(TextView path) const {
  if (isPlainFile(path)) return find(path)->content;
  ADD_FAILURE() << "no file " << toUtf8(path);
  return {};
}

Text FakeFiles::firstMatch(TextView pathOrMask) {
  faults_.visit("Files.firstMatch");
  checkReachable(pathOrMask);
  const Text whole = pathOrMask.ends_with(u'\\') ? keyOf(pathOrMask) + u"\\*" : keyOf(pathOrMask);
  const Text folder = parentOf(whole), mask = lastOf(whole);
  if (mask.find_first_of(u"*?") == Text::npos) {
    const auto named = nodes_.find(whole);
    return named == nodes_.end() || named->second.folder ? Text() : named->second.name;
  }
  for (const auto& [key, node] : nodes_)
    if (!node.folder && parentOf(key) == folder && wildcardMatch(mask, lastOf(key))) return node.name;
  return {};
}

std::vector<Text> FakeFiles::filesBelow(TextView folder) const {
  const Text start = keyOf(folder) + u"\\";
  std::vector<Text> paths;
  for (const auto& [key, node] : nodes_) {
    if (node.folder || !key.starts_with(start)) continue;
    Text path = node.name;
    for (Text above = parentOf(key); above.size() >= start.size(); above = parentOf(above))
      path = nodes_.at(above).name + u"\\" + path;
    paths.push_back(path);
  }
  return paths;
}

std::vector<Files::Entry> FakeFiles::list(TextView folder) {
  faults_.visit("Files.list");
  if (!existing(folder).folder) throw Failure(failure::pathNotFound);
  std::vector<Entry> entries;
  for (const auto& [key, node] : nodes_)
    if (!key.empty() && parentOf(key) == keyOf(folder))
      entries.push_back({node.name, node.folder ? directoryAttribute : 0, node.modified});
  return entries;
}

int FakeFiles::attributes(TextView path) {
  faults_.visit("Files.attributes");
  return existing(path).folder ? directoryAttribute : 0;
}

bool FakeFiles::sameFile(TextView path, TextView other) {
  faults_.visit("Files.sameFile");
  const Node& node = existing(path);
  if (node.folder) throw Failure(failure::pathFileAccess);
  checkReachable(other);
  return find(other) == &node;
}

Date FakeFiles::modified(TextView path) {
  faults_.visit("Files.modified");
  return existing(path).modified;
}

void FakeFiles::makeDirectory(TextView path) {
  faults_.visit("Files.makeDirectory");
  checkReachable(path);
  const Text key = keyOf(path);
  if (nodes_.contains(key)) throw Failure(failure::pathFileAccess);
  checkFolderOf(key);
  nodes_[key] = {.name = lastOf(plain(path)), .folder = true};
}

void FakeFiles::copy(TextView from, TextView to, bool replace) {
  faults_.visit("Files.copy");
  const Node source = existing(from);
  checkWritable(to);
  if (source.folder) throw Failure(failure::pathFileAccess);
  if (find(to) && !replace) throw Failure(failure::fileAlreadyExists);
  if (keyOf(from) == keyOf(to)) throw Failure(failure::permissionDenied);
  Node& target = forWriting(to);
  target.content = source.content;
  target.modified = source.modified;
}

void FakeFiles::remove(TextView path) {
  faults_.visit("Files.remove");
  const Node& node = existing(path);
  if (node.folder) throw Failure(failure::fileNotFound);
  if (node.locked) throw Failure(failure::permissionDenied);
  nodes_.erase(keyOf(path));
}

void FakeFiles::append(TextView path, TextView text) {
  faults_.visit("Files.append");
  forWriting(path).content += text;
  appended.emplace_back(path, text);
}

void FakeFiles::write(TextView path, TextView text) {
  faults_.visit("Files.write");
  forWriting(path).content = text;
}

int FakeFiles::driveType(TextView root) {
  faults_.visit("Files.driveType");
  const auto drive = drives_.find(root.substr(0, 2));
  return drive == drives_.end() ? 1 : drive->second.type;
}

Text FakeFiles::temporaryFolder() {
  faults_.visit("Files.temporaryFolder");
  return temporary;
}

FakeFiles::Node& FakeFiles::existing(TextView path) {
  checkReachable(path);
  const Text key = keyOf(path);
  const auto found = nodes_.find(key);
  if (found == nodes_.end()) {
    checkFolderOf(key);
    throw Failure(failure::fileNotFound);
  }
  if (path.ends_with(u'\\') && !found->second.folder) throw Failure(failure::pathNotFound);
  return found->second;
}

FakeFiles::Node& FakeFiles::forWriting(TextView path) {
  checkWritable(path);
  Node& node = nodes_.try_emplace(keyOf(path), Node{.name = lastOf(plain(path))}).first->second;
  if (node.locked) throw Failure(failure::permissionDenied);
  return node;
}

const FakeFiles::Node* FakeFiles::find(TextView path) const {
  const auto found = nodes_.find(keyOf(path));
  if (found == nodes_.end()) return nullptr;
  return path.ends_with(u'\\') && !found->second.folder ? nullptr : &found->second;
}

void FakeFiles::checkWritable(TextView path) const {
  checkReachable(path);
  const Text key = keyOf(path);
  checkFolderOf(key);
  const auto found = nodes_.find(key);
  const bool namesFolder = path.ends_with(u'\\') || (found != nodes_.end() && found->second.folder);
  if (namesFolder) throw Failure(failure::pathFileAccess);
}

void FakeFiles::checkFolderOf(const Text& key) const {
  const auto parent = nodes_.find(parentOf(key));
  if (parent == nodes_.end() || !parent->second.folder) throw Failure(failure::pathNotFound);
}

void FakeFiles::checkReachable(TextView path) const {
  const auto drive = drives_.find(path.substr(0, 2));
  const bool onDrive = drive != drives_.end() && drive->second.ready;
  if (!path.starts_with(u'\\') && !onDrive) throw Failure(failure::pathNotFound);
  if (path.find(u'\0') != TextView::npos) throw Failure(failure::pathFileAccess);
}

}  // namespace ovalia::kit
