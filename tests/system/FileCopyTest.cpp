#include "system/FileCopy.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <thread>

#include "tests/system/FileFixture.h"

namespace ovalia::system {
namespace {

namespace fs = std::filesystem;
using test::FileSizeLimit;
using test::OrdinaryUser;
using Copying = test::FileSystemTest;

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

TEST_F(Copying, replaces_a_file_with_as_long_a_name_as_the_disk_takes) {
  const Text longest = Text(251, u'n') + u".doc";
  tree.putFile("a.doc", "nueva");
  tree.putFile(toUtf8(longest), "vieja");
  files.copy(tree.logic(u"a.doc"), tree.logic(longest), true);
  EXPECT_EQ(tree.content(toUtf8(longest)), "nueva");
  EXPECT_EQ(numberOf([&] { files.copy(tree.logic(u"a.doc"), tree.logic(u"n" + longest), true); }), 75);
  EXPECT_EQ(numberOf([&] { files.copy(tree.logic(u"a.doc"), tree.logic(u"n" + longest), false); }), 75);
  EXPECT_EQ(entries(), 2);
}

TEST_F(Copying, a_file_that_is_read_and_replaced_meanwhile_stays_whole_for_who_reads_it) {
  tree.putFile("a.doc", "nueva");
  tree.putFile("Vieja.doc", "vieja");
  std::ifstream reader(tree.path() / "Vieja.doc");
  files.copy(tree.logic(u"a.doc"), tree.logic(u"Vieja.doc"), true);
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(reader), {}), "vieja");
  EXPECT_EQ(tree.content("Vieja.doc"), "nueva");
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

TEST_F(Copying, what_is_no_plain_file_is_75_and_waited_for_by_nobody) {
  ASSERT_EQ(mkfifo((tree.path() / "tubo").c_str(), 0600), 0);
  EXPECT_EQ(numberOf([&] { files.copy(tree.logic(u"tubo"), tree.logic(u"c.doc"), false); }), 75);
  EXPECT_EQ(entries(), 1);
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

}  // namespace
}  // namespace ovalia::system
