#include "system/FileSystem.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/stat.h>

#include <filesystem>
#include <thread>

#include "tests/system/FileFixture.h"

namespace ovalia::system {
namespace {

namespace fs = std::filesystem;
using test::OrdinaryUser;
using Probing = test::FileSystemTest;
using Writing = test::FileSystemTest;
using Folders = test::FileSystemTest;

TEST_F(Probing, answers_with_the_disks_spelling) {
  tree.putFile("Doc4/4073F00.doc");
  EXPECT_EQ(files.firstMatch(tree.logic(u"Doc4\\4073F00.doc")), u"4073F00.doc");
  EXPECT_EQ(files.firstMatch(tree.logic(u"DOC4\\4073f00.DOC")), u"4073F00.doc");
  EXPECT_EQ(files.firstMatch(tree.logic(u"Doc4\\\\4073F00.doc")), u"4073F00.doc");
}

TEST_F(Probing, prefers_the_exact_spelling) {
  tree.putFile("CARTA.doc");
  tree.putFile("carta.doc");
  EXPECT_EQ(files.firstMatch(tree.logic(u"carta.doc")), u"carta.doc");
  EXPECT_EQ(files.firstMatch(tree.logic(u"Carta.doc")), u"CARTA.doc");
}

TEST_F(Probing, gives_the_first_plain_file_that_a_mask_names) {
  tree.putFolder("Plantillas/a.dot");
  tree.putFile("Plantillas/Visita ñandú.DOT");
  tree.putFile("Plantillas/Carta.dot");
  tree.putFile("Plantillas/aviso.txt");
  EXPECT_EQ(files.firstMatch(tree.logic(u"plantillas\\*.dot")), u"Carta.dot");
  EXPECT_EQ(files.firstMatch(tree.logic(u"Plantillas\\V*.dot")), u"Visita ñandú.DOT");
  EXPECT_EQ(files.firstMatch(tree.logic(u"Plantillas\\av?so.txt")), u"aviso.txt");
  EXPECT_EQ(files.firstMatch(tree.logic(u"Plantillas\\*.pdf")), u"");
}

TEST_F(Probing, brackets_are_ordinary_characters) {
  tree.putFile("ErrLog[_].txt");
  EXPECT_EQ(files.firstMatch(tree.logic(u"ErrLog[_].txt")), u"ErrLog[_].txt");
  EXPECT_EQ(files.firstMatch(tree.logic(u"errlog[_].*")), u"ErrLog[_].txt");
  fs::rename(tree.path() / "ErrLog[_].txt", tree.path() / "ErrLog_.txt");
  EXPECT_EQ(files.firstMatch(tree.logic(u"ErrLog[_].txt")), u"");
}

TEST_F(Probing, a_folder_is_no_match_and_a_path_ending_in_a_separator_gives_the_folders_first_file) {
  tree.putFolder("Doc4/Doc0");
  EXPECT_EQ(files.firstMatch(tree.logic(u"Doc4")), u"");
  EXPECT_EQ(files.firstMatch(tree.logic(u"Doc4\\")), u"");
  tree.putFile("Doc4/b.doc");
  tree.putFile("Doc4/A.doc");
  EXPECT_EQ(files.firstMatch(tree.logic(u"Doc4\\")), u"A.doc");
}

TEST_F(Probing, nothing_there_is_an_empty_answer) {
  EXPECT_EQ(files.firstMatch(tree.logic(u"a.doc")), u"");
  EXPECT_EQ(files.firstMatch(tree.logic(u"Doc4\\a.doc")), u"");
  fs::create_symlink("nowhere", tree.path() / "roto.doc");
  EXPECT_EQ(files.firstMatch(tree.logic(u"roto.doc")), u"");
}

TEST_F(Probing, a_zero_character_never_cuts_a_path_short) {
  tree.putFile("a.doc");
  EXPECT_EQ(numberOf([&] { files.firstMatch(tree.logic(u"a.doc") + Text(1, u'\0') + u"x"); }), 75);
}

TEST_F(Probing, a_link_counts_as_what_it_leads_to) {
  tree.putFile("Doc4/a.doc", "x");
  fs::create_symlink("Doc4/a.doc", tree.path() / "atajo.doc");
  fs::create_directory_symlink("Doc4", tree.path() / "Otra");
  EXPECT_EQ(files.firstMatch(tree.logic(u"ATAJO.doc")), u"atajo.doc");
  EXPECT_EQ(files.firstMatch(tree.logic(u"otra\\a.doc")), u"a.doc");
  EXPECT_EQ(files.attributes(tree.logic(u"otra")), Files::directoryAttribute);
}

TEST_F(Probing, one_file_is_known_by_whatever_way_it_is_reached) {
  tree.putFile("Datos/a.doc", "x");
  tree.putFile("Datos/b.doc", "x");
  fs::create_symlink("Datos/a.doc", tree.path() / "atajo.doc");
  fs::create_symlink("nada.doc", tree.path() / "roto.doc");
  fs::create_hard_link(tree.path() / "Datos/a.doc", tree.path() / "Datos/c.doc");
  fs::create_directory_symlink("Datos", tree.path() / "Otra");
  const auto same = [&](TextView other) {
    return files.sameFile(tree.logic(u"Datos\\a.doc"), tree.logic(other));
  };
  for (const TextView one : {u"atajo.doc", u"ATAJO.doc", u"Datos\\c.doc", u"Otra\\a.doc", u"otra\\C.DOC",
                             u"Otra\\..\\Datos\\a.doc"})
    EXPECT_TRUE(same(one)) << toUtf8(one);
  for (const TextView another : {u"Otra\\b.doc", u"roto.doc", u"Otra", u"Otra\\nada.doc"})
    EXPECT_FALSE(same(another)) << toUtf8(another);
}

TEST_F(Probing, every_operation_refuses_a_path_without_a_folder_or_with_a_drive) {
  tree.putFile("a.doc");
  const fs::path before = fs::current_path();
  fs::current_path(tree.path());
  for (const TextView path : {u"a.doc", u"nuevo.doc", u"", u"C:\\a.doc", u"a:"}) {
    SCOPED_TRACE(toUtf8(path));
    EXPECT_EQ(numberOf([&] { files.firstMatch(path); }), 76);
    EXPECT_EQ(numberOf([&] { files.list(path); }), 76);
    EXPECT_EQ(numberOf([&] { files.attributes(path); }), 76);
    EXPECT_EQ(numberOf([&] { files.sameFile(path, path); }), 76);
    EXPECT_EQ(numberOf([&] { files.modified(path); }), 76);
    EXPECT_EQ(numberOf([&] { files.makeDirectory(path); }), 76);
    EXPECT_EQ(numberOf([&] { files.copy(tree.logic(u"a.doc"), path, true); }), 76);
    EXPECT_EQ(numberOf([&] { files.copy(path, tree.logic(u"b.doc"), false); }), 76);
    EXPECT_EQ(numberOf([&] { files.remove(path); }), 76);
    EXPECT_EQ(numberOf([&] { files.append(path, u"x"); }), 76);
    EXPECT_EQ(numberOf([&] { files.write(path, u"x"); }), 76);
  }
  fs::current_path(before);
  EXPECT_EQ(entries(), 1);
  EXPECT_EQ(tree.content("a.doc"), "");
}

TEST_F(Folders, attributes_tell_folders_from_files) {
  tree.putFile("Doc4/a.doc");
  EXPECT_EQ(files.attributes(tree.logic(u"doc4")), 16);
  EXPECT_EQ(files.attributes(tree.logic(u"doc4\\")), 16);
  EXPECT_EQ(files.attributes(tree.logic(u"doc4\\A.doc")), 0);
  EXPECT_EQ(files.attributes(u"\\"), 16);
  EXPECT_EQ(numberOf([&] { files.attributes(tree.logic(u"Doc5")); }), 53);
  EXPECT_EQ(numberOf([&] { files.attributes(tree.logic(u"Doc5\\a.doc")); }), 76);
}

TEST_F(Folders, are_made_one_level_at_a_time) {
  files.makeDirectory(tree.logic(u"Doc4"));
  files.makeDirectory(tree.logic(u"DOC4\\\\Año ñ\\"));
  EXPECT_TRUE(tree.has("Doc4/Año ñ"));
  EXPECT_EQ(numberOf([&] { files.makeDirectory(tree.logic(u"Doc5\\Doc0")); }), 76);
  EXPECT_FALSE(tree.has("Doc5"));
}

TEST_F(Folders, that_are_there_already_in_any_spelling_are_75) {
  tree.putFolder("Doc4");
  tree.putFile("a.doc");
  EXPECT_EQ(numberOf([&] { files.makeDirectory(tree.logic(u"Doc4")); }), 75);
  EXPECT_EQ(numberOf([&] { files.makeDirectory(tree.logic(u"DOC4\\")); }), 75);
  EXPECT_EQ(numberOf([&] { files.makeDirectory(tree.logic(u"A.DOC")); }), 75);
  EXPECT_EQ(numberOf([&] { files.makeDirectory(tree.logic(u"a.doc\\Doc0")); }), 76);
  EXPECT_EQ(numberOf([&] { files.makeDirectory(u"\\"); }), 75);
  EXPECT_EQ(entries(), 2);
}

TEST_F(Folders, are_listed_with_names_attributes_and_dates) {
  tree.putFolder("Doc4/Doc0");
  tree.putFile("Doc4/Ñandú.dll", "x");
  tree.putFile("Doc4/a.dll", "x");
  const auto entries = files.list(tree.logic(u"DOC4\\"));
  ASSERT_EQ(entries.size(), 3U);
  EXPECT_EQ(entries[0].name, u"a.dll");
  EXPECT_EQ(entries[0].attributes, 0);
  EXPECT_EQ(entries[0].modified, files.modified(tree.logic(u"Doc4\\a.dll")));
  EXPECT_EQ(entries[1].name, u"Doc0");
  EXPECT_EQ(entries[1].attributes, 16);
  EXPECT_EQ(entries[2].name, u"Ñandú.dll");
  EXPECT_EQ(numberOf([&] { files.list(tree.logic(u"Doc5")); }), 76);
  EXPECT_EQ(numberOf([&] { files.list(tree.logic(u"Doc4\\a.dll")); }), 76);
}

TEST_F(Folders, that_may_not_be_read_or_written_are_70) {
  tree.putFolder("Privada/Doc0");
  tree.putFile("Privada/a.doc", "x");
  fs::permissions(tree.path(), fs::perms::all);
  fs::permissions(tree.path() / "Privada", fs::perms(0555));
  {
    const OrdinaryUser user;
    EXPECT_EQ(numberOf([&] { files.makeDirectory(tree.logic(u"Privada\\Doc1")); }), 70);
    EXPECT_EQ(numberOf([&] { files.remove(tree.logic(u"Privada\\a.doc")); }), 70);
    EXPECT_EQ(numberOf([&] { files.write(tree.logic(u"Privada\\b.doc"), u"x"); }), 70);
    EXPECT_EQ(
        numberOf([&] { files.copy(tree.logic(u"Privada\\a.doc"), tree.logic(u"Privada\\b.doc"), false); }),
        70);
    EXPECT_EQ(
        numberOf([&] { files.copy(tree.logic(u"Privada\\a.doc"), tree.logic(u"Privada\\b.doc"), true); }),
        70);
  }
  fs::permissions(tree.path() / "Privada", fs::perms::none);
  {
    const OrdinaryUser user;
    EXPECT_EQ(numberOf([&] { files.list(tree.logic(u"Privada")); }), 70);
    EXPECT_EQ(numberOf([&] { files.firstMatch(tree.logic(u"Privada\\*.doc")); }), 70);
  }
  fs::permissions(tree.path() / "Privada", fs::perms::all);
  EXPECT_EQ(tree.content("Privada/a.doc"), "x");
  EXPECT_EQ(entries("Privada"), 2);
}

TEST_F(Probing, a_files_time_is_local_and_in_whole_seconds) {
  tree.putFile("a.doc");
  setenv("TZ", "Europe/Madrid", 1);
  tzset();
  const timespec times[] = {{0, 0}, {1110182700, 999'000'000}};  // 2005-03-07 08:05:00.999 UTC
  ASSERT_EQ(utimensat(AT_FDCWD, (tree.path() / "a.doc").c_str(), times, 0), 0);
  const Date modified = files.modified(tree.logic(u"A.doc"));
  unsetenv("TZ");
  tzset();
  EXPECT_EQ(partsOf(modified), (DateParts{2005, 3, 7, 9, 5, 0}));
  EXPECT_EQ(numberOf([&] { files.modified(tree.logic(u"b.doc")); }), 53);
}

TEST_F(Writing, removes_a_file_in_any_spelling_and_no_folder) {
  tree.putFile("Doc4/a.doc");
  files.remove(tree.logic(u"doc4\\\\A.DOC"));
  EXPECT_FALSE(tree.has("Doc4/a.doc"));
  EXPECT_EQ(numberOf([&] { files.remove(tree.logic(u"Doc4\\a.doc")); }), 53);
  EXPECT_EQ(numberOf([&] { files.remove(tree.logic(u"Doc5\\a.doc")); }), 76);
  EXPECT_EQ(numberOf([&] { files.remove(tree.logic(u"Doc4")); }), 53);
  EXPECT_TRUE(tree.has("Doc4"));
  tree.putFile("Doc4/b.doc");
  EXPECT_EQ(numberOf([&] { files.remove(tree.logic(u"Doc4\\b.doc\\")); }), 76);
  EXPECT_TRUE(tree.has("Doc4/b.doc"));
}

TEST_F(Writing, removing_a_link_keeps_what_it_leads_to) {
  tree.putFile("a.doc", "x");
  fs::create_symlink("a.doc", tree.path() / "atajo.doc");
  files.remove(tree.logic(u"atajo.doc"));
  EXPECT_FALSE(fs::is_symlink(tree.path() / "atajo.doc"));
  EXPECT_TRUE(tree.has("a.doc"));
}

TEST_F(Writing, appends_utf8_without_a_mark) {
  files.append(tree.logic(u"ErrLog[_].txt"), u"Año 1\r\n");
  files.append(tree.logic(u"ERRLOG[_].txt"), u"Año 2\r\n");
  EXPECT_EQ(tree.content("ErrLog[_].txt"), "Año 1\r\nAño 2\r\n");
  EXPECT_EQ(entries(), 1);
  EXPECT_EQ(numberOf([&] { files.append(tree.logic(u"Doc5\\log.txt"), u"x"); }), 76);
  EXPECT_EQ(numberOf([&] { files.append(tree.logic(), u"x"); }), 75);
}

TEST_F(Writing, lines_appended_by_several_at_once_do_not_mix) {
  const auto lines = [&](char16_t letter) {
    for (int i = 0; i < 200; ++i) files.append(tree.logic(u"log.txt"), Text(500, letter) + u"\n");
  };
  std::thread other([&] { lines(u'a'); });
  lines(u'b');
  other.join();
  const std::string content = tree.content("log.txt");
  ASSERT_EQ(content.size(), 400U * 501);
  for (std::size_t at = 0; at < content.size(); at += 501)
    ASSERT_EQ(content.substr(at, 501), std::string(500, content[at]) + "\n");
}

TEST_F(Writing, writes_a_file_anew) {
  files.write(tree.logic(u"system.txt"), u"una línea larga\r\n");
  files.write(tree.logic(u"SYSTEM.txt"), u"ñ");
  EXPECT_EQ(tree.content("system.txt"), "ñ");
  EXPECT_EQ(entries(), 1);
}

TEST_F(Writing, on_a_full_disk_is_61) {
  EXPECT_EQ(numberOf([&] { files.append(u"\\dev\\full", u"x"); }), 61);
  EXPECT_EQ(numberOf([&] { files.write(u"\\dev\\full", u"x"); }), 61);
}

TEST_F(Writing, failures_name_the_path) {
  try {
    files.remove(tree.logic(u"falta.doc"));
    FAIL() << "the file is not there";
  } catch (const Failure& failure) {
    EXPECT_NE(failure.description().find(u"falta.doc"), Text::npos);
    EXPECT_EQ(failure.description().find(failureText(53)), 0U);
  }
}

TEST_F(Probing, no_drive_is_a_cd_rom) {
  EXPECT_EQ(files.driveType(u"C:\\"), 1);
  EXPECT_EQ(files.driveType(u""), 1);
  EXPECT_EQ(files.driveType(tree.logic()), 3);
  EXPECT_EQ(files.driveType(tree.logic(u"nada")), 1);
}

TEST_F(Folders, the_temporary_folder_ends_in_a_separator_and_can_be_used) {
  const auto temporary = [&](const std::string& setting) {
    setenv("TMPDIR", setting.c_str(), 1);
    const Text folder = files.temporaryFolder();
    unsetenv("TMPDIR");
    return folder;
  };
  EXPECT_EQ(temporary(tree.path().string()), tree.logic() + u"\\");
  EXPECT_EQ(temporary(tree.path().string() + "/"), tree.logic() + u"\\");
  EXPECT_TRUE(temporary((tree.path() / "nada").string()).starts_with(u"\\tmp\\"));
  files.write(temporary(tree.path().string()) + u"a.txt", u"x");
  EXPECT_TRUE(tree.has("a.txt"));
}

TEST_F(Folders, a_temporary_folder_of_all_users_has_a_private_one_for_each) {
  fs::permissions(tree.path(), fs::perms::all | fs::perms::sticky_bit);
  setenv("TMPDIR", tree.path().c_str(), 1);
  const std::string own = "ovalia-" + std::to_string(geteuid());
  const Text folder = files.temporaryFolder();
  EXPECT_EQ(folder, tree.logic(fromUtf8(own)) + u"\\");
  EXPECT_EQ(files.temporaryFolder(), folder);
  EXPECT_EQ(fs::status(tree.path() / own).permissions(), fs::perms::owner_all);

  fs::remove(tree.path() / own);
  tree.putFolder("ajena");
  fs::create_directory_symlink("ajena", tree.path() / own);
  EXPECT_EQ(numberOf([&] { files.temporaryFolder(); }), 70) << "a link that anybody could have laid";
  fs::remove(tree.path() / own);
  tree.putFile(own);
  EXPECT_EQ(numberOf([&] { files.temporaryFolder(); }), 70);
  unsetenv("TMPDIR");
}

TEST_F(Folders, a_temporary_folder_of_another_user_has_a_private_one_too) {
  if (geteuid() != 0) GTEST_SKIP() << "only the superuser can give a folder away";
  ASSERT_EQ(chown(tree.path().c_str(), 65534, 0), 0);
  setenv("TMPDIR", tree.path().c_str(), 1);
  EXPECT_EQ(files.temporaryFolder(), tree.logic(u"ovalia-0\\"));
  unsetenv("TMPDIR");
}

TEST_F(Folders, a_private_temporary_folder_that_is_another_users_is_70) {
  if (geteuid() != 0) GTEST_SKIP() << "only the superuser can lay another user's folder";
  fs::permissions(tree.path(), fs::perms::all | fs::perms::sticky_bit);
  tree.putFolder("ovalia-65534");
  setenv("TMPDIR", tree.path().c_str(), 1);
  {
    const OrdinaryUser user;
    EXPECT_EQ(numberOf([&] { files.temporaryFolder(); }), 70);
  }
  unsetenv("TMPDIR");
}

}  // namespace
}  // namespace ovalia::system
