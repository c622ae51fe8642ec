#pragma once

#include "platform/Text.h"

namespace ovalia {

// A list of the host's from which a control takes one or more values: what it is asked for with.
struct PickTable {
  TextView control;
  TextView tabla;
  TextView Titulo;
};

inline constexpr PickTable categories{u"txtCategorias", u"TipoCatNota", u"Categorías"};
inline constexpr PickTable media{u"txtDonde", u"TipoMedioPubli", u"Medios de publicidad"};

}  // namespace ovalia
