#pragma once

#include <cstdio>
#include <cstdlib>

#include "platform/Platform.h"
#include "system/FileSystem.h"
#include "system/SystemClock.h"

namespace ovalia::bench {

// Surroundings without windows. A box means that the measured thing went wrong: the benchmark ends.
class QuietScreen : public Screen {
 public:
  ObjectRef activeForm() override { return {}; }
  ObjectRef activeControl() override { return {}; }
  std::vector<ObjectRef> forms() override { return {}; }
  int mousePointer() override { return 0; }
  void setMousePointer(int) override {}
  double width() override { return 28800; }
  double height() override { return 16200; }
  int messageBox(TextView message, int, TextView) override {
    std::fprintf(stderr, "%s\n", toUtf8(message).c_str());
    std::abort();
  }
  Text inputBox(TextView, TextView, TextView) override { return {}; }
  void beep() override {}
  void yield() override {}
};

class NoSettings : public Settings {
 public:
  Text get(TextView, TextView, TextView, TextView fallback) override { return Text(fallback); }
  void save(TextView, TextView, TextView, TextView) override {}
  std::vector<std::pair<Text, Text>> all(TextView, TextView) override { return {}; }
};

class QuietPlatform {
 public:
  QuietPlatform() {
    platform.screen = &screen_;
    platform.settings = &settings_;
    platform.files = &files_;
    platform.objects = &objects_;
    platform.clock = &clock_;
  }
  Platform platform;

 private:
  QuietScreen screen_;
  NoSettings settings_;
  system::FileSystem files_;
  ObjectRegistry objects_;
  system::SystemClock clock_;
  PlatformInstallation installation_{platform};
};

}  // namespace ovalia::bench
