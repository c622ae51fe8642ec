#pragma once

#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

// Watches what a test program brings to disk. To be included by one source of the program: it holds the
// definition of `fsync` that the program then uses in place of the system's, and which does what that does
// while nobody watches.
namespace ovalia::system::test {

class SyncWatch {
 public:
  explicit SyncWatch(std::filesystem::path below)
      : below_(std::move(below)), before_(std::exchange(current(), this)) {}
  ~SyncWatch() { current() = before_; }
  SyncWatch(const SyncWatch&) = delete;
  SyncWatch& operator=(const SyncWatch&) = delete;

  std::vector<std::string> brought;  // files and folders in their order, by their names below the folder
  int failing = 0;                   // the error that comes of it instead

  static SyncWatch*& current() {
    static SyncWatch* watch = nullptr;
    return watch;
  }

  int sync(int descriptor) {
    if (failing) {
      errno = failing;
      return -1;
    }
    std::error_code error;
    const auto file =
        std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(descriptor), error).string();
    if (const std::string start = below_.string() + "/"; file.starts_with(start))
      brought.push_back(file.substr(start.size()));
    return 0;
  }

 private:
  std::filesystem::path below_;
  SyncWatch* before_;
};

}  // namespace ovalia::system::test

extern "C" int fsync(int descriptor) {
  if (auto* watch = ovalia::system::test::SyncWatch::current()) return watch->sync(descriptor);
  return static_cast<int>(syscall(SYS_fsync, descriptor));
}
