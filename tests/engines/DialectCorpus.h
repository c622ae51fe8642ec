#pragma once

#include <vector>

#include "platform/Text.h"
#include "platform/dao.h"

namespace ovalia::engines::test {

// A statement that the logic or a host can send: what each engine gets, and what running it over the test
// agency gives, rows found or rows changed. A refused one carries the failure's number in place of the count.
struct CorpusRow {
  enum class Kind { Select, Execute, Criterion };

  const char* shape;
  Kind kind;
  TextView jet;
  TextView sqlite;
  std::int32_t count = 0;
  std::int32_t failure = 0;
};

const std::vector<CorpusRow>& dialectCorpus();

// The list over which the criteria stand.
inline constexpr TextView criteriaList =
    u"SELECT NotaIP.IdNotaIP AS IdAnota, IdInm AS Id, NotaIP.IdUsuario, Nombre AS Usuario, Asunto, Notas, "
    u"FechaAlta, "
    u"Aviso, Codigo, Asunto & '!' AS Grito FROM NotaIP LEFT JOIN Usuario ON NotaIP.IdUsuario = "
    u"Usuario.IdUsuario";

}  // namespace ovalia::engines::test
