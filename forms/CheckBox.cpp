#include "forms/Control.h"
#include "forms/Form.h"

namespace ovalia::forms {

void CheckBox::setTick(int value) {
  if (value != 0 && value != 1) throw Failure(failure::badArgument);
  if (value_ == value) return;
  value_ = value;
  changed(Property::Value);
  raise(ControlEvent::Click);
}

void CheckBox::setValue(const Variant& value) { setTick(value.toInteger()); }

void CheckBox::userToggles() {
  form().userAction([&] {
    if (takesFocus() && form().moveFocus(*this)) setTick(1 - value_);
  });
}

bool CheckBox::getOwn(TextView member, Arguments, Variant& result) {
  if (!sameName(member, u"Value")) return false;
  result = std::int16_t(value_);
  return true;
}

bool CheckBox::putOwn(TextView member, const Variant& value, Arguments) {
  if (!sameName(member, u"Value")) return false;
  setValue(value);
  return true;
}

}  // namespace ovalia::forms
