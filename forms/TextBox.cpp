#include <algorithm>

#include "forms/Control.h"
#include "forms/Form.h"

namespace ovalia::forms {

void TextBox::setText(TextView text) {
  if (text_ == text) return;
  text_ = text;
  selStart_ = selLength_ = 0;
  changed(Property::Value);
  raise(ControlEvent::Change);
}

void TextBox::setValue(const Variant& value) { setText(value.toText()); }

void TextBox::setSelection(int start, int length) {
  const int size = static_cast<int>(text_.size());
  selStart_ = std::clamp(start, 0, size);
  selLength_ = std::clamp(length, 0, size - selStart_);
  changed(Property::Selection);
}

void TextBox::setBackColor(std::uint32_t color) {
  if (backColor_ == color) return;
  backColor_ = color;
  changed(Property::BackColor);
}

void TextBox::userTypes(TextView text) {
  form().userAction([&] {
    if (!takesFocus() || has(readOnly) || !form().moveFocus(*this) || text_ == text) return;
    text_ = text;
    selStart_ = static_cast<int>(text_.size());
    selLength_ = 0;
    changed(Property::Value);
    raise(ControlEvent::Change);
  });
}

void TextBox::userSelects(int start, int length) {
  const int size = static_cast<int>(text_.size());
  selStart_ = std::clamp(start, 0, size);
  selLength_ = std::clamp(length, 0, size - selStart_);
}

void TextBox::userDoubleClicks() {
  form().userAction([&] {
    if (takesFocus() && form().moveFocus(*this)) raise(ControlEvent::DblClick);
  });
}

bool TextBox::getOwn(TextView member, Arguments, Variant& result) {
  if (sameName(member, u"Text")) return result = text_, true;
  if (sameName(member, u"SelStart")) return result = std::int32_t(selStart_), true;
  if (sameName(member, u"SelLength")) return result = std::int32_t(selLength_), true;
  return false;
}

bool TextBox::putOwn(TextView member, const Variant& value, Arguments) {
  if (sameName(member, u"Text")) return setValue(value), true;
  if (sameName(member, u"SelStart")) return setSelection(value.toLong(), 0), true;
  if (sameName(member, u"SelLength")) return setSelection(selStart_, value.toLong()), true;
  return false;
}

}  // namespace ovalia::forms
