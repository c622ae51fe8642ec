#include "engines/PlaceSet.h"

#include <algorithm>
#include <bit>

namespace ovalia::engines {

PlaceSet::PlaceSet(std::vector<std::uint32_t> places, std::size_t rows) : rows_(rows) {
  if (places.size() * 32 < rows) {
    std::sort(places.begin(), places.end());
    few_ = std::move(places);
    return;
  }
  bits_.resize(rows / 64 + 1);
  for (const std::uint32_t place : places) bits_[place / 64] |= std::uint64_t{1} << place % 64;
}

std::ptrdiff_t PlaceSet::atOrAfter(std::ptrdiff_t place) const {
  const auto from = static_cast<std::size_t>(std::max<std::ptrdiff_t>(place, 0));
  if (bits_.empty()) {
    const auto found = std::lower_bound(few_.begin(), few_.end(), from);
    return found == few_.end() ? -1 : static_cast<std::ptrdiff_t>(*found);
  }
  if (from >= rows_) return -1;
  std::uint64_t word = bits_[from / 64] & ~std::uint64_t{0} << from % 64;
  for (std::size_t at = from / 64;; word = bits_[at]) {
    if (word != 0)
      return static_cast<std::ptrdiff_t>(at * 64 + static_cast<std::size_t>(std::countr_zero(word)));
    if (++at == bits_.size()) return -1;
  }
}

std::ptrdiff_t PlaceSet::atOrBefore(std::ptrdiff_t place) const {
  if (place < 0) return -1;
  if (bits_.empty()) {
    const auto after = std::upper_bound(few_.begin(), few_.end(), static_cast<std::size_t>(place));
    return after == few_.begin() ? -1 : static_cast<std::ptrdiff_t>(*(after - 1));
  }
  for (auto at = std::min(static_cast<std::size_t>(place), rows_);; --at) {
    if (has(at)) return static_cast<std::ptrdiff_t>(at);
    if (at == 0) return -1;
  }
}

}  // namespace ovalia::engines
