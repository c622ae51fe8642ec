#pragma once

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <stdexcept>

#include "platform/Failure.h"
#include "system/FileSystem.h"
#include "tests/kit/TemporaryFolder.h"

namespace ovalia::system::test {

namespace fs = std::filesystem;

// An ordinary user's rights, whoever runs the tests.
class OrdinaryUser {
 public:
  OrdinaryUser() : before_(geteuid()) {
    if (before_ == 0 && seteuid(nobody) != 0) throw std::runtime_error("cannot give up rights");
  }
  ~OrdinaryUser() {
    if (before_ == 0 && seteuid(0) != 0) std::abort();
  }
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;

 private:
  static constexpr uid_t nobody = 65534;
  uid_t before_;
};

// No file may grow beyond a size: what a full disk does to whoever writes.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes) : signal_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit{bytes, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FileSizeLimit() {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, signal_);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;

 private:
  rlimit before_;
  void (*signal_)(int);
};

class FileSystemTest : public testing::Test {
 protected:
  kit::TemporaryFolder tree;
  FileSystem files;

  static std::int32_t numberOf(const std::function<void()>& action) {
    try {
      action();
      return 0;
    } catch (const Failure& failure) {
      return failure.number();
    }
  }
  int entries(std::string_view folder = "") const {
    return int(std::distance(fs::directory_iterator(tree.path() / folder), {}));
  }
};

}  // namespace ovalia::system::test
