#pragma once

#include <QKeyEvent>
#include <QPointer>
#include <QWidget>
#include <memory>
#include <optional>

#include "forms/Control.h"

namespace ovalia::desktop {

// Draws one control of a form and forwards what the user does to it. The widget belongs to its parent and may
// outlive this object: a form can go while one of its widgets is still handling an event. So an action ends
// with `self` looked at before anything of the object is touched.
class ControlWidget : public QObject {
 public:
  ControlWidget(forms::ControlRef control, QWidget* widget);

  forms::Control& control() const { return *control_; }
  QWidget* widget() const { return widget_; }

  virtual QWidget* focusTarget() const { return widget_; }

  // Draws the property as the model has it; never reports it back.
  virtual void follow(forms::Property property);

  // What the user has typed half-way goes to the model, before anything else happens to the form.
  virtual void commit() {}

  // A key that the user pressed here; true when it is used up.
  virtual bool takesKey(QKeyEvent&) { return false; }

  // Whether a press here asks the form for the focus by itself, with what is pressed.
  virtual bool asksForFocus() const { return false; }

  // Where a menu asked for by the keyboard belongs on the screen; nothing when the mouse asked.
  virtual std::optional<QPoint> menuPlace() const { return {}; }

  // Name, tip and description for those who do not see the window.
  void describe(const QString& name, const QString& tip);

 private:
  void place();

  forms::ControlRef control_;
  QWidget* widget_;
};

using ControlWidgetPtr = std::unique_ptr<ControlWidget>;

// Nothing for a control that is not drawn on the form's area. The caller calls `follow` and `describe`.
ControlWidgetPtr makeControlWidget(const forms::ControlRef& control, QWidget* parent);

// One a kind; the widget is a child of `parent`.
ControlWidgetPtr makeTextWidget(const forms::ControlRef& control, QWidget* parent);
ControlWidgetPtr makeComboWidget(const forms::ControlRef& control, QWidget* parent);
ControlWidgetPtr makeCheckWidget(const forms::ControlRef& control, QWidget* parent);
ControlWidgetPtr makeButtonWidget(const forms::ControlRef& control, QWidget* parent);
ControlWidgetPtr makePickerWidget(const forms::ControlRef& control, QWidget* parent);
ControlWidgetPtr makeLabelWidget(const forms::ControlRef& control, QWidget* parent);
ControlWidgetPtr makeFrameWidget(const forms::ControlRef& control, QWidget* parent);
ControlWidgetPtr makeLineWidget(const forms::ControlRef& control, QWidget* parent);
ControlWidgetPtr makeImageWidget(const forms::ControlRef& control, QWidget* parent);
ControlWidgetPtr makeSplitterWidget(const forms::ControlRef& control, QWidget* parent);
ControlWidgetPtr makeListWidget(const forms::ControlRef& control, QWidget* parent);
ControlWidgetPtr makeGridWidget(const forms::ControlRef& control, QWidget* parent);

}  // namespace ovalia::desktop
