#include "host/TourDialogs.h"

#include <QFileInfo>
#include <utility>

#include "desktop/DocumentType.h"
#include "desktop/Progress.h"
#include "desktop/QtText.h"

namespace ovalia::host {

using desktop::fromQt;
using desktop::toQt;

std::vector<Text> TourDialogs::openFiles(const FileQuestion&) {
  desktop::Progress::current().expect(files.size());
  return std::exchange(files, {});
}

Text TourDialogs::saveFile(const FileQuestion&) { return std::exchange(target, {}); }

bool TourDialogs::openFile(TextView nativePath, TextView shownName) {
  const QString path = toQt(nativePath);
  opened.push_back({Text(nativePath), u"«" + Text(shownName) + u"» (" + fromQt(QFileInfo(path).fileName()) +
                                          u"): " +
                                          fromQt(desktop::documentType(path, toQt(shownName)).name())});
  return true;
}

}  // namespace ovalia::host
