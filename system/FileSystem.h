#pragma once

#include "platform/Platform.h"

namespace ovalia::system {

// The files of the disk by the logic's paths. Paths begin at the root: any other (a bare name, a drive
// letter) is 76, for probes too. Copying a file onto itself is 70; deleting a folder 53.
class FileSystem : public Files {
 public:
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

  // 3, a disk, where the folder exists; 1, nothing there, for any other.
  int driveType(TextView root) override;

  // The system's where it is the user's alone, else a private one in it.
  Text temporaryFolder() override;
};

}  // namespace ovalia::system
