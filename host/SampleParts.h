#pragma once

#include <cstddef>
#include <cstdint>

#include "host/SampleData.h"
#include "host/SampleModels.h"
#include "host/SampleWords.h"

// What the makers of the sample's parents and of its annotations share.
namespace ovalia::host::sample {

inline constexpr double baseDay = 45292;  // 1 January 2024

// A small generator of our own, so that the sample does not depend on a library's.
class Dice {
 public:
  explicit Dice(std::uint64_t seed) : state_(seed) {}

  std::uint32_t below(std::size_t bound) { return static_cast<std::uint32_t>(next() % bound); }
  bool oneIn(std::uint32_t n) { return below(n) == 0; }
  TextView of(std::span<const TextView> list) { return list[below(list.size())]; }

 private:
  std::uint64_t next() {
    std::uint64_t z = state_ += 0x9e3779b97f4a7c15u;
    z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9u;
    z = (z ^ (z >> 27)) * 0x94d049bb133111ebu;
    return z ^ (z >> 31);
  }
  std::uint64_t state_;
};

using Row = std::vector<Variant>;

inline Variant number(std::size_t n) { return static_cast<std::int32_t>(n); }

// That many sentences, on lines of three, none right after itself.
Text sentencesText(Dice& dice, int count);

inline constexpr std::int32_t userCount = std::size(words::users);
inline constexpr std::int32_t agencyCount = std::size(words::agencies);
inline constexpr std::int32_t accessCount = std::size(words::accesses);
inline constexpr std::int32_t caseCount = 24;
inline constexpr std::int32_t projectCount = std::size(words::projects);

// Look-up tables, properties, case files, projects.
void makeParents(RowSink& sink);

}  // namespace ovalia::host::sample
