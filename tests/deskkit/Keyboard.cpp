#include "tests/deskkit/Keyboard.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QMenu>
#include <QTest>
#include <QTimer>
#include <QWidget>
#include <QWindow>

namespace ovalia::deskkit {

QWidget* windowInUse() {
  if (QWidget* popup = QApplication::activePopupWidget()) return popup;
  if (QWidget* active = QApplication::activeWindow(); active && active->isVisible()) return active;
  QWidget* next = QApplication::activeModalWidget();
  for (QWidget* window : QApplication::topLevelWidgets())
    if (!next && window->isVisible() && window->windowType() == Qt::Window) next = window;
  if (!next) {
    ADD_FAILURE() << "no window to press a key in";
    return nullptr;
  }
  next->activateWindow();
  QCoreApplication::processEvents();
  return next;
}

void press(int key, Qt::KeyboardModifiers modifiers, const QString& text) {
  QWidget* window = windowInUse();
  if (!window || !window->windowHandle()) return;
  QTest::sendKeyEvent(QTest::Click, window->windowHandle(), Qt::Key(key), text, modifiers);
}

void types(const QString& text) {
  for (const QChar c : text) {
    const bool lineEnd = c == u'\n';
    press(lineEnd ? int(Qt::Key_Return) : c.toUpper().unicode(), Qt::NoModifier,
          lineEnd ? QStringLiteral("\r") : QString(c));
  }
}

void letters(const char* underlined) {
  for (const char* letter = underlined; *letter; ++letter)
    press(*letter, QApplication::activePopupWidget() ? Qt::NoModifier : Qt::AltModifier,
          QString(QLatin1Char(*letter)).toLower());
}

void enter(Qt::KeyboardModifiers modifiers) { press(Qt::Key_Return, modifiers, QStringLiteral("\r")); }
void escape() { press(Qt::Key_Escape, Qt::NoModifier, QStringLiteral("\x1b")); }

void tab(bool forward) {
  if (forward)
    press(Qt::Key_Tab, Qt::NoModifier, QStringLiteral("\t"));
  else
    press(Qt::Key_Backtab, Qt::ShiftModifier);
}

void choose(char menu, const QString& caption) {
  const char letter[] = {menu, 0};
  letters(letter);
  const auto entry = [] {
    auto* open = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    return open && open->activeAction() ? open->activeAction()->text().remove(u'&') : QString();
  };
  constexpr int most = 20;
  for (int i = 0; i < most && entry() != caption; ++i) press(Qt::Key_Down);
  ASSERT_EQ(entry(), caption);
  enter();
}

void meanwhile(std::function<void()> actions) {
  QTimer::singleShot(0, [actions = std::move(actions)] {
    QCoreApplication::processEvents();  // the window becomes the active one
    actions();
  });
}

bool eventually(const std::function<bool()>& condition) {
  QElapsedTimer clock;
  clock.start();
  while (!condition()) {
    if (clock.elapsed() > 5000) return false;
    QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  return true;
}

}  // namespace ovalia::deskkit
