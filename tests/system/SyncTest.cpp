#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>

#include "tests/system/FileFixture.h"
#include "tests/system/SyncWatch.h"

namespace ovalia::system {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

// What a power cut leaves.
class OnDiskAtOnce : public test::FileSystemTest {
 protected:
  void SetUp() override {
    tree.putFile("a.doc", "nueva");
    tree.putFolder("Doc4");
  }
  void copy(bool replace) { files.copy(tree.logic(u"a.doc"), tree.logic(u"Doc4\\b.doc"), replace); }
};

TEST_F(OnDiskAtOnce, is_a_copy_and_then_its_name) {
  for (const bool replace : {false, true}) {
    fs::remove(tree.path() / "Doc4/b.doc");
    test::SyncWatch watch(tree.path());
    copy(replace);
    EXPECT_THAT(watch.brought, ElementsAre("Doc4/b.doc", "Doc4"));
  }
}

TEST_F(OnDiskAtOnce, is_a_copy_before_it_takes_anothers_place) {
  tree.putFile("Doc4/b.doc", "vieja");
  test::SyncWatch watch(tree.path());
  copy(true);
  ASSERT_EQ(watch.brought.size(), 2u);
  EXPECT_NE(watch.brought[0], "Doc4/b.doc");
  EXPECT_TRUE(watch.brought[0].starts_with("Doc4/"));
  EXPECT_EQ(watch.brought[1], "Doc4");
}

TEST_F(OnDiskAtOnce, is_a_folder_that_was_made) {
  test::SyncWatch watch(tree.path());
  files.makeDirectory(tree.logic(u"Doc4\\Doc0"));
  EXPECT_THAT(watch.brought, ElementsAre("Doc4"));
}

TEST_F(OnDiskAtOnce, or_there_is_no_copy_and_the_old_file_stays) {
  struct {
    int error;
    std::int32_t number;
  } const rows[] = {{ENOSPC, 61}, {EDQUOT, 61}, {EIO, 75}};
  for (const auto& row : rows) {
    test::SyncWatch watch(tree.path());
    watch.failing = row.error;
    EXPECT_EQ(numberOf([&] { copy(false); }), row.number);
    EXPECT_EQ(entries("Doc4"), 0);
    tree.putFile("Doc4/b.doc", "vieja");
    EXPECT_EQ(numberOf([&] { copy(true); }), row.number);
    EXPECT_EQ(tree.content("Doc4/b.doc"), "vieja");
    EXPECT_EQ(entries("Doc4"), 1);
    fs::remove(tree.path() / "Doc4/b.doc");
  }
}

TEST_F(OnDiskAtOnce, is_not_asked_of_a_file_system_that_knows_no_such_thing) {
  test::SyncWatch watch(tree.path());
  watch.failing = EINVAL;
  copy(false);
  EXPECT_EQ(tree.content("Doc4/b.doc"), "nueva");
}

}  // namespace
}  // namespace ovalia::system
