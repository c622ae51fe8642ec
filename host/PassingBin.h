#pragma once

#include <filesystem>

#include "desktop/DesktopShell.h"
#include "desktop/DiskFile.h"
#include "platform/Platform.h"

namespace ovalia::host {

// A recycle bin in a folder of its own; while it lives the thread's platform uses it in place of its user's.
class PassingBin : public desktop::DesktopShell {
 public:
  explicit PassingBin(std::filesystem::path folder) : folder_(std::move(folder)) {
    Platform::current().shell = this;
  }
  ~PassingBin() override { Platform::current().shell = before_; }
  PassingBin(const PassingBin&) = delete;
  PassingBin& operator=(const PassingBin&) = delete;

  RecycleResult recycle(TextView path) override {
    const std::filesystem::path file = desktop::diskFile(path).toStdString();
    std::error_code error;
    std::filesystem::create_directories(folder_, error);
    if (!error) std::filesystem::rename(file, folder_ / file.filename(), error);
    return error ? RecycleResult{error.value(), error.value(), false} : RecycleResult{};
  }

 private:
  Shell* before_ = Platform::current().shell;
  const std::filesystem::path folder_;
};

}  // namespace ovalia::host
