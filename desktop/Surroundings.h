#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "platform/Platform.h"

namespace ovalia::desktop {

// The host's own forms, for those who ask the screen. Both may be empty.
struct HostForms {
  std::function<ObjectRef()> active;  // the one the user is on, when no card is
  std::function<std::vector<ObjectRef>()>
      loaded;  // in the order they were loaded; they come before the cards
};

// This thread's platform on the desktop, for as long as it lives: boxes, settings, files, clipboard, trash
// and clock of the user who runs the program; the archiver, the mailer, the pick list, the search dialog and
// the chooser of templates under their class names; cards drawn as windows; the toolkit speaking Spanish.
// Makes the toolkit's application object when the program has none. The thread is the one that runs the
// windows.
class Surroundings {
 public:
  // `app.path` is the program's folder when it is empty.
  explicit Surroundings(AppInfo app = {});
  ~Surroundings();
  Surroundings(const Surroundings&) = delete;
  Surroundings& operator=(const Surroundings&) = delete;

  Platform& platform();

  // To register what the host brings itself, or to replace what is there.
  ObjectRegistry& objects();

  void setHostForms(HostForms forms);

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace ovalia::desktop
