#pragma once

#include <QPointer>
#include <QWidget>

namespace ovalia::desktop {

// The window over which a dialog belongs now; none when the program shows no window. A dialog made over it is
// deleted with it: keep it on the heap and look at it after its loop.
QWidget* dialogOwner();

// While it lives, what comes up belongs over this window beside the modal one: here the user set off what is
// done. The toolkit cannot be asked: it knows of no active window for a while after a dialog has closed.
class ActingWindow {
 public:
  explicit ActingWindow(QWidget& window);
  ~ActingWindow();
  ActingWindow(const ActingWindow&) = delete;
  ActingWindow& operator=(const ActingWindow&) = delete;

 private:
  QPointer<QWidget> before_;
};

// Places a dialog that has no parent in the middle of the window and above it: it outlives the window.
void standOver(QWidget& dialog, QWidget* owner);

}  // namespace ovalia::desktop
