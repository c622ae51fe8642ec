#include "routines/SystemHelpers.h"

#include <gtest/gtest.h>

#include "platform/Variant.h"
#include "tests/kit/FakeObject.h"
#include "tests/kit/TestPlatform.h"

namespace ovalia {
namespace {

class SystemHelpers : public kit::LogicTest {};

TEST_F(SystemHelpers, the_version_has_its_second_and_third_number_padded) {
  EXPECT_EQ(VersionPrograma(2), u"3.05.12");
  EXPECT_EQ(VersionPrograma(4), u"3.0005.0012");
  EXPECT_EQ(VersionPrograma(0), u"3.5.12");
  here.platform.app.revision = 123;
  EXPECT_EQ(VersionPrograma(2), u"3.05.123");
}

TEST_F(SystemHelpers, an_outside_component_is_made_by_its_name) {
  here.objects.add(u"Perlaz.CPerlaz", [] { return kit::named(u"elector"); });
  const ObjectRef made = CrearObjeto(u"Perlaz.CPerlaz");
  ASSERT_NE(made, nullptr);
  EXPECT_EQ(getMember(made, u"Name").text(), u"elector");
}

TEST_F(SystemHelpers, a_component_that_is_not_registered_is_named_in_place_of_the_routine) {
  expectReport(u"La librería Perlaz.CPerlaz no está registrada correctamente.", 429);
  EXPECT_EQ(CrearObjeto(u"Perlaz.CPerlaz"), nullptr);
}

TEST_F(SystemHelpers, any_other_failure_to_make_a_component_is_reported_under_the_routine_and_its_name) {
  here.objects.add(u"Perlaz.CPerlaz", []() -> ObjectRef { throw Failure(70); });
  expectReport(u"CrearObjeto() de RutinasErr (Perlaz.CPerlaz).", 70);
  EXPECT_EQ(CrearObjeto(u"Perlaz.CPerlaz"), nullptr);
}

struct SystemRow {
  int platform;
  TextView name, line;
};

class SystemLine : public kit::LogicTest, public testing::WithParamInterface<SystemRow> {};

TEST_P(SystemLine, comes_first_then_version_and_service_pack) {
  here.shell.system = {.platform = GetParam().platform,
                       .name = Text(GetParam().name),
                       .major = 5,
                       .minor = 1,
                       .build = 2600,
                       .servicePack = u"Service Pack 3"};
  EXPECT_EQ(MirarVersionOS(), Text(GetParam().line) + u"\r\nVersion: 5.1.2600\r\n Service Pack 3");
}

INSTANTIATE_TEST_SUITE_P(SystemHelpers, SystemLine,
                         testing::Values(SystemRow{0, u"", u"Windows 3.x"}, SystemRow{1, u"", u"Windows 9x"},
                                         SystemRow{2, u"", u"Windows NT"}, SystemRow{3, u"", u"3"},
                                         SystemRow{-1, u"", u"-1"}, SystemRow{-1, u"Linux", u"Linux"},
                                         SystemRow{2, u"Linux", u"Windows NT"}));

TEST_F(SystemHelpers, the_service_pack_ends_before_its_first_nul) {
  here.shell.system.servicePack = Text(u"SP3\0basura", 10);
  EXPECT_EQ(MirarVersionOS(), u"Windows NT\r\nVersion: 5.1.2600\r\n SP3");
}

TEST_F(SystemHelpers, a_system_that_does_not_tell_is_reported) {
  here.faults.failNext("Shell.systemVersion", 51);
  expectReport(u"MirarVersionOS() de RutinasErr", 51);
  EXPECT_EQ(MirarVersionOS(), u"");
}

TEST_F(SystemHelpers, a_files_version_has_three_numbers) {
  here.shell.versions[u"\\lib\\a.dll"] = {6, 0, 8169};
  EXPECT_EQ(VersionFichero(u"\\lib\\a.dll"), u"6.0.8169");
}

TEST_F(SystemHelpers, a_file_without_a_version_gives_the_empty_text_and_no_report) {
  EXPECT_EQ(VersionFichero(u"\\lib\\b.dll"), u"");
}

TEST_F(SystemHelpers, a_file_whose_version_cannot_be_read_gives_the_empty_text_and_no_report) {
  here.faults.failNext("Shell.fileVersion", 75);
  EXPECT_EQ(VersionFichero(u"\\lib\\b.dll"), u"");
}

}  // namespace
}  // namespace ovalia
