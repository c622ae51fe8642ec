#include "system/SystemVersion.h"

#include <gtest/gtest.h>
#include <sys/utsname.h>

namespace ovalia::system {
namespace {

void expectVersion(std::string_view release, int major, int minor, int build, TextView rest) {
  const Shell::SystemVersion version = versionFrom("Linux", release);
  SCOPED_TRACE(release);
  EXPECT_EQ(version.name, u"Linux");
  EXPECT_EQ(version.major, major);
  EXPECT_EQ(version.minor, minor);
  EXPECT_EQ(version.build, build);
  EXPECT_EQ(version.servicePack, rest);
}

TEST(SystemVersion, takes_a_release_apart) {
  expectVersion("6.1.0-18-amd64", 6, 1, 0, u"18-amd64");
  expectVersion("5.15.167", 5, 15, 167, u"");
  expectVersion("6.6.87.2-microsoft-standard", 6, 6, 87, u"2-microsoft-standard");
  expectVersion("6.12-rc1", 6, 12, 0, u"rc1");
  expectVersion("7", 7, 0, 0, u"");
  expectVersion("", 0, 0, 0, u"");
  expectVersion("desconocida", 0, 0, 0, u"desconocida");
}

TEST(SystemVersion, is_none_of_the_numbered_lines) { EXPECT_EQ(versionFrom("Linux", "6.1.0").platform, -1); }

TEST(SystemVersion, of_the_running_system_carries_its_name_and_first_number) {
  utsname running;
  ASSERT_EQ(uname(&running), 0);
  const Shell::SystemVersion version = systemVersion();
  EXPECT_EQ(toUtf8(version.name), running.sysname);
  EXPECT_EQ(std::string(running.release).find(std::to_string(version.major)), 0U);
}

}  // namespace
}  // namespace ovalia::system
