#include "tests/host/AtTheDesk.h"

#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QPointer>

#include "component/CNota.h"
#include "desktop/CardView.h"
#include "desktop/PickList.h"
#include "desktop/QtText.h"
#include "desktop/SearchDialog.h"
#include "desktop/SearchDialogObject.h"
#include "tests/host/Toolkit.h"

namespace ovalia::host {

namespace {

constexpr int patienceMilliseconds = 60000, again = 50;

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

AtTheDesk::AtTheDesk() {
  application();
  here.platform.screen = &screen;
  here.platform.app.title = u"Agencia";
  CNota::cgDB(workplace.agency.database);
  desktop::installViews();
  here.objects.add(u"Trivane.CTrivane", desktop::makePickList);
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
  if (const auto form = forms::Runtime::current().activeForm()) form->Hide();
  if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) dialog->reject();
}

ListPane& AtTheDesk::pane(TextView grid, std::int32_t property) {
  CardPage& page = *window->openCard(hostForm(u"FichaInm"), property);
  ListPane& shown = *page.pane(grid);
  page.showPane(shown);
  window->activateWindow();
  shown.grid().setFocus();
  QApplication::processEvents();
  return shown;
}

void AtTheDesk::onCard(ListPane& pane, const Keys& keys, const Keys& opening) {
  bool up = false;
  QTimer watch;
  QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
    const auto form = forms::Runtime::current().activeForm();
    if (!form || QApplication::activeModalWidget() != deskkit::windowOf(*form)) return;
    watch.stop();
    up = true;
    QApplication::processEvents();
    keys();
    if (!form->Visible()) return;
    ADD_FAILURE() << "the card is still open";
    form->Hide();
  });
  watch.start(0);
  opening();
  EXPECT_TRUE(up);
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  window->activateWindow();
  pane.grid().setFocus();
  QApplication::processEvents();
}

void AtTheDesk::asked(Text text, int buttons, Text title, int answer, Keys keys) {
  expectBox(std::move(text), buttons, std::move(title), answer);
  prepared.add(std::move(keys));
}

forms::Form& AtTheDesk::card() {
  const auto form = forms::Runtime::current().activeForm();
  if (!form) throw Failure(failure::objectNotSet);
  return *form;
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
