#pragma once

#include "platform/Text.h"
#include "platform/Variant.h"

namespace ovalia {

// The interval that a text names ("15 minutos", "2 horas", "1 día"), as a date that far behind day zero. The
// unit is the first of minutes, hours and days that the text has anywhere, in that order; the number is what
// stands at the beginning of the text, so "1 hora 30 minutos" is one minute. Without a unit the number counts
// minutes. A failure (a number beyond 16 bits) is reported as "Tiempo() de RutinasErr" and gives day zero.
Date Tiempo(TextView texto);

}  // namespace ovalia
