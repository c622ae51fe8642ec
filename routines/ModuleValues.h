#pragma once

#include "platform/Text.h"
#include "platform/dao.h"

namespace ovalia {

// What all components of a thread share. It lives as long as the thread; nothing clears it in between.
struct ModuleValues {
  dao::DatabaseRef cgDB;  // the connection that every statement runs on
  Text PathDB;            // handed on to the pick list, never opened here

  // Full path of the log, in the logic's or the system's form. Empty until somebody sets it or the first
  // entry is written, which puts the default here.
  Text ErrLogPath;

  bool MensajeEnCurso = false;   // a message box, an input box or the pick list is up
  bool EnviandoSoporte = false;  // a support report is running: a failure inside it offers no other
};

ModuleValues& moduleValues();

}  // namespace ovalia
