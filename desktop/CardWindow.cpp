#include "desktop/CardWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QScreen>
#include <QThread>
#include <QTimer>
#include <QVBoxLayout>
#include <QWindow>

#include "desktop/DialogOwner.h"
#include "desktop/Progress.h"
#include "desktop/QtText.h"
#include "desktop/Scale.h"

namespace ovalia::desktop {

using forms::ControlType;
using forms::Property;

namespace {

// The designs are drawn for letters of this height, whatever the desktop's own.
constexpr double letterPoints = 8.25;

constexpr std::array everyProperty{
    Property::Caption,      Property::List,      Property::Value,    Property::Items, Property::View,
    Property::SelectedItem, Property::BackColor, Property::Headings, Property::Place, Property::Rows,
    Property::PaneWidth,    Property::Enabled,   Property::Visible};

bool isContainer(const forms::Control& control) {
  return control.type() == ControlType::Frame || control.type() == ControlType::Splitter;
}

bool takesFiles(const forms::Control& control) {
  return control.type() == ControlType::ListView || control.has(forms::multiLine);
}

// The toolkit would move the focus before anybody could ask: a press asks the form instead. It would also
// write the names of dropped files into any box.
void leaveToForm(const ControlWidget& drawn) {
  if (isContainer(drawn.control())) return;
  auto parts = drawn.widget()->findChildren<QWidget*>();
  parts.append(drawn.widget());
  for (QWidget* part : parts) {
    if (part->focusPolicy() & Qt::ClickFocus) part->setFocusPolicy(Qt::TabFocus);
    if (!takesFiles(drawn.control())) part->setAcceptDrops(false);
  }
}

class Counted {
 public:
  explicit Counted(int& count) : count_(count) { ++count_; }
  ~Counted() { --count_; }
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;

 private:
  int& count_;
};

// A window without bars is a dialog: nothing to be minimised by itself.
Qt::WindowFlags kindOf(forms::Form& form) {
  if (form.hasControl(u"SSAtb")) return Qt::Window;
  return Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowMaximizeButtonHint |
         Qt::WindowCloseButtonHint;
}

}  // namespace

CardWindow::CardWindow(forms::Form& form) : QWidget(nullptr, kindOf(form)), form_(&form) {
  QFont letters = font();
  letters.setPointSizeF(letterPoints);
  setFont(letters);
  setObjectName(toQt(form.Name()));
  setWindowModality(Qt::ApplicationModal);
  setAttribute(Qt::WA_QuitOnClose, false);

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  if (form.hasControl(u"SSAtb")) {
    bars_ = std::make_unique<CardBars>(form.as<forms::ActiveToolBars>(u"SSAtb"), this, [this] { commit(); });
    layout->setMenuBar(bars_->menuBar());
    layout->addWidget(bars_->toolBar());
  }
  area_ = new QWidget(this);
  area_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
  layout->addWidget(area_, 1);
  if (!bars_) {
    const forms::FormDesign& design = form.design();
    const Scale scale = Scale::of(*this);
    area_->setMinimumSize(scale.pixels(design.minimumWidth - forms::frameWidth),
                          scale.pixels(design.minimumHeight - design.frame));
  }

  buildControls();
  followCaption();
  followPlace();
  qApp->installEventFilter(this);
}

CardWindow::~CardWindow() { release(); }

void CardWindow::release() {
  if (!form_) return;
  form_ = nullptr;
  if (qApp) qApp->removeEventFilter(this);
  endModal();
  byWidget_.clear();
  controls_.clear();
  bars_.reset();
  hide();
}

// In a loop within this window's own, a handler of one of its widgets may be waiting for a dialog.
void CardWindow::retire() {
  constexpr int shortly = 20;
  if (loopLevel_ > 0 && QThread::currentThread()->loopLevel() > loopLevel_)
    QTimer::singleShot(shortly, this, [this] { retire(); });
  else
    deleteLater();
}

void CardWindow::buildControls() {
  const Counted following(following_);
  for (const bool containers : {true, false}) {
    for (const forms::ControlRef& control : form_->controls()) {
      if (isContainer(*control) != containers) continue;
      const TextView holder = control->design().container;
      QWidget* parent = holder.empty() ? area_ : widgetOf(form_->control(holder).get())->widget();
      auto drawn = makeControlWidget(control, parent);
      if (!drawn) continue;
      byWidget_[drawn->widget()] = drawn.get();
      controls_[control.get()] = std::move(drawn);
    }
  }
  for (const forms::ControlRef& control : form_->controls()) {
    ControlWidget* drawn = widgetOf(control.get());
    if (!drawn) continue;
    for (const Property property : everyProperty) drawn->follow(property);
    describe(*drawn);
    leaveToForm(*drawn);
  }
}

QString CardWindow::captionOf(TextView control) const { return spoken(form_->control(control)->Caption()); }

void CardWindow::describe(ControlWidget& drawn) {
  const forms::ControlDesign& design = drawn.control().design();
  const QString tip = toQt(design.tip);
  QString name = design.label.empty() ? spoken(drawn.control().Caption()) : captionOf(design.label);
  if (name.isEmpty()) name = tip;
  const bool interactive = drawn.focusTarget()->focusPolicy() != Qt::NoFocus;
  drawn.describe(name, tip.isEmpty() && interactive ? name : tip);
}

ControlWidget* CardWindow::widgetOf(const forms::Control* control) const {
  const auto found = controls_.find(control);
  return found == controls_.end() ? nullptr : found->second.get();
}

// The control that the widget is or is a part of.
ControlWidget* CardWindow::widgetAt(QWidget* widget) const {
  for (; widget && widget != area_; widget = widget->parentWidget())
    if (const auto found = byWidget_.find(widget); found != byWidget_.end()) return found->second;
  return nullptr;
}

ControlWidget* CardWindow::activeWidget() const {
  return form_ ? widgetOf(form_->ActiveControl().get()) : nullptr;
}

void CardWindow::commit() {
  if (ControlWidget* active = activeWidget()) active->commit();
}

void CardWindow::followCaption() { setWindowTitle(toQt(form_->Caption())); }

void CardWindow::followTool(TextView id) {
  if (bars_) bars_->follow(id);
}

void CardWindow::followControl(forms::Control& control, Property property) {
  ControlWidget* drawn = widgetOf(&control);
  if (!drawn) return;
  {
    const Counted following(following_);
    drawn->follow(property);
  }
  if (property == Property::Caption)
    for (const auto& [other, widget] : controls_)
      if (other == &control || other->design().label == control.design().name) describe(*widget);
  // The toolkit passes the focus on by itself when its place is disabled or hidden.
  if (property == Property::Enabled || property == Property::Visible) followFocus();
}

void CardWindow::followFocus() {
  const Counted following(following_);
  if (ControlWidget* active = activeWidget()) active->focusTarget()->setFocus(Qt::OtherFocusReason);
}

void CardWindow::popUp(TextView menu, const std::optional<forms::Point>& at) {
  if (!bars_) return;
  const Scale scale = Scale::of(*this);
  QPoint place = at ? mapToGlobal(QPoint(scale.pixels(at->x), scale.pixels(at->y))) : QCursor::pos();
  if (!at)
    if (ControlWidget* active = activeWidget(); active && active->menuPlace()) place = *active->menuPlace();
  bars_->popUp(menu, place);
}

void CardWindow::showForm() {
  followCaption();
  followPlace();
  QWidget* owner = dialogOwner();
  if (!centred(owner)) keepOnScreen();
  if (owner && owner != this) {
    winId();
    windowHandle()->setTransientParent(owner->windowHandle());
  }
  const Counted following(following_);
  switch (form_->WindowState()) {
    case 1:
      showMinimized();
      break;
    case 2:
      showMaximized();
      break;
    default:
      showNormal();
  }
  // Only now the bars have their true height.
  if (freelyPlaced() && area_->size() != askedSize_.pixels) {
    resizeArea(askedSize_.pixels);
    reportedSize_ = area_->size();
  }
  if (freelyPlaced()) keepOnScreen();
  activateWindow();
}

void CardWindow::runModal() {
  QEventLoop loop;
  loop_ = &loop;
  loopLevel_ = QThread::currentThread()->loopLevel() + 1;
  const QPointer<CardWindow> self(this);
  loop.exec();
  if (self && loop_ == &loop) loop_ = nullptr;
}

void CardWindow::endModal() {
  if (!loop_) return;
  loop_->quit();
  loop_ = nullptr;
}

bool CardWindow::event(QEvent* event) {
  if (event->type() == QEvent::WindowBlocked) ++blocked_;
  return QWidget::event(event);
}

void CardWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  if (!form_ || Progress::current().breathing()) return;
  const QPointer<CardWindow> self(this);
  commit();
  if (self && form_) form_->userCloses();
}

}  // namespace ovalia::desktop
