#pragma once

#include <QString>
#include <optional>

#include "platform/Platform.h"

namespace ovalia::desktop {

// The version that a Windows program or library carries in its resources; nothing for any other file.
std::optional<Shell::FileVersion> readFileVersion(const QString& file);

}  // namespace ovalia::desktop
