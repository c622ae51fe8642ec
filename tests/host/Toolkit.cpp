#include "tests/host/Toolkit.h"

#include <memory>

#include <gtest/gtest.h>

#include "host/Application.h"

namespace ovalia::host {

namespace {

std::unique_ptr<Application> made;

// The toolkit must end while its own statics still stand, so not at the program's exit.
class EndOfToolkit : public testing::EmptyTestEventListener {
  void OnTestProgramEnd(const testing::UnitTest&) override { made.reset(); }
};

}  // namespace

QApplication& application() {
  static int count = 1;
  static char name[] = "test_host";
  static char* arguments[] = {name, nullptr};
  if (!made) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    made = std::make_unique<Application>(count, arguments);
    testing::UnitTest::GetInstance()->listeners().Append(new EndOfToolkit);
  }
  return *made;
}

}  // namespace ovalia::host
