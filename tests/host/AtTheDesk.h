#pragma once

#include <QTimer>
#include <deque>
#include <functional>

#include "desktop/DesktopScreen.h"
#include "host/MainWindow.h"
#include "host/QtDialogs.h"
#include "tests/deskkit/Cards.h"
#include "tests/deskkit/Keyboard.h"
#include "tests/host/HostTest.h"

namespace ovalia::host {

using Keys = std::function<void()>;

// What the user does with the windows that will come up, in that order.
class Prepared {
 public:
  void add(Keys keys) { keys_.push_back(std::move(keys)); }

  // True when there is something, and it happens as soon as the window is up.
  bool next();
  void verify() const;

 private:
  std::deque<Keys> keys_;
};

// Real boxes. Each has to be announced to the script, and the keys prepared for it must bring the announced
// answer.
class KeyedScreen : public desktop::DesktopScreen {
 public:
  KeyedScreen(kit::FakeScreen& script, Prepared& prepared) : script_(script), prepared_(prepared) {}

  int messageBox(TextView message, int buttons, TextView title) override;
  void beep() override { script_.beep(); }

 private:
  kit::FakeScreen& script_;
  Prepared& prepared_;
};

// Real lists of names, real questions and, where the settings have a server, mails that are really sent; a
// list that nothing was prepared for fails the test.
class KeyedDialogs : public ReadyDialogs {
 public:
  explicit KeyedDialogs(Prepared& prepared) : prepared_(prepared) {}

  std::optional<Text> pickOne(TextView title, std::span<const Text> names, TextView now) override;
  std::optional<std::vector<Text>> pickSeveral(TextView title, std::span<const Text> names,
                                               std::span<const Text> chosen) override;
  void tell(TextView title, TextView message) override { real_.tell(title, message); }
  bool confirm(TextView title, TextView text) override { return real_.confirm(title, text); }
  int yesNoCancel(TextView title, TextView text) override { return real_.yesNoCancel(title, text); }
  void sendMail(const desktop::MailMessage& draft) override;

 private:
  Prepared& prepared_;
  QtDialogs real_;
};

// The agency's windows and the component's drawn without a screen, and a user who has only a keyboard.
class AtTheDesk : public HostTest {
 protected:
  AtTheDesk();
  ~AtTheDesk() override;
  void TearDown() override;

  // The page of a property, or of another record of the agency, on one of its lists.
  ListPane& pane(TextView grid, std::int32_t record = 1, TextView form = u"FichaInm");

  // Opens a card, the grid's row with Enter, and plays while it is up; it must be closed then.
  void onCard(
      ListPane& pane, const Keys& keys, const Keys& opening = [] { deskkit::enter(); });

  // The same for what comes up over a card: a form by its name, a dialog of the toolkit by its title.
  static void onForm(TextView name, const Keys& keys, const Keys& opening);
  static void onDialog(const QString& title, const Keys& keys, const Keys& opening);

  // A box that will come, and the keys that bring its answer.
  void asked(Text text, int buttons, Text title, int answer, Keys keys);

  // The form that is in use: a card, or what came up over it.
  static forms::Form& card();
  static bool isUp(TextView form);
  static QString shown(TextView control) { return deskkit::shownIn(card(), control); }
  static Text focused();  // the control that the keys go to
  static bool enabled(TextView tool) { return card().toolbars().tool(tool)->Enabled(); }

  // Moves along with Tab until the control has the focus.
  static void tabTo(TextView control);

  // Goes there and writes in place of what is there.
  static void write(TextView control, const QString& text);
  static bool ticked(TextView control);

  Variant stored(TextView table, TextView column, std::int32_t key);

  Prepared prepared;
  KeyedScreen screen{here.screen, prepared};
  KeyedDialogs keyed{prepared};
  Workplace desk{workplace.agency, keyed, {}, {}};
  std::unique_ptr<MainWindow> window;

 private:
  void giveUp();

  QTimer patience_;
};

}  // namespace ovalia::host
