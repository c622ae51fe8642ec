#pragma once

#include <cstdint>

#include "instance/Instance.h"

namespace ovalia {

// The four moves through the list. Each checks the active control, settles unsaved changes, moves `crs` and
// fills the card again; past the edge it beeps and stays on the last row. A row that another user has deleted
// (3167) has the host read its list again; the card is then not filled, and what fails meanwhile reaches the
// caller. A move that an associated object has cancelled (3426) ends without a word.
void Primero(Instance& nota);
void Siguiente(Instance& nota);
void Anterior(Instance& nota);
void Ultimo(Instance& nota);

// The card's keys, by virtual-key code: Ctrl+V pastes files, Ctrl+comma and Ctrl+full stop move, Escape
// closes.
void dNota_KeyDown(Instance& nota, std::int16_t keyCode, std::int16_t shift);

}  // namespace ovalia
