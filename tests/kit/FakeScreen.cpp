#include "tests/kit/FakeScreen.h"

#include <gtest/gtest.h>

namespace ovalia::kit {
namespace {

std::string describe(const FakeScreen::Expectation& box) {
  std::string text = (box.input ? "input box \"" : "message box \"") + toUtf8(box.text);
  if (box.tail) text += " ... " + toUtf8(*box.tail);
  text += "\", title \"" + toUtf8(box.title) + "\"";
  return text + (box.input ? ", initial \"" + toUtf8(box.initial) + "\""
                           : ", buttons " + std::to_string(box.buttons));
}

bool matches(const FakeScreen::Expectation& expected, const FakeScreen::Expectation& shown) {
  const bool text = expected.tail
                        ? shown.text.size() >= expected.text.size() + expected.tail->size() &&
                              shown.text.starts_with(expected.text) && shown.text.ends_with(*expected.tail)
                        : shown.text == expected.text;
  return text && expected.input == shown.input && expected.buttons == shown.buttons &&
         expected.title == shown.title && expected.initial == shown.initial;
}

// What a user who wants nothing to happen would press.
int harmlessAnswer(int buttons) {
  switch (buttons & 15) {
    case 0:
      return 1;
    case 4:
      return 7;
    default:
      return 2;
  }
}

}  // namespace

FakeScreen::Expectation& FakeScreen::expectBox(Text text, int buttons, Text title, int answer) {
  Expectation box;
  box.text = std::move(text);
  box.buttons = buttons;
  box.title = std::move(title);
  box.answer = answer;
  return script_.emplace_back(std::move(box));
}

FakeScreen::Expectation& FakeScreen::expectBoxLike(Text beginning, Text end, int buttons, Text title,
                                                   int answer) {
  Expectation& box = expectBox(std::move(beginning), buttons, std::move(title), answer);
  box.tail = std::move(end);
  return box;
}

FakeScreen::Expectation& FakeScreen::expectInput(Text prompt, Text title, Text initial, Text typed) {
  Expectation box;
  box.input = true;
  box.text = std::move(prompt);
  box.title = std::move(title);
  box.initial = std::move(initial);
  box.typed = std::move(typed);
  return script_.emplace_back(std::move(box));
}

void FakeScreen::verify() {
  for (const Expectation& box : script_) ADD_FAILURE() << "announced and never shown: " << describe(box);
  script_.clear();
}

ObjectRef FakeScreen::activeForm() {
  faults_.visit("Screen.activeForm");
  return activeFormOf();
}

ObjectRef FakeScreen::activeControl() {
  faults_.visit("Screen.activeControl");
  return activeControlOf();
}

std::vector<ObjectRef> FakeScreen::forms() {
  faults_.visit("Screen.forms");
  return formsOf();
}

void FakeScreen::setMousePointer(int value) {
  faults_.visit("Screen.setMousePointer");
  pointer = value;
  pointers.push_back(value);
}

double FakeScreen::width() {
  faults_.visit("Screen.width");
  return screenWidth;
}

double FakeScreen::height() {
  faults_.visit("Screen.height");
  return screenHeight;
}

int FakeScreen::messageBox(TextView message, int buttons, TextView title) {
  faults_.visit("Screen.messageBox");
  Expectation shown;
  shown.text = message;
  shown.buttons = buttons;
  shown.title = title;
  shown.answer = harmlessAnswer(buttons);
  return meet(shown).answer;
}

Text FakeScreen::inputBox(TextView prompt, TextView title, TextView initial) {
  faults_.visit("Screen.inputBox");
  Expectation shown;
  shown.input = true;
  shown.text = prompt;
  shown.title = title;
  shown.initial = initial;
  return meet(shown).typed;
}

FakeScreen::Expectation FakeScreen::meet(const Expectation& shown) {
  if (script_.empty()) {
    ADD_FAILURE() << "not announced: " << describe(shown);
    return shown;
  }
  const Expectation expected = script_.front();
  script_.pop_front();
  EXPECT_TRUE(matches(expected, shown))
      << "   shown: " << describe(shown) << "\nexpected: " << describe(expected);
  if (expected.action) expected.action();
  return expected;
}

}  // namespace ovalia::kit
