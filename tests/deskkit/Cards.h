#pragma once

#include "desktop/CardWindow.h"
#include "forms/Form.h"

// A drawn form as its user sees it.
namespace ovalia::deskkit {

// Null for a form without a window. Of several forms of one name it is the one that is shown.
desktop::CardWindow* windowOf(const forms::Form& form);

// What draws a control, and the part of it that is typed into; null where the form draws no such control.
QWidget* widgetOf(const forms::Form& form, TextView control);
QWidget* inputOf(const forms::Form& form, TextView control);

// The text that stands in a box, a list or a picker; "" in any other.
QString shownIn(const forms::Form& form, TextView control);

}  // namespace ovalia::deskkit
