#include "tests/host/DeskProcess.h"

#include <QElapsedTimer>
#include <algorithm>

#include "tests/host/Toolkit.h"

namespace ovalia::host {

namespace {

constexpr int patienceMilliseconds = 60000;

// Time that runs out.
class Patience {
 public:
  explicit Patience(int milliseconds) : milliseconds_(milliseconds) { clock_.start(); }
  int left() const { return std::max(0, milliseconds_ - static_cast<int>(clock_.elapsed())); }

 private:
  int milliseconds_;
  QElapsedTimer clock_;
};

QProcessEnvironment withoutScreen(const std::filesystem::path& folder) {
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  const QString home = QString::fromStdString(folder.string());
  for (const char* name : {"HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_RUNTIME_DIR"})
    environment.insert(QString::fromLatin1(name), home);
  environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
  return environment;
}

}  // namespace

DeskProcess::DeskProcess(const std::filesystem::path& database, const std::string& user) : user_(user) {
  application();
  process_.setProcessEnvironment(withoutScreen(database.parent_path()));
  process_.start(QStringLiteral(AGENCIA_DESK),
                 {QString::fromStdString(database.string()), QString::fromStdString(user)});
  if (const std::string greeting = answer(); greeting != "ready") fail("greets with \"" + greeting + "\"");
}

DeskProcess::~DeskProcess() { kill(); }

void DeskProcess::begins(const std::string& command) {
  process_.write((command + '\n').c_str());
  const Patience patience(patienceMilliseconds);
  while (process_.bytesToWrite() > 0)
    if (!process_.waitForBytesWritten(patience.left())) fail("does not take \"" + command + "\"");
}

std::string DeskProcess::answer() {
  if (!answersWithin(patienceMilliseconds))
    fail(process_.state() == QProcess::Running          ? "does not answer"
         : process_.exitStatus() == QProcess::CrashExit ? "has crashed"
                                                        : "has ended");
  std::string line = process_.readLine().toStdString();
  line.pop_back();
  return line;
}

bool DeskProcess::answersWithin(int milliseconds) {
  const Patience patience(milliseconds);
  while (!process_.canReadLine())
    if (!process_.waitForReadyRead(patience.left())) return process_.canReadLine();
  return true;
}

void DeskProcess::kill() {
  if (process_.state() == QProcess::NotRunning) return;
  killed_ = true;
  process_.kill();
  process_.waitForFinished(patienceMilliseconds);
}

std::string DeskProcess::leave() {
  if (killed_) return {};
  process_.closeWriteChannel();
  if (process_.state() != QProcess::NotRunning && !process_.waitForFinished(patienceMilliseconds))
    return "does not leave" + complaints();
  if (process_.exitStatus() == QProcess::CrashExit) return "has crashed" + complaints();
  if (process_.exitCode() == 0) return {};
  return "has left with " + std::to_string(process_.exitCode()) + complaints();
}

void DeskProcess::fail(const std::string& what) {
  const std::string why = complaints();
  kill();
  throw DeskFailure("the desk of " + user_ + ' ' + what + why);
}

std::string DeskProcess::complaints() {
  const QByteArray written = process_.readAllStandardError();
  return written.isEmpty() ? std::string() : ", and says:\n" + written.toStdString();
}

}  // namespace ovalia::host
