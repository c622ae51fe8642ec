#pragma once

#include <utility>

#include "tests/kit/FakeFiles.h"

namespace ovalia::host {

// The disk as a class of real files knows it, but for a temporary folder and a log of the test's own.
template <class Disk>
class TestDisk : public Disk {
 public:
  TestDisk(kit::FakeFiles& log, Text temporary) : log_(log), temporary_(std::move(temporary)) {}
  Text temporaryFolder() override { return temporary_; }
  void append(TextView path, TextView text) override { log_.append(path, text); }

 private:
  kit::FakeFiles& log_;
  const Text temporary_;
};

}  // namespace ovalia::host
