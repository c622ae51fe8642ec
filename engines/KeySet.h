#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace ovalia::engines {

// Whole numbers in the order they came, four bytes each as long as all fit in 32 bits, eight from then on.
class PackedNumbers {
 public:
  std::size_t size() const { return narrow_ ? small_.size() : large_.size(); }
  std::int64_t operator[](std::size_t position) const {
    return narrow_ ? small_[position] : large_[position];
  }

  void push(std::int64_t number) {
    if (narrow_ && number == static_cast<std::int32_t>(number)) {
      if (small_.size() == small_.capacity()) grow();
      small_.push_back(static_cast<std::int32_t>(number));
    } else {
      pushLarge(number);
    }
  }
  void put(std::size_t position, std::int64_t number);
  void erase(std::size_t position);
  void shrink();
  std::size_t bytes() const;

 private:
  void grow();
  void widen();
  void pushLarge(std::int64_t number);

  bool narrow_ = true;
  std::vector<std::int32_t> small_;
  std::vector<std::int64_t> large_;
};

// The keys of a dynaset's rows in their order: the base table's key first, then one for each further table
// that may give several rows for one of the base's.
class KeySet {
 public:
  static constexpr std::int64_t noKey = -2'147'483'648;  // stands for a missing row of a left join

  explicit KeySet(std::size_t width = 1) : columns_(width) {}

  std::size_t width() const { return columns_.size(); }
  std::size_t size() const { return columns_.front().size(); }
  std::int64_t key(std::size_t position, std::size_t column = 0) const { return columns_[column][position]; }

  // The key's columns one after the other.
  void push(std::size_t column, std::int64_t key) { columns_[column].push(key); }
  void put(std::size_t position, std::int64_t key);  // another first key for a row
  void erase(std::size_t position);
  void shrink();  // gives back what growing left over

  // The positions of the row with all these keys, lowest first; usually one or none. The first search of a
  // set that is not in key order builds an index of four bytes a row, in a few milliseconds for a million.
  std::optional<std::size_t> find(std::span<const std::int64_t> keys) const;

  std::size_t bytes() const;

 private:
  enum class Order { Unknown, Rising, Falling, Mixed };
  void learnOrder() const;
  void buildIndex() const;
  std::size_t ranked(std::size_t rank) const;            // the position with the rank in key order
  std::size_t firstNotBelow(std::int64_t wanted) const;  // the rank of the first key that is not below
  bool matches(std::size_t position, std::span<const std::int64_t> keys) const;

  std::vector<PackedNumbers> columns_;
  mutable Order order_ = Order::Unknown;
  mutable std::vector<std::uint32_t> index_;  // positions in order of the first key, where order_ is Mixed
};

}  // namespace ovalia::engines
