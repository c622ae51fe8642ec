#include "host/Marks.h"

namespace ovalia::host {

namespace {

Text element(const Variant& collection, std::int32_t index) {
  return getMember(collection.toObject(), u"", {index}).text();
}

}  // namespace

Text markText(const Variant& marks, const Variant& values, TextView name) {
  for (std::int32_t i = 0; i <= lastMark; ++i)
    if (element(marks, i) == name) return element(values, i);
  return {};
}

}  // namespace ovalia::host
