#include "instance/Kinds.h"

#include <array>

namespace ovalia {

namespace {

constexpr std::array<Kind, 4> table{{
    {u"Nota", forms::frmNota, &Instance::dlgNota, u"IdNota"},
    {u"Visita", forms::frmVisita, &Instance::dlgVisita, u"IdVisita"},
    {u"Anuncio", forms::frmAnuncio, &Instance::dlgAnuncio, u"IdAnuncio"},
    {u"Llamada", forms::frmLlamada, &Instance::dlgLlamada, u"IdLlamada"},
}};

}  // namespace

std::span<const Kind> kinds() { return table; }

const Kind* kindOf(TextView tipo) {
  for (const Kind& kind : table)
    if (kind.tipo == tipo) return &kind;
  return nullptr;
}

}  // namespace ovalia
