#pragma once

#include <cstddef>
#include <memory>

#include "routines/TextArray.h"

namespace ovalia {

// What a document or a mail is filled from: the names of marks and their texts, index for index from 0 to 60.
// An index without a mark has two empty texts. The same mark can stand at another index where it comes from
// another source, so readers go by the names.
struct Marks {
  Marks();

  void set(std::size_t index, TextView name, TextView text);

  // The text at two marks: under the name and, at the next index, under the name with a "2" behind it.
  void setPair(std::size_t index, TextView name, TextView text);

  std::shared_ptr<TextArray> Marca, Campo;
};

}  // namespace ovalia
