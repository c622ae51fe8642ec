#include <cmath>

#include "forms/Control.h"
#include "forms/Form.h"
#include "platform/Platform.h"

namespace ovalia::forms {

DTPicker::DTPicker(Form& form, const ControlDesign& design) : Control(form, design) {
  if (has(nullable)) value_ = Null;
}

void DTPicker::setValue(const Variant& value) {
  if (value.isNull()) {
    if (!has(nullable)) throw Failure(failure::invalidUseOfNull);
    if (value_.isNull()) return;
    value_ = Null;
  } else {
    const Date date = value.toDate();
    if (!value_.isNull() && value_.toDate() == date) return;
    value_ = date;
  }
  changed(Property::Value);
  raise(ControlEvent::Change);
}

Text DTPicker::text() const {
  if (value_.isNull()) return {};
  const Date date = value_.toDate();
  const double day = std::floor(date.days);
  if (has(timeOfDay)) return regionalNow().dateText(Date{date.days - day});
  if (day == 0) return u"30-12-99";
  return regionalNow().dateText(Date{day});
}

void DTPicker::userSets(const Variant& value) {
  form().userAction([&] {
    if (takesFocus() && form().moveFocus(*this)) setValue(value);
  });
}

bool DTPicker::getOwn(TextView member, Arguments, Variant& result) {
  if (!sameName(member, u"Value")) return false;
  result = value_;
  return true;
}

bool DTPicker::putOwn(TextView member, const Variant& value, Arguments) {
  if (!sameName(member, u"Value")) return false;
  setValue(value);
  return true;
}

}  // namespace ovalia::forms
