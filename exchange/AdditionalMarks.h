#pragma once

#include "exchange/Marks.h"
#include "instance/Instance.h"

namespace ovalia {

// Adds the marks of a property (the record of the host's form on top), of its owner and of a client, at
// indexes 27 to 44. Without a form on top there is no property, and a client 0 is none. A record that is not
// found is told by a message, any other failure is reported; neither hinders what comes after: the client's
// telephones are found also where the property is not.
void CompletarDatosAdicionales(const Instance& nota, std::int32_t idInm, std::int32_t idCliente,
                               Marks& marks);

// The same for the property and the client of the current row of a list, Null being no client; nothing for a
// list that does not have both. No trap for the fields: failure 94 for a property that is Null.
void addPropertyAndClient(const Instance& nota, dao::Recordset& rows, Marks& marks);

}  // namespace ovalia
