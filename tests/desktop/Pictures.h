#pragma once

#include <QStringList>
#include <QWidget>

#include "desktop/CardWindow.h"

// What can be measured of a drawn form, and its picture for those who look at it.
namespace ovalia::desktop {

// Every text that does not fit the place it has.
QStringList cutTexts(const CardWindow& window);

// Pairs of controls that lie over each other.
QStringList overlaps(forms::Form& form);

// Saves the window as "pictures/<form>_<kind>_..." with the resolution in its name; false where it cannot.
bool savePicture(QWidget& window, const QString& form, const QString& kind);

}  // namespace ovalia::desktop
