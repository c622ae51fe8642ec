#include "system/FileCopy.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <utility>
#include <vector>

#include "platform/Text.h"
#include "system/SystemFailure.h"

namespace ovalia::system {

namespace {

constexpr std::size_t blockSize = 256 * 1024;
constexpr mode_t newFileMode = 0666;  // less what the user's mask takes away

// An open file, closed with its owner.
class Descriptor {
 public:
  Descriptor(const std::string& file, int flags)
      : Descriptor(open(file.c_str(), flags | O_CLOEXEC, newFileMode), file) {}
  Descriptor(int number, std::string file) : number_(number), file_(std::move(file)) {
    if (number_ < 0) fail();
  }
  ~Descriptor() {
    if (number_ >= 0) ::close(number_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  int number() const { return number_; }
  [[noreturn]] void fail() const { throw failureOf(errno, fromUtf8(file_)); }

  struct stat status() const {
    struct stat found;
    if (fstat(number_, &found) != 0) fail();
    return found;
  }

  std::size_t read(std::vector<char>& block) const {
    for (;;) {
      const ssize_t count = ::read(number_, block.data(), block.size());
      if (count >= 0) return std::size_t(count);
      if (errno != EINTR) fail();
    }
  }

  void write(std::string_view bytes) const {
    while (!bytes.empty()) {
      const ssize_t count = ::write(number_, bytes.data(), bytes.size());
      if (count < 0 && errno != EINTR) fail();
      if (count > 0) bytes.remove_prefix(std::size_t(count));
    }
  }

  // Some file systems report a full disk only here.
  void finish() {
    if (fsync(number_) != 0 && errno != EINVAL) fail();
    const int closing = std::exchange(number_, -1);
    if (::close(closing) != 0 && errno != EINTR) fail();
  }

 private:
  int number_;
  std::string file_;
};

// Takes a file away again unless the work on it was completed.
class Unfinished {
 public:
  explicit Unfinished(std::string file) : file_(std::move(file)) {}
  ~Unfinished() {
    if (!complete_) unlink(file_.c_str());
  }
  Unfinished(const Unfinished&) = delete;
  Unfinished& operator=(const Unfinished&) = delete;
  void completed() { complete_ = true; }

 private:
  std::string file_;
  bool complete_ = false;
};

void copyContents(const Descriptor& source, Descriptor& target) {
  std::vector<char> block(blockSize);
  while (const std::size_t count = source.read(block)) target.write({block.data(), count});
  const struct stat status = source.status();
  const timespec times[] = {status.st_atim, status.st_mtim};
  futimens(target.number(), times);
  target.finish();
}

// Opens what is to be copied: a plain file. Nothing is waited for: a pipe would hold the user up for ever.
class Source : public Descriptor {
 public:
  explicit Source(const std::string& from) : Descriptor(from, O_RDONLY | O_NONBLOCK) {
    if (!S_ISREG(status().st_mode)) throw failureOf(EISDIR, fromUtf8(from));
  }
};

}  // namespace

void copyNew(const std::string& from, const std::string& to) {
  const Source source(from);
  Descriptor target(to, O_WRONLY | O_CREAT | O_EXCL);
  Unfinished unfinished(to);
  copyContents(source, target);
  unfinished.completed();
  syncFolderOf(to);
}

void copyOver(const std::string& from, const std::string& to) {
  std::error_code error;
  const std::filesystem::path aim = std::filesystem::weakly_canonical(to, error);
  const std::string real = error ? to : aim.string();
  if (std::filesystem::equivalent(from, real, error)) throw failureOf(EACCES, fromUtf8(to));
  if (faccessat(AT_FDCWD, real.c_str(), F_OK, AT_EACCESS) != 0) return copyNew(from, real);
  if (faccessat(AT_FDCWD, real.c_str(), W_OK, AT_EACCESS) != 0) throw failureOf(errno, fromUtf8(to));

  const Source source(from);
  std::string name = std::filesystem::path(real).replace_filename(".copia.XXXXXX").string();
  Descriptor target(mkostemp(name.data(), O_CLOEXEC), to);
  Unfinished unfinished(name);
  struct stat before;
  if (stat(real.c_str(), &before) == 0) fchmod(target.number(), before.st_mode & 07777);
  copyContents(source, target);
  if (rename(name.c_str(), real.c_str()) != 0) throw failureOf(errno, fromUtf8(to));
  unfinished.completed();
  syncFolderOf(real);
}

void syncFolderOf(const std::string& file) {
  const std::string folder = std::filesystem::path(file).parent_path().string();
  const int number = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (number < 0) return;
  fsync(number);
  close(number);
}

void appendBytes(const std::string& file, std::string_view bytes) {
  Descriptor(file, O_WRONLY | O_CREAT | O_APPEND).write(bytes);
}

void writeBytes(const std::string& file, std::string_view bytes) {
  Descriptor(file, O_WRONLY | O_CREAT | O_TRUNC).write(bytes);
}

}  // namespace ovalia::system
