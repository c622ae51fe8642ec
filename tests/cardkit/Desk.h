#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "forms/CardForm.h"
#include "forms/View.h"
#include "tests/kit/FakeScreen.h"

namespace ovalia::kit {

struct Popup {
  Text menu;
  std::optional<forms::Point> at;
};

// The screen's windows without a toolkit: while a form is shown modally, what the test scripted for that show
// runs in place of the loop.
//
//   desk.whileShown([&] { user.types(u"txtAsunto", u"Llaves"); });
//   nota.AbreNota();
//
// One script a modal show, in the order of the shows; a show without a script is closed by its close box at
// once. A form that its script leaves open is closed by the close box too; a closing that is refused then
// fails the test, unless the script was given `staysOpen`, which wants the refusal. After that the form is
// only hidden, so that the show returns.
//
// While a Desk lives, the forms of this thread are drawn by it, and the fake screen's active form, active
// control and loaded forms are the forms' own; where no form is up they are what the test set on the screen.
class Desk {
 public:
  using Script = std::function<void()>;

  explicit Desk(FakeScreen& screen);
  ~Desk();
  Desk(const Desk&) = delete;
  Desk& operator=(const Desk&) = delete;

  Desk& whileShown(Script script);
  Desk& staysOpen();  // of the script announced last: the close box after it is refused

  // A script that never ran fails the test.
  void verify();

  // The form whose modal show is innermost; a test that asks without one fails with 91.
  forms::Form& top() const;
  forms::CardForm& card() const;
  bool anythingShown() const { return !shown_.empty(); }

  // What the views were told, in order.
  std::vector<Text> windows;                              // "frmNota show", "frmNota hide", "... activate"
  std::vector<std::pair<Text, forms::Property>> changes;  // control, what of it changed
  std::vector<std::pair<Text, forms::FormProperty>> formChanges;
  std::vector<Text> tools;    // ids whose state changed
  std::vector<Text> focused;  // names of the controls that got it
  std::vector<Popup> popups;

  bool told(TextView control, forms::Property property) const;

  // For the views.
  void runModal(forms::Form& form);

 private:
  struct Show {
    Script script;
    bool refused = false;
  };
  FakeScreen& screen_;
  std::deque<Show> script_;
  std::vector<std::shared_ptr<forms::Form>> shown_;
};

}  // namespace ovalia::kit
