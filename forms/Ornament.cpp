#include "forms/Control.h"
#include "forms/Form.h"

namespace ovalia::forms {

Variant Ornament::value() const {
  if (type() != ControlType::Label && type() != ControlType::Frame) throw Failure(failure::noSuchMember);
  return Caption();
}

void Ornament::setValue(const Variant& value) {
  if (type() != ControlType::Label) throw Failure(failure::noSuchMember);
  setCaption(value.toText());
}

void CommandButton::userClicks() {
  form().userAction([&] {
    if (takesFocus() && form().moveFocus(*this)) raise(ControlEvent::Click);
  });
}

}  // namespace ovalia::forms
