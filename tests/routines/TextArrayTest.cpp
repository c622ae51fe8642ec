#include "routines/TextArray.h"

#include <gtest/gtest.h>

#include <functional>

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

void putAt(const ObjectRef& array, std::vector<Variant> indexes, TextView text) {
  array->put(u"", text, indexes);
}

TEST(TextArray, starts_with_empty_texts) {
  const ObjectRef array = std::make_shared<TextArray>(std::initializer_list<std::size_t>{3, 5});
  for (std::int32_t row = 0; row < 3; ++row)
    for (std::int32_t column = 0; column < 5; ++column)
      EXPECT_EQ(getMember(array, u"", {row, column}).toText(), u"");
}

TEST(TextArray, gives_back_what_was_put_at_each_place) {
  const auto array = std::make_shared<TextArray>(std::initializer_list<std::size_t>{2, 3});
  for (std::size_t row = 0; row < 2; ++row)
    for (std::size_t column = 0; column < 3; ++column)
      array->at({row, column}) = toText(static_cast<std::int64_t>(10 * row + column));
  EXPECT_EQ(getMember(array, u"", {0, 2}).toText(), u"2");
  EXPECT_EQ(getMember(array, u"", {1, 0}).toText(), u"10");
  EXPECT_EQ(callMember(array, u"", {u"1", 2.0}).toText(), u"12");
  putAt(array, {1, 1}, u"Notas");
  EXPECT_EQ(array->at({1, 1}), u"Notas");
  EXPECT_EQ(array->at({1, 2}), u"12");
}

TEST(TextArray, tells_the_last_index_of_each_dimension) {
  const ObjectRef array = std::make_shared<TextArray>(std::initializer_list<std::size_t>{3, 5});
  EXPECT_EQ(getMember(array, u"UBound", {1}).toLong(), 2);
  EXPECT_EQ(callMember(array, u"ubound", {2}).toLong(), 4);
  const ObjectRef row = std::make_shared<TextArray>(std::initializer_list<std::size_t>{61});
  EXPECT_EQ(getMember(row, u"UBound", {1}).toLong(), 60);
  EXPECT_EQ(getMember(row, u"", {60}).toText(), u"");
}

TEST(TextArray, fails_outside_of_its_places_and_for_what_it_does_not_have) {
  const ObjectRef array = std::make_shared<TextArray>(std::initializer_list<std::size_t>{3, 5});
  EXPECT_EQ(numberOf([&] { getMember(array, u"", {3, 0}); }), 9);
  EXPECT_EQ(numberOf([&] { getMember(array, u"", {0, 5}); }), 9);
  EXPECT_EQ(numberOf([&] { getMember(array, u"", {-1, 0}); }), 9);
  EXPECT_EQ(numberOf([&] { getMember(array, u"UBound", {0}); }), 9);
  EXPECT_EQ(numberOf([&] { getMember(array, u"UBound", {3}); }), 9);
  EXPECT_EQ(numberOf([&] { getMember(array, u"", {0}); }), 450);
  EXPECT_EQ(numberOf([&] { getMember(array, u"", {0, 0, 0}); }), 450);
  EXPECT_EQ(numberOf([&] { getMember(array, u"UBound"); }), 450);
  EXPECT_EQ(numberOf([&] { getMember(array, u"Count"); }), 438);
  EXPECT_EQ(numberOf([&] { putMember(array, u"Count", 3); }), 438);
}

}  // namespace
}  // namespace ovalia
