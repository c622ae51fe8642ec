#pragma once

#include <QProcess>
#include <filesystem>
#include <stdexcept>
#include <string>

namespace ovalia::host {

// A desk has ended, hangs, or was given up; what it wrote to standard error is told.
class DeskFailure : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

// A desk of the agency: a process of its own on the database, under its own user, that does what it is told
// (see desk/Clerk.h). Every wait has a limit; where it passes, and where the process ends unasked, it is
// DeskFailure.
class DeskProcess {
 public:
  DeskProcess(const std::filesystem::path& database, const std::string& user);
  ~DeskProcess();
  DeskProcess(const DeskProcess&) = delete;
  DeskProcess& operator=(const DeskProcess&) = delete;

  // Does it and waits for the answer.
  std::string answerTo(const std::string& command) { return begins(command), answer(); }

  // The two halves, for what is to happen while it is being done. Several may be begun; they are answered in
  // their order.
  void begins(const std::string& command);
  std::string answer();
  bool answersWithin(int milliseconds);

  // Ends it where it stands.
  void kill();

  // Ends the commands and waits for the end of the process. "" when that was a good one, or its end was a
  // kill, else what was wrong.
  std::string leave();

 private:
  [[noreturn]] void fail(const std::string& what);
  std::string complaints();

  const std::string user_;
  bool killed_ = false;
  QProcess process_;
};

}  // namespace ovalia::host
