#include <QResizeEvent>
#include <QSplitter>

#include "desktop/ControlWidget.h"
#include "desktop/Scale.h"

namespace ovalia::desktop {

using forms::Property;

namespace {

class Panes : public QSplitter {
 public:
  using QSplitter::QSplitter;
  std::function<void()> resized;

 protected:
  void resizeEvent(QResizeEvent* event) override {
    QSplitter::resizeEvent(event);
    if (resized) resized();
  }
};

// The first pane keeps its width, the second takes what is left.
class SplitterWidget : public ControlWidget {
 public:
  SplitterWidget(const forms::ControlRef& control, QWidget* parent)
      : SplitterWidget(control, new Panes(parent)) {}

  void follow(Property property) override {
    ControlWidget::follow(property);
    if (property == Property::PaneWidth) setPanes();
  }

 private:
  SplitterWidget(const forms::ControlRef& control, Panes* panes)
      : ControlWidget(control, panes), panes_(panes) {
    panes->setOrientation(Qt::Horizontal);
    panes->setChildrenCollapsible(false);
    panes->resized = [self = QPointer<SplitterWidget>(this)] {
      if (self) self->setPanes();
    };
    connect(panes, &QSplitter::splitterMoved, this, [this] {
      const QPointer<SplitterWidget> self(this);
      model().userDrags(Scale::of(*panes_).twips(panes_->sizes().value(0)));
      if (self) setPanes();
    });
  }

  void setPanes() {
    const int first = Scale::of(*panes_).pixels(model().PaneWidth());
    if (panes_->sizes().value(0) == first) return;
    panes_->setCollapsible(0, first == 0);
    panes_->setSizes({first, std::max(0, panes_->width() - panes_->handleWidth() - first)});
  }

  forms::Splitter& model() const { return static_cast<forms::Splitter&>(control()); }

  Panes* panes_;
};

}  // namespace

ControlWidgetPtr makeSplitterWidget(const forms::ControlRef& control, QWidget* parent) {
  return std::make_unique<SplitterWidget>(control, parent);
}

}  // namespace ovalia::desktop
