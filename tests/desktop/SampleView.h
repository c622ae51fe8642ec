#pragma once

#include <QAction>

#include "tests/desktop/Desk.h"
#include "tests/desktop/SampleForm.h"

namespace ovalia::desktop {

// The sample form, drawn.
class View : public DeskTest {
 protected:
  QWidget* target(TextView name) { return DeskTest::target(*form, name); }
  QString shown(TextView name) { return DeskTest::shown(*form, name); }
  Text value(TextView name) { return form->control(name)->get(u"").text(); }
  Text active() { return DeskTest::active(*form); }
  void up(const std::function<void()>& actions) {
    whileShown(*form, [&] {
      form->forget();
      actions();
    });
  }
  void focus(TextView name) {
    form->userFocuses(*form->control(name));
    form->forget();
  }
  QAction* tool(const char* id) { return windowOf(*form)->findChild<QAction*>(id); }

  std::shared_ptr<SampleForm> form = std::make_shared<SampleForm>();
};

}  // namespace ovalia::desktop
