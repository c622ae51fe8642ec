#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "platform/Failure.h"
#include "platform/Object.h"

namespace ovalia::forms {

class ActiveToolBars;
class Control;
class Form;
enum class Property : std::uint8_t;
struct Point;

// What of the form itself changed.
enum class FormProperty : std::uint8_t { Caption, Place, WindowState };

// The window that draws one loaded form. The form owns it from load to unload; a view may be let go while one
// of its own calls into the form is still running (the user closed the window), so what it needs until that
// call returns must outlive it. A view forwards what the user does to the form's and controls' "user" members
// and draws what the calls below say; it never changes the model by itself.
class FormView {
 public:
  virtual ~FormView() = default;

  virtual void show() = 0;      // as a modal window, at the form's place and state
  virtual void runModal() = 0;  // handles events until the form is no longer visible
  virtual void hide() = 0;
  virtual void activate() = 0;  // brings the window to the front

  virtual void formChanged(FormProperty property) = 0;
  virtual void controlChanged(Control& control, Property property) = 0;
  virtual void toolChanged(ActiveToolBars& bars, TextView id) = 0;
  virtual void focusChanged() = 0;  // form.ActiveControl() is where the focus belongs
  virtual void popupMenu(ActiveToolBars& bars, TextView menu, const std::optional<Point>& at) = 0;
};

// The forms of this thread: which are loaded, which one the user is on, and what draws them.
class Runtime {
 public:
  using ViewFactory = std::function<std::shared_ptr<FormView>(Form&)>;

  static Runtime& current();

  // Empty: forms run without a window.
  void setViewFactory(ViewFactory factory) { factory_ = std::move(factory); }
  const ViewFactory& viewFactory() const { return factory_; }

  // The form whose handler runs, hidden or not; else the one shown last that is still visible; else none, and
  // the host's own form is the screen's active one.
  std::shared_ptr<Form> activeForm() const;
  std::vector<std::shared_ptr<Form>> loadedForms() const;

 private:
  friend class Form;
  ViewFactory factory_;
  std::vector<std::weak_ptr<Form>> loaded_;
  std::vector<std::weak_ptr<Form>> shown_;
  std::vector<std::weak_ptr<Form>> handling_;
};

}  // namespace ovalia::forms
