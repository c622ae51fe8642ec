#include "desktop/ControlWidget.h"

#include <QSplitter>
#include <algorithm>
#include <array>

#include "desktop/QtText.h"
#include "desktop/Scale.h"

namespace ovalia::desktop {

using forms::ControlType;
using forms::Property;

ControlWidget::ControlWidget(forms::ControlRef control, QWidget* widget)
    : control_(std::move(control)), widget_(widget) {
  widget_->setObjectName(toQt(control_->Name()));
}

void ControlWidget::follow(Property property) {
  switch (property) {
    case Property::Enabled:
      return widget_->setEnabled(control_->Enabled());
    case Property::Visible:
      return widget_->setVisible(control_->Visible());
    case Property::Place:
      return place();
    default:
      return;
  }
}

void ControlWidget::place() {
  if (dynamic_cast<QSplitter*>(widget_->parentWidget())) return;
  widget_->setGeometry(
      Scale::of(*widget_).rect(control_->Left(), control_->Top(), control_->Width(), control_->Height()));
}

void ControlWidget::describe(const QString& name, const QString& tip) {
  for (QWidget* described : {widget_, focusTarget()}) {
    described->setAccessibleName(name);
    described->setAccessibleDescription(tip == name ? QString() : tip);
    described->setToolTip(tip);
  }
}

namespace {

struct Maker {
  ControlType type;
  ControlWidgetPtr (*make)(const forms::ControlRef&, QWidget*);
};

constexpr auto makers = std::to_array<Maker>({
    {ControlType::Label, makeLabelWidget},
    {ControlType::TextBox, makeTextWidget},
    {ControlType::ComboBox, makeComboWidget},
    {ControlType::CheckBox, makeCheckWidget},
    {ControlType::DTPicker, makePickerWidget},
    {ControlType::CommandButton, makeButtonWidget},
    {ControlType::Frame, makeFrameWidget},
    {ControlType::Image, makeImageWidget},
    {ControlType::Line, makeLineWidget},
    {ControlType::Splitter, makeSplitterWidget},
    {ControlType::ListView, makeListWidget},
    {ControlType::Grid, makeGridWidget},
});

}  // namespace

ControlWidgetPtr makeControlWidget(const forms::ControlRef& control, QWidget* parent) {
  const auto maker = std::find_if(makers.begin(), makers.end(),
                                  [&](const Maker& row) { return row.type == control->type(); });
  return maker == makers.end() ? nullptr : maker->make(control, parent);
}

}  // namespace ovalia::desktop
