#include <algorithm>

#include "forms/Form.h"

namespace ovalia::forms {

namespace {

constexpr int enter = 13;

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

// Whether the control that has the focus lets it go. It is asked while it has it; where the focus goes
// elsewhere meanwhile it is no longer to be moved.
bool Form::mayLeave() {
  const ControlRef leaving = active_;
  if (!leaving || !visible_) return true;
  bool cancel = false;
  onValidate(*leaving, cancel);
  if (!loaded_ || active_ != leaving) return false;
  if (cancel && view_) view_->focusChanged();
  return !cancel;
}

// The check may have disabled what the focus was to go to.
bool Form::leaveFor(const ControlRef& arriving) {
  const ControlRef leaving = active_;
  if (!arriving->takesFocus()) {
    if (view_) view_->focusChanged();
    return false;
  }
  if (leaving && visible_) {
    onControl(*leaving, ControlEvent::LostFocus);
    if (!loaded_ || active_ != leaving) return active_ == arriving;
  }
  arrive(arriving);
  return active_ == arriving;
}

bool Form::moveFocus(Control& target) {
  if (active_.get() == &target) return true;
  if (!loaded_) return false;
  const ControlRef arriving = ownerOf(target);
  return mayLeave() ? leaveFor(arriving) : active_ == arriving;
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

// What Tab reaches next is looked for after the check: it may have enabled or disabled just that.
void Form::userTabs(bool forward) {
  userAction([&] {
    if (!nextInTabOrder(active_, forward) || !mayLeave()) return;
    if (const ControlRef next = nextInTabOrder(active_, forward)) leaveFor(next);
  });
}

void Form::userKey(int keyCode, int shift) {
  userAction([&] {
    if (keyPreview_) onKeyDown(keyCode, shift);
    if (visible_ && active_ && keyCode == enter && (shift & 1)) onControl(*active_, ControlEvent::ShiftEnter);
    if (visible_ && shift == 0) clickButtonOf(keyCode);
  });
}

// The button that Enter or Escape stands for. The focus stays where it is, and is not checked.
void Form::clickButtonOf(int keyCode) {
  constexpr int escape = 27;
  const Style style = keyCode == enter ? defaultButton : cancelButton;
  if (keyCode != enter && keyCode != escape) return;
  const bool used = active_ && (active_->type() == ControlType::CommandButton || active_->has(multiLine));
  if (keyCode == enter && used) return;
  const auto button = std::ranges::find_if(
      controls_, [=](const ControlRef& control) { return control->has(style) && control->takesFocus(); });
  if (button == controls_.end()) return;
  const ControlRef clicked = *button;
  onControl(*clicked, ControlEvent::Click);
}

bool Form::userPresses(char16_t character) {
  int code = character;
  userAction([&] {
    if (active_) onKeyPress(*active_, code);
  });
  return loaded_ && code != 0;
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
