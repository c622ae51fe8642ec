#include "system/FileSystem.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <functional>
#include <stdexcept>
#include <thread>

#include "platform/Failure.h"
#include "tests/kit/TemporaryFolder.h"

namespace ovalia::system {
namespace {

namespace fs = std::filesystem;

// An ordinary user's rights, whoever runs the tests.
class OrdinaryUser {
 public:
  OrdinaryUser() : before_(geteuid()) {
    if (before_ == 0 && seteuid(nobody) != 0) throw std::runtime_error("cannot give up rights");
  }
  ~OrdinaryUser() {
    if (before_ == 0 && seteuid(0) != 0) std::abort();
  }
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;

 private:
  static constexpr uid_t nobody = 65534;
  uid_t before_;
};

// No file may grow beyond a size: what a full disk does to whoever writes.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes) : signal_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit{bytes, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FileSizeLimit() {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, signal_);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;

 private:
  rlimit before_;
  void (*signal_)(int);
};

class FileSystemTest : public testing::Test {
 protected:
  kit::TemporaryFolder tree;
  FileSystem files;

  static std::int32_t numberOf(const std::function<void()>& action) {
    try {
      action();
      return 0;
    } catch (const Failure& failure) {
      return failure.number();
    }
  }
  int entries(std::string_view folder = "") const {
    return int(std::distance(fs::directory_iterator(tree.path() / folder), {}));
  }
};

using Probing = FileSystemTest;
using Copying = FileSystemTest;
using Writing = FileSystemTest;
using Folders = FileSystemTest;

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

TEST_F(Probing, a_link_counts_as_what_it_leads_to) {
  tree.putFile("Doc4/a.doc", "x");
  fs::create_symlink("Doc4/a.doc", tree.path() / "atajo.doc");
  fs::create_directory_symlink("Doc4", tree.path() / "Otra");
  EXPECT_EQ(files.firstMatch(tree.logic(u"ATAJO.doc")), u"atajo.doc");
  EXPECT_EQ(files.firstMatch(tree.logic(u"otra\\a.doc")), u"a.doc");
  EXPECT_EQ(files.attributes(tree.logic(u"otra")), Files::directoryAttribute);
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

TEST_F(Copying, makes_a_complete_copy_with_the_same_time) {
  std::string content;
  for (int i = 0; i < 700'000; ++i) content += char(i * 7);
  tree.putFile("Origen.pdf", content);
  fs::last_write_time(tree.path() / "Origen.pdf", fs::file_time_type::clock::now() - std::chrono::hours(48));
  tree.putFolder("Doc4");
  files.copy(tree.logic(u"origen.PDF"), tree.logic(u"doc4\\4073F00.pdf"), false);
  EXPECT_EQ(tree.content("Doc4/4073F00.pdf"), content);
  EXPECT_EQ(files.modified(tree.logic(u"Doc4\\4073F00.pdf")), files.modified(tree.logic(u"Origen.pdf")));
  tree.putFile("vacio.pdf");
  files.copy(tree.logic(u"vacio.pdf"), tree.logic(u"Doc4\\vacio.pdf"), false);
  EXPECT_TRUE(tree.has("Doc4/vacio.pdf"));
}

TEST_F(Copying, never_replaces_a_file_unasked_whatever_its_spelling) {
  tree.putFile("a.doc", "nueva");
  tree.putFile("Vieja.doc", "vieja");
  for (const TextView name : {u"Vieja.doc", u"VIEJA.DOC"})
    EXPECT_EQ(numberOf([&] { files.copy(tree.logic(u"a.doc"), tree.logic(name), false); }), 58);
  EXPECT_EQ(tree.content("Vieja.doc"), "vieja");
  EXPECT_EQ(entries(), 2);
}

TEST_F(Copying, of_two_at_once_to_one_name_only_one_succeeds) {
  tree.putFile("a.doc", std::string(300'000, 'a'));
  tree.putFile("b.doc", std::string(300'000, 'b'));
  for (int round = 0; round < 20; ++round) {
    std::int32_t first = 0, second = 0;
    std::thread other(
        [&] { first = numberOf([&] { files.copy(tree.logic(u"a.doc"), tree.logic(u"c.doc"), false); }); });
    second = numberOf([&] { files.copy(tree.logic(u"b.doc"), tree.logic(u"c.doc"), false); });
    other.join();
    EXPECT_EQ(first + second, 58);
    EXPECT_EQ(tree.content("c.doc"), std::string(300'000, first == 0 ? 'a' : 'b'));
    fs::remove(tree.path() / "c.doc");
  }
}

TEST_F(Copying, replaces_the_file_the_user_chose_and_keeps_its_spelling_and_rights) {
  tree.putFile("a.doc", "nueva");
  tree.putFile("Vieja.doc", "vieja y más larga");
  fs::permissions(tree.path() / "Vieja.doc", fs::perms(0640));
  files.copy(tree.logic(u"a.doc"), tree.logic(u"VIEJA.doc"), true);
  EXPECT_EQ(tree.content("Vieja.doc"), "nueva");
  EXPECT_EQ(fs::status(tree.path() / "Vieja.doc").permissions(), fs::perms(0640));
  files.copy(tree.logic(u"a.doc"), tree.logic(u"Otra.doc"), true);
  EXPECT_EQ(tree.content("Otra.doc"), "nueva");
  EXPECT_EQ(entries(), 3);
}

TEST_F(Copying, over_a_link_replaces_what_it_leads_to) {
  tree.putFile("a.doc", "nueva");
  tree.putFile("Doc4/real.doc", "vieja");
  fs::create_symlink("Doc4/real.doc", tree.path() / "atajo.doc");
  files.copy(tree.logic(u"a.doc"), tree.logic(u"atajo.doc"), true);
  EXPECT_TRUE(fs::is_symlink(tree.path() / "atajo.doc"));
  EXPECT_EQ(tree.content("Doc4/real.doc"), "nueva");
}

TEST_F(Copying, onto_itself_is_70_and_keeps_the_file) {
  tree.putFile("a.doc", "x");
  fs::create_hard_link(tree.path() / "a.doc", tree.path() / "b.doc");
  EXPECT_EQ(numberOf([&] { files.copy(tree.logic(u"a.doc"), tree.logic(u"A.DOC"), true); }), 70);
  EXPECT_EQ(numberOf([&] { files.copy(tree.logic(u"a.doc"), tree.logic(u"b.doc"), true); }), 70);
  EXPECT_EQ(numberOf([&] { files.copy(tree.logic(u"a.doc"), tree.logic(u"a.doc"), false); }), 58);
  EXPECT_EQ(tree.content("a.doc"), "x");
}

TEST_F(Copying, says_what_is_missing_or_in_the_way) {
  tree.putFile("a.doc");
  tree.putFolder("Doc4");
  const auto copy = [&](TextView from, TextView to) {
    return numberOf([&] { files.copy(tree.logic(from), tree.logic(to), true); });
  };
  EXPECT_EQ(copy(u"b.doc", u"c.doc"), 53);
  EXPECT_EQ(copy(u"Doc5\\b.doc", u"c.doc"), 76);
  EXPECT_EQ(copy(u"a.doc", u"Doc5\\c.doc"), 76);
  EXPECT_EQ(copy(u"a.doc", u"Doc4"), 75);
  EXPECT_EQ(copy(u"a.doc", u"Doc4\\"), 75);
  EXPECT_EQ(copy(u"Doc4", u"c.doc"), 75);
  EXPECT_EQ(entries(), 2);
}

TEST_F(Copying, an_unreadable_source_or_a_read_only_target_is_70) {
  tree.putFile("secreto.doc", "x");
  tree.putFile("fijo.doc", "fijo");
  tree.putFile("a.doc", "a");
  fs::permissions(tree.path(), fs::perms::all);
  fs::permissions(tree.path() / "secreto.doc", fs::perms::none);
  fs::permissions(tree.path() / "fijo.doc", fs::perms(0444));
  {
    const OrdinaryUser user;
    EXPECT_EQ(numberOf([&] { files.copy(tree.logic(u"secreto.doc"), tree.logic(u"b.doc"), false); }), 70);
    EXPECT_EQ(numberOf([&] { files.copy(tree.logic(u"a.doc"), tree.logic(u"fijo.doc"), true); }), 70);
  }
  EXPECT_FALSE(tree.has("b.doc"));
  EXPECT_EQ(tree.content("fijo.doc"), "fijo");
  EXPECT_EQ(entries(), 3);
}

TEST_F(Copying, that_fails_half_way_leaves_no_half_file) {
  tree.putFile("grande.pdf", std::string(1'000'000, 'x'));
  tree.putFile("Vieja.pdf", "vieja");
  {
    const FileSizeLimit limit(600'000);
    EXPECT_EQ(numberOf([&] { files.copy(tree.logic(u"grande.pdf"), tree.logic(u"nueva.pdf"), false); }), 61);
    EXPECT_EQ(numberOf([&] { files.copy(tree.logic(u"grande.pdf"), tree.logic(u"otra.pdf"), true); }), 61);
    EXPECT_EQ(numberOf([&] { files.copy(tree.logic(u"grande.pdf"), tree.logic(u"Vieja.pdf"), true); }), 61);
  }
  EXPECT_EQ(entries(), 2);
  EXPECT_EQ(tree.content("Vieja.pdf"), "vieja");
}

TEST_F(Writing, removes_a_file_in_any_spelling_and_no_folder) {
  tree.putFile("Doc4/a.doc");
  files.remove(tree.logic(u"doc4\\\\A.DOC"));
  EXPECT_FALSE(tree.has("Doc4/a.doc"));
  EXPECT_EQ(numberOf([&] { files.remove(tree.logic(u"Doc4\\a.doc")); }), 53);
  EXPECT_EQ(numberOf([&] { files.remove(tree.logic(u"Doc5\\a.doc")); }), 76);
  EXPECT_EQ(numberOf([&] { files.remove(tree.logic(u"Doc4")); }), 53);
  EXPECT_TRUE(tree.has("Doc4"));
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
  EXPECT_EQ(temporary((tree.path() / "nada").string()), u"\\tmp\\");
  files.write(temporary(tree.path().string()) + u"a.txt", u"x");
  EXPECT_TRUE(tree.has("a.txt"));
}

}  // namespace
}  // namespace ovalia::system
