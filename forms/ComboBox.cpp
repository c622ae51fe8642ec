#include "forms/Control.h"
#include "forms/Form.h"

namespace ovalia::forms {

int ComboBox::find(TextView text) const {
  for (std::size_t i = 0; i < entries_.size(); ++i)
    if (entries_[i].text == text) return static_cast<int>(i);
  for (std::size_t i = 0; i < entries_.size(); ++i)
    if (sameName(entries_[i].text, text)) return static_cast<int>(i);
  return -1;
}

void ComboBox::selectEntry(int position) {
  if (position == listIndex_) return;
  listIndex_ = position;
  text_ = position < 0 ? Text() : entries_[static_cast<std::size_t>(position)].text;
  changed(Property::Value);
  raise(ControlEvent::Click);
}

void ComboBox::setText(TextView text) {
  if (has(dropDownList)) {
    const int position = find(text);
    if (position < 0 && !text.empty()) throw Failure(failure::notInList);
    return selectEntry(position);
  }
  if (text_ == text) return;
  text_ = text;
  listIndex_ = find(text);
  changed(Property::Value);
  raise(ControlEvent::Change);
}

void ComboBox::setValue(const Variant& value) { setText(value.toText()); }

void ComboBox::AddItem(TextView text) {
  entries_.push_back({Text(text), 0});
  newIndex_ = static_cast<int>(entries_.size()) - 1;
  changed(Property::List);
}

void ComboBox::Clear() {
  entries_.clear();
  listIndex_ = newIndex_ = -1;
  if (has(dropDownList)) text_.clear();
  changed(Property::List);
}

void ComboBox::setItemData(int position, std::int32_t data) {
  if (position < 0 || position >= static_cast<int>(entries_.size())) throw Failure(failure::badArgument);
  entries_[static_cast<std::size_t>(position)].data = data;
}

void ComboBox::userTypes(TextView text) {
  form().userAction([&] {
    if (!takesFocus() || has(dropDownList) || !form().moveFocus(*this) || text_ == text) return;
    text_ = text;
    listIndex_ = find(text);
    changed(Property::Value);
    raise(ControlEvent::Change);
  });
}

void ComboBox::userPicks(int position) {
  form().userAction([&] {
    if (!takesFocus() || position < 0 || position >= static_cast<int>(entries_.size())) return;
    if (!form().moveFocus(*this)) return;
    listIndex_ = position;
    text_ = entries_[static_cast<std::size_t>(position)].text;
    changed(Property::Value);
    raise(ControlEvent::Click);
  });
}

bool ComboBox::getOwn(TextView member, Arguments arguments, Variant& result) {
  if (sameName(member, u"Text")) return result = text_, true;
  if (sameName(member, u"ListIndex")) return result = std::int32_t(listIndex_), true;
  if (sameName(member, u"ListCount")) return result = std::int32_t(entries_.size()), true;
  if (sameName(member, u"NewIndex")) return result = std::int32_t(newIndex_), true;
  const bool list = sameName(member, u"List");
  if (!list && !sameName(member, u"ItemData")) return false;
  if (arguments.size() != 1) throw Failure(failure::wrongArguments);
  const std::int32_t position = arguments[0].toLong();
  if (position < 0 || position >= static_cast<int>(entries_.size())) throw Failure(failure::badArgument);
  const Entry& entry = entries_[static_cast<std::size_t>(position)];
  result = list ? Variant(entry.text) : Variant(entry.data);
  return true;
}

bool ComboBox::putOwn(TextView member, const Variant& value, Arguments arguments) {
  if (sameName(member, u"Text")) return setValue(value), true;
  if (sameName(member, u"ItemData")) {
    if (arguments.size() != 1) throw Failure(failure::wrongArguments);
    return setItemData(arguments[0].toLong(), value.toLong()), true;
  }
  return false;
}

bool ComboBox::callOwn(TextView member, Arguments arguments, Variant&) {
  if (sameName(member, u"AddItem")) {
    if (arguments.size() != 1) throw Failure(failure::wrongArguments);
    return AddItem(arguments[0].toText()), true;
  }
  if (sameName(member, u"Clear")) return Clear(), true;
  return false;
}

}  // namespace ovalia::forms
