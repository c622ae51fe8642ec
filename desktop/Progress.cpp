#include "desktop/Progress.h"

#include <QCoreApplication>
#include <QThread>
#include <QTimer>

namespace ovalia::desktop {

namespace {

constexpr int moment = 300;  // milliseconds, as all below
constexpr int breath = 40;
constexpr int look = 20;

}  // namespace

Progress& Progress::current() {
  thread_local Progress progress;
  return progress;
}

void Progress::expect(std::size_t files) {
  begin();
  expected_ = files;
  done_ = 0;
}

void Progress::next() {
  begin();
  ++done_;
  show();
}

void Progress::breathe() {
  if (breathing_ || !running_ || breathed_.elapsed() < breath) return;
  show();
  breathing_ = true;
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::ExcludeSocketNotifiers);
  breathing_ = false;
  breathed_.start();
}

void Progress::begin() {
  if (running_ || !QCoreApplication::instance()) return;
  running_ = true;
  expected_ = done_ = 0;
  level_ = QThread::currentThread()->loopLevel();
  begun_.start();
  breathed_.start();
  watch();
}

// The command has ended when the loop that it was called from comes round. That of a box over it does not
// count.
void Progress::watch() {
  QTimer::singleShot(look, QCoreApplication::instance(), [this] {
    if (breathing_ || QThread::currentThread()->loopLevel() > level_) return watch();
    end();
  });
}

void Progress::end() {
  running_ = false;
  if (tell && !shown_.isEmpty()) tell({});
  shown_.clear();
}

void Progress::show() {
  if (!tell || done_ == 0 || begun_.elapsed() < moment) return;
  const bool countable = expected_ > 1 && done_ <= expected_;
  const QString text = countable ? QStringLiteral("Copiando documento %1 de %2").arg(done_).arg(expected_)
                                 : QStringLiteral("Copiando documentos: %1").arg(done_);
  if (text == shown_) return;
  shown_ = text;
  tell(text);
}

}  // namespace ovalia::desktop
