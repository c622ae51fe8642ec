#include "tests/desktop/Desk.h"

#include <QDir>
#include <QTimer>

#include "tests/deskkit/Cards.h"

namespace ovalia::desktop {

namespace {

// One toolkit a process, away from the user's own folders.
class Toolkit : public testing::Environment {
 public:
  void SetUp() override {
    const QString home = folder_.path();
    for (const char* sub : {"config", "data", "cache", "run"}) QDir(home).mkdir(sub);
    QFile::setPermissions(home + "/run", QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    const auto set = [&](const char* name, const char* sub) { qputenv(name, (home + sub).toUtf8()); };
    set("HOME", "");
    set("XDG_CONFIG_HOME", "/config");
    set("XDG_DATA_HOME", "/data");
    set("XDG_CACHE_HOME", "/cache");
    set("XDG_RUNTIME_DIR", "/run");
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    application_ = std::make_unique<QApplication>(count_, arguments_);
    QApplication::setQuitOnLastWindowClosed(false);
  }
  void TearDown() override { application_.reset(); }

 private:
  QTemporaryDir folder_;
  int count_ = 1;
  char name_[13] = "test_desktop";
  char* arguments_[2] = {name_, nullptr};
  std::unique_ptr<QApplication> application_;
};

const testing::Environment* toolkit = testing::AddGlobalTestEnvironment(new Toolkit);

}  // namespace

QString qname(TextView name) { return toQt(name); }

void key(QWidget* widget, int code, Qt::KeyboardModifiers modifiers, const QString& text) {
  QKeyEvent press(QEvent::KeyPress, code, modifiers, text);
  const QPointer<QWidget> kept(widget);
  QApplication::sendEvent(widget, &press);
  QKeyEvent release(QEvent::KeyRelease, code, modifiers, text);
  if (kept) QApplication::sendEvent(widget, &release);
}

void typeText(QWidget* widget, const QString& text) {
  for (const QChar c : text) {
    const int code = c == u'\n' ? int(Qt::Key_Return) : c.toUpper().unicode();
    key(widget, code, Qt::NoModifier, c == u'\n' ? QStringLiteral("\r") : QString(c));
  }
}

void DeskTest::SetUp() {
  forms::Runtime& runtime = forms::Runtime::current();
  here.screen.activeFormOf = [&] { return ObjectRef(runtime.activeForm()); };
  here.screen.yielding = [] { QCoreApplication::processEvents(); };
  installViews();
}

void DeskTest::TearDown() {
  forms::Runtime::current().setViewFactory({});
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  LogicTest::TearDown();
}

void DeskTest::whileShown(forms::Form& form, const std::function<void()>& actions) {
  bool ran = false;
  QTimer::singleShot(0, [&] {
    ran = true;
    QApplication::setActiveWindow(windowOf(form));
    actions();
    if (form.Visible()) form.Hide();
  });
  form.Show();
  EXPECT_TRUE(ran);
}

CardWindow* DeskTest::windowOf(const forms::Form& form) { return deskkit::windowOf(form); }
QWidget* DeskTest::widget(const forms::Form& form, TextView name) { return deskkit::widgetOf(form, name); }
QWidget* DeskTest::target(const forms::Form& form, TextView name) { return deskkit::inputOf(form, name); }
QString DeskTest::shown(const forms::Form& form, TextView name) { return deskkit::shownIn(form, name); }

Text DeskTest::active(forms::Form& form) {
  const auto control = form.ActiveControl();
  return control ? control->Name() : Text();
}

}  // namespace ovalia::desktop
