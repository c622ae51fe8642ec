#pragma once

#include "platform/Text.h"
#include "platform/Variant.h"

namespace ovalia {

// The texts through which values reach SQL. Each routine traps its failures, reports them under its own name
// and gives "" then: the statement it was meant for has a hole in it.

// The inside of a literal: every quote doubled; then every bar turned into the end of the literal, `+
// chr(124) +` and a new literal, so that no bar reaches the statement. The quotes of that piece are not
// doubled.
Text Comilla(TextView texto);

// The whole literal, quotes included.
Text ComillaSQL(TextView texto);

// A date literal in American order whatever the regional settings, "#03/07/05 09:05:00#", or "NULL" for Null.
// With `conComa` a comma and a blank follow: an item of a list of values. A text that is no date is reported
// (13).
Text VDate(const Variant& valor, bool conComa);

// "mm/dd/yy"; the year is always cut to two digits.
Text FormatFecha(Date fecha);

// The date as above and "hh:mm:ss". The second argument is taken and not read: there is one shape.
Text FormatFechaHora(Date fecha, TextView formato);

}  // namespace ovalia
