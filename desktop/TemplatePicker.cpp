#include "desktop/TemplatePicker.h"

#include "desktop/DialogOwner.h"
#include "desktop/TemplatePickerDialog.h"
#include "platform/Failure.h"
#include "platform/Variant.h"

namespace ovalia::desktop {

namespace {

bool show(Object& picker, TextView mask) {
  const bool asksWhere = picker.get(u"HayDonde").toBoolean();
  TemplatePickerDialog dialog(mask, asksWhere);
  standOver(dialog, dialogOwner());
  if (dialog.exec() != QDialog::Accepted) return false;
  TemplatePicking& picking = TemplatePicking::current();
  if (asksWhere) picking.wish = dialog.wish();
  picking.chosen = dialog.path();
  picker.put(u"NomFich", dialog.name());
  picker.put(u"QueImprimir", dialog.path());
  return true;
}

}  // namespace

TemplatePicking& TemplatePicking::current() {
  thread_local TemplatePicking picking;
  return picking;
}

ObjectRef makeTemplatePicker() {
  auto picker = std::make_shared<MemberTable>();
  picker->value(u"HayDonde", false).value(u"HayCual", false);
  picker->value(u"NomFich", Text()).value(u"QueImprimir", Text());
  picker->method(u"Mostrar", [self = std::weak_ptr<MemberTable>(picker)](Arguments arguments) -> Variant {
    if (arguments.size() != 1) throw Failure(failure::wrongArguments);
    return show(*self.lock(), arguments[0].toText());
  });
  return picker;
}

}  // namespace ovalia::desktop
