#include <algorithm>

#include "forms/Form.h"

namespace ovalia::forms {

namespace {

// The controls that Tab reaches, in its order.
std::vector<ControlRef> tabOrder(const std::vector<ControlRef>& controls) {
  std::vector<ControlRef> order;
  std::copy_if(controls.begin(), controls.end(), std::back_inserter(order),
               [](const ControlRef& control) { return control->design().tab >= 0; });
  std::stable_sort(order.begin(), order.end(), [](const ControlRef& a, const ControlRef& b) {
    return a->design().tab < b->design().tab;
  });
  return order;
}

}  // namespace

bool Form::moveFocus(Control& target) {
  if (active_.get() == &target) return true;
  if (!loaded_) return false;
  const auto arriving = std::static_pointer_cast<Control>(ownerOf(target));
  const ControlRef leaving = active_;
  if (leaving && visible_) {
    bool cancel = false;
    onValidate(*leaving, cancel);
    if (!loaded_ || active_ != leaving) return active_ == arriving;
    if (cancel) {
      if (view_) view_->focusChanged();
      return false;
    }
    onControl(*leaving, ControlEvent::LostFocus);
    if (!loaded_ || active_ != leaving) return active_ == arriving;
  }
  arrive(arriving);
  return active_ == arriving;
}

void Form::arrive(const ControlRef& target) {
  active_ = target;
  if (view_) view_->focusChanged();
  if (visible_) onControl(*target, ControlEvent::GotFocus);
}

void Form::releaseFocus() {
  if (visible_ && handlers_ == 0) userAction([] {});
}

void Form::passFocusOn() {
  if (!visible_ || !active_ || active_->takesFocus()) return;
  const ControlRef leaving = active_, next = nextInTabOrder(leaving, true);
  if (!next) return;
  onControl(*leaving, ControlEvent::LostFocus);
  if (loaded_ && active_ == leaving) arrive(next);
}

ControlRef Form::ownerOf(const Control& control) const {
  for (const ControlRef& held : controls_)
    if (held.get() == &control) return held;
  throw Failure(failure::noSuchControl);
}

ControlRef Form::firstInTabOrder() {
  for (const ControlRef& control : tabOrder(controls_))
    if (control->takesFocus()) return control;
  return nullptr;
}

ControlRef Form::nextInTabOrder(const ControlRef& from, bool forward) {
  auto order = tabOrder(controls_);
  if (!forward) std::reverse(order.begin(), order.end());
  auto at = std::find(order.begin(), order.end(), from);
  if (at != order.end()) std::rotate(order.begin(), at + 1, order.end());
  for (const ControlRef& control : order)
    if (control->takesFocus() && control != from) return control;
  return nullptr;
}

bool Form::userFocuses(Control& control) {
  bool moved = false;
  userAction([&] { moved = control.takesFocus() && moveFocus(control); });
  return moved;
}

void Form::userTabs(bool forward) {
  userAction([&] {
    if (const ControlRef next = nextInTabOrder(active_, forward)) moveFocus(*next);
  });
}

void Form::userKey(int keyCode, int shift) {
  constexpr int enter = 13;
  userAction([&] {
    if (keyPreview_) onKeyDown(keyCode, shift);
    if (visible_ && active_ && keyCode == enter && (shift & 1)) onControl(*active_, ControlEvent::ShiftEnter);
  });
}

bool Form::userCloses() { return Unload(); }

void Form::userMoves(double left, double top) {
  left_ = left;
  top_ = top;
}

void Form::userResizes(double width, double height) {
  userAction([&] {
    if (!loaded_ || (width_ == width && height_ == height)) return;
    width_ = width;
    height_ = height;
    onResize();
  });
}

void Form::userSetsWindowState(int state) {
  userAction([&] {
    if (windowState_ == state) return;
    windowState_ = state;
    onResize();
  });
}

void Form::userDragsOver(Control& control, const ObjectRef& data, std::int32_t& effect) {
  userAction([&] { onDragOver(control, data, effect); });
}

void Form::userDrops(Control& control, const ObjectRef& data) {
  userAction([&] { onDragDrop(control, data); });
}

}  // namespace ovalia::forms
