#include "desktop/DesktopScreen.h"

#include <QApplication>
#include <QScreen>

#include "desktop/MessageBox.h"
#include "desktop/QtText.h"
#include "desktop/Scale.h"
#include "desktop/WholeDesk.h"
#include "forms/Form.h"

namespace ovalia::desktop {

namespace {

constexpr int hourglass = 11;

QString titleOr(TextView title) {
  return toQt(title.empty() ? TextView(Platform::current().app.title) : title);
}

Scale screenScale() {
  const QScreen* screen = QApplication::primaryScreen();
  return Scale(screen ? screen->logicalDotsPerInchX() : 96);
}

}  // namespace

// While a box is up the pointer is an arrow.
class DesktopScreen::Boxed {
 public:
  explicit Boxed(DesktopScreen& screen) : screen_(screen) { ++screen_.boxes_, screen_.drawPointer(); }
  ~Boxed() { --screen_.boxes_, screen_.drawPointer(); }
  Boxed(const Boxed&) = delete;
  Boxed& operator=(const Boxed&) = delete;

 private:
  DesktopScreen& screen_;
};

DesktopScreen::~DesktopScreen() { setMousePointer(0); }

ObjectRef DesktopScreen::activeForm() {
  if (auto form = forms::Runtime::current().activeForm()) return form;
  return host_.active ? host_.active() : nullptr;
}

ObjectRef DesktopScreen::activeControl() {
  const ObjectRef form = activeForm();
  if (!form) return nullptr;
  try {
    const Variant control = form->get(u"ActiveControl");
    return control.isObject() ? control.toObject() : nullptr;
  } catch (const Failure&) {
    return nullptr;  // a host's form need not have the member
  }
}

std::vector<ObjectRef> DesktopScreen::forms() {
  std::vector<ObjectRef> all;
  if (host_.loaded) all = host_.loaded();
  for (auto& form : forms::Runtime::current().loadedForms()) all.push_back(std::move(form));
  return all;
}

void DesktopScreen::setMousePointer(int pointer) {
  pointer_ = pointer;
  drawPointer();
}

void DesktopScreen::drawPointer() {
  const bool wanted = pointer_ == hourglass && boxes_ == 0;
  if (wanted == drawn_) return;
  drawn_ = wanted;
  if (!QCoreApplication::instance()) return;
  if (wanted)
    QApplication::setOverrideCursor(Qt::WaitCursor);
  else
    QApplication::restoreOverrideCursor();
}

double DesktopScreen::width() { return screenScale().twips(wholeDesk().width()); }
double DesktopScreen::height() { return screenScale().twips(wholeDesk().height()); }

int DesktopScreen::messageBox(TextView message, int buttons, TextView title) {
  const Boxed boxed(*this);
  return showMessageBox(toQt(message), buttons, titleOr(title));
}

Text DesktopScreen::inputBox(TextView prompt, TextView title, TextView initial) {
  const Boxed boxed(*this);
  return fromQt(showInputBox(toQt(prompt), titleOr(title), toQt(initial)));
}

void DesktopScreen::beep() { QApplication::beep(); }
void DesktopScreen::yield() { QCoreApplication::processEvents(); }

}  // namespace ovalia::desktop
