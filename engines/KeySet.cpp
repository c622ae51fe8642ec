#include "engines/KeySet.h"

#include <algorithm>
#include <array>

namespace ovalia::engines {

void PackedNumbers::grow() { small_.reserve(small_.empty() ? 64 : small_.size() + small_.size() / 2); }

void PackedNumbers::widen() {
  large_.assign(small_.begin(), small_.end());
  small_ = {};
  narrow_ = false;
}

void PackedNumbers::pushLarge(std::int64_t number) {
  if (narrow_) widen();
  large_.push_back(number);
}

void PackedNumbers::put(std::size_t position, std::int64_t number) {
  if (narrow_ && number != static_cast<std::int32_t>(number)) widen();
  if (narrow_)
    small_[position] = static_cast<std::int32_t>(number);
  else
    large_[position] = number;
}

void PackedNumbers::erase(std::size_t position) {
  const auto at = static_cast<std::ptrdiff_t>(position);
  if (narrow_)
    small_.erase(small_.begin() + at);
  else
    large_.erase(large_.begin() + at);
}

void PackedNumbers::shrink() {
  small_.shrink_to_fit();
  large_.shrink_to_fit();
}

std::size_t PackedNumbers::bytes() const {
  return small_.capacity() * sizeof(std::int32_t) + large_.capacity() * sizeof(std::int64_t);
}

void KeySet::put(std::size_t position, std::int64_t key) {
  columns_.front().put(position, key);
  order_ = Order::Unknown;
  index_ = {};
}

void KeySet::erase(std::size_t position) {
  for (PackedNumbers& column : columns_) column.erase(position);
  if (index_.empty()) return;
  std::size_t kept = 0;
  for (const std::uint32_t at : index_)
    if (at != position) index_[kept++] = at > position ? at - 1 : at;
  index_.resize(kept);
}

void KeySet::shrink() {
  for (PackedNumbers& column : columns_) column.shrink();
}

std::size_t KeySet::bytes() const {
  std::size_t all = index_.capacity() * sizeof(std::uint32_t);
  for (const PackedNumbers& column : columns_) all += column.bytes();
  return all;
}

void KeySet::learnOrder() const {
  const PackedNumbers& keys = columns_.front();
  bool rising = true, falling = true;
  for (std::size_t i = 1; i < keys.size() && (rising || falling); ++i) {
    rising = rising && keys[i - 1] <= keys[i];
    falling = falling && keys[i - 1] >= keys[i];
  }
  order_ = rising ? Order::Rising : falling ? Order::Falling : Order::Mixed;
  if (order_ == Order::Mixed) buildIndex();
}

// Least significant digit first over positions: stable, so equal keys keep the order of their rows.
void KeySet::buildIndex() const {
  constexpr int digitBits = 11;
  constexpr std::size_t digits = std::size_t{1} << digitBits;
  const PackedNumbers& keys = columns_.front();
  std::vector<std::uint32_t> from(keys.size()), to(keys.size());
  std::uint64_t all = 0;
  for (std::size_t i = 0; i < keys.size(); ++i) {
    from[i] = static_cast<std::uint32_t>(i);
    all |= static_cast<std::uint64_t>(keys[i]) ^ static_cast<std::uint64_t>(keys[0]);
  }
  for (int shift = 0; shift < 64 && all >> shift != 0; shift += digitBits) {
    const auto digit = [&](std::uint32_t position) {
      const auto biased = static_cast<std::uint64_t>(keys[position]) ^ (std::uint64_t{1} << 63);
      return (biased >> shift) & (digits - 1);
    };
    std::array<std::uint32_t, digits + 1> starts{};
    for (const std::uint32_t position : from) ++starts[digit(position) + 1];
    for (std::size_t d = 1; d <= digits; ++d) starts[d] += starts[d - 1];
    for (const std::uint32_t position : from) to[starts[digit(position)]++] = position;
    from.swap(to);
  }
  index_ = std::move(from);
}

std::size_t KeySet::ranked(std::size_t rank) const {
  switch (order_) {
    case Order::Rising:
      return rank;
    case Order::Falling:
      return size() - 1 - rank;
    default:
      return index_[rank];
  }
}

bool KeySet::matches(std::size_t position, std::span<const std::int64_t> keys) const {
  for (std::size_t column = 0; column < columns_.size(); ++column)
    if (columns_[column][position] != keys[column]) return false;
  return true;
}

// Numbers given out one after the other lie evenly, so a proportional guess is nearly right; what is left
// over is halved.
std::size_t KeySet::firstNotBelow(std::int64_t wanted) const {
  constexpr int guesses = 4;
  constexpr std::size_t margin = 8;
  std::size_t low = 0, high = size();
  for (int guess = 0; guess < guesses && high - low > 4 * margin; ++guess) {
    const std::int64_t first = key(ranked(low)), last = key(ranked(high - 1));
    if (wanted <= first || wanted > last) break;
    const double share = (static_cast<double>(wanted) - static_cast<double>(first)) /
                         (static_cast<double>(last) - static_cast<double>(first));
    const std::size_t at = low + static_cast<std::size_t>(share * static_cast<double>(high - 1 - low));
    if (key(ranked(at)) == wanted && (at == 0 || key(ranked(at - 1)) < wanted)) return at;
    const std::size_t below = at > low + margin ? at - margin : low;
    const std::size_t above = std::min(at + margin, high - 1);
    if (key(ranked(above)) < wanted) {
      low = above + 1;
    } else {
      high = above + 1;
      if (key(ranked(below)) < wanted)
        low = below + 1;
      else
        high = below + 1;
    }
  }
  while (low < high) {
    const std::size_t middle = low + (high - low) / 2;
    if (key(ranked(middle)) < wanted)
      low = middle + 1;
    else
      high = middle;
  }
  return low;
}

std::optional<std::size_t> KeySet::find(std::span<const std::int64_t> keys) const {
  if (order_ == Order::Unknown) learnOrder();
  std::size_t low = firstNotBelow(keys.front());
  std::optional<std::size_t> lowest;
  for (; low < size() && key(ranked(low)) == keys.front(); ++low)
    if (matches(ranked(low), keys) && (!lowest || ranked(low) < *lowest)) lowest = ranked(low);
  return lowest;
}

}  // namespace ovalia::engines
