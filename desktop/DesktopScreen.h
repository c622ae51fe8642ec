#pragma once

#include "desktop/Surroundings.h"

namespace ovalia::desktop {

// The screen of the one who sits before it. The hourglass gives way to the arrow while a box is up.
class DesktopScreen : public Screen {
 public:
  ~DesktopScreen() override;

  void setHostForms(HostForms forms) { host_ = std::move(forms); }

  ObjectRef activeForm() override;
  ObjectRef activeControl() override;
  std::vector<ObjectRef> forms() override;
  int mousePointer() override { return pointer_; }
  void setMousePointer(int pointer) override;
  double width() override;
  double height() override;
  int messageBox(TextView message, int buttons, TextView title) override;
  Text inputBox(TextView prompt, TextView title, TextView initial) override;
  void beep() override;
  void yield() override;

 private:
  class Boxed;
  void drawPointer();

  HostForms host_;
  int pointer_ = 0;
  int boxes_ = 0;
  bool drawn_ = false;
};

}  // namespace ovalia::desktop
