#pragma once

#include "forms/Design.h"

namespace ovalia::forms {

// The cards' bits in the tables that several of them share.
inline constexpr FormMask nota = 1;
inline constexpr FormMask visita = 2;
inline constexpr FormMask anuncio = 4;
inline constexpr FormMask llamada = 8;
inline constexpr FormMask allCards = nota | visita | anuncio | llamada;

}  // namespace ovalia::forms
