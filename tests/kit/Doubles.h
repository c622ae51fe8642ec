#pragma once

#include <map>
#include <optional>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "platform/Platform.h"
#include "tests/kit/FakeFiles.h"
#include "tests/kit/FaultPanel.h"

namespace ovalia::kit {

// Settings in memory; `saved` keeps the order of the saves as "section|key=value".
class FakeSettings : public Settings {
 public:
  explicit FakeSettings(FaultPanel& faults) : faults_(faults) {}

  std::vector<Text> saved;
  std::vector<Text> asked;  // the keys in the order they were asked for

  // A value as if stored earlier; nothing is recorded. Pairs of a section come back in the order of their
  // entry.
  void put(TextView application, TextView section, TextView key, TextView value);
  std::optional<Text> stored(TextView application, TextView section, TextView key) const;

  Text get(TextView application, TextView section, TextView key, TextView fallback) override;
  void save(TextView application, TextView section, TextView key, TextView value) override;
  std::vector<std::pair<Text, Text>> all(TextView application, TextView section) override;

 private:
  FaultPanel& faults_;
  std::map<std::pair<Text, Text>, std::vector<std::pair<Text, Text>>> sections_;
};

// A clock that stands still: 9 March 2026, 10:20:30, until it is set.
class FakeClock : public Clock {
 public:
  DateParts time = {2026, 3, 9, 10, 20, 30};
  Date now() override;
};

// A clipboard that keeps the steps taken: "open", "empty", "setFiles", "setDropEffect 1", "files", "close".
class FakeClipboard : public Clipboard {
 public:
  explicit FakeClipboard(FaultPanel& faults) : faults_(faults) {}

  std::vector<Text> fileList;
  bool holdsFiles = false;
  bool holdsBitmap = false;
  bool refusesToOpen = false;
  bool refusesFiles = false;
  bool isOpen = false;
  std::vector<std::string> steps;

  bool has(int format) override;
  bool open() override;
  void empty() override;
  bool setFiles(std::span<const Text> paths) override;
  bool setDropEffect(int effect) override;
  std::vector<Text> files() override;
  void close() override;

 private:
  FaultPanel& faults_;
};

// The desktop's services over the files in memory.
class FakeShell : public Shell {
 public:
  FakeShell(FaultPanel& faults, FakeFiles& files) : faults_(faults), files_(files) {}

  std::vector<Text> recycled;                // paths that were asked for
  std::optional<RecycleResult> nextRecycle;  // answers the next one and leaves the file where it is
  SystemVersion system = {
      .platform = 2, .name = {}, .major = 5, .minor = 1, .build = 2600, .servicePack = {}};
  std::map<Text, FileVersion, NameLess> versions;  // by path

  RecycleResult recycle(TextView path) override;
  void saveScreenPicture(TextView path) override;
  SystemVersion systemVersion() override;
  std::optional<FileVersion> fileVersion(TextView path) override;

 private:
  FaultPanel& faults_;
  FakeFiles& files_;
};

}  // namespace ovalia::kit
