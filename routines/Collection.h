#pragma once

#include <vector>

#include "platform/Object.h"
#include "platform/Variant.h"

namespace ovalia {

// A list that is handed to an outside component: `Count`, and `Item(1)` to `Item(Count)`, which is the
// default member too. Failure 9 for a place that is not there.
class Collection : public Object {
 public:
  void add(Variant item) { items_.push_back(std::move(item)); }

  Variant get(TextView member, Arguments arguments = {}) override;
  void put(TextView member, const Variant& value, Arguments arguments = {}) override;
  Variant call(TextView member, Arguments arguments = {}) override;

 private:
  std::vector<Variant> items_;
};

}  // namespace ovalia
