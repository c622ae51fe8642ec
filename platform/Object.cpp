#include "platform/Object.h"

#include <vector>

#include "platform/Failure.h"
#include "platform/Variant.h"

namespace ovalia {

namespace {

[[noreturn]] void missingMember(TextView name) {
  throw Failure(failure::noSuchMember, failureText(failure::noSuchMember) + u" (" + Text(name) + u")");
}

}  // namespace

Object& deref(const ObjectRef& object) {
  if (!object) throw Failure(failure::objectNotSet);
  return *object;
}

ObjectRef objectAt(const ObjectRef& start, std::initializer_list<TextView> members) {
  ObjectRef object = start;
  for (const TextView member : members) {
    const Variant link = deref(object).get(member);
    if (!link.isObject()) throw Failure(failure::objectNotSet);
    object = link.toObject();
  }
  return object;
}

MemberTable& MemberTable::property(TextView name, Getter get, Setter put) {
  members_.insert_or_assign(Text(name), Member{std::move(get), std::move(put), {}});
  return *this;
}

MemberTable& MemberTable::method(TextView name, Method call) {
  members_.insert_or_assign(Text(name), Member{{}, {}, std::move(call)});
  return *this;
}

MemberTable& MemberTable::value(TextView name, Variant initial) {
  auto held = std::make_shared<Variant>(std::move(initial));
  const auto alone = [](Arguments arguments) {
    if (!arguments.empty()) throw Failure(failure::wrongArguments);
  };
  return property(
      name,
      [=](Arguments arguments) {
        alone(arguments);
        return *held;
      },
      [=](const Variant& value, Arguments arguments) {
        alone(arguments);
        *held = value;
      });
}

bool MemberTable::has(TextView name) const { return members_.contains(name); }

MemberTable::Member& MemberTable::find(TextView name) {
  const auto found = members_.find(name);
  if (found == members_.end()) missingMember(name);
  return found->second;
}

// A function runs as a copy: it may replace its own entry of the table.
Variant MemberTable::get(TextView member, Arguments arguments) {
  const Member& found = find(member);
  const auto read = found.get ? found.get : found.call;
  if (!read) missingMember(member);
  return read(arguments);
}

void MemberTable::put(TextView member, const Variant& value, Arguments arguments) {
  const Setter write = find(member).put;
  if (!write) missingMember(member);
  write(value, arguments);
}

Variant MemberTable::call(TextView member, Arguments arguments) {
  const Member& found = find(member);
  const auto run = found.call ? found.call : found.get;
  if (!run) missingMember(member);
  return run(arguments);
}

// These hold the object: a callee may drop what was the last reference to it.

Variant getMember(const ObjectRef& object, TextView member, std::initializer_list<Variant> arguments) {
  const ObjectRef held = object;
  std::vector<Variant> copies(arguments);
  return deref(held).get(member, copies);
}

void putMember(const ObjectRef& object, TextView member, const Variant& value) {
  const ObjectRef held = object;
  deref(held).put(member, value);
}

Variant callMember(const ObjectRef& object, TextView member, std::initializer_list<Variant> arguments) {
  const ObjectRef held = object;
  std::vector<Variant> copies(arguments);
  return deref(held).call(member, copies);
}

}  // namespace ovalia
