#include "tests/kit/FakeObject.h"

#include "platform/Failure.h"

namespace ovalia::kit {
namespace {

Text shown(const Variant& value) {
  if (value.isObject()) return u"<object>";
  if (value.isNull()) return u"Null";
  return value.text();
}

Text shown(Arguments arguments) {
  Text list;
  for (const Variant& argument : arguments) list += (list.empty() ? u"" : u", ") + shown(argument);
  return u"(" + list + u")";
}

}  // namespace

FakeObject& FakeObject::with(TextView property, Variant value) {
  properties_[Text(property)] = std::move(value);
  return *this;
}

FakeObject& FakeObject::answering(TextView member, Method method) {
  methods_[Text(member)] = std::move(method);
  return *this;
}

FakeObject& FakeObject::giving(TextView member, Variant value) {
  return answering(member, [value](Arguments) { return value; });
}

FakeObject& FakeObject::failing(TextView member, std::int32_t number) {
  failures_[Text(member)] = number;
  return *this;
}

FakeObject& FakeObject::strict() {
  strict_ = true;
  return *this;
}

Variant FakeObject::property(TextView name) const {
  const auto found = properties_.find(name);
  return found == properties_.end() ? Variant{} : found->second;
}

Variant FakeObject::get(TextView member, Arguments arguments) {
  reads.emplace_back(member);
  return answer(member, arguments);
}

void FakeObject::put(TextView member, const Variant& value, Arguments arguments) {
  Text line(member);
  if (!arguments.empty()) line += shown(arguments);
  journal.push_back(line + u" = " + shown(value));
  failIfToldTo(member);
  if (strict_ && !properties_.contains(member)) throw Failure(failure::noSuchMember);
  if (arguments.empty()) properties_[Text(member)] = value;
}

Variant FakeObject::call(TextView member, Arguments arguments) {
  journal.push_back(Text(member) + shown(arguments));
  return answer(member, arguments);
}

Variant FakeObject::answer(TextView member, Arguments arguments) {
  failIfToldTo(member);
  if (const auto method = methods_.find(member); method != methods_.end()) return method->second(arguments);
  const auto property = properties_.find(member);
  if (property == properties_.end()) throw Failure(failure::noSuchMember);
  return property->second;
}

void FakeObject::failIfToldTo(TextView member) const {
  const auto found = failures_.find(member);
  if (found != failures_.end()) throw Failure(found->second);
}

std::shared_ptr<FakeObject> named(TextView name, TextView caption) {
  auto object = std::make_shared<FakeObject>();
  object->with(u"Name", name).with(u"Caption", caption);
  return object;
}

}  // namespace ovalia::kit
