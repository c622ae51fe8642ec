#include "models/SubjectForm.h"

#include <algorithm>

#include "routines/TextHelpers.h"

namespace ovalia {

void SubjectForm::askSubject() {
  const auto box = as<forms::TextBox>(u"txtMateria");
  const Text initial = box->text();
  bool ok = false;
  Text chosen;
  VerMateria(ok, initial, chosen);
  if (ok) box->setText(chosen);
}

void SubjectForm::askPart() {
  const auto box = as<forms::TextBox>(partBox_);
  const Variant subject = subjectBox().text();
  const Text initial = box->text();
  bool ok = false;
  Text chosen;
  VerTMateria(ok, subject, initial, chosen);
  if (ok) box->setText(chosen);
}

void SubjectForm::selectText(const forms::Control& control) { Remarcar(this->control(control.Name())); }

void SubjectForm::onResize() {
  constexpr int minimised = 1;
  if (WindowState() == minimised) return;
  stretch(std::max(0.0, Width() - design().minimumWidth), std::max(0.0, Height() - design().minimumHeight));
}

}  // namespace ovalia
