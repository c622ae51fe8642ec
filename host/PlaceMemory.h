#pragma once

class QWidget;

namespace ovalia::host {

// Where the main window stood when it was closed, in the settings of the application, section "MainWindow":
// "Estado" (0 normal, 2 maximised), "Left", "Top", "Width", "Height" in pixels. A window that is not in its
// normal state leaves the place behind it as it was kept before.
void keepPlace(const QWidget& window);

// Puts a window there, wholly on the screen on which it was, or on the first where that is gone. Without a
// place, or with one that is no number, the window stays as it is.
void restorePlace(QWidget& window);

}  // namespace ovalia::host
