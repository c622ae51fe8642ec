#include "routines/TextArray.h"

#include <functional>
#include <numeric>

#include "platform/Failure.h"

namespace ovalia {

namespace {

// The place of an element in the row of all, the last index running fastest.
template <class Indexes>
std::size_t placeOf(const std::vector<std::size_t>& extents, const Indexes& indexes) {
  if (indexes.size() != extents.size()) throw Failure(failure::wrongArguments);
  std::size_t place = 0, dimension = 0;
  for (const std::size_t index : indexes) {
    const std::size_t extent = extents[dimension++];
    if (index >= extent) throw Failure(failure::indexOutOfRange);
    place = place * extent + index;
  }
  return place;
}

}  // namespace

TextArray::TextArray(std::initializer_list<std::size_t> extents)
    : extents_(extents),
      texts_(std::accumulate(extents.begin(), extents.end(), std::size_t(1), std::multiplies<>())) {}

Text& TextArray::at(std::initializer_list<std::size_t> indexes) { return texts_[place(indexes)]; }

std::size_t TextArray::place(std::initializer_list<std::size_t> indexes) const {
  return placeOf(extents_, indexes);
}

std::size_t TextArray::place(Arguments indexes) const {
  std::vector<std::size_t> numbers;
  for (const Variant& index : indexes) {
    const std::int32_t number = index.toLong();
    if (number < 0) throw Failure(failure::indexOutOfRange);
    numbers.push_back(static_cast<std::size_t>(number));
  }
  return placeOf(extents_, numbers);
}

Variant TextArray::get(TextView member, Arguments arguments) {
  if (member.empty()) return texts_[place(arguments)];
  if (!sameName(member, u"UBound")) throw Failure(failure::noSuchMember);
  if (arguments.size() != 1) throw Failure(failure::wrongArguments);
  const std::int32_t dimension = arguments[0].toLong();
  if (dimension < 1 || dimension > std::ssize(extents_)) throw Failure(failure::indexOutOfRange);
  return static_cast<std::int32_t>(extents_[static_cast<std::size_t>(dimension) - 1]) - 1;
}

void TextArray::put(TextView member, const Variant& value, Arguments arguments) {
  if (!member.empty()) throw Failure(failure::noSuchMember);
  texts_[place(arguments)] = value.toText();
}

Variant TextArray::call(TextView member, Arguments arguments) { return get(member, arguments); }

}  // namespace ovalia
