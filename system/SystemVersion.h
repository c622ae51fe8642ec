#pragma once

#include <string_view>

#include "platform/Platform.h"

namespace ovalia::system {

// The running system by its kernel's name and release.
Shell::SystemVersion systemVersion();

// The same of given ones: "6.1.0-18-amd64" is 6.1.0, its rest stands as the service pack. Numbers that are
// missing are 0.
Shell::SystemVersion versionFrom(std::string_view name, std::string_view release);

}  // namespace ovalia::system
