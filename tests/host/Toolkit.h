#pragma once

#include <QApplication>

namespace ovalia::host {

// The toolkit's one application object, made at first use.
QApplication& application();

}  // namespace ovalia::host
