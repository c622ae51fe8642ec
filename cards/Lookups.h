#pragma once

#include "instance/Instance.h"

namespace ovalia {

// The connection that every statement runs on; failure 91 when the host has set none.
dao::Database& database();

// `Nombre` of a user by key, "" when there is none. No trap.
Text nombreDeUsuario(std::int32_t IdUsuario);

// Key of the advertisement that a form of the host shows at this moment: a call hangs on it. No trap.
Variant anuncioDelAnfitrion(const ObjectRef& form);

// The first telephone of a client: by key, or by `Alias` where the key is 0; "" for a Null key or no row.
// `Campo` is not read. A failure is reported and gives "".
Text TelefonoCliente(const Variant& IdCliente, TextView Cliente, TextView Campo);

}  // namespace ovalia
