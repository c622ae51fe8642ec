#include "desktop/DiskFile.h"

#include <QFile>

#include "desktop/QtText.h"
#include "platform/Failure.h"
#include "platform/Platform.h"
#include "system/PathLookup.h"

namespace ovalia::desktop {

QString diskFile(TextView path) {
  try {
    if (const auto found = system::locate(path)) return QFile::decodeName(found->c_str());
  } catch (const Failure&) {
    // A path that can name nothing is handed on as it is, for whoever opens it to refuse.
  }
  return toQt(nativePath(path));
}

}  // namespace ovalia::desktop
