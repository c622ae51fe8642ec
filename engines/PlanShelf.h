#pragma once

#include <algorithm>
#include <memory>
#include <vector>

#include "engines/Catalog.h"

namespace ovalia::engines {

// What makes a statement's plan good still: the definitions it was made from, and the year that its two-digit
// years were read in.
struct PlanAge {
  std::uint64_t definitions = 0;
  int year = 0;

  static PlanAge now(Catalog& catalog);
  friend bool operator==(const PlanAge&, const PlanAge&) = default;
};

// The last few plans that nobody uses, by the text that they were made for. Each has its `age`.
template <class Plan, std::size_t capacity>
class PlanShelf {
 public:
  void put(Text sql, std::unique_ptr<Plan> plan) {
    if (plans_.size() == capacity) plans_.erase(plans_.begin());
    plans_.push_back({std::move(sql), std::move(plan)});
  }

  // Nothing where there is none that is good.
  std::unique_ptr<Plan> take(TextView sql, Catalog& catalog) {
    const auto found =
        std::find_if(plans_.rbegin(), plans_.rend(), [&](const Entry& entry) { return entry.sql == sql; });
    if (found == plans_.rend()) return nullptr;
    std::unique_ptr<Plan> plan = std::move(found->plan);
    plans_.erase(std::next(found).base());
    return plan->age == PlanAge::now(catalog) ? std::move(plan) : nullptr;
  }

  void clear() { plans_.clear(); }

 private:
  struct Entry {
    Text sql;
    std::unique_ptr<Plan> plan;
  };
  std::vector<Entry> plans_;  // the oldest first
};

}  // namespace ovalia::engines
