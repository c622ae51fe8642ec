#include "routines/Collection.h"

#include "platform/Failure.h"

namespace ovalia {

Variant Collection::get(TextView member, Arguments arguments) {
  if (sameName(member, u"Count")) {
    if (!arguments.empty()) throw Failure(failure::wrongArguments);
    return static_cast<std::int32_t>(items_.size());
  }
  if (!member.empty() && !sameName(member, u"Item")) throw Failure(failure::noSuchMember);
  if (arguments.size() != 1) throw Failure(failure::wrongArguments);
  const std::int64_t place = arguments[0].toLong();
  if (place < 1 || place > std::ssize(items_)) throw Failure(failure::indexOutOfRange);
  return items_[place - 1];
}

void Collection::put(TextView, const Variant&, Arguments) { throw Failure(failure::noSuchMember); }

Variant Collection::call(TextView member, Arguments arguments) { return get(member, arguments); }

}  // namespace ovalia
