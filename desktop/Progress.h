#pragma once

#include <QElapsedTimer>
#include <QString>
#include <functional>

namespace ovalia::desktop {

// How far a command is that copies files, and life for the windows meanwhile: they are drawn and answer the
// window manager. What the user does waits until the command has ended. One a thread; the thread is the one
// that runs the windows.
class Progress {
 public:
  static Progress& current();

  // What to show: "Copiando documento 12 de 200..."; "" when the command has ended. Only for commands that
  // take longer than a moment.
  std::function<void(const QString&)> tell;

  // So many files are about to be copied by one command.
  void expect(std::size_t files);

  // The next file is being copied.
  void next();

  // Lets the windows live, if they have not for a while.
  void breathe();

  // What happens now is not the user's doing: it came while a command runs.
  bool breathing() const { return breathing_; }

 private:
  void begin();
  void watch();
  void end();
  void show();

  std::size_t expected_ = 0;  // 0: nobody knows
  std::size_t done_ = 0;
  bool running_ = false;
  bool breathing_ = false;
  int level_ = 0;  // of the loop that the command runs in
  QElapsedTimer begun_, breathed_;
  QString shown_;
};

}  // namespace ovalia::desktop
