#pragma once

#include "instance/Instance.h"

namespace ovalia {

// What the procedures that ask for files share of the host's main form.

// The common dialog of the main form. No trap.
ObjectRef hostDialog(const Instance& nota);

// The folder in which such a dialog starts, remembered among the user's settings; the root of the first disk
// until there is one.
class RememberedFolder {
 public:
  RememberedFolder(const Instance& nota, TextView key);
  const Text& folder() const { return folder_; }
  void remember(TextView folder) const;  // stored only where it differs

 private:
  Text application_, key_, folder_;
};

// The first panel of the main form's status bar says that an operation has ended.
void tellReady(const Instance& nota);

}  // namespace ovalia
