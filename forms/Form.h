#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "forms/Control.h"
#include "forms/Grid.h"
#include "forms/Toolbars.h"
#include "forms/View.h"

namespace ovalia::forms {

// A window of the program without a toolkit in it. The object exists before its window: the window and its
// controls come into being, and `Load` is raised, at the first touch of a built-in property or a control.
// `Hide` ends a modal show and keeps the window; `Unload` asks first, then takes window and controls down and
// keeps the object. The user acts through the members whose names begin with "user"; what such an action lets
// escape is logged and goes no further.
class Form : public Object, public std::enable_shared_from_this<Form> {
 public:
  explicit Form(const FormDesign& design);
  ~Form() override;

  const FormDesign& design() const { return design_; }
  Text Name() const { return Text(design_.name); }  // does not load
  bool loaded() const { return loaded_; }
  bool Visible() const { return visible_; }  // does not load: false on an unloaded form

  const Text& Caption();
  void setCaption(TextView caption);
  bool KeyPreview();
  void setKeyPreview(bool on);
  double Left();
  double Top();
  double Width();
  double Height();
  double ScaleWidth();
  double ScaleHeight();
  void setLeft(double twips);
  void setTop(double twips);
  void setWidth(double twips);
  void setHeight(double twips);
  int WindowState();  // 0 normal, 1 minimised, 2 maximised
  void setWindowState(int state);

  // A control by name, of an array by index; failure 730 when there is none.
  ControlRef control(TextView name, int index = -1);
  template <class Kind>
  std::shared_ptr<Kind> as(TextView name);  // 13 when it is of another kind
  bool hasControl(TextView name);
  const std::vector<ControlRef>& controls();
  ObjectRef Controls();        // the collection as a late-bound object
  ActiveToolBars& toolbars();  // SSAtb

  // Empty before the first show.
  ControlRef ActiveControl();

  // Modal: returns when the form is hidden or unloaded. 400 when it is shown already. The owner is the window
  // over which it stands; without one, the form on top.
  void Show(ObjectRef owner = {});
  const ObjectRef& owner() const { return owner_; }
  void Hide();
  bool Unload();  // false when the closing was refused; true at once on a form without a window
  void SetFocus();

  // For controls: the focus goes to `target`; false when Validate kept it.
  bool moveFocus(Control& target);

  // A control that has the focus and can hold it no longer, disabled or hidden, loses it to the next one in
  // the tab order, without a Validate. Done when the handler that runs has ended, else at once.
  void releaseFocus();

  FormView* view() { return view_.get(); }

  // What the user does with the window.
  bool userFocuses(Control& control);
  void userTabs(bool forward = true);
  void userKey(int keyCode, int shift);  // virtual-key code; 1 Shift, 2 Ctrl, 4 Alt
  bool userPresses(
      char16_t character);  // before it reaches the control that has the focus; false: it must not
  bool userCloses();
  void userMoves(double left, double top);
  void userResizes(double width, double height);
  void userSetsWindowState(int state);
  void userDragsOver(Control& control, const ObjectRef& data, std::int32_t& effect);
  void userDrops(Control& control, const ObjectRef& data);

  // Runs something the user did: this form is the screen's active one meanwhile, and a failure that no
  // procedure trapped is logged.
  void userAction(const std::function<void()>& action);

  Variant get(TextView member, Arguments arguments = {}) override;
  void put(TextView member, const Variant& value, Arguments arguments = {}) override;
  Variant call(TextView member, Arguments arguments = {}) override;

 protected:
  // What the kind of form makes of its events.
  virtual void onLoad() {}
  virtual void onUnload(bool& cancel) { (void)cancel; }
  virtual void onResize() {}
  virtual void onKeyDown(int keyCode, int shift) { (void)keyCode, (void)shift; }
  virtual void onKeyPress(Control& control, int& character) { (void)control, (void)character; }
  virtual void onControl(Control& control, ControlEvent event) { (void)control, (void)event; }
  virtual void onValidate(Control& control, bool& cancel) { (void)control, (void)cancel; }
  virtual void onTool(ActiveToolBars::Tool& tool) { (void)tool; }
  virtual void onToolAt(ActiveToolBars::Tool& tool, Point at) { (void)tool, (void)at; }
  virtual void onMouseUp(ListView& list, int button) { (void)list, (void)button; }
  virtual void onLabelEdit(ListView& list, TextView text) { (void)list, (void)text; }
  virtual void onDragOver(Control& control, const ObjectRef& data, std::int32_t& effect) {
    (void)control, (void)data, (void)effect;
  }
  virtual void onDragDrop(Control& control, const ObjectRef& data) { (void)control, (void)data; }
  virtual void onHeadClick(Grid& grid, int column) { (void)grid, (void)column; }
  virtual void onBeforeDelete(Grid& grid, bool& cancel, bool& prompt) {
    (void)grid, (void)cancel, (void)prompt;
  }
  virtual void onDragOut(ListView& list, Text& path) { (void)list, (void)path; }
  virtual bool callOwn(TextView member, Arguments arguments, Variant& result) {
    (void)member, (void)arguments, (void)result;
    return false;
  }

  void load();

  // Puts what the resize table names where it belongs when the form has grown so much beyond its minimum.
  void stretch(double wider, double taller);
  // For what ends within a handler that goes on: does now what releaseFocus has put off.
  void passFocusOn();

 private:
  friend class Control;
  friend class CommandButton;
  friend class Grid;
  friend class ListView;
  friend class ActiveToolBars;

  void guarded(const std::function<void()>& action);
  void arrive(const ControlRef& target);
  void resized(double width, double height);
  void takeDown();
  ControlRef find(TextView name, int index);
  ControlRef ownerOf(const Control& control) const;
  ControlRef firstInTabOrder();
  ControlRef nextInTabOrder(const ControlRef& from, bool forward);
  bool mayLeave();
  bool leaveFor(const ControlRef& arriving);
  void clickButtonOf(int keyCode);

  const FormDesign& design_;
  bool loaded_ = false;
  bool unloading_ = false;
  bool visible_ = false;
  bool keyPreview_ = false;
  Text caption_;
  double left_ = 0, top_ = 0, width_ = 0, height_ = 0;
  int windowState_ = 0;
  std::vector<ControlRef> controls_;
  ControlRef active_;
  std::shared_ptr<FormView> view_;
  ObjectRef owner_;
  int handlers_ = 0;                  // of this form that are running now
  std::vector<ControlRef> departed_;  // controls taken down while a handler ran
};

using FormRef = std::shared_ptr<Form>;

template <class Kind>
std::shared_ptr<Kind> Form::as(TextView name) {
  auto found = std::dynamic_pointer_cast<Kind>(control(name));
  if (!found) throw Failure(failure::typeMismatch);
  return found;
}

}  // namespace ovalia::forms
