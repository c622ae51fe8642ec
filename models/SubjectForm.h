#pragma once

#include <span>
#include <type_traits>

#include "forms/Form.h"
#include "forms/ModelForms.h"
#include "platform/Event.h"

namespace ovalia {

// What the two forms about models have in common: a box for a subject and one for a sub-matter, each with a
// button that has the host offer a list, and controls that grow with the form.
class SubjectForm : public forms::Form {
 public:
  // `partBox` is the name of the sub-matter's box.
  SubjectForm(const forms::FormDesign& design, TextView partBox) : Form(design), partBox_(partBox) {}

  Event<bool&, const Text&, Text&> VerMateria;                   // ok, initial, final value
  Event<bool&, const Variant&, const Text&, Text&> VerTMateria;  // ok, subject, initial, final value

  using Form::load;

 protected:
  forms::TextBox& box(TextView name) { return *as<forms::TextBox>(name); }
  forms::TextBox& subjectBox() { return box(u"txtMateria"); }
  forms::TextBox& partBox() { return box(partBox_); }

  // The host's choice goes into the box if it made one. No trap.
  void askSubject();
  void askPart();

  void selectText(const forms::Control& control);  // on getting the focus

  void onResize() override;

 private:
  TextView partBox_;
};

// What a form does about an event of one of its controls.
template <class Kind>
struct Reaction {
  TextView control;
  forms::ControlEvent event;
  void (*run)(Kind& form, forms::Control& control);
};

template <class Kind>
void react(Kind& form, std::type_identity_t<std::span<const Reaction<Kind>>> reactions,
           forms::Control& control, forms::ControlEvent event) {
  for (const Reaction<Kind>& row : reactions)
    if (row.event == event && row.control == control.design().name) return row.run(form, control);
}

}  // namespace ovalia
