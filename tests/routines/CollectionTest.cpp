#include "routines/Collection.h"

#include <gtest/gtest.h>

#include "platform/Failure.h"

namespace ovalia {
namespace {

std::int32_t numberOf(const std::function<void()>& statement) {
  try {
    statement();
  } catch (const Failure& failed) {
    return failed.number();
  }
  return 0;
}

ObjectRef twoPaths() {
  const auto collection = std::make_shared<Collection>();
  collection->add(u"a.zip");
  collection->add(u"b.zip");
  return collection;
}

TEST(Collection, counts_and_gives_its_items_from_one) {
  const ObjectRef paths = twoPaths();
  EXPECT_EQ(getMember(paths, u"Count").toLong(), 2);
  EXPECT_EQ(getMember(paths, u"Item", {1}).text(), u"a.zip");
  EXPECT_EQ(callMember(paths, u"item", {u"2"}).text(), u"b.zip");
  EXPECT_EQ(callMember(paths, u"COUNT").toLong(), 2);
}

TEST(Collection, gives_an_item_through_its_default_member) {
  EXPECT_EQ(getMember(twoPaths(), u"", {2}).text(), u"b.zip");
}

TEST(Collection, fails_outside_of_its_places_and_for_what_it_does_not_have) {
  const ObjectRef paths = twoPaths();
  EXPECT_EQ(numberOf([&] { getMember(paths, u"Item", {0}); }), 9);
  EXPECT_EQ(numberOf([&] { getMember(paths, u"Item", {3}); }), 9);
  EXPECT_EQ(numberOf([&] { getMember(paths, u"Item"); }), 450);
  EXPECT_EQ(numberOf([&] { getMember(paths, u"Count", {1}); }), 450);
  EXPECT_EQ(numberOf([&] { getMember(paths, u"Remove", {1}); }), 438);
  EXPECT_EQ(numberOf([&] { putMember(paths, u"Count", 3); }), 438);
}

}  // namespace
}  // namespace ovalia
