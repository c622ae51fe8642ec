#include "system/PathLookup.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

#include "platform/Failure.h"
#include "tests/kit/TemporaryFolder.h"

namespace ovalia::system {
namespace {

std::int32_t numberOf(const std::function<void()>& action) {
  try {
    action();
    return 0;
  } catch (const Failure& failure) {
    return failure.number();
  }
}

class PathLookup : public testing::Test {
 protected:
  kit::TemporaryFolder tree;

  // What was found, below the tree; "-" for nothing.
  std::string found(TextView inside) const {
    const auto path = locate(tree.logic(inside));
    return path ? path->substr(tree.path().string().size() + 1) : "-";
  }
};

TEST_F(PathLookup, finds_each_component_without_regard_to_case) {
  tree.putFile("Doc4/Doc0/Señal ÁRBOL.Pdf");
  EXPECT_EQ(found(u"DOC4\\doc0\\SEÑAL árbol.PDF"), "Doc4/Doc0/Señal ÁRBOL.Pdf");
  EXPECT_EQ(found(u"doc4"), "Doc4");
  EXPECT_EQ(found(u"doc4\\doc1"), "-");
  EXPECT_EQ(found(u"Doc4\\Doc0\\Senal arbol.Pdf"), "-");
}

TEST_F(PathLookup, an_exact_match_comes_before_one_that_differs_in_case) {
  tree.putFile("CARTA.doc");
  tree.putFile("carta.doc");
  tree.putFile("Carta.doc");
  EXPECT_EQ(found(u"carta.doc"), "carta.doc");
  EXPECT_EQ(found(u"Carta.doc"), "Carta.doc");
  EXPECT_EQ(found(u"cARTA.DOC"), "CARTA.doc");
}

// The exact folder comes first although the file lies in the other.
TEST_F(PathLookup, each_component_is_chosen_before_the_next_is_looked_for) {
  tree.putFolder("Doc4");
  tree.putFile("DOC4/a.doc");
  EXPECT_EQ(found(u"Doc4\\a.doc"), "-");
  EXPECT_EQ(found(u"doc4\\a.doc"), "DOC4/a.doc");
}

TEST_F(PathLookup, doubled_and_final_separators_count_as_one_or_none) {
  tree.putFile("Doc4/Doc0/a.doc");
  EXPECT_EQ(found(u"Doc4\\\\Doc0\\\\\\a.doc"), "Doc4/Doc0/a.doc");
  EXPECT_EQ(found(u"Doc4\\Doc0\\"), "Doc4/Doc0");
  EXPECT_EQ(locate(u"\\"), "/");
  EXPECT_EQ(locate(u"\\\\" + tree.logic().substr(1)), tree.path().string());
}

TEST_F(PathLookup, a_path_that_does_not_begin_at_the_root_is_76) {
  for (const TextView path : {u"", u"carta.doc", u"Doc4\\a.doc", u"C:\\a.doc", u"C:a.doc", u"/tmp"}) {
    EXPECT_EQ(numberOf([&] { locate(path); }), 76) << toUtf8(path);
    EXPECT_EQ(numberOf([&] { existing(path); }), 76) << toUtf8(path);
    EXPECT_EQ(numberOf([&] { writable(path); }), 76) << toUtf8(path);
  }
}

TEST_F(PathLookup, a_zero_character_never_cuts_a_path_short) {
  tree.putFile("a.doc");
  const Text path = tree.logic(u"a.doc") + Text(1, u'\0') + u"x";
  EXPECT_EQ(numberOf([&] { locate(path); }), 75);
  EXPECT_EQ(numberOf([&] { writable(path); }), 75);
}

TEST_F(PathLookup, what_must_be_there_is_53_in_a_folder_and_76_without_one) {
  tree.putFile("a.doc");
  EXPECT_EQ(existing(tree.logic(u"A.DOC")), (tree.path() / "a.doc").string());
  EXPECT_EQ(numberOf([&] { existing(tree.logic(u"b.doc")); }), 53);
  EXPECT_EQ(numberOf([&] { existing(tree.logic(u"Doc4\\a.doc")); }), 76);
  EXPECT_EQ(numberOf([&] { existing(tree.logic(u"a.doc\\b.doc")); }), 76);
  EXPECT_EQ(numberOf([&] { existing(tree.logic(u"a.doc\\")); }), 76);
}

TEST_F(PathLookup, a_new_file_keeps_its_spelling_and_an_old_one_the_disks) {
  tree.putFile("Doc4/Vieja.doc");
  EXPECT_EQ(writable(tree.logic(u"DOC4\\Nueva.DOC")), (tree.path() / "Doc4/Nueva.DOC").string());
  EXPECT_EQ(writable(tree.logic(u"doc4\\vieja.DOC")), (tree.path() / "Doc4/Vieja.doc").string());
}

TEST_F(PathLookup, a_file_cannot_be_written_where_a_folder_is_or_none) {
  tree.putFolder("Doc4");
  tree.putFile("a.doc");
  EXPECT_EQ(numberOf([&] { writable(tree.logic(u"doc4")); }), 75);
  EXPECT_EQ(numberOf([&] { writable(tree.logic(u"nueva.doc\\")); }), 75);
  EXPECT_EQ(numberOf([&] { writable(tree.logic(u"Doc5\\a.doc")); }), 76);
  EXPECT_EQ(numberOf([&] { writable(tree.logic(u"a.doc\\b.doc")); }), 76);
}

TEST_F(PathLookup, names_that_are_no_utf8_are_listed_and_found_again) {
  const std::string odd =
      "Pe\xF1"
      "a.doc";
  tree.putFile(odd);
  const auto names = namesIn(tree.path().string());
  ASSERT_EQ(names.size(), 1U);
  EXPECT_EQ(names[0].bytes, odd);
  EXPECT_EQ(names[0].text, u"Pe\uFFFDa.doc");
  EXPECT_EQ(locate(tree.logic(names[0].text)), (tree.path() / odd).string());
}

TEST_F(PathLookup, names_of_a_folder_come_in_order_without_case) {
  for (const char* name : {"b", "A", "a", "C", "ñ"}) tree.putFile(name);
  std::string all;
  for (const DiskName& name : namesIn(tree.path().string())) all += name.bytes;
  EXPECT_EQ(all, "AabCñ");
  const auto wanted = namesIn(tree.path().string(), [](TextView name) { return sameName(name, u"A"); });
  ASSERT_EQ(wanted.size(), 2U);
  EXPECT_EQ(wanted[0].bytes + wanted[1].bytes, "Aa");
  EXPECT_EQ(numberOf([&] { namesIn((tree.path() / "nada").string()); }), 76);
  EXPECT_EQ(numberOf([&] { namesIn((tree.path() / "a").string()); }), 76);
}

TEST(SplitPath, parts_folder_and_last_component) {
  const auto expect = [](TextView path, bool keepEnd, TextView folder, TextView last) {
    const SplitPath split = splitPath(path, keepEnd);
    EXPECT_EQ(split.folder, folder) << toUtf8(path);
    EXPECT_EQ(split.last, last) << toUtf8(path);
  };
  expect(u"\\a\\\\b.doc", false, u"\\a\\", u"b.doc");
  expect(u"\\a\\b\\", false, u"\\a\\", u"b");
  expect(u"\\a\\b\\", true, u"\\a\\b\\", u"");
  expect(u"\\", false, u"\\", u"");
  expect(u"b.doc", false, u"", u"b.doc");
}

TEST(FitsMask, knows_stars_and_question_marks_only) {
  EXPECT_TRUE(fitsMask(u"carta.dot", u"*.dot"));
  EXPECT_TRUE(fitsMask(u"CARTA.DOT", u"*.dot"));
  EXPECT_TRUE(fitsMask(u"ñandú.dot", u"Ñ*Ú.dot"));
  EXPECT_FALSE(fitsMask(u"carta.dotx", u"*.dot"));
  EXPECT_TRUE(fitsMask(u".dot", u"*.dot"));
  EXPECT_TRUE(fitsMask(u"a1.doc", u"a?.doc"));
  EXPECT_FALSE(fitsMask(u"a.doc", u"a?.doc"));
  EXPECT_TRUE(fitsMask(u"ErrLog[_].txt", u"ErrLog[_].txt"));
  EXPECT_FALSE(fitsMask(u"ErrLog_.txt", u"ErrLog[_].txt"));
  EXPECT_TRUE(fitsMask(u"a#1!.doc", u"a#1!.d*"));
  EXPECT_TRUE(fitsMask(u"aXbXc", u"a*b*c"));
  EXPECT_TRUE(fitsMask(u"abcbc", u"a*bc"));
  EXPECT_FALSE(fitsMask(u"abcb", u"a*bc"));
  EXPECT_TRUE(fitsMask(u"", u"**"));
  EXPECT_TRUE(fitsMask(u"x", u"*"));
  EXPECT_FALSE(fitsMask(u"x", u""));
}

}  // namespace
}  // namespace ovalia::system
