#include "engines/KeySet.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "engines/PlaceSet.h"

namespace ovalia::engines::test {
namespace {

KeySet setOf(const std::vector<std::int64_t>& keys) {
  KeySet set;
  for (const std::int64_t key : keys) set.push(0, key);
  set.shrink();
  return set;
}

std::optional<std::size_t> find(const KeySet& set, std::int64_t key) { return set.find({&key, 1}); }

void expectFound(const KeySet& set, const std::vector<std::int64_t>& keys) {
  ASSERT_EQ(set.size(), keys.size());
  for (std::size_t i = 0; i < keys.size(); ++i) {
    EXPECT_EQ(set.key(i), keys[i]);
    EXPECT_EQ(find(set, keys[i]), i) << keys[i];
  }
  for (const std::int64_t missing : {-7LL, 0LL, 4'000'000'000LL, 77'777'777LL}) {
    if (std::find(keys.begin(), keys.end(), missing) == keys.end()) {
      EXPECT_EQ(find(set, missing), std::nullopt);
    }
  }
}

std::vector<std::int64_t> numbers(std::size_t count, std::int64_t first, std::int64_t step) {
  std::vector<std::int64_t> all;
  for (std::size_t i = 0; i < count; ++i) all.push_back(first + static_cast<std::int64_t>(i) * step);
  return all;
}

TEST(KeySets, find_keys_in_any_order) {
  std::mt19937 chance(7);
  auto mixed = numbers(5000, 1, 3);
  std::shuffle(mixed.begin(), mixed.end(), chance);
  expectFound(setOf({}), {});
  expectFound(setOf({5}), {5});
  expectFound(setOf({3, 1}), {3, 1});
  for (auto keys : {numbers(5000, 1, 1), numbers(5000, 9000, -1), mixed}) expectFound(setOf(keys), keys);
}

TEST(KeySets, find_keys_that_lie_unevenly) {
  std::vector<std::int64_t> keys = numbers(3000, -2'000'000, 1);
  for (const std::int64_t key : numbers(3000, 1'000'000'000, 500'000)) keys.push_back(key);
  expectFound(setOf(keys), keys);
  std::shuffle(keys.begin(), keys.end(), std::mt19937(11));
  expectFound(setOf(keys), keys);
}

TEST(KeySets, take_keys_beyond_32_bits) {
  const std::vector<std::int64_t> keys{5, 3'000'000'000, -4'000'000'001, 7};
  expectFound(setOf(keys), keys);
}

TEST(KeySets, stay_searchable_while_rows_are_taken_out) {
  std::vector<std::int64_t> keys = numbers(400, 1, 2);
  std::shuffle(keys.begin(), keys.end(), std::mt19937(3));
  KeySet set = setOf(keys);
  find(set, 1);
  for (const std::size_t position : {399u, 0u, 17u, 200u}) {
    set.erase(position);
    keys.erase(keys.begin() + position);
  }
  expectFound(set, keys);
}

TEST(KeySets, of_several_columns_find_the_whole_key) {
  KeySet set(2);
  const std::int64_t rows[][2] = {{2, 9}, {1, 5}, {2, 8}, {1, KeySet::noKey}};
  for (const auto& row : rows) {
    set.push(0, row[0]);
    set.push(1, row[1]);
  }
  for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(set.find(rows[i]), i);
  const std::int64_t none[] = {1, 9};
  EXPECT_EQ(set.find(none), std::nullopt);
}

TEST(KeySets, cost_at_most_ten_bytes_a_row) {
  auto keys = numbers(100'000, 1, 1);
  std::shuffle(keys.begin(), keys.end(), std::mt19937(5));
  const KeySet set = setOf(keys);
  EXPECT_LE(set.bytes(), keys.size() * 4);
  find(set, 1);
  EXPECT_LE(set.bytes(), keys.size() * 10);
}

void expectPlaces(const std::vector<std::uint32_t>& places, std::size_t rows) {
  const PlaceSet set(places, rows);
  for (std::ptrdiff_t at = -2; at <= static_cast<std::ptrdiff_t>(rows) + 2; ++at) {
    std::ptrdiff_t after = -1, before = -1;
    for (const std::uint32_t place : places) {
      const auto each = static_cast<std::ptrdiff_t>(place);
      if (each >= at && (after < 0 || each < after)) after = each;
      if (each <= at && each > before) before = each;
    }
    EXPECT_EQ(set.atOrAfter(at), after) << at;
    EXPECT_EQ(set.atOrBefore(at), before) << at;
  }
}

TEST(PlaceSets, give_the_nearest_place_few_or_many) {
  expectPlaces({}, 0);
  expectPlaces({}, 100);
  expectPlaces({99}, 100);
  expectPlaces({700, 0, 3}, 1000);
  expectPlaces({0, 2, 4, 63, 64, 65, 127, 128, 190}, 191);
  expectPlaces({5}, 6);
}

}  // namespace
}  // namespace ovalia::engines::test
