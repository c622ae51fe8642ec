#include <gtest/gtest.h>

#include <filesystem>

#include "routines/Trap.h"
#include "system/FileSystem.h"
#include "tests/kit/FakeFiles.h"
#include "tests/kit/TemporaryFolder.h"

// What the logic counts on, of the files on disk and of those in memory alike.
namespace ovalia {
namespace {

// A folder "Doc4" with the plain file "Nota.doc" and the folder "Sub", on disk.
class OnDisk {
 public:
  OnDisk() {
    tree_.putFile("Doc4/Nota.doc", "nota");
    tree_.putFolder("Doc4/Sub");
  }
  Files& files() { return files_; }
  Text path(TextView inside) const { return tree_.logic(inside); }

 private:
  kit::TemporaryFolder tree_;
  system::FileSystem files_;
};

class InMemory {
 public:
  InMemory() {
    files_.putFile(path(u"Doc4\\Nota.doc"), u"nota");
    files_.putFolder(path(u"Doc4\\Sub"));
  }
  Files& files() { return files_; }
  Text path(TextView inside) const { return u"\\datos\\" + Text(inside); }

 private:
  kit::FaultPanel faults_;
  kit::FakeFiles files_{faults_};
};

template <class Place>
class FilesContract : public testing::Test {
 protected:
  Place place;

  std::int32_t failureOf(const std::function<void(Files&)>& action) {
    return resumeNext([&] { action(place.files()); });
  }
  Text at(TextView inside) const { return place.path(inside); }
};

struct PlaceNames {
  template <class Place>
  static std::string GetName(int) {
    return std::is_same_v<Place, OnDisk> ? "on_disk" : "in_memory";
  }
};
using Places = testing::Types<OnDisk, InMemory>;
TYPED_TEST_SUITE(FilesContract, Places, PlaceNames);

struct Looked {
  TextView path;
  std::int32_t attributes;  // or the negative failure
};

TYPED_TEST(FilesContract, looking_at_a_path_tells_file_folder_and_what_is_missing) {
  const Looked rows[] = {
      {u"Doc4", 16},
      {u"Doc4\\", 16},
      {u"DOC4\\\\sub", 16},
      {u"Doc4\\Nota.doc", 0},
      {u"doc4\\\\NOTA.DOC", 0},
      {u"Doc4\\Nota.doc\\", -76},  // a plain file is no folder
      {u"Doc4\\Nota.doc\\x", -76},
      {u"Doc4\\otra.doc", -53},
      {u"Doc5\\Nota.doc", -76},
      {TextView(u"Doc4\\Nota.doc\0x", 15), -75},
  };
  for (const Looked& row : rows) {
    int attributes = -1;
    const std::int32_t failed =
        this->failureOf([&](Files& files) { attributes = files.attributes(this->at(row.path)); });
    EXPECT_EQ(failed == 0 ? attributes : -failed, row.attributes) << toUtf8(row.path);
  }
  for (const TextView outside : {u"", u"Nota.doc", u"C:\\Nota.doc"})
    EXPECT_EQ(this->failureOf([&](Files& files) { files.attributes(outside); }), 76) << toUtf8(outside);
}

struct Matched {
  TextView path, found;
};

TYPED_TEST(FilesContract, a_probe_finds_plain_files_only_and_gives_the_disks_spelling) {
  const Matched rows[] = {
      {u"Doc4\\Nota.doc", u"Nota.doc"},
      {u"doc4\\\\NOTA.DOC", u"Nota.doc"},
      {u"Doc4\\n?ta.*", u"Nota.doc"},
      {u"Doc4\\", u"Nota.doc"},
      {u"Doc4\\Sub", u""},
      {u"Doc4\\Nota.doc\\", u""},
      {u"Doc4\\otra.doc", u""},
      {u"Doc5\\Nota.doc", u""},
  };
  for (const Matched& row : rows)
    EXPECT_EQ(this->place.files().firstMatch(this->at(row.path)), row.found) << toUtf8(row.path);
}

struct OneFile {
  TextView path, other;
  std::int32_t answer;  // 1 or 0, or the negative failure
};

TYPED_TEST(FilesContract, two_paths_are_known_for_one_plain_file) {
  this->place.files().copy(this->at(u"Doc4\\Nota.doc"), this->at(u"Doc4\\Igual.doc"), false);
  const OneFile rows[] = {
      {u"Doc4\\Nota.doc", u"Doc4\\Nota.doc", 1},
      {u"Doc4\\Nota.doc", u"doc4\\\\NOTA.DOC", 1},
      {u"Doc4\\Nota.doc", u"Doc4\\Igual.doc", 0},
      {u"Doc4\\Nota.doc", u"Doc4\\otra.doc", 0},
      {u"Doc4\\Nota.doc", u"Doc5\\Nota.doc", 0},
      {u"Doc4\\Nota.doc", u"Doc4\\Sub", 0},
      {u"Doc4\\otra.doc", u"Doc4\\otra.doc", -53},
      {u"Doc5\\Nota.doc", u"Doc4\\Nota.doc", -76},
      {u"Doc4\\Sub", u"Doc4\\Sub", -75},
      {u"Doc4\\Nota.doc", TextView(u"Doc4\\Nota.doc\0x", 15), -75},
  };
  for (const OneFile& row : rows) {
    bool same = false;
    const std::int32_t failed = this->failureOf(
        [&](Files& files) { same = files.sameFile(this->at(row.path), this->at(row.other)); });
    EXPECT_EQ(failed == 0 ? same : -failed, row.answer) << toUtf8(row.path) << " and " << toUtf8(row.other);
  }
  for (const TextView outside : {u"", u"Nota.doc", u"C:\\Nota.doc"})
    EXPECT_EQ(this->failureOf([&](Files& files) { files.sameFile(this->at(u"Doc4\\Nota.doc"), outside); }),
              76)
        << toUtf8(outside);
}

struct Copied {
  TextView from, to;
  bool replace;
  std::int32_t failure;
};

TYPED_TEST(FilesContract, a_copy_says_what_is_missing_and_what_is_in_the_way) {
  const Copied rows[] = {
      {u"Doc4\\otra.doc", u"Doc4\\x.doc", false, 53},
      {u"Doc5\\Nota.doc", u"Doc4\\x.doc", false, 76},
      {u"Doc4\\Nota.doc\\", u"Doc4\\x.doc", false, 76},
      {u"Doc4\\Sub", u"Doc4\\x.doc", false, 75},
      {u"Doc4\\Nota.doc", u"Doc5\\x.doc", false, 76},
      {u"Doc4\\Nota.doc", u"Doc4\\Nota.doc\\x.doc", false, 76},
      {u"Doc4\\Nota.doc", u"Doc4\\Sub", false, 75},
      {u"Doc4\\Nota.doc", u"Doc4\\", false, 75},
      {u"Doc4\\Nota.doc", u"Doc4\\x.doc\\", false, 75},
      {u"Doc4\\Nota.doc", u"Doc4\\NOTA.doc", false, 58},
      {u"Doc4\\Nota.doc", u"Doc4\\NOTA.doc", true, 70},
      {u"Doc4\\Nota.doc", u"Doc4\\x.doc", false, 0},
      {u"Doc4\\Nota.doc", u"Doc4\\X.DOC", false, 58},
      {u"Doc4\\Nota.doc", u"Doc4\\X.DOC", true, 0},
  };
  for (const Copied& row : rows)
    EXPECT_EQ(
        this->failureOf([&](Files& files) { files.copy(this->at(row.from), this->at(row.to), row.replace); }),
        row.failure)
        << toUtf8(row.from) << " to " << toUtf8(row.to);
  EXPECT_EQ(this->place.files().firstMatch(this->at(u"Doc4\\x.doc")), u"x.doc");
}

TYPED_TEST(FilesContract, one_level_of_folders_is_made_at_a_time) {
  const auto make = [&](TextView path) {
    return this->failureOf([&](Files& files) { files.makeDirectory(this->at(path)); });
  };
  EXPECT_EQ(make(u"Doc5\\Doc0"), 76);
  EXPECT_EQ(make(u"Doc5"), 0);
  EXPECT_EQ(make(u"Doc5\\Doc0\\"), 0);
  EXPECT_EQ(make(u"DOC5"), 75);
  EXPECT_EQ(make(u"Doc4\\Nota.doc"), 75);
  EXPECT_EQ(make(u"Doc4\\Nota.doc\\x"), 76);
}

TYPED_TEST(FilesContract, only_plain_files_are_deleted) {
  const auto remove = [&](TextView path) {
    return this->failureOf([&](Files& files) { files.remove(this->at(path)); });
  };
  EXPECT_EQ(remove(u"Doc4\\Sub"), 53);
  EXPECT_EQ(remove(u"Doc4\\Nota.doc\\"), 76);
  EXPECT_EQ(remove(u"Doc4\\otra.doc"), 53);
  EXPECT_EQ(remove(u"DOC4\\nota.doc"), 0);
  EXPECT_EQ(remove(u"Doc4\\Nota.doc"), 53);
}

}  // namespace
}  // namespace ovalia
