#pragma once

#include "platform/Object.h"

namespace ovalia {

// A form's place from one use to the next: settings under the application's title, in a section named after
// the form. The form is reached by name: Name, WindowState, Top, Left, Width, Height (twips). Failures are
// reported.

// Puts the form where it was, pulled wholly onto the screen and at least 100 wide and high; keys that are
// missing leave the form's own values. Places are read as whole numbers, with a decimal comma or point.
void RestaurarVentana(const ObjectRef& form);

// Stores the window state always, the place only of a form that is neither minimised nor maximised.
void GuardarVentana(const ObjectRef& form);

}  // namespace ovalia
