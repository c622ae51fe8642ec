#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/Platform.h"
#include "tests/kit/FaultPanel.h"

namespace ovalia::kit {

// A screen whose boxes follow a script. A box that was not announced, that is worded differently, or that was
// announced and never came fails the test, and both texts are shown.
class FakeScreen : public Screen {
 public:
  // One announced box. `whileUp` runs while the box is shown, for what happens behind the user's back.
  struct Expectation {
    bool input = false;
    Text text;
    std::optional<Text> tail;  // the text begins with `text` and ends with this, whatever stands between
    int buttons = 0;
    Text title;
    Text initial;
    int answer = 1;
    Text typed;
    std::function<void()> action;

    Expectation& whileUp(std::function<void()> action_) {
      action = std::move(action_);
      return *this;
    }
  };

  explicit FakeScreen(FaultPanel& faults) : faults_(faults) {}

  Expectation& expectBox(Text text, int buttons, Text title, int answer);
  Expectation& expectBoxLike(Text beginning, Text end, int buttons, Text title, int answer);
  Expectation& expectInput(Text prompt, Text title, Text initial, Text typed);
  void verify();

  // What is on the screen: set the values, or the functions where a forms layer answers.
  ObjectRef form, control;
  std::vector<ObjectRef> loadedForms;
  std::function<ObjectRef()> activeFormOf = [this] { return form; };
  std::function<ObjectRef()> activeControlOf = [this] { return control; };
  std::function<std::vector<ObjectRef>()> formsOf = [this] { return loadedForms; };
  std::function<void()> yielding = [] {};
  double screenWidth = 28800, screenHeight = 16200;  // twips: 1920 x 1080 at 96 dpi
  int pointer = 0;
  std::vector<int> pointers;  // every one that was set
  int beeps = 0;

  ObjectRef activeForm() override;
  ObjectRef activeControl() override;
  std::vector<ObjectRef> forms() override;
  int mousePointer() override { return pointer; }
  void setMousePointer(int value) override;
  double width() override;
  double height() override;
  int messageBox(TextView message, int buttons, TextView title) override;
  Text inputBox(TextView prompt, TextView title, TextView initial) override;
  void beep() override { ++beeps; }
  void yield() override { yielding(); }

 private:
  Expectation meet(const Expectation& shown);

  FaultPanel& faults_;
  std::deque<Expectation> script_;
};

}  // namespace ovalia::kit
