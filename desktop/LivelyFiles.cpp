#include "desktop/LivelyFiles.h"

#include <chrono>
#include <future>

#include "desktop/Progress.h"

namespace ovalia::desktop {

void LivelyFiles::copy(TextView from, TextView to, bool replace) {
  Progress& progress = Progress::current();
  if (progress.breathing()) return FileSystem::copy(from, to, replace);
  progress.next();
  const auto copying = std::async(std::launch::async, [&] { FileSystem::copy(from, to, replace); }).share();
  do progress.breathe();
  while (copying.wait_for(std::chrono::milliseconds(20)) != std::future_status::ready);
  copying.get();
}

}  // namespace ovalia::desktop
