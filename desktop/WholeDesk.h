#pragma once

#include <QRect>

namespace ovalia::desktop {

// All screens together, in the toolkit's pixels; empty without a screen. A form's places count from its upper
// left corner, so that none of them is negative, whichever screen is the first.
QRect wholeDesk();

}  // namespace ovalia::desktop
