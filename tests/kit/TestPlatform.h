#pragma once

#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "platform/Platform.h"
#include "tests/kit/Doubles.h"
#include "tests/kit/FakeFiles.h"
#include "tests/kit/FakeScreen.h"
#include "tests/kit/FaultPanel.h"

namespace ovalia::kit {

// The surroundings of a test: doubles of everything the component asks for, installed on this thread as long
// as the object lives. The thread's module values start empty and are left empty.
//
// Every procedure traps its failures and goes on, so a failure shows itself by its box and by its log entry
// only: verify() fails the test for a box or an entry that was not announced, and for one that was and never
// came.
class TestPlatform {
 public:
  TestPlatform();
  ~TestPlatform();

  FaultPanel faults;
  FakeScreen screen{faults};
  FakeSettings settings{faults};
  FakeFiles files{faults};
  FakeClipboard clipboard{faults};
  FakeShell shell{faults, files};
  ObjectRegistry objects;
  FakeClock clock;
  Platform platform;

  FakeScreen::Expectation& expectBox(Text text, int buttons = 0, Text title = {}, int answer = 1) {
    return screen.expectBox(std::move(text), buttons, std::move(title), answer);
  }
  FakeScreen::Expectation& expectInput(Text prompt, Text title, Text initial, Text typed) {
    return screen.expectInput(std::move(prompt), std::move(title), std::move(initial), std::move(typed));
  }

  // The reporter's box for a failure, whatever its description, answered with No, and the entry in the log.
  // The numbers with a text of their own (7, 70, 3167, 3200) are announced with it.
  FakeScreen::Expectation& expectReport(Text procedureName, std::int32_t number);

  // The same while a support report is running: the box offers no other.
  FakeScreen::Expectation& expectReportWithoutOffer(Text procedureName, std::int32_t number);

  // The entry alone.
  void expectLogEntry(Text procedureName, std::int32_t number);

  // What was written to the log so far, an entry (two lines) each.
  std::vector<Text> logEntries() const;

  void verify();

 private:
  struct AnnouncedEntry {
    Text procedureName;
    std::int32_t number;
  };
  Text reportTitle() const;

  std::vector<AnnouncedEntry> announced_;
  PlatformInstallation installation_{platform};
};

// A test of logic that stands on the doubles alone; what was not announced is found at its end.
class LogicTest : public testing::Test {
 protected:
  void TearDown() override { here.verify(); }

  // Announcing, as one speaks in a test.
  FakeScreen::Expectation& expectBox(Text text, int buttons = 0, Text title = {}, int answer = 1) {
    return here.expectBox(std::move(text), buttons, std::move(title), answer);
  }
  FakeScreen::Expectation& expectReport(Text procedureName, std::int32_t number) {
    return here.expectReport(std::move(procedureName), number);
  }

  TestPlatform here;
};

}  // namespace ovalia::kit
