#pragma once

#include <QString>
#include <Qt>
#include <functional>

class QWidget;

// A user's hands on the keyboard. A key goes the way that the window system sends it: to the window that the
// user is in, past its shortcuts, its menus and its open lists, to whatever has the focus there.
namespace ovalia::deskkit {

// The window whose keys these are: the open menu or list, else the active window. Where none is active, as
// after a window has closed, the one that a window manager would turn to becomes so. Fails the test, and
// gives null, when there is none.
QWidget* windowInUse();

// A key, with the text that it writes where it writes any.
void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, const QString& text = {});

// Letters of any alphabet; a line end is the Enter key.
void types(const QString& text);

// Alt with each of the letters: the first opens a menu or presses a button, further ones choose in the menu.
void letters(const char* underlined);

// The keys that have a name on the keyboard.
void enter(Qt::KeyboardModifiers modifiers = Qt::NoModifier);
void escape();
void tab(bool forward = true);

// In the menu that Alt opens with that letter, walks down to the entry and presses Enter on it.
void choose(char menu, const QString& caption);

// Runs it in the next event loop: that of the window that comes up with the key that is pressed next.
void meanwhile(std::function<void()> actions);

// Runs the event loop until the condition holds; false when it does not within a few seconds.
bool eventually(const std::function<bool()>& condition);

}  // namespace ovalia::deskkit
