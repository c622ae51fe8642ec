#pragma once

#include "system/FileSystem.h"

namespace ovalia::desktop {

// The files of the disk, for a thread that runs windows: they live on while a file is copied, however large
// it is and however slow its disk.
class LivelyFiles : public system::FileSystem {
 public:
  void copy(TextView from, TextView to, bool replace) override;
};

}  // namespace ovalia::desktop
