#include "system/RunProgram.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <thread>

#include "platform/Failure.h"
#include "system/PassingFile.h"
#include "tests/kit/TemporaryFolder.h"

namespace ovalia::system {

namespace {

using namespace std::chrono_literals;
namespace fs = std::filesystem;

class RunningPrograms : public testing::Test {
 protected:
  kit::TemporaryFolder folder;
};

TEST_F(RunningPrograms, ends_with_what_came_of_it) {
  EXPECT_EQ(runProgram({"true"}, 60s), ProgramEnd::done);
  EXPECT_EQ(runProgram({"false"}, 60s), ProgramEnd::failed);
  EXPECT_EQ(runProgram({"no existe este programa"}, 60s), ProgramEnd::failed);
  EXPECT_EQ(runProgram({"sh", "-c", "kill -9 $$"}, 60s), ProgramEnd::failed);
}

TEST_F(RunningPrograms, that_take_too_long_are_ended_with_all_that_they_started) {
  const std::string mark = (folder.path() / "vive").string();
  const auto begun = std::chrono::steady_clock::now();
  EXPECT_EQ(runProgram({"sh", "-c", "(sleep 5; touch '" + mark + "') & wait"}, 200ms), ProgramEnd::tooLate);
  EXPECT_LT(std::chrono::steady_clock::now() - begun, 5s);
  std::this_thread::sleep_until(begun + 5500ms);
  EXPECT_FALSE(fs::exists(mark));
}

TEST_F(RunningPrograms, leave_time_for_something_else) {
  int times = 0;
  EXPECT_EQ(runProgram({"sleep", "0.3"}, 60s, [&] { ++times; }), ProgramEnd::done);
  EXPECT_GT(times, 2);
}

TEST_F(RunningPrograms, are_found_by_the_first_of_their_names) {
  EXPECT_EQ(findProgram({"no existe este programa", "sh"})->substr(findProgram({"sh"})->size() - 3), "/sh");
  EXPECT_FALSE(findProgram({"no existe este programa"}));
}

TEST(PassingFiles, are_the_users_alone_and_gone_with_their_owner) {
  const kit::TemporaryFolder folder;
  fs::path gone, kept;
  {
    const PassingFile passing(folder.path(), "uno-", ".rtf");
    PassingFile staying(folder.path());
    gone = passing.path();
    kept = staying.path();
    staying.keep();
    EXPECT_TRUE(gone.filename().native().starts_with("uno-"));
    EXPECT_EQ(gone.extension(), ".rtf");
    EXPECT_EQ(fs::status(gone).permissions(), fs::perms::owner_read | fs::perms::owner_write);
  }
  EXPECT_FALSE(fs::exists(gone));
  EXPECT_TRUE(fs::exists(kept));
  EXPECT_THROW(PassingFile(folder.path() / "nada"), Failure);
}

TEST(PassingFiles, of_a_folder_go_with_it) {
  fs::path gone;
  {
    const PassingFolder folder;
    gone = folder.path();
    fs::create_directories(gone / "dentro" / "aún más");
    EXPECT_EQ(fs::status(gone).permissions(), fs::perms::owner_all);
  }
  EXPECT_FALSE(fs::exists(gone));
}

}  // namespace

}  // namespace ovalia::system
