#include "tests/host/desk/Conversation.h"

#include <unistd.h>

#include <QApplication>
#include <QDialog>
#include <QMessageBox>
#include <QPointer>
#include <QTimer>
#include <algorithm>
#include <cstdlib>
#include <iostream>

#include "platform/Failure.h"
#include "platform/Text.h"

namespace ovalia::host {

namespace {

constexpr unsigned patienceSeconds = 120;  // for an answer; then the program is ended, for it hangs
constexpr int leftOpen = 3;

const QString lineEnd = QStringLiteral("⏎");

std::string oneLine(QString text) {
  return text.replace(QStringLiteral("\r\n"), lineEnd).replace(u'\n', lineEnd).toStdString();
}

std::string describe(QWidget& window) {
  if (auto* box = qobject_cast<QMessageBox*>(&window))
    return oneLine(QStringLiteral("box ") + box->windowTitle() + QStringLiteral(": ") + box->text());
  const bool dialog = qobject_cast<QDialog*>(&window) != nullptr;
  return oneLine((dialog ? QStringLiteral("dialog ") : QStringLiteral("card ")) + window.windowTitle());
}

}  // namespace

QWidget* windowOnTop() {
  QWidget* modal = QApplication::activeModalWidget();
  if (!modal || qobject_cast<QDialog*>(modal)) return modal;
  for (auto* dialog : modal->findChildren<QDialog*>(Qt::FindDirectChildrenOnly))
    if (dialog->isVisible()) return dialog;
  return modal;
}

// Looks out for windows that come up while a command is obeyed, and talks over them.
class Conversation::Watch {
 public:
  explicit Watch(Conversation& talk) : talk_(talk) {
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { look(); });
    timer_.start(everyMilliseconds);
  }

 private:
  static constexpr int everyMilliseconds = 1;

  void look() {
    QWidget* now = windowOnTop();
    if (!now || !now->isVisible() || std::ranges::count(talk_.windows_, now)) return;
    timer_.stop();
    talk_.over(*now, describe(*now));
    // As a window manager does.
    if (QWidget* next = windowOnTop()) next->activateWindow();
    timer_.start(everyMilliseconds);
  }

  Conversation& talk_;
  QTimer timer_;
};

Conversation::Conversation(std::istream& commands, int answers, Obey obey)
    : commands_(commands), answers_(answers), obey_(std::move(obey)) {}

void Conversation::answer(const std::string& line) {
  const std::string whole = line + '\n';
  for (std::size_t sent = 0; sent < whole.size();) {
    const ssize_t count = write(answers_, whole.data() + sent, whole.size() - sent);
    if (count <= 0) std::_Exit(leftOpen);  // nobody listens any more
    sent += static_cast<std::size_t>(count);
  }
  owed_ = false;
  alarm(0);
}

void Conversation::over(QWidget& window, const std::string& greeting) {
  const QPointer<QWidget> held(&window);
  const auto up = [&] { return held && held->isVisible(); };
  windows_.push_back(&window);
  QCoreApplication::processEvents();  // the window becomes the active one
  answer(greeting);
  std::string command;
  while (up()) {
    if (!std::getline(commands_, command)) {
      if (windows_.size() == 1) break;
      std::cerr << "the commands ended over the window \"" << describe(window) << "\"\n";
      std::_Exit(leftOpen);
    }
    owed_ = true;
    alarm(patienceSeconds);
    std::string result;
    perform(command, result);
    if (up() && owed_) answer(result);
  }
  windows_.pop_back();
}

void Conversation::perform(const std::string& command, std::string& result) {
  const Watch watch(*this);
  try {
    result = obey_(oneLine(QString::fromStdString(command)));
    QCoreApplication::processEvents();
  } catch (...) {
    result = "fail " + toUtf8(currentFailure().description());
  }
}

}  // namespace ovalia::host
