#include "system/PathLookup.h"

#include <dirent.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <string_view>
#include <utility>

#include "system/SystemFailure.h"

namespace ovalia::system {

namespace {

constexpr char16_t separator = u'\\';

bool isThere(const std::string& path) {
  struct stat status;
  return lstat(path.c_str(), &status) == 0;
}

std::string below(const std::string& folder, const std::string& name) {
  return folder == "/" ? folder + name : folder + "/" + name;
}

// The entry of a folder that a component names.
std::optional<std::string> entryOf(const std::string& folder, const Text& name) {
  const std::string exact = below(folder, toUtf8(name));
  if (isThere(exact)) return exact;
  if (!isFolder(folder)) return std::nullopt;
  const auto spelt = namesIn(folder, [&](TextView entry) { return sameName(entry, name); });
  if (spelt.empty()) return std::nullopt;
  return below(folder, spelt.front().bytes);
}

// Every entry but the folder itself and the one above it; gives the system's error, 0 for none.
template <class Action>
int forEachEntry(const std::string& folder, Action&& action) {
  const std::unique_ptr<DIR, int (*)(DIR*)> stream(opendir(folder.c_str()), closedir);
  if (!stream) return errno;
  for (;;) {
    errno = 0;
    const dirent* entry = readdir(stream.get());
    if (!entry) return errno;
    if (const std::string_view name = entry->d_name; name != "." && name != "..") action(name);
  }
}

std::vector<Text> componentsOf(TextView path) {
  std::vector<Text> components;
  for (std::size_t at = 0; at < path.size();) {
    const std::size_t end = std::min(path.find(separator, at), path.size());
    if (end > at) components.emplace_back(path.substr(at, end - at));
    at = end + 1;
  }
  return components;
}

}  // namespace

bool isFolder(const std::string& file) {
  struct stat status;
  return stat(file.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

bool isPlainFile(const std::string& file) {
  struct stat status;
  return stat(file.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

// The system would read a name with a zero character as the shorter one before it.
void checkPath(TextView path) {
  if (!path.starts_with(separator)) throw failureOf(ENOTDIR, path);
  if (path.find(u'\0') != TextView::npos) throw failureOf(EINVAL, path);
}

// What is spelt as on disk throughout, as nearly all is, costs one look however deep it lies.
std::optional<std::string> locate(TextView path) {
  checkPath(path);
  const std::vector<Text> components = componentsOf(path);
  std::string exact = "/";
  for (const Text& name : components) exact = below(exact, toUtf8(name));
  if (isThere(exact)) return exact;

  std::string found = "/";
  for (const Text& name : components) {
    const auto entry = entryOf(found, name);
    if (!entry) return std::nullopt;
    found = *entry;
  }
  return found;
}

std::string existing(TextView path) {
  if (auto found = locate(path)) {
    if (path.ends_with(separator) && isPlainFile(*found)) throw failureOf(ENOTDIR, path);
    return *found;
  }
  const auto folder = locate(splitPath(path).folder);
  throw failureOf(folder && isFolder(*folder) ? ENOENT : ENOTDIR, path);
}

std::string writable(TextView path) {
  checkPath(path);
  const SplitPath split = splitPath(path);
  const auto folder = locate(split.folder);
  if (!folder || !isFolder(*folder)) throw failureOf(ENOTDIR, path);
  const std::string file = entryOf(*folder, split.last).value_or(below(*folder, toUtf8(split.last)));
  if (path.ends_with(separator) || isFolder(file)) throw failureOf(EISDIR, path);
  return file;
}

SplitPath splitPath(TextView path, bool keepEnd) {
  Text single;
  for (const char16_t c : path)
    if (c != separator || !single.ends_with(separator)) single += c;
  if (!keepEnd && single.size() > 1 && single.ends_with(separator)) single.pop_back();
  const std::size_t last = single.rfind(separator);
  const std::size_t start = last == Text::npos ? 0 : last + 1;
  return {single.substr(0, start), single.substr(start)};
}

bool fitsMask(TextView name, TextView mask) {
  if (mask.find_first_of(u"*?") == TextView::npos) return sameName(name, mask);
  const Text letters = lowerCase(name), pattern = lowerCase(mask);
  std::size_t at = 0, in = 0, star = Text::npos, retry = 0;
  while (at < letters.size()) {
    if (in < pattern.size() && pattern[in] == u'*') {
      star = in++;
      retry = at;
    } else if (in < pattern.size() && (pattern[in] == u'?' || pattern[in] == letters[at])) {
      ++in;
      ++at;
    } else if (star != Text::npos) {
      in = star + 1;
      at = ++retry;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of(u'*', in) == Text::npos;
}

std::vector<DiskName> namesIn(const std::string& folder, const std::function<bool(TextView)>& wanted) {
  std::vector<DiskName> names;
  const int error = forEachEntry(folder, [&](std::string_view bytes) {
    if (Text text = fromUtf8(bytes); !wanted || wanted(text))
      names.push_back({std::string(bytes), std::move(text)});
  });
  if (error) throw failureOf(error == ENOENT ? ENOTDIR : error, fromUtf8(folder));
  std::sort(names.begin(), names.end(), [](const DiskName& a, const DiskName& b) {
    if (NameLess{}(a.text, b.text)) return true;
    return !NameLess{}(b.text, a.text) && a.bytes < b.bytes;
  });
  return names;
}

}  // namespace ovalia::system
