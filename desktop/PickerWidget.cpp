#include <QKeyEvent>

#include "desktop/ControlWidget.h"
#include "desktop/PickerEdit.h"

namespace ovalia::desktop {

using forms::Property;

namespace {

class PickerWidget : public ControlWidget {
 public:
  PickerWidget(const forms::ControlRef& control, QWidget* parent)
      : PickerWidget(control,
                     new PickerEdit(control->has(forms::timeOfDay) ? PickerEdit::TimeOfDay : PickerEdit::Day,
                                    control->has(forms::nullable), parent)) {}

  QWidget* focusTarget() const override { return edit_->editor(); }
  void commit() override { edit_->commit(); }
  bool takesKey(QKeyEvent& event) override { return edit_->takesKey(event); }

  void follow(Property property) override {
    if (property == Property::Value) edit_->showValue(model().Value());
    ControlWidget::follow(property);
  }

 private:
  PickerWidget(const forms::ControlRef& control, PickerEdit* edit)
      : ControlWidget(control, edit), edit_(edit) {
    edit->chosen = [this, self = QPointer<PickerWidget>(this)](const Variant& value) {
      if (!self) return;
      model().userSets(value);
      if (self) follow(Property::Value);
    };
  }

  forms::DTPicker& model() const { return static_cast<forms::DTPicker&>(control()); }

  PickerEdit* edit_;
};

}  // namespace

ControlWidgetPtr makePickerWidget(const forms::ControlRef& control, QWidget* parent) {
  return std::make_unique<PickerWidget>(control, parent);
}

}  // namespace ovalia::desktop
