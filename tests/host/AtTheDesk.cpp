#include "tests/host/AtTheDesk.h"

#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QPointer>
#include <algorithm>

#include "component/CNota.h"
#include "desktop/CardView.h"
#include "desktop/MailDelivery.h"
#include "desktop/PickList.h"
#include "desktop/QtText.h"
#include "desktop/SearchDialog.h"
#include "desktop/SearchDialogObject.h"
#include "desktop/TemplatePicker.h"
#include "tests/host/Toolkit.h"

namespace ovalia::host {

namespace {

constexpr int patienceMilliseconds = 60000, again = 50;

using PutAway = std::function<bool()>;  // closes a window that is still open; whether it was

// Waits in the loops to come for a window: `found` gives how to put it away once it is up.
void playOn(const std::function<PutAway()>& found, const Keys& keys, const Keys& opening) {
  bool up = false;
  QTimer watch;
  QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
    const PutAway putAway = found();
    if (!putAway) return;
    watch.stop();
    up = true;
    QApplication::processEvents();
    keys();
    EXPECT_FALSE(putAway()) << "a window is still open";
  });
  watch.start(0);
  opening();
  EXPECT_TRUE(deskkit::eventually([&] { return up; })) << "a window never came";
}

// The form whose window is in use; null while that is none of a form. The runtime's active form is the one
// whose event is being handled, though another may have come up over it.
std::shared_ptr<forms::Form> formInUse() {
  const QWidget* top = QApplication::activeModalWidget();
  for (auto& form : forms::Runtime::current().loadedForms())
    if (top && form->Visible() && deskkit::windowOf(*form) == top) return form;
  return nullptr;
}

// A form that is up over all others; of any name where that is "".
PutAway formOnTop(TextView name) {
  const auto form = formInUse();
  if (!form || (!name.empty() && form->Name() != name)) return {};
  return [form] {
    const bool open = form->Visible();
    if (open) form->Hide();
    return open;
  };
}

PutAway dialogOnTop(const QString& title) {
  const QPointer<QDialog> dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
  if (!dialog || dialog->windowTitle() != title) return {};
  return [dialog] {
    const bool open = dialog && dialog->isVisible();
    if (open) dialog->QDialog::done(QDialog::Rejected);
    return open;
  };
}

// The window that was in use is so again when a dialog over it has closed: a window manager sees to that.
class ComingBack {
 public:
  ComingBack() = default;
  ~ComingBack() {
    if (before_ && before_->isVisible()) before_->activateWindow();
    QApplication::processEvents();
  }
  ComingBack(const ComingBack&) = delete;
  ComingBack& operator=(const ComingBack&) = delete;

 private:
  QPointer<QWidget> before_ = QApplication::activeWindow();
};

}  // namespace

bool Prepared::next() {
  if (keys_.empty()) return false;
  deskkit::meanwhile(std::move(keys_.front()));
  keys_.pop_front();
  return true;
}

void Prepared::verify() const {
  EXPECT_TRUE(keys_.empty()) << "keys were prepared for a window that never came";
}

int KeyedScreen::messageBox(TextView message, int buttons, TextView title) {
  const int announced = script_.messageBox(message, buttons, title);
  if (!prepared_.next()) return announced;
  const ComingBack back;
  const int answer = DesktopScreen::messageBox(message, buttons, title);
  EXPECT_EQ(answer, announced) << toUtf8(message);
  return answer;
}

std::optional<Text> KeyedDialogs::pickOne(TextView title, std::span<const Text> names, TextView now) {
  if (!prepared_.next()) {
    ADD_FAILURE() << "an unexpected list: " << toUtf8(title);
    return {};
  }
  const ComingBack back;
  return real_.pickOne(title, names, now);
}

std::optional<std::vector<Text>> KeyedDialogs::pickSeveral(TextView title, std::span<const Text> names,
                                                           std::span<const Text> chosen) {
  if (!prepared_.next()) {
    ADD_FAILURE() << "an unexpected list: " << toUtf8(title);
    return {};
  }
  const ComingBack back;
  return real_.pickSeveral(title, names, chosen);
}

void KeyedDialogs::sendMail(const desktop::MailMessage& draft) {
  ReadyDialogs::sendMail(draft);
  if (!desktop::configuredServer().empty()) real_.sendMail(draft);
}

AtTheDesk::AtTheDesk() {
  application();
  here.platform.screen = &screen;
  here.platform.app.title = u"Agencia";
  CNota::cgDB(workplace.agency.database);
  desktop::installViews();
  here.objects.add(u"Trivane.CTrivane", desktop::makePickList);
  here.objects.add(u"Perlaz.CPerlaz", desktop::makeTemplatePicker);
  here.objects.add(u"Mosken.CMosken", [wish = std::make_shared<desktop::SearchWish>()] {
    return desktop::makeSearchDialog(wish);
  });
  window = std::make_unique<MainWindow>(desk);
  screen.setHostForms({[this] { return window->activeForm(); }, [] { return std::vector<ObjectRef>(); }});
  window->show();
  QObject::connect(&patience_, &QTimer::timeout, &patience_, [this] { giveUp(); });
  patience_.start(patienceMilliseconds);
}

AtTheDesk::~AtTheDesk() {
  screen.setHostForms({});
  window.reset();
  forms::Runtime::current().setViewFactory({});
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  here.platform.screen = &here.screen;
}

void AtTheDesk::TearDown() {
  prepared.verify();
  HostTest::TearDown();
}

// A window that no key has closed would be waited for without end.
void AtTheDesk::giveUp() {
  ADD_FAILURE() << "a window was left open";
  patience_.start(again);
  if (const auto form = formInUse()) form->Hide();
  if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) dialog->reject();
}

ListPane& AtTheDesk::pane(TextView grid, std::int32_t record, TextView form) {
  CardPage& page = *window->openCard(hostForm(form), record);
  ListPane& shown = *page.pane(grid);
  page.showPane(shown);
  window->activateWindow();
  shown.grid().setFocus();
  QApplication::processEvents();
  return shown;
}

void AtTheDesk::onCard(ListPane& pane, const Keys& keys, const Keys& opening) {
  playOn([] { return formOnTop(u""); }, keys, opening);
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  window->activateWindow();
  pane.grid().setFocus();
  QApplication::processEvents();
}

void AtTheDesk::onForm(TextView name, const Keys& keys, const Keys& opening) {
  const ComingBack back;
  playOn([name] { return formOnTop(name); }, keys, opening);
}

void AtTheDesk::onDialog(const QString& title, const Keys& keys, const Keys& opening) {
  const ComingBack back;
  playOn([&] { return dialogOnTop(title); }, keys, opening);
}

void AtTheDesk::asked(Text text, int buttons, Text title, int answer, Keys keys) {
  expectBox(std::move(text), buttons, std::move(title), answer);
  prepared.add(std::move(keys));
}

forms::Form& AtTheDesk::card() {
  auto form = formInUse();
  if (!form) form = forms::Runtime::current().activeForm();
  if (!form) throw Failure(failure::objectNotSet);
  return *form;
}

bool AtTheDesk::isUp(TextView form) {
  return std::ranges::any_of(forms::Runtime::current().loadedForms(),
                             [&](const auto& loaded) { return loaded->Name() == form && loaded->Visible(); });
}

Text AtTheDesk::focused() {
  const auto active = card().ActiveControl();
  QWidget* widget = QApplication::focusWidget();
  while (widget && active && widget->objectName() != desktop::toQt(active->Name()))
    widget = widget->parentWidget();
  if (widget) return active->Name();
  ADD_FAILURE() << "the form and the toolkit do not agree where the focus is";
  return {};
}

void AtTheDesk::tabTo(TextView control) {
  const std::size_t most = card().controls().size();
  for (std::size_t i = 0; i < most && focused() != control; ++i) deskkit::tab();
  ASSERT_EQ(focused(), control);
}

void AtTheDesk::write(TextView control, const QString& text) {
  tabTo(control);
  deskkit::press(Qt::Key_A, Qt::ControlModifier);
  deskkit::types(text);
}

bool AtTheDesk::ticked(TextView control) {
  auto* box = qobject_cast<QCheckBox*>(deskkit::widgetOf(card(), control));
  return box && box->isChecked();
}

Variant AtTheDesk::stored(TextView table, TextView column, std::int32_t key) {
  return one(u"SELECT " + Text(column) + u" FROM " + Text(table) + u" WHERE " +
             Text(kindKey(annotationTable(table).kind)) + u" = " + toText(key));
}

}  // namespace ovalia::host
