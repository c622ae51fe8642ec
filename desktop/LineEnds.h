#pragma once

#include <QString>

#include "platform/Text.h"

namespace ovalia::desktop {

// A text of lines as the model stores it (CRLF) and as the widget has it (a line feed), and positions in
// both.
QString shownLines(TextView stored);
Text storedLines(const QString& shown);
int shownPosition(TextView stored, int position);
int storedPosition(TextView stored, int shown);

}  // namespace ovalia::desktop
