#include "forms/Form.h"

#include <algorithm>
#include <cmath>

#include "platform/Failure.h"
#include "platform/Platform.h"
#include "routines/ErrorLog.h"

namespace ovalia::forms {

namespace {

void forget(std::vector<std::weak_ptr<Form>>& list, const Form* form) {
  std::erase_if(list, [=](const std::weak_ptr<Form>& entry) {
    const auto held = entry.lock();
    return !held || held.get() == form;
  });
}

struct Size {
  double width = 0, height = 0;
};

Size screenSize() {
  if (!Platform::installed()) return {};
  Screen& screen = *Platform::current().screen;
  return {screen.width(), screen.height()};
}

// Where a window that was never moved stands on one axis.
double middle(double screen, double window) { return std::max(0.0, std::floor((screen - window) / 2)); }

}  // namespace

Form::Form(const FormDesign& design) : design_(design) {}

Form::~Form() = default;

void Form::load() {
  if (loaded_) return;
  loaded_ = true;
  try {
    keyPreview_ = false;
    windowState_ = 0;
    caption_ = design_.caption;
    width_ = design_.width > 0 ? design_.width : design_.minimumWidth;
    height_ = design_.height > 0 ? design_.height : design_.minimumHeight;
    left_ = middle(screenSize().width, width_);
    top_ = middle(screenSize().height, height_);
    for (const ControlDesign& row : design_.controls) controls_.push_back(makeControl(*this, row));
    Runtime& runtime = Runtime::current();
    runtime.loaded_.push_back(weak_from_this());
    if (runtime.viewFactory()) view_ = runtime.viewFactory()(*this);
  } catch (...) {
    takeDown();  // half a window could be neither used nor closed
    throw;
  }
  onLoad();
}

bool Form::Unload() {
  if (!loaded_ || unloading_) return true;
  const auto self = shared_from_this();
  bool cancel = false;
  unloading_ = true;
  userAction([&] { onUnload(cancel); });
  unloading_ = false;
  if (cancel) return false;
  takeDown();
  return true;
}

void Form::takeDown() {
  Runtime& runtime = Runtime::current();
  forget(runtime.loaded_, this);
  forget(runtime.shown_, this);
  loaded_ = visible_ = false;
  active_.reset();
  // A handler of one of these controls may still be running.
  departed_.insert(departed_.end(), controls_.begin(), controls_.end());
  controls_.clear();
  if (view_) view_->hide();
  view_.reset();
  if (handlers_ == 0) departed_.clear();
}

void Form::Show(ObjectRef owner) {
  if (visible_) throw Failure(failure::alreadyShown);
  owner_ = std::move(owner);
  const auto self = shared_from_this();
  load();
  visible_ = true;
  Runtime& runtime = Runtime::current();
  forget(runtime.shown_, this);
  runtime.shown_.push_back(weak_from_this());
  const auto view = view_;
  if (view) view->show();
  userAction([&] {
    onResize();
    if (!visible_) return;
    if (!active_ || !active_->takesFocus()) active_ = firstInTabOrder();
    if (view_) view_->focusChanged();
    if (active_) onControl(*active_, ControlEvent::GotFocus);
  });
  if (view && visible_) view->runModal();
  if (visible_) Hide();
}

void Form::Hide() {
  if (!visible_) return;
  visible_ = false;
  forget(Runtime::current().shown_, this);
  if (view_) view_->hide();
}

void Form::SetFocus() {
  load();
  if (view_ && visible_) view_->activate();
}

const Text& Form::Caption() { return load(), caption_; }
bool Form::KeyPreview() { return load(), keyPreview_; }
double Form::Left() { return load(), left_; }
double Form::Top() { return load(), top_; }
double Form::Width() { return load(), width_; }
double Form::Height() { return load(), height_; }
double Form::ScaleWidth() { return load(), std::max(0.0, width_ - frameWidth); }
double Form::ScaleHeight() { return load(), std::max(0.0, height_ - design_.frame); }
int Form::WindowState() { return load(), windowState_; }
void Form::setKeyPreview(bool on) { load(), keyPreview_ = on; }
void Form::setWidth(double twips) { load(), resized(twips, height_); }
void Form::setHeight(double twips) { load(), resized(width_, twips); }

void Form::setCaption(TextView caption) {
  load();
  caption_ = caption;
  if (view_) view_->formChanged(FormProperty::Caption);
}

void Form::setLeft(double twips) {
  load();
  left_ = twips;
  if (view_) view_->formChanged(FormProperty::Place);
}

void Form::setTop(double twips) {
  load();
  top_ = twips;
  if (view_) view_->formChanged(FormProperty::Place);
}

void Form::setWindowState(int state) {
  load();
  if (state < 0 || state > 2) throw Failure(failure::badArgument);
  if (windowState_ == state) return;
  windowState_ = state;
  if (view_) view_->formChanged(FormProperty::WindowState);
  onResize();
}

void Form::resized(double width, double height) {
  if (width_ == width && height_ == height) return;
  width_ = width;
  height_ = height;
  if (view_) view_->formChanged(FormProperty::Place);
  onResize();
}

void Form::stretch(double wider, double taller) {
  for (const ResizeRow& row : design_.resizes) {
    Control& moved = *control(row.control, row.index);
    switch (row.property) {
      case MovedProperty::Left:
        moved.setLeft(row.constant + wider);
        break;
      case MovedProperty::Width:
        moved.setWidth(row.constant + wider);
        break;
      case MovedProperty::Top:
        moved.setTop(row.constant + taller);
        break;
      case MovedProperty::Height:
        moved.setHeight(row.constant + taller);
        break;
    }
  }
}

ControlRef Form::find(TextView name, int index) {
  load();
  for (const ControlRef& control : controls_) {
    if (!sameName(control->design().name, name)) continue;
    if (index < 0 || control->design().index == index) return control;
  }
  return nullptr;
}

ControlRef Form::control(TextView name, int index) {
  ControlRef found = find(name, index);
  if (!found) throw Failure(failure::noSuchControl);
  return found;
}

bool Form::hasControl(TextView name) { return find(name, -1) != nullptr; }

const std::vector<ControlRef>& Form::controls() { return load(), controls_; }

ActiveToolBars& Form::toolbars() { return *as<ActiveToolBars>(u"SSAtb"); }

ControlRef Form::ActiveControl() { return load(), active_; }

void Form::userAction(const std::function<void()>& action) {
  const auto self = shared_from_this();
  auto& handling = Runtime::current().handling_;
  handling.push_back(self);
  ++handlers_;
  guarded(action);
  guarded([&] { passFocusOn(); });
  handling.pop_back();
  if (--handlers_ == 0) departed_.clear();
}

void Form::guarded(const std::function<void()>& action) {
  try {
    action();
  } catch (...) {
    const Failure escaped = currentFailure();
    EscribirErrLog(escaped.description(), escaped.number(), u"Evento de " + Name());
  }
}

}  // namespace ovalia::forms
