#include "routines/SqlText.h"

#include "platform/Regional.h"
#include "routines/TextHelpers.h"
#include "routines/Trap.h"

namespace ovalia {

Text Comilla(TextView texto) {
  return procedure(u"Comilla() de RutinasErr", Text{}, [&](Text& result) {
    // Quotes first: those that the bar brings in must stay single.
    result = replaceAll(replaceAll(texto, u"'", u"''"), u"|", u"' + chr(124) + '");
  });
}

Text ComillaSQL(TextView texto) {
  return procedure(u"ComillaSQL() de RutinasErr", Text{},
                   [&](Text& result) { result = u"'" + Comilla(texto) + u"'"; });
}

Text VDate(const Variant& valor, bool conComa) {
  return procedure(u"VDate() de RutinasErr", Text{}, [&](Text& result) {
    result = valor.isNull() ? u"NULL" : u"#" + FormatFechaHora(valor.toDate(), u"mm/dd/yy hh:mm:ss") + u"#";
    if (conComa) result += u", ";
  });
}

Text FormatFecha(Date fecha) {
  return procedure(u"FormatFecha() de RutinasErr", Text{}, [&](Text& result) {
    const DateParts parts = partsOf(fecha);
    const Text year = toText(parts.year);
    result = CeroPadding(toText(parts.month)) + u"/" + CeroPadding(toText(parts.day)) + u"/" +
             year.substr(year.size() - 2);
  });
}

Text FormatFechaHora(Date fecha, TextView) {
  return procedure(u"FormatFechaHora() de RutinasErr", Text{}, [&](Text& result) {
    const DateParts parts = partsOf(fecha);
    result = FormatFecha(fecha) + u" " + CeroPadding(toText(parts.hour)) + u":" +
             CeroPadding(toText(parts.minute)) + u":" + CeroPadding(toText(parts.second));
  });
}

}  // namespace ovalia
