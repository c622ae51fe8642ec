#include "system/RunProgram.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <thread>

extern char** environ;

namespace ovalia::system {

namespace {

// What a started program gets: nothing to read, nowhere to write, a process group of its own.
class Circumstances {
 public:
  Circumstances() {
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_addopen(&files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&files, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawnattr_init(&group);
    posix_spawnattr_setflags(&group, POSIX_SPAWN_SETPGROUP);
    posix_spawnattr_setpgroup(&group, 0);
  }
  ~Circumstances() {
    posix_spawn_file_actions_destroy(&files);
    posix_spawnattr_destroy(&group);
  }
  Circumstances(const Circumstances&) = delete;
  Circumstances& operator=(const Circumstances&) = delete;

  posix_spawn_file_actions_t files;
  posix_spawnattr_t group;
};

// 0 when it could not be started.
pid_t start(const std::vector<std::string>& command) {
  const Circumstances circumstances;
  std::vector<char*> words;
  for (const std::string& word : command) words.push_back(const_cast<char*>(word.c_str()));
  words.push_back(nullptr);
  pid_t started = 0;
  const int error =
      posix_spawnp(&started, words[0], &circumstances.files, &circumstances.group, words.data(), environ);
  return error ? 0 : started;
}

}  // namespace

std::optional<std::string> findProgram(std::initializer_list<const char*> names) {
  const char* path = std::getenv("PATH");
  for (const char* name : names) {
    std::istringstream folders(path ? path : "");
    for (std::string folder; std::getline(folders, folder, ':');) {
      const std::string program = folder + "/" + name;
      if (std::filesystem::is_regular_file(program) && access(program.c_str(), X_OK) == 0) return program;
    }
  }
  return {};
}

ProgramEnd runProgram(const std::vector<std::string>& command, std::chrono::milliseconds limit,
                      const std::function<void()>& meanwhile) {
  const auto begun = std::chrono::steady_clock::now();
  const pid_t program = start(command);
  if (program == 0) return ProgramEnd::failed;
  int status = 0;
  while (waitpid(program, &status, WNOHANG) == 0) {
    if (std::chrono::steady_clock::now() - begun > limit) {
      kill(-program, SIGKILL);
      waitpid(program, &status, 0);
      return ProgramEnd::tooLate;
    }
    if (meanwhile) meanwhile();
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? ProgramEnd::done : ProgramEnd::failed;
}

}  // namespace ovalia::system
