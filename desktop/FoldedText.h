#pragma once

#include <QString>

namespace ovalia::desktop {

// Letters alone, for searching: no case, no accents.
QString folded(const QString& text);

}  // namespace ovalia::desktop
