#include "system/FileSystem.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

#include "system/FileCopy.h"
#include "system/PathLookup.h"
#include "system/SystemClock.h"
#include "system/SystemFailure.h"

namespace ovalia::system {

namespace {

struct stat statusOf(const std::string& file, TextView path) {
  struct stat status;
  if (stat(file.c_str(), &status) != 0) throw failureOf(errno, path);
  return status;
}

int attributesOf(const struct stat& status) {
  return S_ISDIR(status.st_mode) ? Files::directoryAttribute : 0;
}

Files::Entry entryOf(const DiskName& name, const std::string& folder) {
  struct stat status;
  const std::string file = folder + "/" + name.bytes;
  if (stat(file.c_str(), &status) != 0 && lstat(file.c_str(), &status) != 0) return {name.text, 0, {}};
  return {name.text, attributesOf(status), localTime(status.st_mtime)};
}

// Whether others may write into a folder too.
bool isShared(const std::string& folder) {
  struct stat status;
  return stat(folder.c_str(), &status) == 0 && (status.st_uid != geteuid() || (status.st_mode & S_IWOTH));
}

// This user's own folder inside one of all users, where nobody else reads the log and the pictures of the
// screen or has laid a link. 70 where the place is taken.
std::string privateFolder(const std::filesystem::path& shared) {
  const std::string own = shared / ("ovalia-" + std::to_string(geteuid()));
  struct stat status;
  if (mkdir(own.c_str(), S_IRWXU) != 0 && errno != EEXIST) throw failureOf(errno, fromUtf8(own));
  if (lstat(own.c_str(), &status) != 0) throw failureOf(errno, fromUtf8(own));
  if (!S_ISDIR(status.st_mode) || status.st_uid != geteuid()) throw failureOf(EACCES, fromUtf8(own));
  return own;
}

}  // namespace

Text FileSystem::firstMatch(TextView pathOrMask) {
  checkPath(pathOrMask);
  const SplitPath split = splitPath(pathOrMask, true);
  const auto folder = locate(split.folder);
  if (!folder || !isFolder(*folder)) return {};
  if (!split.last.empty() && isPlainFile(*folder + "/" + toUtf8(split.last))) return split.last;
  const TextView mask = split.last.empty() ? TextView(u"*") : TextView(split.last);
  for (const DiskName& name : namesIn(*folder, [=](TextView entry) { return fitsMask(entry, mask); }))
    if (isPlainFile(*folder + "/" + name.bytes)) return name.text;
  return {};
}

std::vector<Files::Entry> FileSystem::list(TextView folder) {
  const auto found = locate(folder);
  if (!found) throw failureOf(ENOTDIR, folder);
  std::vector<Entry> entries;
  for (const DiskName& name : namesIn(*found)) entries.push_back(entryOf(name, *found));
  return entries;
}

int FileSystem::attributes(TextView path) { return attributesOf(statusOf(existing(path), path)); }

bool FileSystem::sameFile(TextView path, TextView other) {
  const std::string file = existing(path);
  if (!isPlainFile(file)) throw failureOf(EISDIR, path);
  const auto found = locate(other);
  std::error_code error;
  return found && std::filesystem::equivalent(file, *found, error);
}

Date FileSystem::modified(TextView path) { return localTime(statusOf(existing(path), path).st_mtime); }

void FileSystem::makeDirectory(TextView path) {
  if (locate(path)) throw failureOf(EISDIR, path);
  const SplitPath split = splitPath(path);
  const auto folder = locate(split.folder);
  if (!folder) throw failureOf(ENOTDIR, path);
  const std::string made = *folder + "/" + toUtf8(split.last);
  if (mkdir(made.c_str(), 0777) == 0) return syncFolderOf(made);
  throw failureOf(errno == EEXIST ? EISDIR : errno == ENOENT ? ENOTDIR : errno, path);
}

void FileSystem::copy(TextView from, TextView to, bool replace) {
  const std::string source = existing(from), target = writable(to);
  if (replace)
    copyOver(source, target);
  else
    copyNew(source, target);
}

void FileSystem::remove(TextView path) {
  const std::string file = existing(path);
  if (unlink(file.c_str()) != 0) throw failureOf(errno == EISDIR ? ENOENT : errno, path);
}

void FileSystem::append(TextView path, TextView text) { appendBytes(writable(path), toUtf8(text)); }

void FileSystem::write(TextView path, TextView text) { writeBytes(writable(path), toUtf8(text)); }

int FileSystem::driveType(TextView root) {
  constexpr int nothingThere = 1, fixedDisk = 3;
  const auto folder = root.starts_with(u'\\') ? locate(root) : std::nullopt;
  return folder && isFolder(*folder) ? fixedDisk : nothingThere;
}

Text FileSystem::temporaryFolder() {
  std::error_code error;
  std::filesystem::path folder = std::filesystem::temp_directory_path(error);
  if (error) folder = "/tmp";
  folder = std::filesystem::absolute(folder, error);
  if (isShared(folder)) folder = privateFolder(folder);
  Text path = logicPath(fromUtf8(folder.string()));
  if (!path.ends_with(u'\\')) path += u'\\';
  return path;
}

}  // namespace ovalia::system
