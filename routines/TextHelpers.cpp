#include "routines/TextHelpers.h"

#include <algorithm>

#include "platform/Platform.h"
#include "routines/Messages.h"
#include "routines/Trap.h"

namespace ovalia {

Text CeroPadding(TextView texto) {
  return procedure(u"CeroPadding() de RutinasErr", Text{}, [&](Text& result) {
    if (texto.size() == 1) result = u"0";
    result += texto;
  });
}

Text Padding(TextView texto, std::int16_t longitud) {
  return procedure(u"Padding() de RutinasErr", Text{}, [&](Text& result) {
    const std::int64_t missing = longitud - std::ssize(texto);
    result.assign(std::max<std::int64_t>(missing, 0), u'0').append(texto);
  });
}

Text TrimNull(TextView texto) {
  return procedure(u"TrimNull() de RutinasErr", Text{}, [&](Text& result) {
    const auto nul = texto.find(u'\0');
    result = nul == TextView::npos ? trimBlanks(texto) : Text(texto.substr(0, nul));
  });
}

Text FormatNum(const Variant& valor) {
  return procedure(u"FormatNum() de RutinasErr", Text{}, [&](Text& result) {
    if (!valor.isNull()) result = formatGrouped(valor.toDouble(), regionalNow());
  });
}

bool ComprobarByte(Variant& valor, bool mostrar) {
  return procedure(u"ComprobarByte() de RutinasErr", true, [&](bool& result) {
    if (!valor.isNull()) {
      valor = trimBlanks(valor.toText());
      if (valor.toText().empty()) return;
    }
    if (valor.isNumeric()) {
      const std::int32_t number = valor.toLong();
      if (number < 0 || number > 255) result = false;
    } else {
      result = false;
    }
    if (!result && mostrar) MostrarMensaje(u"Introduzca un número entre 0 y 255.", 48, u"Error");
  });
}

void Remarcar(const ObjectRef& control) {
  procedure(u"Remarcar() de RutinasErr", [&] {
    const auto length = static_cast<std::int32_t>(getMember(control, u"Text").text().size());
    if (length == 0) return;
    putMember(control, u"SelStart", 0);
    putMember(control, u"SelLength", length);
  });
}

bool ExisteControl(const ObjectRef& controles, TextView nombre) {
  return resumeNext([&] { getMember(controles, u"", {nombre}).toObject(); }) == 0;
}

bool ExisteControl(dao::Fields& campos, TextView nombre) {
  bool exists = false;
  return resumeNext([&] { exists = campos.contains(nombre); }) == 0 && exists;
}

}  // namespace ovalia
