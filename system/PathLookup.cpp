#include "system/PathLookup.h"

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>

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
  for (const DiskName& entry : namesIn(folder))
    if (sameName(entry.text, name)) return below(folder, entry.bytes);
  return std::nullopt;
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

std::optional<std::string> locate(TextView path) {
  checkPath(path);
  std::string found = "/";
  for (std::size_t at = 0; at < path.size();) {
    const std::size_t end = std::min(path.find(separator, at), path.size());
    if (end > at) {
      const auto entry = entryOf(found, Text(path.substr(at, end - at)));
      if (!entry) return std::nullopt;
      found = *entry;
    }
    at = end + 1;
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

std::vector<DiskName> namesIn(const std::string& folder) {
  std::vector<DiskName> names;
  std::error_code error;
  std::filesystem::directory_iterator entry(folder, error), end;
  while (!error && entry != end) {
    const std::string bytes = entry->path().filename().string();
    names.push_back({bytes, fromUtf8(bytes)});
    entry.increment(error);
  }
  if (error) throw failureOf(error.value() == ENOENT ? ENOTDIR : error.value(), fromUtf8(folder));
  std::sort(names.begin(), names.end(), [](const DiskName& a, const DiskName& b) {
    if (NameLess{}(a.text, b.text)) return true;
    return !NameLess{}(b.text, a.text) && a.bytes < b.bytes;
  });
  return names;
}

}  // namespace ovalia::system
