#pragma once

#include <map>
#include <utility>
#include <vector>

#include "platform/Platform.h"
#include "tests/kit/FaultPanel.h"

namespace ovalia::kit {

// Files in memory, by the rules of the port: names without regard to case, answers in the spelling they were
// made with, doubled separators as one, failures 53, 58, 70, 75, 76. There are the root "\" and the temporary
// folder at first; a path with a drive letter exists only where the test adds the drive.
class FakeFiles : public Files {
 public:
  explicit FakeFiles(FaultPanel& faults);

  // Setting the scene; folders on the way are made.
  void putFolder(TextView path);
  void putFile(TextView path, Text content = {}, Date modified = {});
  void lock(TextView path);                                // deleting or writing it fails with 70
  void addDrive(Text drive, int type, bool ready = true);  // "D:", 5 for a CD-ROM; not ready: no root (76)

  // Looking at it.
  bool exists(TextView path) const;
  bool isPlainFile(TextView path) const;
  Text content(TextView path) const;                    // "" and a test failure where there is no such file
  std::vector<Text> filesBelow(TextView folder) const;  // paths from there, as spelt, in their order

  std::vector<std::pair<Text, Text>> appended;  // every append that went through: path as given, text

  Text temporary = u"\\Señal y Cía\\tmp\\";

  Text firstMatch(TextView pathOrMask) override;
  std::vector<Entry> list(TextView folder) override;
  int attributes(TextView path) override;
  bool sameFile(TextView path, TextView other) override;
  Date modified(TextView path) override;
  void makeDirectory(TextView path) override;
  void copy(TextView from, TextView to, bool replace) override;
  void remove(TextView path) override;
  void append(TextView path, TextView text) override;
  void write(TextView path, TextView text) override;
  int driveType(TextView root) override;
  Text temporaryFolder() override;

 private:
  struct Node {
    Text name;
    bool folder = false;
    bool locked = false;
    Text content = {};
    Date modified = {};
  };
  struct Drive {
    int type;
    bool ready;
  };
  Node& existing(TextView path);
  Node& forWriting(TextView path);
  const Node* find(TextView path) const;
  void checkFolderOf(const Text& key) const;
  void checkWritable(TextView path) const;
  void checkReachable(TextView path) const;

  FaultPanel& faults_;
  std::map<Text, Node> nodes_;  // by path in lower case, without a final separator
  std::map<Text, Drive, NameLess> drives_;
};

}  // namespace ovalia::kit
