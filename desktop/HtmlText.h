#pragma once

#include <QString>

namespace ovalia::desktop {

// What is read of a page in HTML, without its layout. Nothing that it refers to is looked for; the time it
// takes goes with its length, whatever it holds.
QString textOfHtml(const QString& html);

}  // namespace ovalia::desktop
