#pragma once

#include <QMimeType>

namespace ovalia::desktop {

// What a file holds, by its content: a document's stored name says little of it. Where the content leaves the
// matter open - a container, plain text, bytes that nobody knows - the names decide, as far as they do not
// contradict it: first the one it is shown by, then its own.
QMimeType documentType(const QString& path, const QString& shownName);

}  // namespace ovalia::desktop
