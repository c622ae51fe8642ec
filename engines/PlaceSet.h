#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace ovalia::engines {

// Places of rows among `rows` rows: a sorted list where they are few, a bit a row where they are many.
class PlaceSet {
 public:
  PlaceSet() = default;
  PlaceSet(std::vector<std::uint32_t> places, std::size_t rows);

  // The nearest place at or after, at or before; -1 when there is none.
  std::ptrdiff_t atOrAfter(std::ptrdiff_t place) const;
  std::ptrdiff_t atOrBefore(std::ptrdiff_t place) const;

 private:
  bool has(std::size_t place) const { return bits_[place / 64] >> place % 64 & 1; }

  std::vector<std::uint32_t> few_;
  std::vector<std::uint64_t> bits_;
  std::size_t rows_ = 0;
};

}  // namespace ovalia::engines
