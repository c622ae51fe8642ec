#pragma once

#include <cstdint>
#include <memory>

#include "forms/CardForm.h"
#include "instance/NotaSurface.h"

namespace ovalia {

using CardRef = std::shared_ptr<forms::CardForm>;

// State of the open card.
inline constexpr std::int32_t limpia = 0;      // shows the record as saved
inline constexpr std::int32_t nueva = 1;       // new and never saved
inline constexpr std::int32_t modificada = 2;  // differs from the record
inline constexpr std::int32_t cargando = 3;    // being filled; changes are ignored

// The private state of one CNota. The procedures that make up the component are free functions over it.
struct Instance {
  explicit Instance(NotaSurface& surface) : nota(surface) {}

  NotaSurface& nota;
  std::int32_t EstadoFicha = limpia;

  // The host form that was on top when the card was last opened, added to or printed. Never cleared.
  ObjectRef FormActiva;

  // The card in use. One form a kind, made at first use and kept until the end.
  CardRef dNota;
  CardRef dlgNota, dlgVisita, dlgAnuncio, dlgLlamada;

  // The forms about models, while they are up.
  forms::FormRef dlgModelo, dlgListaModelos;

  // The open list; failure 91 when the host has set none.
  dao::Recordset& crs() const {
    if (!nota.crs) throw Failure(failure::objectNotSet);
    return *nota.crs;
  }

  // The card in use; failure 91 when none was ever opened.
  forms::CardForm& card() const {
    if (!dNota) throw Failure(failure::objectNotSet);
    return *dNota;
  }
};

}  // namespace ovalia
