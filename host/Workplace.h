#pragma once

#include "host/Agency.h"
#include "host/Dialogs.h"
#include "platform/Object.h"

namespace ovalia::host {

// What every list of annotations of the program works with.
struct Workplace {
  Agency agency;
  Dialogs& dialogs;
  ObjectRef cApp;  // the component's late-bound `cApp` and `frmBase`
  ObjectRef frmBase;
};

}  // namespace ovalia::host
