#pragma once

#include <initializer_list>
#include <vector>

#include "platform/Object.h"
#include "platform/Variant.h"

namespace ovalia {

// An array of texts that is handed to an outside component or a host, with indexes from 0. The default member
// takes one index a dimension; `UBound(dimension)`, dimensions from 1, gives the last index of one. Failure 9
// for an index that is not there, 450 for a wrong number of them.
class TextArray : public Object {
 public:
  // The number of elements in each dimension; all texts are empty.
  explicit TextArray(std::initializer_list<std::size_t> extents);

  Text& at(std::initializer_list<std::size_t> indexes);

  Variant get(TextView member, Arguments arguments = {}) override;
  void put(TextView member, const Variant& value, Arguments arguments = {}) override;
  Variant call(TextView member, Arguments arguments = {}) override;

 private:
  std::size_t place(std::initializer_list<std::size_t> indexes) const;
  std::size_t place(Arguments indexes) const;

  std::vector<std::size_t> extents_;
  std::vector<Text> texts_;
};

}  // namespace ovalia
