#include "tests/cardkit/Desk.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace ovalia::kit {
namespace {

using forms::Runtime;

// Draws nothing: what it is told goes into the desk's journals.
class ScriptedView : public forms::FormView {
 public:
  ScriptedView(Desk& desk, forms::Form& form) : desk_(desk), form_(form) {}

  void show() override { window(u" show"); }
  void runModal() override { desk_.runModal(form_); }
  void hide() override { window(u" hide"); }
  void activate() override { window(u" activate"); }

  void formChanged(forms::FormProperty property) override {
    desk_.formChanges.emplace_back(form_.Name(), property);
  }
  void controlChanged(forms::Control& control, forms::Property property) override {
    desk_.changes.emplace_back(control.Name(), property);
  }
  void toolChanged(forms::ActiveToolBars&, TextView id) override { desk_.tools.emplace_back(id); }
  void focusChanged() override {
    const forms::ControlRef control = form_.ActiveControl();
    desk_.focused.push_back(control ? control->Name() : Text());
  }
  void popupMenu(forms::ActiveToolBars&, TextView menu, const std::optional<forms::Point>& at) override {
    desk_.popups.push_back({Text(menu), at});
  }

 private:
  void window(TextView what) { desk_.windows.push_back(form_.Name() + Text(what)); }

  Desk& desk_;
  forms::Form& form_;
};

}  // namespace

Desk::Desk(FakeScreen& screen) : screen_(screen) {
  Runtime::current().setViewFactory(
      [this](forms::Form& form) { return std::make_shared<ScriptedView>(*this, form); });
  screen_.activeFormOf = [this]() -> ObjectRef {
    if (auto form = Runtime::current().activeForm()) return form;
    return screen_.form;
  };
  screen_.activeControlOf = [this]() -> ObjectRef {
    if (auto form = Runtime::current().activeForm()) return form->ActiveControl();
    return screen_.control;
  };
  screen_.formsOf = [this] {
    std::vector<ObjectRef> all = screen_.loadedForms;
    for (const auto& form : Runtime::current().loadedForms()) all.push_back(form);
    return all;
  };
}

Desk::~Desk() { Runtime::current().setViewFactory({}); }

Desk& Desk::whileShown(Script script) {
  script_.push_back({std::move(script)});
  return *this;
}

Desk& Desk::staysOpen() {
  script_.back().refused = true;
  return *this;
}

void Desk::verify() {
  if (!script_.empty()) ADD_FAILURE() << script_.size() << " script(s) for shows that never came";
  script_.clear();
}

forms::Form& Desk::top() const {
  if (shown_.empty()) throw Failure(failure::objectNotSet, u"no form is shown");
  return *shown_.back();
}

forms::CardForm& Desk::card() const { return dynamic_cast<forms::CardForm&>(top()); }

bool Desk::told(TextView control, forms::Property property) const {
  return std::ranges::find(changes, std::pair(Text(control), property)) != changes.end();
}

void Desk::runModal(forms::Form& form) {
  Show show;
  if (!script_.empty()) {
    show = std::move(script_.front());
    script_.pop_front();
  }
  const auto held = form.shared_from_this();
  shown_.push_back(held);
  if (show.script) show.script();
  if (form.Visible()) {
    const bool closed = form.userCloses();
    EXPECT_EQ(closed, !show.refused) << toUtf8(form.Name()) << ": the closing by the close box was "
                                     << (closed ? "accepted" : "refused");
    if (!closed) form.Hide();
  } else {
    EXPECT_FALSE(show.refused) << toUtf8(form.Name()) << " was closed by its script";
  }
  std::erase(shown_, held);
}

}  // namespace ovalia::kit
