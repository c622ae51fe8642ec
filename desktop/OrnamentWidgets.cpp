#include <QFrame>
#include <QGroupBox>
#include <QIcon>
#include <QLabel>
#include <QPaintEvent>
#include <QPainter>

#include "desktop/ControlWidget.h"
#include "desktop/Icons.h"
#include "desktop/QtText.h"

namespace ovalia::desktop {

using forms::Property;

namespace {

// A widget whose caption is a text and nothing else.
template <class Widget, void (Widget::*setCaption)(const QString&)>
class CaptionWidget : public ControlWidget {
 public:
  CaptionWidget(const forms::ControlRef& control, Widget* widget) : ControlWidget(control, widget) {}

  void follow(Property property) override {
    if (property == Property::Caption || property == Property::Value)
      (static_cast<Widget*>(widget())->*setCaption)(toQt(control().Caption()));
    ControlWidget::follow(property);
  }
};

// Painted, not a stored picture: as sharp as the screen it stands on.
class Picture : public QWidget {
 public:
  Picture(const QIcon& icon, QWidget* parent) : QWidget(parent), icon_(icon) {}

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    icon_.paint(&painter, rect(), Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
  }

 private:
  QIcon icon_;
};

}  // namespace

ControlWidgetPtr makeLabelWidget(const forms::ControlRef& control, QWidget* parent) {
  auto* label = new QLabel(parent);
  label->setTextFormat(Qt::PlainText);
  return std::make_unique<CaptionWidget<QLabel, &QLabel::setText>>(control, label);
}

ControlWidgetPtr makeFrameWidget(const forms::ControlRef& control, QWidget* parent) {
  return std::make_unique<CaptionWidget<QGroupBox, &QGroupBox::setTitle>>(control, new QGroupBox(parent));
}

ControlWidgetPtr makeLineWidget(const forms::ControlRef& control, QWidget* parent) {
  auto* line = new QFrame(parent);
  line->setFrameStyle(QFrame::HLine | QFrame::Sunken);
  return std::make_unique<ControlWidget>(control, line);
}

ControlWidgetPtr makeImageWidget(const forms::ControlRef& control, QWidget* parent) {
  return std::make_unique<ControlWidget>(control, new Picture(icon(control->design().name), parent));
}

}  // namespace ovalia::desktop
