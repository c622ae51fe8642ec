#include <QResizeEvent>
#include <QSplitter>

#include "desktop/ControlWidget.h"
#include "desktop/Scale.h"

namespace ovalia::desktop {

using forms::Property;

namespace {

constexpr double step = 150;  // twips

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

  // Alt with an arrow moves the bar, from either pane.
  bool takesKey(QKeyEvent& event) override {
    const int way = event.key() == Qt::Key_Right ? 1 : event.key() == Qt::Key_Left ? -1 : 0;
    if (way == 0 || model().PaneWidth() == 0 || (event.modifiers() & ~Qt::KeypadModifier) != Qt::AltModifier)
      return false;
    const QList<int> now = panes_->sizes();
    const int by = way * Scale::of(*panes_).pixels(step);
    panes_->setSizes({std::max(1, now.value(0) + by), std::max(1, now.value(1) - by)});
    moved();
    return true;
  }

 private:
  SplitterWidget(const forms::ControlRef& control, Panes* panes)
      : ControlWidget(control, panes), panes_(panes) {
    panes->setOrientation(Qt::Horizontal);
    panes->setChildrenCollapsible(false);
    panes->resized = [self = QPointer<SplitterWidget>(this)] {
      if (self) self->setPanes();
    };
    connect(panes, &QSplitter::splitterMoved, this, [this] { moved(); });
  }

  void moved() {
    const QPointer<SplitterWidget> self(this);
    model().userDrags(Scale::of(*panes_).twips(panes_->sizes().value(0)));
    if (self) setPanes();
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
