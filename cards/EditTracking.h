#pragma once

#include "instance/Instance.h"

namespace ovalia {

// Whether a control's changes are compared with its field, held in its `Tag`. "" is a control that was left
// after a check it passed: it is not tracked until it takes the focus again.
inline constexpr TextView HacerAlgo = u"HacerAlgo";  // compared
inline constexpr TextView HacerNada = u"HacerNada";  // the card was changed before the control took the focus

// A control has changed: reminder boxes enable their companions, and a tracked control is compared with the
// field `campo` of `crs`. Nothing happens while the card is filled (state 3). A failure is reported, 91 for
// an empty control among them.
void dNota_Cambio(Instance& nota, const forms::ControlRef& control, TextView campo);

// A control has taken the focus: its tracking is set, its text selected, and a tracked picker compared at
// once, so that one that shows other than its field counts as a change.
void dNota_CogerFoco(Instance& nota, const forms::ControlRef& control);

// The state of the card after comparing what it shows with a field (a value, or the field itself, which is
// read in here): 2 where they differ and 0 where they agree; states other than 0 and 2 come back as they are.
// The tools follow. A failure is reported and gives 0.
std::int32_t NuevoEstado(Instance& nota, std::int32_t Estado, const Variant& ValorFicha,
                         const Variant& ValorCampo);

// Sets the tracking of a control that takes the focus. No trap.
void PrepararTag(std::int32_t Estado, forms::Control& control);

}  // namespace ovalia
