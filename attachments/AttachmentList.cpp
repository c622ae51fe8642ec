#include "attachments/AttachmentList.h"

namespace ovalia {

void RefrescoDocs(Instance&) {}

void dlgNota_ActualizaDocs(Instance&, TextView) {}

}  // namespace ovalia
