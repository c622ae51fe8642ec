#pragma once

#include <vector>

#include "tests/kit/FakeScreen.h"

namespace ovalia::kit {

// A screen for tests that go through every failure there is: any box may come, its text is kept, and the
// question about unsaved changes gets `saveAnswer`, one about a deletion `deletionAnswer`, any other No.
class RecordingScreen : public FakeScreen {
 public:
  RecordingScreen(FaultPanel& faults, FakeScreen& drawn) : FakeScreen(faults), faults_(faults) {
    activeFormOf = drawn.activeFormOf;
    activeControlOf = drawn.activeControlOf;
    formsOf = drawn.formsOf;
  }

  int saveAnswer = 6, deletionAnswer = 7;
  std::vector<Text> boxes;

  // The procedure that a report box names; "" for any other box.
  static Text reportedBy(const Text& box) {
    constexpr TextView beginning = u"Error en la rutina: ";
    if (!box.starts_with(beginning)) return {};
    return box.substr(beginning.size(), box.find(CRLF) - beginning.size());
  }

  int messageBox(TextView message, int buttons, TextView) override {
    faults_.visit("Screen.messageBox");
    boxes.emplace_back(message);
    constexpr int yesNoCancelQuestion = 35, yesNoQuestion = 36, no = 7;
    if (buttons == yesNoCancelQuestion) return saveAnswer;
    return buttons == yesNoQuestion ? deletionAnswer : no;
  }

  void beep() override {
    faults_.visit("Screen.beep");
    FakeScreen::beep();
  }

 private:
  FaultPanel& faults_;
};

}  // namespace ovalia::kit
