#pragma once

#include <QDate>
#include <QWidget>
#include <functional>

namespace ovalia::desktop {

// Shows a calendar under a widget; `chosen` gets the day picked, the `present` one by its button, or an
// invalid one for "no date". Escape and a click elsewhere choose nothing. It deletes itself.
void popUpCalendar(QWidget& under, QDate shown, QDate present, std::function<void(QDate)> chosen);

}  // namespace ovalia::desktop
