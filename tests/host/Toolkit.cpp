#include "tests/host/Toolkit.h"

namespace ovalia::host {

QApplication& application() {
  static int count = 1;
  static char name[] = "test_host";
  static char* arguments[] = {name, nullptr};
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  static QApplication made(count, arguments);
  return made;
}

}  // namespace ovalia::host
