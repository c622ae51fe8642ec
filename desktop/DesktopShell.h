#pragma once

#include "platform/Platform.h"

namespace ovalia::desktop {

// The desktop's trash, pictures of the program's windows, and version data.
class DesktopShell : public Shell {
 public:
  // 2 where there is no such file or a folder, 5 where it may not be moved, 31 for any other refusal; the
  // file then stays.
  RecycleResult recycle(TextView path) override;

  // The visible windows in their places, the active one on top.
  void saveScreenPicture(TextView path) override;
  SystemVersion systemVersion() override;
  std::optional<FileVersion> fileVersion(TextView path) override;
};

}  // namespace ovalia::desktop
