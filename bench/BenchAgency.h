#pragma once

#include <string>

#include "bench/Bare.h"
#include "platform/Text.h"

namespace ovalia::bench {

// The file of an agency with as many annotations as wanted, three quarters with a subject's worth of text and
// one in ten with a long note. Made once and kept in the build folder: always the same rows.
std::string agencyFile(int annotations);

// The list that the cards work on, of the whole agency, by date.
inline constexpr TextView listOfNotes =
    u"SELECT NotaIP.IdNotaIP, NotaIP.IdInm AS Id, NotaIP.IdNotaIP AS IdAnota, NotaIP.IdUsuario, "
    u"Usuario.Nombre AS Usuario, "
    u"FechaAlta, FechaActualizacion, Asunto, Notas, NotaIP.IdTipoAccNota, TipoAccNota.Nombre AS TipoAccNota, "
    u"Categorias, "
    u"Aviso, FechaAviso, Narchivos FROM (NotaIP LEFT JOIN Usuario ON NotaIP.IdUsuario = Usuario.IdUsuario) "
    u"LEFT JOIN "
    u"TipoAccNota ON NotaIP.IdTipoAccNota = TipoAccNota.IdTipoAccNota ORDER BY FechaAlta";

// The same for the bare interface: the row of a key, all keys.
inline constexpr const char* bareRow =
    "SELECT NotaIP.IdNotaIP, NotaIP.IdInm AS Id, NotaIP.IdNotaIP AS IdAnota, NotaIP.IdUsuario, "
    "Usuario.Nombre AS Usuario, "
    "FechaAlta, FechaActualizacion, Asunto, Notas, NotaIP.IdTipoAccNota, TipoAccNota.Nombre AS TipoAccNota, "
    "Categorias, "
    "Aviso, FechaAviso, Narchivos FROM (NotaIP LEFT JOIN Usuario ON NotaIP.IdUsuario = Usuario.IdUsuario) "
    "LEFT JOIN "
    "TipoAccNota ON NotaIP.IdTipoAccNota = TipoAccNota.IdTipoAccNota WHERE NotaIP.IdNotaIP = ?1";
inline constexpr const char* bareKeys =
    "SELECT NotaIP.IdNotaIP FROM (NotaIP LEFT JOIN Usuario ON NotaIP.IdUsuario = Usuario.IdUsuario) LEFT "
    "JOIN TipoAccNota "
    "ON NotaIP.IdTipoAccNota = TipoAccNota.IdTipoAccNota ORDER BY FechaAlta";

inline constexpr const char* bareContains =
    "SELECT NotaIP.IdNotaIP FROM (NotaIP LEFT JOIN Usuario ON NotaIP.IdUsuario = Usuario.IdUsuario) LEFT "
    "JOIN TipoAccNota "
    "ON NotaIP.IdTipoAccNota = TipoAccNota.IdTipoAccNota WHERE Notas LIKE ?1";

}  // namespace ovalia::bench
