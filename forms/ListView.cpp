#include "forms/Control.h"
#include "forms/Form.h"

namespace ovalia::forms {

namespace {

// An item as a late-bound object; a copy of what it was when it was asked for.
ObjectRef itemObject(const ListItem& item, int index) {
  auto object = std::make_shared<MemberTable>();
  object->value(u"Key", item.key).value(u"Text", item.text).value(u"Icon", item.icon);
  object->value(u"Index", std::int32_t(index));
  return object;
}

}  // namespace

void ListView::Clear() {
  items_.clear();
  keys_.clear();
  selected_ = 0;
  changed(Property::Items);
}

void ListView::Add(ListItem item) {
  if (!keys_.insert(item.key).second) throw Failure(failure::keyNotUnique);
  items_.push_back(std::move(item));
  changed(Property::Items);
}

const ListItem& ListView::item(int index) const {
  if (index < 1 || index > static_cast<int>(items_.size())) throw Failure(failure::indexOutOfBounds);
  return items_[static_cast<std::size_t>(index) - 1];
}

void ListView::select(int index) {
  if (index != 0) item(index);
  if (selected_ == index) return;
  selected_ = index;
  changed(Property::SelectedItem);
}

void ListView::setView(int view) {
  if (view < lvwIcon || view > lvwList) throw Failure(failure::badArgument);
  if (view_ == view) return;
  view_ = view;
  changed(Property::View);
}

void ListView::userClicks(int index, int button) {
  form().userAction([&] {
    if (!takesFocus() || !form().moveFocus(*this)) return;
    if (index > 0) {
      select(index);
      raise(ControlEvent::ItemClick);
    }
    form().onMouseUp(*this, button);
  });
}

void ListView::userDoubleClicks(int index) {
  form().userAction([&] {
    if (!takesFocus() || !form().moveFocus(*this)) return;
    if (index > 0) {
      select(index);
      raise(ControlEvent::ItemClick);
    }
    raise(ControlEvent::DblClick);
    form().onMouseUp(*this, 1);
  });
}

void ListView::userSelects(int index) {
  form().userAction([&] {
    if (!takesFocus() || !form().moveFocus(*this)) return;
    select(index);
    if (index > 0) raise(ControlEvent::ItemClick);
  });
}

void ListView::userEditsLabel(TextView text) {
  form().userAction([&] {
    if (!has(labelEdit) || selected_ == 0) return;
    form().onLabelEdit(*this, text);
    if (form().loaded() && selected_ > 0) {
      items_[static_cast<std::size_t>(selected_) - 1].text = text;
      changed(Property::Items);
    }
  });
}

Text ListView::userDragsOut(int index) {
  Text path;
  form().userAction([&] {
    if (!takesFocus() || !form().moveFocus(*this)) return;
    select(index);
    raise(ControlEvent::ItemClick);
    form().onDragOut(*this, path);
  });
  return path;
}

bool ListView::getOwn(TextView member, Arguments arguments, Variant& result) {
  if (sameName(member, u"View")) return result = std::int16_t(view_), true;
  if (sameName(member, u"SelectedItem")) {
    result = selected_ ? itemObject(item(selected_), selected_) : ObjectRef();
    return true;
  }
  if (sameName(member, u"ListItems")) {
    if (arguments.size() != 1) throw Failure(failure::wrongArguments);
    const std::int32_t index = arguments[0].toLong();
    result = itemObject(item(index), index);
    return true;
  }
  return false;
}

bool ListView::putOwn(TextView member, const Variant& value, Arguments) {
  if (!sameName(member, u"View")) return false;
  setView(value.toInteger());
  return true;
}

}  // namespace ovalia::forms
