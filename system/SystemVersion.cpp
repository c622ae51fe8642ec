#include "system/SystemVersion.h"

#include <sys/utsname.h>

#include <charconv>

namespace ovalia::system {

Shell::SystemVersion versionFrom(std::string_view name, std::string_view release) {
  Shell::SystemVersion version;
  version.name = fromUtf8(name);
  for (int* number : {&version.major, &version.minor, &version.build}) {
    const char* const end = release.data() + release.size();
    const auto [rest, error] = std::from_chars(release.data(), end, *number);
    if (error != std::errc()) break;
    release = {rest, std::size_t(end - rest)};
    if (!release.starts_with('.')) break;
    release.remove_prefix(1);
  }
  version.servicePack = fromUtf8(release.starts_with('-') ? release.substr(1) : release);
  return version;
}

Shell::SystemVersion systemVersion() {
  utsname running;
  if (uname(&running) != 0) return {};
  return versionFrom(running.sysname, running.release);
}

}  // namespace ovalia::system
